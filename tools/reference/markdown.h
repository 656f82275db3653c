// Tables in Markdown.
#pragma once

#include <string>
#include <vector>

namespace kodra::console::reference {

class Table {
 public:
  explicit Table(const std::vector<std::string>& heads) : text_(Line(heads)) {
    text_ += Line(std::vector<std::string>(heads.size(), "---"));
  }

  void Add(const std::vector<std::string>& cells) { text_ += Line(cells); }
  const std::string& Text() const { return text_; }

 private:
  static std::string Line(const std::vector<std::string>& cells) {
    std::string line = "|";
    for (const std::string& cell : cells) line.append(" ").append(cell).append(" |");
    return line.append("\n");
  }

  std::string text_;
};

}  // namespace kodra::console::reference

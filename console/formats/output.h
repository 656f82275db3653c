// Where a writer's bytes go: a file, the standard output, a text of a test.
#pragma once

#include <string>
#include <string_view>

namespace kodra::console {

class Output {
 public:
  virtual ~Output() = default;
  // Takes UTF-8. Raises OutputError when it cannot be written.
  virtual void Write(std::string_view bytes) = 0;
};

// Collects what is written.
class TextOutput final : public Output {
 public:
  void Write(std::string_view bytes) override { text_ += bytes; }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace kodra::console

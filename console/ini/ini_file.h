// Files of settings, as people write them by hand: sections, lines "key = value", and comments after ; or #.
//
//   IniFile file(text, "perfis.ini");
//   for (const IniSection& section : file.Sections())
//     for (const IniEntry& entry : section.entries) …
//   file.Set("acervo", "conexao", "DSN=Acervo");
//   text = file.Text();
//
// The text is UTF-8. Blanks around names and values do not count, and a value ends with its line: a semicolon in it is
// part of it.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace kodra::console {

struct IniEntry {
  std::string key, value;
};

struct IniSection {
  std::string name;  // empty for entries before the first section
  // In the order of the file. A key that the file repeats is here each time.
  std::vector<IniEntry> entries;
};

class IniFile {
 public:
  // `name` is the file's name for messages. Raises UsageError, with the number of the line, for a line that is none of
  // the above, and for a text that is not UTF-8.
  IniFile(const std::string& text, const std::string& name);
  ~IniFile();
  IniFile(const IniFile&) = delete;
  IniFile& operator=(const IniFile&) = delete;

  // In the order of the file. A section that the file repeats is here once, with all its entries.
  std::vector<IniSection> Sections() const;

  // Adds a key at the end of the section, or the section at the end of the file. REQUIRES: names and value are not
  // empty and contain no line ends, the section's name no brackets, the key no equals sign.
  void Set(const std::string& section, const std::string& key, const std::string& value);
  // Removes the section and its comment, if there is one.
  void Remove(const std::string& section);

  // The file with its changes; comments stay.
  std::string Text() const;

 private:
  struct Library;
  std::unique_ptr<Library> library_;
};

}  // namespace kodra::console

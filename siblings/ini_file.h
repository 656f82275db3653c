// A settings file of sections and keys.
//
//   ; a comment, as are lines beginning with #
//   [Nomes]
//   Grupo = Fundo
//   Série = "Dossiê "
//
// Read as UTF-8 when its bytes are UTF-8 (with or without a byte order mark), otherwise as Windows-1252, the encoding
// of the files that installations already have. Section and key names are compared without regard to letter case.
// Blanks around names and values are removed, and so is one pair of quotes around a value. Of two equal keys the first
// is used.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::siblings {

// The text of bytes in UTF-8 or, when they are not UTF-8, in Windows-1252.
std::wstring DecodeText(std::string_view bytes);

class IniFile {
 public:
  explicit IniFile(std::wstring_view text);

  // Reads the file at a path; nothing when there is no such file.
  static std::optional<IniFile> Read(const std::wstring& path);

  // The value of a key; nothing when the section has no such key.
  std::optional<std::wstring> Find(std::wstring_view section, std::wstring_view key) const;

 private:
  struct Entry {
    std::wstring section, key, value;
  };
  std::vector<Entry> entries_;
};

}  // namespace kodra::siblings

// An executable file, 32-bit or 64-bit like the tests themselves, as it is on the disk: headers, imports and exports.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/wine/environment.h"

namespace kodra::face {

class PeFile {
 public:
  explicit PeFile(const std::wstring& path) : bytes_(BytesOf(path)) {
    if (bytes_.empty()) throw std::runtime_error("cannot read the file");
    if (At<IMAGE_DOS_HEADER>(0).e_magic != IMAGE_DOS_SIGNATURE) throw std::runtime_error("no executable file");
  }

  std::size_t Size() const { return bytes_.size(); }

  const IMAGE_NT_HEADERS& Headers() const {
    return At<IMAGE_NT_HEADERS>(static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(0).e_lfanew));
  }

  // Whether the file contains a text anywhere.
  bool Contains(const std::string& text) const {
    return std::search(bytes_.begin(), bytes_.end(), text.begin(), text.end()) != bytes_.end();
  }

  // The functions imported from each DLL, whose name is in lower case. A function by number is "#number".
  std::map<std::string, std::set<std::string>> Imports() const {
    std::map<std::string, std::set<std::string>> imports;
    const DWORD table = Headers().OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (std::size_t i = Offset(table); At<IMAGE_IMPORT_DESCRIPTOR>(i).Name != 0;
         i += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
      const auto& descriptor = At<IMAGE_IMPORT_DESCRIPTOR>(i);
      std::string dll = Text(descriptor.Name);
      for (char& c : dll)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
      for (std::size_t k = Offset(descriptor.OriginalFirstThunk); At<ULONG_PTR>(k) != 0; k += sizeof(ULONG_PTR)) {
        const ULONG_PTR entry = At<ULONG_PTR>(k);
        const bool byNumber = (entry & IMAGE_ORDINAL_FLAG) != 0;
        imports[dll].insert(byNumber ? std::string("#").append(std::to_string(entry & 0xFFFF))
                                     : Text(static_cast<DWORD>(entry) + sizeof(WORD)));
      }
    }
    return imports;
  }

  std::vector<std::string> Exports() const {
    const auto& directory = At<IMAGE_EXPORT_DIRECTORY>(
        Offset(Headers().OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress));
    std::vector<std::string> names;
    for (DWORD i = 0; i < directory.NumberOfNames; ++i)
      names.push_back(Text(At<DWORD>(Offset(directory.AddressOfNames) + i * sizeof(DWORD))));
    if (directory.NumberOfFunctions != directory.NumberOfNames) names.emplace_back("(a function without a name)");
    return names;
  }

 private:
  template <class T>
  const T& At(std::size_t offset) const {
    if (offset + sizeof(T) > bytes_.size()) throw std::runtime_error("beyond the end of the file");
    return *reinterpret_cast<const T*>(bytes_.data() + offset);
  }
  // The position in the file of an address of the loaded image.
  std::size_t Offset(DWORD address) const {
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(&Headers());
    for (WORD i = 0; i < Headers().FileHeader.NumberOfSections; ++i, ++section)
      if (address >= section->VirtualAddress && address - section->VirtualAddress < section->SizeOfRawData)
        return section->PointerToRawData + (address - section->VirtualAddress);
    throw std::runtime_error("no such address");
  }
  std::string Text(DWORD address) const { return std::string(&At<char>(Offset(address))); }

  std::string bytes_;
};

}  // namespace kodra::face

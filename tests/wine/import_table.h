// Functions that a module imports from others, redirected to functions of the test.
#pragma once

#include <cstring>

#include "tests/wine/automation.h"
#include "tests/wine/environment.h"
#include "tests/wine/replaced_entries.h"

namespace kodra::face {

// The import table of a module, which stays loaded. The redirections end with this object.
class ImportTable {
 public:
  explicit ImportTable(const std::wstring& path = DllPath()) : module_(LoadLibraryW(path.c_str())) {}
  ImportTable(const ImportTable&) = delete;
  ImportTable& operator=(const ImportTable&) = delete;
  ~ImportTable() {
    entries_.Restore();
    FreeLibrary(module_);
  }

  // Redirects an imported function to `function`; returns the imported one.
  template <class Function>
  Function Redirect(const char* name, Function function) {
    void** const entry = EntryOf(name);
    EXPECT_NE(nullptr, entry) << name;
    return entry == nullptr ? nullptr : entries_.Replace(entry, function);
  }

 private:
  // The entry of an imported function; null when the module does not import it.
  void** EntryOf(const char* name) const {
    auto* const base = reinterpret_cast<unsigned char*>(module_);
    const auto* const dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
    const auto* const headers = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* from = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress); from->Name != 0;
         ++from) {
      auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
      auto* entries = reinterpret_cast<void**>(base + from->FirstThunk);
      for (; names->u1.AddressOfData != 0; ++names, ++entries) {
        if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
        const auto* const import = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
        if (std::strcmp(reinterpret_cast<const char*>(import->Name), name) == 0) return entries;
      }
    }
    return nullptr;
  }

  HMODULE module_;
  ReplacedEntries entries_;
};

}  // namespace kodra::face

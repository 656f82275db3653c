// The functions that a DLL imports from others, redirected while an ImportTable exists.
#pragma once

#include <cstring>
#include <vector>

#include "tests/wine/automation.h"
#include "tests/wine/environment.h"

namespace kodra::face {

class ImportTable {
 public:
  explicit ImportTable(const std::wstring& path = DllPath()) : module_(LoadLibraryW(path.c_str())) {}
  ImportTable(const ImportTable&) = delete;
  ImportTable& operator=(const ImportTable&) = delete;
  ~ImportTable() {
    for (const auto& [entry, original] : redirected_) Exchange(entry, original);
    FreeLibrary(module_);
  }

  // Redirects an imported function to `function`; returns the imported one.
  template <class Function>
  Function Redirect(const char* name, Function function) {
    void** const entry = EntryOf(name);
    EXPECT_NE(nullptr, entry) << name;
    if (entry == nullptr) return nullptr;
    redirected_.emplace_back(entry, *entry);
    const auto original = reinterpret_cast<Function>(*entry);
    Exchange(entry, reinterpret_cast<void*>(function));
    return original;
  }

 private:
  static void Exchange(void** entry, void* function) {
    DWORD before = 0;
    VirtualProtect(entry, sizeof(void*), PAGE_READWRITE, &before);
    *entry = function;
    VirtualProtect(entry, sizeof(void*), before, &before);
  }

  // The place in the table of a function's address.
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
  std::vector<std::pair<void**, void*>> redirected_;
};

}  // namespace kodra::face

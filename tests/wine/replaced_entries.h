// Entries of the tables that hold pointers to functions, replaced in memory: a module's import table, and the tables of
// the virtual functions of COM classes.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

namespace kodra::face {

// The entry of a method in the table of an object's class.
template <auto kMethod, class Interface>
void** EntryOfMethod(Interface* object) {
  // A pointer to a virtual member holds its offset in the table, plus one.
  auto method = kMethod;
  std::size_t offset = 0;
  std::memcpy(&offset, &method, sizeof offset);
  return *reinterpret_cast<void***>(object) + (offset - 1) / sizeof(void*);
}

// Replaces entries, and restores them in its destructor.
class ReplacedEntries {
 public:
  ReplacedEntries() = default;
  ReplacedEntries(const ReplacedEntries&) = delete;
  ReplacedEntries& operator=(const ReplacedEntries&) = delete;
  ~ReplacedEntries() { Restore(); }

  // Returns the function that the entry held.
  template <class Function>
  Function Replace(void** entry, Function replacement) {
    void* const original = *entry;
    Write(entry, reinterpret_cast<void*>(replacement));
    originals_.emplace_back(entry, original);
    return reinterpret_cast<Function>(original);
  }
  void Restore() {
    for (const auto& [entry, original] : originals_) Write(entry, original);
    originals_.clear();
  }

 private:
  static void Write(void** entry, void* function) {
    DWORD before = 0;
    VirtualProtect(entry, sizeof(void*), PAGE_READWRITE, &before);
    *entry = function;
    VirtualProtect(entry, sizeof(void*), before, &before);
  }

  std::vector<std::pair<void**, void*>> originals_;
};

}  // namespace kodra::face

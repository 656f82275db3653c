// The memory of KodraRpt.dll: what it holds, and its exhaustion at any request.
//
// The DLL brings its own C++ runtime, which asks the system's C runtime for memory and automation for texts. The
// entries of its import table for these lead here while a DllHeap exists. Used on one thread.
#pragma once

#include <cstdlib>
#include <cstring>
#include <set>
#include <vector>

#include "automation.h"
#include "environment.h"

namespace kodra::face {

class DllHeap {
 public:
  DllHeap() : module_(LoadLibraryW(DllPath().c_str())) {
    Instance() = this;
    malloc_ = Redirect("malloc", &Malloc);
    calloc_ = Redirect("calloc", &Calloc);
    realloc_ = Redirect("realloc", &Realloc);
    free_ = Redirect("free", &Free);
    text_ = Redirect("SysAllocStringLen", &Text);
  }
  ~DllHeap() {
    for (const auto& [entry, original] : redirected_) Exchange(entry, original);
    FreeLibrary(module_);
    Instance() = nullptr;
  }
  DllHeap(const DllHeap&) = delete;
  DllHeap& operator=(const DllHeap&) = delete;

  // What becomes of the requests after the one refused.
  enum class Later {
    kServed,
    kSmallServed,  // the compiler's runtime needs a small one for the first exception that it has no memory for
    kRefused,      // REQUIRES: that exception has been
  };

  // Counts requests from here on, from 1; refuses request `number` (0: none), and later ones if told to.
  void Arm(std::size_t number, Later later = Later::kServed) {
    requests_ = 0;
    number_ = number;
    later_ = later;
    armed_ = true;
  }
  void Disarm() { armed_ = false; }
  std::size_t requests() const { return requests_; }

  // How many blocks are held of those requested since this object exists.
  std::size_t held() const { return held_.size(); }

 private:
  using MallocFunction = void*(__cdecl*)(std::size_t);
  using CallocFunction = void*(__cdecl*)(std::size_t, std::size_t);
  using ReallocFunction = void*(__cdecl*)(void*, std::size_t);
  using FreeFunction = void(__cdecl*)(void*);
  using TextFunction = BSTR(WINAPI*)(const OLECHAR*, UINT);

  static DllHeap*& Instance() {
    static DllHeap* instance = nullptr;
    return instance;
  }

  bool Refuses(std::size_t size) {
    constexpr std::size_t kSmall = 64;
    if (!armed_) return false;
    ++requests_;
    if (number_ == 0 || requests_ < number_) return false;
    if (requests_ == number_ || later_ == Later::kRefused) return true;
    return later_ == Later::kSmallServed && size > kSmall;
  }
  void* Keep(void* block) {
    if (block != nullptr) held_.insert(block);
    return block;
  }

  static void* __cdecl Malloc(std::size_t size) {
    DllHeap& heap = *Instance();
    return heap.Refuses(size) ? nullptr : heap.Keep(heap.malloc_(size));
  }
  static void* __cdecl Calloc(std::size_t count, std::size_t size) {
    DllHeap& heap = *Instance();
    return heap.Refuses(count * size) ? nullptr : heap.Keep(heap.calloc_(count, size));
  }
  static void* __cdecl Realloc(void* block, std::size_t size) {
    DllHeap& heap = *Instance();
    if (heap.Refuses(size)) return nullptr;
    heap.held_.erase(block);
    return heap.Keep(heap.realloc_(block, size));
  }
  static void __cdecl Free(void* block) {
    Instance()->held_.erase(block);
    Instance()->free_(block);
  }
  static BSTR WINAPI Text(const OLECHAR* text, UINT length) {
    return Instance()->Refuses(length * sizeof(OLECHAR)) ? nullptr : Instance()->text_(text, length);
  }

  static void Exchange(void** entry, void* function) {
    DWORD before = 0;
    VirtualProtect(entry, sizeof(void*), PAGE_READWRITE, &before);
    *entry = function;
    VirtualProtect(entry, sizeof(void*), before, &before);
  }

  // Lets an imported function lead to `function`; gives the imported one.
  template <class Function>
  Function Redirect(const char* name, Function function) {
    void** const entry = ImportOf(name);
    EXPECT_NE(nullptr, entry) << name;
    if (entry == nullptr) return nullptr;
    redirected_.emplace_back(entry, *entry);
    const auto original = reinterpret_cast<Function>(*entry);
    Exchange(entry, reinterpret_cast<void*>(function));
    return original;
  }

  // Where the import table holds a function's address.
  void** ImportOf(const char* name) const {
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
  MallocFunction malloc_ = nullptr;
  CallocFunction calloc_ = nullptr;
  ReallocFunction realloc_ = nullptr;
  FreeFunction free_ = nullptr;
  TextFunction text_ = nullptr;
  std::set<void*> held_;
  std::size_t requests_ = 0;
  std::size_t number_ = 0;
  Later later_ = Later::kServed;
  bool armed_ = false;
};

}  // namespace kodra::face

// The memory of KodraRpt.dll: counts the blocks that the DLL holds, and refuses its requests.
//
// The DLL contains its own C++ runtime, which gets memory from the system's C runtime and texts from automation. While
// a DllHeap exists, the DLL's imports of these functions lead here. Only one thread may use the DLL meanwhile.
#pragma once

#include <cstdlib>
#include <set>

#include "tests/wine/import_table.h"

namespace kodra::face {

class DllHeap {
 public:
  explicit DllHeap(const std::wstring& path = DllPath()) : imports_(path) {
    Instance() = this;
    malloc_ = imports_.Redirect("malloc", &Malloc);
    calloc_ = imports_.Redirect("calloc", &Calloc);
    realloc_ = imports_.Redirect("realloc", &Realloc);
    free_ = imports_.Redirect("free", &Free);
    text_ = imports_.Redirect("SysAllocStringLen", &Text);
  }
  DllHeap(const DllHeap&) = delete;
  DllHeap& operator=(const DllHeap&) = delete;

  // What happens to the requests after the refused one.
  enum class Later {
    kServed,
    // Only small ones are served. The compiler's runtime needs one for the first exception that it has no memory for.
    kSmallServed,
    kRefused,  // REQUIRES: that first exception has already been thrown.
  };

  // Starts to count requests, from 1. Refuses request `number` (none when it is 0), and later ones as `later` says.
  void Arm(std::size_t number, Later later = Later::kServed) {
    requests_ = 0;
    number_ = number;
    later_ = later;
    armed_ = true;
  }
  void Disarm() { armed_ = false; }
  std::size_t requests() const { return requests_; }

  // The number of blocks that the DLL has requested during the life of this object and has not freed.
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
  void* Record(void* block) {
    if (block != nullptr) held_.insert(block);
    return block;
  }

  static void* __cdecl Malloc(std::size_t size) {
    DllHeap& heap = *Instance();
    return heap.Refuses(size) ? nullptr : heap.Record(heap.malloc_(size));
  }
  static void* __cdecl Calloc(std::size_t count, std::size_t size) {
    DllHeap& heap = *Instance();
    return heap.Refuses(count * size) ? nullptr : heap.Record(heap.calloc_(count, size));
  }
  static void* __cdecl Realloc(void* block, std::size_t size) {
    DllHeap& heap = *Instance();
    if (heap.Refuses(size)) return nullptr;
    heap.held_.erase(block);
    return heap.Record(heap.realloc_(block, size));
  }
  static void __cdecl Free(void* block) {
    Instance()->held_.erase(block);
    Instance()->free_(block);
  }
  static BSTR WINAPI Text(const OLECHAR* text, UINT length) {
    return Instance()->Refuses(length * sizeof(OLECHAR)) ? nullptr : Instance()->text_(text, length);
  }

  ImportTable imports_;
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

// The memory of KodraRpt.dll in the preset win32-checked. Each block ends where an inaccessible page begins, and a
// freed block is inaccessible for as long as the addresses last, so that the first access beyond a block, or to a freed
// one, ends the process.
//
// Small blocks are in one reserved range of addresses, in which only the pages of blocks that are in use have memory. A
// new block gets the next free pages after the latest one, so that the pages of a freed block are used again only after
// all others. Large blocks have ranges of their own.
#include <windows.h>

#include <algorithm>
#include <bitset>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kRangePages = 64 * 1024;
constexpr std::size_t kLargestSmallPages = 256;
// What a new block contains, so that a value that is read before it is written is wrong, and what surrounds it.
constexpr unsigned char kFilling = 0xCD;

// The beginning of a block's first page.
struct Header {
  std::size_t size;
  // Tests count and refuse the requests of the DLL to the system's C runtime. Each block owns one such request, of its
  // own size, so that the DLL makes the same ones as without this file.
  void* request;
};

SRWLOCK rangeLock = SRWLOCK_INIT;

// The DLL has no locks of the C++ library: src/com/library_threads.cpp replaces only what the library itself calls.
class Locked {
 public:
  Locked() { AcquireSRWLockExclusive(&rangeLock); }
  ~Locked() { ReleaseSRWLockExclusive(&rangeLock); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;
};

unsigned char* range = nullptr;
std::bitset<kRangePages> taken;
std::size_t next = 0;

[[noreturn]] void End() { __builtin_trap(); }

// The pages of a block of this size, without the inaccessible one.
std::size_t PagesOf(std::size_t size) { return (sizeof(Header) + size + kPage - 1) / kPage; }

unsigned char* Reserve(std::size_t pages) {
  return static_cast<unsigned char*>(VirtualAlloc(nullptr, pages * kPage, MEM_RESERVE, PAGE_READWRITE));
}

// The index of the first of `count` free pages in a row, or kRangePages.
std::size_t FindFree(std::size_t from, std::size_t to, std::size_t count) {
  std::size_t found = 0;
  for (std::size_t i = from; i < to; ++i) {
    found = taken[i] ? 0 : found + 1;
    if (found == count) return i + 1 - count;
  }
  return kRangePages;
}

// Addresses for a small block and its inaccessible page; null when there are none left.
unsigned char* TakeAddresses(std::size_t pages) {
  const Locked locked;
  if (range == nullptr) range = Reserve(kRangePages);
  if (range == nullptr) return nullptr;
  std::size_t first = FindFree(next, kRangePages, pages + 1);
  if (first == kRangePages) first = FindFree(0, kRangePages, pages + 1);
  if (first == kRangePages) return nullptr;
  next = first + pages + 1;
  for (std::size_t i = first; i < next; ++i) taken.set(i);
  return range + first * kPage;
}

void FreeAddresses(unsigned char* start, std::size_t pages) {
  const Locked locked;
  const std::size_t first = (start - range) / kPage;
  for (std::size_t i = first; i < first + pages + 1; ++i) taken.reset(i);
}

// A type's size is a multiple of its alignment, so the end of a page is the right place for the end of each object.
void* Allocate(std::size_t size) {
  void* const request = std::malloc(size);
  if (request == nullptr) return nullptr;
  const std::size_t pages = PagesOf(size);
  unsigned char* start = pages > kLargestSmallPages ? Reserve(pages + 1) : TakeAddresses(pages);
  if (start != nullptr)
    start = static_cast<unsigned char*>(VirtualAlloc(start, pages * kPage, MEM_COMMIT, PAGE_READWRITE));
  if (start == nullptr) {
    std::free(request);
    return nullptr;
  }
  std::memset(start, kFilling, pages * kPage);
  new (start) Header{size, request};
  return start + pages * kPage - size;
}

// Ends the process when `block` is no block, has been freed before, or something has been written before it.
Header& HeaderOf(void* block) {
  const auto address = reinterpret_cast<std::uintptr_t>(block) - sizeof(Header);
  auto* const start = reinterpret_cast<unsigned char*>(address - address % kPage);
  auto& header = *reinterpret_cast<Header*>(start);
  if (start + PagesOf(header.size) * kPage - header.size != block) End();
  const auto isFilling = [](unsigned char byte) { return byte == kFilling; };
  if (!std::all_of(start + sizeof(Header), static_cast<unsigned char*>(block), isFilling)) End();
  return header;
}

void Free(void* block) {
  const Header& header = HeaderOf(block);
  const std::size_t pages = PagesOf(header.size);
  auto* const start = const_cast<unsigned char*>(reinterpret_cast<const unsigned char*>(&header));
  std::free(header.request);
  if (pages > kLargestSmallPages) {
    VirtualFree(start, 0, MEM_RELEASE);
  } else {
    VirtualFree(start, pages * kPage, MEM_DECOMMIT);
    FreeAddresses(start, pages);
  }
}

// When the DLL is unloaded, after all else.
__attribute__((destructor)) void FreeRange() {
  if (range != nullptr) VirtualFree(range, 0, MEM_RELEASE);
}

}  // namespace

void* operator new(std::size_t size) {
  void* const block = Allocate(std::max<std::size_t>(size, 1));
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void operator delete(void* block) noexcept {
  if (block != nullptr) Free(block);
}

void operator delete(void* block, std::size_t size) noexcept {
  if (block == nullptr) return;
  if (HeaderOf(block).size != std::max<std::size_t>(size, 1)) End();
  Free(block);
}

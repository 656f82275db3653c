// The resources of a process: its handles, its working set and, of this process, the memory of its heaps.
#pragma once

// clang-format off
#include <windows.h>
#include <psapi.h>
#include <winternl.h>
// clang-format on

#include <array>
#include <vector>

namespace kodra::face {

// The number of open handles, from the system's list of all handles: GetProcessHandleCount always returns 0 in Wine.
inline std::size_t OpenHandles(DWORD process = GetCurrentProcessId()) {
  struct Entry {
    ULONG process;
    BYTE type;
    BYTE flags;
    USHORT value;
    PVOID object;
    ULONG access;
  };
  struct List {
    ULONG count;
    Entry entries[1];
  };
  constexpr auto kHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
  constexpr NTSTATUS kTooSmall = static_cast<NTSTATUS>(0xC0000004);
  using Query = NTSTATUS(NTAPI*)(SYSTEM_INFORMATION_CLASS, PVOID, ULONG, PULONG);
  const auto query = reinterpret_cast<Query>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
  std::vector<char> answer(1 << 18);
  while (query(kHandles, answer.data(), static_cast<ULONG>(answer.size()), nullptr) == kTooSmall)
    answer.resize(answer.size() * 2);
  const auto& list = *reinterpret_cast<const List*>(answer.data());
  std::size_t handles = 0;
  for (ULONG i = 0; i < list.count; ++i)
    if (list.entries[i].process == process) ++handles;
  return handles;
}

// The bytes of the process in the machine's memory; 0 if the system does not say.
inline std::size_t WorkingSet(HANDLE process) {
  PROCESS_MEMORY_COUNTERS memory = {};
  return GetProcessMemoryInfo(process, &memory, sizeof memory) == 0 ? 0 : memory.WorkingSetSize;
}

// The number of bytes in use in all heaps. Small blocks are in groups, and a group counts as a whole as soon as one of
// its blocks is in use.
inline std::size_t HeapBytes() {
  std::array<HANDLE, 64> heaps = {};
  const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  std::size_t bytes = 0;
  for (DWORD i = 0; i < count; ++i) {
    PROCESS_HEAP_ENTRY entry = {};
    HeapLock(heaps[i]);
    while (HeapWalk(heaps[i], &entry))
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
    HeapUnlock(heaps[i]);
  }
  return bytes;
}

}  // namespace kodra::face

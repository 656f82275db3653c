#include "com/module.h"

#include <mutex>

#include "platform/windows/com_surroundings.h"
#include "platform/windows/variant.h"

namespace kodra::com {
namespace {

using platform::windows::com_ptr;

// The count and the library it keeps change together.
std::mutex g_mutex;
long g_uses = 0;
com_ptr<ITypeLib> g_library;  // NOLINT(bugprone-dynamic-static-initializers): starts null

HMODULE OwnModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&OwnModule), &module);
  return module;
}

com_ptr<ITypeLib> Library() {
  const std::lock_guard lock(g_mutex);
  if (!g_library) {
    const HRESULT hr = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, g_library.put());
    if (FAILED(hr)) throw platform::windows::ErrorOf(hr, nullptr, IID_NULL);
  }
  return g_library;
}

}  // namespace

void HoldModule() noexcept {
  const std::lock_guard lock(g_mutex);
  ++g_uses;
}

void UnholdModule() noexcept {
  com_ptr<ITypeLib> last;  // released after the lock
  const std::lock_guard lock(g_mutex);
  if (--g_uses == 0) last = std::move(g_library);
}

bool ModuleInUse() noexcept {
  const std::lock_guard lock(g_mutex);
  return g_uses != 0;
}

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(OwnModule(), path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

com_ptr<ITypeInfo> TypeInfoOf(REFGUID id) {
  const auto library = Library();
  com_ptr<ITypeInfo> info;
  platform::windows::Check(library->GetTypeInfoOfGuid(id, info.put()), library);
  return info;
}

platform::Surroundings& ModuleSurroundings() {
  static platform::windows::ComSurroundings surroundings;
  return surroundings;
}

}  // namespace kodra::com

#include "odbc/adodb/module.h"

#include <atomic>
#include <new>

namespace kodra::adodb {
namespace {

std::atomic<long> references{0};
HMODULE ownModule = nullptr;

}  // namespace

ModuleReference::ModuleReference() noexcept { ++references; }
ModuleReference::~ModuleReference() { --references; }

bool ModuleInUse() noexcept { return references != 0; }

void SetModule(HMODULE module) noexcept { ownModule = module; }

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(ownModule, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

ado::com_ptr<ITypeInfo> TypeInfoOf(REFIID interfaceId) noexcept {
  ado::com_ptr<ITypeInfo> type;
  try {
    ado::com_ptr<ITypeLib> library;
    if (SUCCEEDED(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.put())))
      library->GetTypeInfoOfGuid(interfaceId, type.put());
  } catch (const std::bad_alloc&) {
    // Answered like a library that cannot be read.
  }
  return type;
}

}  // namespace kodra::adodb

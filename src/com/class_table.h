// The public classes of the component: the one table that the class factory, registration and installation read.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "comkit/automation_headers.h"

namespace kodra::com {

struct PublicClass {
  CLSID id;
  // The name of the class; its ProgID is this name after kProgIdPrefix.
  std::wstring_view name;
  // Makes an object with one reference, the caller's. May raise std::bad_alloc.
  IUnknown* (*create)();
};

inline constexpr std::wstring_view kProgIdPrefix = L"KodraRpt.";

inline std::wstring ProgId(const PublicClass& publicClass) {
  return std::wstring(kProgIdPrefix).append(publicClass.name);
}

// Every class that a client may create.
std::span<const PublicClass> PublicClasses();

}  // namespace kodra::com

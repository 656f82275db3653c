#include "com/parameter_face.h"

#include <cstring>

#include "ado/variant.h"

namespace kodra::com {

using comkit::ScopedBstr;
using comkit::ToWide;

IID ParametersId() noexcept {
  static const char inThisCopy = 0;
  const void* const address = &inThisCopy;
  IID id = {0x7e2bade3, 0xc705, 0x4399, {}};
  static_assert(sizeof address <= sizeof id.Data4);
  std::memcpy(id.Data4, &address, sizeof address);
  return id;
}

HRESULT ParameterMembers::Get(std::wstring_view name, BSTR* value) noexcept {
  return FillAtBoundary(iid_, value, [&] { return ScopedBstr(parameters_.Get(name).As<std::wstring>()).detach(); });
}

HRESULT ParameterMembers::Get(std::wstring_view name, DATE* value) noexcept {
  return FillAtBoundary(iid_, value, [&] { return parameters_.Get(name).As<Date>().days; });
}

HRESULT ParameterMembers::Get(std::wstring_view name, VARIANT_BOOL* value) noexcept {
  return FillAtBoundary(iid_, value, [&] { return parameters_.Get(name).As<bool>() ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT ParameterMembers::Let(std::wstring_view name, BSTR value) noexcept {
  return AtBoundary(iid_, [&] { parameters_.Let(name, ToWide(value)); });
}

HRESULT ParameterMembers::Let(std::wstring_view name, DATE value) noexcept {
  return AtBoundary(iid_, [&] { parameters_.Let(name, Date{value}); });
}

HRESULT ParameterMembers::Let(std::wstring_view name, VARIANT_BOOL value) noexcept {
  return AtBoundary(iid_, [&] { parameters_.Let(name, value != VARIANT_FALSE); });
}

}  // namespace kodra::com

// The arguments and results of ADO's entry points.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ado/adoint.h"
#include "ado/variant.h"
#include "comkit/com_ptr.h"
#include "odbc/adodb/errors.h"
#include "values/value.h"

namespace kodra::adodb {

// An argument without its by-reference wrapping. Shares objects, copies text.
class Argument {
 public:
  explicit Argument(const VARIANT& given);

  // Left out, or passed as Empty.
  bool IsMissing() const noexcept;
  bool IsText() const noexcept { return V_VT(&*variant_) == VT_BSTR; }
  bool IsObject() const noexcept { return V_VT(&*variant_) == VT_DISPATCH || V_VT(&*variant_) == VT_UNKNOWN; }
  bool IsArray() const noexcept { return (V_VT(&*variant_) & VT_ARRAY) != 0; }
  // REQUIRES: IsText().
  std::wstring Text() const { return comkit::ToWide(V_BSTR(&*variant_)); }
  // Null is "Nothing". REQUIRES: IsObject().
  IUnknown* Object() const noexcept { return V_UNKNOWN(&*variant_); }
  // The value to store: for an object, its default property; Empty when missing. A kind of value that no field holds
  // raises ControlError::kInvalidArgument.
  Value AsValue() const;
  // The elements of an array of one dimension; the argument itself when it is not an array; none when it is missing.
  std::vector<Argument> Items() const;
  // A whole number, such as an index; otherwise ControlError::kInvalidArgument is raised.
  std::int32_t AsInteger() const;

  const VARIANT& Raw() const noexcept { return *variant_; }

 private:
  ado::ScopedVariant variant_;
};

// The VARIANT for a value, owned by the caller. A 64-bit integer beyond 32 bits becomes VT_R8 while a double holds it
// exactly, otherwise VT_DECIMAL: scripts cannot read VT_I8, and every client can read these.
VARIANT ToVariant(const Value& value);
// The BSTR for a text, owned by the caller.
BSTR ToBstr(const std::wstring& text);

// Writes a result in the type that its interface has for it. The reference of an object result is passed on.
template <class T, class Result>
void Store(T* out, Result result) {
  T& target = Out(out);
  if constexpr (std::is_same_v<Result, Value>) {
    target = ToVariant(result);
  } else if constexpr (std::is_same_v<Result, std::wstring>) {
    target = ToBstr(result);
  } else if constexpr (std::is_same_v<Result, bool>) {
    target = result ? VARIANT_TRUE : VARIANT_FALSE;
  } else if constexpr (std::is_arithmetic_v<Result> || std::is_enum_v<Result>) {
    target = static_cast<T>(result);
  } else {
    target = result.detach();
  }
}

}  // namespace kodra::adodb

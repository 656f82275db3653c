// Values and errors on their way into and out of COM.
//
// Portable code speaks Value and Erro; COM speaks VARIANT, HRESULT and IErrorInfo. These are the only conversions
// between the two.
#pragma once

#include <string>
#include <string_view>

#include "comkit/bstr.h"
#include "comkit/com_ptr.h"
#include "values/erro.h"
#include "values/value.h"

namespace kodra::ado {

// A VARIANT that clears itself. Out of memory raises RuntimeError::kOutOfMemory.
class ScopedVariant {
 public:
  ScopedVariant() noexcept { VariantInit(&variant_); }
  // An object held by an ObjectRef must come from this platform; otherwise RuntimeError::kTypeMismatch is raised.
  explicit ScopedVariant(const Value& value);
  ScopedVariant(ScopedVariant&& other) noexcept : variant_(other.detach()) {}
  ScopedVariant& operator=(const ScopedVariant&) = delete;
  ~ScopedVariant() { VariantClear(&variant_); }

  // An argument left out.
  static ScopedVariant Missing() noexcept;
  // A text; out of memory raises RuntimeError::kOutOfMemory.
  static ScopedVariant Text(std::wstring_view text);
  // A reference to the content of another one, for an argument: typed for a text, a 32-bit integer and an object, and
  // otherwise a reference to the VARIANT itself. REQUIRES: `referred` outlives the result.
  static ScopedVariant ReferenceTo(ScopedVariant& referred) noexcept;
  // An object reference, shared; null is "Nothing".
  static ScopedVariant Object(IDispatch* object) noexcept;

  VARIANT* put() noexcept {
    VariantClear(&variant_);
    return &variant_;
  }
  VARIANT* get() noexcept { return &variant_; }
  const VARIANT& operator*() const noexcept { return variant_; }
  VARIANT detach() noexcept;

 private:
  VARIANT variant_;
};

// Whether the value of a VARIANT can be reached: a reference must not be null, and a reference to a VARIANT must not
// lead to another such reference.
bool LeadsToValue(const VARIANT& variant) noexcept;

// The value that a VARIANT holds; by-reference variants are followed. Integers that fit become 32-bit ones, an
// automation object becomes a late-bound one (null stays null), and every other value keeps its type. Arrays and other
// types raise RuntimeError::kTypeMismatch.
Value ToValue(const VARIANT& variant);

// The number as an automation client sees it, and back: a control error (0x800A0000 + n) is n.
std::int32_t NumberOf(HRESULT hr) noexcept;
HRESULT HresultOf(std::int32_t number) noexcept;

// The error that a call by vtable left behind: number, source and description of its IErrorInfo where `object` says
// that `iid` supports it, otherwise the number with the system's text and the application's title as the source. An
// empty description is replaced by the system's text too.
ForeignErro ErrorOf(HRESULT hr, IUnknown* object, REFIID iid);
// The same for a call through IDispatch, from the EXCEPINFO, which is cleared.
ForeignErro ErrorOf(HRESULT hr, EXCEPINFO& info);

// Raises ErrorOf when the call failed.
template <class T>
void Check(HRESULT hr, const comkit::com_ptr<T>& object) {
  if (FAILED(hr)) throw ErrorOf(hr, object.get(), __uuidof(T));
}

}  // namespace kodra::ado

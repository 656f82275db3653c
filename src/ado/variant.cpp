#include "ado/variant.h"

#include <utility>

#include "ado/automation_object.h"

namespace kodra::ado {

using comkit::com_ptr;
using comkit::ScopedBstr;
using comkit::ToWide;

namespace {

constexpr HRESULT kControlErrors = static_cast<HRESULT>(0x800A0000U);

// Fills a VARIANT from each kind of value.
struct VariantWriter {
  VARIANT& out;

  void operator()(Empty) const { V_VT(&out) = VT_EMPTY; }
  void operator()(Null) const { V_VT(&out) = VT_NULL; }
  void operator()(bool v) const {
    V_VT(&out) = VT_BOOL;
    V_BOOL(&out) = v ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(std::int32_t v) const {
    V_VT(&out) = VT_I4;
    V_I4(&out) = v;
  }
  void operator()(std::int64_t v) const {
    V_VT(&out) = VT_I8;
    V_I8(&out) = v;
  }
  void operator()(std::uint64_t v) const {
    V_VT(&out) = VT_UI8;
    V_UI8(&out) = v;
  }
  void operator()(float v) const {
    V_VT(&out) = VT_R4;
    V_R4(&out) = v;
  }
  void operator()(double v) const {
    V_VT(&out) = VT_R8;
    V_R8(&out) = v;
  }
  void operator()(Currency v) const {
    V_VT(&out) = VT_CY;
    V_CY(&out).int64 = v.tenThousandths;
  }
  void operator()(const Decimal& v) const {
    DECIMAL& decimal = V_DECIMAL(&out);
    decimal.scale = v.scale;
    decimal.sign = v.negative ? DECIMAL_NEG : 0;
    decimal.Hi32 = v.high;
    decimal.Lo64 = v.low;
    V_VT(&out) = VT_DECIMAL;  // after the decimal, which covers the type's own bytes
  }
  void operator()(Date v) const {
    V_VT(&out) = VT_DATE;
    V_DATE(&out) = v.days;
  }
  void operator()(const std::wstring& v) const {
    V_BSTR(&out) = ScopedBstr(v).detach();
    V_VT(&out) = VT_BSTR;
  }
  void operator()(const ObjectRef& v) const {
    V_DISPATCH(&out) = DispatchOf(v).detach();
    V_VT(&out) = VT_DISPATCH;
  }
};

template <class Integer>
Value FromInteger(Integer v) {
  if (std::in_range<std::int32_t>(v)) return static_cast<std::int32_t>(v);
  if (std::in_range<std::int64_t>(v)) return static_cast<std::int64_t>(v);
  return v;
}

Value FromDecimal(const DECIMAL& v) {
  constexpr BYTE kMostDecimals = 28;
  if (v.scale > kMostDecimals || (v.sign != 0 && v.sign != DECIMAL_NEG))
    throw MakeRuntimeError(RuntimeError::kTypeMismatch);
  Decimal decimal;
  decimal.low = v.Lo64;
  decimal.high = v.Hi32;
  decimal.scale = v.scale;
  decimal.negative = v.sign == DECIMAL_NEG;
  return decimal;
}

Value FromUnknown(IUnknown* unknown) {
  if (unknown == nullptr) return ObjectRef();
  auto dispatch = com_ptr<IUnknown>(unknown).as<IDispatch>();
  if (!dispatch) throw MakeRuntimeError(RuntimeError::kTypeMismatch);
  return WrapDispatch(dispatch.get());
}

// Automation's functions only read their source but declare it without const.
VARIANT* Readable(const VARIANT& variant) { return const_cast<VARIANT*>(&variant); }

// An integer of a type that Value does not have, converted by way of VT_I8, which holds all of them.
Value FromSmallInteger(const VARIANT& variant) {
  ScopedVariant converted;
  if (FAILED(VariantChangeTypeEx(converted.get(), Readable(variant), LOCALE_INVARIANT, 0, VT_I8)))
    throw MakeRuntimeError(RuntimeError::kTypeMismatch);
  return ToValue(*converted);
}

// Eight digits.
std::wstring Hexadecimal(std::uint32_t number) {
  std::wstring digits(8, L'0');
  for (auto digit = digits.rbegin(); number != 0; ++digit, number /= 16) *digit = L"0123456789ABCDEF"[number % 16];
  return digits;
}

std::wstring SystemText(HRESULT hr) {
  wchar_t text[512];
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                      static_cast<DWORD>(hr), 0, text, 512, nullptr);
  std::wstring result(text, length);
  while (!result.empty() && (result.back() == L'\n' || result.back() == L'\r' || result.back() == L' '))
    result.pop_back();
  if (!result.empty()) return result;
  return L"Erro de automação (" + Hexadecimal(static_cast<std::uint32_t>(hr)) + L")";
}

// The runtime's number for an error, also where automation has a code of its own for it.
std::int32_t RuntimeNumberOf(HRESULT hr) noexcept {
  switch (hr) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
      return static_cast<std::int32_t>(RuntimeError::kMemberNotFound);
    case DISP_E_TYPEMISMATCH:
      return static_cast<std::int32_t>(RuntimeError::kTypeMismatch);
    case DISP_E_OVERFLOW:
      return static_cast<std::int32_t>(RuntimeError::kOverflow);
    case E_OUTOFMEMORY:
      return static_cast<std::int32_t>(RuntimeError::kOutOfMemory);
    default:
      return NumberOf(hr);
  }
}

// The text of a failure that comes without a description.
std::wstring TextOf(HRESULT hr) {
  const std::wstring_view runtime = RuntimeText(RuntimeNumberOf(hr));
  return runtime.empty() ? SystemText(hr) : std::wstring(runtime);
}

ForeignErro WithoutInfo(HRESULT hr) { return {RuntimeNumberOf(hr), std::wstring(kApplicationTitle), TextOf(hr)}; }

ForeignErro WithInfo(std::int32_t number, BSTR source, BSTR description) {
  std::wstring text = ToWide(description);
  if (text.empty()) text = TextOf(HresultOf(number));
  return {number, ToWide(source), std::move(text)};
}

}  // namespace

ScopedVariant::ScopedVariant(const Value& value) {
  VariantInit(&variant_);
  std::visit(VariantWriter{variant_}, value.Held());
}

ScopedVariant ScopedVariant::Missing() noexcept {
  ScopedVariant result;
  V_VT(&result.variant_) = VT_ERROR;
  V_ERROR(&result.variant_) = DISP_E_PARAMNOTFOUND;
  return result;
}

ScopedVariant ScopedVariant::Text(std::wstring_view text) {
  ScopedVariant result;
  V_BSTR(&result.variant_) = ScopedBstr(text).detach();
  V_VT(&result.variant_) = VT_BSTR;
  return result;
}

ScopedVariant ScopedVariant::ReferenceTo(ScopedVariant& referred) noexcept {
  VARIANT& held = referred.variant_;
  ScopedVariant result;
  switch (V_VT(&held)) {
    case VT_BSTR:
      V_BSTRREF(&result.variant_) = &V_BSTR(&held);
      break;
    case VT_I4:
      V_I4REF(&result.variant_) = &V_I4(&held);
      break;
    case VT_DISPATCH:
      V_DISPATCHREF(&result.variant_) = &V_DISPATCH(&held);
      break;
    default:
      V_VARIANTREF(&result.variant_) = &held;
      V_VT(&result.variant_) = VT_BYREF | VT_VARIANT;
      return result;
  }
  V_VT(&result.variant_) = VT_BYREF | V_VT(&held);
  return result;
}

ScopedVariant ScopedVariant::Object(IDispatch* object) noexcept {
  ScopedVariant result;
  V_VT(&result.variant_) = VT_DISPATCH;
  V_DISPATCH(&result.variant_) = com_ptr<IDispatch>(object).detach();
  return result;
}

VARIANT ScopedVariant::detach() noexcept {
  VARIANT result = variant_;
  VariantInit(&variant_);
  return result;
}

bool LeadsToValue(const VARIANT& variant) noexcept {
  constexpr VARTYPE kToVariant = VT_BYREF | VT_VARIANT;
  if ((V_VT(&variant) & VT_BYREF) == 0) return true;
  if (V_BYREF(&variant) == nullptr) return false;
  if (V_VT(&variant) != kToVariant) return true;
  const VARIANT& referred = *V_VARIANTREF(&variant);
  return V_VT(&referred) != kToVariant && LeadsToValue(referred);
}

Value ToValue(const VARIANT& variant) {
  if (!LeadsToValue(variant)) throw MakeRuntimeError(RuntimeError::kTypeMismatch);
  if (V_VT(&variant) == (VT_BYREF | VT_VARIANT)) return ToValue(*V_VARIANTREF(&variant));
  if ((V_VT(&variant) & VT_BYREF) != 0) {
    ScopedVariant direct;
    if (FAILED(VariantCopyInd(direct.get(), Readable(variant)))) throw MakeRuntimeError(RuntimeError::kTypeMismatch);
    return ToValue(*direct);
  }
  switch (V_VT(&variant)) {
    case VT_EMPTY:
      return Empty{};
    case VT_NULL:
      return Null{};
    case VT_BOOL:
      return V_BOOL(&variant) != VARIANT_FALSE;
    case VT_I4:
      return static_cast<std::int32_t>(V_I4(&variant));
    case VT_I8:
      return FromInteger(std::int64_t{V_I8(&variant)});
    case VT_R8:
      return V_R8(&variant);
    case VT_DATE:
      return Date{V_DATE(&variant)};
    case VT_BSTR:
      return ToWide(V_BSTR(&variant));
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return FromUnknown(V_UNKNOWN(&variant));
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
      return FromSmallInteger(variant);
    case VT_UI8:
      return FromInteger(std::uint64_t{V_UI8(&variant)});
    case VT_R4:
      return V_R4(&variant);
    case VT_CY:
      return Currency{V_CY(&variant).int64};
    case VT_DECIMAL:
      return FromDecimal(V_DECIMAL(&variant));
    default:
      throw MakeRuntimeError(RuntimeError::kTypeMismatch);
  }
}

std::int32_t NumberOf(HRESULT hr) noexcept {
  const auto bits = static_cast<std::uint32_t>(hr);
  return (bits & 0xFFFF0000U) == static_cast<std::uint32_t>(kControlErrors) ? static_cast<std::int32_t>(bits & 0xFFFFU)
                                                                            : hr;
}

HRESULT HresultOf(std::int32_t number) noexcept {
  if (number < 0) return number;
  return number > 0 && number <= 0xFFFF ? static_cast<HRESULT>(kControlErrors | number) : E_FAIL;
}

ForeignErro ErrorOf(HRESULT hr, IUnknown* object, REFIID iid) {
  const auto support = com_ptr<IUnknown>(object).as<ISupportErrorInfo>();
  com_ptr<IErrorInfo> info;
  if (!support || support->InterfaceSupportsErrorInfo(iid) != S_OK || GetErrorInfo(0, info.put()) != S_OK)
    return WithoutInfo(hr);
  ScopedBstr source;
  ScopedBstr description;
  info->GetSource(source.put());
  info->GetDescription(description.put());
  return WithInfo(NumberOf(hr), source.get(), description.get());
}

ForeignErro ErrorOf(HRESULT hr, EXCEPINFO& info) {
  if (hr != DISP_E_EXCEPTION) return WithoutInfo(hr);
  if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
  ScopedBstr source;
  ScopedBstr description;
  ScopedBstr help;
  *source.put() = info.bstrSource;
  *description.put() = info.bstrDescription;
  *help.put() = info.bstrHelpFile;
  const std::int32_t number = info.scode != 0 ? NumberOf(info.scode) : info.wCode;
  info = {};
  return WithInfo(number, source.get(), description.get());
}

}  // namespace kodra::ado

#include "odbc/adodb/arguments.h"

namespace kodra::adodb {
namespace {

using ado::ScopedVariant;

// The largest whole number up to which every whole number has a double of its own.
constexpr std::int64_t kLastExactDouble = std::int64_t{1} << 53;

VARIANT LargeInteger(std::int64_t value) {
  VARIANT result;
  VariantInit(&result);
  if (value >= -kLastExactDouble && value <= kLastExactDouble) {
    V_VT(&result) = VT_R8;
    V_R8(&result) = static_cast<double>(value);
    return result;
  }
  VarDecFromI8(value, &V_DECIMAL(&result));
  V_VT(&result) = VT_DECIMAL;  // after the decimal, which covers the type's own bytes
  return result;
}

VARIANT LargeInteger(std::uint64_t value) { return ScopedVariant(Value(Decimal{.low = value})).detach(); }

// The value that automation uses where the object alone is written, such as the value of a field.
ScopedVariant DefaultProperty(IUnknown* object) {
  const auto dispatch = comkit::com_ptr<IUnknown>(object).as<IDispatch>();
  DISPPARAMS none{};
  ScopedVariant result;
  if (!dispatch || FAILED(dispatch->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                           result.put(), nullptr, nullptr)))
    Raise(ControlError::kInvalidArgument);
  return result;
}

}  // namespace

Argument::Argument(const VARIANT& given) {
  if (FAILED(VariantCopyInd(variant_.put(), const_cast<VARIANT*>(&given)))) Raise(ControlError::kInvalidArgument);
}

bool Argument::IsMissing() const noexcept {
  return V_VT(&*variant_) == VT_EMPTY || (V_VT(&*variant_) == VT_ERROR && V_ERROR(&*variant_) == DISP_E_PARAMNOTFOUND);
}

Value Argument::AsValue() const {
  if (IsMissing()) return Empty{};
  if (IsObject()) {
    const Argument inner(*DefaultProperty(Object()));
    if (inner.IsObject()) Raise(ControlError::kInvalidArgument);
    return inner.AsValue();
  }
  try {
    return ado::ToValue(*variant_);
  } catch (const Erro&) {
    Raise(ControlError::kInvalidArgument);
  }
}

std::vector<Argument> Argument::Items() const {
  std::vector<Argument> items;
  if (IsMissing()) return items;
  if (!IsArray()) {
    items.emplace_back(*variant_);
    return items;
  }
  SAFEARRAY* array = V_ARRAY(&*variant_);
  if (V_VT(&*variant_) != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(array) != 1) Raise(ControlError::kInvalidArgument);
  const auto* elements = static_cast<const VARIANT*>(array->pvData);
  for (ULONG i = 0; i < array->rgsabound[0].cElements; ++i) items.emplace_back(elements[i]);
  return items;
}

std::int32_t Argument::AsInteger() const {
  ScopedVariant number;
  if (IsMissing() ||
      FAILED(VariantChangeTypeEx(number.put(), const_cast<VARIANT*>(&*variant_), LOCALE_INVARIANT, 0, VT_I4)))
    Raise(ControlError::kInvalidArgument);
  return V_I4(&*number);
}

VARIANT ToVariant(const Value& value) {
  if (value.Is<std::int64_t>()) {
    const std::int64_t number = value.As<std::int64_t>();
    if (!std::in_range<std::int32_t>(number)) return LargeInteger(number);
    return ToVariant(static_cast<std::int32_t>(number));
  }
  if (value.Is<std::uint64_t>()) return LargeInteger(value.As<std::uint64_t>());
  return ScopedVariant(value).detach();
}

BSTR ToBstr(const std::wstring& text) { return comkit::ScopedBstr(text).detach(); }

}  // namespace kodra::adodb

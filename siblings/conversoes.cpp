#include "siblings/conversoes.h"

namespace kodra::siblings {
namespace {

Date DateOrZero(const Value& value) {
  try {
    return values::ToDate(value);
  } catch (const Erro&) {
    return {};
  }
}

}  // namespace

Value Conversoes::ToDate(std::span<const Value> arguments) {
  const Value& value = arguments[0];
  if (value.Is<ObjectRef>() && value.As<ObjectRef>()) return DateOrZero(value.As<ObjectRef>()->Get(L"Value"));
  return DateOrZero(value);
}

std::span<const Member<Conversoes>> Conversoes::Members() {
  static const Member<Conversoes> kMembers[] = {Method<&Conversoes::ToDate, 1>(L"ToDate")};
  return kMembers;
}

}  // namespace kodra::siblings

#include "siblings/collection.h"

namespace kodra::siblings {

void Collection::ForEach(const std::function<void(const Value&)>& visit) {
  for (const Value& value : values_) visit(value);
}

Value Collection::Item(std::span<const Value> arguments) {
  const std::int32_t index = values::ToInt32(arguments[0]);
  if (index < 1 || index > Count()) {
    throw ForeignErro(kSubscriptOutOfRange, std::wstring(kApplicationTitle), L"Subscrito fora do intervalo");
  }
  return values_[static_cast<std::size_t>(index) - 1];
}

std::span<const Member<Collection>> Collection::Members() {
  static const Member<Collection> kMembers[] = {
      ReadOnly<&Collection::Count>(L"Count"),
      Method<&Collection::Item, 1>(L"Item"),
  };
  return kMembers;
}

}  // namespace kodra::siblings

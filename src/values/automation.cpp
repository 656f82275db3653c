#include "values/automation.h"

#include <vector>

#include "values/erro.h"

namespace kodra {

Value AutomationObject::CallByReference(std::wstring_view member, Value& first, std::span<const Value> others) {
  std::vector<Value> arguments = {first};
  arguments.insert(arguments.end(), others.begin(), others.end());
  return Call(member, arguments);
}

Value AutomationObject::GetDefault() { throw MemberNotFound(); }

void AutomationObject::ForEach(const std::function<void(const Value&)>& visit) {
  const Value count = Get(L"Count");
  if (!count.Is<std::int32_t>()) throw MakeRuntimeError(RuntimeError::kTypeMismatch);
  for (std::int32_t index = 1; index <= count.As<std::int32_t>(); ++index) {
    const Value argument = index;
    visit(Call(L"Item", {&argument, 1}));
  }
}

ObjectRef ObjectIn(const Value& value) {
  if (value.Is<ObjectRef>()) return value.As<ObjectRef>();
  if (value.Is<Empty>() || value.Is<Null>()) return nullptr;
  throw MakeRuntimeError(RuntimeError::kObjectRequired);
}

AutomationObject& RequiredObject(const Value& value) {
  if (!value.Is<ObjectRef>()) throw MakeRuntimeError(RuntimeError::kObjectRequired);
  if (!value.As<ObjectRef>()) throw MakeRuntimeError(RuntimeError::kObjectNotSet);
  return *value.As<ObjectRef>();
}

Value DefaultValue(const ObjectRef& object) {
  constexpr int kMostObjects = 100;
  Value value = object;
  for (int visited = 0; value.Is<ObjectRef>(); ++visited) {
    if (visited == kMostObjects) throw MakeRuntimeError(RuntimeError::kTypeMismatch);
    value = RequiredObject(value).GetDefault();
  }
  return value;
}

}  // namespace kodra

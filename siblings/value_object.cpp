#include "siblings/value_object.h"

#include "values/erro.h"
#include "values/upper.h"

namespace kodra::siblings {
namespace {

[[noreturn]] void RaiseNotFound() { throw MemberNotFound(); }

}  // namespace

Value ValueObject::Get(std::wstring_view member) {
  for (const auto& [name, value] : entries_) {
    if (values::EqualIgnoringCase(name, member)) return value;
  }
  RaiseNotFound();
}

void ValueObject::Let(std::wstring_view, const Value&) { RaiseNotFound(); }
void ValueObject::Set(std::wstring_view, const ObjectRef&) { RaiseNotFound(); }

Value ValueObject::Call(std::wstring_view member, std::span<const Value> arguments) {
  if (!arguments.empty()) RaiseNotFound();
  return Get(member);
}

}  // namespace kodra::siblings

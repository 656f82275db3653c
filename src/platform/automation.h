// An object reached late-bound, by member name: a sibling component, or the parameter object that a client passes.
//
// Member names are compared without regard to letter case, as automation does. Every operation raises Erro: what the
// object itself raised, or RuntimeError::kMemberNotFound for a name that it does not have.
// Used only on the thread that made it.
#pragma once

#include <span>
#include <string_view>

#include "platform/value.h"

namespace kodra::platform {

class AutomationObject {
 public:
  virtual ~AutomationObject() = default;

  // Reads a property.
  virtual Value Get(std::wstring_view member) = 0;
  // Assigns a property by value (let).
  virtual void Let(std::wstring_view member, const Value& value) = 0;
  // Assigns an object to a property by reference (set).
  virtual void Set(std::wstring_view member, const ObjectRef& object) = 0;
  // Calls a method with positional arguments and gives its result (Empty when it has none).
  virtual Value Call(std::wstring_view member, std::span<const Value> arguments) = 0;
};

}  // namespace kodra::platform

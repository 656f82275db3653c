// An object reached late-bound, by member name: a sibling component, or the parameter object that a client passes.
//
// Member names are compared without regard to letter case, as automation does. Every operation raises Erro: what the
// object itself raised, or MemberNotFound for a name that it does not have.
// Used only on the thread that made it.
#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "values/value.h"

namespace kodra {

class AutomationObject {
 public:
  virtual ~AutomationObject() = default;

  // Reads a property.
  virtual Value Get(std::wstring_view member) = 0;
  // Assigns a property by value (let).
  virtual void Let(std::wstring_view member, const Value& value) = 0;
  // Assigns an object to a property by reference (set).
  virtual void Set(std::wstring_view member, const ObjectRef& object) = 0;
  // Calls a method with positional arguments and returns its result (Empty when it has none).
  virtual Value Call(std::wstring_view member, std::span<const Value> arguments) = 0;
  // The same for a method that takes its first argument by reference: `first` holds what the method left in it. By
  // default the method receives a copy.
  virtual Value CallByReference(std::wstring_view member, Value& first, std::span<const Value> others);
  // Reads the default property, the one that automation uses where the object alone is written. By default an object
  // has none and MemberNotFound is raised.
  virtual Value GetDefault();
  // Visits the members of a collection in its order. By default it reads Count, then Item from 1 on; an object that can
  // be enumerated faster does so.
  virtual void ForEach(const std::function<void(const Value&)>& visit);
};

// The object in a value that holds one or none: null for a null object, Empty and Null. Any other value raises
// RuntimeError::kObjectRequired.
ObjectRef ObjectIn(const Value& value);

// The object in a value that must hold one: raises RuntimeError::kObjectNotSet for a null object and
// RuntimeError::kObjectRequired for any other value.
AutomationObject& RequiredObject(const Value& value);

// The value that automation uses for an object where a value is expected: its default property or, when that is an
// object too, the default property of that one. Raises RuntimeError::kObjectNotSet for a null object and
// RuntimeError::kTypeMismatch when one object leads to the next without end.
Value DefaultValue(const ObjectRef& object);

}  // namespace kodra

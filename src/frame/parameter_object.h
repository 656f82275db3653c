// The parameter objects: one plain property bag per report family, with the values that some properties normalise.
//
// The differences between the 23 classes are in a table made from the IDL: the class, and its properties in interface
// order with their rule.
// A client's object answers by member name like any automation object.
//
//   ParameterObject depto(ParameterClassNamed(L"CDeptoRptObj"));
//   depto.Let(L"Owner", L"Arquivo Geral");
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "values/automation.h"

namespace kodra::frame {

// The type of a property and the effect of assigning it.
enum class PropertyRule {
  kText,     // a text, unchanged
  kInitial,  // the first character of the text, upper-cased: a one-letter code
  kTrimmed,  // the text without leading and trailing blanks
  kDate,     // a date and time; unset is zero
  kFlag,     // a Boolean; unset is false
};

struct Property {
  std::wstring_view name;
  PropertyRule rule;
  // The text that a new object starts with.
  std::wstring_view initial = {};
};

struct ParameterClass {
  std::wstring_view name;
  // In interface order.
  std::span<const Property> properties;
};

// All parameter classes.
std::span<const ParameterClass> ParameterClasses();
// The class of that exact name. REQUIRES: there is one.
const ParameterClass& ParameterClassNamed(std::wstring_view name);

class ParameterObject final : public AutomationObject {
 public:
  // REQUIRES: the class outlives the object (those of ParameterClasses() do).
  explicit ParameterObject(const ParameterClass& parameterClass);

  Value Get(std::wstring_view member) override;
  // The value is converted to the property's type. A value that cannot be converted raises RuntimeError::kTypeMismatch,
  // a null RuntimeError::kInvalidUseOfNull; the property then keeps its value.
  void Let(std::wstring_view member, const Value& value) override;
  // No property takes an object and there are no methods: both raise MemberNotFound.
  void Set(std::wstring_view member, const ObjectRef& object) override;
  Value Call(std::wstring_view member, std::span<const Value> arguments) override;

 private:
  std::size_t IndexOf(std::wstring_view member) const;

  const ParameterClass& class_;
  std::vector<Value> values_;
};

}  // namespace kodra::frame

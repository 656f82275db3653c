#include "frame/parameter_object.h"

#include <algorithm>

#include "values/convert.h"
#include "values/erro.h"
#include "values/upper.h"

namespace kodra::frame {
namespace {

Value InitialValue(const Property& property) {
  switch (property.rule) {
    case PropertyRule::kDate:
      return Date{};
    case PropertyRule::kFlag:
      return false;
    default:
      return property.initial;
  }
}

Value Normalised(PropertyRule rule, const Value& value) {
  switch (rule) {
    case PropertyRule::kInitial:
      return values::FirstUpper(values::ToText(value));
    case PropertyRule::kTrimmed:
      return values::Trim(values::ToText(value));
    case PropertyRule::kDate:
      return values::ToDate(value);
    case PropertyRule::kFlag:
      return values::ToBool(value);
    default:
      return values::ToText(value);
  }
}

}  // namespace

ParameterObject::ParameterObject(const ParameterClass& parameterClass) : class_(parameterClass) {
  values_.reserve(class_.properties.size());
  for (const Property& property : class_.properties) values_.push_back(InitialValue(property));
}

Value ParameterObject::Get(std::wstring_view member) { return values_[IndexOf(member)]; }

void ParameterObject::Let(std::wstring_view member, const Value& value) {
  const std::size_t index = IndexOf(member);
  values_[index] = Normalised(class_.properties[index].rule, value);
}

void ParameterObject::Set(std::wstring_view, const ObjectRef&) { throw MemberNotFound(); }

Value ParameterObject::Call(std::wstring_view, std::span<const Value>) { throw MemberNotFound(); }

std::size_t ParameterObject::IndexOf(std::wstring_view member) const {
  const auto found = std::find_if(class_.properties.begin(), class_.properties.end(), [&](const Property& property) {
    return values::EqualIgnoringCase(property.name, member);
  });
  if (found == class_.properties.end()) throw MemberNotFound();
  return static_cast<std::size_t>(found - class_.properties.begin());
}

}  // namespace kodra::frame

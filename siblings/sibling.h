// The base of a sibling component: an automation object with a short list of members.
//
//   class StrCon final : public Sibling<StrCon> {
//    public:
//     static std::span<const Member<StrCon>> Members() {
//       static const Member<StrCon> kMembers[] = {Property<&StrCon::text_>(L"StrCon"),
//                                                 ReadOnly<&StrCon::TipoBanco>(L"TipoBanco")};
//       return kMembers;
//     }
//     ...
//   };
//
// A property is read with Get or, as late-bound clients write it, with Call without arguments; a method only with Call.
// A name that is not in the list, or that is in it for another use, raises MemberNotFound.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "values/automation.h"
#include "values/convert.h"
#include "values/erro.h"
#include "values/upper.h"

namespace kodra::siblings {

template <class T>
struct Member {
  std::wstring_view name;
  Value (*get)(T&) = nullptr;
  void (*let)(T&, const Value&) = nullptr;
  void (*set)(T&, const ObjectRef&) = nullptr;
  Value (*call)(T&, std::span<const Value>) = nullptr;
};

template <class T>
class Sibling : public AutomationObject {
 public:
  Value Get(std::wstring_view member) override { return For(member, &Member<T>::get)(Self()); }

  void Let(std::wstring_view member, const Value& value) override { For(member, &Member<T>::let)(Self(), value); }

  void Set(std::wstring_view member, const ObjectRef& object) override { For(member, &Member<T>::set)(Self(), object); }

  Value Call(std::wstring_view member, std::span<const Value> arguments) override {
    const Member<T>* found = Find(member);
    if (arguments.empty() && found != nullptr && found->get != nullptr) return found->get(Self());
    return For(member, &Member<T>::call)(Self(), arguments);
  }

 private:
  T& Self() { return static_cast<T&>(*this); }

  static const Member<T>* Find(std::wstring_view name) {
    for (const Member<T>& member : T::Members()) {
      if (values::EqualIgnoringCase(member.name, name)) return &member;
    }
    return nullptr;
  }

  template <class Use>
  static Use For(std::wstring_view name, Use Member<T>::*use) {
    const Member<T>* member = Find(name);
    if (member == nullptr || member->*use == nullptr) {
      throw MemberNotFound();
    }
    return member->*use;
  }
};

// The class whose member a pointer points to.
template <class Class, class Held>
Class ClassOfMember(Held Class::*);
template <auto kPointer>
using ClassOf = decltype(ClassOfMember(kPointer));

// Converts the value assigned to a property. Raises what the conversion raises.
inline void Assign(std::wstring& field, const Value& value) { field = values::ToText(value); }
inline void Assign(std::int32_t& field, const Value& value) { field = values::ToInt32(value); }
inline void Assign(bool& field, const Value& value) { field = values::ToBool(value); }
inline void Assign(Date& field, const Value& value) { field = values::ToDate(value); }

// A property, read and written, stored in a member: a text, a whole number, a flag or a date.
template <auto kField>
Member<ClassOf<kField>> Property(std::wstring_view name) {
  using T = ClassOf<kField>;
  return {.name = name,
          .get = [](T& self) { return Value(self.*kField); },
          .let = [](T& self, const Value& value) { Assign(self.*kField, value); }};
}

// A property that holds an object or none, stored in an ObjectRef member. Clients whose language has no assignment by
// reference assign it by value.
template <auto kField>
Member<ClassOf<kField>> Reference(std::wstring_view name) {
  using T = ClassOf<kField>;
  return {.name = name,
          .get = [](T& self) { return Value(self.*kField); },
          .let = [](T& self, const Value& value) { self.*kField = ObjectIn(value); },
          .set = [](T& self, const ObjectRef& object) { self.*kField = object; }};
}

// A read-only property: a member, or the result of a member function without arguments.
template <auto kMember>
Member<ClassOf<kMember>> ReadOnly(std::wstring_view name) {
  using T = ClassOf<kMember>;
  return {.name = name, .get = [](T& self) { return Value(std::invoke(kMember, self)); }};
}

// A method: a member function that takes `arity` arguments as a span and returns a Value. Any other number of arguments
// raises kWrongArguments.
inline constexpr std::int32_t kWrongArguments = 450;

template <auto kFunction, std::size_t kArity>
Member<ClassOf<kFunction>> Method(std::wstring_view name) {
  using T = ClassOf<kFunction>;
  return {.name = name, .call = [](T& self, std::span<const Value> arguments) -> Value {
            if (arguments.size() != kArity) {
              throw ForeignErro(kWrongArguments, std::wstring(kApplicationTitle),
                                L"Número de argumentos incorreto ou atribuição de propriedade inválida");
            }
            return (self.*kFunction)(arguments);
          }};
}

}  // namespace kodra::siblings

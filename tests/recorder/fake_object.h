// A fake automation object: a sibling component, or the parameter object of a client.
#pragma once

#include <deque>
#include <map>
#include <string>

#include "tests/recorder/journal.h"
#include "values/automation.h"

namespace kodra::recorder {

// The answers of an object when a member is read or called: its values in order, then the last one repeatedly. A member
// without answers does not exist (error 438); every property may be assigned.
using Answers = std::map<std::wstring, std::deque<Value>>;

class FakeObject final : public AutomationObject, public Fake {
 public:
  FakeObject(Journal& journal, std::wstring name, Answers answers)
      : Fake(journal, std::move(name)), answers_(std::move(answers)) {}

  Value Get(std::wstring_view member) override { return Answer(Line(L"Get", {member}), member); }
  void Let(std::wstring_view member, const Value& value) override { Note(L"Let", {member, Shown(value)}); }
  void Set(std::wstring_view member, const ObjectRef& object) override { Note(L"Set", {member, Shown(object)}); }
  Value Call(std::wstring_view member, std::span<const Value> arguments) override {
    return Answer(Line(L"Call", {std::wstring(member) + Listed(arguments)}), member);
  }
  Value CallByReference(std::wstring_view member, Value& first, std::span<const Value> others) override {
    Value answer = Answer(Line(L"Call", {std::wstring(member) + L", ByRef " + Shown(first) + Listed(others)}), member);
    if (const auto left = left_.find(std::wstring(member)); left != left_.end()) first = left->second;
    return answer;
  }

  // Sets the value that a method writes to its argument by reference. By default it does not change the argument.
  void Leave(std::wstring member, Value value) { left_[std::move(member)] = std::move(value); }

 private:
  static std::wstring Listed(std::span<const Value> arguments) {
    std::wstring list;
    for (const Value& argument : arguments) list += L", " + Shown(argument);
    return list;
  }
  Value Answer(const std::wstring& call, std::wstring_view member) {
    const auto found = answers_.find(std::wstring(member));
    if (found == answers_.end()) journal_.Refuse(call, MemberNotFound());
    std::deque<Value>& values = found->second;
    const Value answer = values.front();
    journal_.Note(call, Shown(answer));
    if (values.size() > 1) values.pop_front();
    return answer;
  }

  Answers answers_;
  std::map<std::wstring, Value> left_;
};

}  // namespace kodra::recorder

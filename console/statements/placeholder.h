// An object in the place of a sibling component: it takes every assignment and gives the answers it was made with.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "values/automation.h"

namespace kodra::console {

class Placeholder final : public AutomationObject {
 public:
  // What a property or method answers, by its name, from the arguments of the call.
  using Answer = std::function<Value(std::span<const Value>)>;
  using Answers = std::map<std::wstring, Answer, std::less<>>;

  explicit Placeholder(Answers answers) : answers_(std::move(answers)) {}

  Value Get(std::wstring_view member) override { return Call(member, {}); }
  void Let(std::wstring_view, const Value&) override {}
  void Set(std::wstring_view, const ObjectRef&) override {}
  // Empty for a member without an answer.
  Value Call(std::wstring_view member, std::span<const Value> arguments) override {
    const auto answer = answers_.find(member);
    return answer == answers_.end() ? Value() : answer->second(arguments);
  }

 private:
  Answers answers_;
};

}  // namespace kodra::console

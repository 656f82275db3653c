// An automation object that only holds values under names, in which siblings return results.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "values/automation.h"

namespace kodra::siblings {

class ValueObject final : public AutomationObject {
 public:
  using Entry = std::pair<std::wstring, Value>;

  explicit ValueObject(std::vector<Entry> entries) : entries_(std::move(entries)) {}

  // Every value is read-only: Let and Set raise MemberNotFound. Call without arguments is Get.
  Value Get(std::wstring_view member) override;
  void Let(std::wstring_view member, const Value& value) override;
  void Set(std::wstring_view member, const ObjectRef& object) override;
  Value Call(std::wstring_view member, std::span<const Value> arguments) override;

 private:
  std::vector<Entry> entries_;
};

}  // namespace kodra::siblings

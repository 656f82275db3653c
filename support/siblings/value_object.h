// An automation object that only holds values under names: what a sibling hands out as a result.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/automation.h"

namespace kodra::support {

class ValueObject final : public platform::AutomationObject {
 public:
  using Entry = std::pair<std::wstring, platform::Value>;

  explicit ValueObject(std::vector<Entry> entries) : entries_(std::move(entries)) {}

  // Every value is read-only: Let and Set raise MemberNotFound. Call without arguments is Get.
  platform::Value Get(std::wstring_view member) override;
  void Let(std::wstring_view member, const platform::Value& value) override;
  void Set(std::wstring_view member, const platform::ObjectRef& object) override;
  platform::Value Call(std::wstring_view member, std::span<const platform::Value> arguments) override;

 private:
  std::vector<Entry> entries_;
};

}  // namespace kodra::support

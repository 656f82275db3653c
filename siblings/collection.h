// A collection of values, in which siblings return lists to their clients.
//
// Members: Count, Item (from 1 on; an index outside raises error 9). `For Each` visits the values in their order.
#pragma once

#include <vector>

#include "siblings/sibling.h"

namespace kodra::siblings {

inline constexpr std::int32_t kSubscriptOutOfRange = 9;

class Collection final : public Sibling<Collection> {
 public:
  explicit Collection(std::vector<Value> values) : values_(std::move(values)) {}

  static std::span<const Member<Collection>> Members();

  void ForEach(const std::function<void(const Value&)>& visit) override;

 private:
  std::int32_t Count() { return static_cast<std::int32_t>(values_.size()); }
  Value Item(std::span<const Value> arguments);

  std::vector<Value> values_;
};

}  // namespace kodra::siblings

// A collection of values, as siblings give lists to their clients.
//
// Members: Count, Item (from 1 on; any other index raises error 9). `For Each` visits the values in their order.
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

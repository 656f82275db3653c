#include "siblings/collection.h"

#include <gtest/gtest.h>

#include "tests/recorder/raised.h"

namespace kodra::siblings {
namespace {

using recorder::Raised;
using recorder::RaisedBy;

Value ItemOf(Collection& collection, const Value& index) { return collection.Call(L"Item", {&index, 1}); }

TEST(Collection, CountsItsItemsFromOneOn) {
  Collection collection({L"um", 2, L"três"});
  EXPECT_EQ(collection.Get(L"Count"), Value(3));
  EXPECT_EQ(ItemOf(collection, 1), Value(L"um"));
  EXPECT_EQ(ItemOf(collection, 2), Value(2));
  EXPECT_EQ(ItemOf(collection, 3), Value(L"três"));
}

TEST(Collection, TakesAnIndexAsAnyNumber) {
  Collection collection({L"um", 2});
  EXPECT_EQ(ItemOf(collection, 2.0), Value(2));
  EXPECT_EQ(ItemOf(collection, L"2"), Value(2));
}

TEST(Collection, RaisesForAnIndexThatItDoesNotHave) {
  const Raised expected = {9, "KodraRpt", "Subscrito fora do intervalo"};
  Collection collection({L"um", 2});
  for (const int index : {-1, 0, 3}) EXPECT_EQ(RaisedBy([&] { ItemOf(collection, index); }), expected) << index;
  Collection empty({});
  EXPECT_EQ(RaisedBy([&] { ItemOf(empty, 1); }), expected);
}

TEST(Collection, VisitsItsItemsInOrder) {
  Collection collection({L"um", 2, L"três"});
  std::vector<Value> visited;
  collection.ForEach([&](const Value& value) { visited.push_back(value); });
  EXPECT_EQ(visited, (std::vector<Value>{L"um", 2, L"três"}));
}

TEST(Collection, OfNothingIsEmpty) {
  Collection empty({});
  EXPECT_EQ(empty.Get(L"Count"), Value(0));
  empty.ForEach([](const Value&) { FAIL(); });
}

}  // namespace
}  // namespace kodra::siblings

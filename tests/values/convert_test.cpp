#include "values/convert.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/recorder/fake_object.h"
#include "tests/recorder/raised.h"
#include "values/automation.h"

namespace kodra::values {
namespace {

using recorder::kInvalidUseOfNull;
using recorder::kMemberNotFound;
using recorder::kObjectNotSet;
using recorder::kOverflow;
using recorder::kTypeMismatch;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Shown;

class SomeObject : public AutomationObject {
 public:
  Value Get(std::wstring_view) override { return L"never asked"; }
  void Let(std::wstring_view, const Value&) override {}
  void Set(std::wstring_view, const ObjectRef&) override {}
  Value Call(std::wstring_view, std::span<const Value>) override { return {}; }
};

class WithDefault final : public SomeObject {
 public:
  explicit WithDefault(Value value) : default_(std::move(value)) {}
  Value GetDefault() override { return default_; }

  void SetDefault(Value value) { default_ = std::move(value); }

 private:
  Value default_;
};

const Value kNothing{ObjectRef()};
Value AnObject() { return ObjectRef(std::make_shared<SomeObject>()); }
// An object whose default property has the value.
Value Holding(Value value) { return ObjectRef(std::make_shared<WithDefault>(std::move(value))); }

constexpr std::uint64_t kLargestUnsigned = std::numeric_limits<std::uint64_t>::max();

// Values and the errors that a conversion raises for them.
template <class Result>
void ExpectRaised(Result (*convert)(const Value&), std::initializer_list<std::pair<Value, Raised>> cases) {
  for (const std::pair<Value, Raised>& item : cases)
    EXPECT_EQ(RaisedBy([&] { convert(item.first); }), item.second) << Shown(item.first);
}
// Values and the results of a conversion.
template <class Result>
void ExpectConverted(Result (*convert)(const Value&),
                     std::initializer_list<std::pair<Value, std::type_identity_t<Result>>> cases) {
  for (const auto& [value, result] : cases) EXPECT_EQ(convert(value), result) << Shown(value);
}

TEST(ToText, WritesEveryKindOfValue) {
  ExpectConverted(ToText, {{Empty{}, L""},
                           {true, L"Verdadeiro"},
                           {false, L"Falso"},
                           {std::int32_t{-7}, L"-7"},
                           {std::int64_t{5000000000}, L"5000000000"},
                           {kLargestUnsigned, L"18446744073709551615"},
                           {0.1F, L"0,1"},
                           {1.5, L"1,5"},
                           {Currency{std::numeric_limits<std::int64_t>::max()}, L"922337203685477,5807"},
                           {Decimal{.low = 12345678901234567890U, .scale = 3}, L"12345678901234567,89"},
                           {Date{45291}, L"31/12/2023"},
                           {Date{45291.5}, L"31/12/2023 12:00:00"},
                           {Date{0}, L"00:00:00"},
                           {L" já é texto ", L" já é texto "}});
}
TEST(ToText, RefusesNullAndWhatHasNoValue) {
  ExpectRaised(ToText, {{Null{}, kInvalidUseOfNull}, {kNothing, kObjectNotSet}, {AnObject(), kMemberNotFound}});
}
TEST(ToText, TakesAnObjectForItsDefaultProperty) {
  ExpectConverted(ToText,
                  {{Holding(L"ação"), L"ação"}, {Holding(0.1F), L"0,1"}, {Holding(Holding(true)), L"Verdadeiro"}});
  ExpectRaised(ToText, {{Holding(Null{}), kInvalidUseOfNull},
                        {Holding(kNothing), kObjectNotSet},
                        {Holding(AnObject()), kMemberNotFound}});
}
TEST(ToText, RefusesAnObjectThatIsItsOwnDefaultProperty) {
  const auto object = std::make_shared<WithDefault>(Value());
  object->SetDefault(ObjectRef(object));
  ExpectRaised(ToText, {{ObjectRef(object), kTypeMismatch}});
  object->SetDefault({});
}

TEST(ToTextOrEmpty, TakesNullAsTheEmptyText) {
  ExpectConverted(ToTextOrEmpty, {{Null{}, L""}, {Empty{}, L""}, {L"x", L"x"}, {2.5, L"2,5"}});
  ExpectRaised(ToTextOrEmpty, {{kNothing, kObjectNotSet}, {AnObject(), kMemberNotFound}});
  ExpectConverted(ToTextOrEmpty, {{Holding(L"x"), L"x"}, {Holding(Null{}), L""}});
}

TEST(ToInt32, RoundsHalvesToTheEvenNeighbour) {
  ExpectConverted(ToInt32, {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {-2.5, -2}, {2.4999, 2}, {2.5001, 3}});
}
TEST(ToInt32, TakesEveryKindOfNumber) {
  ExpectConverted(ToInt32, {{Empty{}, 0},
                            {true, -1},
                            {false, 0},
                            {std::int32_t{7}, 7},
                            {std::int64_t{-7}, -7},
                            {Date{45291.75}, 45292},
                            {std::uint64_t{7}, 7},
                            {2.5F, 2},
                            {Currency{15000}, 2},
                            {Currency{-25000}, -2},
                            {Decimal{.low = 25, .scale = 1}, 2},
                            {Decimal{.low = 250000000000000001, .scale = 17, .negative = true}, -3}});
}
TEST(ToInt32, ReadsTextAsABrazilianNumber) {
  ExpectConverted(ToInt32, {{L" 7 ", 7}, {L"2,5", 2}, {L"3,5", 4}, {L"1.000", 1000}});
  ExpectRaised(ToInt32, {{L"", kTypeMismatch}, {L"abc", kTypeMismatch}, {L"31/12/2023", kTypeMismatch}});
}
TEST(ToInt32, RaisesAnOverflowBeyond32Bits) {
  EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
  ExpectRaised(ToInt32, {{2147483647.5, kOverflow}});
  EXPECT_EQ(ToInt32(-2147483648.5), -2147483647 - 1);
  ExpectRaised(ToInt32, {{-2147483648.6, kOverflow},
                         {std::int64_t{2147483648}, kOverflow},
                         {std::int64_t{-2147483649}, kOverflow},
                         {L"2147483648", kOverflow},
                         {1e300, kOverflow},
                         {std::nan(""), kOverflow},
                         {std::numeric_limits<double>::infinity(), kOverflow},
                         {kLargestUnsigned, kOverflow},
                         {3e9F, kOverflow}});
  EXPECT_EQ(ToInt32(Currency{21474836474999}), 2147483647);
  ExpectRaised(ToInt32, {{Currency{21474836475000}, kOverflow},
                         {Decimal{.low = 2147483648}, kOverflow},
                         {Decimal{.high = 1}, kOverflow}});
}
TEST(ToInt32, RefusesNullAndWhatHasNoValue) {
  ExpectRaised(ToInt32, {{Null{}, kInvalidUseOfNull}, {kNothing, kObjectNotSet}, {AnObject(), kMemberNotFound}});
}
TEST(ToInt32, TakesAnObjectForItsDefaultProperty) { EXPECT_EQ(ToInt32(Holding(L"7")), 7); }

TEST(ToDate, TakesDatesNumbersAndText) {
  ExpectConverted(ToDate, {{Empty{}, Date{0}},
                           {Date{1.5}, Date{1.5}},
                           {std::int32_t{45291}, Date{45291}},
                           {std::int64_t{45291}, Date{45291}},
                           {45291.5, Date{45291.5}},
                           {45291.5F, Date{45291.5}},
                           {Currency{452912500}, Date{45291.25}},
                           {Decimal{.low = 4529125, .scale = 2}, Date{45291.25}},
                           {Holding(Date{1.5}), Date{1.5}},
                           {true, Date{-1}},
                           {L"31/12/2023", Date{45291}},
                           {L"45291", Date{45291}}});
}
TEST(ToDate, RefusesWhatIsNoDate) {
  ExpectRaised(ToDate, {{L"c.DATA", kTypeMismatch},
                        {L"", kTypeMismatch},
                        {1e9, kOverflow},
                        {L"99999999", kOverflow},
                        {Null{}, kInvalidUseOfNull},
                        {kNothing, kObjectNotSet},
                        {AnObject(), kMemberNotFound},
                        {kLargestUnsigned, kOverflow},
                        {Decimal{.high = 1}, kOverflow}});
}

TEST(ToBool, IsTrueForAnyNumberButZero) {
  EXPECT_TRUE(ToBool(0.1F));
  EXPECT_FALSE(ToBool(0.0F));
  EXPECT_TRUE(ToBool(kLargestUnsigned));
  EXPECT_TRUE(ToBool(Currency{-1}));
  EXPECT_FALSE(ToBool(Currency{}));
  EXPECT_TRUE(ToBool(Decimal{.high = 1}));
  EXPECT_TRUE(ToBool(Decimal{.low = 1, .scale = 28}));
  EXPECT_FALSE(ToBool(Decimal{.scale = 2, .negative = true}));
  EXPECT_TRUE(ToBool(Date{0.5}));
  EXPECT_FALSE(ToBool(Date{}));
  EXPECT_TRUE(ToBool(Holding(L"Verdadeiro")));
  ExpectRaised(ToBool, {{AnObject(), kMemberNotFound}});
}

}  // namespace
}  // namespace kodra::values

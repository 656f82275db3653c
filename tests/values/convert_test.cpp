#include "values/convert.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "values/automation.h"
#include "values/erro.h"

namespace kodra::values {
namespace {

class SomeObject final : public AutomationObject {
 public:
  Value Get(std::wstring_view) override { return L"never asked"; }
  void Let(std::wstring_view, const Value&) override {}
  void Set(std::wstring_view, const ObjectRef&) override {}
  Value Call(std::wstring_view, std::span<const Value>) override { return {}; }
};

class WithDefault final : public AutomationObject {
 public:
  explicit WithDefault(Value value) : default_(std::move(value)) {}
  Value Get(std::wstring_view) override { return L"never asked"; }
  void Let(std::wstring_view, const Value&) override {}
  void Set(std::wstring_view, const ObjectRef&) override {}
  Value Call(std::wstring_view, std::span<const Value>) override { return {}; }
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

// The number of the error that `call` raises; 0 when it raises none.
template <class Call>
std::int32_t ErrorOf(Call call) {
  try {
    call();
  } catch (const Erro& erro) {
    EXPECT_EQ(erro.Source(), L"KodraRpt");
    return erro.Number();
  }
  return 0;
}

TEST(ToText, WritesEveryKindOfValue) {
  EXPECT_EQ(ToText(Empty{}), L"");
  EXPECT_EQ(ToText(true), L"Verdadeiro");
  EXPECT_EQ(ToText(false), L"Falso");
  EXPECT_EQ(ToText(std::int32_t{-7}), L"-7");
  EXPECT_EQ(ToText(std::int64_t{5000000000}), L"5000000000");
  EXPECT_EQ(ToText(kLargestUnsigned), L"18446744073709551615");
  EXPECT_EQ(ToText(0.1F), L"0,1");
  EXPECT_EQ(ToText(1.5), L"1,5");
  EXPECT_EQ(ToText(Currency{std::numeric_limits<std::int64_t>::max()}), L"922337203685477,5807");
  EXPECT_EQ(ToText(Decimal{.low = 12345678901234567890U, .scale = 3}), L"12345678901234567,89");
  EXPECT_EQ(ToText(Date{45291}), L"31/12/2023");
  EXPECT_EQ(ToText(Date{45291.5}), L"31/12/2023 12:00:00");
  EXPECT_EQ(ToText(Date{0}), L"00:00:00");
  EXPECT_EQ(ToText(L" já é texto "), L" já é texto ");
}
TEST(ToText, RefusesNullAndWhatHasNoValue) {
  EXPECT_EQ(ErrorOf([] { ToText(Null{}); }), 94);
  EXPECT_EQ(ErrorOf([] { ToText(kNothing); }), 91);
  EXPECT_EQ(ErrorOf([] { ToText(AnObject()); }), 438);
}
TEST(ToText, TakesAnObjectForItsDefaultProperty) {
  EXPECT_EQ(ToText(Holding(L"ação")), L"ação");
  EXPECT_EQ(ToText(Holding(0.1F)), L"0,1");
  EXPECT_EQ(ToText(Holding(Holding(true))), L"Verdadeiro");
  EXPECT_EQ(ErrorOf([] { ToText(Holding(Null{})); }), 94);
  EXPECT_EQ(ErrorOf([] { ToText(Holding(kNothing)); }), 91);
  EXPECT_EQ(ErrorOf([] { ToText(Holding(AnObject())); }), 438);
}
TEST(ToText, RefusesAnObjectThatIsItsOwnDefaultProperty) {
  const auto object = std::make_shared<WithDefault>(Value());
  object->SetDefault(ObjectRef(object));
  EXPECT_EQ(ErrorOf([&] { ToText(ObjectRef(object)); }), 13);
  object->SetDefault({});
}

TEST(ToTextOrEmpty, TakesNullAsTheEmptyText) {
  EXPECT_EQ(ToTextOrEmpty(Null{}), L"");
  EXPECT_EQ(ToTextOrEmpty(Empty{}), L"");
  EXPECT_EQ(ToTextOrEmpty(L"x"), L"x");
  EXPECT_EQ(ToTextOrEmpty(2.5), L"2,5");
  EXPECT_EQ(ErrorOf([] { ToTextOrEmpty(kNothing); }), 91);
  EXPECT_EQ(ErrorOf([] { ToTextOrEmpty(AnObject()); }), 438);
  EXPECT_EQ(ToTextOrEmpty(Holding(L"x")), L"x");
  EXPECT_EQ(ToTextOrEmpty(Holding(Null{})), L"");
}

TEST(ToInt32, RoundsHalvesToTheEvenNeighbour) {
  EXPECT_EQ(ToInt32(0.5), 0);
  EXPECT_EQ(ToInt32(1.5), 2);
  EXPECT_EQ(ToInt32(2.5), 2);
  EXPECT_EQ(ToInt32(-0.5), 0);
  EXPECT_EQ(ToInt32(-1.5), -2);
  EXPECT_EQ(ToInt32(-2.5), -2);
  EXPECT_EQ(ToInt32(2.4999), 2);
  EXPECT_EQ(ToInt32(2.5001), 3);
}
TEST(ToInt32, TakesEveryKindOfNumber) {
  EXPECT_EQ(ToInt32(Empty{}), 0);
  EXPECT_EQ(ToInt32(true), -1);
  EXPECT_EQ(ToInt32(false), 0);
  EXPECT_EQ(ToInt32(std::int32_t{7}), 7);
  EXPECT_EQ(ToInt32(std::int64_t{-7}), -7);
  EXPECT_EQ(ToInt32(Date{45291.75}), 45292);
  EXPECT_EQ(ToInt32(std::uint64_t{7}), 7);
  EXPECT_EQ(ToInt32(2.5F), 2);
  EXPECT_EQ(ToInt32(Currency{15000}), 2);
  EXPECT_EQ(ToInt32(Currency{-25000}), -2);
  EXPECT_EQ(ToInt32(Decimal{.low = 25, .scale = 1}), 2);
  EXPECT_EQ(ToInt32(Decimal{.low = 250000000000000001, .scale = 17, .negative = true}), -3);
}
TEST(ToInt32, ReadsTextAsABrazilianNumber) {
  EXPECT_EQ(ToInt32(L" 7 "), 7);
  EXPECT_EQ(ToInt32(L"2,5"), 2);
  EXPECT_EQ(ToInt32(L"3,5"), 4);
  EXPECT_EQ(ToInt32(L"1.000"), 1000);
  EXPECT_EQ(ErrorOf([] { ToInt32(L""); }), 13);
  EXPECT_EQ(ErrorOf([] { ToInt32(L"abc"); }), 13);
  EXPECT_EQ(ErrorOf([] { ToInt32(L"31/12/2023"); }), 13);
}
TEST(ToInt32, RaisesAnOverflowBeyond32Bits) {
  EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
  EXPECT_EQ(ErrorOf([] { ToInt32(2147483647.5); }), 6);
  EXPECT_EQ(ToInt32(-2147483648.5), -2147483647 - 1);
  EXPECT_EQ(ErrorOf([] { ToInt32(-2147483648.6); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt32(std::int64_t{2147483648}); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt32(std::int64_t{-2147483649}); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt32(L"2147483648"); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt32(1e300); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt32(std::nan("")); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt32(std::numeric_limits<double>::infinity()); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt32(kLargestUnsigned); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt32(3e9F); }), 6);
  EXPECT_EQ(ToInt32(Currency{21474836474999}), 2147483647);
  EXPECT_EQ(ErrorOf([] { ToInt32(Currency{21474836475000}); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt32(Decimal{.low = 2147483648}); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt32(Decimal{.high = 1}); }), 6);
}
TEST(ToInt32, RefusesNullAndWhatHasNoValue) {
  EXPECT_EQ(ErrorOf([] { ToInt32(Null{}); }), 94);
  EXPECT_EQ(ErrorOf([] { ToInt32(kNothing); }), 91);
  EXPECT_EQ(ErrorOf([] { ToInt32(AnObject()); }), 438);
}
TEST(ToInt32, TakesAnObjectForItsDefaultProperty) { EXPECT_EQ(ToInt32(Holding(L"7")), 7); }

TEST(ToDate, TakesDatesNumbersAndText) {
  EXPECT_EQ(ToDate(Empty{}), Date{0});
  EXPECT_EQ(ToDate(Date{1.5}), Date{1.5});
  EXPECT_EQ(ToDate(std::int32_t{45291}), Date{45291});
  EXPECT_EQ(ToDate(std::int64_t{45291}), Date{45291});
  EXPECT_EQ(ToDate(45291.5), Date{45291.5});
  EXPECT_EQ(ToDate(45291.5F), Date{45291.5});
  EXPECT_EQ(ToDate(Currency{452912500}), Date{45291.25});
  EXPECT_EQ(ToDate(Decimal{.low = 4529125, .scale = 2}), Date{45291.25});
  EXPECT_EQ(ToDate(Holding(Date{1.5})), Date{1.5});
  EXPECT_EQ(ToDate(true), Date{-1});
  EXPECT_EQ(ToDate(L"31/12/2023"), Date{45291});
  EXPECT_EQ(ToDate(L"45291"), Date{45291});
}
TEST(ToDate, RefusesWhatIsNoDate) {
  EXPECT_EQ(ErrorOf([] { ToDate(L"c.DATA"); }), 13);
  EXPECT_EQ(ErrorOf([] { ToDate(L""); }), 13);
  EXPECT_EQ(ErrorOf([] { ToDate(1e9); }), 6);
  EXPECT_EQ(ErrorOf([] { ToDate(L"99999999"); }), 6);
  EXPECT_EQ(ErrorOf([] { ToDate(Null{}); }), 94);
  EXPECT_EQ(ErrorOf([] { ToDate(kNothing); }), 91);
  EXPECT_EQ(ErrorOf([] { ToDate(AnObject()); }), 438);
  EXPECT_EQ(ErrorOf([] { ToDate(kLargestUnsigned); }), 6);
  EXPECT_EQ(ErrorOf([] { ToDate(Decimal{.high = 1}); }), 6);
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
  EXPECT_TRUE(ToBool(Holding(L"Verdadeiro")));
  EXPECT_EQ(ErrorOf([] { ToBool(AnObject()); }), 438);
}

}  // namespace
}  // namespace kodra::values

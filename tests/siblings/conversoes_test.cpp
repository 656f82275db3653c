#include "siblings/conversoes.h"

#include <gtest/gtest.h>

#include "siblings/value_object.h"
#include "tests/recorder/raised.h"

namespace kodra::siblings {
namespace {

using recorder::Raised;
using recorder::RaisedBy;

Value ToDate(const Value& value) {
  Conversoes conversions;
  return conversions.Call(L"ToDate", {&value, 1});
}

ObjectRef FieldWith(const Value& value) {
  return std::make_shared<ValueObject>(std::vector<ValueObject::Entry>{{L"Value", value}});
}

TEST(Conversoes, ReadADateOfBrazilianPortuguese) {
  EXPECT_EQ(ToDate(L"31/12/2023"), Value(Date{45291}));
  EXPECT_EQ(ToDate(L"31/12/2023 06:00:00"), Value(Date{45291.25}));
  EXPECT_EQ(ToDate(L"2023-12-31"), Value(Date{45291}));
}

TEST(Conversoes, CountANumberAsDays) {
  EXPECT_EQ(ToDate(45291), Value(Date{45291}));
  EXPECT_EQ(ToDate(45291.25), Value(Date{45291.25}));
  EXPECT_EQ(ToDate(std::int64_t{45291}), Value(Date{45291}));
  EXPECT_EQ(ToDate(L"45291,25"), Value(Date{45291.25}));
}

TEST(Conversoes, GiveADateAsItIs) {
  EXPECT_EQ(ToDate(Date{45291.5}), Value(Date{45291.5}));
  EXPECT_EQ(ToDate(Date{}), Value(Date{}));
}

TEST(Conversoes, GiveTheZeroDateForWhatIsNoDate) {
  const Value none = Date{};
  EXPECT_EQ(ToDate(Null()), none);
  EXPECT_EQ(ToDate(Empty()), none);
  EXPECT_EQ(ToDate(L""), none);
  EXPECT_EQ(ToDate(L"  "), none);
  EXPECT_EQ(ToDate(L"amanhã"), none);
  EXPECT_EQ(ToDate(L"31/02/2023 25:00"), none);
  EXPECT_EQ(ToDate(1e12), none);
  EXPECT_EQ(ToDate(ObjectRef()), none);
}

TEST(Conversoes, ReadTheValueOfAField) {
  EXPECT_EQ(ToDate(FieldWith(Date{45291})), Value(Date{45291}));
  EXPECT_EQ(ToDate(FieldWith(L"31/12/2023")), Value(Date{45291}));
  EXPECT_EQ(ToDate(FieldWith(Null())), Value(Date{}));
  EXPECT_EQ(ToDate(FieldWith(FieldWith(Date{45291}))), Value(Date{}));  // one value deep, no further
}

TEST(Conversoes, LetAFieldsErrorThrough) {
  const ObjectRef withoutValue = std::make_shared<ValueObject>(std::vector<ValueObject::Entry>{});
  EXPECT_EQ(RaisedBy([&] { ToDate(withoutValue); }),
            (Raised{438, "KodraRpt", "O objeto não aceita esta propriedade ou método"}));
}

}  // namespace
}  // namespace kodra::siblings

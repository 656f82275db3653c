#include "siblings/conversoes.h"

#include <gtest/gtest.h>

#include "siblings/value_object.h"
#include "tests/recorder/fake_object.h"
#include "tests/recorder/raised.h"

namespace kodra::siblings {
namespace {

using recorder::kMemberNotFound;
using recorder::RaisedBy;

Value ToDate(const Value& value) {
  Conversoes conversions;
  return conversions.Call(L"ToDate", {&value, 1});
}

ObjectRef FieldWith(const Value& value) {
  return std::make_shared<ValueObject>(std::vector<ValueObject::Entry>{{L"Value", value}});
}

// Values and the dates that they become.
void ExpectDates(std::initializer_list<std::pair<Value, Date>> cases) {
  for (const auto& [value, date] : cases) EXPECT_EQ(ToDate(value), Value(date)) << recorder::Shown(value);
}

TEST(Conversoes, ReadADateOfBrazilianPortuguese) {
  ExpectDates({
      {L"31/12/2023", {45291}},
      {L"31/12/2023 06:00:00", {45291.25}},
      {L"2023-12-31", {45291}},
  });
}

TEST(Conversoes, CountANumberAsDays) {
  ExpectDates({
      {45291, {45291}},
      {45291.25, {45291.25}},
      {std::int64_t{45291}, {45291}},
      {L"45291,25", {45291.25}},
  });
}

TEST(Conversoes, ReturnADateAsItIs) {
  ExpectDates({
      {Date{45291.5}, {45291.5}},
      {Date{}, {}},
  });
}

TEST(Conversoes, ReturnTheZeroDateForOtherValues) {
  ExpectDates({
      {Null(), {}},
      {Empty(), {}},
      {L"", {}},
      {L"  ", {}},
      {L"amanhã", {}},
      {L"31/02/2023 25:00", {}},
      {1e12, {}},
      {ObjectRef(), {}},
  });
}

TEST(Conversoes, ReadTheValueOfAField) {
  ExpectDates({
      {FieldWith(Date{45291}), {45291}},
      {FieldWith(L"31/12/2023"), {45291}},
      {FieldWith(Null()), {}},
      {FieldWith(FieldWith(Date{45291})), {}},  // only one level deep
  });
}

TEST(Conversoes, PassOnAnErrorOfAField) {
  const ObjectRef withoutValue = std::make_shared<ValueObject>(std::vector<ValueObject::Entry>{});
  EXPECT_EQ(RaisedBy([&] { ToDate(withoutValue); }), kMemberNotFound);
}

}  // namespace
}  // namespace kodra::siblings

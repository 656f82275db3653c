// The truth of a flag, without any database.
#include <gtest/gtest.h>

#include "reports/operators/operator_flag.h"
#include "tests/recorder/journal.h"
#include "tests/recorder/raised.h"

namespace kodra::reports {
namespace {

using recorder::kObjectNotSet;
using recorder::RaisedBy;
using recorder::Shown;
using recorder::Utf8;

TEST(EhVerdadeiroTest, TakesEachLetterOfYesInEitherCase) {
  for (const wchar_t* text : {L"1", L"Y", L"S", L"T", L"V", L"y", L"s", L"t", L"v"})
    EXPECT_TRUE(EhVerdadeiro(text)) << Utf8(text);
}

TEST(EhVerdadeiroTest, LooksAtTheFirstCharacterOnly) {
  for (const wchar_t* text : {L"Yes", L"Sim", L"True", L"Verdadeiro", L"sim", L"verdadeiro", L"100", L"1,5", L"S "})
    EXPECT_TRUE(EhVerdadeiro(text)) << Utf8(text);
  for (const wchar_t* text : {L"No", L"Não", L"False", L"Falso", L"0,1", L"21", L" S", L"-1", L"\tS"})
    EXPECT_FALSE(EhVerdadeiro(text)) << Utf8(text);
}

TEST(EhVerdadeiroTest, TakesACommaForYes) {
  EXPECT_TRUE(EhVerdadeiro(L","));
  EXPECT_TRUE(EhVerdadeiro(L",N"));
}

TEST(EhVerdadeiroTest, TakesEverythingElseForNo) {
  for (const wchar_t* text : {L"0", L"N", L"F", L"n", L"f", L"X", L"", L" ", L"2", L".", L";", L"ß", L"Ş"})
    EXPECT_FALSE(EhVerdadeiro(text)) << Utf8(text);
}

TEST(EhVerdadeiroTest, ReadsAnyValueAsItsText) {
  for (const Value& value : {Value(1), Value(true), Value(std::int64_t{1}), Value(1.5), Value(10)})
    EXPECT_TRUE(EhVerdadeiro(value)) << Utf8(Shown(value));
  for (const Value& value : {Value(), Value(Null{}), Value(0), Value(false), Value(-1), Value(2), Value(0.1)})
    EXPECT_FALSE(EhVerdadeiro(value)) << Utf8(Shown(value));
}

TEST(EhVerdadeiroTest, RefusesAnObject) {
  EXPECT_EQ(RaisedBy([] { EhVerdadeiro(ObjectRef{}); }), kObjectNotSet);
}

}  // namespace
}  // namespace kodra::reports

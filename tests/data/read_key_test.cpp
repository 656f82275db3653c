// Reading the value of one key of a connection string.
#include <gtest/gtest.h>

#include "data/connection_string.h"
#include "tests/recorder/raised.h"

namespace kodra::data {
namespace {

using recorder::kOverflow;
using recorder::RaisedBy;

// The last position that a search may find, counted from 1.
constexpr std::size_t kLastPosition = 32767;

std::wstring Filler(std::size_t length) { return std::wstring(length, L'x'); }

// A text, a key and the value that is read for it.
struct Reading {
  const char* name;
  const wchar_t* text;
  const wchar_t* value;
  const wchar_t* key = L"Database";
};

const Reading kReadings[] = {
    {"TheEmptyTextForTheEmptyString", L"", L""},
    {"TheEmptyTextForAKeyThatIsNotThere", L"Driver=x;", L""},
    {"APairInTheMiddle", L"Driver=x;Database=a.db;UID=u;", L"a.db"},
    {"TheLastPairWithoutASemicolon", L"Driver=x;Database=a.db", L"a.db"},
    {"AKeyInAnyLetterCase", L"DATABASE=a.DB;", L"a.DB", L"dataBase"},
    {"AValueWithItsBlanks", L"Database =  a.db ;", L"  a.db "},
    {"TheEmptyTextWhenTheFirstMatchIsInAValue", L"Server=MyDatabase;Database=a.db;", L""},
    {"TheEmptyTextForAKeyWithoutAnEqualsSign", L"Database;UID=u;", L""},
    {"EverythingAfterTheFirstEqualsSign", L"Database=a=b;", L"a=b"},
    {"AnEmptyValue", L"Database=;", L""},
};

class ReadKeyValueTest : public testing::TestWithParam<Reading> {};
INSTANTIATE_TEST_SUITE_P(Texts, ReadKeyValueTest, testing::ValuesIn(kReadings),
                         [](const auto& info) { return info.param.name; });

TEST_P(ReadKeyValueTest, IsRead) { EXPECT_EQ(ReadKey(GetParam().text, GetParam().key), GetParam().value); }

TEST(ReadKeyTest, FindsTheKeyInsideALongerOneAndTakesTheFirst) {
  EXPECT_EQ(ReadKey(L"Default Database=um;Database=dois;", L"Database"), L"um");
  EXPECT_EQ(ReadKey(L"DatabaseFile=um;Database=dois;", L"Database"), L"um");
}

TEST(ReadKeyTest, ReadsAPairThatEndsAtTheLastPosition) {
  const std::wstring pair = L"Database=a;";
  EXPECT_EQ(ReadKey(Filler(kLastPosition - pair.size()) + pair, L"Database"), L"a");
}

TEST(ReadKeyTest, OverflowsForAPairThatEndsBeyondTheLastPosition) {
  const std::wstring pair = L"Database=a;";
  const std::wstring text = Filler(kLastPosition - pair.size() + 1) + pair;
  EXPECT_EQ(RaisedBy([&] { ReadKey(text, L"Database"); }), kOverflow);
}

TEST(ReadKeyTest, OverflowsForAKeyBeyondTheLastPosition) {
  const std::wstring text = Filler(kLastPosition) + L"Database=a;";
  EXPECT_EQ(RaisedBy([&] { ReadKey(text, L"Database"); }), kOverflow);
}

TEST(ReadKeyTest, FindsNoKeyInALongStringWithoutOverflow) {
  EXPECT_EQ(ReadKey(Filler(2 * kLastPosition), L"Database"), L"");
}

}  // namespace
}  // namespace kodra::data

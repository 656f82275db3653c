// Reading one key's value out of a connection string.
#include <gtest/gtest.h>

#include "data/connection_string.h"
#include "tests/recorder/raised.h"

namespace kodra::data {
namespace {

using recorder::Raised;
using recorder::RaisedBy;

const Raised kOverflow = {6, "KodraRpt", "Estouro"};
// The last position that a search may find, counted from 1.
constexpr std::size_t kLastPosition = 32767;

std::wstring Filler(std::size_t length) { return std::wstring(length, L'x'); }

TEST(ReadKeyTest, GivesTheEmptyTextForTheEmptyString) { EXPECT_EQ(ReadKey(L"", L"Database"), L""); }

TEST(ReadKeyTest, GivesTheEmptyTextForAKeyThatIsNotThere) { EXPECT_EQ(ReadKey(L"Driver=x;", L"Database"), L""); }

TEST(ReadKeyTest, ReadsAPairInTheMiddle) { EXPECT_EQ(ReadKey(L"Driver=x;Database=a.db;UID=u;", L"Database"), L"a.db"); }

TEST(ReadKeyTest, ReadsTheLastPairWithoutASemicolon) {
  EXPECT_EQ(ReadKey(L"Driver=x;Database=a.db", L"Database"), L"a.db");
}

TEST(ReadKeyTest, FindsTheKeyInAnyLetterCase) { EXPECT_EQ(ReadKey(L"DATABASE=a.DB;", L"dataBase"), L"a.DB"); }

TEST(ReadKeyTest, DoesNotTrimTheValue) { EXPECT_EQ(ReadKey(L"Database =  a.db ;", L"Database"), L"  a.db "); }

TEST(ReadKeyTest, FindsTheKeyInsideALongerOneAndTakesTheFirst) {
  EXPECT_EQ(ReadKey(L"Default Database=um;Database=dois;", L"Database"), L"um");
  EXPECT_EQ(ReadKey(L"DatabaseFile=um;Database=dois;", L"Database"), L"um");
}

TEST(ReadKeyTest, GivesTheEmptyTextWhenTheFirstMatchIsInAValue) {
  EXPECT_EQ(ReadKey(L"Server=MyDatabase;Database=a.db;", L"Database"), L"");
}

TEST(ReadKeyTest, GivesTheEmptyTextForAKeyWithoutAnEqualsSign) {
  EXPECT_EQ(ReadKey(L"Database;UID=u;", L"Database"), L"");
}

TEST(ReadKeyTest, TakesEverythingAfterTheFirstEqualsSign) {
  EXPECT_EQ(ReadKey(L"Database=a=b;", L"Database"), L"a=b");
  EXPECT_EQ(ReadKey(L"Database=;", L"Database"), L"");
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

TEST(ReadKeyTest, SearchesALongStringInVainWithoutOverflow) {
  EXPECT_EQ(ReadKey(Filler(2 * kLastPosition), L"Database"), L"");
}

}  // namespace
}  // namespace kodra::data

#include "platform/odbc/errors.h"

#include <gtest/gtest.h>

namespace kodra::platform::odbc {
namespace {

std::uint32_t Hresult(const wchar_t* state, Stage stage) {
  return static_cast<std::uint32_t>(HresultOfSqlState(state, stage));
}

TEST(Hresult, AMissingTableHasItsOwnNumber) {
  EXPECT_EQ(Hresult(L"42S02", Stage::kPrepare), 0x80040E37U);
  EXPECT_EQ(Hresult(L"42S02", Stage::kExecute), 0x80040E37U);
}

TEST(Hresult, EveryOtherSyntaxOrAccessClassIsAnErrorInTheCommand) {
  EXPECT_EQ(Hresult(L"42000", Stage::kPrepare), 0x80040E14U);
  EXPECT_EQ(Hresult(L"42S22", Stage::kExecute), 0x80040E14U);
}

TEST(Hresult, ASyntaxClassWhileConnectingIsAPlainFailure) {
  EXPECT_EQ(Hresult(L"42000", Stage::kConnect), 0x80004005U);
}

TEST(Hresult, AGeneralErrorIsAnErrorInTheCommandOnlyWhilePreparing) {
  EXPECT_EQ(Hresult(L"HY000", Stage::kPrepare), 0x80040E14U);
  EXPECT_EQ(Hresult(L"HY000", Stage::kExecute), 0x80004005U);
  EXPECT_EQ(Hresult(L"HY000", Stage::kConnect), 0x80004005U);
}

TEST(Hresult, ARefusedLoginIsAnAuthenticationFailure) { EXPECT_EQ(Hresult(L"28000", Stage::kConnect), 0x80040E4DU); }

TEST(Hresult, AnythingElseIsAPlainFailure) {
  EXPECT_EQ(Hresult(L"23000", Stage::kExecute), 0x80004005U);
  EXPECT_EQ(Hresult(L"IM002", Stage::kConnect), 0x80004005U);
  EXPECT_EQ(Hresult(L"", Stage::kConnect), 0x80004005U);
}

TEST(HidePassword, ThePwdValueIsReplacedUpToTheSemicolon) {
  EXPECT_EQ(HidePassword(L"Driver={X};UID=ana;PWD=segredo;Port=1"), L"Driver={X};UID=ana;PWD=***;Port=1");
}

TEST(HidePassword, ThePasswordKeyCountsInAnyLetterCaseAndWithBlanks) {
  EXPECT_EQ(HidePassword(L"passWord = segredo"), L"passWord = ***");
}

TEST(HidePassword, AQuotedOrBracedValueIsHiddenToItsEnd) {
  EXPECT_EQ(HidePassword(L"Pwd={a;b}}c};UID=x"), L"Pwd=***;UID=x");
  EXPECT_EQ(HidePassword(L"Pwd=\"a;\"\"b\";UID=x"), L"Pwd=***;UID=x");
  EXPECT_EQ(HidePassword(L"Pwd='a;b';UID=x"), L"Pwd=***;UID=x");
}

TEST(HidePassword, AnUnclosedValueIsHiddenToTheEndOfTheText) {
  EXPECT_EQ(HidePassword(L"cannot parse Pwd={a;b"), L"cannot parse Pwd=***");
}

TEST(HidePassword, EveryOccurrenceIsHidden) { EXPECT_EQ(HidePassword(L"PWD=a;PASSWORD=b;"), L"PWD=***;PASSWORD=***;"); }

TEST(HidePassword, ATextThatOnlySpeaksOfAPasswordStays) {
  EXPECT_EQ(HidePassword(L"Access denied (using password: YES)"), L"Access denied (using password: YES)");
}

}  // namespace
}  // namespace kodra::platform::odbc

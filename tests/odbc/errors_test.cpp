#include "odbc/engine/errors.h"

#include <gtest/gtest.h>

namespace kodra::odbc {
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

}  // namespace
}  // namespace kodra::odbc

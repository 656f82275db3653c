#include "platform/password.h"

#include <gtest/gtest.h>

namespace kodra::platform {
namespace {

TEST(HidePassword, AValueIsReplacedUpToTheSemicolon) {
  EXPECT_EQ(HidePassword(L"Driver={X};UID=ana;PWD=segredo;Port=1"), L"Driver={X};UID=ana;PWD=***;Port=1");
}

TEST(HidePassword, AKeyCountsInAnyLetterCaseAndWithBlanks) {
  EXPECT_EQ(HidePassword(L"passWord = segredo"), L"passWord = ***");
  EXPECT_EQ(HidePassword(L"pwd\t=\r\n segredo;a"), L"pwd\t=\r\n ***;a");
}

TEST(HidePassword, EveryKeyThatEndsInAPasswordsNameIsOne) {
  EXPECT_EQ(HidePassword(L"Jet OLEDB:Database Password=a;NewPWD=b;Proxy Passwd=c;PASSWORD2=d;PWDX=e"),
            L"Jet OLEDB:Database Password=***;NewPWD=***;Proxy Passwd=***;PASSWORD2=***;PWDX=e");
}

TEST(HidePassword, AQuotedOrBracedValueIsHiddenToItsEnd) {
  EXPECT_EQ(HidePassword(L"Pwd={a;b}}c};UID=x"), L"Pwd=***;UID=x");
  EXPECT_EQ(HidePassword(L"Pwd=\"a;\"\"b\";UID=x"), L"Pwd=***;UID=x");
  EXPECT_EQ(HidePassword(L"Pwd=\"a\"\";b\";UID=x"), L"Pwd=***;UID=x");
  EXPECT_EQ(HidePassword(L"Pwd=\"\"\"a;b\";UID=x"), L"Pwd=***;UID=x");
  EXPECT_EQ(HidePassword(L"Pwd='a;''b';UID=x"), L"Pwd=***;UID=x");
}

TEST(HidePassword, AQuotedValueWithinQuotesIsHiddenToItsEnd) {
  EXPECT_EQ(HidePassword(L"Extended Properties=\"DSN=x;PWD=\"\"a;b\"\";UID=y\";z"),
            L"Extended Properties=\"DSN=x;PWD=***;UID=y\";z");
  EXPECT_EQ(HidePassword(L"Extended Properties=\"DSN=x;PWD=\"\"a;b\"\"\";z"), L"Extended Properties=\"DSN=x;PWD=***;z");
}

TEST(HidePassword, AnEmptyValueHidesNothingElse) {
  EXPECT_EQ(HidePassword(L"PWD=;UID=x"), L"PWD=***;UID=x");
  EXPECT_EQ(HidePassword(L"PWD=\"\";UID=x"), L"PWD=***;UID=x");
  EXPECT_EQ(HidePassword(L"UID=x;PWD="), L"UID=x;PWD=");
}

TEST(HidePassword, WhatFollowsAClosingQuoteIsHiddenToo) {
  EXPECT_EQ(HidePassword(L"Pwd='a'b'c;UID=x"), L"Pwd=***;UID=x");
  EXPECT_EQ(HidePassword(L"Pwd={a}b;UID=x"), L"Pwd=***;UID=x");
}

TEST(HidePassword, AnUnclosedValueIsHiddenToTheEndOfTheText) {
  EXPECT_EQ(HidePassword(L"cannot parse Pwd={a;b"), L"cannot parse Pwd=***");
  EXPECT_EQ(HidePassword(L"cannot parse Pwd=\"a;b"), L"cannot parse Pwd=***");
}

TEST(HidePassword, EveryOccurrenceIsHidden) { EXPECT_EQ(HidePassword(L"PWD=a;PASSWORD=b;"), L"PWD=***;PASSWORD=***;"); }

TEST(HidePassword, ATextThatOnlySpeaksOfAPasswordStays) {
  EXPECT_EQ(HidePassword(L"Access denied (using password: YES)"), L"Access denied (using password: YES)");
  EXPECT_EQ(HidePassword(L"PWD"), L"PWD");
  EXPECT_EQ(HidePassword(L""), L"");
}

TEST(HidePassword, APasswordOfTheConnectionStringIsHiddenWithoutItsKeyToo) {
  EXPECT_EQ(HidePassword(L"login \"ana\"/\"segredo\" refused: segredo", L"UID=ana;PWD=segredo"),
            L"login \"ana\"/\"***\" refused: ***");
}

TEST(HidePassword, APasswordIsKnownWithItsQuotesAndWithoutThem) {
  for (const wchar_t* string : {L"PWD={abre;te}}sesamo};UID=ana", L"PWD={abre;te}}sesamo}"}) {
    EXPECT_EQ(HidePassword(L"refused: {abre;te}}sesamo}", string), L"refused: {***}");
    EXPECT_EQ(HidePassword(L"refused: abre;te}sesamo", string), L"refused: ***");
  }
  EXPECT_EQ(HidePassword(L"refused: abre\"te", L"Password=\"abre\"\"te\";"), L"refused: ***");
}

TEST(HidePassword, ThePiecesThatACarelessReaderMakesOfAPasswordAreHidden) {
  EXPECT_EQ(HidePassword(L"cannot connect with abre", L"PWD={abre}}sesamo}"), L"cannot connect with ***");
  EXPECT_EQ(HidePassword(L"unknown keyword \"sesamo\"", L"PWD={abre;sesamo}"), L"unknown keyword \"***\"");
  EXPECT_EQ(HidePassword(L"\"sesamo}\" não encontrado", L"PWD={abre;Database=sesamo}"), L"\"***}\" não encontrado");
}

TEST(HidePassword, TheLongestPieceIsHiddenFirst) {
  EXPECT_EQ(HidePassword(L"abre;abretesesamo;", L"PWD=abre;NEWPWD=abretesesamo"), L"***;***;");
}

TEST(HidePassword, APieceOfThreeCharactersIsLeftWhereNoKeyNamesIt) {
  EXPECT_EQ(HidePassword(L"abc: PWD=abc", L"UID=x;PWD=abc"), L"abc: PWD=***");
}

TEST(HidePassword, AConnectionStringWithoutPasswordHidesNothing) {
  EXPECT_EQ(HidePassword(L"Server=a: no such host", L"Server=a;UID=ana"), L"Server=a: no such host");
  EXPECT_EQ(HidePassword(L"Server=a: no such host", L"PWD=\"\";Server=a"), L"Server=a: no such host");
}

}  // namespace
}  // namespace kodra::platform

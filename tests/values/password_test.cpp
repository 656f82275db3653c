#include "values/password.h"

#include <gtest/gtest.h>

namespace kodra::values {
namespace {

// A text that repeats the whole connection string.
std::wstring Repeated(const std::wstring& connectionString) {
  return HidePassword(L"cannot open " + connectionString + L" today", connectionString);
}

TEST(HidePassword, AValueIsReplacedUpToItsSemicolon) {
  EXPECT_EQ(Repeated(L"Driver={X};UID=ana;PWD=segredo;Port=1"), L"cannot open Driver={X};UID=ana;PWD=***;Port=1 today");
}

TEST(HidePassword, APairMayEndTheTextOrAQuotation) {
  const std::wstring_view string = L"UID=ana;PWD=segredo";
  EXPECT_EQ(HidePassword(L"refused: UID=ana;PWD=segredo", string), L"refused: UID=ana;PWD=***");
  EXPECT_EQ(HidePassword(L"\"UID=ana;PWD=segredo\" refused", string), L"\"UID=ana;PWD=***\" refused");
  EXPECT_EQ(HidePassword(L"'PWD=segredo'. [N:102]", string), L"'PWD=***'. [N:102]");
  EXPECT_EQ(HidePassword(L"(PWD=segredo)", string), L"(PWD=***)");
  EXPECT_EQ(HidePassword(L"PWD=segredo recusada", string), L"PWD=*** recusada");
}

TEST(HidePassword, AKeyCountsInAnyLetterCaseAndWithBlanks) {
  EXPECT_EQ(Repeated(L"passWord = segredo"), L"cannot open passWord = *** today");
  EXPECT_EQ(Repeated(L"pwd\t=\r\n segredo;a"), L"cannot open pwd\t=\r\n ***;a today");
  EXPECT_EQ(Repeated(L"pwd=segredo ;a"), L"cannot open pwd=*** ;a today");
}

TEST(HidePassword, TheTextMayCallThePasswordByAnotherKey) {
  EXPECT_EQ(HidePassword(L"Password=segredo;User ID=ana", L"UID=ana;PWD=segredo"), L"Password=***;User ID=ana");
}

TEST(HidePassword, EveryKeyThatEndsInAPasswordsNameIsOne) {
  EXPECT_EQ(Repeated(L"Jet OLEDB:Database Password=a;NewPWD=b;Proxy Passwd=c;PASSWORD2=d;PWDX=e"),
            L"cannot open Jet OLEDB:Database Password=***;NewPWD=***;Proxy Passwd=***;PASSWORD2=***;PWDX=e today");
}

TEST(HidePassword, AQuotedOrBracedValueIsHiddenWhole) {
  EXPECT_EQ(Repeated(L"Pwd={a;b}}c};UID=x"), L"cannot open Pwd=***;UID=x today");
  EXPECT_EQ(Repeated(L"Pwd=\"a;\"\"b\";UID=x"), L"cannot open Pwd=***;UID=x today");
  EXPECT_EQ(Repeated(L"Pwd=\"a\"\";b\";UID=x"), L"cannot open Pwd=***;UID=x today");
  EXPECT_EQ(Repeated(L"Pwd=\"\"\"a;b\";UID=x"), L"cannot open Pwd=***;UID=x today");
  EXPECT_EQ(Repeated(L"Pwd='a;''b';UID=x"), L"cannot open Pwd=***;UID=x today");
  EXPECT_EQ(Repeated(L"Pwd='a'b'c;UID=x"), L"cannot open Pwd=***;UID=x today");
  EXPECT_EQ(Repeated(L"Pwd={a}b;UID=x"), L"cannot open Pwd=***;UID=x today");
  EXPECT_EQ(HidePassword(L"cannot parse Pwd={a;b", L"UID=x;Pwd={a;b"), L"cannot parse Pwd=***");
}

TEST(HidePassword, AValueOfAListWithinQuotesIsHiddenWholeAndTheListsQuoteStays) {
  EXPECT_EQ(Repeated(L"Extended Properties=\"DSN=x;PWD=\"\"a;b\"\";UID=y\";z"),
            L"cannot open Extended Properties=\"DSN=x;PWD=***;UID=y\";z today");
  EXPECT_EQ(Repeated(L"Extended Properties=\"DSN=x;PWD=\"\"a;b\"\"\";z"),
            L"cannot open Extended Properties=\"DSN=x;PWD=***\";z today");
  EXPECT_EQ(Repeated(L"Extended Properties=\"DSN=x;PWD=segredo\";z"),
            L"cannot open Extended Properties=\"DSN=x;PWD=***\";z today");
}

// The value's own quotation is doubled twice, once for the value and once for the list.
TEST(HidePassword, AQuotationWithinAValueOfAListDoesNotEndIt) {
  EXPECT_EQ(Repeated(L"Extended Properties=\"PWD=\"\"a\"\"\"\"b;c\"\";UID=y\";z"),
            L"cannot open Extended Properties=\"PWD=***;UID=y\";z today");
}

TEST(HidePassword, AValueIsKnownWithOtherQuotesAndWithout) {
  EXPECT_EQ(HidePassword(L"PWD=abre;te}sesamo;UID=ana", L"PWD={abre;te}}sesamo};UID=ana"), L"PWD=***;UID=ana");
  EXPECT_EQ(HidePassword(L"PWD=\"abre;te}sesamo\"", L"PWD={abre;te}}sesamo}"), L"PWD=\"***\"");
  EXPECT_EQ(HidePassword(L"Pwd={segredo}", L"PWD=segredo"), L"Pwd={***}");
}

TEST(HidePassword, ASecretTwiceInARowIsHiddenTwice) {
  EXPECT_EQ(Repeated(L"PWD=a;PASSWORD=a;"), L"cannot open PWD=***;PASSWORD=***; today");
  EXPECT_EQ(HidePassword(L"PWD=a PWD=a", L"PWD=a"), L"PWD=*** PWD=***");
}

TEST(HidePassword, TheLongestOfSeveralPasswordsIsHidden) {
  EXPECT_EQ(HidePassword(L"PWD=abre tesouro", L"PWD=abre;NEWPWD=abre tesouro"), L"PWD=***");
}

TEST(HidePassword, AWordThatOnlyBeginsLikeThePasswordStays) {
  EXPECT_EQ(HidePassword(L"PWD=banco", L"PWD=ban"), L"PWD=banco");
  EXPECT_EQ(HidePassword(L"PWD=ban1", L"PWD=ban"), L"PWD=ban1");
}

TEST(HidePassword, ThePasswordWithoutAKeyBeforeItStays) {
  EXPECT_EQ(HidePassword(L"Não há entrada para o banco tipo 4", L"Password=banco"),
            L"Não há entrada para o banco tipo 4");
  EXPECT_EQ(HidePassword(L"ORA-01017: negado. [N:1017]", L"PWD=1017"), L"ORA-01017: negado. [N:1017]");
  EXPECT_EQ(HidePassword(L"Segredo segredo", L"PWD=segredo"), L"Segredo segredo");
}

TEST(HidePassword, ATextThatOnlyMentionsAPasswordIsUnchanged) {
  EXPECT_EQ(HidePassword(L"Incorrect syntax near 'PWD ='. [N:102]", L"UID=ana"),
            L"Incorrect syntax near 'PWD ='. [N:102]");
  EXPECT_EQ(HidePassword(L"Incorrect syntax near 'PWD ='. [N:102]", L"PWD=segredo"),
            L"Incorrect syntax near 'PWD ='. [N:102]");
  EXPECT_EQ(HidePassword(L"Access denied (using password: YES)", L"PWD=YES"), L"Access denied (using password: YES)");
  EXPECT_EQ(HidePassword(L"UID=x;PWD=", L"PWD=segredo"), L"UID=x;PWD=");
  EXPECT_EQ(HidePassword(L"", L"PWD=segredo"), L"");
}

TEST(HidePassword, AnEmptyPasswordHidesNothing) {
  EXPECT_EQ(Repeated(L"PWD=;UID=x"), L"cannot open PWD=;UID=x today");
  EXPECT_EQ(Repeated(L"PWD=\"\";UID=x"), L"cannot open PWD=\"\";UID=x today");
  EXPECT_EQ(Repeated(L"UID=x;PWD="), L"cannot open UID=x;PWD= today");
}

TEST(HasPassword, IsWhetherAPasswordKeyIsThere) {
  EXPECT_TRUE(HasPassword(L"UID=ana;Pwd=x"));
  EXPECT_TRUE(HasPassword(L"Password=;UID=ana"));
  EXPECT_FALSE(HasPassword(L"UID=PWD"));
  EXPECT_FALSE(HasPassword(L""));
}

// The result of CurrentErro for an exception while that connection string is in use.
template <class Exception>
Erro Caught(const Exception& exception) {
  try {
    throw exception;
  } catch (...) {
    return CurrentErro(L"UID=ana;PWD=segredo");
  }
}

TEST(CurrentErroOfAConnection, HidesThePasswordInTheWordsOfOthers) {
  const Erro erro = Caught(ForeignErro(942, L"Provedor PWD=segredo;", L"recusada: PWD=segredo"));
  EXPECT_EQ(erro.Number(), 942);
  EXPECT_EQ(erro.Source(), L"Provedor PWD=***;");
  EXPECT_EQ(erro.Description(), L"recusada: PWD=***");
}

TEST(CurrentErroOfAConnection, LeavesTheComponentsOwnWords) {
  const Erro erro = Caught(Erro(10, L"KodraRpt", L"módulo AB 1;PWD=segredo"));
  EXPECT_EQ(erro.Number(), 10);
  EXPECT_EQ(erro.Source(), L"KodraRpt");
  EXPECT_EQ(erro.Description(), L"módulo AB 1;PWD=segredo");
}

}  // namespace
}  // namespace kodra::values

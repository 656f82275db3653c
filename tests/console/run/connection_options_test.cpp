#include "console/run/connection_options.h"

#include <gtest/gtest.h>

namespace kodra::console {
namespace {

TEST(WithPassword, AddsAPasswordAtTheEnd) {
  EXPECT_EQ(WithPassword(L"DSN=Acervo;UID=ana", L"x1"), L"DSN=Acervo;UID=ana;PWD=x1;");
  EXPECT_EQ(WithPassword(L"DSN=Acervo;", L"x1"), L"DSN=Acervo;PWD=x1;");
}

TEST(WithPassword, QuotesAPasswordThatIsNotAPlainValue) {
  EXPECT_EQ(WithPassword(L"DSN=D", L"a;b"), L"DSN=D;PWD=\"a;b\";");
  EXPECT_EQ(WithPassword(L"DSN=D", L"{a}"), L"DSN=D;PWD=\"{a}\";");
  EXPECT_EQ(WithPassword(L"DSN=D", L"a\"b"), L"DSN=D;PWD=\"a\"\"b\";");
  EXPECT_EQ(WithPassword(L"DSN=D", L" a"), L"DSN=D;PWD=\" a\";");
  EXPECT_EQ(WithPassword(L"DSN=D", L""), L"DSN=D;PWD=\"\";");
}

}  // namespace
}  // namespace kodra::console

#include "odbc/engine/utf8_locale.h"

#include <gtest/gtest.h>
#include <langinfo.h>

#include <string>

namespace kodra::odbc {
namespace {

TEST(Utf8Locale, TheThreadsCharacterSetIsUtf8WhileItLivesAndTheFormerOneAfterwards) {
  const std::string former = nl_langinfo(CODESET);
  {
    const Utf8Locale utf8;
    EXPECT_STREQ(nl_langinfo(CODESET), "UTF-8");
  }
  EXPECT_EQ(nl_langinfo(CODESET), former);
}

TEST(Utf8Locale, OneInsideAnotherLeavesTheOuterOneInForce) {
  const Utf8Locale outer;
  { const Utf8Locale inner; }
  EXPECT_STREQ(nl_langinfo(CODESET), "UTF-8");
}

}  // namespace
}  // namespace kodra::odbc

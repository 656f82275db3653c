// Texts made safe for a page.
#include "console/formats/html/html.h"

#include <gtest/gtest.h>

namespace kodra::console::html {
namespace {

TEST(Html, EscapesWhatATextMayNotHold) {
  EXPECT_EQ(Escaped(L"a\tb\nc\r"), "a\tb\nc\r");
  EXPECT_EQ(Escaped(L"<b>\"A\" & B</b>\x01 é"), "&lt;b&gt;&quot;A&quot; &amp; B&lt;/b&gt;  é");
}

TEST(Html, EscapesAStyleTextSoThatItEndsWhereItShould) {
  EXPECT_EQ(StyleText(L"a\"b\\c</style>\né"), "\"a\\22 b\\5c c\\3c /style>\\a é\"");
}

TEST(Html, OpensAPageThatNeedsNothingElse) {
  const std::string page = PageOpening(L"A & B", "p{color:red}");
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n<html lang=\"pt-BR\">\n<head>\n<meta charset=\"utf-8\">\n"));
  EXPECT_NE(page.find("<title>A &amp; B</title>"), page.npos);
  for (const char* outside : {"http:", "https:", "src=", "href=", "@import", "url("})
    EXPECT_EQ(page.find(outside), page.npos);
}

}  // namespace
}  // namespace kodra::console::html

// A document's line on the withdrawal slip, without any database.
#include <gtest/gtest.h>

#include "reports/documents/slip_text.h"
#include "tests/recorder/journal.h"

namespace kodra::reports {
namespace {

using recorder::Utf8;

TEST(PlaceTextTest, NamesTheCoordinatesThatAreKnown) {
  EXPECT_EQ(Utf8(PlaceText(L"1", L"2", L"3")), "fileira 1, estante 2, prateleira 3");
  EXPECT_EQ(Utf8(PlaceText(L"1", L"", L"3")), "fileira 1, prateleira 3");
  EXPECT_EQ(Utf8(PlaceText(L"", L"2", L"")), "estante 2");
  EXPECT_EQ(Utf8(PlaceText(L"", L"", L"3")), "prateleira 3");
  EXPECT_EQ(Utf8(PlaceText(L" ", L"0", L"3, ")), "fileira  , estante 0, prateleira 3, ");
}

TEST(PlaceTextTest, IsEmptyWithoutCoordinates) { EXPECT_EQ(PlaceText(L"", L"", L""), L""); }

TEST(DocumentLineTest, HasTheModuleAndThePlaceInParentheses) {
  EXPECT_EQ(Utf8(DocumentLine(L"D0001", L"AB001", L"prateleira 3")),
            "* D0001, no módulo de guarda AB001 (prateleira 3)");
}

TEST(DocumentLineTest, HasNoParenthesesWithoutPlace) {
  EXPECT_EQ(Utf8(DocumentLine(L"D0001", L"AB001", L"")), "* D0001, no módulo de guarda AB001");
  EXPECT_EQ(Utf8(DocumentLine(L"", L"", L"")), "* , no módulo de guarda ");
}

}  // namespace
}  // namespace kodra::reports

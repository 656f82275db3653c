// Names as people type them.
#include "console/command_line/suggest.h"

#include <gtest/gtest.h>

namespace kodra::console {
namespace {

TEST(FoldedTest, RemovesLetterCaseAndAccents) {
  EXPECT_EQ(Folded("ÇãoÉ_Ü9x"), "caoe_u9x");
  EXPECT_EQ(Folded("ÁÀÂÃÄÇÉÈÊËÍÌÎÏÑÓÒÔÕÖÚÙÛÜ"), "aaaaaceeeeiiiinooooouuuu");
  EXPECT_EQ(Folded(""), "");
}

TEST(FoldedTest, KeepsOtherCharacters) { EXPECT_EQ(Folded("€ Ω 7."), "€ Ω 7."); }

TEST(NearestTest, CountsASwapOfNeighboursAsOneEdit) { EXPECT_EQ(Nearest("abdce", {"abxye", "abcde"}), "abcde"); }

TEST(NearestTest, ReturnsTheFirstOfEquallyNearNames) { EXPECT_EQ(Nearest("lisa", {"lista", "liga"}), "lista"); }

TEST(NearestTest, IgnoresLetterCaseAndAccents) { EXPECT_EQ(Nearest("AÇÃO", {"Evento", "Acao"}), "Acao"); }

TEST(NearestTest, ReturnsNothingIfEvenTheNearestIsFar) {
  EXPECT_EQ(Nearest("xyz", {"lista", "sql"}), std::nullopt);
  EXPECT_EQ(Nearest("lista", {}), std::nullopt);
}

TEST(NearestTest, ToleratesAThirdOfALongName) {
  EXPECT_EQ(Nearest("RelatorioDepar", {"RelatorioDeptos"}), "RelatorioDeptos");
  EXPECT_EQ(Nearest("abc", {"abcxyz"}), std::nullopt);
}

TEST(DidYouMeanTest, IsTheEndOfAMessage) {
  EXPECT_EQ(DidYouMean("lsta", {"sql", "lista"}), " (quis dizer \"lista\"?)");
  EXPECT_EQ(DidYouMean("qwerty", {"sql", "lista"}), "");
}

}  // namespace
}  // namespace kodra::console

#include "console/routines/file_name.h"

#include <gtest/gtest.h>

#include "tests/console/failing.h"

namespace kodra::console::routines {
namespace {

const std::map<std::string, std::string> kTexts = {{"ano", "2024"}, {"saida", "entradas/saídas: \"março\"?"}};

TEST(FilledTest, ReplacesEachWordInAnyLetterCase) {
  EXPECT_EQ(Filled("{ano}/a-{ANO}.csv", kTexts), "2024/a-2024.csv");
  EXPECT_EQ(Filled("a.csv", kTexts), "a.csv");
  EXPECT_EQ(Filled("", kTexts), "");
}

TEST(FilledTest, KeepsATextFromNamingAnotherFolder) {
  EXPECT_EQ(Filled("{saída}.csv", kTexts), "entradas-saídas- -março--.csv");
}

TEST(FilledTest, RefusesAnUnknownWordAndABraceAlone) {
  EXPECT_EQ(RefusalOf([] { Filled("{anno}.csv", kTexts); }),
            "{anno} não existe aqui (quis dizer \"ano\"?); há {ano}, {saida}");
  for (const char* const pattern : {"{ano.csv", "ano}.csv"})
    EXPECT_EQ(RefusalOf([&] { Filled(pattern, kTexts); }),
              std::string("\"") + pattern + "\" tem uma chave sem o seu par");
}

}  // namespace
}  // namespace kodra::console::routines

// The installation's own names for its taxonomy.
#include "reports/statistics/taxonomy_names.h"

#include <gtest/gtest.h>

#include "tests/recorder/raised.h"
#include "tests/reports/statistics/taxonomy_fakes.h"

namespace kodra::reports {
namespace {

using recorder::FakeSurroundings;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Utf8;

constexpr auto kConnectionString = L"Provider=Outro";

TEST(TaxonomyNameTest, IsReadByItsParameter) {
  FakeSurroundings around;
  Naming(L"Série", L"Subgrupo")(around);
  EXPECT_EQ(Utf8(TaxonomyName(L"NOME_SERIE", kConnectionString, around)), "Série");
  EXPECT_EQ(Utf8(TaxonomyName(L"NOME_SUBGRUPO", kConnectionString, around)), "Subgrupo");
}

TEST(TaxonomyNameTest, IsTextWhateverItIsStoredAs) {
  const std::pair<Value, std::string> kNames[] = {
      {L"", ""}, {Null{}, ""}, {Empty{}, ""}, {12, "12"}, {true, "Verdadeiro"}};
  for (const auto& [stored, name] : kNames) {
    FakeSurroundings around;
    Naming(stored, L"")(around);
    EXPECT_EQ(Utf8(TaxonomyName(L"NOME_SERIE", kConnectionString, around)), name);
  }
}

TEST(TaxonomyNameTest, NeedsTheParameterComponent) {
  FakeSurroundings around;
  EXPECT_EQ(RaisedBy([&] { TaxonomyName(L"NOME_SERIE", kConnectionString, around); }),
            (Raised{429, "modObtedorParamSist::ObtemParametroSistema",
                    R"(Não foi possível criar objeto da classe "KodraParamSist.Obtedor".)"}));
}

TEST(StatisticsTitleTest, HasTheNameInUpperCase) {
  EXPECT_EQ(Utf8(StatisticsTitle(L"Subgrupo")), "'ESTATÍSTICAS POR SUBGRUPO'");
  EXPECT_EQ(Utf8(StatisticsTitle(L"espécie documental")), "'ESTATÍSTICAS POR ESPÉCIE DOCUMENTAL'");
  EXPECT_EQ(Utf8(StatisticsTitle(L"")), "'ESTATÍSTICAS POR '");
}

}  // namespace
}  // namespace kodra::reports

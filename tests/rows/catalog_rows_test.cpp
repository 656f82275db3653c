// The catalogs.
#include "tests/rows/cases.h"
#include "tests/rows/sample.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kMedia{L"CCDRpt", L"RelatorioMidias"};
const std::vector<std::wstring> kMediaColumns{L"NUM_CD", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_GRAVACAO", L"RELATORIO"};

// Media without a type or a recording date are listed too.
Table Media() {
  Table expected(kMediaColumns);
  for (const Cd& cd : All<Cd>()) {
    expected.Add(cd.numCd, cd.docInicial, cd.docFinal, cd.dataGravacao, L"Todas as Mídias");
  }
  return expected;
}

// The media whose term ended today or earlier.
Table ExpiredMedia() {
  Table expected(kMediaColumns);
  for (const Cd& cd : All<Cd>()) {
    const TipoMidia* type = Find(&TipoMidia::codMidia, cd.codMidia);
    if (type == nullptr || !type->validadeMidia || !cd.dataGravacao) continue;
    if (AddYears(*cd.dataGravacao, *type->validadeMidia) > Today()) continue;
    expected.Add(cd.numCd, cd.docInicial, cd.docFinal, cd.dataGravacao, L"Mídias Vencidas");
  }
  EXPECT_LT(expected.rows.size(), All<Cd>().size());
  return expected;
}

Table MediaTypes() {
  Table expected({L"DESCR_MIDIA", L"VALIDADE_MIDIA", L"CAPACIDADE_MIDIA"});
  for (const TipoMidia& type : All<TipoMidia>()) {
    expected.Add(type.descrMidia, type.validadeMidia, type.capacidadeMidia);
  }
  return expected;
}

Table Supports() {
  Table expected({L"DESCR_SUPORTE"});
  for (const Suporte& support : All<Suporte>()) expected.Add(support.descrSuporte);
  return expected;
}

Table Depositories() {
  Table expected({L"NOME", L"ENDERECO", L"CIDADE", L"ESTADO", L"CEP", L"TELEFONE", L"FAX", L"CONTATO"});
  for (const Deposito& d : All<Deposito>()) {
    expected.Add(d.nome, d.endereco, d.cidade, d.estado, d.cep, d.telefone, d.fax, d.contato);
  }
  return expected;
}

Table Departments() {
  Table expected({L"DESCR_DEPTO", L"ENDERECO", L"CIDADE", L"ESTADO", L"CEP", L"END_EMAIL"});
  for (const Depto& d : All<Depto>()) expected.Add(d.descrDepto, d.endereco, d.cidade, d.estado, d.cep, d.endEmail);
  return expected;
}

Table Groups() {
  Table expected({L"DESCR_CLASSE", L"OBS_CLASSE"});
  for (const Classe& group : All<Classe>()) expected.Add(group.descrClasse, group.obsClasse);
  return expected;
}

// The reserved type is not listed.
Table ModuleTypes() {
  Table expected({L"DESCR_TIPO_CX", L"NUM_MAX_DOCS", L"NUM_MAX_FOLHAS"});
  for (const TipoCaixa& type : All<TipoCaixa>()) {
    if (type.codTipoCx != L"0") expected.Add(type.descrTipoCx, type.numMaxDocs, type.numMaxFolhas);
  }
  EXPECT_EQ(expected.rows.size() + 1, All<TipoCaixa>().size());
  return expected;
}

Table OperatorGroups() {
  Table expected({L"DESCR_GRPOP", L"OBS_GRPOP"});
  for (const GrupoOperadores& group : All<GrupoOperadores>()) expected.Add(group.descrGrpop, group.obsGrpop);
  return expected;
}

std::vector<Case> Catalogs() {
  std::vector<Case> cases{
      {"MediaTypes", {L"CTipo_MidiaRpt", L"RelatorioTiposMidia"}, {}, MediaTypes, {L"DESCR_MIDIA"}},
      {"Supports", {L"CSuporteRpt", L"RelatorioSuportes"}, {}, Supports, {L"DESCR_SUPORTE"}},
      {"Depositories", {L"CDepositoRpt", L"RelatorioDepositos"}, {}, Depositories, {L"NOME"}},
      {"Departments", {L"CDeptoRpt", L"RelatorioDeptos"}, {}, Departments, {L"DESCR_DEPTO"}},
      {"Groups", {L"CGrupoRpt", L"RelatorioGrupos"}, {}, Groups, {L"DESCR_CLASSE"}},
      {"ModuleTypesWithoutTheReservedOne",
       {L"CTipo_CaixaRpt", L"RelatorioTiposModulo"},
       {},
       ModuleTypes,
       {L"DESCR_TIPO_CX"}},
      {"OperatorGroups", {L"CGrupoOperadorRpt", L"RelatorioGruposOperadores"}, {}, OperatorGroups, {L"DESCR_GRPOP"}},
      {"AllMediaUnlessAKindIsAskedFor", kMedia, {}, Media, {L"NUM_CD"}},
      {"AllMediaOfNoKind", kMedia, {{L"TipoRpt", L""}}, Media, {L"NUM_CD"}},
      {"AllMediaOfTheKindOfAll", kMedia, {{L"TipoRpt", L"T"}}, Media, {L"NUM_CD"}},
      {"AllMediaOfTheKindOfAllAtLength", kMedia, {{L"TipoRpt", L"todas"}}, Media, {L"NUM_CD"}},
      {"AllMediaOfAnyOtherKind", kMedia, {{L"TipoRpt", L"1"}}, Media, {L"NUM_CD"}},
  };
  for (const auto& [name, kind] : {std::pair("ExpiredMedia", L"V"), std::pair("ExpiredMediaAtLength", L"vencidas")})
    cases.push_back({name, kMedia, {{L"TipoRpt", kind}}, ExpiredMedia, {L"NUM_CD"}, AddsNoYearsToADate});
  return cases;
}
INSTANTIATE_TEST_SUITE_P(Catalogs, ReportRows, testing::Combine(testing::ValuesIn(Catalogs()), BothEngines()),
                         CaseName);

TEST(CatalogOnSqlite, NoMediaAreEverExpired) {
  ASSERT_FALSE(ExpiredMedia().rows.empty());
  ExpectNoRows(RowsAt(SampleOn(Engine::kSqlite), kMedia, {{L"TipoRpt", L"V"}}), kMediaColumns);
}

class EmptyCatalogs : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, EmptyCatalogs, BothEngines(), EngineName);

TEST_P(EmptyCatalogs, HaveTheirColumnsAndNoRow) {
  ExpectNoRows(RowsAt(EmptyOn(GetParam()), {L"CSuporteRpt", L"RelatorioSuportes"}), {L"DESCR_SUPORTE"});
}

TEST(CatalogOnSqlite, AMissingFileIsNamed) {
  EXPECT_EQ(ErrorAt(SqliteFile(kMissingFile), {L"CDeptoRpt", L"RelatorioDeptos"}),
            Framed(L"CDeptoRpt::RelatorioDeptos", kFileIsMissing));
}

}  // namespace
}  // namespace kodra::rows

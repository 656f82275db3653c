// The registers: the same rows on both databases.
#include "reports/catalog/cd_rpt.h"
#include "reports/catalog/deposito_rpt.h"
#include "reports/catalog/depto_rpt.h"
#include "reports/catalog/grupo_operador_rpt.h"
#include "reports/catalog/grupo_rpt.h"
#include "reports/catalog/suporte_rpt.h"
#include "reports/catalog/tipo_caixa_rpt.h"
#include "reports/catalog/tipo_midia_rpt.h"
#include "testbed/archive/generator.h"
#include "tests/db/reports_on.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class CatalogRows : public OnBoth {};
class CatalogOnSqlite : public OnSqlite {};
class CatalogOnMariaDb : public OnMariaDb {};
KODRA_ON_BOTH_DATABASES(CatalogRows);

const std::vector<std::wstring> kMediaColumns{L"NUM_CD", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_GRAVACAO", L"RELATORIO"};

TEST_P(CatalogRows, AllMediaComeByNumberEvenWithoutATypeOrARecordingDate) {
  Table expected(kMediaColumns);
  for (const Cd& cd : All<Cd>()) {
    expected.Add(cd.numCd, cd.docInicial, cd.docFinal, cd.dataGravacao, L"Todas as Mídias");
  }
  ExpectRows(RowsOf(&CCDRpt::RelatorioMidias, Parameters(L"CCDRptObj")), expected, {L"NUM_CD"});
  ExpectRows(RowsOf(&CCDRpt::RelatorioMidias, Parameters(L"CCDRptObj", {{L"TipoRpt", L"todas"}})), expected,
             {L"NUM_CD"});
}

TEST_P(CatalogRows, MediaTypes) {
  Table expected({L"DESCR_MIDIA", L"VALIDADE_MIDIA", L"CAPACIDADE_MIDIA"});
  for (const TipoMidia& type : All<TipoMidia>()) {
    expected.Add(type.descrMidia, type.validadeMidia, type.capacidadeMidia);
  }
  ExpectRows(RowsOf(&CTipo_MidiaRpt::RelatorioTiposMidia, Parameters(L"CTipo_MidiaRptObj")), expected,
             {L"DESCR_MIDIA"});
}

TEST_P(CatalogRows, Supports) {
  Table expected({L"DESCR_SUPORTE"});
  for (const Suporte& support : All<Suporte>()) expected.Add(support.descrSuporte);
  ExpectRows(RowsOf(&CSuporteRpt::RelatorioSuportes, Parameters(L"CSuporteRptObj")), expected, {L"DESCR_SUPORTE"});
}

TEST_P(CatalogRows, Depositories) {
  Table expected({L"NOME", L"ENDERECO", L"CIDADE", L"ESTADO", L"CEP", L"TELEFONE", L"FAX", L"CONTATO"});
  for (const Deposito& d : All<Deposito>()) {
    expected.Add(d.nome, d.endereco, d.cidade, d.estado, d.cep, d.telefone, d.fax, d.contato);
  }
  ExpectRows(RowsOf(&CDepositoRpt::RelatorioDepositos, Parameters(L"CDepositoRptObj")), expected, {L"NOME"});
}

TEST_P(CatalogRows, Departments) {
  Table expected({L"DESCR_DEPTO", L"ENDERECO", L"CIDADE", L"ESTADO", L"CEP", L"END_EMAIL"});
  for (const Depto& d : All<Depto>()) expected.Add(d.descrDepto, d.endereco, d.cidade, d.estado, d.cep, d.endEmail);
  ExpectRows(RowsOf(&CDeptoRpt::RelatorioDeptos, Parameters(L"CDeptoRptObj")), expected, {L"DESCR_DEPTO"});
}

TEST_P(CatalogRows, Groups) {
  Table expected({L"DESCR_CLASSE", L"OBS_CLASSE"});
  for (const Classe& group : All<Classe>()) expected.Add(group.descrClasse, group.obsClasse);
  ExpectRows(RowsOf(&CGrupoRpt::RelatorioGrupos, Parameters(L"CGrupoRptObj")), expected, {L"DESCR_CLASSE"});
}

TEST_P(CatalogRows, ModuleTypesWithoutTheReservedOne) {
  Table expected({L"DESCR_TIPO_CX", L"NUM_MAX_DOCS", L"NUM_MAX_FOLHAS"});
  for (const TipoCaixa& type : All<TipoCaixa>()) {
    if (type.codTipoCx != L"0") expected.Add(type.descrTipoCx, type.numMaxDocs, type.numMaxFolhas);
  }
  ASSERT_LT(expected.rows.size(), All<TipoCaixa>().size());
  ExpectRows(RowsOf(&CTipo_CaixaRpt::RelatorioTiposModulo, Parameters(L"CTipo_CaixaRptObj")), expected,
             {L"DESCR_TIPO_CX"});
}

TEST_P(CatalogRows, OperatorGroups) {
  Table expected({L"DESCR_GRPOP", L"OBS_GRPOP"});
  for (const GrupoOperadores& group : All<GrupoOperadores>()) expected.Add(group.descrGrpop, group.obsGrpop);
  ExpectRows(RowsOf(&CGrupoOperadorRpt::RelatorioGruposOperadores, Parameters(L"CGrupoOperadorRptObj")), expected,
             {L"DESCR_GRPOP"});
}

TEST_P(CatalogRows, AnEmptyRegisterGivesItsColumnsAndNoRow) {
  ReadTheEmptyArchive();
  ExpectNoRows(RowsOf(&CSuporteRpt::RelatorioSuportes, Parameters(L"CSuporteRptObj")), {L"DESCR_SUPORTE"});
}

TEST_P(CatalogRows, AMissingParameterObjectAndAMissingConnectionStringAreToldBeforeAnythingIsOpened) {
  CDeptoRpt report(Machine());
  auto obj = Parameters(L"CDeptoRptObj");
  EXPECT_EQ(RaisedBy([&] { report.RelatorioDeptos(&obj); }),
            Framed(L"CDeptoRpt::RelatorioDeptos", L"É preciso definir a propriedade \"StringConexao\"."));
  report.SetStringConexao(ConnectionString());
  EXPECT_EQ(RaisedBy([&] { report.RelatorioDeptos(nullptr); }),
            Framed(L"CDeptoRpt::RelatorioDeptos", L"Objeto não definido."));
  EXPECT_FALSE(Read(*report.RelatorioDeptos(&obj)).rows.empty());
}

TEST_F(CatalogOnMariaDb, ExpiredMediaAreThoseWhoseTermEndedTodayOrBefore) {
  Table expected(kMediaColumns);
  for (const Cd& cd : All<Cd>()) {
    const TipoMidia* type = Find(&TipoMidia::codMidia, cd.codMidia);
    if (type == nullptr || !type->validadeMidia || !cd.dataGravacao) continue;
    if (AddYears(*cd.dataGravacao, *type->validadeMidia) > Today()) continue;
    expected.Add(cd.numCd, cd.docInicial, cd.docFinal, cd.dataGravacao, L"Mídias Vencidas");
  }
  ASSERT_LT(expected.rows.size(), All<Cd>().size());
  for (const wchar_t* kind : {L"V", L"vencidas"}) {
    ExpectRows(RowsOf(&CCDRpt::RelatorioMidias, Parameters(L"CCDRptObj", {{L"TipoRpt", kind}})), expected, {L"NUM_CD"});
  }
}

// SQLite's date addition quotes the column's name: the sum is of a text that is no date, and so a null.
TEST_F(CatalogOnSqlite, NoMediaAreEverExpired) {
  ExpectNoRows(RowsOf(&CCDRpt::RelatorioMidias, Parameters(L"CCDRptObj", {{L"TipoRpt", L"V"}})), kMediaColumns);
}

TEST_F(CatalogOnSqlite, AFileThatIsNotThereIsNamed) {
  CDeptoRpt report(Machine());
  report.SetStringConexao(L"Driver={SQLite3};Database=/nao/existe/acervo.db;");
  auto obj = Parameters(L"CDeptoRptObj");
  EXPECT_EQ(RaisedBy([&] { report.RelatorioDeptos(&obj); }),
            Framed(L"CDeptoRpt::RelatorioDeptos",
                   L"[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados "
                   L"\"/nao/existe/acervo.db\" não encontrado."));
}

}  // namespace
}  // namespace kodra::tests

// The indexing statistics. On SQLite no document lies in a period, for the reason of the imaging statistics.
#include "reports/statistics/estat_index_rpt.h"
#include "tests/db/estat_rows.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class EstatIndexRows : public OnBoth {};
KODRA_ON_BOTH_DATABASES(EstatIndexRows);
class EstatIndexOnMariaDb : public OnMariaDb {};
class EstatIndexOnSqlite : public OnSqlite {};

const std::vector<std::wstring> kDocumentColumns{L"TIT1",      L"OPERADOR", L"DEPTO", L"DATA_INDEXACAO",
                                                 L"COD_DOCTO", L"FUNDO",    L"OWNER"};

frame::ParameterObject Obj(const Period& period, const Text& indexer = {}, const Text& department = {}) {
  return Reports::Parameters(L"CEstatIndexRptObj", {{L"Owner", L"Arquivo Geral"},
                                                    {L"DataInicial", DateOf(period.first)},
                                                    {L"DataFinal", DateOf(period.last)},
                                                    {L"CodOperador", indexer},
                                                    {L"CodDepto", department}});
}

Table Expected(const Period& period, const Text& indexer = {}, const Text& department = {}) {
  Table table(kDocumentColumns);
  for (const Documento& d : Reports::All<Documento>()) {
    if (!Within(d.dataIndexacao, period)) continue;
    if (!indexer.empty() && d.codIndexador != indexer) continue;
    if (!department.empty() && d.codDepto != department) continue;
    table.Add(Title(period),
              indexer.empty() ? L"Todos os Operadores" : *Reports::Find(&Operador::codOperador, indexer)->descrOperador,
              department.empty() ? L"Todos os Departamentos" : *Reports::Find(&Depto::codDepto, department)->descrDepto,
              d.dataIndexacao, d.codDocto, Reports::Company(), L"Arquivo Geral");
  }
  return table;
}

Period WholeArchive() { return {std::chrono::year(2010) / 1 / 1, std::chrono::year(2023) / 1 / 1}; }

TEST_F(EstatIndexOnMariaDb, EveryIndexedDocumentOfThePeriodWhateverItsModuleAndSupport) {
  const Table whole = Expected(WholeArchive());
  ExpectRows(RowsOf(&CEstatIndexRpt::RelatorioEstatisticasPorDocumento, Obj(WholeArchive())), whole);
  const Period part = StoredBetween(100, 300);
  ExpectRows(RowsOf(&CEstatIndexRpt::RelatorioEstatisticasPorDocumento, Obj(part)), Expected(part));
}

TEST_F(EstatIndexOnMariaDb, TheOperatorIsTheIndexer) {
  const Documento& some = All<Documento>()[100];
  ASSERT_NE(some.codIndexador, some.codOperador);
  const Period period = WholeArchive();
  const Text indexer = *some.codIndexador;
  ExpectRows(RowsOf(&CEstatIndexRpt::RelatorioEstatisticasPorDocumento, Obj(period, indexer)),
             Expected(period, indexer));
  ExpectRows(RowsOf(&CEstatIndexRpt::RelatorioEstatisticasPorDocumento, Obj(period, indexer, *some.codDepto)),
             Expected(period, indexer, *some.codDepto));
}

TEST_F(EstatIndexOnSqlite, NoDocumentLiesInAnyPeriod) {
  ExpectNoRows(RowsOf(&CEstatIndexRpt::RelatorioEstatisticasPorDocumento, Obj(WholeArchive())), kDocumentColumns);
}

frame::ParameterObject Keywords(const wchar_t* third) {
  return Reports::Parameters(L"CEstatIndexRptObj", {{L"Owner", L"Arquivo Geral"},
                                                    {L"DataInicial", DateOf(WholeArchive().first)},
                                                    {L"DataFinal", DateOf(WholeArchive().last)},
                                                    {L"DescrOperador", L"joao.goncalves"},
                                                    {L"DescrDepto", L"Expedição"},
                                                    {L"NumeroPC1", L"10"},
                                                    {L"NumeroPC2", L"9"},
                                                    {L"NumeroPC3", third},
                                                    {L"NumeroPC4", L"2+5"},
                                                    {L"NumeroPC5", L"0"},
                                                    {L"NumeroObs", L"3"}});
}

const std::vector<std::wstring> kKeywordColumns{L"TIT1", L"OPERADOR", L"DEPTO", L"PC1",   L"PC2",  L"PC3",
                                                L"PC4",  L"PC5",      L"OBS",   L"FUNDO", L"OWNER"};

TEST_P(EstatIndexRows, KeywordsAreOneRowOfWhatTheClientCounted) {
  Table expected(kKeywordColumns);
  expected.Add(Title(WholeArchive()), L"joao.goncalves", L"Expedição", std::int64_t{10}, std::int64_t{9},
               std::int64_t{8}, std::int64_t{7}, std::int64_t{0}, std::int64_t{3}, Company(), L"Arquivo Geral");
  ExpectRows(RowsOf(&CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave, Keywords(L"8")), expected);
}

TEST_P(EstatIndexRows, KeywordsAreNoRowWithoutTheRowOfParameters) {
  ReadTheEmptyArchive();
  ExpectNoRows(RowsOf(&CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave, Keywords(L"8")), kKeywordColumns);
}

TEST_F(EstatIndexOnSqlite, AKeywordCountThatIsMissingIsAnErrorOfTheStatement) {
  EXPECT_EQ(
      ErrorOf(&CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave, Keywords(L"")),
      Framed(L"CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave", RefusedBySqlite(L"near \"AS\": syntax error")));
}

TEST_F(EstatIndexOnMariaDb, AKeywordCountThatIsMissingIsAnErrorOfTheStatement) {
  const Raised raised = ErrorOf(&CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave, Keywords(L""));
  EXPECT_EQ(raised.number, frame::kReportError);
  EXPECT_EQ(raised.source, L"KodraRpt.CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave");
  // Between the driver's name and the server's message stand their versions.
  EXPECT_TRUE(raised.description.starts_with(
      L"Erro ao gerar dados para o relatório: [Microsoft OLE DB Provider for ODBC Drivers]: [ma-"));
  EXPECT_NE(raised.description.find(L"right syntax to use near 'AS PC3, 2+5 AS PC4, 0 AS PC5, 3 AS OBS, "),
            std::wstring::npos);
  EXPECT_TRUE(raised.description.ends_with(L" [N:1064]"));
}

}  // namespace
}  // namespace kodra::tests

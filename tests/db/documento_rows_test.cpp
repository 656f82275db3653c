// The document listings. A period reaches MariaDB as two days without time; SQLite cannot read one at all.
#include <functional>

#include "reports/documents/documento_rpt.h"
#include "tests/db/reports_on.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class DocumentoRows : public OnBoth {};
KODRA_ON_BOTH_DATABASES(DocumentoRows);
class DocumentoOnSqlite : public OnSqlite {};
class DocumentoOnMariaDb : public OnMariaDb {};

using Filter = std::function<bool(const Documento&)>;
bool Any(const Documento&) { return true; }

Table Summary(const Filter& filter) {
  Table rows({L"COD_DOCTO", L"DESCR_SUPORTE", L"NUM_CAIXA", L"NUM_CD", L"DT_ARMAZ", L"DT_VENC", L"FRENTE", L"VERSO"});
  for (const Documento& d : Reports::All<Documento>()) {
    const Suporte* support = Reports::Find(&Suporte::codSuporte, d.codSuporte);
    if (support == nullptr || !filter(d)) continue;
    rows.Add(d.codDocto, support->descrSuporte, d.numCaixa, d.numCd, d.dtArmaz, d.dtVenc, d.frente, d.verso);
  }
  return rows;
}

Table Detail(const Filter& filter) {
  Table rows({L"COD_DOCTO", L"DESCR_GRUPO", L"DESCR_ASSUNTO", L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3",
              L"DESCR_CHAVE4", L"DESCR_CHAVE5", L"DESCR_OPERADOR", L"DESCR_SUPORTE", L"DT_ARMAZ", L"ARQUIVO", L"OBS",
              L"FRENTE", L"NUM_CAIXA", L"DT_VENC", L"VERSO", L"NUM_CD"});
  for (const Documento& d : Reports::All<Documento>()) {
    const Suporte* support = Reports::Find(&Suporte::codSuporte, d.codSuporte);
    const Operador* keeper = Reports::Find(&Operador::codOperador, d.codOperador);
    const Assunto* series = Reports::Find(&Assunto::codAssunto, d.codAssunto);
    const Grupo* subgroup = Reports::Find(&Grupo::codGrupo, d.codGrupo);
    if (support == nullptr || keeper == nullptr || series == nullptr || subgroup == nullptr || !filter(d)) continue;
    const FiveTexts& keys = d.descrChave;
    rows.Add(d.codDocto, subgroup->descrGrupo, series->descrAssunto, keys[0], keys[1], keys[2], keys[3], keys[4],
             keeper->descrOperador, support->descrSuporte, d.dtArmaz, d.arquivo, d.obs, d.frente, d.numCaixa, d.dtVenc,
             d.verso, d.numCd);
  }
  return rows;
}

Table Inventory(const Filter& filter) {
  Table rows({L"COD_DOCTO", L"DESCR_GRUPO", L"DESCR_ASSUNTO", L"NUM_CAIXA", L"MACO", L"DT_ARMAZ", L"ACHAVE1",
              L"ACHAVE2", L"ACHAVE3", L"ACHAVE4", L"ACHAVE5", L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3",
              L"DESCR_CHAVE4", L"DESCR_CHAVE5", L"OBS"});
  for (const Documento& d : Reports::All<Documento>()) {
    const Assunto* series = Reports::Find(&Assunto::codAssunto, d.codAssunto);
    const Grupo* subgroup = Reports::Find(&Grupo::codGrupo, d.codGrupo);
    if (series == nullptr || subgroup == nullptr || d.extensao != L"#INV" || !filter(d)) continue;
    const FiveTexts& captions = series->descrChave;
    const FiveTexts& keys = d.descrChave;
    rows.Add(d.codDocto, subgroup->descrGrupo, series->descrAssunto, d.numCaixa, d.maco, d.dtArmaz, captions[0],
             captions[1], captions[2], captions[3], captions[4], keys[0], keys[1], keys[2], keys[3], keys[4], d.obs);
  }
  return rows;
}

Day StorageDay(const Documento& d) { return std::chrono::floor<std::chrono::days>(*d.dtArmaz); }

// Stored in a period of days, the last one up to midnight.
Filter StoredIn(Period period) {
  return [=](const Documento& d) { return *d.dtArmaz >= period.first && *d.dtArmaz <= period.last; };
}

frame::ParameterObject Obj(Reports::Properties properties = {}) {
  return Reports::Parameters(L"CDocumentoRptObj", properties);
}
frame::ParameterObject Obj(Period period) {
  return Obj({{L"DataArmazenamento1", DateOf(period.first)}, {L"DataArmazenamento2", DateOf(period.last)}});
}

TEST_P(DocumentoRows, TheSummaryDropsDocumentsWithoutASupport) {
  const Table expected = Summary(Any);
  ASSERT_LT(expected.rows.size(), All<Documento>().size());
  ExpectRows(RowsOf(&CDocumentoRpt::RelatorioSintetico, Obj()), expected, {L"COD_DOCTO"});
}

TEST_P(DocumentoRows, TheDetailDropsDocumentsWithoutASubgroupASeriesOrAKeeper) {
  ExpectRows(RowsOf(&CDocumentoRpt::RelatorioAnalitico, Obj()), Detail(Any), {L"COD_DOCTO"});
}

TEST_P(DocumentoRows, TheInventoryHasItsOwnDocumentsOnly) {
  ExpectRows(RowsOf(&CDocumentoRpt::RelatorioInventarios, Obj()), Inventory(Any), {L"COD_DOCTO"});
}

TEST_P(DocumentoRows, OfOneDepartment) {
  const Text department = *All<Documento>()[7].codDepto;
  const Filter filter = [&](const Documento& d) { return d.codDepto == department; };
  const auto obj = [&] { return Obj({{L"CodDepto", department}}); };
  ExpectRows(RowsOf(&CDocumentoRpt::RelatorioSintetico, obj()), Summary(filter), {L"COD_DOCTO"});
  ExpectRows(RowsOf(&CDocumentoRpt::RelatorioAnalitico, obj()), Detail(filter), {L"COD_DOCTO"});
  ExpectRows(RowsOf(&CDocumentoRpt::RelatorioInventarios, obj()), Inventory(filter), {L"COD_DOCTO"});
}

TEST_P(DocumentoRows, AFirstDayWithoutALastOneIsNoPeriod) {
  ExpectRows(RowsOf(&CDocumentoRpt::RelatorioSintetico, Obj({{L"DataArmazenamento1", DateOf(Today())}})), Summary(Any),
             {L"COD_DOCTO"});
}

TEST_P(DocumentoRows, ADepartmentOfOneBlankIsNobodys) {
  ExpectNoRows(RowsOf(&CDocumentoRpt::RelatorioSintetico, Obj({{L"CodDepto", L" "}})), Summary(Any).columns);
}

TEST_P(DocumentoRows, AStreamKeepsItsConnectionWhenEverythingElseIsGone) {
  frame::ReportRows rows;
  {
    Reports client(GetParam());
    rows = client.Open(&CDocumentoRpt::RelatorioSintetico, Obj());
    rows->MoveNext();
  }
  Table expected = Summary(Any);
  expected.rows.erase(expected.rows.begin());
  ASSERT_GT(expected.rows.size(), 300U);  // several blocks of a hundred rows
  ExpectRows(Read(*rows), expected, {L"COD_DOCTO"});
}

TEST_F(DocumentoOnMariaDb, APeriodHasItsLastDayUpToMidnight) {
  // The last day of a period is a day on which one document was stored: at midnight, and in its last second.
  const std::vector<Documento>& documents = All<Documento>();
  for (const std::size_t last : {300U, 301U}) {
    const Period period{StorageDay(documents[200]), StorageDay(documents[last])};
    ASSERT_EQ(StoredIn(period)(documents[last]), last == 300U);
    ExpectRows(RowsOf(&CDocumentoRpt::RelatorioSintetico, Obj(period)), Summary(StoredIn(period)), {L"COD_DOCTO"});
    ExpectRows(RowsOf(&CDocumentoRpt::RelatorioAnalitico, Obj(period)), Detail(StoredIn(period)), {L"COD_DOCTO"});
    ExpectRows(RowsOf(&CDocumentoRpt::RelatorioInventarios, Obj(period)), Inventory(StoredIn(period)), {L"COD_DOCTO"});
  }
}

TEST_F(DocumentoOnMariaDb, APeriodWithoutAFirstDayBeginsWithTheZeroDate) {
  const Period period{std::chrono::year(1899) / 12 / 30, StorageDay(All<Documento>()[40])};
  ExpectRows(RowsOf(&CDocumentoRpt::RelatorioSintetico, Obj({{L"DataArmazenamento2", DateOf(period.last)}})),
             Summary(StoredIn(period)), {L"COD_DOCTO"});
}

TEST_F(DocumentoOnMariaDb, ADepartmentWithAQuoteIsAnErrorOfTheStatement) {
  const Raised raised = ErrorOf(&CDocumentoRpt::RelatorioSintetico, Obj({{L"CodDepto", L"D'Ávila"}}));
  EXPECT_EQ(raised.number, frame::kReportError);
  EXPECT_EQ(raised.source, L"KodraRpt.CDocumentoRpt::RelatorioSintetico");
  // Between the driver's name and the server's message stand their versions.
  EXPECT_TRUE(raised.description.starts_with(
      L"Erro ao gerar dados para o relatório: [Microsoft OLE DB Provider for ODBC Drivers]: [ma-"));
  EXPECT_TRUE(raised.description.ends_with(
      L"]You have an error in your SQL syntax; check the manual that corresponds to your MariaDB server version for "
      L"the right syntax to use near 'Ávila' ORDER BY d.COD_DOCTO' at line 1 [N:1064]"));
}

// SQLite's translation puts the bounds into the statement without quotes, hours and all.
TEST_F(DocumentoOnSqlite, APeriodIsAnErrorOfTheStatement) {
  const Period period{StorageDay(All<Documento>()[200]), StorageDay(All<Documento>()[300])};
  const std::wstring refusal = RefusedBySqlite(L"near \"00\": syntax error");
  EXPECT_EQ(ErrorOf(&CDocumentoRpt::RelatorioSintetico, Obj(period)),
            Framed(L"CDocumentoRpt::RelatorioSintetico", refusal));
  EXPECT_EQ(ErrorOf(&CDocumentoRpt::RelatorioAnalitico, Obj(period)),
            Framed(L"CDocumentoRpt::RelatorioAnalitico", refusal));
  EXPECT_EQ(ErrorOf(&CDocumentoRpt::RelatorioInventarios, Obj(period)),
            Framed(L"CDocumentoRpt::RelatorioInventarios", refusal));
}

TEST_F(DocumentoOnSqlite, ADepartmentWithAQuoteIsAnErrorOfTheStatement) {
  EXPECT_EQ(ErrorOf(&CDocumentoRpt::RelatorioSintetico, Obj({{L"CodDepto", L"D'Ávila"}})),
            Framed(L"CDocumentoRpt::RelatorioSintetico", RefusedBySqlite(L"near \"Ávila\": syntax error")));
}

}  // namespace
}  // namespace kodra::tests

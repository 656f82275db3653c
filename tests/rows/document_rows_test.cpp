// The document listings. MariaDB receives a period as two days without a time; SQLite cannot read a period.
#include <algorithm>

#include "tests/rows/cases.h"
#include "tests/rows/period.h"
#include "tests/rows/sample.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kSummary{L"CDocumentoRpt", L"RelatorioSintetico"};
const Report kDetail{L"CDocumentoRpt", L"RelatorioAnalitico"};
const Report kInventory{L"CDocumentoRpt", L"RelatorioInventarios"};

using Filter = std::function<bool(const Documento&)>;
bool Any(const Documento&) { return true; }

// Documents without a support are left out.
Table Summary(const Filter& filter) {
  Table rows({L"COD_DOCTO", L"DESCR_SUPORTE", L"NUM_CAIXA", L"NUM_CD", L"DT_ARMAZ", L"DT_VENC", L"FRENTE", L"VERSO"});
  for (const Documento& d : All<Documento>()) {
    const Suporte* support = Find(&Suporte::codSuporte, d.codSuporte);
    if (support == nullptr || !filter(d)) continue;
    rows.Add(d.codDocto, support->descrSuporte, d.numCaixa, d.numCd, d.dtArmaz, d.dtVenc, d.frente, d.verso);
  }
  EXPECT_LT(rows.rows.size(), All<Documento>().size());
  return rows;
}

// Documents without a support, a subgroup, a series or a keeper are left out.
Table Detail(const Filter& filter) {
  Table rows({L"COD_DOCTO", L"DESCR_GRUPO", L"DESCR_ASSUNTO", L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3",
              L"DESCR_CHAVE4", L"DESCR_CHAVE5", L"DESCR_OPERADOR", L"DESCR_SUPORTE", L"DT_ARMAZ", L"ARQUIVO", L"OBS",
              L"FRENTE", L"NUM_CAIXA", L"DT_VENC", L"VERSO", L"NUM_CD"});
  for (const Documento& d : All<Documento>()) {
    const Suporte* support = Find(&Suporte::codSuporte, d.codSuporte);
    const Operador* keeper = Find(&Operador::codOperador, d.codOperador);
    const Assunto* series = Find(&Assunto::codAssunto, d.codAssunto);
    const Grupo* subgroup = Find(&Grupo::codGrupo, d.codGrupo);
    if (support == nullptr || keeper == nullptr || series == nullptr || subgroup == nullptr || !filter(d)) continue;
    const FiveTexts& keys = d.descrChave;
    rows.Add(d.codDocto, subgroup->descrGrupo, series->descrAssunto, keys[0], keys[1], keys[2], keys[3], keys[4],
             keeper->descrOperador, support->descrSuporte, d.dtArmaz, d.arquivo, d.obs, d.frente, d.numCaixa, d.dtVenc,
             d.verso, d.numCd);
  }
  EXPECT_LT(rows.rows.size(), Summary(filter).rows.size());
  return rows;
}

bool IsInventory(const Documento& d) { return d.extensao == L"#INV"; }

// The documents of inventories that are indexed.
Table Inventory(const Filter& filter) {
  Table rows({L"COD_DOCTO", L"DESCR_GRUPO", L"DESCR_ASSUNTO", L"NUM_CAIXA", L"MACO", L"DT_ARMAZ", L"ACHAVE1",
              L"ACHAVE2", L"ACHAVE3", L"ACHAVE4", L"ACHAVE5", L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3",
              L"DESCR_CHAVE4", L"DESCR_CHAVE5", L"OBS"});
  for (const Documento& d : All<Documento>()) {
    const Assunto* series = Find(&Assunto::codAssunto, d.codAssunto);
    const Grupo* subgroup = Find(&Grupo::codGrupo, d.codGrupo);
    if (series == nullptr || subgroup == nullptr || !IsInventory(d) || !filter(d)) continue;
    const FiveTexts& captions = series->descrChave;
    const FiveTexts& keys = d.descrChave;
    rows.Add(d.codDocto, subgroup->descrGrupo, series->descrAssunto, d.numCaixa, d.maco, d.dtArmaz, captions[0],
             captions[1], captions[2], captions[3], captions[4], keys[0], keys[1], keys[2], keys[3], keys[4], d.obs);
  }
  return rows;
}

struct Listing {
  std::string name;
  Report report;
  Table (*rows)(const Filter& filter);
};
const Listing kListings[] = {
    {"Summary", kSummary, Summary}, {"Detail", kDetail, Detail}, {"Inventory", kInventory, Inventory}};

// The department of an inventory's document.
Text SomeDepartment() { return *All<Documento>()[7].codDepto; }

std::vector<Case> OnEveryEngine() {
  std::vector<Case> cases;
  const Text department = SomeDepartment();
  const Filter isOfDepartment = [=](const Documento& d) { return d.codDepto == department; };
  for (const auto& [name, report, rows] : kListings) {
    cases.push_back({name + "OfAllDocuments", report, {}, [rows = rows] { return rows(Any); }, {L"COD_DOCTO"}});
    cases.push_back({name + "OfOneDepartment",
                     report,
                     {{L"CodDepto", department}},
                     [=, rows = rows] { return rows(isOfDepartment); },
                     {L"COD_DOCTO"}});
  }
  // A first day without a last one is no period.
  for (const auto& [name, day] : {std::pair("SummaryFromTodayOnWithoutALastDay", Today()),
                                  std::pair("SummaryFromADayOnWithoutALastDay", Day(std::chrono::year(2020) / 1 / 1))})
    cases.push_back(
        {name, kSummary, {{L"DataArmazenamento1", DateOf(day)}}, [] { return Summary(Any); }, {L"COD_DOCTO"}});
  return cases;
}
INSTANTIATE_TEST_SUITE_P(Documents, ReportRows, testing::Combine(testing::ValuesIn(OnEveryEngine()), BothEngines()),
                         CaseName);

Properties StoredIn(const Period& period) {
  return {{L"DataArmazenamento1", DateOf(period.first)}, {L"DataArmazenamento2", DateOf(period.last)}};
}

// A period ends with the midnight that begins its last day.
std::vector<Case> Periods() {
  std::vector<Case> cases;
  for (const auto& [ending, last] : {std::pair("UpToADocumentOfMidnight", kStoredAtMidnight),
                                     std::pair("UpToADocumentOfTheLastSecond", kStoredInTheLastSecond)}) {
    for (const std::size_t first : {100U, 200U}) {
      for (const auto& [name, report, rows] : kListings) {
        const auto expected = [rows = rows, first, last = last] {
          const Period period = StoredBetween(first, last);
          EXPECT_EQ(Within(All<Documento>()[last].dtArmaz, period), last == kStoredAtMidnight);
          return rows([&](const Documento& d) { return Within(d.dtArmaz, period); });
        };
        cases.push_back({name + "FromDocument" + std::to_string(first) + ending,
                         report,
                         StoredIn(StoredBetween(first, last)),
                         expected,
                         {L"COD_DOCTO"}});
      }
    }
  }
  const Period years{std::chrono::year(2010) / 1 / 1, std::chrono::year(2016) / 12 / 31};
  Properties ofADepartment = StoredIn(years);
  ofADepartment.emplace_back(L"CodDepto", SomeDepartment());
  const Filter isOfBoth = [=](const Documento& d) {
    return Within(d.dtArmaz, years) && d.codDepto == SomeDepartment();
  };
  cases.push_back(
      {"SummaryOfADepartmentInAPeriod", kSummary, ofADepartment, [=] { return Summary(isOfBoth); }, {L"COD_DOCTO"}});
  // A period without a first day begins with the zero date.
  const Period open{std::chrono::year(1899) / 12 / 30, DayOf(*All<Documento>()[40].dtArmaz)};
  const Filter isBefore = [=](const Documento& d) { return Within(d.dtArmaz, open); };
  cases.push_back({"SummaryUpToADayWithoutAFirstDay",
                   kSummary,
                   {{L"DataArmazenamento2", DateOf(open.last)}},
                   [=] { return Summary(isBefore); },
                   {L"COD_DOCTO"}});
  return cases;
}
INSTANTIATE_TEST_SUITE_P(DocumentPeriods, ReportRows,
                         testing::Combine(testing::ValuesIn(Periods()), testing::Values(Engine::kMariaDb)), CaseName);

// SQLite's dialect writes the bounds, with their times, into the statement without quotes.
TEST(DocumentoOnSqlite, APeriodIsAnErrorOfTheStatement) {
  const std::wstring refusal = RefusedBySqlite(L"near \"00\": syntax error");
  for (const Period& period : {StoredBetween(200, kStoredAtMidnight),
                               Period{std::chrono::year(2010) / 1 / 1, std::chrono::year(2016) / 12 / 31}}) {
    for (const Listing& listing : kListings)
      EXPECT_EQ(ErrorAt(SampleOn(Engine::kSqlite), listing.report, StoredIn(period)),
                Framed(L"CDocumentoRpt::" + listing.report.method, refusal));
  }
}

class DocumentRows : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, DocumentRows, BothEngines(), EngineName);

TEST_P(DocumentRows, OfADepartmentOfOneBlankAreNone) {
  ExpectNoRows(RowsOf(kSummary, {{L"CodDepto", L" "}}), Summary(Any).columns);
}

TEST(DocumentArchive, HasInventoriesThatAreNotIndexed) {
  const auto& documents = All<Documento>();
  const auto inventories = std::count_if(documents.begin(), documents.end(), IsInventory);
  EXPECT_LT(Inventory(Any).rows.size(), static_cast<std::size_t>(inventories));
}

TEST(DocumentoOnSqlite, ADepartmentWithAQuoteIsAnErrorOfTheStatement) {
  EXPECT_EQ(ErrorAt(SampleOn(Engine::kSqlite), kSummary, {{L"CodDepto", L"D'Ávila"}}),
            Framed(L"CDocumentoRpt::RelatorioSintetico", RefusedBySqlite(L"near \"Ávila\": syntax error")));
}

TEST(DocumentoOnMariaDb, ADepartmentWithAQuoteIsAnErrorOfTheStatement) {
  const Raised raised = ErrorAt(SampleOn(Engine::kMariaDb), kSummary, {{L"CodDepto", L"D'Ávila"}});
  EXPECT_EQ(raised.number, kReportError);
  EXPECT_EQ(raised.source, L"KodraRpt.CDocumentoRpt::RelatorioSintetico");
  // Between the driver's name and the server's message are their versions.
  EXPECT_TRUE(raised.description.starts_with(
      L"Erro ao gerar dados para o relatório: [Microsoft OLE DB Provider for ODBC Drivers]: [ma-"));
  EXPECT_TRUE(raised.description.ends_with(
      L"]You have an error in your SQL syntax; check the manual that corresponds to your MariaDB server version for "
      L"the right syntax to use near 'Ávila' ORDER BY d.COD_DOCTO' at line 1 [N:1064]"));
}

}  // namespace
}  // namespace kodra::rows

// The statistics of imaging and of indexing.
#include <algorithm>
#include <set>

#include "tests/rows/statistics.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kImaging{L"CEstatImgRpt", L"RelatorioEstatisticas"};
const Report kIndexing{L"CEstatIndexRpt", L"RelatorioEstatisticasPorDocumento"};
const Report kKeywords{L"CEstatIndexRpt", L"RelatorioEstatisticasPorPalavrasChave"};

const Documento& SomeDocument() { return All<Documento>()[100]; }

// The kind is P (pages), F (sheets) or another (documents). Digital documents and those without a module never occur.
Table Imaged(const Period& period, wchar_t kind, const Producer& producer) {
  Table table({L"TIT1", L"OPERADOR", L"DEPTO", L"DT_ARMAZ", L"FUNDO", L"OWNER"});
  if (kind == L'P' || kind == L'F') table.columns.emplace_back(L"FRENTE");
  if (kind == L'P') table.columns.emplace_back(L"VERSO");
  if (kind != L'P' && kind != L'F') table.columns.emplace_back(L"COD_DOCTO");
  for (const Documento& d : All<Documento>()) {
    const Suporte* support = Find(&Suporte::codSuporte, d.codSuporte);
    if (support == nullptr || support->descrSuporte == L"DIGITAL") continue;
    // A document whose module is null does not have a module other than AA000.
    if (!d.numCaixa || *d.numCaixa == L"AA000" || !Within(d.dtArmaz, period)) continue;
    if (!Producer::Passes(producer.person, d.codOperador)) continue;
    if (!Producer::Passes(producer.department, d.codDepto)) continue;
    Table::Row row{
        Cell(TitleOf(period)), Cell(producer.PersonTitle()), Cell(producer.DepartmentTitle()), Cell(d.dtArmaz),
        Cell(Company()),       Cell(L"Arquivo Geral")};
    if (kind == L'P' || kind == L'F') row.push_back(Cell(d.frente));
    if (kind == L'P') row.push_back(Cell(d.verso));
    if (kind != L'P' && kind != L'F') row.push_back(Cell(d.codDocto));
    table.rows.push_back(row);
  }
  return table;
}

Case ImagingCase(const std::string& name, const Period& period, const Text& kind, wchar_t meaning,
                 const Producer& asked = {}, const Text& blanks = {}) {
  return {name,
          kImaging,
          In(period, {{L"Owner", L"Arquivo Geral"},
                      {L"TipoRpt", kind},
                      {L"CodOperador", asked.person.empty() ? L"" : blanks + asked.person + blanks},
                      {L"CodDepto", asked.department}}),
          [=] { return Imaged(period, meaning, asked); },
          {},
          HasNoPeriods};
}

std::vector<Case> Imaging() {
  std::vector<Case> cases;
  struct {
    const char* name;
    const wchar_t* sent;
    wchar_t meaning;
  } const kinds[] = {{"PagesImaged", L"P", L'P'},
                     {"PagesImagedInASmallLetter", L"p", L'P'},
                     {"PagesImagedAtLength", L"Páginas", L'P'},
                     {"SheetsImaged", L"F", L'F'},
                     {"DocumentsImaged", L"D", L'D'},
                     {"DocumentsImagedOfNoKind", L"", L'D'}};
  for (const auto& [name, sent, meaning] : kinds) {
    for (const auto& [of, period] : Periods())
      cases.push_back(ImagingCase(std::string(name) + of, period, sent, meaning));
  }
  const Text person = *SomeDocument().codOperador;
  const Text department = *SomeDocument().codDepto;
  cases.push_back(ImagingCase("SheetsImagedByOnePerson", WholeArchive(), L"F", L'F', {person, L""}));
  cases.push_back(
      ImagingCase("SheetsImagedByOnePersonBetweenBlanks", WholeArchive(), L"Folhas", L'F', {person, L""}, L" "));
  cases.push_back(ImagingCase("SheetsImagedInOneDepartment", WholeArchive(), L"F", L'F', {L"", department}));
  cases.push_back(
      ImagingCase("SheetsImagedByOnePersonInOneDepartment", WholeArchive(), L"F", L'F', {person, department}));
  cases.push_back(
      ImagingCase("DocumentsImagedByOnePersonInOneDepartment", WholeArchive(), L"", L'D', {person, department}));
  return cases;
}
INSTANTIATE_TEST_SUITE_P(Imaging, ReportRows, testing::Combine(testing::ValuesIn(Imaging()), BothEngines()), CaseName);

TEST(ImagingOnMariaDb, HasTheDocumentOfMidnightAndNotThatOfTheLastSecond) {
  for (const std::size_t last : {kStoredAtMidnight, kStoredInTheLastSecond}) {
    const Properties properties = In(StoredBetween(200, last));
    const std::vector<Value> codes = RowsAt(SampleOn(Engine::kMariaDb), kImaging, properties).Column(L"COD_DOCTO");
    const bool isThere = std::find(codes.begin(), codes.end(), Cell(All<Documento>()[last].codDocto)) != codes.end();
    EXPECT_EQ(isThere, last == kStoredAtMidnight);
  }
}

TEST(ImagingOnMariaDb, NeverHasDigitalDocumentsAndThoseOfNoModule) {
  const std::vector<Value> codes =
      RowsAt(SampleOn(Engine::kMariaDb), kImaging, In(WholeArchive())).Column(L"COD_DOCTO");
  ASSERT_FALSE(codes.empty());
  for (const Value& code : codes) {
    const Documento& document = *Find(&Documento::codDocto, code.As<std::wstring>());
    EXPECT_NE(document.numCaixa, L"AA000");
    EXPECT_NE(document.codSuporte, L"3");
  }
}

// Every indexed document, whatever its module and its support. The person is the one who indexed it.
Table Indexed(const Period& period, const Producer& producer) {
  Table table({L"TIT1", L"OPERADOR", L"DEPTO", L"DATA_INDEXACAO", L"COD_DOCTO", L"FUNDO", L"OWNER"});
  for (const Documento& d : All<Documento>()) {
    if (!Within(d.dataIndexacao, period)) continue;
    if (!Producer::Passes(producer.person, d.codIndexador)) continue;
    if (!Producer::Passes(producer.department, d.codDepto)) continue;
    table.Add(TitleOf(period), producer.PersonTitle(), producer.DepartmentTitle(), d.dataIndexacao, d.codDocto,
              Company(), L"Arquivo Geral");
  }
  return table;
}

Case IndexingCase(const std::string& name, const Period& period, const Producer& asked = {}) {
  return {name,
          kIndexing,
          In(period, {{L"Owner", L"Arquivo Geral"}, {L"CodOperador", asked.person}, {L"CodDepto", asked.department}}),
          [=] { return Indexed(period, asked); },
          {},
          HasNoPeriods};
}

std::vector<Case> Indexing() {
  std::vector<Case> cases;
  for (const auto& [of, period] : Periods())
    cases.push_back(IndexingCase(std::string("DocumentsIndexed") + of, period));
  const Text person = *SomeDocument().codIndexador;
  const Text department = *SomeDocument().codDepto;
  cases.push_back(IndexingCase("DocumentsIndexedByOnePerson", WholeArchive(), {person, L""}));
  cases.push_back(IndexingCase("DocumentsIndexedInOneDepartment", WholeArchive(), {L"", department}));
  cases.push_back(IndexingCase("DocumentsIndexedByOnePersonInOneDepartment", WholeArchive(), {person, department}));
  return cases;
}
INSTANTIATE_TEST_SUITE_P(Indexing, ReportRows, testing::Combine(testing::ValuesIn(Indexing()), BothEngines()),
                         CaseName);

TEST(IndexingArchive, HasADocumentOfNoModuleAndOneThatAnotherPersonStored) {
  const std::vector<Value> codes = Indexed(WholeArchive(), {}).Column(L"COD_DOCTO");
  EXPECT_TRUE(std::any_of(codes.begin(), codes.end(), [](const Value& code) {
    return Find(&Documento::codDocto, code.As<std::wstring>())->numCaixa == L"AA000";
  }));
  EXPECT_NE(SomeDocument().codIndexador, SomeDocument().codOperador);
}

// The properties with the counts, which the client computes.
Properties Keywords(const std::vector<std::wstring>& counts, const Period& period = WholeArchive()) {
  static const wchar_t* const kNames[] = {L"NumeroPC1", L"NumeroPC2", L"NumeroPC3",
                                          L"NumeroPC4", L"NumeroPC5", L"NumeroObs"};
  Properties properties =
      In(period, {{L"Owner", L"Arquivo Geral"}, {L"DescrOperador", L"João d’Ávila"}, {L"DescrDepto", L"Expedição"}});
  for (std::size_t i = 0; i < counts.size(); ++i) properties.emplace_back(kNames[i], counts[i]);
  return properties;
}

Table KeywordRow(const std::vector<std::int64_t>& counts) {
  Table table({L"TIT1", L"OPERADOR", L"DEPTO", L"PC1", L"PC2", L"PC3", L"PC4", L"PC5", L"OBS", L"FUNDO", L"OWNER"});
  table.Add(TitleOf(WholeArchive()), L"João d’Ávila", L"Expedição", counts[0], counts[1], counts[2], counts[3],
            counts[4], counts[5], Company(), L"Arquivo Geral");
  return table;
}

std::vector<Case> KeywordCases() {
  return {
      {"KeywordsAsTheClientCountedThem", kKeywords, Keywords({L"10", L"9", L"8", L"2+5", L"0", L"3"}),
       [] {
         return KeywordRow({10, 9, 8, 7, 0, 3});
       }},
      {"KeywordsInNegativeNumbersAndSums", kKeywords, Keywords({L"11", L"22", L"3+30", L"0", L"-5", L"66"}),
       [] {
         return KeywordRow({11, 22, 33, 0, -5, 66});
       }},
  };
}
INSTANTIATE_TEST_SUITE_P(Keywords, ReportRows, testing::Combine(testing::ValuesIn(KeywordCases()), BothEngines()),
                         CaseName);

class KeywordRows : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, KeywordRows, BothEngines(), EngineName);

TEST_P(KeywordRows, AreNoneWithoutTheRowsOfParameters) {
  ExpectNoRows(RowsAt(EmptyOn(GetParam()), kKeywords, Keywords({L"10", L"9", L"8", L"2+5", L"0", L"3"})),
               KeywordRow({0, 0, 0, 0, 0, 0}).columns);
}

TEST(KeywordRowsOfAChangedArchive, AreNoneWithoutTheInstallationsRow) {
  const ChangedArchive archive({L"DELETE FROM PARAMETRO WHERE CODIGO = '1'"});
  ExpectNoRows(RowsAt(archive.ConnectionString(), kKeywords, Keywords({L"1", L"1", L"1", L"1", L"1", L"1"})),
               KeywordRow({0, 0, 0, 0, 0, 0}).columns);
}

TEST(KeywordsOnSqlite, ACountThatIsMissingIsAnErrorOfTheStatement) {
  for (const Properties& properties : {Keywords({L"10", L"9", L"", L"2+5", L"0", L"3"}), Keywords({L"1", L"2"})})
    EXPECT_EQ(ErrorAt(SampleOn(Engine::kSqlite), kKeywords, properties),
              Framed(L"CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave",
                     RefusedBySqlite(L"near \"AS\": syntax error")));
}

TEST(KeywordsOnMariaDb, ACountThatIsMissingIsAnErrorOfTheStatement) {
  const Raised raised =
      ErrorAt(SampleOn(Engine::kMariaDb), kKeywords, Keywords({L"10", L"9", L"", L"2+5", L"0", L"3"}));
  EXPECT_EQ(raised.number, kReportError);
  EXPECT_EQ(raised.source, L"KodraRpt.CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave");
  // Between the driver's name and the server's message are their versions.
  EXPECT_TRUE(raised.description.starts_with(
      L"Erro ao gerar dados para o relatório: [Microsoft OLE DB Provider for ODBC Drivers]: [ma-"));
  EXPECT_NE(raised.description.find(L"right syntax to use near 'AS PC3, 2+5 AS PC4, 0 AS PC5, 3 AS OBS, "),
            std::wstring::npos);
  EXPECT_TRUE(raised.description.ends_with(L" [N:1064]"));
}

}  // namespace
}  // namespace kodra::rows

// The rows of the document listings from the sample archive, compared with rows worked out from its tables.
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

constexpr const wchar_t* kReport = L"CDocumentoRpt";
const Names kSummaryColumns = {L"COD_DOCTO", L"DESCR_SUPORTE", L"NUM_CAIXA", L"NUM_CD",
                               L"DT_ARMAZ",  L"DT_VENC",       L"FRENTE",    L"VERSO"};
const Names kDetailColumns = {L"COD_DOCTO",    L"DESCR_GRUPO",  L"DESCR_ASSUNTO", L"DESCR_CHAVE1",   L"DESCR_CHAVE2",
                              L"DESCR_CHAVE3", L"DESCR_CHAVE4", L"DESCR_CHAVE5",  L"DESCR_OPERADOR", L"DESCR_SUPORTE",
                              L"DT_ARMAZ",     L"ARQUIVO",      L"OBS",           L"FRENTE",         L"NUM_CAIXA",
                              L"DT_VENC",      L"VERSO",        L"NUM_CD"};
const Names kInventoryColumns = {L"COD_DOCTO",    L"DESCR_GRUPO",  L"DESCR_ASSUNTO", L"NUM_CAIXA",    L"MACO",
                                 L"DT_ARMAZ",     L"ACHAVE1",      L"ACHAVE2",       L"ACHAVE3",      L"ACHAVE4",
                                 L"ACHAVE5",      L"DESCR_CHAVE1", L"DESCR_CHAVE2",  L"DESCR_CHAVE3", L"DESCR_CHAVE4",
                                 L"DESCR_CHAVE5", L"OBS"};
const Names kKeys = {L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3", L"DESCR_CHAVE4", L"DESCR_CHAVE5"};

using Filter = std::function<bool(const Row& document)>;
bool Any(const Row&) { return true; }

// What the three listings give for the documents that pass a filter.
class Listings : protected ArchiveClient {
 public:
  using ArchiveClient::ArchiveClient;

  Rows Summary(const Filter& filter) const {
    Rows expected{kSummaryColumns, {}};
    for (const Row& d : All(L"DOCUMENTO")) {
      const auto support = Find(L"SUPORTE", L"COD_SUPORTE", d[L"COD_SUPORTE"]);
      if (!support || !filter(d)) continue;
      expected.rows.push_back({d[L"COD_DOCTO"], (*support)[L"DESCR_SUPORTE"], d[L"NUM_CAIXA"], d[L"NUM_CD"],
                               d[L"DT_ARMAZ"], d[L"DT_VENC"], d[L"FRENTE"], d[L"VERSO"]});
    }
    return expected;
  }
  Rows Detail(const Filter& filter) const {
    Rows expected{kDetailColumns, {}};
    for (const Row& d : All(L"DOCUMENTO")) {
      const auto support = Find(L"SUPORTE", L"COD_SUPORTE", d[L"COD_SUPORTE"]);
      const auto keeper = Find(L"OPERADOR", L"COD_OPERADOR", d[L"COD_OPERADOR"]);
      const auto series = Find(L"ASSUNTO", L"COD_ASSUNTO", d[L"COD_ASSUNTO"]);
      const auto subgroup = Find(L"GRUPO", L"COD_GRUPO", d[L"COD_GRUPO"]);
      if (!support || !keeper || !series || !subgroup || !filter(d)) continue;
      Cells cells = {d[L"COD_DOCTO"], (*subgroup)[L"DESCR_GRUPO"], (*series)[L"DESCR_ASSUNTO"]};
      for (const auto& key : kKeys) cells.push_back(d[key]);
      cells.push_back((*keeper)[L"DESCR_OPERADOR"]);
      cells.push_back((*support)[L"DESCR_SUPORTE"]);
      for (const auto& cell :
           d.Pick({L"DT_ARMAZ", L"ARQUIVO", L"OBS", L"FRENTE", L"NUM_CAIXA", L"DT_VENC", L"VERSO", L"NUM_CD"}))
        cells.push_back(cell);
      expected.rows.push_back(cells);
    }
    return expected;
  }
  Rows Inventory(const Filter& filter) const {
    Rows expected{kInventoryColumns, {}};
    for (const Row& d : All(L"DOCUMENTO")) {
      const auto series = Find(L"ASSUNTO", L"COD_ASSUNTO", d[L"COD_ASSUNTO"]);
      const auto subgroup = Find(L"GRUPO", L"COD_GRUPO", d[L"COD_GRUPO"]);
      if (!series || !subgroup || d[L"EXTENSAO"] != L"#INV" || !filter(d)) continue;
      Cells cells = {
          d[L"COD_DOCTO"], (*subgroup)[L"DESCR_GRUPO"], (*series)[L"DESCR_ASSUNTO"], d[L"NUM_CAIXA"], d[L"MACO"],
          d[L"DT_ARMAZ"]};
      for (const auto& key : kKeys) cells.push_back((*series)[key]);  // the captions
      for (const auto& key : kKeys) cells.push_back(d[key]);
      cells.push_back(d[L"OBS"]);
      expected.rows.push_back(cells);
    }
    return expected;
  }
};

class DocumentRows : public OnBothDatabases {
 protected:
  const Listings listings_{GetParam()};
};
KODRA_ON_BOTH_DATABASES(DocumentRows);

TEST_P(DocumentRows, OfTheSummaryAreAllDocumentsThatHaveASupport) {
  const Rows expected = listings_.Summary(Any);
  EXPECT_LT(expected.rows.size(), All(L"DOCUMENTO").size());
  ExpectRows(expected, RowsOf(kReport, L"RelatorioSintetico"), {L"COD_DOCTO"});
}

TEST_P(DocumentRows, OfTheDetailAreThoseWithASubgroupASeriesAKeeperAndASupport) {
  const Rows expected = listings_.Detail(Any);
  EXPECT_LT(expected.rows.size(), listings_.Summary(Any).rows.size());
  ExpectRows(expected, RowsOf(kReport, L"RelatorioAnalitico"), {L"COD_DOCTO"});
}

TEST_P(DocumentRows, OfTheInventoryAreItsMarkedDocumentsThatAreIndexed) {
  EXPECT_LT(listings_.Inventory(Any).rows.size(), TableOf(L"DOCUMENTO").Where(L"EXTENSAO", L"#INV").size());
  ExpectRows(listings_.Inventory(Any), RowsOf(kReport, L"RelatorioInventarios"), {L"COD_DOCTO"});
}

TEST_P(DocumentRows, AreThoseOfADepartment) {
  const Cell department = RowOf(L"DOCUMENTO", L"COD_DOCTO", L"0000000008")[L"COD_DEPTO"];  // an inventory's
  const Filter filter = [&](const Row& d) { return d[L"COD_DEPTO"] == department; };
  const Properties properties = {{L"CodDepto", department.value()}};
  for (const Rows& expected : {listings_.Summary(filter), listings_.Detail(filter), listings_.Inventory(filter)})
    EXPECT_FALSE(expected.rows.empty());
  ExpectRows(listings_.Summary(filter), RowsOf(kReport, L"RelatorioSintetico", properties), {L"COD_DOCTO"});
  ExpectRows(listings_.Detail(filter), RowsOf(kReport, L"RelatorioAnalitico", properties), {L"COD_DOCTO"});
  ExpectRows(listings_.Inventory(filter), RowsOf(kReport, L"RelatorioInventarios", properties), {L"COD_DOCTO"});
}

TEST_P(DocumentRows, AreNoneForADepartmentOfOneBlank) {
  ExpectNoRows(kSummaryColumns, RowsOf(kReport, L"RelatorioSintetico", {{L"CodDepto", L" "}}));
}

TEST_P(DocumentRows, AreNotFilteredByAFirstDayAlone) {
  ExpectRows(listings_.Summary(Any),
             RowsOf(kReport, L"RelatorioSintetico", {{L"DataArmazenamento1", DayOf(L"2020-01-01")}}), {L"COD_DOCTO"});
}

// Stored from the first instant of a day to the first one of another.
Filter StoredBetween(const std::wstring& first, const std::wstring& last) {
  return
      [=](const Row& d) { return *d[L"DT_ARMAZ"] >= first + L" 00:00:00" && *d[L"DT_ARMAZ"] <= last + L" 00:00:00"; };
}

class DocumentRowsOnMariaDb : public OnMariaDb {
 protected:
  std::wstring StorageMoment(const wchar_t* document) const {
    return *RowOf(L"DOCUMENTO", L"COD_DOCTO", document)[L"DT_ARMAZ"];
  }
  const Listings listings_{Engine::kMariaDb};
};

TEST_F(DocumentRowsOnMariaDb, HaveTheLastDayOfThePeriodUpToMidnight) {
  const std::wstring first = StorageMoment(L"0000000101").substr(0, 10);
  for (const auto& [document, atMidnight] : {std::pair(L"0000000301", true), std::pair(L"0000000302", false)}) {
    const std::wstring moment = StorageMoment(document);
    ASSERT_EQ(atMidnight, moment.ends_with(L" 00:00:00"));
    const std::wstring last = moment.substr(0, 10);
    const Filter filter = StoredBetween(first, last);
    ASSERT_EQ(atMidnight, filter(RowOf(L"DOCUMENTO", L"COD_DOCTO", document)));
    const Properties period = {{L"DataArmazenamento1", DayOf(first)}, {L"DataArmazenamento2", DayOf(last)}};
    EXPECT_FALSE(listings_.Inventory(filter).rows.empty());
    ExpectRows(listings_.Summary(filter), RowsOf(kReport, L"RelatorioSintetico", period), {L"COD_DOCTO"});
    ExpectRows(listings_.Detail(filter), RowsOf(kReport, L"RelatorioAnalitico", period), {L"COD_DOCTO"});
    ExpectRows(listings_.Inventory(filter), RowsOf(kReport, L"RelatorioInventarios", period), {L"COD_DOCTO"});
  }
}

TEST_F(DocumentRowsOnMariaDb, AreThoseOfADepartmentInAPeriod) {
  const Cell department = RowOf(L"DOCUMENTO", L"COD_DOCTO", L"0000000008")[L"COD_DEPTO"];
  const Filter inPeriod = StoredBetween(L"2010-01-01", L"2016-12-31");
  const Rows expected = listings_.Summary([&](const Row& d) { return inPeriod(d) && d[L"COD_DEPTO"] == department; });
  EXPECT_FALSE(expected.rows.empty());
  ExpectRows(expected,
             RowsOf(kReport, L"RelatorioSintetico",
                    {{L"DataArmazenamento1", DayOf(L"2010-01-01")},
                     {L"DataArmazenamento2", DayOf(L"2016-12-31")},
                     {L"CodDepto", department.value()}}),
             {L"COD_DOCTO"});
}

TEST_F(DocumentRowsOnMariaDb, BeginWithTheZeroDateWhereAPeriodHasNoFirstDay) {
  const std::wstring last = StorageMoment(L"0000000041").substr(0, 10);
  const Rows expected = listings_.Summary(StoredBetween(L"1899-12-30", last));
  EXPECT_FALSE(expected.rows.empty());
  ExpectRows(expected, RowsOf(kReport, L"RelatorioSintetico", {{L"DataArmazenamento2", DayOf(last)}}), {L"COD_DOCTO"});
}

class DocumentRowsOnSQLite : public OnSQLite {};

// In SQLite's dialect the bounds stand in the statement without quotes, hours and all.
TEST_F(DocumentRowsOnSQLite, OfAPeriodAreRefusedByTheDatabase) {
  const Properties period = {{L"DataArmazenamento1", DayOf(L"2010-01-01")},
                             {L"DataArmazenamento2", DayOf(L"2016-12-31")}};
  for (const wchar_t* method : {L"RelatorioSintetico", L"RelatorioAnalitico", L"RelatorioInventarios"})
    EXPECT_EQ(Framed(std::wstring(L"CDocumentoRpt::") + method, RefusedBySQLite(L"near \"00\": syntax error")),
              ErrorOf(kReport, method, period));
}

TEST_F(DocumentRowsOnSQLite, OfADepartmentWithAQuoteAreRefusedByTheDatabase) {
  EXPECT_EQ(Framed(L"CDocumentoRpt::RelatorioSintetico", RefusedBySQLite(L"near \"Ávila\": syntax error")),
            ErrorOf(kReport, L"RelatorioSintetico", {{L"CodDepto", L"D'Ávila"}}));
}

TEST_P(DocumentRows, HaveDatesAsDatesAndNumbersAsNumbers) {
  const auto rows = Open(kReport, L"RelatorioSintetico");
  ASSERT_EQ(S_OK, Call(rows, L"MoveNext").hr);  // the second document has them all
  const auto typeOf = [&](const wchar_t* field) {
    return Got(Get(Got(Call(rows, L"Fields", {field})).object(), L"Value")).type();
  };
  EXPECT_EQ(VT_BSTR, typeOf(L"COD_DOCTO"));
  EXPECT_EQ(VT_DATE, typeOf(L"DT_ARMAZ"));
  EXPECT_EQ(VT_DATE, typeOf(L"DT_VENC"));
  EXPECT_EQ(VT_I4, typeOf(L"FRENTE"));
  EXPECT_EQ(VT_I4, typeOf(L"VERSO"));
}

}  // namespace
}  // namespace kodra::face

// The recordset that the client receives: how it reads, and what it keeps alive.
#include "tests/wine/public_face.h"
#include "tests/wine/rows.h"

namespace kodra::face {
namespace {

constexpr int kForwardOnly = 0;
constexpr int kStatic = 3;
constexpr int kReadOnly = 1;
constexpr int kServer = 2;
constexpr int kClient = 3;
constexpr int kOpen = 1;

int Number(const Ref<IDispatch>& recordset, const wchar_t* property) { return Got(Get(recordset, property)).number(); }

TEST(ReportRecordset, StreamsFromTheServerForwardOnlyReadOnlyAHundredRowsAtATime) {
  for (const ReportEntry& entry : CatalogReports()) {
    if (entry.name == std::wstring(L"CModeloRpt")) continue;
    SCOPED_TRACE(testing::PrintToString(std::wstring(entry.name)));
    const auto recordset = OpenReport(entry.name, entry.method());
    EXPECT_EQ(kOpen, Number(recordset, L"State"));
    EXPECT_EQ(kServer, Number(recordset, L"CursorLocation"));
    EXPECT_EQ(100, Number(recordset, L"CacheSize"));
    EXPECT_EQ(kForwardOnly, Number(recordset, L"CursorType"));
    EXPECT_EQ(kReadOnly, Number(recordset, L"LockType"));
  }
}

// A client-side cursor is always static, whatever type was requested.
TEST(ReportRecordset, OfModelsIsHeldByTheClient) {
  const auto recordset = OpenReport(L"CModeloRpt", L"RelatorioModelos");
  EXPECT_EQ(kOpen, Number(recordset, L"State"));
  EXPECT_EQ(kClient, Number(recordset, L"CursorLocation"));
  EXPECT_EQ(kStatic, Number(recordset, L"CursorType"));
}

TEST(ReportRecordset, OfModelsIsReadableTwice) {
  const auto recordset = OpenReport(L"CModeloRpt", L"RelatorioModelos");
  const Table first = ReadAll(recordset);
  EXPECT_FALSE(first.rows.empty());
  EXPECT_EQ(static_cast<int>(first.rows.size()), Number(recordset, L"RecordCount"));
  ASSERT_EQ(S_OK, Call(recordset, L"MoveFirst").hr);
  EXPECT_EQ(first.rows, ReadAll(recordset).rows);
}

TEST(ReportRecordset, StartsOnItsFirstRow) {
  const auto recordset = OpenReport(L"CDeptoRpt", L"RelatorioDeptos");
  EXPECT_EQ(VARIANT_FALSE, Got(Get(recordset, L"EOF")).raw().boolVal);
  EXPECT_EQ(S_OK, Get(Got(Call(recordset, L"Fields", {0})).object(), L"Value").hr);
}

TEST(ReportRecordset, KeepsItsConnectionAliveWhenTheReportIsReleased) {
  for (const wchar_t* name : {L"CDeptoRpt", L"CModeloRpt"}) {
    const std::wstring method = name == std::wstring(L"CDeptoRpt") ? L"RelatorioDeptos" : L"RelatorioModelos";
    auto report = Create(std::wstring(L"KodraRpt.") + name);
    auto parameters = Create(std::wstring(L"KodraRpt.") + name + L"Obj");
    ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
    const auto recordset = Got(Call(report, method, {Var(parameters.get())})).object();
    EXPECT_EQ(0U, parameters.Release());
    EXPECT_EQ(0U, report.Release());
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(ReadAll(recordset).rows.empty());
  }
}

TEST(ReportRecordset, BelongsToTheClientAlone) {
  auto report = Create(L"KodraRpt.CDeptoRpt");
  const auto parameters = Create(L"KodraRpt.CDeptoRptObj");
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  auto recordset = Got(Call(report, L"RelatorioDeptos", {Var(parameters.get())})).object();
  EXPECT_EQ(0U, recordset.Release());
}

TEST(ReportRecordset, OneReportReturnsSeveralThatAreReadByTurns) {
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  const Var parameters(Create(L"KodraRpt.CDeptoRptObj").get());
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  const auto one = Got(Call(report, L"RelatorioDeptos", {parameters})).object();
  const auto other = Got(Call(report, L"RelatorioDeptos", {parameters})).object();
  ASSERT_EQ(S_OK, Call(one, L"MoveNext").hr);
  const Table whole = ReadAll(other);
  Table rest = ReadAll(one);
  rest.rows.insert(rest.rows.begin(), whole.rows.front());
  EXPECT_EQ(whole.rows, rest.rows);
}

TEST(ReportRecordset, ANewConnectionStringIsUsedFromTheNextCallOn) {
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  const Var parameters(Create(L"KodraRpt.CDeptoRptObj").get());
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  const auto recordset = Got(Call(report, L"RelatorioDeptos", {parameters})).object();
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", L"").hr);
  EXPECT_FALSE(ReadAll(recordset).rows.empty());
  EXPECT_EQ(DISP_E_EXCEPTION, Call(report, L"RelatorioDeptos", {parameters}).hr);
}

}  // namespace
}  // namespace kodra::face

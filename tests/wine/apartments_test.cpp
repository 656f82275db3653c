// Calls on threads in apartments of their own: each call has its own database system, whatever the others use.
#include <atomic>
#include <thread>

#include "tests/wine/foreign_object.h"
#include "tests/wine/rows.h"

namespace kodra::face {
namespace {

// Additions to the archive's connection string that name a database system. The file is always SQLite's, which shows
// the dialect of another system by what it does not understand.
const std::wstring kSQLite;
const std::wstring kOracle = L";Descricao=MSDAORA";
const std::wstring kDB2 = L";Descricao=IBMDADB2";

// The result of the listing of expired media: "rows" or the description of the error.
std::wstring ResultOn(const std::wstring& system, const Ref<IDispatch>& parameters) {
  const Outcome outcome = RunReport(L"CCDRpt", L"RelatorioMidias", Var(parameters.get()), ArchiveConnection() + system);
  return outcome.value.object() ? L"rows" : outcome.failure.description;
}

constexpr const wchar_t* kSQLiteResult = L"rows";
constexpr const wchar_t* kOracleResult =
    L"Erro ao gerar dados para o relatório: [Microsoft OLE DB Provider for ODBC Drivers]: "
    L"[SQLite]no such column: SYSDATE (1) [N:1]";
constexpr const wchar_t* kDB2Result =
    L"Erro ao gerar dados para o relatório: [Microsoft OLE DB Provider for ODBC Drivers]: "
    L"[SQLite]near \"DATE\": syntax error (1) [N:1]";

TEST(Apartments, EachDatabaseSystemShowsItsOwnDialect) {
  const auto expired = ForeignObject::With(L"TipoRpt", L"V");
  EXPECT_EQ(kSQLiteResult, ResultOn(kSQLite, expired));
  EXPECT_EQ(kOracleResult, ResultOn(kOracle, expired));
  EXPECT_EQ(kDB2Result, ResultOn(kDB2, expired));
}

// A call reads the parameter object after it has set its database code and before it builds its SQL. Each of the two
// calls waits there for the other one, so that each could use the other's code.
TEST(Apartments, TwoCallsAtTheSameTimeKeepTheirOwnDialects) {
  for (int round = 0; round < 10; ++round) {
    HANDLE arrived[] = {CreateEventW(nullptr, TRUE, FALSE, nullptr), CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    std::wstring results[2];
    bool met[2] = {};
    const auto call = [&](int own, const std::wstring& system) {
      const Apartment apartment;
      const auto parameters = ForeignObject::With(L"TipoRpt", [&, own](VARIANT* result, EXCEPINFO*) {
        SetEvent(arrived[own]);
        met[own] = WaitForSingleObject(arrived[1 - own], 5000) == WAIT_OBJECT_0;
        return Var(L"V").CopyTo(result);
      });
      results[own] = ResultOn(system, parameters);
    };
    std::thread one(call, 0, kSQLite);
    std::thread other(call, 1, round % 2 == 0 ? kOracle : kDB2);
    one.join();
    other.join();
    CloseHandle(arrived[0]);
    CloseHandle(arrived[1]);
    EXPECT_TRUE(met[0] && met[1]);
    EXPECT_EQ(kSQLiteResult, results[0]);
    EXPECT_EQ(round % 2 == 0 ? kOracleResult : kDB2Result, results[1]);
  }
}

TEST(Apartments, ManyCallsSideBySideNeverSeeEachOthersDialect) {
  constexpr int kCalls = 60;
  const struct {
    std::wstring system;
    std::wstring expected;
  } kinds[] = {{kSQLite, kSQLiteResult}, {kOracle, kOracleResult}, {kDB2, kDB2Result}};
  std::atomic<int> wrong = 0;
  std::atomic<int> done = 0;
  std::vector<std::thread> threads;
  for (const auto& kind : kinds)
    threads.emplace_back([&] {
      const Apartment apartment;
      const auto expired = Create(L"KodraRpt.CCDRptObj");
      EXPECT_EQ(S_OK, Put(expired, L"TipoRpt", L"V").hr);
      for (int i = 0; i < kCalls; ++i, ++done)
        if (ResultOn(kind.system, expired) != kind.expected) ++wrong;
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(3 * kCalls, done);
  EXPECT_EQ(0, wrong);
}

TEST(Apartments, AnObjectOfAnotherApartmentServesAsParameterObjectAndAsReport) {
  // The objects are marshalled, as COM requires. Calls to them come back to this thread, which serves them while it
  // waits.
  const auto report = Create(L"KodraRpt.CCDRpt");
  const auto parameters = Create(L"KodraRpt.CCDRptObj");
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  Ref<IStream> reportStream;
  Ref<IStream> parametersStream;
  ASSERT_EQ(S_OK, CoMarshalInterThreadInterfaceInStream(IID_IDispatch, report.get(), reportStream.put()));
  ASSERT_EQ(S_OK, CoMarshalInterThreadInterfaceInStream(IID_IDispatch, parameters.get(), parametersStream.put()));
  HANDLE finished = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::wstring title;
  std::thread other([&] {
    {
      const Apartment apartment;
      Ref<IDispatch> farReport;
      Ref<IDispatch> farParameters;
      const auto unmarshal = [](const Ref<IStream>& stream, Ref<IDispatch>& object) {
        stream->AddRef();
        EXPECT_EQ(S_OK, CoGetInterfaceAndReleaseStream(stream.get(), IID_IDispatch, object.put_void()));
      };
      unmarshal(reportStream, farReport);
      unmarshal(parametersStream, farParameters);
      EXPECT_EQ(ArchiveConnection(), Got(Get(farReport, L"StringConexao")).text());
      EXPECT_EQ(S_OK, Put(farParameters, L"TipoRpt", L"todas").hr);
      EXPECT_EQ(L"T", Got(Get(farParameters, L"TipoRpt")).text());
      const auto own = Create(L"KodraRpt.CCDRpt");
      EXPECT_EQ(S_OK, Put(own, L"StringConexao", ArchiveConnection()).hr);
      const auto rows = Got(Call(own, L"RelatorioMidias", {Var(farParameters.get())})).object();
      if (rows) title = Got(Get(Got(Call(rows, L"Fields", {L"RELATORIO"})).object(), L"Value")).text().value();
    }
    SetEvent(finished);
  });
  DWORD signalled = 0;
  EXPECT_EQ(S_OK, CoWaitForMultipleHandles(0, 10000, 1, &finished, &signalled));
  other.join();
  CloseHandle(finished);
  EXPECT_EQ(L"Todas as Mídias", title);
}

}  // namespace
}  // namespace kodra::face

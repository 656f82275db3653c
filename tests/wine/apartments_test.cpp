// Threads in apartments of their own, each with its own database system: what one call sets is not seen by another.
#include <atomic>
#include <thread>

#include "tests/wine/foreign_object.h"
#include "tests/wine/rows.h"

namespace kodra::face {
namespace {

class Apartment {
 public:
  Apartment() : entered_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) { EXPECT_EQ(S_OK, entered_); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() { CoUninitialize(); }

 private:
  HRESULT entered_;
};

// The same file in strings that name other database systems: the dialect shows in what SQLite does not know.
const std::wstring kSQLite;
const std::wstring kOracle = L";Descricao=MSDAORA";
const std::wstring kDB2 = L";Descricao=IBMDADB2";

// How the listing of expired media ends: a recordset, or the part of the dialect that SQLite does not understand.
std::wstring Ending(const std::wstring& system, const Ref<IDispatch>& parameters) {
  const Outcome outcome = RunReport(L"CCDRpt", L"RelatorioMidias", Var(parameters.get()), ArchiveConnection() + system);
  return outcome.value.object() ? L"rows" : outcome.failure.description;
}

constexpr const wchar_t* kOfSQLite = L"rows";
constexpr const wchar_t* kOfOracle =
    L"Erro ao gerar dados para o relatório: [Microsoft OLE DB Provider for ODBC Drivers]: "
    L"[SQLite]no such column: SYSDATE (1) [N:1]";
constexpr const wchar_t* kOfDB2 =
    L"Erro ao gerar dados para o relatório: [Microsoft OLE DB Provider for ODBC Drivers]: "
    L"[SQLite]near \"DATE\": syntax error (1) [N:1]";

TEST(Apartments, EachDatabaseSystemShowsItsOwnDialect) {
  const auto expired = ForeignObject::With(L"TipoRpt", L"V");
  EXPECT_EQ(kOfSQLite, Ending(kSQLite, expired));
  EXPECT_EQ(kOfOracle, Ending(kOracle, expired));
  EXPECT_EQ(kOfDB2, Ending(kDB2, expired));
}

// The parameter object is read after the call has set its database code and before it builds its SQL. Each call waits
// there until the other has come as far, so that each could meet the other's code.
TEST(Apartments, TwoCallsInTheMiddleOfEachOtherKeepTheirOwnDialects) {
  for (int round = 0; round < 10; ++round) {
    HANDLE arrived[] = {CreateEventW(nullptr, TRUE, FALSE, nullptr), CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    std::wstring endings[2];
    bool met[2] = {};
    const auto call = [&](int own, const std::wstring& system) {
      const Apartment apartment;
      const auto parameters = ForeignObject::With(L"TipoRpt", [&, own](VARIANT* result, EXCEPINFO*) {
        SetEvent(arrived[own]);
        met[own] = WaitForSingleObject(arrived[1 - own], 5000) == WAIT_OBJECT_0;
        return VariantCopy(result, const_cast<VARIANT*>(&Var(L"V").raw()));
      });
      endings[own] = Ending(system, parameters);
    };
    std::thread one(call, 0, kSQLite);
    std::thread other(call, 1, round % 2 == 0 ? kOracle : kDB2);
    one.join();
    other.join();
    CloseHandle(arrived[0]);
    CloseHandle(arrived[1]);
    EXPECT_TRUE(met[0] && met[1]);
    EXPECT_EQ(kOfSQLite, endings[0]);
    EXPECT_EQ(round % 2 == 0 ? kOfOracle : kOfDB2, endings[1]);
  }
}

TEST(Apartments, ManyCallsSideBySideNeverSeeEachOthersDialect) {
  constexpr int kCalls = 60;
  const struct {
    std::wstring system;
    std::wstring expected;
  } kinds[] = {{kSQLite, kOfSQLite}, {kOracle, kOfOracle}, {kDB2, kOfDB2}};
  std::atomic<int> wrong = 0;
  std::atomic<int> done = 0;
  std::vector<std::thread> threads;
  for (const auto& kind : kinds)
    threads.emplace_back([&] {
      const Apartment apartment;
      const auto expired = Create(L"KodraRpt.CCDRptObj");
      EXPECT_EQ(S_OK, Put(expired, L"TipoRpt", L"V").hr);
      for (int i = 0; i < kCalls; ++i, ++done)
        if (Ending(kind.system, expired) != kind.expected) ++wrong;
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(3 * kCalls, done);
  EXPECT_EQ(0, wrong);
}

TEST(Apartments, AnObjectOfAnotherApartmentServesAsParameterObjectAndAsReport) {
  // Passed as COM requires; its calls come back to this thread, which answers them while it waits.
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
      IStream* stream = reportStream.get();
      stream->AddRef();
      EXPECT_EQ(S_OK, CoGetInterfaceAndReleaseStream(stream, IID_IDispatch, farReport.put_void()));
      stream = parametersStream.get();
      stream->AddRef();
      EXPECT_EQ(S_OK, CoGetInterfaceAndReleaseStream(stream, IID_IDispatch, farParameters.put_void()));
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

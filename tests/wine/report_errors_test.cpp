// The failures of reports as their client gets them: number, source and whole description, by name and by vtable.
// clang-format off
#include <windows.h>
#include <kodrarpt.h>
// clang-format on

#include <functional>

#include "tests/wine/foreign_object.h"
#include "tests/wine/public_face.h"
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

template <class Interface>
using Method = HRESULT (STDMETHODCALLTYPE Interface::*)(IDispatch*, IDispatch**);

template <class Class, class Interface>
Failure ByVtable(Method<Interface> method, const std::wstring& connection, IDispatch* obj) {
  Ref<Interface> report;
  EXPECT_EQ(S_OK,
            CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), report.put_void()));
  EXPECT_EQ(S_OK, report->put_StringConexao(Bstr(connection)));
  Ref<IDispatch> rows;
  const HRESULT hr = (report.get()->*method)(obj, rows.put());
  EXPECT_FALSE(rows);
  return TakeFailure(hr, report);
}

// A report method that is called in both ways.
struct Caller {
  std::wstring name;
  std::wstring method;
  std::function<Failure(const std::wstring& connection, IDispatch* obj)> byVtable;
};

const Caller kDepartments = {L"CDeptoRpt", L"RelatorioDeptos", [](const std::wstring& connection, IDispatch* obj) {
                               return ByVtable<::CDeptoRpt>(&ICDeptoRpt::RelatorioDeptos, connection, obj);
                             }};
const Caller kMedia = {L"CCDRpt", L"RelatorioMidias", [](const std::wstring& connection, IDispatch* obj) {
                         return ByVtable<::CCDRpt>(&ICCDRpt::RelatorioMidias, connection, obj);
                       }};
const Caller kModels = {L"CModeloRpt", L"RelatorioModelos", [](const std::wstring& connection, IDispatch* obj) {
                          return ByVtable<::CModeloRpt>(&ICModeloRpt::RelatorioModelos, connection, obj);
                        }};

Ref<IDispatch> NewParameters(const Caller& caller) { return ParametersOf(caller.name); }

void ExpectFailure(const Caller& caller, const std::wstring& connection, const Ref<IDispatch>& parameters,
                   const std::wstring& cause) {
  const Failure expected = Framed(caller.name + L"::" + caller.method, cause);
  const Outcome byName = RunReport(caller.name, caller.method, Var(parameters.get()), connection);
  EXPECT_EQ(expected, byName.failure);
  EXPECT_FALSE(byName.value.object());
  EXPECT_EQ(expected, caller.byVtable(connection, parameters.get()));
}

constexpr const wchar_t* kNoConnectionString = L"É preciso definir a propriedade \"StringConexao\".";

constexpr const wchar_t* kNoParameters = L"Objeto não definido.";

// The reports with the common frame of errors.
std::vector<ReportEntry> FramedReports() {
  std::vector<ReportEntry> reports = ReportClasses();
  std::erase_if(reports, [](const ReportEntry& entry) {
    return entry.name == std::wstring(L"COperadorRpt") || entry.name == std::wstring(L"CCaixaRpt");
  });
  return reports;
}

TEST(ReportErrors, WithoutAConnectionStringEveryReportAsksForIt) {
  for (const ReportEntry& entry : FramedReports())
    for (const std::wstring method : entry.methods)
      EXPECT_EQ(Framed(entry.name + (L"::" + method), kNoConnectionString),
                RunReport(entry.name, method, Var(ParametersOf(entry.name).get()), L"").failure);
}

TEST(ReportErrors, WithoutAParameterObjectEveryReportSaysSo) {
  for (const ReportEntry& entry : FramedReports())
    for (const std::wstring method : entry.methods)
      EXPECT_EQ(Framed(entry.name + (L"::" + method), kNoParameters),
                RunReport(entry.name, method, Var::Nothing(), ArchiveConnection()).failure);
}

TEST(ReportErrors, TheOperatorsReportNamesItsStepWhichIsInitiallyEmpty) {
  EXPECT_EQ((Failure{kReportError, L"KodraRpt.COperadorRpt::RelatorioOperadores",
                     std::wstring(L"Erro : ") + kNoConnectionString}),
            RunReport(L"COperadorRpt", L"RelatorioOperadores", Var(ParametersOf(L"COperadorRpt").get()), L"").failure);
}

// A call that fails: the report, its connection string and its parameter object.
struct FailingCall {
  // In letters only: the test is named after it.
  const char* name;
  const Caller& caller;
  std::wstring connection;
  std::function<Ref<IDispatch>()> parameters;
  std::wstring cause;

  friend void PrintTo(const FailingCall& failing, std::ostream* out) { *out << failing.name; }
};

class FailingReport : public testing::TestWithParam<FailingCall> {};

TEST_P(FailingReport, HasTheSameErrorByNameAndByVtable) {
  const auto& [name, caller, connection, parameters, cause] = GetParam();
  auto object = parameters();
  ExpectFailure(caller, connection, object, cause);
  // The failed report leaves the object to its client.
  if (object) {
    EXPECT_EQ(0U, object.Release());
  }
}

std::vector<FailingCall> CallsThatFail() {
  // The parameter object of the report itself, none, and a client's own object with the property TipoRpt.
  const auto ownOf = [](const Caller& caller) { return [&caller] { return NewParameters(caller); }; };
  const auto nothing = [] { return Ref<IDispatch>(); };
  const auto withKind = [](const auto& value) { return [value] { return ForeignObject::With(L"TipoRpt", value); }; };
  // Wine's driver manager has no text for a string without driver and data source, so that ADO has only this one.
  const std::wstring noDriver = L"[Microsoft OLE DB Provider for ODBC Drivers]: Unspecified error";
  const std::wstring noKind = L"O objeto de parâmetros não tem a propriedade \"TipoRpt\".";
  const std::wstring archive = ArchiveConnection();
  return {
      {"DepartmentsWithoutAConnectionString", kDepartments, L"", ownOf(kDepartments), kNoConnectionString},
      {"MediaWithoutAConnectionString", kMedia, L"", ownOf(kMedia), kNoConnectionString},
      {"ModelsWithoutAConnectionString", kModels, L"", ownOf(kModels), kNoConnectionString},
      {"DepartmentsWithoutAParameterObject", kDepartments, archive, nothing, kNoParameters},
      {"MediaWithoutAParameterObject", kMedia, archive, nothing, kNoParameters},
      {"ModelsWithoutAParameterObject", kModels, archive, nothing, kNoParameters},
      {"NeitherConnectionStringNorParameterObject", kDepartments, L"", nothing, kNoConnectionString},
      // A blank connection string fails only when it is opened.
      {"DepartmentsOnABlankConnectionString", kDepartments, L" ", ownOf(kDepartments), L"[modADO.AbreCn]: " + noDriver},
      {"ModelsOnABlankConnectionString", kModels, L" ", ownOf(kModels), noDriver},
      {"ADialectForADatabaseSystemThatHasNone", kMedia, L" ",
       [] {
         return ParametersOf(kMedia.name, {{L"TipoRpt", L"V"}});
       },
       L"Não há entrada para o banco tipo 4"},
      {"AFolderInPlaceOfTheDatabaseFile", kDepartments, ConnectionTo(L"/tmp"), ownOf(kDepartments),
       L"[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados \"/tmp\" danificado."},
      {"AParameterObjectWithoutTheProperty", kMedia, archive, [] { return ForeignObject::With(L"Owner", L"x"); },
       noKind},
      {"AParameterObjectWhosePropertyCannotBeRead", kMedia, archive,
       withKind([](VARIANT*, EXCEPINFO*) { return DISP_E_MEMBERNOTFOUND; }), noKind},
      {"AParameterObjectOfAnotherReport", kModels, archive, ownOf(kMedia),
       L"O objeto de parâmetros não tem a propriedade \"CodModelo\"."},
      {"AnErrorThatTheParameterObjectRaises", kMedia, archive,
       withKind(Raising(kRaisedNumber, L"Cliente.Filtro", L"Sem permissão.")), L"Sem permissão."},
      {"AnErrorOfTheParameterObjectAboutAMissingMember", kMedia, archive,
       withKind(Raising(kNoSuchMember, L"Cliente.Filtro", L"O documento não tem capa")), L"O documento não tem capa"},
      {"AnErrorOfTheParameterObjectWithoutAText", kMedia, archive,
       withKind(Raising(kNumberWithoutText, L"Cliente", L"")), L"Erro de automação (80047777)"},
      {"APropertyThatIsNull", kMedia, archive, withKind(Var::Null()), L"Uso de 'Null' inválido"},
      // An object is read by its default property, which this one does not have.
      {"APropertyThatIsAnObject", kMedia, archive,
       [] { return ForeignObject::With(L"TipoRpt", Var(NewParameters(kMedia).get())); },
       L"O objeto não aceita esta propriedade ou método"},
  };
}
INSTANTIATE_TEST_SUITE_P(, FailingReport, testing::ValuesIn(CallsThatFail()),
                         [](const auto& info) { return std::string(info.param.name); });

// Reports on an SQLite file that the test creates.
class FileErrors : public testing::Test {
 protected:
  void ExpectCause(const Caller& caller, const std::wstring& cause) {
    ExpectFailure(caller, ConnectionTo(file_.path()), NewParameters(caller), cause);
  }

  const TemporaryFile file_{L"teste.db"};
};

TEST_F(FileErrors, AMissingFileIsNamedWithEveryLayer) {
  const std::wstring cause = L"[modADO::PreAbreCn]: Banco de dados \"" + file_.path() + L"\" não encontrado.";
  ExpectCause(kDepartments, L"[modADO.AbreCn]: " + cause);
  ExpectCause(kModels, cause);
}

TEST_F(FileErrors, AnEmptyFileIsDamaged) {
  file_.CreateEmpty();
  const std::wstring cause = L"[modADO::PreAbreCn]: Banco de dados \"" + file_.path() + L"\" danificado.";
  ExpectCause(kDepartments, L"[modADO.AbreCn]: " + cause);
  ExpectCause(kModels, cause);
}

TEST_F(FileErrors, ADatabaseWithoutTheTableIsTheProvidersTextAndItsCode) {
  {
    const auto connection = Create(L"ADODB.Connection");
    ASSERT_EQ(S_OK, Call(connection, L"Open", {ConnectionTo(file_.path())}).hr);
    ASSERT_EQ(S_OK, Call(connection, L"Execute", {L"CREATE TABLE OUTRA (CODIGO VARCHAR(10))"}).hr);
  }
  const std::wstring provider = L"[Microsoft OLE DB Provider for ODBC Drivers]: ";
  ExpectCause(kDepartments, provider + L"[SQLite]no such table: DEPTO (1) [N:1]");
  ExpectCause(kMedia, provider + L"[SQLite]no such table: CD (1) [N:1]");
  // The models are not opened by the shared function, which names the source and the code.
  ExpectCause(kModels, L"[SQLite]no such table: MODELO (1)");
}

// The lower 32 bits of its length are zero.
TEST_F(FileErrors, AFileOfFourGigabytesIsNotDamaged) {
  ASSERT_TRUE(CopyFileW(WindowsPath(Variable(L"KODRA_ARCHIVE")).c_str(), file_.windowsPath().c_str(), FALSE));
  LARGE_INTEGER length = {};
  length.QuadPart = 0x100000000;
  HANDLE stretched = CreateFileW(file_.windowsPath().c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
  // The file gets a hole at its end, which SQLite ignores because the header says how large the database is.
  EXPECT_TRUE(SetFilePointerEx(stretched, length, nullptr, FILE_BEGIN));
  EXPECT_TRUE(SetEndOfFile(stretched));
  CloseHandle(stretched);
  const auto parameters = NewParameters(kDepartments);
  const Outcome outcome =
      RunReport(kDepartments.name, kDepartments.method, Var(parameters.get()), ConnectionTo(file_.path()));
  ASSERT_EQ(Failure{}, outcome.failure);
  EXPECT_EQ(ReadAll(OpenReport(kDepartments.name, kDepartments.method)).rows, ReadAll(outcome.value.object()).rows);
}

TEST(ReportErrors, AReportWorksAgainAfterItsFailure) {
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  const Var parameters(Create(L"KodraRpt.CDeptoRptObj").get());
  EXPECT_EQ(Framed(L"CDeptoRpt::RelatorioDeptos", kNoConnectionString),
            Call(report, L"RelatorioDeptos", {parameters}).failure);
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  EXPECT_EQ(S_OK, Call(report, L"RelatorioDeptos", {parameters}).hr);
}

}  // namespace
}  // namespace kodra::face

// Every failure of a report as its client gets it: number, source and whole description, by name and by vtable.
// clang-format off
#include <windows.h>
#include <kodrarpt.h>
// clang-format on

#include <functional>
#include <map>

#include "tests/wine/foreign_object.h"
#include "tests/wine/public_face.h"
#include "tests/wine/rows.h"

namespace kodra::face {
namespace {

// The error with a cause between the report's prefix and the end of the description.
Failure Framed(const std::wstring& name, const std::wstring& method, const std::wstring& cause) {
  return {0x80041FAB, L"KodraRpt." + name + L"::" + method, L"Erro ao gerar dados para o relatório: " + cause};
}

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

// A report called in both ways.
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

void ExpectFailure(const Caller& caller, const std::wstring& connection, const Ref<IDispatch>& obj,
                   const std::wstring& cause) {
  const Failure expected = Framed(caller.name, caller.method, cause);
  const Outcome byName = RunReport(caller.name, caller.method, Var(obj.get()), connection);
  EXPECT_EQ(expected, byName.failure);
  EXPECT_FALSE(byName.value.object());
  EXPECT_EQ(expected, caller.byVtable(connection, obj.get()));
}

const Ref<IDispatch> kNothing;
Ref<IDispatch> ParametersOf(const Caller& caller) { return Create(L"KodraRpt." + caller.name + L"Obj"); }

constexpr const wchar_t* kNoConnectionString = L"É preciso definir a propriedade \"StringConexao\".";

// The reports with the common frame.
std::vector<ReportEntry> FramedReports() {
  std::vector<ReportEntry> reports = ReportClasses();
  std::erase_if(reports, [](const ReportEntry& entry) {
    return entry.name == std::wstring(L"COperadorRpt") || entry.name == std::wstring(L"CCaixaRpt");
  });
  return reports;
}

TEST(ReportErrors, WithoutAConnectionStringEveryReportAsksForIt) {
  for (const ReportEntry& entry : FramedReports())
    for (const wchar_t* method : entry.methods) {
      const auto parameters = Create(std::wstring(L"KodraRpt.") + entry.name + L"Obj");
      EXPECT_EQ(Framed(entry.name, method, kNoConnectionString),
                RunReport(entry.name, method, Var(parameters.get()), L"").failure);
    }
}

TEST(ReportErrors, WithoutAParameterObjectEveryReportSaysSo) {
  for (const ReportEntry& entry : FramedReports())
    for (const wchar_t* method : entry.methods)
      EXPECT_EQ(Framed(entry.name, method, L"Objeto não definido."),
                RunReport(entry.name, method, Var(static_cast<IDispatch*>(nullptr)), ArchiveConnection()).failure);
}

TEST(ReportErrors, TheOperatorsReportNamesItsStepWhichIsInitiallyEmpty) {
  EXPECT_EQ(
      (Failure{0x80041FAB, L"KodraRpt.COperadorRpt::RelatorioOperadores",
               std::wstring(L"Erro : ") + kNoConnectionString}),
      RunReport(L"COperadorRpt", L"RelatorioOperadores", Var(Create(L"KodraRpt.COperadorRptObj").get()), L"").failure);
}

TEST(ReportErrors, AnEmptyConnectionStringIsNamed) {
  for (const Caller& caller : {kDepartments, kMedia, kModels})
    ExpectFailure(caller, L"", ParametersOf(caller), kNoConnectionString);
}

TEST(ReportErrors, AMissingParameterObjectIsNamed) {
  for (const Caller& caller : {kDepartments, kMedia, kModels})
    ExpectFailure(caller, ArchiveConnection(), kNothing, L"Objeto não definido.");
}

TEST(ReportErrors, OfBothMissingOnlyTheConnectionStringIsNamed) {
  ExpectFailure(kDepartments, L"", kNothing, kNoConnectionString);
}

// Wine's driver manager has no text for a string without driver and data source; ADO then has only this text.
constexpr const wchar_t* kNoDriver = L"[Microsoft OLE DB Provider for ODBC Drivers]: Unspecified error";

TEST(ReportErrors, ABlankConnectionStringFailsWhenItIsOpened) {
  ExpectFailure(kDepartments, L" ", ParametersOf(kDepartments), std::wstring(L"[modADO.AbreCn]: ") + kNoDriver);
  ExpectFailure(kModels, L" ", ParametersOf(kModels), kNoDriver);
}

TEST(ReportErrors, ADatabaseSystemWithoutADialectFailsWhereSqlDependsOnIt) {
  const auto parameters = ParametersOf(kMedia);
  ASSERT_EQ(S_OK, Put(parameters, L"TipoRpt", L"V").hr);
  ExpectFailure(kMedia, L" ", parameters, L"Não há entrada para o banco tipo 4");
}

TEST(ReportErrors, AMissingDatabaseFileIsNamedWithEveryLayer) {
  const OwnFile file(L"ausente.db");
  const std::wstring cause = L"[modADO::PreAbreCn]: Banco de dados \"" + file.path() + L"\" não encontrado.";
  ExpectFailure(kDepartments, ConnectionTo(file.path()), ParametersOf(kDepartments), L"[modADO.AbreCn]: " + cause);
  ExpectFailure(kModels, ConnectionTo(file.path()), ParametersOf(kModels), cause);
}

TEST(ReportErrors, AnEmptyDatabaseFileIsDamaged) {
  const OwnFile file(L"vazio.db");
  file.CreateEmpty();
  const std::wstring cause = L"[modADO::PreAbreCn]: Banco de dados \"" + file.path() + L"\" danificado.";
  ExpectFailure(kDepartments, ConnectionTo(file.path()), ParametersOf(kDepartments), L"[modADO.AbreCn]: " + cause);
  ExpectFailure(kModels, ConnectionTo(file.path()), ParametersOf(kModels), cause);
}

// The low half of its length is zero.
TEST(ReportErrors, ADatabaseFileOfFourGigabytesIsNotDamaged) {
  const OwnFile file(L"grande.db");
  ASSERT_TRUE(CopyFileW(WindowsPath(Variable(L"KODRA_ARCHIVE")).c_str(), file.windowsPath().c_str(), FALSE));
  LARGE_INTEGER length = {};
  length.QuadPart = 0x100000000;
  HANDLE stretched =
      CreateFileW(file.windowsPath().c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  // The added part is a hole, which SQLite ignores: its header says how much of the file is the database.
  EXPECT_TRUE(SetFilePointerEx(stretched, length, nullptr, FILE_BEGIN));
  EXPECT_TRUE(SetEndOfFile(stretched));
  CloseHandle(stretched);
  const auto parameters = ParametersOf(kDepartments);
  const Outcome outcome =
      RunReport(kDepartments.name, kDepartments.method, Var(parameters.get()), ConnectionTo(file.path()));
  ASSERT_EQ(Failure{}, outcome.failure);
  EXPECT_EQ(ReadAll(OpenReport(kDepartments.name, kDepartments.method)).rows, ReadAll(outcome.value.object()).rows);
}

TEST(ReportErrors, AFolderInPlaceOfTheDatabaseFileIsDamaged) {
  ExpectFailure(kDepartments, ConnectionTo(L"/tmp"), ParametersOf(kDepartments),
                L"[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados \"/tmp\" danificado.");
}

TEST(ReportErrors, ADatabaseWithoutTheTableIsTheProvidersTextAndItsCode) {
  const OwnFile file(L"sem-tabelas.db");
  {
    const auto connection = Create(L"ADODB.Connection");
    ASSERT_EQ(S_OK, Call(connection, L"Open", {ConnectionTo(file.path())}).hr);
    ASSERT_EQ(S_OK, Call(connection, L"Execute", {L"CREATE TABLE OUTRA (CODIGO VARCHAR(10))"}).hr);
  }
  const std::wstring provider = L"[Microsoft OLE DB Provider for ODBC Drivers]: ";
  ExpectFailure(kDepartments, ConnectionTo(file.path()), ParametersOf(kDepartments),
                provider + L"[SQLite]no such table: DEPTO (1) [N:1]");
  ExpectFailure(kMedia, ConnectionTo(file.path()), ParametersOf(kMedia),
                provider + L"[SQLite]no such table: CD (1) [N:1]");
  // Opened without the shared opener, which names the source and the code.
  ExpectFailure(kModels, ConnectionTo(file.path()), ParametersOf(kModels), L"[SQLite]no such table: MODELO (1)");
}

TEST(ReportErrors, APropertyThatTheParameterObjectLacksIsNamed) {
  ExpectFailure(kMedia, ArchiveConnection(), ForeignObject::With(L"Owner", L"x"),
                L"O objeto de parâmetros não tem a propriedade \"TipoRpt\".");
  // It knows the name, but not as a readable property.
  ExpectFailure(kMedia, ArchiveConnection(),
                ForeignObject::With(L"TipoRpt", [](VARIANT*, EXCEPINFO*) { return DISP_E_MEMBERNOTFOUND; }),
                L"O objeto de parâmetros não tem a propriedade \"TipoRpt\".");
  ExpectFailure(kModels, ArchiveConnection(), ParametersOf(kMedia),
                L"O objeto de parâmetros não tem a propriedade \"CodModelo\".");
}

TEST(ReportErrors, WhatTheParameterObjectRaisesIsTheCause) {
  const auto raising =
      ForeignObject::With(L"TipoRpt", Raising(static_cast<HRESULT>(0x8004002A), L"Cliente.Filtro", L"Sem permissão."));
  ExpectFailure(kMedia, ArchiveConnection(), raising, L"Sem permissão.");
}

TEST(ReportErrors, AnErrorOfTheParameterObjectAboutAMissingMemberKeepsItsText) {
  const auto raising = ForeignObject::With(
      L"TipoRpt", Raising(static_cast<HRESULT>(0x800A01B6), L"Cliente.Filtro", L"O documento não tem capa"));
  ExpectFailure(kMedia, ArchiveConnection(), raising, L"O documento não tem capa");
}

TEST(ReportErrors, AnErrorOfTheParameterObjectWithoutATextHasTheTextOfItsNumber) {
  const auto raising = ForeignObject::With(L"TipoRpt", Raising(static_cast<HRESULT>(0x80047777), L"Cliente", L""));
  ExpectFailure(kMedia, ArchiveConnection(), raising, L"Erro de automação (80047777)");
}

TEST(ReportErrors, APropertyThatHoldsNoTextIsTheCause) {
  ExpectFailure(kMedia, ArchiveConnection(), ForeignObject::With(L"TipoRpt", Var::Null()), L"Uso de 'Null' inválido");
  // An object is read by its default property, which this one does not have.
  ExpectFailure(kMedia, ArchiveConnection(), ForeignObject::With(L"TipoRpt", Var(ParametersOf(kMedia).get())),
                L"O objeto não aceita esta propriedade ou método");
}

TEST(ReportErrors, AFailedReportLeavesItsParameterObjectToTheClient) {
  auto foreign = ForeignObject::With(L"Owner", L"x");
  ExpectFailure(kMedia, ArchiveConnection(), foreign, L"O objeto de parâmetros não tem a propriedade \"TipoRpt\".");
  EXPECT_EQ(0U, foreign.Release());
}

TEST(ReportErrors, AReportWorksAgainAfterItsFailure) {
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  const Var parameters(Create(L"KodraRpt.CDeptoRptObj").get());
  EXPECT_EQ(Framed(L"CDeptoRpt", L"RelatorioDeptos", kNoConnectionString),
            Call(report, L"RelatorioDeptos", {parameters}).failure);
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  EXPECT_EQ(S_OK, Call(report, L"RelatorioDeptos", {parameters}).hr);
}

}  // namespace
}  // namespace kodra::face

// Every public class by its ProgID, and its members as a client calls them by name.
#include "tests/wine/automation.h"
#include "tests/wine/public_face.h"
#include "tests/wine/server.h"

namespace kodra::face {
namespace {

TEST(PublicClasses, EachIsCreatedByItsProgIdAlone) {
  for (const ClassEntry& entry : PublicClasses()) {
    HRESULT hr = E_UNEXPECTED;
    EXPECT_TRUE(Create(entry.progId(), &hr)) << testing::PrintToString(entry.name) << std::hex << hr;
  }
}

TEST(PublicClasses, ThereAreAsManyReportsAsParameterObjectsAndAbout) {
  EXPECT_EQ(23U, ReportClasses().size());
  EXPECT_EQ(23U, ParameterClasses().size());
  EXPECT_EQ(47U, PublicClasses().size());
}

TEST(PublicClasses, EachProgIdLeadsToItsFrozenClassId) {
  for (const ClassEntry& entry : PublicClasses()) {
    CLSID id = {};
    EXPECT_EQ(S_OK, CLSIDFromProgID(entry.progId().c_str(), &id)) << testing::PrintToString(entry.name);
    wchar_t text[39] = {};
    StringFromGUID2(id, text, 39);
    EXPECT_EQ(entry.clsid, text) << testing::PrintToString(entry.name);
  }
}

TEST(PublicClasses, AnOperatorRecordCannotBeCreatedByAClient) {
  CLSID id = {};
  EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromProgID(L"KodraRpt.OperadorObj", &id));
  Ref<IUnknown> object;
  EXPECT_EQ(REGDB_E_CLASSNOTREG, CoCreateInstance(ClassId(L"{EE99E09B-FE2D-4AEA-B5E8-2C89E7E734E9}"), nullptr,
                                                  CLSCTX_INPROC_SERVER, IID_IUnknown, object.put_void()));
  EXPECT_FALSE(object);
}

TEST(PublicClasses, AnErrorSnapshotCannotBeCreatedByAClient) {
  CLSID id = {};
  EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromProgID(L"KodraRpt.CErro", &id));
}

TEST(ReportObjects, AConnectionStringIsInitiallyEmptyAndIsStoredUnchanged) {
  for (const ReportEntry& entry : ReportClasses()) {
    const auto report = Create(std::wstring(L"KodraRpt.") + entry.name);
    EXPECT_EQ(L"", Got(Get(report, L"StringConexao")).text());
    for (const wchar_t* text : {L"  Provider=X;Data Source=São João ", L" ", L""}) {
      EXPECT_EQ(S_OK, Put(report, L"StringConexao", text).hr);
      EXPECT_EQ(text, Got(Get(report, L"StringConexao")).text()) << testing::PrintToString(entry.name);
    }
  }
}

TEST(ReportObjects, MemberNamesAreFoundInAnyLetterCase) {
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  EXPECT_EQ(S_OK, Put(report, L"STRINGCONEXAO", L"a").hr);
  EXPECT_EQ(L"a", Got(Get(report, L"stringconexao")).text());
  EXPECT_EQ(IdOf(report.get(), L"RelatorioDeptos"), IdOf(report.get(), L"relatoriodeptos"));
}

TEST(ReportObjects, ThePrivateInitialisationAndTheDatabaseCodeAreNoMembers) {
  for (const ReportEntry& entry : ReportClasses()) {
    const auto report = Create(std::wstring(L"KodraRpt.") + entry.name);
    for (const wchar_t* member : {L"InicializaPS", L"TipoBanco"}) {
      EXPECT_EQ(DISP_E_UNKNOWNNAME, Call(report, member, {Var::Nothing()}).hr) << testing::PrintToString(entry.name);
    }
  }
}

TEST(ReportObjects, TheArgumentOfEachReportMethodHasItsName) {
  for (const ReportEntry& entry : ReportClasses()) {
    const auto report = Create(std::wstring(L"KodraRpt.") + entry.name);
    for (std::wstring method : entry.methods) {
      std::wstring argument = entry.argument;
      wchar_t* names[] = {method.data(), argument.data()};
      DISPID ids[] = {DISPID_UNKNOWN, DISPID_UNKNOWN};
      EXPECT_EQ(S_OK, report->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids))
          << testing::PrintToString(method);
      EXPECT_EQ(0, ids[1]) << testing::PrintToString(method);
    }
  }
}

TEST(ReportObjects, AnArgumentGivenByNameReachesTheMethod) {
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  const Var parameters(Create(L"KodraRpt.CDeptoRptObj").get());
  VARIANT argument = parameters.raw();
  DISPID obj = 0;
  DISPPARAMS arguments = {&argument, &obj, 1, 1};
  Var rows;
  EXCEPINFO info = {};
  const HRESULT hr = report->Invoke(IdOf(report.get(), L"RelatorioDeptos"), IID_NULL, LOCALE_USER_DEFAULT,
                                    DISPATCH_METHOD, &arguments, rows.put(), &info, nullptr);
  EXPECT_EQ(S_OK, hr) << testing::PrintToString(TakeFailure(hr, info));
  EXPECT_TRUE(rows.object());
}

TEST(ReportObjects, AMethodWithoutItsArgumentIsRefused) {
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, Call(report, L"RelatorioDeptos").hr);
}

Var InitialValue(const PropertyEntry& property) {
  switch (property.kind) {
    case Kind::kDate:
      return Var::Date(0);
    case Kind::kFlag:
      return Var(false);
    default:
      return Var(property.initial);
  }
}

// A value that a client assigns to a property, and the value that the property then has.
struct Assignment {
  Var given;
  Var expected;
};

std::vector<Assignment> AssignmentsTo(Kind kind) {
  switch (kind) {
    case Kind::kDate:
      return {{Var::Date(36526.75), Var::Date(36526.75)}, {Var::Date(-1.5), Var::Date(-1.5)}};
    case Kind::kFlag:
      return {{Var(true), Var(true)}, {Var(false), Var(false)}};
    case Kind::kInitial:
      return {{L"vencidas", L"V"}, {L"V", L"V"}, {L"ébano", L"É"}, {L" v", L" "}, {L"", L""}};
    case Kind::kTrimmed:
      return {{L"  são João  ", L"são João"}, {L"   ", L""}, {L"x", L"x"}, {L"", L""}};
    default:
      return {{L"  são João  ", L"  são João  "}, {L"'; --", L"'; --"}, {L"", L""}};
  }
}

TEST(ParameterObjects, EachPropertyHasItsInitialValue) {
  for (const ParameterEntry& entry : ParameterClasses()) {
    const auto object = Create(std::wstring(L"KodraRpt.") + entry.name);
    for (const PropertyEntry& property : entry.properties) {
      const Var initial = Got(Get(object, property.name));
      const Var expected = InitialValue(property);
      EXPECT_EQ(expected.type(), initial.type()) << testing::PrintToString(entry.name) << property.name;
      EXPECT_EQ(expected.text(), initial.text()) << testing::PrintToString(entry.name) << property.name;
    }
  }
}

TEST(ParameterObjects, EachPropertyKeepsAValueAsItsKindRequires) {
  for (const ParameterEntry& entry : ParameterClasses()) {
    const auto object = Create(std::wstring(L"KodraRpt.") + entry.name);
    for (const PropertyEntry& property : entry.properties) {
      for (const Assignment& assignment : AssignmentsTo(property.kind)) {
        EXPECT_EQ(S_OK, Put(object, property.name, assignment.given).hr);
        const Var value = Got(Get(object, property.name));
        EXPECT_EQ(assignment.expected.type(), value.type()) << testing::PrintToString(entry.name) << property.name;
        EXPECT_EQ(assignment.expected.text(), value.text()) << testing::PrintToString(entry.name) << property.name;
      }
    }
  }
}

TEST(ParameterObjects, AssigningOnePropertyLeavesTheOthers) {
  for (const ParameterEntry& entry : ParameterClasses()) {
    const auto object = Create(std::wstring(L"KodraRpt.") + entry.name);
    for (const PropertyEntry& property : entry.properties)
      EXPECT_EQ(S_OK, Put(object, property.name, AssignmentsTo(property.kind).front().given).hr);
    for (const PropertyEntry& property : entry.properties)
      EXPECT_EQ(AssignmentsTo(property.kind).front().expected.text(), Got(Get(object, property.name)).text())
          << testing::PrintToString(entry.name) << property.name;
  }
}

TEST(ParameterObjects, TwoObjectsOfAClassShareNothing) {
  const auto one = Create(L"KodraRpt.CDeptoRptObj");
  const auto other = Create(L"KodraRpt.CDeptoRptObj");
  EXPECT_EQ(S_OK, Put(one, L"Owner", L"Arquivo Geral").hr);
  EXPECT_EQ(L"", Got(Get(other, L"Owner")).text());
}

TEST(ParameterObjects, AValueOfAnotherTypeIsConvertedAsAutomationDoes) {
  const auto object = Create(L"KodraRpt.CSolicitacaoRptObj");
  EXPECT_EQ(S_OK, Put(object, L"CodSolicit", 12).hr);
  EXPECT_EQ(L"12", Got(Get(object, L"CodSolicit")).text());
  EXPECT_EQ(S_OK, Put(object, L"ListarJaDevolvidos", 1).hr);
  EXPECT_EQ(-1, Got(Get(object, L"ListarJaDevolvidos")).raw().boolVal);
}

TEST(ParameterObjects, AValueThatCannotBeConvertedIsRefusedAndChangesNothing) {
  const auto object = Create(L"KodraRpt.CLogRptObj");
  EXPECT_EQ(S_OK, Put(object, L"DataInicial", Var::Date(2)).hr);
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Put(object, L"DataInicial", L"ontem").hr);
  EXPECT_EQ(2, Got(Get(object, L"DataInicial")).raw().date);
}

TEST(AboutObject, ReturnsTheVersion) { EXPECT_EQ(L"1.0.49", Got(Call(Create(L"KodraRpt.About"), L"Versao")).text()); }

TEST(AboutObject, ReturnsTheFileOfTheComponent) {
  const std::wstring dll = DllPath();
  EXPECT_EQ(dll.substr(0, dll.size() - 4) + L".DLL", Got(Call(Create(L"KodraRpt.About"), L"Executavel")).text());
}

TEST(AboutObject, ReturnsTheProgramOfTheSameNameBesideTheComponent) {
  const TemporaryFile dll(L"copia.dll");
  const TemporaryFile program(L"copia.exe");
  ASSERT_TRUE(CopyFileW(DllPath().c_str(), dll.windowsPath().c_str(), FALSE)) << GetLastError();
  program.CreateEmpty();
  const Server server(dll.windowsPath());
  const auto about = server.Create<IDispatch>(ClassId(kAboutClsid));
  const std::wstring path = dll.windowsPath();
  EXPECT_EQ(path.substr(0, path.size() - 4) + L".EXE", Got(Call(about, L"Executavel")).text());
}

}  // namespace
}  // namespace kodra::face

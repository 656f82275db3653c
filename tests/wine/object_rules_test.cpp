// COM's rules for objects, class factories and the DLL itself, which every public class keeps.
#include <kodrarpt.h>
#include <objbase.h>

#include "tests/wine/automation.h"
#include "tests/wine/public_face.h"
#include "tests/wine/server.h"

namespace kodra::face {
namespace {

// An interface that no class of the component has.
const IID kForeignInterface = {0x5c1d0d0a, 0x3b7e, 0x4c0e, {0x8f, 0x10, 0x21, 0x32, 0x43, 0x54, 0x65, 0x76}};

// Uses a copy of the DLL, because COM may still hold objects of the registered one.
class ObjectRules : public testing::Test {
 protected:
  ObjectRules() : copy_(L"regras.dll") {
    EXPECT_TRUE(CopyFileW(DllPath().c_str(), copy_.windowsPath().c_str(), FALSE));
  }

  // Runs `body` on a new object of each public class.
  template <class Body>
  void ForEachClass(Body body) {
    const Server server(copy_.windowsPath());
    for (const ClassEntry& entry : PublicClasses()) {
      SCOPED_TRACE(testing::PrintToString(entry.name));
      body(server.Create<IUnknown>(ClassId(entry.clsid)));
    }
    EXPECT_EQ(S_OK, server.CanUnloadNow());
  }

  TemporaryFile copy_;
};

TEST_F(ObjectRules, AnUnknownInterfaceIsRefusedAndTheOutPointerIsNull) {
  ForEachClass([](const Ref<IUnknown>& object) {
    void* out = &out;
    EXPECT_EQ(E_NOINTERFACE, object->QueryInterface(kForeignInterface, &out));
    EXPECT_EQ(nullptr, out);
    out = &out;
    EXPECT_EQ(E_NOINTERFACE, object->QueryInterface(IID_IClassFactory, &out));
    EXPECT_EQ(nullptr, out);
  });
}

TEST_F(ObjectRules, AnAbsentOutPointerIsRefused) {
  ForEachClass([](const Ref<IUnknown>& object) {
    EXPECT_EQ(E_POINTER, object->QueryInterface(IID_IUnknown, nullptr));
    const auto dispatch = object.As<IDispatch>();
    EXPECT_EQ(E_POINTER, dispatch->GetTypeInfoCount(nullptr));
    EXPECT_EQ(E_POINTER, dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, nullptr));
    EXPECT_EQ(E_POINTER, object.As<IProvideClassInfo>()->GetClassInfo(nullptr));
  });
}

TEST_F(ObjectRules, EveryInterfaceLeadsToEveryOtherAndToOneIdentity) {
  ForEachClass([](const Ref<IUnknown>& object) {
    const IID* ids[] = {&IID_IUnknown, &IID_IDispatch, &IID_ISupportErrorInfo, &IID_IProvideClassInfo};
    for (const IID* from : ids) {
      Ref<IUnknown> one;
      ASSERT_EQ(S_OK, object->QueryInterface(*from, one.put_void()));
      for (const IID* to : ids) {
        Ref<IUnknown> other;
        EXPECT_EQ(S_OK, one->QueryInterface(*to, other.put_void()));
        EXPECT_EQ(object.As<IUnknown>().get(), other.As<IUnknown>().get());
      }
    }
  });
}

TEST_F(ObjectRules, TheLastReleaseReturnsZero) {
  const Server server(copy_.windowsPath());
  for (const ClassEntry& entry : PublicClasses()) {
    auto object = server.Create<IUnknown>(ClassId(entry.clsid));
    EXPECT_EQ(2U, object->AddRef()) << testing::PrintToString(entry.name);
    EXPECT_EQ(1U, object->Release()) << testing::PrintToString(entry.name);
    EXPECT_EQ(0U, object.Release()) << testing::PrintToString(entry.name);
  }
}

TEST_F(ObjectRules, TypeInformationIsThatOfTheDefaultInterface) {
  ForEachClass([](const Ref<IUnknown>& object) {
    const auto dispatch = object.As<IDispatch>();
    UINT count = 0;
    EXPECT_EQ(S_OK, dispatch->GetTypeInfoCount(&count));
    EXPECT_EQ(1U, count);
    Ref<ITypeInfo> info;
    ASSERT_EQ(S_OK, dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()));
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, info->GetTypeAttr(&attributes));
    EXPECT_EQ(TKIND_DISPATCH, attributes->typekind);
    Ref<IUnknown> byInterface;
    EXPECT_EQ(S_OK, object->QueryInterface(attributes->guid, byInterface.put_void()));
    EXPECT_EQ(S_OK, object.As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(attributes->guid));
    info->ReleaseTypeAttr(attributes);
    Ref<ITypeInfo> second;
    EXPECT_EQ(DISP_E_BADINDEX, dispatch->GetTypeInfo(1, LOCALE_USER_DEFAULT, second.put()));
    EXPECT_FALSE(second);
  });
}

TEST_F(ObjectRules, ErrorInformationIsPromisedForTheDefaultInterfaceOnly) {
  ForEachClass([](const Ref<IUnknown>& object) {
    const auto support = object.As<ISupportErrorInfo>();
    EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(IID_IUnknown));
    EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(IID_IProvideClassInfo));
    EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(kForeignInterface));
  });
}

TEST_F(ObjectRules, ClassInformationNamesTheClass) {
  const Server server(copy_.windowsPath());
  for (const ClassEntry& entry : PublicClasses()) {
    Ref<ITypeInfo> info;
    ASSERT_EQ(S_OK, server.Create<IProvideClassInfo>(ClassId(entry.clsid))->GetClassInfo(info.put()));
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, info->GetTypeAttr(&attributes));
    EXPECT_EQ(TKIND_COCLASS, attributes->typekind);
    EXPECT_TRUE(attributes->guid == ClassId(entry.clsid)) << testing::PrintToString(entry.name);
    info->ReleaseTypeAttr(attributes);
  }
}

TEST_F(ObjectRules, AMemberRefusesAnAbsentResult) {
  const Server server(copy_.windowsPath());
  const auto report = server.Create<ICDeptoRpt>(__uuidof(::CDeptoRpt));
  EXPECT_EQ(E_POINTER, report->get_StringConexao(nullptr));
  EXPECT_EQ(E_POINTER, report->RelatorioDeptos(nullptr, nullptr));
  const auto parameters = server.Create<ICCaixaRptObj>(__uuidof(::CCaixaRptObj));
  EXPECT_EQ(E_POINTER, parameters->get_Owner(nullptr));
  EXPECT_EQ(E_POINTER, parameters->get_SomenteExistentes(nullptr));
  EXPECT_EQ(E_POINTER, server.Create<ICLogRptObj>(__uuidof(::CLogRptObj))->get_DataInicial(nullptr));
  EXPECT_EQ(E_POINTER, server.Create<IAbout>(__uuidof(::About))->Versao(nullptr));
}

TEST_F(ObjectRules, AnAbsentResultIsRefusedWithoutTheErrorOfAnEarlierCall) {
  const Server server(copy_.windowsPath());
  const auto report = server.Create<ICDeptoRpt>(__uuidof(::CDeptoRpt));
  Ref<IDispatch> rows;
  EXPECT_TRUE(FAILED(report->RelatorioDeptos(nullptr, rows.put())));
  EXPECT_EQ(E_POINTER, report->RelatorioDeptos(nullptr, nullptr));
  Ref<IErrorInfo> info;
  EXPECT_EQ(S_FALSE, GetErrorInfo(0, info.put()));
  EXPECT_TRUE(FAILED(report->RelatorioDeptos(nullptr, rows.put())));
  EXPECT_EQ(E_POINTER, report->get_StringConexao(nullptr));
  EXPECT_EQ(S_FALSE, GetErrorInfo(0, info.put()));
}

// While an exception is thrown and caught, the C++ runtime reads its values of the thread, and on Windows this clears
// the last error.
TEST_F(ObjectRules, AFailedCallLeavesTheThreadsLastErrorUnchanged) {
  const Server server(copy_.windowsPath());
  const auto report = server.Create<ICDeptoRpt>(__uuidof(::CDeptoRpt));
  for (int call = 0; call < 2; ++call) {
    Ref<IDispatch> rows;
    SetLastError(ERROR_ARENA_TRASHED);
    EXPECT_EQ(kReportError, report->RelatorioDeptos(nullptr, rows.put()));
    EXPECT_EQ(static_cast<DWORD>(ERROR_ARENA_TRASHED), GetLastError());
  }
}

TEST_F(ObjectRules, AFailedCallEmptiesItsResult) {
  const Server server(copy_.windowsPath());
  const auto report = server.Create<ICDeptoRpt>(__uuidof(::CDeptoRpt));
  IDispatch* const before = report.get();
  IDispatch* rows = before;
  EXPECT_TRUE(FAILED(report->RelatorioDeptos(nullptr, &rows)));
  EXPECT_EQ(nullptr, rows);
}

TEST_F(ObjectRules, ANullTextIsTheEmptyText) {
  const Server server(copy_.windowsPath());
  const auto report = server.Create<ICDeptoRpt>(__uuidof(::CDeptoRpt));
  EXPECT_EQ(S_OK, report->put_StringConexao(Bstr(L"x")));
  EXPECT_EQ(S_OK, report->put_StringConexao(nullptr));
  Bstr text;
  EXPECT_EQ(S_OK, report->get_StringConexao(text.put()));
  EXPECT_NE(nullptr, static_cast<BSTR>(text));
  EXPECT_EQ(L"", text.text());
}

TEST_F(ObjectRules, ATextKeepsItsEmbeddedZeros) {
  const Server server(copy_.windowsPath());
  const auto parameters = server.Create<ICDeptoRptObj>(__uuidof(::CDeptoRptObj));
  const std::wstring given(L"a\0b", 3);
  EXPECT_EQ(S_OK, parameters->put_Owner(Bstr(given)));
  Bstr text;
  EXPECT_EQ(S_OK, parameters->get_Owner(text.put()));
  EXPECT_EQ(given, text.text());
}

TEST_F(ObjectRules, NoClassCanBeAggregated) {
  const Server server(copy_.windowsPath());
  for (const ClassEntry& entry : PublicClasses()) {
    const auto factory = server.Factory(ClassId(entry.clsid));
    void* out = &out;
    EXPECT_EQ(CLASS_E_NOAGGREGATION, factory->CreateInstance(factory.get(), IID_IUnknown, &out));
    EXPECT_EQ(nullptr, out) << testing::PrintToString(entry.name);
  }
}

TEST_F(ObjectRules, AFactoryRefusesAnInterfaceThatTheClassDoesNotHaveAndLeavesNoObject) {
  const Server server(copy_.windowsPath());
  auto factory = server.Factory(__uuidof(::CDeptoRpt));
  void* out = &out;
  EXPECT_EQ(E_NOINTERFACE, factory->CreateInstance(nullptr, kForeignInterface, &out));
  EXPECT_EQ(nullptr, out);
  EXPECT_EQ(E_POINTER, factory->CreateInstance(nullptr, IID_IUnknown, nullptr));
  EXPECT_EQ(0U, factory.Release());
  EXPECT_EQ(S_OK, server.CanUnloadNow());
}

TEST_F(ObjectRules, AFactoryIsAClassFactoryAndNothingElse) {
  const Server server(copy_.windowsPath());
  auto factory = server.Factory(__uuidof(::CDeptoRpt));
  EXPECT_TRUE(factory.As<IUnknown>());
  void* out = &out;
  EXPECT_EQ(E_NOINTERFACE, factory->QueryInterface(IID_IDispatch, &out));
  EXPECT_EQ(nullptr, out);
  EXPECT_EQ(E_POINTER, factory->QueryInterface(IID_IUnknown, nullptr));
}

TEST_F(ObjectRules, AnUnknownClassHasNoFactory) {
  const Server server(copy_.windowsPath());
  for (const CLSID& id : {kForeignInterface, __uuidof(::OperadorObj)}) {
    void* out = &out;
    EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, server.GetClassObject(id, IID_IClassFactory, &out));
    EXPECT_EQ(nullptr, out);
  }
}

TEST_F(ObjectRules, AnUnknownInterfaceOfAFactoryIsRefusedAndAnAbsentOutPointerToo) {
  const Server server(copy_.windowsPath());
  void* out = &out;
  EXPECT_EQ(E_NOINTERFACE, server.GetClassObject(__uuidof(::CDeptoRpt), kForeignInterface, &out));
  EXPECT_EQ(nullptr, out);
  EXPECT_EQ(E_POINTER, server.GetClassObject(__uuidof(::CDeptoRpt), IID_IClassFactory, nullptr));
  EXPECT_EQ(S_OK, server.CanUnloadNow());
}

TEST_F(ObjectRules, AnObjectKeepsTheDllLoaded) {
  const Server server(copy_.windowsPath());
  EXPECT_EQ(S_OK, server.CanUnloadNow());
  for (const ClassEntry& entry : PublicClasses()) {
    auto object = server.Create<IDispatch>(ClassId(entry.clsid));
    EXPECT_EQ(S_FALSE, server.CanUnloadNow()) << testing::PrintToString(entry.name);
    EXPECT_EQ(0U, object.Release());
    EXPECT_EQ(S_OK, server.CanUnloadNow()) << testing::PrintToString(entry.name);
  }
}

TEST_F(ObjectRules, AFactoryKeepsTheDllLoaded) {
  const Server server(copy_.windowsPath());
  auto factory = server.Factory(__uuidof(::CDeptoRpt));
  EXPECT_EQ(S_FALSE, server.CanUnloadNow());
  EXPECT_EQ(0U, factory.Release());
  EXPECT_EQ(S_OK, server.CanUnloadNow());
}

TEST_F(ObjectRules, ALockKeepsTheDllLoadedUntilItsUnlock) {
  const Server server(copy_.windowsPath());
  auto factory = server.Factory(__uuidof(::CDeptoRpt));
  EXPECT_EQ(S_OK, factory->LockServer(TRUE));
  EXPECT_EQ(S_OK, factory->LockServer(TRUE));
  EXPECT_EQ(0U, factory.Release());
  EXPECT_EQ(S_FALSE, server.CanUnloadNow());
  factory = server.Factory(__uuidof(::About));
  EXPECT_EQ(S_OK, factory->LockServer(FALSE));
  EXPECT_EQ(S_OK, factory->LockServer(FALSE));
  EXPECT_EQ(0U, factory.Release());
  EXPECT_EQ(S_OK, server.CanUnloadNow());
}

TEST_F(ObjectRules, AnUnlockWithoutALockIsRefusedAndUnloadsNothing) {
  const Server server(copy_.windowsPath());
  auto object = server.Create<IDispatch>(__uuidof(::CDeptoRpt));
  auto factory = server.Factory(__uuidof(::CDeptoRpt));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(E_UNEXPECTED, factory->LockServer(FALSE));
  EXPECT_EQ(S_FALSE, server.CanUnloadNow());
  EXPECT_EQ(S_OK, factory->LockServer(TRUE));
  EXPECT_EQ(S_OK, factory->LockServer(FALSE));
  EXPECT_EQ(E_UNEXPECTED, factory->LockServer(FALSE));
  EXPECT_EQ(0U, factory.Release());
  EXPECT_EQ(S_FALSE, server.CanUnloadNow());
  EXPECT_EQ(0U, object.Release());
  EXPECT_EQ(S_OK, server.CanUnloadNow());
}

TEST_F(ObjectRules, TypeInformationOutlivesTheObjectThatReturnedIt) {
  const Server server(copy_.windowsPath());
  Ref<ITypeInfo> info;
  ASSERT_EQ(S_OK, server.Create<IDispatch>(__uuidof(::CDeptoRpt))->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()));
  EXPECT_EQ(S_OK, server.CanUnloadNow());
  Bstr name;
  EXPECT_EQ(S_OK, info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
  EXPECT_EQ(L"ICDeptoRpt", name.text());
}

}  // namespace
}  // namespace kodra::face

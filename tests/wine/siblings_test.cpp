// The classes of kodra_siblings.dll for a late-bound client that creates them by ProgID, their module and its
// registration.
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "tests/wine/automation.h"
#include "tests/wine/environment.h"
#include "tests/wine/registry_redirection.h"
#include "tests/wine/server.h"

namespace kodra::siblings {
namespace {

using face::Call;
using face::Create;
using face::Failure;
using face::Get;
using face::Got;
using face::Put;
using face::Ref;
using face::TemporaryFile;
using face::Var;

constexpr wchar_t kStrCon[] = L"KodraConexao.StrCon";
constexpr wchar_t kObtedor[] = L"KodraParamSist.Obtedor";

std::wstring DllPath() { return face::DllPath(L"kodra_siblings.dll"); }

Ref<IDispatch> Part(const Ref<IDispatch>& whole, const std::wstring& member) {
  return Got(Get(whole, member)).object();
}

std::optional<std::wstring> TextOf(const Ref<IDispatch>& object, const std::wstring& member) {
  return Got(Get(object, member)).text();
}

// The system parameters that a settings file with these contents has.
Ref<IDispatch> ParametersOf(const TemporaryFile& file, const char* contents) {
  std::ofstream(std::filesystem::path(file.windowsPath()), std::ios::binary) << contents;
  const auto obtedor = Create(kObtedor);
  EXPECT_EQ(Put(obtedor, L"ArquivoIni", file.windowsPath()).hr, S_OK);
  return Got(Call(obtedor, L"Obtem")).object();
}

TEST(Siblings, ReturnTheDatabaseCodeToALateBoundClient) {
  const auto sibling = Create(kStrCon);
  ASSERT_TRUE(sibling);
  EXPECT_EQ(Put(sibling, L"StrCon", L"Driver={SQLite3};Database=/dados/arquivo.db").hr, S_OK);
  EXPECT_EQ(Got(Get(sibling, L"TipoBanco")).type(), VT_I4);
  EXPECT_EQ(Got(Get(sibling, L"TipoBanco")).number(), 7);
  EXPECT_EQ(Put(sibling, L"strcon", L"Provider=MSDAORA;Data Source=arq").hr, S_OK);
  EXPECT_EQ(Got(Get(sibling, L"TIPOBANCO")).number(), 1);
  EXPECT_EQ(TextOf(sibling, L"StrCon"), L"Provider=MSDAORA;Data Source=arq");
}

TEST(Siblings, ReturnTheParametersOfAFileAsPartsOfAnObject) {
  const TemporaryFile file(L"parâmetros.ini");
  const auto parameters = ParametersOf(file, "[Nomes]\r\nSerie=Dossi\xea\r\n[Senha]\r\nMax_Dias=60\r\n");
  ASSERT_TRUE(parameters);
  EXPECT_EQ(TextOf(Part(parameters, L"Nomes"), L"Serie"), L"Dossiê");
  EXPECT_EQ(Got(Get(Part(parameters, L"Senha"), L"Max_Dias")).number(), 60);
  EXPECT_EQ(Got(Get(parameters, L"Usar_Diretorio")).raw().vt, VT_BOOL);
  EXPECT_EQ(Got(Get(parameters, L"Usar_Diretorio")).raw().boolVal, VARIANT_FALSE);
}

TEST(Siblings, ReturnTheParametersOfADatabase) {
  const auto obtedor = Create(kObtedor);
  ASSERT_TRUE(obtedor);
  EXPECT_EQ(Put(obtedor, L"StringConexao", face::ArchiveConnection()).hr, S_OK);
  const auto parameters = Got(Call(obtedor, L"Obtem")).object();
  ASSERT_TRUE(parameters);
  EXPECT_EQ(TextOf(Part(parameters, L"Nomes"), L"Grupo"), L"Grupo");
  EXPECT_EQ(TextOf(Part(parameters, L"Nomes"), L"Subgrupo"), L"Subgrupo");
  EXPECT_EQ(TextOf(Part(parameters, L"Nomes"), L"Serie"), L"Série");
  EXPECT_EQ(TextOf(Part(parameters, L"Nomes"), L"Serie_Plural"), L"Séries");
  EXPECT_EQ(Got(Get(Part(parameters, L"Senha"), L"Minutos_Bloqueio")).number(), 15);
  EXPECT_EQ(Got(Get(Part(parameters, L"Senha"), L"Max_Dias")).number(), 90);
  EXPECT_EQ(Got(Get(Part(parameters, L"Senha"), L"Verificar_Qualidade")).raw().boolVal, VARIANT_TRUE);
  EXPECT_EQ(Got(Get(parameters, L"Tamanho_Maximo_Importacao")).number(), 20);
}

TEST(Siblings, ReportAnErrorWithItsNumberSourceAndDescription) {
  EXPECT_EQ(Call(Create(kObtedor), L"Obtem").failure,
            (Failure{face::kSiblingError, L"KodraParamSist.Obtedor::Obtem",
                     L"É preciso definir \"StringConexao\" ou \"ArquivoIni\"."}));
}

TEST(Siblings, ReportARuntimeErrorAsAControlError) {
  EXPECT_EQ(Call(Create(kObtedor), L"Obtem", {1}).failure,
            (Failure{face::kWrongArgumentCount, L"KodraRpt",
                     L"Número de argumentos incorreto ou atribuição de propriedade inválida"}));
}

TEST(Siblings, RefuseAMemberThatTheyDoNotHave) {
  const auto sibling = Create(kStrCon);
  EXPECT_EQ(Get(sibling, L"Inexistente").hr, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Put(sibling, L"Inexistente", 1).hr, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Call(sibling, L"Inexistente").hr, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Put(sibling, L"TipoBanco", 1).hr, DISP_E_MEMBERNOTFOUND);
}

TEST(Siblings, RefuseAnIdThatTheyHaveNotReturned) {
  const auto sibling = Create(kStrCon);
  for (const DISPID id : {0, 1, -1})
    EXPECT_EQ(face::Invoke(sibling.get(), id, DISPATCH_PROPERTYGET).hr, DISP_E_MEMBERNOTFOUND) << id;
}

TEST(Siblings, ReturnTheSameIdForANameInAnyLetterCase) {
  const auto sibling = Create(kStrCon);
  const DISPID id = face::IdOf(sibling.get(), L"TipoBanco");
  EXPECT_NE(id, DISPID_UNKNOWN);
  EXPECT_EQ(face::IdOf(sibling.get(), L"TIPOBANCO"), id);
  EXPECT_NE(face::IdOf(sibling.get(), L"StrCon"), id);
}

TEST(Siblings, HaveNoTypeInformation) {
  const auto sibling = Create(kStrCon);
  UINT count = 7;
  EXPECT_EQ(sibling->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 0U);
  ITypeInfo* info = nullptr;
  EXPECT_EQ(sibling->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info), DISP_E_BADINDEX);
}

TEST(Siblings, AreOneObjectByEveryInterface) {
  const auto sibling = Create(kStrCon);
  EXPECT_EQ(sibling.As<IUnknown>().As<IDispatch>().get(), sibling.get());
  EXPECT_FALSE(sibling.As<IClassFactory>());
}

TEST(Siblings, CannotBeAggregated) {
  const auto outer = Create(kStrCon);
  CLSID id;
  ASSERT_EQ(CLSIDFromProgID(kStrCon, &id), S_OK);
  Ref<IUnknown> inner;
  EXPECT_EQ(CoCreateInstance(id, outer.get(), CLSCTX_INPROC_SERVER, IID_IUnknown, inner.put_void()),
            CLASS_E_NOAGGREGATION);
}

class SiblingsModule : public testing::Test {
 protected:
  HRESULT CanUnloadNow() const { return server_.CanUnloadNow(); }
  static Ref<IClassFactory> Factory() {
    CLSID id = {};
    EXPECT_EQ(CLSIDFromProgID(kStrCon, &id), S_OK);
    Ref<IClassFactory> factory;
    EXPECT_EQ(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.put_void()), S_OK);
    return factory;
  }

  const face::Server server_{DllPath()};
};

TEST_F(SiblingsModule, FreesAnObjectWithItsLastReferenceAndMayThenBeUnloaded) {
  auto sibling = Create(kStrCon);
  ASSERT_TRUE(sibling);
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  EXPECT_EQ(sibling->AddRef(), 2U);
  EXPECT_EQ(sibling->Release(), 1U);
  EXPECT_EQ(sibling.Release(), 0U);
  EXPECT_EQ(CanUnloadNow(), S_OK);
}

TEST_F(SiblingsModule, StaysLoadedWhileAPartOfAResultIsHeld) {
  const TemporaryFile file(L"partes.ini");
  auto names = Part(ParametersOf(file, "[Nomes]\r\nGrupo=Fundo\r\n"), L"Nomes");
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  EXPECT_EQ(TextOf(names, L"Grupo"), L"Fundo");
  EXPECT_EQ(names.Release(), 0U);
  EXPECT_EQ(CanUnloadNow(), S_OK);
}

TEST_F(SiblingsModule, StaysLoadedWhileItIsLocked) {
  EXPECT_EQ(Factory()->LockServer(TRUE), S_OK);
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  EXPECT_EQ(Factory()->LockServer(FALSE), S_OK);
  EXPECT_EQ(CanUnloadNow(), S_OK);
}

TEST_F(SiblingsModule, RefusesAnUnlockWithoutALockAndStaysLoadedForItsObjects) {
  auto factory = Factory();
  EXPECT_EQ(factory->LockServer(FALSE), E_UNEXPECTED);
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  factory = {};
  EXPECT_EQ(CanUnloadNow(), S_OK);
}

TEST_F(SiblingsModule, RefusesAClassThatItDoesNotHave) {
  Ref<IClassFactory> factory;
  EXPECT_EQ(server_.GetClassObject(IID_IDispatch, IID_IClassFactory, factory.put_void()), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_FALSE(factory);
}

class SiblingsRegistration : public SiblingsModule {
 protected:
  void SetUp() override { ASSERT_TRUE(registry_.IsActive()); }

  std::wstring Registered(const std::wstring& key, const wchar_t* name = nullptr) const {
    return registry_.Text(L"Software\\Classes\\" + key, name);
  }

  const face::RegistryRedirection registry_;
};

// Every class with its id, which never changes.
const std::map<std::wstring, std::wstring> kClasses = {
    {L"KodraConexao.StrCon", L"{5C253F7F-52F9-4989-8450-73613DAC1B79}"},
    {L"KodraParamSist.Obtedor", L"{31593D28-2616-41F4-8197-AF8F46B92C11}"},
    {L"KodraBsnV3.ObtedorDeTiposOperadores", L"{BA3D3EE2-4E99-4AFE-A0FF-F96D9EC3E1DA}"},
    {L"KodraBsnV3.ModulosBsn", L"{09688A78-3EB2-49E8-B0C9-BD8F082CB7BE}"},
    {L"KodraBsnV3.ModulosFiltro", L"{583F1FEE-6931-4906-B54F-059131D3FE9D}"},
    {L"KodraBsnV3.ObtedorDeModulos", L"{26481913-43EE-41F3-931D-ECC971364E68}"},
    {L"KodraRegEvt.RegEvtFind", L"{B630D5CB-CDB1-41FA-A210-58E497079A76}"},
    {L"KodraRegEvt.RegEvtDAO", L"{3744F50C-BAEC-4EE9-B956-8CB2B1E58F9D}"},
    {L"VantLog.FnLog", L"{ADC63066-889F-4C78-87C6-74B6F8F21155}"},
    {L"VantLib.Conversoes", L"{45C8AEED-A16E-453D-8720-6E7406C70A79}"},
    {L"KodraSuporte.Ouvinte", L"{33026BDD-B9F0-4566-A757-472D457829AB}"},
};

TEST_F(SiblingsRegistration, WritesItsClassesAndRemovesAllOfThem) {
  std::set<std::wstring> progIds{L"CLSID"};
  std::set<std::wstring> ids;
  for (const auto& [progId, id] : kClasses) {
    progIds.insert(progId);
    ids.insert(id);
  }
  ASSERT_EQ(server_.Register(), S_OK);
  EXPECT_EQ(registry_.KeysBelow(L"Software\\Classes"), progIds);
  EXPECT_EQ(registry_.KeysBelow(L"Software\\Classes\\CLSID"), ids);
  for (const auto& [progId, id] : kClasses) {
    EXPECT_EQ(Registered(progId + L"\\CLSID"), id);
    EXPECT_EQ(Registered(L"CLSID\\" + id + L"\\ProgID"), progId);
    EXPECT_EQ(Registered(L"CLSID\\" + id + L"\\InprocServer32"), DllPath());
    EXPECT_EQ(Registered(L"CLSID\\" + id + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
  }
  ASSERT_EQ(server_.Unregister(), S_OK);
  EXPECT_EQ(registry_.KeysBelow(L"Software\\Classes"), std::set<std::wstring>{L"CLSID"});
  EXPECT_EQ(registry_.KeysBelow(L"Software\\Classes\\CLSID"), std::set<std::wstring>{});
}

TEST_F(SiblingsModule, CreatesEveryClassAndReleasesIt) {
  for (const auto& [progId, id] : kClasses) {
    auto object = Create(progId);
    ASSERT_TRUE(object) << testing::PrintToString(progId);
    EXPECT_EQ(CanUnloadNow(), S_FALSE);
    EXPECT_EQ(object.Release(), 0U);
  }
  EXPECT_EQ(CanUnloadNow(), S_OK);
}

TEST_F(SiblingsRegistration, MayBeRemovedTwice) {
  EXPECT_EQ(server_.Unregister(), S_OK);
  EXPECT_EQ(server_.Unregister(), S_OK);
}

}  // namespace
}  // namespace kodra::siblings

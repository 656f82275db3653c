#include "siblings/sibling_classes.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>

#include "odbc/engine/surroundings.h"
#include "siblings/ini_file.h"
#include "testbed/archive/writer.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/testbed/sqlite_reader.h"

namespace kodra::siblings {
namespace {

TEST(SiblingClasses, RegistersEverySiblingUnderItsProgId) {
  struct Registry {
    std::map<std::wstring, std::function<ObjectRef()>> factories;
    void Register(const std::wstring& progId, std::function<ObjectRef()> factory) {
      factories[progId] = std::move(factory);
    }
  } registry;
  recorder::FakeSurroundings around;
  RegisterSiblings(registry, around);
  std::set<std::wstring> names;
  for (const auto& [progId, factory] : registry.factories) {
    names.insert(progId);
    EXPECT_NE(factory(), nullptr) << progId.c_str();
  }
  EXPECT_EQ(names, (std::set<std::wstring>{L"KodraBsnV3.ModulosBsn", L"KodraBsnV3.ModulosFiltro",
                                           L"KodraBsnV3.ObtedorDeModulos", L"KodraBsnV3.ObtedorDeTiposOperadores",
                                           L"KodraConexao.StrCon", L"KodraParamSist.Obtedor", L"KodraRegEvt.RegEvtDAO",
                                           L"KodraRegEvt.RegEvtFind", L"VantLib.Conversoes", L"VantLog.FnLog"}));
  EXPECT_EQ(registry.factories.at(L"KodraConexao.StrCon")()->Get(L"TipoBanco"), Value(4));
  EXPECT_EQ(registry.factories.at(L"KodraParamSist.Obtedor")()->Get(L"ArquivoIni"), Value(L""));
}

TEST(SiblingClasses, KeepTheirClassIds) {
  std::map<std::wstring_view, std::wstring_view> ids;
  for (const SiblingClass& entry : SiblingClasses()) ids[entry.progId] = entry.clsid;
  EXPECT_EQ(ids, (std::map<std::wstring_view, std::wstring_view>{
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
                 }));
}

TEST(SiblingClasses, ReadTheNamesOfTheSampleArchiveOverOdbc) {
  const testbed::TemporaryFile file("siblings.db");
  testbed::WriteSqlite(file.Path(), {.documents = 0});
  odbc::Surroundings machine;
  RegisterSiblings(machine);

  const ObjectRef obtedor = machine.CreateObject(L"kodraparamsist.obtedor");
  obtedor->Let(L"StringConexao", L"Driver={SQLite3};Database=" + DecodeText(file.Path()));
  const auto parameters = obtedor->Call(L"Obtem", {}).As<ObjectRef>();
  const auto names = parameters->Get(L"Nomes").As<ObjectRef>();
  EXPECT_EQ(names->Get(L"Subgrupo"), Value(L"Subgrupo"));
  EXPECT_EQ(names->Get(L"Serie_Plural"), Value(L"Séries"));
  const auto password = parameters->Get(L"Senha").As<ObjectRef>();
  EXPECT_EQ(password->Get(L"Minutos_Bloqueio"), Value(15));
  EXPECT_EQ(password->Get(L"Max_Dias"), Value(90));
  EXPECT_EQ(password->Get(L"Verificar_Qualidade"), Value(true));
  EXPECT_EQ(parameters->Get(L"Usar_Diretorio"), Value(false));
  EXPECT_EQ(parameters->Get(L"Tamanho_Maximo_Importacao"), Value(20));
}

}  // namespace
}  // namespace kodra::siblings

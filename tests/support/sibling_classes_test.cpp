#include "siblings/sibling_classes.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "demo/writer.h"
#include "platform/odbc/surroundings.h"
#include "recorder/fake_surroundings.h"
#include "siblings/ini_file.h"
#include "support/sqlite_reader.h"

namespace kodra::support {
namespace {

using platform::ObjectRef;
using platform::Value;

TEST(SiblingClasses, EntersEverySiblingUnderItsProgId) {
  struct Registry {
    std::map<std::wstring, std::function<ObjectRef()>> factories;
    void Register(const std::wstring& progId, std::function<ObjectRef()> factory) {
      factories[progId] = std::move(factory);
    }
  } registry;
  recorder::FakeSurroundings around;
  RegisterSiblings(registry, around);
  ASSERT_EQ(registry.factories.size(), 2U);
  EXPECT_EQ(registry.factories.at(L"KodraConexao.StrCon")()->Get(L"TipoBanco"), Value(4));
  EXPECT_EQ(registry.factories.at(L"KodraParamSist.Obtedor")()->Get(L"ArquivoIni"), Value(L""));
}

TEST(SiblingClasses, KeepTheirClassIds) {
  const auto classes = SiblingClasses();
  ASSERT_EQ(classes.size(), 2U);
  EXPECT_EQ(classes[0].clsid, L"{5C253F7F-52F9-4989-8450-73613DAC1B79}");
  EXPECT_EQ(classes[1].clsid, L"{31593D28-2616-41F4-8197-AF8F46B92C11}");
}

TEST(SiblingClasses, ReadTheNamesOfTheSampleArchiveOverOdbc) {
  const TemporaryFile file("siblings.db");
  demo::WriteSqlite(file.Path(), {.documents = 0});
  platform::odbc::Surroundings machine;
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
}  // namespace kodra::support

// Reading the installation's own settings.
#include "data/system_parameters.h"

#include <gtest/gtest.h>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::data {
namespace {

using recorder::Failure;
using recorder::FakeSurroundings;
using recorder::kObjectNotSet;
using recorder::kObjectRequired;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;

constexpr auto kConnection = L"Provider=SQLNCLI11;";
constexpr auto kSource = "modObtedorParamSist::ObtemParametroSistema";

class ObtemParametroSistemaTest : public testing::Test {
 protected:
  ObtemParametroSistemaTest() {
    Install(around_.NewObject(
        L"Parametros",
        {{L"Nomes",
          {around_.NewObject(L"Nomes", {{L"Grupo", {L"Classe"}},
                                        {L"Subgrupo", {L"Subclasse"}},
                                        {L"Serie", {L"Assunto"}},
                                        {L"Serie_Plural", {L"Assuntos"}}})}},
         {L"Senha",
          {around_.NewObject(L"Senha",
                             {{L"Minutos_Bloqueio", {15}}, {L"Max_Dias", {L"90"}}, {L"Verificar_Qualidade", {true}}})}},
         {L"Usar_Diretorio", {false}},
         {L"Tamanho_Maximo_Importacao", {Null{}}}}));
  }

  // Installs the sibling, which answers with that parameter set.
  void Install(const Value& set) { around_.Register(L"KodraParamSist.Obtedor", {{L"Obtem", {set}}}); }

  Value Read(const std::wstring& name, const std::wstring& source = kConnection) {
    return ObtemParametroSistema(name, source, around_);
  }
  Raised RaisedFor(const std::wstring& name, const std::wstring& source = kConnection) {
    return RaisedBy([&] { Read(name, source); });
  }

  FakeSurroundings around_;
};

TEST_F(ObtemParametroSistemaTest, ReadsAMemberOfAGroupStepByStep) {
  EXPECT_EQ(Read(L"NOME_SERIE"), Value(L"Assunto"));
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         R"(CreateObject("KodraParamSist.Obtedor") -> Object1)",
                                         R"(Object1.Let(StringConexao, "Provider=SQLNCLI11;"))",
                                         "Object1.Call(Obtem) -> Parametros",
                                         "Parametros.Get(Nomes) -> Nomes",
                                         R"(Nomes.Get(Serie) -> "Assunto")",
                                         "~Object1",
                                     }));
}

TEST_F(ObtemParametroSistemaTest, ReadsADirectMemberStepByStep) {
  EXPECT_EQ(Read(L"USAR_AD", L"C:\\kodra.ini"), Value(false));
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         R"(CreateObject("KodraParamSist.Obtedor") -> Object1)",
                                         R"(Object1.Let(ArquivoIni, "C:\kodra.ini"))",
                                         "Object1.Call(Obtem) -> Parametros",
                                         "Parametros.Get(Usar_Diretorio) -> False",
                                         "~Object1",
                                     }));
}

TEST_F(ObtemParametroSistemaTest, KnowsEveryParameterAndReturnsItsValueUnchanged) {
  const std::pair<const wchar_t*, Value> kParameters[] = {
      {L"NOME_GRUPO", L"Classe"},          {L"NOME_SUBGRUPO", L"Subclasse"},
      {L"NOME_SERIE", L"Assunto"},         {L"NOME_SERIE_PLURAL", L"Assuntos"},
      {L"MINUTOS_BLOQUEIO", 15},           {L"MAX_DIAS_SENHA", L"90"},
      {L"TESTAR_QUALIDADE_SENHA", true},   {L"USAR_AD", false},
      {L"TAMANHO_MAXIMO_ARQUIVO", Null{}},
  };
  for (const auto& [name, value] : kParameters) EXPECT_EQ(Read(name), value) << name;
}

TEST_F(ObtemParametroSistemaTest, AcceptsANameInAnyLetterCase) {
  EXPECT_EQ(Read(L"nome_serie"), Value(L"Assunto"));
  EXPECT_EQ(Read(L"Minutos_Bloqueio"), Value(15));
}

TEST_F(ObtemParametroSistemaTest, TreatsASourceThatNamesAProviderOrDriverAsAConnectionString) {
  for (const char* source : {"provider=x", "a=1;PROVIDER=x", "pRoViDeR =x", "driver=x", "Driver ={SQLite3}"}) {
    around_.journal.Forget();
    Read(L"USAR_AD", recorder::Wide(source));
    EXPECT_NE(around_.journal.Calls().find("Object1.Let(StringConexao, \"" + std::string(source) + "\")\n"),
              std::string::npos)
        << around_.journal.Calls();
  }
}

TEST_F(ObtemParametroSistemaTest, TreatsAnyOtherSourceAsAnIniFile) {
  for (const char* source : {"C:\\kodra.ini", "provider", "provider  =x", "DSN=x;Database=y", "driver:=", " "}) {
    around_.journal.Forget();
    Read(L"USAR_AD", recorder::Wide(source));
    EXPECT_NE(around_.journal.Calls().find("Object1.Let(ArquivoIni, \"" + std::string(source) + "\")\n"),
              std::string::npos)
        << around_.journal.Calls();
  }
}

TEST_F(ObtemParametroSistemaTest, RaisesForAnEmptySourceOnceTheSiblingIsThere) {
  EXPECT_EQ(RaisedFor(L"NOME_SERIE", L""),
            (Raised{kErrBase + 1, kSource, "Arquivo INI ou String de Conexão não informada."}));
  EXPECT_EQ(around_.journal.Calls(), Lines({R"(CreateObject("KodraParamSist.Obtedor") -> Object1)", "~Object1"}));
}

TEST_F(ObtemParametroSistemaTest, RaisesForAnUnknownNameAsPassedOnceTheSetIsRead) {
  EXPECT_EQ(RaisedFor(L"nome_Serie "), (Raised{kErrBase + 2, kSource, R"(Parâmetro desconhecido: "nome_Serie ".)"}));
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         R"(CreateObject("KodraParamSist.Obtedor") -> Object1)",
                                         R"(Object1.Let(StringConexao, "Provider=SQLNCLI11;"))",
                                         "Object1.Call(Obtem) -> Parametros",
                                         "~Object1",
                                     }));
}

TEST_F(ObtemParametroSistemaTest, RaisesForTheEmptyName) {
  EXPECT_EQ(RaisedFor(L""), (Raised{kErrBase + 2, kSource, R"(Parâmetro desconhecido: "".)"}));
}

TEST(ObtemParametroSistemaWithoutSiblingTest, NamesTheMissingClassEvenForAnEmptySource) {
  FakeSurroundings around;
  for (const wchar_t* source : {kConnection, L""}) {
    EXPECT_EQ(RaisedBy([&] { ObtemParametroSistema(L"NOME_SERIE", source, around); }),
              (Raised{429, kSource, R"(Não foi possível criar objeto da classe "KodraParamSist.Obtedor".)"}));
  }
}

TEST_F(ObtemParametroSistemaTest, FailsAtTheFirstUseOfASiblingThatCouldNotBeCreatedForAnotherReason) {
  around_.journal.FailOn(L"CreateObject", Failure(Erro(-2147024891, L"", L"Acesso negado")));
  EXPECT_EQ(RaisedFor(L"NOME_SERIE"), kObjectNotSet);
}

TEST_F(ObtemParametroSistemaTest, PassesOnTheSiblingsErrorsUnchanged) {
  for (const auto* call : {L"Object1.Let", L"Object1.Call", L"Parametros.Get", L"Nomes.Get"}) {
    around_.journal.Forget();
    around_.journal.FailOn(call, Failure(Erro(-2147220000, L"KodraParamSist", L"Sem acesso")));
    EXPECT_EQ(RaisedFor(L"NOME_SERIE"), (Raised{-2147220000, "KodraParamSist", "Sem acesso"}));
    EXPECT_EQ(around_.journal.LiveObjects(), 3);  // the set and its two groups
  }
}

TEST_F(ObtemParametroSistemaTest, RaisesForASetThatIsNotAnObject) {
  Install(L"texto");
  EXPECT_EQ(RaisedFor(L"NOME_SERIE"), kObjectRequired);
  Install(ObjectRef{});
  EXPECT_EQ(RaisedFor(L"NOME_SERIE"), kObjectNotSet);
}

}  // namespace
}  // namespace kodra::data

#include "siblings/obtedor.h"

#include <gtest/gtest.h>

#include <fstream>

#include "siblings/ini_file.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"
#include "tests/testbed/sqlite_reader.h"

namespace kodra::siblings {
namespace {

using recorder::kTypeMismatch;
using recorder::Raised;
using recorder::RaisedBy;

// The content of the parameter set, one value per line.
std::string Shown(const Value& parameters) {
  const auto& object = parameters.As<ObjectRef>();
  std::wstring text;
  const auto add = [&](std::wstring_view part, const ObjectRef& from, std::initializer_list<const wchar_t*> members) {
    for (const wchar_t* member : members) {
      text += std::wstring(part) + member + L"=" + recorder::Shown(from->Get(member)) + L"\n";
    }
  };
  add(L"Nomes.", object->Get(L"Nomes").As<ObjectRef>(), {L"Grupo", L"Subgrupo", L"Serie", L"Serie_Plural"});
  add(L"Senha.", object->Get(L"Senha").As<ObjectRef>(), {L"Minutos_Bloqueio", L"Max_Dias", L"Verificar_Qualidade"});
  add(L"", object, {L"Usar_Diretorio", L"Tamanho_Maximo_Importacao"});
  return recorder::Utf8(text);
}

const std::string kDefaults = recorder::Lines({
    "Nomes.Grupo=\"Grupo\"",
    "Nomes.Subgrupo=\"Subgrupo\"",
    "Nomes.Serie=\"Série\"",
    "Nomes.Serie_Plural=\"Séries\"",
    "Senha.Minutos_Bloqueio=0",
    "Senha.Max_Dias=0",
    "Senha.Verificar_Qualidade=False",
    "Usar_Diretorio=False",
    "Tamanho_Maximo_Importacao=0",
});

class ObtedorTest : public testing::Test {
 protected:
  Value FromFile(const std::string& contents) {
    const testbed::TemporaryFile file("parametros.ini");
    std::ofstream(file.Path(), std::ios::binary) << contents;
    obtedor_.Let(L"ArquivoIni", DecodeText(file.Path()));
    return obtedor_.Call(L"Obtem", {});
  }
  Value FromDatabase(std::vector<Value> row) {
    recorder::Rows rows{{L"NOMEGRUPO", L"NOMESUBGRUPO", L"NOMESERIE", L"NOMESERIEPLURAL", L"MINUTOS_BLOQUEIO",
                         L"MAX_DIAS_SENHA", L"TESTAR_QUALIDADE_SENHA", L"USAR_AD", L"TAMANHO_MAXIMO_ARQUIVO"},
                        {}};
    if (!row.empty()) rows.rows.push_back(std::move(row));
    around_.ado.results.push_back(std::move(rows));
    obtedor_.Let(L"StringConexao", L"Driver={SQLite3};Database=a.db");
    return obtedor_.Call(L"Obtem", {});
  }

  recorder::FakeSurroundings around_;
  Obtedor obtedor_{around_};
};

TEST_F(ObtedorTest, ReadsEveryParameterFromTheDatabase) {
  const Value parameters = FromDatabase({L"Fundo", L"Seção", L"Dossiê", L"Dossiês", 15, 90, L"S", L"N", 20});
  EXPECT_EQ(Shown(parameters), recorder::Lines({
                                   "Nomes.Grupo=\"Fundo\"",
                                   "Nomes.Subgrupo=\"Seção\"",
                                   "Nomes.Serie=\"Dossiê\"",
                                   "Nomes.Serie_Plural=\"Dossiês\"",
                                   "Senha.Minutos_Bloqueio=15",
                                   "Senha.Max_Dias=90",
                                   "Senha.Verificar_Qualidade=True",
                                   "Usar_Diretorio=False",
                                   "Tamanho_Maximo_Importacao=20",
                               }));
}

TEST_F(ObtedorTest, SelectsTheInstallationsOwnRow) {
  FromDatabase({L"Fundo", L"Seção", L"Dossiê", L"Dossiês", 15, 90, L"S", L"N", 20});
  EXPECT_NE(around_.journal.Calls().find(
                "Recordset1.Open(\"SELECT NOMEGRUPO, NOMESUBGRUPO, NOMESERIE, NOMESERIEPLURAL, MINUTOS_BLOQUEIO, "
                "MAX_DIAS_SENHA, TESTAR_QUALIDADE_SENHA, USAR_AD, TAMANHO_MAXIMO_ARQUIVO FROM PARAMETRO "
                "WHERE CODIGO = '1'\", Connection1, 0, 1, 1)\n"),
            std::string::npos)
      << around_.journal.Calls();
  EXPECT_EQ(around_.journal.LiveObjects(), 0);
}

TEST_F(ObtedorTest, ReturnsDefaultsForNulls) {
  EXPECT_EQ(Shown(FromDatabase({Null(), Null(), Null(), Null(), Null(), Null(), Null(), Null(), Null()})), kDefaults);
}

TEST_F(ObtedorTest, TakesAFlagAsTextOrAsNumber) {
  const auto qualityFor = [&](const Value& flag) {
    const Value parameters = FromDatabase({L"", L"", L"", L"", 0, 0, flag, L"N", 0});
    return parameters.As<ObjectRef>()->Get(L"Senha").As<ObjectRef>()->Get(L"Verificar_Qualidade");
  };
  for (const wchar_t* yes : {L"1", L"S", L"s", L"T", L"V", L"Y", L"Sim"})
    EXPECT_EQ(qualityFor(yes), Value(true)) << yes;
  for (const wchar_t* no : {L"", L"0", L"N", L"não", L" "}) EXPECT_EQ(qualityFor(no), Value(false)) << no;
  EXPECT_EQ(qualityFor(1), Value(true));
  EXPECT_EQ(qualityFor(0), Value(false));
  EXPECT_EQ(qualityFor(true), Value(true));
}

TEST_F(ObtedorTest, FailsWhenTheDatabaseHasNoParameters) {
  EXPECT_EQ(RaisedBy([&] { FromDatabase({}); }), (Raised{kErrBase + 3, "KodraParamSist.Obtedor::Obtem",
                                                         "Parâmetros do sistema não encontrados no banco de dados."}));
}

TEST_F(ObtedorTest, PassesOnAnErrorOfTheDatabase) {
  around_.journal.FailOn(L"Connection1.Open", recorder::Failure(Erro(-2147467259, L"Driver", L"Sem rede")));
  EXPECT_EQ(RaisedBy([&] { FromDatabase({}); }), (Raised{-2147467259, "Driver", "Sem rede"}));
}

TEST_F(ObtedorTest, ReadsEveryParameterFromAFile) {
  EXPECT_EQ(Shown(FromFile("[Nomes]\r\nGrupo=Fundo\r\nSubgrupo=Se\xe7\xe3o\r\nSerie=Dossi\xea\r\n"
                           "Serie_Plural=Dossi\xeas\r\n[Senha]\r\nMinutos_Bloqueio=10\r\nMax_Dias=60\r\n"
                           "Verificar_Qualidade=Sim\r\n[Geral]\r\nUsar_Diretorio=1\r\n"
                           "Tamanho_Maximo_Importacao=50\r\n")),
            recorder::Lines({
                "Nomes.Grupo=\"Fundo\"",
                "Nomes.Subgrupo=\"Seção\"",
                "Nomes.Serie=\"Dossiê\"",
                "Nomes.Serie_Plural=\"Dossiês\"",
                "Senha.Minutos_Bloqueio=10",
                "Senha.Max_Dias=60",
                "Senha.Verificar_Qualidade=True",
                "Usar_Diretorio=True",
                "Tamanho_Maximo_Importacao=50",
            }));
}

TEST_F(ObtedorTest, ReturnsDefaultsForAnEmptyFile) { EXPECT_EQ(Shown(FromFile("")), kDefaults); }

TEST_F(ObtedorTest, FailsOnAMissingFile) {
  obtedor_.Let(L"ArquivoIni", L"/não/há.ini");
  EXPECT_EQ(RaisedBy([&] { obtedor_.Call(L"Obtem", {}); }),
            (Raised{kErrBase + 2, "KodraParamSist.Obtedor::Obtem", "Arquivo INI \"/não/há.ini\" não encontrado."}));
}

TEST_F(ObtedorTest, FailsOnTextInPlaceOfANumber) {
  EXPECT_EQ(RaisedBy([&] { FromFile("[Senha]\nMax_Dias=muitos\n"); }), kTypeMismatch);
}

TEST_F(ObtedorTest, FailsWithoutASource) {
  EXPECT_EQ(RaisedBy([&] { obtedor_.Call(L"Obtem", {}); }),
            (Raised{kErrBase + 1, "KodraParamSist.Obtedor::Obtem",
                    "É preciso definir \"StringConexao\" ou \"ArquivoIni\"."}));
}

TEST_F(ObtedorTest, PrefersTheDatabaseWhenBothSourcesAreSet) {
  obtedor_.Let(L"ArquivoIni", L"/não/há.ini");
  const Value parameters = FromDatabase({L"Fundo", L"", L"", L"", 0, 0, L"", L"", 0});
  EXPECT_EQ(parameters.As<ObjectRef>()->Get(L"Nomes").As<ObjectRef>()->Get(L"Grupo"), Value(L"Fundo"));
}

}  // namespace
}  // namespace kodra::siblings

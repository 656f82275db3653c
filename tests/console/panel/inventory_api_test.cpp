// The comparison of scanned codes that the page asks for: the rows and files of `kodrarpt confere`.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "console/panel/panel.h"
#include "tests/console/panel/http_client.h"
#include "tests/console/run.h"
#include "tests/console/typed_input.h"
#include "tests/db/sample.h"
#include "values/utf8.h"

namespace kodra::console::panel {
namespace {

using nlohmann::json;
using tests::Engine;
using tests::Reply;
using tests::Visitor;
using values::ToUtf8;

// AB001 and AB002 are in the container C1, AB003 in C2.
std::wstring Archive() {
  return tests::DatabaseOf(
      Engine::kSqlite, L"leitura",
      {
          L"CREATE TABLE CONTAINER (NUM_CONTAINER VARCHAR(10), DESC_CONTAINER VARCHAR(50))",
          L"INSERT INTO CONTAINER VALUES ('C1', 'Um'), ('C2', 'Dois')",
          L"CREATE TABLE CAIXA (NUM_CAIXA VARCHAR(5), DESC_CAIXA VARCHAR(50), DOC_INICIAL VARCHAR(10), DOC_FINAL "
          L"VARCHAR(10), DATA_VENCIMENTO DATE, DATA_FECHAMENTO DATE, COORD_X VARCHAR(5), COORD_Y VARCHAR(5), COORD_Z "
          L"VARCHAR(5), CONTAINER VARCHAR(10), TIPO_GUARDA VARCHAR(1))",
          L"INSERT INTO CAIXA (NUM_CAIXA, COORD_X, CONTAINER) VALUES ('AB001', '1', 'C1'), ('AB002', '4', 'C1'), "
          L"('AB003', NULL, 'C2')",
          L"CREATE TABLE CAIXA_SUBORDINADA (NUM_CAIXA VARCHAR(5), NUM_SEQ INTEGER, DOC_INICIAL VARCHAR(10), DOC_FINAL "
          L"VARCHAR(10), DATA_VENCIMENTO DATE, DATA_FECHAMENTO DATE, TIPO_GUARDA VARCHAR(1))",
          L"INSERT INTO CAIXA_SUBORDINADA (NUM_CAIXA, NUM_SEQ) VALUES ('AB001', 1)",
          L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(50))",
          L"INSERT INTO SUPORTE VALUES ('P', 'Papel')",
          L"CREATE TABLE DOCUMENTO (COD_DOCTO VARCHAR(10), COD_SUPORTE VARCHAR(10), NUM_CAIXA VARCHAR(5), NUM_CD "
          L"VARCHAR(10), DT_ARMAZ DATETIME, DT_VENC DATE, FRENTE INTEGER, VERSO INTEGER)",
          L"INSERT INTO DOCUMENTO (COD_DOCTO, COD_SUPORTE, NUM_CAIXA) VALUES ('0000000001', 'P', 'AB001'), "
          L"('0000000002', 'P', 'AB001'), ('0000000003', 'P', 'AB002')",
      });
}

class InventoryApi : public testing::Test {
 protected:
  Reply Post(json request) {
    request["run"] = "1";
    return visitor_.Post("/api/inventory", request.dump());
  }

  Panel panel_{{.connection = Archive()}};
  Visitor visitor_{panel_.Address()};
};

TEST_F(InventoryApi, SaysWhatIsExpectedBeforeAnythingIsRead) {
  const Reply reply = Post({{"of", "modules"}, {"places", "C1\r\nC1\n"}});
  EXPECT_EQ(reply.status, 200);
  EXPECT_EQ(
      reply.body,
      R"({"columns":[{"name":"CODIGO","caption":"Código","isNumber":false},{"name":"SITUACAO","caption":"Situação",)"
      R"("isNumber":false},{"name":"CONTEINER","caption":"Contêiner","isNumber":false},{"name":"LOCALIZACAO",)"
      R"("caption":"Localização","isNumber":false}]})"
      "\n"
      "[\"AB001\",\"ausente\",\"C1\",\"fileira 1\"]\n"
      "[\"AB002\",\"ausente\",\"C1\",\"fileira 4\"]\n"
      R"({"end":{"rows":2,"filter":"Contêineres C1 · 0 presentes, 0 emprestados, 2 ausentes, 0 em outro lugar, 0 )"
      R"(desconhecidos","notes":[]}})"
      "\n");
}

TEST_F(InventoryApi, ComparesWhatWasRead) {
  const Reply reply = Post({{"of", "modules"}, {"places", "C1"}, {"codes", "C1\nAB00101\nAB003\nZZ999\nAB001\n"}});
  const std::string rows = reply.body.substr(reply.body.find('\n') + 1);
  EXPECT_EQ(rows.substr(0, rows.find("{\"end\"")),
            "[\"AB001\",\"presente\",\"C1\",\"fileira 1\"]\n"
            "[\"AB002\",\"ausente\",\"C1\",\"fileira 4\"]\n"
            "[\"AB003\",\"em outro lugar\",\"C2\",null]\n"
            "[\"ZZ999\",\"desconhecido\",null,null]\n");
}

// SQLite cannot list the originals that are lent out.
TEST_F(InventoryApi, WarnsOfLoansThatCannotBeRead) {
  const Reply reply = Post({{"of", "documents"}, {"places", "AB001"}, {"codes", "0000000001\n0000000003"}});
  EXPECT_EQ(
      reply.body.substr(0, reply.body.find('\n')),
      R"({"warning":"não foi possível saber quais documentos estão emprestados, e eles saem como ausentes: o banco )"
      R"(não aceita a instrução do relatório"})");
  EXPECT_NE(reply.body.find("[\"0000000001\",\"presente\",\"AB001\",\"fileira 1\",null,null,null]\n"
                            "[\"0000000002\",\"ausente\",\"AB001\",\"fileira 1\",null,null,null]\n"
                            "[\"0000000003\",\"em outro lugar\",\"AB002\",\"fileira 4\",null,null,null]\n"),
            reply.body.npos)
      << reply.body;
}

TEST_F(InventoryApi, SavesTheFilesThatTheConsoleWrites) {
  const std::string codes = "0000000001\n0000000003\nX\n";
  for (const auto& [format, options] :
       std::map<std::string, std::vector<std::string>>{{"csv", {"--formato", "csv"}},
                                                       {"excel", {"--formato", "csv", "--excel"}},
                                                       {"json", {"--formato", "json"}}}) {
    const Reply reply = Post({{"of", "documents"}, {"places", "AB002\nAB001"}, {"codes", codes}, {"format", format}});
    std::vector<std::string> arguments = {"confere", "--modulo",  "AB002",          "--modulo",
                                          "AB001",   "--conexao", ToUtf8(Archive())};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const TypedInput typed(codes);
    const RunResult console = RunProgram(arguments);
    EXPECT_EQ(console.code, ExitCode::kMismatch);
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.body, console.out) << format;
    EXPECT_EQ(reply.headers.at("content-disposition"),
              std::string("attachment; filename=\"conferencia.") + (format == "json" ? "json" : "csv") + "\"");
  }
}

TEST_F(InventoryApi, SaysInWordsWhyNothingIsCompared) {
  const auto words = [&](const json& request) {
    const Reply reply = Post(request);
    EXPECT_EQ(reply.status, 422) << request;
    return reply.body;
  };
  EXPECT_EQ(words({{"places", "C1"}}), "o pedido não diz \"of\"; recarregue a página\n");
  EXPECT_EQ(words({{"of", "documents"}, {"places", ""}}), "falta o módulo conferido\n");
  EXPECT_EQ(words({{"of", "modules"}, {"places", ""}}), "falta o contêiner conferido\n");
  EXPECT_EQ(words({{"of", "modules"}, {"places", "\n "}}), "a lista de lugares não tem nenhum código\n");
  EXPECT_EQ(words({{"of", "modules"}, {"places", "C1"}, {"codes", "A\x1B"}}),
            "o que foi lido não é uma lista de códigos: a linha 1 não é texto; grave a lista como texto, em UTF-8, "
            "com um código por linha\n");
  EXPECT_EQ(words({{"of", "modules"}, {"places", "C9"}}),
            "o contêiner \"C9\" não está na relação de contêineres do acervo (quis dizer \"C1\"?)\n");
  EXPECT_EQ(words({{"of", "documents"}, {"places", "AB00101"}}),
            "o módulo \"AB00101\" é subordinado, e o acervo não diz quais documentos estão nele: informe o módulo "
            "principal, AB001\n");
  EXPECT_EQ(words({{"of", "modules"}, {"places", "C1"}, {"format", "exe"}}), "o formato \"exe\" não existe\n");
}

}  // namespace
}  // namespace kodra::console::panel

// The connections that the page may choose from, by HTTP.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <regex>

#include "console/panel/panel.h"
#include "tests/console/panel/http_client.h"
#include "tests/console/run.h"
#include "tests/console/small_archive.h"
#include "tests/console/user_settings.h"
#include "tests/db/sqlite_file.h"
#include "values/utf8.h"

namespace kodra::console::panel {
namespace {

using nlohmann::json;
using tests::Reply;
using tests::Visitor;
using values::ToUtf8;

// A database with one support, and its connection string.
class OneSupport {
 public:
  explicit OneSupport(const std::wstring& support) {
    file_.Run(L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(80))");
    file_.Run(L"INSERT INTO SUPORTE VALUES ('1', '" + support + L"')");
  }
  std::string Connection() const { return ToUtf8(file_.ConnectionString()); }

 private:
  tests::SqliteFile file_;
};

std::string WithoutTime(const std::string& words) {
  return std::regex_replace(words, std::regex("em [0-9]+ ms"), "em N ms");
}

constexpr const char* kAsks =
    "pergunta a senha no terminal; para usá-lo aqui, comece com kodrarpt painel --perfil cofre";
constexpr const char* kBad = "não pode ser usado; kodrarpt perfil lista mostra por quê";

// A user with the profiles "acervo", "cofre", which asks for its password, and "mau", which has a key that there is
// not.
class PanelConnections : public testing::Test {
 protected:
  PanelConnections() {
    user_.Write("[acervo]\nconexao = " + acervo_.Connection() +
                "\n[cofre]\nconexao = DSN=Cofre\npergunta-senha = sim\n[mau]\nconexao = DSN=Mau\nsegredo = 1\n");
  }

  static Reply Ask(const Panel& panel, const std::string& path, const json& connection) {
    json body = {{"report", "CSuporteRpt.RelatorioSuportes"}, {"run", "1"}, {"format", "csv"}};
    if (!connection.is_null()) body["connection"] = connection;
    return Visitor(panel.Address()).Post(path, body.dump());
  }
  // The rows of a run.
  static std::string RowsOf(const Panel& panel, const json& connection) {
    const std::string body = Ask(panel, "/api/run", connection).body;
    const std::size_t begin = body.find('\n') + 1;
    return body.substr(begin, body.find("{\"end\"") - begin);
  }
  static std::string List(const Panel& panel) { return Visitor(panel.Address()).Get("/api/connections").body; }

  UserSettings user_;
  OneSupport acervo_{L"do perfil"};
  OneSupport command_{L"do comando"};
};

TEST_F(PanelConnections, AreThatOfTheCommandAndTheProfiles) {
  const Panel panel({.connection = values::FromUtf8(command_.Connection())});
  const json expected = {{"connections",
                          {{{"name", ""}, {"profile", ""}, {"problem", ""}},
                           {{"name", "acervo"}, {"profile", "acervo"}, {"problem", ""}},
                           {{"name", "cofre"}, {"profile", "cofre"}, {"problem", kAsks}},
                           {{"name", "mau"}, {"profile", "mau"}, {"problem", kBad}}}},
                         {"problem", ""}};
  EXPECT_EQ(json::parse(List(panel)), expected);
}

TEST_F(PanelConnections, HaveTheProfileOfTheCommandOnce) {
  // Its password was asked before the panel began.
  const Panel panel({.connection = values::FromUtf8(command_.Connection()), .profile = "cofre"});
  const json connections = json::parse(List(panel))["connections"];
  ASSERT_EQ(connections.size(), 3U);
  EXPECT_EQ(connections[0], (json{{"name", ""}, {"profile", "cofre"}, {"problem", ""}}));
  EXPECT_EQ(connections[1]["name"], "acervo");
  EXPECT_EQ(connections[2]["name"], "mau");
}

TEST_F(PanelConnections, AreReadAnewForEachPage) {
  const Panel panel(PanelOptions{});
  user_.Write("[novo]\nconexao = DSN=Novo\n");
  EXPECT_EQ(json::parse(List(panel))["connections"], json::parse(R"([{"name":"novo","profile":"novo","problem":""}])"));
}

TEST_F(PanelConnections, SayWhyTheProfilesCannotBeRead) {
  const Panel panel({.connection = values::FromUtf8(command_.Connection())});
  user_.Write("[acervo]\nconexao segredo123\n");
  const json list = json::parse(List(panel));
  EXPECT_EQ(list["connections"], json::parse(R"([{"name":"","profile":"","problem":""}])"));
  EXPECT_EQ(list["problem"], "\"" + user_.File().string() +
                                 "\", linha 2: deve ser uma seção, como [nome], uma linha com chave = valor, ou um "
                                 "comentário com ; ou #");
  EXPECT_EQ(RowsOf(panel, ""), "[\"do comando\"]\n");
}

TEST_F(PanelConnections, AreChosenByNameForEachRun) {
  const Panel panel({.connection = values::FromUtf8(command_.Connection())});
  EXPECT_EQ(RowsOf(panel, nullptr), "[\"do comando\"]\n");
  EXPECT_EQ(RowsOf(panel, "acervo"), "[\"do perfil\"]\n");
  EXPECT_EQ(RowsOf(panel, ""), "[\"do comando\"]\n");
  EXPECT_EQ(Ask(panel, "/api/download", "acervo").body, "DESCR_SUPORTE\r\ndo perfil\r\n");
}

TEST_F(PanelConnections, AreRefusedWhenTheyCannotBeUsed) {
  const Panel panel(PanelOptions{});
  struct Case {
    json connection;
    std::string words;
  };
  const Case cases[] = {{nullptr, "nenhum acervo foi escolhido"},
                        {"", "nenhum acervo foi escolhido"},
                        {"outro", "o perfil \"outro\" não existe"},
                        {"ACERVO", "o perfil \"ACERVO\" não existe"},
                        {"DSN=Acervo", "o perfil \"DSN=Acervo\" não existe"},
                        {"cofre", std::string("o perfil \"cofre\" ") + kAsks},
                        {"mau", std::string("o perfil \"mau\" ") + kBad},
                        {7, "o pedido não diz \"connection\"; recarregue a página"}};
  for (const Case& each : cases)
    for (const char* const path : {"/api/run", "/api/download", "/api/check", "/api/test"}) {
      const Reply reply = Ask(panel, path, each.connection);
      EXPECT_EQ(reply.status, 422) << path;
      EXPECT_EQ(reply.body, each.words + "\n") << path;
    }
  // What asks no database needs no connection.
  EXPECT_EQ(Visitor(panel.Address())
                .Post("/api/sql", R"({"report":"CSuporteRpt.RelatorioSuportes","database":"oracle"})")
                .status,
            200);
}

TEST_F(PanelConnections, AreTestedInTheWordsOfTheConsole) {
  const Panel panel(PanelOptions{});
  const Reply reply = Ask(panel, "/api/test", "acervo");
  EXPECT_EQ(reply.status, 200);
  const RunResult console = RunProgram({"perfil", "testa", "acervo"});
  EXPECT_EQ(WithoutTime(json::parse(reply.body)["answer"]), WithoutTime(console.out));
  EXPECT_NE(console.out, "");
  user_.Write("[acervo]\nconexao = Driver={Nenhum}\n");
  // The page has no option for the component's message, which follows.
  const std::string words = "kodrarpt: " + Ask(panel, "/api/test", "acervo").body;
  const std::string expected = RunProgram({"perfil", "testa", "acervo"}).err;
  const std::size_t end = expected.find("Com --detalhes");
  ASSERT_NE(end, expected.npos) << expected;
  EXPECT_EQ(words.substr(0, end), expected.substr(0, end));
  EXPECT_EQ(words.find("A mensagem do componente"), end) << words;
}

// All that the panel answers about a connection, with the headers.
std::string AllAnswers(const Panel& panel, const std::string& connection) {
  const Visitor visitor(panel.Address());
  std::string all = panel.Address() + visitor.Cookie();
  const auto add = [&all](const Reply& reply) {
    for (const auto& [name, value] : reply.headers) all.append(name).append(value);
    all += reply.body;
  };
  for (const char* const path : {"/", "/api/catalogue", "/api/connections", "/nada"}) add(visitor.Get(path));
  const json body = {{"connection", connection},
                     {"report", "CDeptoRpt.RelatorioDeptos"},
                     {"run", "1"},
                     {"format", "csv"},
                     {"database", "mysql"}};
  for (const char* const path : {"/api/run", "/api/download", "/api/check", "/api/test", "/api/cancel", "/api/sql"})
    add(visitor.Post(path, body.dump()));
  return all;
}

TEST_F(PanelConnections, ShowNeitherPasswordsNorConnectionStrings) {
  user_.Write(
      "[variavel]\nconexao = Driver={Nenhum};Server=servidor-oculto;UID=ana\nsenha-de = ACERVO_SENHA\n"
      "[comando]\nconexao = Driver={Nenhum};Server=servidor-oculto;UID=ana\nsenha-comando = echo segredo123\n"
      "[senha]\nconexao = Driver={Nenhum};Server=servidor-oculto;UID=ana;PWD=segredo123\n");
  setenv("ACERVO_SENHA", "segredo123", 1);
  const Panel panel({.connection = L"Driver={Nenhum};Server=servidor-oculto;UID=ana;PWD=segredo123;"});
  for (const char* const connection : {"", "variavel", "comando", "senha"}) {
    const std::string answers = AllAnswers(panel, connection);
    EXPECT_NE(answers.find("\"variavel\""), answers.npos);
    for (const char* const secret : {"segredo123", "servidor-oculto", "ana;", "ACERVO_SENHA", "echo"})
      EXPECT_EQ(answers.find(secret), answers.npos) << connection << " " << secret;
  }
}

TEST_F(PanelConnections, ShowNothingOfAServerThatAnswers) {
  const std::wstring connection = tests::SmallArchiveOn(tests::Engine::kMariaDb);
  const std::size_t begin = connection.find(L"Pwd=") + 4;
  const std::string password = ToUtf8(connection.substr(begin, connection.find(L';', begin) - begin));
  ASSERT_NE(password, "");
  const std::string answers = AllAnswers(Panel({.connection = connection}), "");
  EXPECT_NE(answers.find("Jurídico"), answers.npos);
  EXPECT_EQ(answers.find(password), answers.npos);
  EXPECT_EQ(answers.find("Driver="), answers.npos);
}

TEST_F(PanelConnections, TakeThePasswordFromWhereTheProfileSays) {
  const Panel panel(PanelOptions{});
  user_.Write("[acervo]\nconexao = " + acervo_.Connection() + "\nsenha-de = ACERVO_SENHA\n");
  EXPECT_EQ(Ask(panel, "/api/run", "acervo").body,
            "a variável de ambiente \"ACERVO_SENHA\", que deve conter a senha, não existe: defina-a antes\n");
  user_.Write("[acervo]\nconexao = " + acervo_.Connection() + "\nsenha-comando = false\n");
  EXPECT_EQ(Ask(panel, "/api/run", "acervo").body,
            "o comando de senha-comando terminou com erro, e não há senha: execute-o no terminal para ver por quê\n");
  user_.Write("[acervo]\nconexao = " + acervo_.Connection() + "\nsenha-comando = echo x\n");
  EXPECT_EQ(RowsOf(panel, "acervo"), "[\"do perfil\"]\n");
}

}  // namespace
}  // namespace kodra::console::panel

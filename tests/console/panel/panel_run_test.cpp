// Runs of the panel, by HTTP: how they end early, and how many there are at once.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <thread>

#include "console/panel/panel.h"
#include "odbc/engine/recordset.h"
#include "tests/console/panel/http_client.h"
#include "tests/console/small_archive.h"
#include "tests/db/mariadb.h"
#include "tests/db/sqlite_file.h"

namespace kodra::console::panel {
namespace {

using nlohmann::json;
using std::chrono::steady_clock;
using tests::Engine;
using tests::Reply;
using tests::Socket;
using tests::Visitor;

// A connection to a database whose parameter table never ends, and a report that reads it.
std::wstring Endless() {
  static tests::SqliteFile file;
  static const bool made = [] {
    file.Run(
        L"CREATE VIEW PARAMETRO AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
        L"SELECT '1' AS CODIGO, printf('Acervo %d', i) AS EMPRESA FROM n");
    return true;
  }();
  return made ? file.ConnectionString() : L"";
}

std::string EndlessRun(const std::string& name, const std::string& format = "") {
  json request = {{"report", "CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave"}, {"run", name}};
  for (const char* const parameter : {"NumeroPC1", "NumeroPC2", "NumeroPC3", "NumeroPC4", "NumeroPC5", "NumeroObs"})
    request["parameters"][parameter] = "1";
  if (!format.empty()) request["format"] = format;
  return request.dump();
}

// The last line of a run.
std::string EndOf(const Reply& reply) {
  const std::size_t begin = reply.body.rfind('\n', reply.body.size() - 2);
  return reply.body.substr(begin == reply.body.npos ? 0 : begin + 1);
}

template <class Condition>
bool Soon(Condition condition) {
  const auto deadline = steady_clock::now() + std::chrono::seconds(20);
  while (steady_clock::now() < deadline) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

TEST(PanelRun, StopsARunWhenItIsCancelled) {
  Panel panel({.connection = Endless()});
  const Visitor visitor(panel.Address());
  std::atomic<bool> isOver = false;
  Reply reply;
  std::thread run([&] {
    reply = visitor.Post("/api/run", EndlessRun("a"));
    isOver = true;
  });
  EXPECT_TRUE(Soon([&] { return visitor.Post("/api/cancel", R"({"run":"a"})").body == R"({"cancelled":true})"; }));
  EXPECT_TRUE(Soon([&] { return isOver.load(); }));
  run.join();
  EXPECT_EQ(EndOf(reply), "{\"stopped\":\"Cancelado.\"}\n");
  EXPECT_TRUE(reply.isComplete);
  EXPECT_EQ(visitor.Post("/api/cancel", R"({"run":"a"})").body, R"({"cancelled":false})");
}

TEST(PanelRun, StopsARunWhoseClientIsGone) {
  Panel panel({.connection = Endless()});
  const Visitor visitor(panel.Address());
  {
    const Socket socket(visitor.Port());
    socket.Send(visitor.PostBytes("/api/run", EndlessRun("a")));
    EXPECT_TRUE(Soon([&] { return panel.Idle() == std::chrono::milliseconds(0); }));
  }
  EXPECT_TRUE(Soon([&] { return panel.Idle() > std::chrono::milliseconds(0); }));
}

TEST(PanelRun, StopsARunWhoseTimeIsUp) {
  Panel panel({.connection = Endless(), .limit = std::chrono::seconds(1)});
  const Visitor visitor(panel.Address());
  EXPECT_EQ(EndOf(visitor.Post("/api/run", EndlessRun("a"))),
            "{\"stopped\":\"Interrompido: passou do limite de 1 segundo.\"}\n");
  const Reply download = visitor.Post("/api/download", EndlessRun("b", "csv"));
  EXPECT_EQ(download.status, 409);
  EXPECT_EQ(download.body, "Interrompido: passou do limite de 1 segundo.\n");
}

TEST(PanelRun, RunsFourReportsAtOnceAndRefusesAFifth) {
  Panel panel({.connection = Endless()});
  const Visitor visitor(panel.Address());
  std::vector<Socket> runs;
  for (int i = 0; i < 4; ++i) {
    const Socket& socket = runs.emplace_back(visitor.Port());
    socket.Send(visitor.PostBytes("/api/run", EndlessRun(std::to_string(i))));
    std::string begin;
    while (begin.find("columns") == begin.npos) begin += socket.Receive();
  }
  const std::string words = "Já há 4 relatórios em execução. Espere um terminar, ou cancele um.";
  const Reply fifth = visitor.Post("/api/download", EndlessRun("x", "csv"));
  EXPECT_EQ(fifth.status, 429);
  EXPECT_EQ(fifth.body, words + "\n");
  EXPECT_EQ(visitor.Post("/api/run", EndlessRun("x")).body, "{\"error\":\"" + words + "\"}\n");
  // What is no run is answered.
  EXPECT_EQ(visitor.Get("/").status, 200);
}

TEST(PanelRun, EndsSoonAlthoughReportsRun) {
  std::thread run;
  const auto begin = [&] {
    Panel panel({.connection = Endless()});
    const Visitor visitor(panel.Address());
    run = std::thread([visitor] { visitor.Post("/api/run", EndlessRun("a")); });
    EXPECT_TRUE(Soon([&] { return panel.Idle() == std::chrono::milliseconds(0); }));
    return steady_clock::now();
  }();
  EXPECT_LT(steady_clock::now() - begin, std::chrono::seconds(5));
  run.join();
}

#ifdef __linux__
TEST(PanelRun, LeavesNoTemporaryFile) {
  const Panel panel({.connection = tests::SmallArchiveOn(Engine::kSqlite)});
  const Visitor visitor(panel.Address());
  const auto files = [] {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::temp_directory_path()))
      if (entry.path().filename().string().starts_with("kodrarpt-")) ++count;
    return count;
  };
  const std::size_t before = files();
  EXPECT_EQ(visitor.Post("/api/download", R"({"report":"CDeptoRpt","run":"1","format":"xlsx"})").status, 200);
  EXPECT_TRUE(Soon([&] { return files() <= before; }));
}
#endif

// A server whose first support takes half a minute.
TEST(PanelOnMariaDb, TakesTheStatementOfACancelledRunOffTheServer) {
  tests::MariaDb().CreateDatabase(L"painel");
  odbc::Connection observer;
  observer.Open(tests::MariaDb().ConnectionString(L"painel"), L"", L"", platform::ad::kUnspecified);
  observer.Execute(L"CREATE OR REPLACE VIEW SUPORTE AS SELECT '1' AS COD_SUPORTE, SLEEP(30) AS DESCR_SUPORTE",
                   platform::ad::kCmdText);
  const auto statements = [&] {
    const odbc::Execution processes = observer.Query(
        L"SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE DB = 'painel' AND INFO LIKE '%FROM SUPORTE%' "
        L"AND ID <> CONNECTION_ID()",
        platform::ad::kCmdText);
    return processes.recordset->FieldValue(0);
  };
  const Panel panel({.connection = tests::MariaDb().ConnectionString(L"painel")});
  const Visitor visitor(panel.Address());
  struct Case {
    const char* path;
    const char* body;
    int status;
    const char* answer;
  };
  for (const Case& each : {Case{"/api/run", R"({"report":"CSuporteRpt.RelatorioSuportes","run":"a"})", 200,
                                "{\"stopped\":\"Cancelado.\"}\n"},
                           Case{"/api/check", R"({"run":"a"})", 409, "Cancelado.\n"}}) {
    Reply reply;
    std::thread run([&] { reply = visitor.Post(each.path, each.body); });
    EXPECT_TRUE(Soon([&] { return statements() == Value(std::int64_t{1}); })) << each.path;
    EXPECT_EQ(visitor.Post("/api/cancel", R"({"run":"a"})").status, 200);
    EXPECT_TRUE(Soon([&] { return statements() == Value(std::int64_t{0}); })) << each.path;
    run.join();
    EXPECT_EQ(reply.status, each.status);
    EXPECT_EQ(reply.body, each.answer);
  }
}

}  // namespace
}  // namespace kodra::console::panel

// The reports on a private cluster, while its nodes come and go. The figures of each test are in its output.
#include "testbed/cluster/mariadb_cluster.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <fstream>
#include <future>
#include <iostream>
#include <map>
#include <mutex>
#include <regex>
#include <thread>

#include "odbc/engine/connection.h"
#include "odbc/engine/recordset.h"
#include "testbed/archive/writer.h"
#include "testbed/cluster/private_network.h"
#include "testbed/mariadb/mariadb_server.h"
#include "tests/cluster/call.h"
#include "tests/db/temporary_folder.h"
#include "tests/odbc/print_value.h"
#include "tests/rows/driver.h"

namespace kodra::testbed {
namespace {

using engines::Case;
using tests::Answer;
using tests::Call;
using tests::Machine;
using tests::Raised;
using tests::RaisedBy;

constexpr int kNodes = MariaDbCluster::kNodes;
// Small for the calls that are compared; large enough that a stream is never whole in the buffers of a network.
constexpr Size kSmall{.documents = 500};
constexpr Size kLarge{.documents = 50000};

void WriteScript(const std::string& path, const Size& size) {
  std::ofstream script(path, std::ios::binary);
  WriteMySql(script, size);
}

// The error of a report whose node is gone, without the versions of the driver and of the server.
Raised Lost(const std::wstring& source) {
  return {rows::kReportError, source,
          L"Erro ao gerar dados para o relatório: [Microsoft OLE DB Provider for ODBC Drivers]: Lost connection to "
          L"server during query [N:2013]"};
}
Raised WithoutVersions(Raised raised) {
  raised.description = std::regex_replace(raised.description, std::wregex(L"\\[ma-[^\\]]*\\]\\[[^\\]]*\\]"), L"");
  return raised;
}

// Whether a driver says so of a node that has gone, is going, or is not yet back.
bool IsNodeGone(const std::wstring& reason) {
  return reason.starts_with(L"Lost connection to server") || reason == L"Server shutdown in progress" ||
         reason == L"Connection was killed" || reason == L"WSREP has not yet prepared node for application use";
}

// A driver's message without the names and versions of its parts, which precede it in brackets, and without the number
// that may follow.
std::wstring Reason(const std::wstring& description) {
  const std::wstring message = description.substr(0, description.rfind(L" [N:"));
  return message.substr(message.rfind(L']') + 1);
}

class Cluster : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    EnterPrivateNetwork();
    cases = engines::Cases();
    const tests::TemporaryFolder folder;
    WriteScript(folder / "small.sql", kSmall);
    WriteScript(folder / "large.sql", kLarge);
    ExpectAsOnOneServer(folder / "small.sql");
    cluster = new MariaDbCluster;
    cluster->Load("pequeno", folder / "small.sql");
    cluster->Load("grande", folder / "large.sql");
  }
  static void TearDownTestSuite() { delete cluster; }

  static void ExpectAsOnOneServer(const std::string& script) {
    const MariaDbServer server;
    server.CreateDatabase(L"pequeno");
    server.RunScript(L"pequeno", script);
    for (const Case& one : cases) expected.push_back(Call(one, server.ConnectionString(L"pequeno")));
  }

  static std::wstring Small() { return cluster->ConnectionString(L"pequeno"); }
  static std::wstring Large() { return cluster->ConnectionString(L"grande"); }

  // The first case of a report, with nothing set or what it needs.
  static const Case& CaseOf(const std::string& report) {
    for (const Case& one : cases)
      if (engines::NameOf(*one.method) == report) return one;
    throw std::runtime_error("no case of " + report);
  }

  // Runs a number of calls in the order of the cases; returns how many were not as on one server.
  static int UnlikeOneServer(int calls, const std::wstring& connectionString) {
    int unlike = 0;
    for (int call = 0; call < calls; ++call) {
      const std::size_t at = static_cast<std::size_t>(call) % cases.size();
      const Answer answer = Call(cases[at], connectionString);
      if (answer == expected[at]) continue;
      ++unlike;
      std::cout << engines::NameOf(*cases[at].method) << ", " << cases[at].label << ": " << answer << "\n";
    }
    return unlike;
  }

  // The node on which a statement of the client is in a state, as soon as there is one; 0 when the call ends before.
  static int NodeIn(const std::wstring& state, const std::future<Answer>& call) {
    while (call.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
      for (int node = 1; node <= kNodes; ++node)
        if (IsIn(state, node)) return node;
    }
    return 0;
  }

  static bool IsIn(const std::wstring& state, int node) {
    odbc::Connection connection;
    connection.Open(cluster->ConnectionString(L"grande", node), L"", L"", platform::ad::kUnspecified);
    const odbc::Execution found = connection.Query(
        L"SELECT STATE FROM information_schema.PROCESSLIST WHERE ID <> CONNECTION_ID() AND STATE = '" + state + L"'",
        platform::ad::kCmdText);
    return !found.recordset->Eof();
  }

  // Starts a report on the large archive, kills its node when its statement is in a state, and returns the error. A
  // call whose state has passed unseen is repeated.
  static Raised ErrorOfKilled(const std::string& report, const std::wstring& state) {
    const Case& wanted = CaseOf(report);
    const std::wstring large = Large();
    std::future<Answer> call;
    int node = 0;
    for (int attempt = 0; node == 0 && attempt < 50; ++attempt) {
      call = std::async(std::launch::async, [&] { return Call(wanted, large); });
      node = NodeIn(state, call);
    }
    EXPECT_NE(node, 0);
    if (node != 0) cluster->Kill(node);
    const Answer answer = call.get();
    EXPECT_EQ(UnlikeOneServer(1, Small()), 0) << "the next call";
    std::cout << report << ", node killed in the state \"" << values::ToUtf8(state) << "\": " << answer << "\n";
    if (node != 0) cluster->Start(node);
    return WithoutVersions(answer.error);
  }

  inline static MariaDbCluster* cluster = nullptr;
  inline static std::vector<Case> cases;
  inline static std::vector<Answer> expected;
};

TEST_F(Cluster, AnswersEveryCallAsOneServerDoes) {
  const auto calls = static_cast<int>(cases.size());
  EXPECT_EQ(UnlikeOneServer(calls, Small()), 0);
  std::size_t rows = 0;
  for (const Answer& answer : expected) rows += answer.rows;
  EXPECT_GT(rows, 5000U);
  std::cout << calls << " calls of " << reports::ReportMethods().size() << " reports with " << rows
            << " rows, each as on one server\n";
}

TEST_F(Cluster, LetsItsClientOnlyReadTheArchive) {
  odbc::Connection connection;
  connection.Open(Small(), L"", L"", platform::ad::kUnspecified);
  const auto refusal = [&](const wchar_t* statement) {
    return Reason(RaisedBy([&] { connection.Execute(statement, platform::ad::kCmdText); }).description);
  };
  EXPECT_EQ(refusal(L"INSERT INTO DEPTO (COD_DEPTO) VALUES ('999')"),
            L"The MariaDB server is running with the --read-only option so it cannot execute this statement");
  EXPECT_EQ(refusal(L"SELECT * FROM mysql.user"),
            L"SELECT command denied to user 'arquivo'@'127.0.0.1' for table `mysql`.`user`");
}

TEST_F(Cluster, LosesNoCallWhenANodeIsKilledBetweenCalls) {
  constexpr int kCalls = 60;
  int unlike = UnlikeOneServer(kCalls, Small());
  for (int node = 1; node <= kNodes; ++node) {
    cluster->Kill(node);
    unlike += UnlikeOneServer(kCalls, Small());
    cluster->Start(node);
  }
  EXPECT_EQ(unlike, 0);
  std::cout << kCalls * (1 + kNodes) << " calls, " << kNodes << " nodes killed between them, " << unlike << " failed\n";
}

TEST_F(Cluster, BringsANodeThatComesBackUpToDate) {
  cluster->Kill(2);
  cluster->Administer(1, "insert into pequeno.DEPTO (COD_DEPTO, DESCR_DEPTO) values ('999', 'Novo')");
  cluster->Start(2);
  EXPECT_EQ(cluster->Administer(2, "select DESCR_DEPTO from pequeno.DEPTO where COD_DEPTO = '999'"), "Novo\n");
  EXPECT_NE(cluster->LogOf(2).find("rsync IST completed"), std::string::npos);
  cluster->Administer(1, "delete from pequeno.DEPTO where COD_DEPTO = '999'");
}

TEST_F(Cluster, LetsAConnectionStringAskToWaitForWhatOtherNodesHaveWritten) {
  const auto setting = [](const std::wstring& connectionString) {
    odbc::Connection connection;
    connection.Open(connectionString, L"", L"", platform::ad::kUnspecified);
    return connection.Query(L"SELECT @@SESSION.wsrep_sync_wait", platform::ad::kCmdText).recordset->FieldValue(0);
  };
  EXPECT_EQ(setting(Small()), Value(std::int64_t{0}));
  EXPECT_EQ(setting(Small() + L"InitStmt={SET SESSION wsrep_sync_wait=1};"), Value(std::int64_t{1}));
}

TEST_F(Cluster, FillsAnEmptyNode) {
  cluster->Kill(3);
  cluster->Empty(3);
  cluster->Start(3);
  EXPECT_NE(cluster->LogOf(3).find("rsync SST completed"), std::string::npos);
  EXPECT_EQ(UnlikeOneServer(static_cast<int>(cases.size()), cluster->ConnectionString(L"pequeno", 3)), 0);
}

// MariaDB's driver has all rows when the call returns.
TEST_F(Cluster, ReadsAllRowsOfACallThatHasReturnedWhenItsNodeIsKilled) {
  const Case& summary = CaseOf("CDocumentoRpt.RelatorioSintetico");
  Machine machine;
  const frame::ReportRows rows = tests::Open(summary, cluster->ConnectionString(L"grande", 1), machine);
  cluster->Kill(1);
  int read = 0;
  for (; !rows->Eof(); ++read) rows->MoveNext();
  EXPECT_EQ(read, Call(summary, Large()).rows);
  cluster->Start(1);
}

TEST_F(Cluster, EndsACallInTheReportsFrameWhenItsNodeIsKilledAtWork) {
  EXPECT_EQ(ErrorOfKilled("CCaixaRpt.ModulosVencidos", L"Sending data"), Lost(L"modADO.AbreFirehoseRs"));
}

TEST_F(Cluster, EndsACallInTheReportsFrameWhenItsNodeIsKilledWhileItSendsRows) {
  EXPECT_EQ(ErrorOfKilled("CDocumentoRpt.RelatorioAnalitico", L"Writing to net"),
            Lost(L"KodraRpt.CDocumentoRpt::RelatorioAnalitico"));
}

TEST_F(Cluster, AnswersEightClientsWhileNodesComeAndGo) {
  constexpr int kCalls = 2000;
  constexpr int kClients = 8;
  // What a client does between two calls.
  constexpr std::chrono::milliseconds kPause{100};
  const std::wstring small = Small();
  std::atomic<int> next{0};
  std::atomic<int> wrong{0};
  std::map<std::wstring, int> failed;
  std::mutex lock;
  const auto work = [&] {
    for (int call = next++; call < kCalls; call = next++) {
      const std::size_t at = static_cast<std::size_t>(call) % cases.size();
      std::this_thread::sleep_for(kPause);
      const Answer answer = Call(cases[at], small);
      if (answer == expected[at]) continue;
      if (answer.error == Raised()) {
        ++wrong;
        continue;
      }
      const std::lock_guard guard(lock);
      ++failed[Reason(answer.error.description)];
    }
  };
  int ended = 0;
  {
    std::vector<std::jthread> clients;
    clients.reserve(kClients);
    for (int client = 0; client < kClients; ++client) clients.emplace_back(work);
    for (; next < kCalls; ++ended) {
      const int node = 1 + ended % kNodes;
      if (ended % 2 == 0)
        cluster->Kill(node);
      else
        cluster->ShutDown(node);
      // As long as systemd waits; the balancer has noticed by then.
      std::this_thread::sleep_for(std::chrono::seconds(5));
      cluster->Start(node);
    }
  }
  EXPECT_EQ(wrong, 0);
  int failures = 0;
  for (const auto& [reason, count] : failed) {
    EXPECT_TRUE(IsNodeGone(reason)) << values::ToUtf8(reason);
    failures += count;
  }
  // Each node that went can have been at work for all clients.
  EXPECT_LE(failures, ended * kClients);
  std::cout << kCalls << " calls of " << kClients << " clients, " << ended << " times a node went and came, " << wrong
            << " wrong, " << failures << " failed:\n";
  for (const auto& [reason, count] : failed) std::cout << "  " << count << ": " << values::ToUtf8(reason) << "\n";
}

}  // namespace
}  // namespace kodra::testbed

// A statement is stopped from another thread, in the database too.
#include "odbc/engine/cancellation.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>

#include "tests/db/mariadb.h"
#include "tests/db/odbc_sqlite.h"

namespace kodra::odbc {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;
using tests::MariaDb;
using tests::Raised;
using tests::RaisedBy;

// Runs `work`, cancels it after a moment, and returns what it raised. Fails when that takes as long as the statement.
template <class Work>
Raised CancelledError(Work&& work) {
  Cancellation cancellation;
  const auto begin = steady_clock::now();
  const std::jthread other([&](const std::stop_token& stop) {
    std::this_thread::sleep_for(milliseconds(200));
    while (!stop.stop_requested()) {
      cancellation.Cancel();
      std::this_thread::sleep_for(milliseconds(50));
    }
  });
  const Raised raised = RaisedBy(work);
  EXPECT_LT(steady_clock::now() - begin, seconds(2));
  return raised;
}

const Raised kCancelled = {3712, L"Microsoft OLE DB Provider for ODBC Drivers",
                           L"Operation has been cancelled by the user."};

class SqliteCancellation : public OdbcSqlite {};

TEST_F(SqliteCancellation, StopsAReadBetweenTwoRows) {
  Recordset rs;
  OpenFirehose(rs, Numbers(1'000'000'000));
  const Raised raised = CancelledError([&] {
    while (!rs.Eof()) rs.MoveNext();
  });
  EXPECT_EQ(raised, kCancelled);
}

TEST_F(SqliteCancellation, StartsNoStatementAfterwards) {
  Cancellation cancellation;
  cancellation.Cancel();
  Recordset rs;
  EXPECT_EQ(RaisedBy([&] { OpenFirehose(rs, Numbers(3)); }), kCancelled);
}

TEST_F(SqliteCancellation, LeavesOtherThreadsAlone) {
  Cancellation cancellation;
  cancellation.Cancel();
  auto rows = std::async(std::launch::async, [&] {
    Recordset rs;
    OpenFirehose(rs, Numbers(3));
    int count = 0;
    for (; !rs.Eof(); rs.MoveNext()) ++count;
    return count;
  });
  EXPECT_EQ(rows.get(), 3);
}

TEST(MariaDbCancellation, TakesTheStatementOffTheServer) {
  MariaDb().CreateDatabase(L"cancelamento");
  Connection cn;
  cn.Open(MariaDb().ConnectionString(L"cancelamento"), L"", L"", ad::kUnspecified);
  const Raised raised = CancelledError([&] { cn.Execute(L"select sleep(30), 'longa'", ad::kCmdText); });
  EXPECT_TRUE(raised.description.ends_with(L"Query execution was interrupted")) << raised;
  Connection observer;
  observer.Open(MariaDb().ConnectionString(L"cancelamento"), L"", L"", ad::kUnspecified);
  const Execution processes = observer.Query(
      L"select count(*) from information_schema.PROCESSLIST where INFO like '%longa%' and ID <> connection_id()",
      ad::kCmdText);
  EXPECT_EQ(processes.recordset->FieldValue(0), Value(std::int64_t{0}));
}

}  // namespace
}  // namespace kodra::odbc

// Streams, static recordsets and their connections, on an SQLite file.
#include <gtest/gtest.h>
#include <malloc.h>

#include "tests/db/odbc_sqlite.h"

#ifdef __SANITIZE_ADDRESS__
// The sanitizer's allocator replaces malloc's; GCC has no header for it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace kodra::odbc {
namespace {

using tests::InvalidConnection;
using tests::NotUpdatable;
using tests::ObjectClosed;
using tests::ObjectOpen;
using tests::Raised;
using tests::RaisedBy;

TEST_F(OdbcSqlite, TwoStreamsOnOneConnectionDoNotDisturbEachOther) {
  Recordset other;
  OpenFirehose(rs, Numbers(1000));
  rs.Move(500);
  OpenFirehose(other, Numbers(10));
  EXPECT_EQ(other.GetRows(-1).size(), 10U);
  EXPECT_EQ(rs.FieldValue(0), Value(501));
  EXPECT_EQ(rs.GetRows(-1).size(), 500U);
}

TEST_F(OdbcSqlite, AStreamDoesNotKnowItsPositionBeforeItsEnd) {
  OpenFirehose(rs, Numbers(1));
  EXPECT_EQ(rs.AbsolutePosition(), ad::kPosUnknown);
  rs.MoveNext();
  EXPECT_EQ(rs.AbsolutePosition(), ad::kPosEOF);
}

TEST_F(OdbcSqlite, AStreamGoesForwardOnly) {
  const Raised backward = Provider(0x80040E24U, L"Rowset does not support fetching backward.");
  OpenFirehose(rs, Numbers(10));
  EXPECT_EQ(RaisedBy([&] { rs.MovePrevious(); }), backward);
  EXPECT_EQ(RaisedBy([&] { rs.MoveLast(); }), backward);
  EXPECT_EQ(RaisedBy([&] { rs.Move(-1); }), backward);
  EXPECT_EQ(RaisedBy([&] { rs.SetAbsolutePosition(2); }), backward);
  EXPECT_EQ(rs.FieldValue(0), Value(1));
}

TEST_F(OdbcSqlite, MoveFirstOnAStreamRunsItAgain) {
  file.Run(L"create table T(N integer)");
  file.Run(L"insert into T values(1),(2)");
  OpenFirehose(rs, L"select N from T order by N");
  rs.MoveFirst();
  EXPECT_EQ(rs.FieldValue(0), Value(1));
  rs.Move(2);
  EXPECT_TRUE(rs.Eof());
  file.Run(L"insert into T values(0)");
  rs.MoveFirst();
  EXPECT_EQ(rs.GetRows(-1), (std::vector<std::vector<Value>>{{0}, {1}, {2}}));
}

TEST_F(OdbcSqlite, AStreamIsNotUpdatable) {
  OpenFirehose(rs, Numbers(3));
  EXPECT_EQ(RaisedBy([&] { rs.AddNew(); }), NotUpdatable());
  EXPECT_EQ(RaisedBy([&] { rs.SetFieldValue(0, 1); }), NotUpdatable());
  EXPECT_EQ(RaisedBy([&] { rs.Update(); }), NotUpdatable());
  EXPECT_EQ(RaisedBy([&] { rs.Delete(); }), NotUpdatable());
}

TEST_F(OdbcSqlite, AStreamKeepsItsConnectionAliveWhenTheConnectionObjectIsDestroyed) {
  {
    Connection cn;
    cn.Open(file.ConnectionString(), L"", L"", ad::kUnspecified);
    rs.Open(Numbers(500), &cn, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  }
  EXPECT_EQ(rs.GetRows(-1).size(), 500U);
  EXPECT_EQ(rs.ConnectionInUse()->State(), ad::kStateOpen);
}

TEST_F(OdbcSqlite, ClosingTheConnectionClosesItsStreams) {
  Connection cn;
  cn.Open(file.ConnectionString(), L"", L"", ad::kUnspecified);
  rs.Open(Numbers(500), &cn, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  cn.Close();
  EXPECT_EQ(rs.State(), ad::kStateClosed);
  EXPECT_EQ(RaisedBy([&] { rs.MoveNext(); }), ObjectClosed(L"ADODB.Recordset"));
}

TEST_F(OdbcSqlite, ARecordsetMayBeDestroyedBeforeItsConnectionCloses) {
  Connection cn;
  cn.Open(file.ConnectionString(), L"", L"", ad::kUnspecified);
  { cn.Query(Numbers(5), ad::kCmdText); }
  cn.Close();
  EXPECT_EQ(cn.State(), ad::kStateClosed);
}

TEST_F(OdbcSqlite, AClientSideRecordsetIsReadWholeAndSurvivesItsConnection) {
  Connection cn;
  cn.Open(file.ConnectionString(), L"", L"", ad::kUnspecified);
  rs.SetCursorLocation(ad::kUseClient);
  rs.Open(Numbers(250), &cn, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  cn.Close();
  EXPECT_EQ(rs.CursorType(), ad::kOpenStatic);
  EXPECT_EQ(rs.RecordCount(), 250);
  rs.MoveLast();
  EXPECT_EQ(rs.FieldValue(0), Value(250));
  rs.MovePrevious();
  EXPECT_EQ(rs.FieldValue(0), Value(249));
  EXPECT_EQ(RaisedBy([&] { rs.Requery(); }), InvalidConnection(L"ADODB.Recordset"));
}

TEST_F(OdbcSqlite, ARecordsetTakesTheCursorLocationOfItsConnectionUnlessItHasItsOwn) {
  file.Connection().SetCursorLocation(ad::kUseClient);
  rs.Open(Numbers(3), &file.Connection(), ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  EXPECT_EQ(rs.CursorLocation(), ad::kUseClient);
  EXPECT_EQ(rs.RecordCount(), 3);
  Recordset own;
  OpenFirehose(own, Numbers(3));
  EXPECT_EQ(own.RecordCount(), -1);
}

TEST_F(OdbcSqlite, AClientSideRecordsetIsDisconnectedByNothing) {
  rs.SetCursorLocation(ad::kUseClient);
  rs.Open(Numbers(3), &file.Connection(), ad::kOpenStatic, ad::kLockBatchOptimistic, ad::kCmdText);
  rs.SetActiveConnection(static_cast<platform::Connection*>(nullptr));
  EXPECT_EQ(rs.ConnectionInUse(), nullptr);
  rs.SetFieldValue(0, 77);
  rs.Update();
  EXPECT_EQ(rs.FieldValue(0), Value(77));
  EXPECT_EQ(rs.RecordCount(), 3);
}

TEST_F(OdbcSqlite, EveryOtherServerCursorIsStaticAndEndsWithItsConnection) {
  Connection cn;
  cn.Open(file.ConnectionString(), L"", L"", ad::kUnspecified);
  rs.Open(Numbers(20), &cn, ad::kOpenDynamic, ad::kLockReadOnly, ad::kCmdText);
  EXPECT_EQ(rs.CursorType(), ad::kOpenStatic);
  rs.MoveLast();
  EXPECT_EQ(rs.FieldValue(0), Value(20));
  cn.Close();
  EXPECT_EQ(rs.State(), ad::kStateClosed);
}

TEST_F(OdbcSqlite, ARecordsetOpensAConnectionStringOfItsOwn) {
  rs.Open(Numbers(5), file.ConnectionString(), ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  EXPECT_EQ(rs.GetRows(-1).size(), 5U);
}

TEST_F(OdbcSqlite, AClosedRecordsetOpensAnotherSourceOnItsConnection) {
  OpenFirehose(rs, L"select 1 as UM");
  EXPECT_EQ(RaisedBy([&] { OpenFirehose(rs, L"select 2"); }), ObjectOpen(L"ADODB.Recordset"));
  rs.Close();
  EXPECT_EQ(rs.FieldCount(), 0);
  rs.Open(L"select 2 as DOIS, 3 as TRES", {}, ad::kUnspecified, ad::kUnspecified, ad::kCmdText);
  EXPECT_EQ(rs.GetRows(1).front(), (std::vector<Value>{2, 3}));
  EXPECT_EQ(rs.Source(), L"select 2 as DOIS, 3 as TRES");
}

TEST_F(OdbcSqlite, SourceAndConnectionMayBeSetAsProperties) {
  rs.SetSource(L"select 4 as QUATRO");
  rs.SetActiveConnection(file.ConnectionString());
  rs.Open({}, {}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
  EXPECT_EQ(rs.FieldValue(0), Value(4));
}

TEST_F(OdbcSqlite, RequeryReadsTheRowsAgain) {
  file.Run(L"create table T(N integer)");
  file.Run(L"insert into T values(1)");
  rs.SetCursorLocation(ad::kUseClient);
  rs.Open(L"select N from T", &file.Connection(), ad::kOpenStatic, ad::kLockReadOnly, ad::kCmdText);
  file.Run(L"insert into T values(2)");
  EXPECT_EQ(rs.RecordCount(), 1);
  rs.Requery();
  EXPECT_EQ(rs.RecordCount(), 2);
}

TEST_F(OdbcSqlite, MaxRecordsLimitsTheRows) {
  rs.SetMaxRecords(3);
  OpenFirehose(rs, Numbers(10));
  EXPECT_EQ(rs.GetRows(-1).size(), 3U);
}

TEST_F(OdbcSqlite, FieldsAreNotAppendedToARecordsetWithAConnection) {
  rs.SetActiveConnection(&file.Connection());
  EXPECT_EQ(RaisedBy([&] { rs.AppendField(L"A", ad::kInteger, 0, ad::kUnspecified); }),
            tests::NotAllowedHere(L"ADODB.Fields"));
}

// The number of bytes that this process has allocated and not freed.
std::size_t LiveBytes() {
#ifdef __SANITIZE_ADDRESS__
  return __sanitizer_get_current_allocated_bytes();
#else
  const struct mallinfo2 heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
#endif
}

TEST_F(OdbcSqlite, AMillionRowsAreReadInConstantMemory) {
  OpenFirehose(rs,
               L"with recursive q(N) as (select 1 union all select N + 1 from q where N < 1000000) "
               L"select N, 'nome número ' || N as NOME from q");
  rs.Move(10000);
  const std::size_t before = LiveBytes();
  EXPECT_EQ(rs.FieldValue(1), Value(L"nome número 10001"));
  rs.Move(989999);
  EXPECT_EQ(rs.FieldValue(0), Value(1000000));
  // If they were kept, these rows would take tens of megabytes.
  EXPECT_LT(LiveBytes(), before + (1U << 20));
  rs.MoveNext();
  EXPECT_TRUE(rs.Eof());
}

}  // namespace
}  // namespace kodra::odbc

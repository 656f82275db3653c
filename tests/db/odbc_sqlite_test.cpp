// The ODBC answer to ADO over SQLite's driver, whose columns promise nothing about their values.
#include <gtest/gtest.h>
#include <malloc.h>

#include "db/sqlite_file.h"
#include "platform/odbc/command.h"
#include "platform/odbc/recordset.h"
#include "platform/print_value.h"
#include "platform/raised.h"

#ifdef __SANITIZE_ADDRESS__
// The sanitizer's allocator stands in the place of malloc's; GCC brings no header for it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace kodra::platform::odbc {
namespace {

using tests::InvalidConnection;
using tests::NoCurrentRecord;
using tests::NotUpdatable;
using tests::ObjectClosed;
using tests::ObjectOpen;
using tests::Raised;
using tests::RaisedBy;

constexpr std::wstring_view kProvider = L"Microsoft OLE DB Provider for ODBC Drivers";

Raised Provider(std::uint32_t number, const wchar_t* description) {
  return {static_cast<std::int32_t>(number), std::wstring(kProvider), description};
}

class OdbcSqlite : public testing::Test {
 protected:
  void OpenFirehose(Recordset& recordset, const std::wstring& sql) {
    recordset.SetCursorLocation(ad::kUseServer);
    recordset.SetCacheSize(100);
    recordset.Open(sql, &file.Connection(), ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  }

  // Numbers from 1 to `count`.
  static std::wstring Numbers(int count) {
    return L"with recursive q(N) as (select 1 union all select N + 1 from q where N < " + std::to_wstring(count) +
           L") select N from q";
  }

  tests::SqliteFile file;
  Recordset rs;
};

TEST_F(OdbcSqlite, RowsAreStreamedInOrderWithTheirAccents) {
  file.Run(L"create table DEPTO(COD_DEPTO char(5), DESCR_DEPTO varchar(40))");
  file.Run(L"insert into DEPTO values('00002','Expedição'),('00001','São João'),('00003',null)");
  OpenFirehose(rs, L"select COD_DEPTO, DESCR_DEPTO from DEPTO order by COD_DEPTO");
  EXPECT_FALSE(rs.Bof());
  EXPECT_EQ(rs.RecordCount(), -1);
  EXPECT_EQ(rs.CursorType(), ad::kOpenForwardOnly);
  EXPECT_EQ(rs.GetRows(-1),
            (std::vector<std::vector<Value>>{{L"00001", L"São João"}, {L"00002", L"Expedição"}, {L"00003", Null{}}}));
  EXPECT_TRUE(rs.Eof());
  EXPECT_FALSE(rs.Bof());
  EXPECT_EQ(RaisedBy([&] { rs.FieldValue(0); }), NoCurrentRecord(L"ADODB.Field"));
  EXPECT_EQ(RaisedBy([&] { rs.MoveNext(); }), NoCurrentRecord(L"ADODB.Recordset"));
}

TEST_F(OdbcSqlite, AResultWithoutRowsIsAtBothEnds) {
  OpenFirehose(rs, L"select 1 as UM where 1 = 0");
  EXPECT_EQ(rs.State(), ad::kStateOpen);
  EXPECT_TRUE(rs.Bof());
  EXPECT_TRUE(rs.Eof());
  EXPECT_EQ(rs.FieldAt(0).name, L"UM");
  EXPECT_EQ(RaisedBy([&] { rs.MoveFirst(); }), NoCurrentRecord(L"ADODB.Recordset"));
}

TEST_F(OdbcSqlite, EveryDeclaredTypeGivesItsAdoTypeAndValue) {
  file.Run(
      L"create table T(I integer, B bigint, S smallint, N numeric(10,2), R real, F boolean, D date, TS timestamp, "
      L"H time, C char(5), V varchar(20), X text, BL blob)");
  file.Run(
      L"insert into T values(7, 9000000000, 3, 12.34, 2.5, 1, '2020-01-02', '2020-01-02 06:00:00', '12:00:00', 'ab', "
      L"'ação', 'longo', x'00ff')");
  OpenFirehose(rs, L"select * from T");
  const std::vector<std::int32_t> types{ad::kInteger, ad::kBigInt,      ad::kSmallInt,    ad::kDouble, ad::kDouble,
                                        ad::kBoolean, ad::kDBDate,      ad::kDBTimeStamp, ad::kDBTime, ad::kVarChar,
                                        ad::kVarChar, ad::kLongVarChar, ad::kBinary};
  std::vector<std::int32_t> described;
  described.reserve(types.size());
  for (int i = 0; i < rs.FieldCount(); ++i) described.push_back(rs.FieldAt(i).type);
  EXPECT_EQ(described, types);
  EXPECT_EQ(rs.FieldAt(10).definedSize, 20);
  EXPECT_EQ(rs.GetRows(1).front(), (std::vector<Value>{7, std::int64_t{9000000000}, 3, 12.34, 2.5, true, Date{43832},
                                                       Date{43832.25}, Date{0.5}, L"ab", L"ação", L"longo", L"00FF"}));
}

TEST_F(OdbcSqlite, AnExpressionColumnHasTheTypeOfItsFirstValue) {
  file.Run(L"create table T(NOME varchar(10), QTD integer)");
  file.Run(L"insert into T values('a', 1),('b', 2)");
  OpenFirehose(rs, L"select count(*) as C, sum(QTD) as S, avg(QTD) as M, max(NOME) || '1' as E, '00123' as K from T");
  EXPECT_EQ(rs.FieldAt(0).type, ad::kInteger);
  EXPECT_EQ(rs.FieldAt(2).type, ad::kDouble);
  EXPECT_EQ(rs.FieldAt(3).type, ad::kVarChar);
  EXPECT_EQ(rs.GetRows(1).front(), (std::vector<Value>{2, 3, 1.5, L"b1", L"00123"}));
}

TEST_F(OdbcSqlite, AValueThatIsNotOfItsColumnsTypeKeepsWhatItIs) {
  file.Run(L"create table T(ORDEM integer, I integer, D date, V varchar(3))");
  file.Run(L"insert into T values(1, 3000000000, 'amanhã', 'mais que três'),(2, 1.5, '2020-01-02', 'abc')");
  OpenFirehose(rs, L"select I, D, V from T order by ORDEM");
  EXPECT_EQ(rs.GetRows(-1), (std::vector<std::vector<Value>>{{std::int64_t{3000000000}, L"amanhã", L"mais que três"},
                                                             {1.5, Date{43832}, L"abc"}}));
}

TEST_F(OdbcSqlite, LongTextIsReadWholeInAnyColumnAndRow) {
  file.Run(L"create table T(ORDEM integer, V varchar(10), X text, Z integer)");
  std::wstring longText;
  for (int i = 0; longText.size() < 70000; ++i) longText += L"ação " + std::to_wstring(i) + L"; ";
  Command cmd;
  cmd.SetActiveConnection(&file.Connection());
  cmd.SetCommandText(L"insert into T values(?, ?, ?, 9)");
  cmd.AppendParameter(L"ORDEM", ad::kInteger, ad::kParamInput, 0, 1);
  cmd.AppendParameter(L"V", ad::kLongVarWChar, ad::kParamInput, 0, longText);
  cmd.AppendParameter(L"X", ad::kLongVarWChar, ad::kParamInput, 0, longText);
  EXPECT_EQ(cmd.Execute(ad::kUnspecified).recordsAffected, 1);
  file.Run(L"insert into T values(2, 'curto', 'curto', 9)");
  OpenFirehose(rs, L"select V, X, Z from T order by ORDEM");
  EXPECT_EQ(rs.FieldValue(0), Value(longText));
  EXPECT_EQ(rs.FieldValue(1), Value(longText));
  EXPECT_EQ(rs.FieldValue(0), Value(longText));
  EXPECT_EQ(rs.FieldValue(2), Value(9));
  rs.MoveNext();
  EXPECT_EQ(rs.FieldValue(0), Value(L"curto"));
  EXPECT_EQ(rs.FieldValue(1), Value(L"curto"));
}

TEST_F(OdbcSqlite, TextAroundTheSizeOfItsBufferIsReadWhole) {
  for (int length : {62, 63, 64, 65, 510, 511, 512, 513}) {
    const std::wstring text(static_cast<std::size_t>(length), L'ç');
    OpenFirehose(rs, L"select '" + text + L"' as V");
    EXPECT_EQ(rs.FieldValue(0), Value(text)) << length;
    rs.Close();
  }
}

TEST_F(OdbcSqlite, ACharacterBeyondTheBasicPlaneIsReadAndWritten) {
  Command cmd;
  cmd.SetActiveConnection(&file.Connection());
  cmd.SetCommandText(L"select ? as V");
  cmd.AppendParameter(L"V", ad::kVarWChar, ad::kParamInput, 20, L"caixa \U0001F4E6");
  rs.Open(&cmd, {}, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  EXPECT_EQ(rs.FieldValue(0), Value(L"caixa \U0001F4E6"));
}

TEST_F(OdbcSqlite, TwoStreamsOnOneConnectionDoNotDisturbEachOther) {
  Recordset other;
  OpenFirehose(rs, Numbers(1000));
  rs.Move(500);
  OpenFirehose(other, Numbers(10));
  EXPECT_EQ(other.GetRows(-1).size(), 10U);
  EXPECT_EQ(rs.FieldValue(0), Value(501));
  EXPECT_EQ(rs.GetRows(-1).size(), 500U);
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

TEST_F(OdbcSqlite, AStreamKeepsItsConnectionAliveWhenTheConnectionObjectIsGone) {
  {
    Connection cn;
    cn.Open(file.ConnectionString(), L"", L"", ad::kUnspecified);
    rs.Open(Numbers(500), &cn, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  }
  EXPECT_EQ(rs.GetRows(-1).size(), 500U);
  EXPECT_EQ(rs.ConnectionInUse()->State(), ad::kStateOpen);
}

TEST_F(OdbcSqlite, ClosingTheConnectionClosesWhatStreamsFromIt) {
  Connection cn;
  cn.Open(file.ConnectionString(), L"", L"", ad::kUnspecified);
  rs.Open(Numbers(500), &cn, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  cn.Close();
  EXPECT_EQ(rs.State(), ad::kStateClosed);
  EXPECT_EQ(RaisedBy([&] { rs.MoveNext(); }), ObjectClosed(L"ADODB.Recordset"));
}

TEST_F(OdbcSqlite, ARecordsetGoneBeforeItsConnectionIsNotMissed) {
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

TEST_F(OdbcSqlite, AnyOtherServerCursorIsStaticAndEndsWithItsConnection) {
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

TEST_F(OdbcSqlite, SourceAndConnectionMayBeGivenAsProperties) {
  rs.SetSource(L"select 4 as QUATRO");
  rs.SetActiveConnection(file.ConnectionString());
  rs.Open({}, {}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
  EXPECT_EQ(rs.FieldValue(0), Value(4));
}

TEST_F(OdbcSqlite, RequeryReadsTheRowsAnew) {
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

TEST_F(OdbcSqlite, AStatementWithoutRowsLeavesTheRecordsetClosed) {
  OpenFirehose(rs, L"create table T(N integer)");
  EXPECT_EQ(rs.State(), ad::kStateClosed);
  const Execution execution = file.Connection().Query(L"insert into T values(1),(2),(3)", ad::kCmdText);
  EXPECT_EQ(execution.recordsAffected, 3);
  EXPECT_EQ(execution.recordset->State(), ad::kStateClosed);
}

TEST_F(OdbcSqlite, ExecuteDropsItsRows) {
  file.Connection().Execute(Numbers(3), ad::kUnspecified);
  EXPECT_EQ(file.Connection().Query(Numbers(3), ad::kExecuteNoRecords).recordset->State(), ad::kStateClosed);
}

TEST_F(OdbcSqlite, ATableNameIsOpenedAsATable) {
  file.Run(L"create table DEPTO(COD_DEPTO char(5))");
  file.Run(L"insert into DEPTO values('00001')");
  rs.Open(L"DEPTO", &file.Connection(), ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdTable);
  EXPECT_EQ(rs.FieldValue(0), Value(L"00001"));
}

TEST_F(OdbcSqlite, AnErrorInASelectIsTheDriversWithItsNativeCode) {
  const Raised missing = Provider(0x80040E14U, L"[SQLite]no such table: NADA (1)");
  EXPECT_EQ(RaisedBy([&] { OpenFirehose(rs, L"select * from NADA"); }), missing);
  EXPECT_EQ(rs.State(), ad::kStateClosed);
  Connection& cn = file.Connection();
  ASSERT_EQ(cn.ErrorCount(), 1);
  EXPECT_EQ(cn.NativeError(0), 1);
  EXPECT_EQ(cn.Errors()[0].sqlState, L"HY000");
  EXPECT_EQ(cn.Errors()[0].source, kProvider);
  EXPECT_EQ(cn.Errors()[0].description, L"[SQLite]no such table: NADA (1)");
  OpenFirehose(rs, L"select 1 as UM");
  EXPECT_EQ(rs.FieldValue(0), Value(1));
  EXPECT_EQ(cn.ErrorCount(), 1);
  cn.ClearErrors();
  EXPECT_EQ(cn.ErrorCount(), 0);
}

TEST_F(OdbcSqlite, AnErrorOfTheDataIsAPlainFailure) {
  file.Run(L"create table T(N integer unique)");
  file.Run(L"insert into T values(1)");
  EXPECT_EQ(RaisedBy([&] { file.Run(L"insert into T values(1)"); }),
            Provider(0x80004005U, L"[SQLite]UNIQUE constraint failed: T.N (19)"));
  EXPECT_EQ(file.Connection().NativeError(0), 19);
}

TEST_F(OdbcSqlite, AFolderThatDoesNotExistFailsToOpenAndTellsNoPassword) {
  Connection cn;
  cn.SetConnectionString(L"Driver={SQLite3};Database=/nao/existe/a.db;PWD=segredo");
  EXPECT_EQ(RaisedBy([&] { cn.Open(L"", L"", ad::kUnspecified); }), Provider(0x80004005U, L"[SQLite]connect failed"));
  EXPECT_EQ(cn.State(), ad::kStateClosed);
  EXPECT_EQ(cn.NativeError(0), 14);
}

TEST_F(OdbcSqlite, AnEmptyStatementRaises) {
  EXPECT_EQ(RaisedBy([&] { OpenFirehose(rs, L""); }),
            Provider(0x80040E0CU, L"Command text was not set for the command object."));
}

TEST_F(OdbcSqlite, AParameterizedCommandFindsItsRows) {
  file.Run(L"create table OPERADOR(NOME varchar(20), NIVEL integer, ATIVO boolean, DESDE date)");
  file.Run(L"insert into OPERADOR values('João',1,1,'2020-01-02'),('Ana',2,0,'2021-01-01'),('Bia',2,1,'2022-01-01')");
  Command cmd;
  cmd.SetActiveConnection(&file.Connection());
  cmd.SetCommandText(L"select NOME from OPERADOR where NOME = ? or (NIVEL = ? and ATIVO = ? and DESDE > ?)");
  cmd.SetCommandType(ad::kCmdText);
  cmd.AppendParameter(L"NOME", ad::kVarChar, ad::kParamInput, 20, L"João");
  cmd.AppendParameter(L"NIVEL", ad::kInteger, ad::kParamInput, 0, 2);
  cmd.AppendParameter(L"ATIVO", ad::kBoolean, ad::kParamInput, 0, true);
  cmd.AppendParameter(L"DESDE", ad::kDBDate, ad::kParamInput, 0, Date{44197});
  rs.Open(&cmd, {}, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  EXPECT_EQ(rs.GetRows(-1), (std::vector<std::vector<Value>>{{L"João"}, {L"Bia"}}));
  rs.Close();
  cmd.SetParameterValue(0, L"' or 1=1 --");
  rs.Open(&cmd, {}, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  EXPECT_EQ(rs.GetRows(-1), (std::vector<std::vector<Value>>{{L"Bia"}}));
}

TEST_F(OdbcSqlite, ANullParameterIsANull) {
  Command cmd;
  cmd.SetActiveConnection(&file.Connection());
  cmd.SetCommandText(L"select ? is null as VAZIO, ? as TEXTO");
  cmd.AppendParameter(L"A", ad::kVarChar, ad::kParamInput, 5, Null{});
  cmd.AppendParameter(L"B", ad::kVarChar, ad::kParamInput, 5, L"");
  const Execution execution = cmd.Execute(ad::kUnspecified);
  EXPECT_EQ(execution.recordset->GetRows(1).front(), (std::vector<Value>{1, L""}));
}

TEST_F(OdbcSqlite, AParameterWithoutAValueRaises) {
  Command cmd;
  cmd.SetActiveConnection(&file.Connection());
  cmd.SetCommandText(L"select ? as A");
  cmd.AppendParameter(L"A", ad::kVarChar, ad::kParamInput, 5, Empty{});
  EXPECT_EQ(RaisedBy([&] { cmd.Execute(ad::kUnspecified); }),
            Provider(0x80040E10U, L"No value given for one or more required parameters."));
}

TEST_F(OdbcSqlite, ACommandOpensAConnectionStringOfItsOwnAndLetsGoOfIt) {
  Command cmd;
  cmd.SetActiveConnection(file.ConnectionString());
  cmd.SetCommandText(L"select 5 as CINCO");
  EXPECT_TRUE(cmd.HasActiveConnection());
  EXPECT_EQ(cmd.Execute(ad::kUnspecified).recordset->FieldValue(0), Value(5));
  cmd.SetActiveConnection(static_cast<platform::Connection*>(nullptr));
  EXPECT_FALSE(cmd.HasActiveConnection());
}

TEST_F(OdbcSqlite, ATransactionIsKeptOrTakenBack) {
  file.Run(L"create table T(N integer)");
  Connection& cn = file.Connection();
  EXPECT_EQ(cn.BeginTrans(), 1);
  file.Run(L"insert into T values(1)");
  cn.RollbackTrans();
  cn.BeginTrans();
  file.Run(L"insert into T values(2)");
  cn.CommitTrans();
  OpenFirehose(rs, L"select N from T");
  EXPECT_EQ(rs.GetRows(-1), (std::vector<std::vector<Value>>{{2}}));
}

TEST_F(OdbcSqlite, TransactionsDoNotNestAndHoldTheConnectionOpen) {
  Connection& cn = file.Connection();
  EXPECT_EQ(RaisedBy([&] { cn.CommitTrans(); }), Provider(0x8004D00EU, L"No transaction is active."));
  cn.BeginTrans();
  EXPECT_EQ(RaisedBy([&] { cn.BeginTrans(); }),
            Provider(0x8004D013U, L"Only one transaction can be active on this session."));
  EXPECT_EQ(
      RaisedBy([&] { cn.Close(); }),
      (Raised{3246, L"ADODB.Connection", L"Connection object cannot be explicitly closed while in a transaction."}));
  cn.RollbackTrans();
}

TEST_F(OdbcSqlite, AnOpenConnectionRefusesWhatOnlyAClosedOneTakes) {
  Connection& cn = file.Connection();
  const Raised open = ObjectOpen(L"ADODB.Connection");
  EXPECT_EQ(RaisedBy([&] { cn.Open(L"", L"", ad::kUnspecified); }), open);
  EXPECT_EQ(RaisedBy([&] { cn.SetConnectionString(L""); }), open);
  EXPECT_EQ(RaisedBy([&] { cn.SetConnectionTimeout(1); }), open);
  EXPECT_EQ(RaisedBy([&] { cn.SetMode(1); }), open);
}

TEST_F(OdbcSqlite, AConnectionOpensAgainAfterClose) {
  Connection cn;
  cn.SetConnectionString(L"Provider=MSDASQL;Persist Security Info=True;Extended Properties=\"" +
                         file.ConnectionString() + L"\";OEMCP=1;FKSupport=true;");
  cn.SetIsolationLevel(ad::kXactReadCommitted);
  for (int i = 0; i < 2; ++i) {
    cn.Open(L"", L"", ad::kUnspecified);
    EXPECT_EQ(cn.State(), ad::kStateOpen);
    cn.Close();
  }
}

// Bytes that this process has allocated and not freed.
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
  // Kept whole, these rows would take tens of megabytes.
  EXPECT_LT(LiveBytes(), before + (1U << 20));
  rs.MoveNext();
  EXPECT_TRUE(rs.Eof());
}

}  // namespace
}  // namespace kodra::platform::odbc

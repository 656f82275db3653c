// Statements, commands, transactions and failures, on an SQLite file.
#include <gtest/gtest.h>

#include <limits>

#include "odbc/engine/command.h"
#include "tests/db/odbc_sqlite.h"
#include "tests/secret.h"

namespace kodra::odbc {
namespace {

using tests::kSecret;
using tests::ObjectOpen;
using tests::Raised;
using tests::RaisedBy;

TEST_F(OdbcSqlite, AStatementWithoutRowsLeavesTheRecordsetClosed) {
  OpenFirehose(rs, L"create table T(N integer)");
  EXPECT_EQ(rs.State(), ad::kStateClosed);
  const Execution execution = file.Connection().Query(L"insert into T values(1),(2),(3)", ad::kCmdText);
  EXPECT_EQ(execution.recordsAffected, 3);
  EXPECT_EQ(execution.recordset->State(), ad::kStateClosed);
}

TEST_F(OdbcSqlite, ExecuteDiscardsItsRows) {
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
  EXPECT_EQ(cn.Errors()[0].source, L"Microsoft OLE DB Provider for ODBC Drivers");
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

TEST_F(OdbcSqlite, AFolderThatDoesNotExistFailsToOpenAndRepeatsNoPassword) {
  Connection cn;
  cn.SetConnectionString(L"Driver={SQLite3};Database=/nao/existe/a.db;PWD=" + kSecret);
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

TEST_F(OdbcSqlite, AParameterOfEveryTypeReachesTheDatabase) {
  Command cmd;
  cmd.SetActiveConnection(&file.Connection());
  cmd.SetCommandText(L"select ?, ?, ?, ?, ?, ?, ?");
  cmd.AppendParameter(L"GRANDE", ad::kBigInt, ad::kParamInput, 0, std::int64_t{9007199254740993});
  cmd.AppendParameter(L"MOMENTO", ad::kDBTimeStamp, ad::kParamInput, 0, Date{43832.25});
  cmd.AppendParameter(L"SEM_SINAL", ad::kUnsignedBigInt, ad::kParamInput, 0, std::uint64_t{9223372036854775808U});
  cmd.AppendParameter(L"VALOR", ad::kCurrency, ad::kParamInput, 0, Currency{12500});
  cmd.AppendParameter(L"EXATO", ad::kNumeric, ad::kParamInput, 0, Decimal{.low = 25, .scale = 1});
  cmd.AppendParameter(L"SIMPLES", ad::kSingle, ad::kParamInput, 0, 0.5F);
  cmd.AppendParameter(L"QUALQUER", ad::kVariant, ad::kParamInput, 0, L"ação");
  // The integers of SQLite are signed.
  EXPECT_EQ(cmd.Execute(ad::kUnspecified).recordset->GetRows(1).front(),
            (std::vector<Value>{std::int64_t{9007199254740993}, L"2020-01-02 06:00:00.000",
                                std::numeric_limits<std::int64_t>::min(), 1.25, 2.5, 0.5, L"ação"}));
}

TEST_F(OdbcSqlite, AParameterThatReturnsAValueOrIsAnObjectIsRefusedWhenTheCommandRuns) {
  Command cmd;
  cmd.SetActiveConnection(&file.Connection());
  cmd.SetCommandText(L"select ? as A");
  cmd.AppendParameter(L"A", ad::kInteger, ad::kParamInput + 1, 0, 1);
  EXPECT_EQ(RaisedBy([&] { cmd.Execute(ad::kUnspecified); }).number, 3251);
  cmd.SetParameter(0, {L"A", ad::kVariant, ad::kParamInput, 0, ObjectRef()});
  EXPECT_EQ(RaisedBy([&] { cmd.Execute(ad::kUnspecified); }),
            (Raised{3421, L"ADODB.Command", L"Application uses a value of the wrong type for the current operation."}));
}

TEST_F(OdbcSqlite, AParameterWithoutAValueRaises) {
  Command cmd;
  cmd.SetActiveConnection(&file.Connection());
  cmd.SetCommandText(L"select ? as A");
  cmd.AppendParameter(L"A", ad::kVarChar, ad::kParamInput, 5, Empty{});
  EXPECT_EQ(RaisedBy([&] { cmd.Execute(ad::kUnspecified); }),
            Provider(0x80040E10U, L"No value given for one or more required parameters."));
}

TEST_F(OdbcSqlite, ACommandOpensAConnectionStringOfItsOwnAndReleasesIt) {
  Command cmd;
  cmd.SetActiveConnection(file.ConnectionString());
  cmd.SetCommandText(L"select 5 as CINCO");
  EXPECT_TRUE(cmd.HasActiveConnection());
  EXPECT_EQ(cmd.Execute(ad::kUnspecified).recordset->FieldValue(0), Value(5));
  cmd.SetActiveConnection(static_cast<platform::Connection*>(nullptr));
  EXPECT_FALSE(cmd.HasActiveConnection());
}

TEST_F(OdbcSqlite, ATransactionIsCommittedOrRolledBack) {
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

TEST_F(OdbcSqlite, AConnectionDestroyedInATransactionRollsItBack) {
  file.Run(L"create table T(N integer)");
  {
    Connection cn;
    cn.SetConnectionString(file.ConnectionString());
    cn.Open(L"", L"", ad::kUnspecified);
    cn.BeginTrans();
    cn.Execute(L"insert into T values(1)", ad::kCmdText);
  }
  // One that is still connected would hold a lock on the file, and this one does not wait for locks.
  Connection next;
  next.SetConnectionString(file.ConnectionString() + L"Timeout=1;");
  next.Open(L"", L"", ad::kUnspecified);
  EXPECT_EQ(RaisedBy([&] { next.Execute(L"insert into T values(2)", ad::kCmdText); }), Raised());
  EXPECT_EQ(next.Query(L"select N from T", ad::kCmdText).recordset->GetRows(-1),
            (std::vector<std::vector<Value>>{{2}}));
}

TEST_F(OdbcSqlite, AnOpenConnectionRefusesWhatOnlyAClosedOneAccepts) {
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

TEST_F(OdbcSqlite, AConnectionStringLongerThanOdbcCountsIsRefused) {
  const std::wstring text = file.ConnectionString();
  // The first passes as the string without its end, the second as one of negative length.
  for (const std::size_t length : {text.size() + 65536, std::size_t{32768}}) {
    Connection cn;
    const std::wstring longer = text + L"X=" + std::wstring(length - text.size() - 2, L'x');
    EXPECT_EQ(RaisedBy([&] { cn.Open(longer, L"", L"", ad::kUnspecified); }),
              Provider(0x80004005U, L"A string de conexão é longa demais: o ODBC aceita até 32767 caracteres."))
        << length;
    EXPECT_EQ(cn.State(), ad::kStateClosed);
  }
  Connection cn;
  cn.Open(text + L"X=" + std::wstring(32000, L'x'), L"", L"", ad::kUnspecified);
  EXPECT_EQ(cn.State(), ad::kStateOpen);
}

}  // namespace
}  // namespace kodra::odbc

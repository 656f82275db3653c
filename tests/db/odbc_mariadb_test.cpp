// ADO's contract over ODBC with MariaDB's driver, which describes its columns correctly.
#include <gtest/gtest.h>

#include "odbc/engine/command.h"
#include "odbc/engine/recordset.h"
#include "tests/db/mariadb.h"
#include "tests/odbc/print_value.h"
#include "tests/odbc/raised.h"
#include "tests/secret.h"

namespace kodra::odbc {
namespace {

using tests::kSecret;
using tests::MariaDb;
using tests::Raised;
using tests::RaisedBy;

constexpr std::wstring_view kProvider = L"Microsoft OLE DB Provider for ODBC Drivers";

class OdbcMariaDb : public testing::Test {
 protected:
  static void SetUpTestSuite() { MariaDb().CreateDatabase(L"odbc"); }

  OdbcMariaDb() { cn.Open(MariaDb().ConnectionString(L"odbc"), L"", L"", ad::kUnspecified); }

  void Run(const std::wstring& statement) { cn.Execute(statement, ad::kCmdText); }

  void OpenFirehose(const std::wstring& sql) {
    rs.SetCursorLocation(ad::kUseServer);
    rs.SetCacheSize(100);
    rs.Open(sql, &cn, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  }

  Connection cn;
  Recordset rs;
};

TEST_F(OdbcMariaDb, AnOpenConnectionChangesItsDatabase) {
  MariaDb().CreateDatabase(L"outro");
  EXPECT_EQ(cn.DefaultDatabase(), L"odbc");
  cn.SetDefaultDatabase(L"outro");
  EXPECT_EQ(cn.DefaultDatabase(), L"outro");
  OpenFirehose(L"select database()");
  EXPECT_EQ(rs.FieldValue(0), Value(L"outro"));
  EXPECT_EQ(RaisedBy([&] { cn.SetDefaultDatabase(L"mysql"); }).source, kProvider);
  EXPECT_EQ(cn.DefaultDatabase(), L"outro");
}

TEST_F(OdbcMariaDb, EveryDeclaredTypeHasItsAdoTypeAndValue) {
  Run(L"create or replace table T(I int, U int unsigned, S smallint, Y tinyint, B bigint, BU bigint unsigned, "
      L"N decimal(10,2), R float, F double, BT bit(1), D date, DT datetime, DM datetime(3), H time, C char(5), "
      L"V varchar(20), X text, VB varbinary(4))");
  Run(L"insert into T values(7, 4000000000, 3, 1, 9000000000, 18000000000000000000, 12.34, 2.5, 1.1, b'1', "
      L"'2020-01-02', '2020-01-02 06:00:00', '2020-01-02 12:00:00.250', '12:00:00', 'ab', 'ação', 'longo', x'00ff')");
  OpenFirehose(L"select * from T");
  const std::vector<std::int32_t> types{
      ad::kInteger,     ad::kUnsignedInt, ad::kSmallInt, ad::kTinyInt,  ad::kBigInt,       ad::kUnsignedBigInt,
      ad::kNumeric,     ad::kSingle,      ad::kDouble,   ad::kBoolean,  ad::kDBDate,       ad::kDBTimeStamp,
      ad::kDBTimeStamp, ad::kDBTime,      ad::kWChar,    ad::kVarWChar, ad::kLongVarWChar, ad::kVarBinary};
  std::vector<std::int32_t> described;
  described.reserve(types.size());
  for (int i = 0; i < rs.FieldCount(); ++i) described.push_back(rs.FieldAt(i).type);
  EXPECT_EQ(described, types);
  EXPECT_EQ(rs.FieldAt(6).precision, 10);
  EXPECT_EQ(rs.FieldAt(6).numericScale, 2);
  EXPECT_EQ(rs.FieldAt(15).definedSize, 20);
  EXPECT_EQ(rs.GetRows(1).front(),
            (std::vector<Value>{7, std::int64_t{4000000000}, 3, 1, std::int64_t{9000000000},
                                std::uint64_t{18000000000000000000U}, Decimal{.low = 1234, .scale = 2}, 2.5F, 1.1, true,
                                Date{43832}, Date{43832.25}, Date{43832.5 + 0.25 / 86400}, Date{0.5}, L"ab", L"ação",
                                L"longo", L"00FF"}));
}

TEST_F(OdbcMariaDb, DecimalsKeepEveryDigit) {
  Run(L"create or replace table T(A decimal(29,0), B decimal(20,19), C decimal(38,10), D decimal(30,0), E "
      L"decimal(38,38))");
  Run(L"insert into T values(79228162514264337593543950335, -1.2345678901234567890, "
      L"1234567890123456789012345678.0123456789, 100000000000000000000000000000, "
      L"0.00000000000000000000000000015000000001)");
  OpenFirehose(L"select * from T");
  EXPECT_EQ(rs.GetRows(1).front(),
            (std::vector<Value>{Decimal{.low = 18446744073709551615U, .high = 4294967295U},
                                Decimal{.low = 12345678901234567890U, .scale = 19, .negative = true},
                                // 1234567890123456789012345678.0
                                Decimal{.low = 5097733592125636876U, .high = 669260594U, .scale = 1}, 1e29,
                                Decimal{.low = 2, .scale = 28}}));
}

TEST_F(OdbcMariaDb, ASingleIsTheOneThatIsStored) {
  Run(L"create or replace table T(R float)");
  Run(L"insert into T values(0.1), (-3.402823e38)");
  OpenFirehose(L"select R from T");
  EXPECT_EQ(rs.GetRows(-1), (std::vector<std::vector<Value>>{{0.1F}, {-3.402823e38F}}));
}

TEST_F(OdbcMariaDb, NullsAreNullInEveryType) {
  Run(L"create or replace table T(I int, N decimal(10,2), D date, DT datetime, V varchar(20), X text, BT bit(1))");
  Run(L"insert into T values(null, null, null, null, null, null, null)");
  OpenFirehose(L"select * from T");
  EXPECT_EQ(rs.GetRows(1).front(), std::vector<Value>(7, Value(Null{})));
}

TEST_F(OdbcMariaDb, AZeroDateIsNull) {
  Run(L"set sql_mode=''");
  Run(L"create or replace table T(D date, DT datetime)");
  Run(L"insert into T values('0000-00-00', '0000-00-00 00:00:00')");
  OpenFirehose(L"select * from T");
  EXPECT_EQ(rs.GetRows(1).front(), (std::vector<Value>{Null{}, Null{}}));
}

TEST_F(OdbcMariaDb, ADayThatDoesNotExistIsText) {
  Run(L"set sql_mode='ALLOW_INVALID_DATES'");
  Run(L"create or replace table T(D date, DT datetime)");
  Run(L"insert into T values('2024-05-00', '2024-05-00 00:00:00'), ('2024-02-31', '2023-02-29 10:20:30')");
  OpenFirehose(L"select * from T");
  EXPECT_EQ(rs.GetRows(2),
            (std::vector<std::vector<Value>>{{L"2024-05-00", L"2024-05-00"}, {L"2024-02-31", L"2023-02-29 10:20:30"}}));
}

TEST_F(OdbcMariaDb, RowsComeInOrderAcrossBlocksWhateverTheCacheSize) {
  for (int cache : {1, 7, 100, 250, 1000, 100000}) {
    rs.SetCacheSize(cache);
    rs.Open(L"select seq as N, concat('nome número ', seq) as NOME from seq_1_to_1000", &cn, ad::kOpenForwardOnly,
            ad::kLockReadOnly, ad::kCmdText);
    std::int64_t expected = 1;
    for (; !rs.Eof(); rs.MoveNext(), ++expected) {
      ASSERT_EQ(rs.FieldValue(0), Value(expected)) << "cache " << cache;
      ASSERT_EQ(rs.FieldValue(1), Value(L"nome número " + std::to_wstring(expected)));
    }
    EXPECT_EQ(expected, 1001) << "cache " << cache;
    rs.Close();
  }
}

TEST_F(OdbcMariaDb, MovingAheadAndBackToTheFirstRowCrossesBlocks) {
  OpenFirehose(L"select seq as N from seq_1_to_1000");
  rs.Move(350);
  EXPECT_EQ(rs.FieldValue(0), Value(std::int64_t{351}));
  rs.MoveFirst();
  EXPECT_EQ(rs.FieldValue(0), Value(std::int64_t{1}));
  EXPECT_EQ(rs.GetRows(-1).size(), 1000U);
}

TEST_F(OdbcMariaDb, LongTextIsReadWholeAmongOtherColumns) {
  Run(L"create or replace table T(ORDEM int, X longtext, V varchar(5))");
  std::wstring longText;
  for (int i = 0; longText.size() < 70000; ++i) longText += L"ação " + std::to_wstring(i) + L"; ";
  Command cmd;
  cmd.SetActiveConnection(&cn);
  cmd.SetCommandText(L"insert into T values(1, ?, 'fim')");
  cmd.AppendParameter(L"X", ad::kLongVarWChar, ad::kParamInput, 0, longText);
  EXPECT_EQ(cmd.Execute(ad::kUnspecified).recordsAffected, 1);
  Run(L"insert into T values(2, 'curto', 'fim'),(3, null, 'fim'),(4, '', 'fim')");
  OpenFirehose(L"select X, V from T order by ORDEM");
  EXPECT_EQ(rs.GetRows(-1),
            (std::vector<std::vector<Value>>{{longText, L"fim"}, {L"curto", L"fim"}, {Null{}, L"fim"}, {L"", L"fim"}}));
}

// The driver mistakes the letter for a surrogate.
TEST_F(OdbcMariaDb, TextWithALetterThatTheDriverMiscountsStaysWhole) {
  const std::wstring shortText = L"Úrsula Ú";
  std::wstring longText;
  for (int i = 0; longText.size() < 70000; ++i) longText += L"Última Ação Única " + std::to_wstring(i) + L"; ";
  Run(L"create or replace table T(V varchar(20), X longtext, PÚBLICO varchar(3))");
  Command cmd;
  cmd.SetActiveConnection(&cn);
  cmd.SetCommandText(L"insert into T values(?, ?, 'ÚÚÚ')");
  cmd.AppendParameter(L"V", ad::kVarWChar, ad::kParamInput, 20, shortText);
  cmd.AppendParameter(L"X", ad::kLongVarWChar, ad::kParamInput, 0, longText);
  EXPECT_EQ(cmd.Execute(ad::kUnspecified).recordsAffected, 1);
  OpenFirehose(L"select V, X, PÚBLICO, char_length(V) from T where V = 'Úrsula Ú'");
  EXPECT_EQ(rs.FieldAt(2).name, L"PÚBLICO");
  EXPECT_EQ(rs.FieldValue(0), Value(shortText));
  EXPECT_TRUE(rs.FieldValue(1) == Value(longText));
  EXPECT_EQ(rs.FieldValue(2), Value(L"ÚÚÚ"));
  EXPECT_EQ(rs.FieldValue(3), Value(8));
  rs.Close();
  const Raised missing = RaisedBy([&] { OpenFirehose(L"select * from PÚBLICA"); });
  EXPECT_TRUE(missing.description.ends_with(L"Table 'odbc.PÚBLICA' doesn't exist"));
}

TEST_F(OdbcMariaDb, CharactersBeyondTheBasicPlaneFillAColumnToItsSize) {
  Run(L"create or replace table T(V varchar(3), W varchar(400))");
  std::wstring wide;
  for (int i = 0; i < 400; ++i) wide += L"\U0001F4E6";
  Run(L"insert into T values('\U0001F4E6\U0001F4E6\U0001F4E6', '" + wide + L"')");
  OpenFirehose(L"select * from T");
  EXPECT_EQ(rs.GetRows(1).front(), (std::vector<Value>{L"\U0001F4E6\U0001F4E6\U0001F4E6", wide}));
}

TEST_F(OdbcMariaDb, AggregatesAreNumbers) {
  Run(L"create or replace table T(NOME varchar(10), QTD int)");
  Run(L"insert into T values('a', 1),('b', 2)");
  OpenFirehose(L"select count(*), sum(QTD), avg(QTD), concat(max(NOME), '1'), null from T");
  EXPECT_EQ(rs.GetRows(1).front(),
            (std::vector<Value>{std::int64_t{2}, Decimal{.low = 3}, Decimal{.low = 15000, .scale = 4}, L"b1", Null{}}));
}

TEST_F(OdbcMariaDb, TwoStreamsOnOneConnectionDoNotDisturbEachOther) {
  Recordset other;
  OpenFirehose(L"select seq from seq_1_to_1000");
  rs.Move(500);
  other.Open(L"select seq from seq_1_to_10", &cn, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  EXPECT_EQ(other.GetRows(-1).size(), 10U);
  EXPECT_EQ(rs.GetRows(-1).size(), 500U);
}

TEST_F(OdbcMariaDb, AMissingTableAndABadStatementHaveTheirNumbersAndNativeCodes) {
  const Raised missing = RaisedBy([&] { OpenFirehose(L"select * from NADA"); });
  EXPECT_EQ(missing.number, static_cast<std::int32_t>(0x80040E37U));
  EXPECT_EQ(missing.source, kProvider);
  EXPECT_EQ(cn.NativeError(0), 1146);
  EXPECT_EQ(cn.Errors()[0].sqlState, L"42S02");
  // The driver puts its own and the server's version before the message.
  EXPECT_EQ(missing.description.substr(missing.description.rfind(L']') + 1), L"Table 'odbc.NADA' doesn't exist");
  EXPECT_EQ(RaisedBy([&] { OpenFirehose(L"selec 1"); }).number, static_cast<std::int32_t>(0x80040E14U));
  EXPECT_EQ(cn.ErrorCount(), 1);
  EXPECT_EQ(cn.NativeError(0), 1064);
  EXPECT_EQ(rs.State(), ad::kStateClosed);
}

TEST_F(OdbcMariaDb, AWrongPasswordIsRefusedAndNotRepeated) {
  Connection refused;
  const Raised raised = RaisedBy(
      [&] { refused.Open(MariaDb().ConnectionString(L"odbc", kSecret + L" errada"), L"", L"", ad::kUnspecified); });
  EXPECT_EQ(raised.number, static_cast<std::int32_t>(0x80040E4DU));
  EXPECT_EQ(raised.source, kProvider);
  EXPECT_EQ(raised.description.find(kSecret), std::wstring::npos);
  EXPECT_EQ(refused.NativeError(0), 1045);
  EXPECT_EQ(refused.State(), ad::kStateClosed);
}

TEST_F(OdbcMariaDb, UserAndPasswordMayBePassedToOpen) {
  Connection other;
  const std::wstring right = MariaDb().ConnectionString(L"odbc");
  const std::size_t password = right.find(L"Pwd=") + 4;
  other.SetConnectionString(MariaDb().ConnectionString(L"odbc", kSecret + L" errada"));
  other.Open(L"arquivo", right.substr(password, right.find(L';', password) - password), ad::kUnspecified);
  EXPECT_EQ(other.State(), ad::kStateOpen);
  EXPECT_EQ(other.DefaultDatabase(), L"odbc");
}

TEST_F(OdbcMariaDb, OleDbNamesOpenTheSameConnection) {
  std::wstring text = MariaDb().ConnectionString(L"");
  text = L"Provider=MSDASQL.1;Persist Security Info=True;Extended Properties=\"" + text + L"\";Initial Catalog=odbc;";
  Connection other;
  other.Open(text, L"", L"", ad::kUnspecified);
  EXPECT_EQ(other.State(), ad::kStateOpen);
}

TEST_F(OdbcMariaDb, ReadCommittedIsTheSessionsIsolationLevel) {
  OpenFirehose(L"select @@tx_isolation");
  EXPECT_EQ(rs.FieldValue(0), Value(L"READ-COMMITTED"));
  rs.Close();
  cn.SetIsolationLevel(ad::kXactSerializable);
  OpenFirehose(L"select @@tx_isolation");
  EXPECT_EQ(rs.FieldValue(0), Value(L"SERIALIZABLE"));
}

TEST_F(OdbcMariaDb, ATransactionIsCommittedOrRolledBack) {
  Run(L"create or replace table T(N int) engine=innodb");
  cn.BeginTrans();
  Run(L"insert into T values(1)");
  cn.RollbackTrans();
  cn.BeginTrans();
  Run(L"insert into T values(2)");
  cn.CommitTrans();
  OpenFirehose(L"select N from T");
  EXPECT_EQ(rs.GetRows(-1), (std::vector<std::vector<Value>>{{2}}));
}

TEST_F(OdbcMariaDb, AParameterizedCommandFindsItsRows) {
  Run(L"create or replace table OPERADOR(NOME varchar(20), NIVEL int, DESDE date, ALTURA decimal(5,2))");
  Run(L"insert into OPERADOR values('João',1,'2020-01-02',1.7),('Ana',2,'2021-01-01',1.6),('Bia',2,'2022-01-01',1.5)");
  Command cmd;
  cmd.SetActiveConnection(&cn);
  cmd.SetCommandText(L"select NOME from OPERADOR where NOME = ? or (NIVEL = ? and DESDE > ? and ALTURA < ?)");
  cmd.AppendParameter(L"NOME", ad::kVarChar, ad::kParamInput, 20, L"João");
  cmd.AppendParameter(L"NIVEL", ad::kInteger, ad::kParamInput, 0, 2);
  cmd.AppendParameter(L"DESDE", ad::kDBDate, ad::kParamInput, 0, Date{44197});
  cmd.AppendParameter(L"ALTURA", ad::kDouble, ad::kParamInput, 0, 1.55);
  rs.Open(&cmd, {}, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  EXPECT_EQ(rs.GetRows(-1), (std::vector<std::vector<Value>>{{L"João"}, {L"Bia"}}));
}

TEST_F(OdbcMariaDb, AStoredProcedureIsCalledWithItsParameters) {
  Run(L"create or replace procedure dobro(n int) select n * 2 as DOBRO");
  Command cmd;
  cmd.SetActiveConnection(&cn);
  cmd.SetCommandText(L"dobro");
  cmd.SetCommandType(ad::kCmdStoredProc);
  cmd.AppendParameter(L"n", ad::kInteger, ad::kParamInput, 0, 21);
  EXPECT_EQ(cmd.Execute(ad::kUnspecified).recordset->FieldValue(0), Value(std::int64_t{42}));
}

TEST_F(OdbcMariaDb, AClientSideRecordsetIsReadWholeAndSurvivesItsConnection) {
  rs.SetCursorLocation(ad::kUseClient);
  rs.Open(L"select seq as N from seq_1_to_250", &cn, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  cn.Close();
  EXPECT_EQ(rs.RecordCount(), 250);
  rs.MoveLast();
  EXPECT_EQ(rs.FieldValue(0), Value(std::int64_t{250}));
}

TEST_F(OdbcMariaDb, RowsChangedAreCounted) {
  Run(L"create or replace table T(N int)");
  EXPECT_EQ(cn.Query(L"insert into T values(1),(2),(3)", ad::kCmdText).recordsAffected, 3);
  EXPECT_EQ(cn.Query(L"delete from T where N = 9", ad::kCmdText).recordsAffected, 0);
}

}  // namespace
}  // namespace kodra::odbc

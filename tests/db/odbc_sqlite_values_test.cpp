// The values of SQLite's columns, whose types its driver does not guarantee.
#include <gtest/gtest.h>

#include <limits>

#include "odbc/engine/command.h"
#include "tests/db/odbc_sqlite.h"

namespace kodra::odbc {
namespace {

using tests::NoCurrentRecord;
using tests::RaisedBy;

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

TEST_F(OdbcSqlite, EveryDeclaredTypeHasItsAdoTypeAndValue) {
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

TEST_F(OdbcSqlite, AValueThatIsNotOfItsColumnsTypeKeepsItsOwn) {
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

TEST_F(OdbcSqlite, ATextInTheFormOfABinaryLiteralIsText) {
  OpenFirehose(rs, L"select 'X''4142''' as V");
  EXPECT_EQ(rs.FieldValue(0), Value(L"X'4142'"));
}

TEST_F(OdbcSqlite, AByteThatIsNotUtf8IsReadAsTheReplacementCharacter) {
  OpenFirehose(rs, L"select cast(x'61E97A' as text) as V");
  EXPECT_EQ(rs.FieldValue(0), Value(L"a\uFFFDz"));
}

TEST_F(OdbcSqlite, ACharacterBeyondTheBasicPlaneIsReadAndWritten) {
  Command cmd;
  cmd.SetActiveConnection(&file.Connection());
  cmd.SetCommandText(L"select ? as V");
  cmd.AppendParameter(L"V", ad::kVarWChar, ad::kParamInput, 20, L"caixa \U0001F4E6");
  rs.Open(&cmd, {}, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  EXPECT_EQ(rs.FieldValue(0), Value(L"caixa \U0001F4E6"));
}

TEST_F(OdbcSqlite, AWholeNumberBeyondADoubleKeepsItsDigitsInAColumnOfDoubles) {
  file.Run(L"create table T(N numeric)");
  file.Run(
      L"insert into T values(-9223372036854775808), (9007199254740993), (9007199254740992), (9223372036854775807), "
      L"(1.5)");
  OpenFirehose(rs, L"select N from T");
  EXPECT_EQ(rs.FieldAt(0).type, ad::kDouble);
  EXPECT_EQ(rs.GetRows(5), (std::vector<std::vector<Value>>{{std::numeric_limits<std::int64_t>::min()},
                                                            {std::int64_t{9007199254740993}},
                                                            {9007199254740992.0},
                                                            {std::int64_t{9223372036854775807}},
                                                            {1.5}}));
}

}  // namespace
}  // namespace kodra::odbc

// Recordsets in memory only, as used by the reports that build their own rows.
#include <gtest/gtest.h>

#include "odbc/engine/recordset.h"
#include "tests/odbc/print_value.h"
#include "tests/odbc/raised.h"
#include "values/automation.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

using tests::InvalidArgument;
using tests::ItemNotFound;
using tests::MultipleStep;
using tests::NoCurrentRecord;
using tests::NotAllowedHere;
using tests::ObjectClosed;
using tests::Raised;
using tests::RaisedBy;

void OpenLeftOut(platform::Recordset& recordset) {
  recordset.Open({}, {}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
}

class DisconnectedRecordset : public testing::Test {
 protected:
  DisconnectedRecordset() {
    rs.AppendField(L"NOME", ad::kVarChar, 5, ad::kUnspecified);
    rs.AppendField(L"Ativo", ad::kBoolean, 0, ad::kUnspecified);
    rs.AppendField(L"QTD", ad::kInteger, 0, ad::kFldIsNullable);
    OpenLeftOut(rs);
  }

  void Add(const std::wstring& name, std::int32_t quantity) {
    rs.AddNew();
    rs.SetFieldValue(0, name);
    rs.SetFieldValue(1, true);
    rs.SetFieldValue(2, quantity);
    rs.Update();
  }

  Recordset rs;
};

TEST_F(DisconnectedRecordset, OpensEmptyClientSideAndStatic) {
  EXPECT_EQ(rs.State(), ad::kStateOpen);
  EXPECT_TRUE(rs.Bof());
  EXPECT_TRUE(rs.Eof());
  EXPECT_EQ(rs.RecordCount(), 0);
  EXPECT_EQ(rs.CursorLocation(), ad::kUseClient);
  EXPECT_EQ(rs.CursorType(), ad::kOpenStatic);
  EXPECT_EQ(rs.ConnectionInUse(), nullptr);
}

TEST_F(DisconnectedRecordset, AnEmptyOneHasNoFirstRow) {
  EXPECT_EQ(RaisedBy([&] { rs.MoveFirst(); }), NoCurrentRecord(L"ADODB.Recordset"));
  EXPECT_EQ(RaisedBy([&] { rs.MoveLast(); }), NoCurrentRecord(L"ADODB.Recordset"));
  EXPECT_EQ(RaisedBy([&] { rs.MoveNext(); }), NoCurrentRecord(L"ADODB.Recordset"));
  EXPECT_EQ(RaisedBy([&] { rs.MovePrevious(); }), NoCurrentRecord(L"ADODB.Recordset"));
}

TEST_F(DisconnectedRecordset, RowsAreReadInTheOrderTheyWereAdded) {
  Add(L"Ana", 1);
  Add(L"José", 2);
  rs.MoveFirst();
  EXPECT_EQ(rs.FieldValue(0), Value(L"Ana"));
  EXPECT_EQ(rs.FieldValue(1), Value(true));
  EXPECT_EQ(rs.FieldValue(2), Value(1));
  rs.MoveNext();
  EXPECT_EQ(rs.FieldValue(0), Value(L"José"));
  rs.MoveNext();
  EXPECT_TRUE(rs.Eof());
  EXPECT_FALSE(rs.Bof());
  EXPECT_EQ(rs.RecordCount(), 2);
}

TEST_F(DisconnectedRecordset, TheRowJustAddedIsTheCurrentOne) {
  Add(L"Ana", 1);
  Add(L"Bia", 2);
  EXPECT_EQ(rs.FieldValue(0), Value(L"Bia"));
  EXPECT_EQ(rs.AbsolutePosition(), 2);
}

TEST_F(DisconnectedRecordset, ReadingBeyondEitherEndRaises) {
  Add(L"Ana", 1);
  rs.MoveNext();
  EXPECT_EQ(RaisedBy([&] { rs.FieldValue(0); }), NoCurrentRecord(L"ADODB.Field"));
  EXPECT_EQ(RaisedBy([&] { rs.MoveNext(); }), NoCurrentRecord(L"ADODB.Recordset"));
  EXPECT_EQ(RaisedBy([&] { rs.SetFieldValue(0, L"x"); }), NoCurrentRecord(L"ADODB.Field"));
  rs.MoveFirst();
  rs.MovePrevious();
  EXPECT_TRUE(rs.Bof());
  EXPECT_EQ(RaisedBy([&] { rs.FieldValue(0); }), NoCurrentRecord(L"ADODB.Field"));
  EXPECT_EQ(RaisedBy([&] { rs.MovePrevious(); }), NoCurrentRecord(L"ADODB.Recordset"));
}

TEST_F(DisconnectedRecordset, MovesReachEveryRow) {
  for (int i = 1; i <= 5; ++i) Add(L"x", i);
  rs.MoveFirst();
  rs.Move(3);
  EXPECT_EQ(rs.FieldValue(2), Value(4));
  rs.Move(-2);
  EXPECT_EQ(rs.FieldValue(2), Value(2));
  rs.MoveLast();
  EXPECT_EQ(rs.FieldValue(2), Value(5));
  rs.Move(10);
  EXPECT_TRUE(rs.Eof());
  EXPECT_EQ(rs.AbsolutePosition(), ad::kPosEOF);
  rs.Move(-100);
  EXPECT_TRUE(rs.Bof());
  EXPECT_EQ(rs.AbsolutePosition(), ad::kPosBOF);
  rs.SetAbsolutePosition(3);
  EXPECT_EQ(rs.FieldValue(2), Value(3));
  EXPECT_EQ(RaisedBy([&] { rs.SetAbsolutePosition(6); }), InvalidArgument(L"ADODB.Recordset"));
}

TEST_F(DisconnectedRecordset, TextLongerThanItsFieldRaisesAndTheRestOfTheRowStays) {
  rs.AddNew();
  rs.SetFieldValue(2, 7);
  EXPECT_EQ(RaisedBy([&] { rs.SetFieldValue(0, L"sextas"); }), MultipleStep());
  rs.SetFieldValue(0, L"cinco");
  rs.Update();
  EXPECT_EQ(rs.FieldValue(0), Value(L"cinco"));
  EXPECT_EQ(rs.FieldValue(2), Value(7));
}

TEST_F(DisconnectedRecordset, AValueOfTheWrongTypeRaises) {
  rs.AddNew();
  EXPECT_EQ(RaisedBy([&] { rs.SetFieldValue(2, L"sete"); }), MultipleStep());
  EXPECT_EQ(RaisedBy([&] { rs.SetFieldValue(1, L"talvez"); }), MultipleStep());
  EXPECT_EQ(RaisedBy([&] { rs.SetFieldValue(0, ObjectRef()); }), MultipleStep());
}

TEST_F(DisconnectedRecordset, ANullIsTakenOnlyByANullableField) {
  rs.AddNew();
  EXPECT_EQ(RaisedBy([&] { rs.SetFieldValue(0, Null{}); }), MultipleStep());
  rs.SetFieldValue(2, Null{});
  rs.Update();
  EXPECT_EQ(rs.FieldValue(2), Value(Null{}));
}

TEST_F(DisconnectedRecordset, FieldsNeverAssignedAreEmptyOrNull) {
  rs.AddNew();
  rs.Update();
  EXPECT_EQ(rs.FieldValue(0), Value(Empty{}));
  EXPECT_EQ(rs.FieldValue(2), Value(Null{}));
}

TEST_F(DisconnectedRecordset, MovingEndsAnEditAsUpdateDoes) {
  Add(L"Ana", 1);
  rs.AddNew();
  rs.SetFieldValue(0, L"Bia");
  rs.MoveFirst();
  EXPECT_EQ(rs.RecordCount(), 2);
  rs.SetFieldValue(0, L"Clara");
  EXPECT_EQ(rs.EditMode(), ad::kEditInProgress);
  rs.MoveNext();
  rs.MoveFirst();
  EXPECT_EQ(rs.FieldValue(0), Value(L"Clara"));
}

TEST_F(DisconnectedRecordset, CancelUpdateDropsANewRowAndReturnsToTheFormerOne) {
  Add(L"Ana", 1);
  rs.AddNew();
  EXPECT_EQ(rs.EditMode(), ad::kEditAdd);
  rs.SetFieldValue(0, L"Bia");
  rs.CancelUpdate();
  EXPECT_EQ(rs.RecordCount(), 1);
  EXPECT_EQ(rs.FieldValue(0), Value(L"Ana"));
}

TEST_F(DisconnectedRecordset, CancelUpdateRestoresAnEditedRow) {
  Add(L"Ana", 1);
  rs.SetFieldValue(0, L"Bia");
  EXPECT_EQ(rs.FieldValue(0), Value(L"Bia"));
  rs.CancelUpdate();
  EXPECT_EQ(rs.FieldValue(0), Value(L"Ana"));
  EXPECT_EQ(rs.EditMode(), ad::kEditNone);
}

TEST_F(DisconnectedRecordset, ADeletedRowIsNoCurrentRecordUntilTheNextMove) {
  for (int i = 1; i <= 3; ++i) Add(L"x", i);
  rs.SetAbsolutePosition(2);
  rs.Delete();
  EXPECT_EQ(RaisedBy([&] { rs.FieldValue(2); }), NoCurrentRecord(L"ADODB.Field"));
  EXPECT_EQ(RaisedBy([&] { rs.Delete(); }), NoCurrentRecord(L"ADODB.Recordset"));
  EXPECT_FALSE(rs.Eof());
  rs.MoveNext();
  EXPECT_EQ(rs.FieldValue(2), Value(3));
  EXPECT_EQ(rs.RecordCount(), 2);
  rs.Delete();
  rs.MovePrevious();
  EXPECT_EQ(rs.FieldValue(2), Value(1));
}

TEST_F(DisconnectedRecordset, DeletingTheOnlyRowLeavesBothEnds) {
  Add(L"Ana", 1);
  rs.Delete();
  rs.MoveNext();
  EXPECT_TRUE(rs.Bof());
  EXPECT_TRUE(rs.Eof());
}

TEST_F(DisconnectedRecordset, UpdateWithoutARowRaisesAndWithoutAnEditDoesNothing) {
  EXPECT_EQ(RaisedBy([&] { rs.Update(); }), NoCurrentRecord(L"ADODB.Recordset"));
  Add(L"Ana", 1);
  rs.Update();
  EXPECT_EQ(rs.RecordCount(), 1);
}

TEST_F(DisconnectedRecordset, FieldsAreFoundInAnyLetterCase) {
  Add(L"Ana", 1);
  EXPECT_EQ(rs.FieldIndex(L"ativo"), 1);
  const std::unique_ptr<platform::Field> field = rs.FieldByName(L"nome");
  EXPECT_EQ(field->Get(), Value(L"Ana"));
  field->Let(L"Bia");
  EXPECT_EQ(rs.FieldValue(0), Value(L"Bia"));
}

TEST_F(DisconnectedRecordset, AFieldFollowsTheCurrentRow) {
  Add(L"Ana", 1);
  Add(L"Bia", 2);
  const std::unique_ptr<platform::Field> field = rs.FieldByName(L"NOME");
  rs.MoveFirst();
  EXPECT_EQ(field->Get(), Value(L"Ana"));
  rs.MoveNext();
  EXPECT_EQ(field->Get(), Value(L"Bia"));
}

TEST_F(DisconnectedRecordset, AFieldIsAnObjectWithAValueAndNoOtherMember) {
  Add(L"Ana", 1);
  const std::unique_ptr<platform::Field> field = rs.FieldByName(L"NOME");
  const ObjectRef object = field->AsObject();
  object->Let(L"Value", L"Bia");
  EXPECT_EQ(object->Get(L"Value"), Value(L"Bia"));
  EXPECT_EQ(rs.FieldValue(0), Value(L"Bia"));
  const Raised noSuchMember{438, L"KodraRpt", L"O objeto não aceita esta propriedade ou método"};
  EXPECT_EQ(RaisedBy([&] { object->Get(L"Name"); }), noSuchMember);
  EXPECT_EQ(RaisedBy([&] { object->Let(L"Name", L"X"); }), noSuchMember);
  EXPECT_EQ(RaisedBy([&] { object->Set(L"Value", nullptr); }), noSuchMember);
  EXPECT_EQ(RaisedBy([&] { object->Call(L"Value", {}); }), noSuchMember);
}

TEST_F(DisconnectedRecordset, AnUnknownFieldRaises) {
  EXPECT_EQ(RaisedBy([&] { rs.FieldByName(L"SOBRENOME"); }), ItemNotFound(L"ADODB.Fields"));
  EXPECT_EQ(RaisedBy([&] { rs.FieldIndex(L""); }), ItemNotFound(L"ADODB.Fields"));
  EXPECT_EQ(RaisedBy([&] { rs.FieldAt(3); }), ItemNotFound(L"ADODB.Fields"));
  EXPECT_EQ(RaisedBy([&] { rs.FieldValue(-1); }), ItemNotFound(L"ADODB.Fields"));
}

TEST_F(DisconnectedRecordset, FieldsKnowTheirTypeAndSize) {
  EXPECT_EQ(rs.FieldCount(), 3);
  EXPECT_EQ(rs.FieldAt(0).name, L"NOME");
  EXPECT_EQ(rs.FieldAt(0).type, ad::kVarChar);
  EXPECT_EQ(rs.FieldAt(0).definedSize, 5);
  EXPECT_EQ(rs.FieldAt(1).definedSize, 2);
  EXPECT_EQ(rs.FieldAt(2).definedSize, 4);
  EXPECT_EQ(rs.FieldAt(2).attributes, ad::kFldIsNullable | ad::kFldFixed);
}

TEST_F(DisconnectedRecordset, TheActualSizeIsThatOfTheValue) {
  Add(L"Ana", 1);
  EXPECT_EQ(rs.FieldActualSize(0), 3);
  EXPECT_EQ(rs.FieldActualSize(2), 4);
  rs.SetFieldValue(2, Null{});
  EXPECT_EQ(rs.FieldActualSize(2), 0);
}

TEST_F(DisconnectedRecordset, GetRowsTakesRowsFromTheCurrentOne) {
  for (int i = 1; i <= 3; ++i) Add(L"x", i);
  rs.MoveFirst();
  const auto two = rs.GetRows(2);
  ASSERT_EQ(two.size(), 2U);
  EXPECT_EQ(two[1], (std::vector<Value>{L"x", true, 2}));
  EXPECT_EQ(rs.GetRows(-1).size(), 1U);
  EXPECT_TRUE(rs.Eof());
  EXPECT_EQ(RaisedBy([&] { rs.GetRows(1); }), NoCurrentRecord(L"ADODB.Recordset"));
}

TEST_F(DisconnectedRecordset, FieldsAreNotAppendedWhileOpen) {
  EXPECT_EQ(RaisedBy([&] { rs.AppendField(L"OUTRO", ad::kInteger, 0, ad::kUnspecified); }),
            NotAllowedHere(L"ADODB.Fields"));
}

TEST_F(DisconnectedRecordset, ItCannotBeQueriedAgain) {
  EXPECT_EQ(RaisedBy([&] { rs.Requery(); }), NotAllowedHere(L"ADODB.Recordset"));
}

TEST_F(DisconnectedRecordset, ClosedItKeepsItsFieldsAndLosesItsRows) {
  Add(L"Ana", 1);
  rs.Close();
  EXPECT_EQ(rs.State(), ad::kStateClosed);
  EXPECT_EQ(RaisedBy([&] { rs.FieldValue(0); }), ObjectClosed(L"ADODB.Field"));
  OpenLeftOut(rs);
  EXPECT_EQ(rs.FieldCount(), 3);
  EXPECT_EQ(rs.RecordCount(), 0);
}

TEST(AppendField, ADuplicateNameInAnyLetterCaseRaises) {
  Recordset rs;
  rs.AppendField(L"NOME", ad::kVarChar, 5, ad::kUnspecified);
  EXPECT_EQ(RaisedBy([&] { rs.AppendField(L"nome", ad::kInteger, 0, ad::kUnspecified); }),
            (Raised{3367, L"ADODB.Fields", L"Object is already in collection. Cannot append."}));
}

TEST(AppendField, ATextWithoutASizeOrATypeThatIsNoneRaises) {
  Recordset rs;
  EXPECT_EQ(RaisedBy([&] { rs.AppendField(L"A", ad::kVarChar, 0, -1); }), InvalidArgument(L"ADODB.Fields"));
  EXPECT_EQ(RaisedBy([&] { rs.AppendField(L"A", ad::kEmpty, 5, -1); }), InvalidArgument(L"ADODB.Fields"));
  EXPECT_EQ(RaisedBy([&] { rs.AppendField(L"A", ad::kVariant, 5, -1); }), InvalidArgument(L"ADODB.Fields"));
  EXPECT_EQ(rs.FieldCount(), 0);
}

TEST(AppendField, EveryTypeThatReportsAppendHoldsItsValues) {
  Recordset rs;
  rs.AppendField(L"TEXTO", ad::kVarChar, 20, ad::kUnspecified);
  rs.AppendField(L"LARGO", ad::kVarWChar, 20, ad::kUnspecified);
  rs.AppendField(L"SIM", ad::kBoolean, 0, ad::kUnspecified);
  rs.AppendField(L"DIA", ad::kDBDate, 0, ad::kUnspecified);
  rs.AppendField(L"MOMENTO", ad::kDBTimeStamp, 0, ad::kUnspecified);
  rs.AppendField(L"INTEIRO", ad::kInteger, 0, ad::kUnspecified);
  rs.AppendField(L"REAL", ad::kDouble, 0, ad::kUnspecified);
  rs.AppendField(L"LONGO", ad::kLongVarWChar, 0, ad::kUnspecified);
  OpenLeftOut(rs);
  const std::vector<Value> values{L"ação", L"ç", true, Date{43832}, Date{43832.25}, 7, 1.5, std::wstring(10000, L'á')};
  rs.AddNew();
  for (int i = 0; i < 8; ++i) rs.SetFieldValue(i, values[static_cast<std::size_t>(i)]);
  rs.Update();
  rs.MoveFirst();
  EXPECT_EQ(rs.GetRows(1).front(), values);
}

TEST(AppendField, ACharacterBeyondTheBasicPlaneAndAZeroAreKept) {
  Recordset rs;
  rs.AppendField(L"TEXTO", ad::kVarWChar, 20, ad::kUnspecified);
  OpenLeftOut(rs);
  rs.AddNew();
  rs.SetFieldValue(0, std::wstring(L"\U0001F4E6\0z", 3));
  rs.Update();
  EXPECT_EQ(rs.FieldValue(0), Value(std::wstring(L"\U0001F4E6\0z", 3)));
}

}  // namespace
}  // namespace kodra::odbc

// Recordsets of ADO as a C++ client reads and fills them.
#include <initializer_list>

#include "tests/wine/ado_support.h"

namespace kodra::face {
namespace {

class AdoRecordset : public AdoTest {};

std::wstring CodesOf(const Ref<_Recordset>& rows) {
  std::wstring codes;
  const auto code = FieldOf(rows, L"COD");
  for (; !AtEnd(rows); rows->MoveNext()) codes += ValueOf(code).text().value() + L";";
  return codes;
}

TEST_F(AdoRecordset, StreamsItsRowsInOrderOnce) {
  const auto connection = OpenWithDepartments();
  const auto rows = Stream(connection, L"select COD from DEPTO order by COD");
  EXPECT_EQ(L"00001;00002;00003;", CodesOf(rows));
  CursorTypeEnum type = adOpenUnspecified;
  EXPECT_EQ(S_OK, rows->get_CursorType(&type));
  EXPECT_EQ(adOpenForwardOnly, type);
}

TEST_F(AdoRecordset, ReturnsTheFirstRowsOfAResultLargerThanMemory) {
  const auto connection = OpenConnection();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, rows->put_CacheSize(100));
  ASSERT_EQ(S_OK, OpenStream(rows,
                             L"with recursive N(I) as (select 1 union all select I + 1 from N limit 4000000000) "
                             L"select I, 'um texto' as T from N",
                             connection));
  const auto text = FieldOf(rows, L"T");
  int read = 0;
  for (; read < 1000 && !AtEnd(rows); ++read, rows->MoveNext()) EXPECT_EQ(L"um texto", ValueOf(text).text());
  EXPECT_EQ(1000, read);
  EXPECT_EQ(S_OK, rows->Close());
}

TEST_F(AdoRecordset, AFieldLookedUpOnceReadsEveryRow) {
  const auto connection = OpenWithDepartments();
  const auto rows = Stream(connection, L"select COD, DESCR, PESO, ANDAR from DEPTO order by COD");
  const auto name = FieldOf(rows, L"descr");
  const auto weight = FieldOf(rows, 2);
  const auto floor = FieldOf(rows, L"ANDAR");
  EXPECT_EQ(L"Administração", ValueOf(name).text());
  EXPECT_EQ(10.0, ValueOf(weight).raw().dblVal);
  EXPECT_EQ(VT_I4, ValueOf(floor).type());
  EXPECT_EQ(1, ValueOf(floor).number());
  ASSERT_EQ(S_OK, rows->MoveNext());
  EXPECT_EQ(L"Biblioteca", ValueOf(name).text());
  EXPECT_EQ(20.5, ValueOf(weight).raw().dblVal);
  ASSERT_EQ(S_OK, rows->MoveNext());
  EXPECT_EQ(VT_NULL, ValueOf(name).type());
  EXPECT_EQ(VT_NULL, ValueOf(weight).type());
}

TEST_F(AdoRecordset, KeepsItsConnectionAlive) {
  auto connection = OpenWithDepartments();
  const auto rows = Stream(connection, L"select COD from DEPTO order by COD");
  connection = {};
  EXPECT_EQ(L"00001;00002;00003;", CodesOf(rows));
  Var kept;
  ASSERT_EQ(S_OK, rows->get_ActiveConnection(kept.put()));
  ASSERT_EQ(VT_DISPATCH, kept.type());
  const auto same = kept.object().As<_Connection>();
  ASSERT_TRUE(same);
  EXPECT_EQ(adStateOpen, StateOf(same));
}

TEST_F(AdoRecordset, ReturnsTheConnectionItWasOpenedOn) {
  const auto connection = OpenWithDepartments();
  const auto rows = Stream(connection, L"select COD from DEPTO");
  Var active;
  ASSERT_EQ(S_OK, rows->get_ActiveConnection(active.put()));
  ASSERT_EQ(VT_DISPATCH, active.type());
  EXPECT_EQ(connection.As<IUnknown>().get(), active.object().As<IUnknown>().get());
}

TEST_F(AdoRecordset, OnTheClientSideItSurvivesTheClosingOfItsConnection) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, rows->put_CursorLocation(adUseClient));
  ASSERT_EQ(S_OK, rows->Open(Var(L"select COD from DEPTO order by COD"), Var(connection.get()), adOpenStatic,
                             adLockReadOnly, adCmdText));
  ADO_LONGPTR count = 0;
  EXPECT_EQ(S_OK, rows->get_RecordCount(&count));
  EXPECT_EQ(3, count);
  ASSERT_EQ(S_OK, rows->put_ActiveConnection(Var::Nothing()));
  ASSERT_EQ(S_OK, connection->Close());
  EXPECT_EQ(adStateOpen, StateOf(rows));
  EXPECT_EQ(L"00001;00002;00003;", CodesOf(rows));
  ASSERT_EQ(S_OK, rows->MoveFirst());
  EXPECT_EQ(L"00001;00002;00003;", CodesOf(rows));
  Var active;
  ASSERT_EQ(S_OK, rows->get_ActiveConnection(active.put()));
  EXPECT_EQ(VT_DISPATCH, active.type());
  EXPECT_EQ(nullptr, active.raw().pdispVal);
}

TEST_F(AdoRecordset, OpensOnAConnectionStringOfItsOwn) {
  OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, rows->Open(Var(L"select COD from DEPTO order by COD"), Var(ConnectionString().c_str()),
                             adOpenForwardOnly, adLockReadOnly, adCmdText));
  EXPECT_EQ(L"00001;00002;00003;", CodesOf(rows));
}

TEST_F(AdoRecordset, OpensOnItsPropertiesWhenTheArgumentsAreLeftOut) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, rows->putref_ActiveConnection(connection.get()));
  ASSERT_EQ(S_OK, rows->put_Source(Bstr(L"select COD from DEPTO where COD = '00002'")));
  ASSERT_EQ(S_OK, OpenWithoutArguments(rows));
  EXPECT_EQ(L"00002;", CodesOf(rows));
}

TEST_F(AdoRecordset, FollowsArgumentsThatArePassedByReference) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  const Var text(L"select COD from DEPTO where COD = '00003'");
  VARIANT statement = text;
  IDispatch* object = connection.get();
  ASSERT_EQ(S_OK,
            rows->Open(ByReference(&statement), ByReference(&object), adOpenForwardOnly, adLockReadOnly, adCmdText));
  EXPECT_EQ(L"00003;", CodesOf(rows));
}

TEST_F(AdoRecordset, InMemoryItIsFilledAndReadBack) {
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, AppendField(rows, L"NOME", adVarChar, 40));
  ASSERT_EQ(S_OK, AppendField(rows, L"TOTAL", adInteger, 0));
  ASSERT_EQ(S_OK, OpenWithoutArguments(rows));
  for (const auto& [name, total] : {std::pair(L"José", 10), std::pair(L"Ana", 20)}) {
    ASSERT_EQ(S_OK, AddNew(rows));
    EXPECT_EQ(S_OK, FieldOf(rows, L"NOME")->put_Value(Var(name)));
    EXPECT_EQ(S_OK, FieldOf(rows, L"TOTAL")->put_Value(Var(total)));
    ASSERT_EQ(S_OK, Update(rows));
  }
  ASSERT_EQ(S_OK, rows->MoveFirst());
  EXPECT_EQ(L"José", ValueOf(FieldOf(rows, L"NOME")).text());
  EXPECT_EQ(10, ValueOf(FieldOf(rows, L"TOTAL")).number());
  ASSERT_EQ(S_OK, rows->MoveNext());
  EXPECT_EQ(L"Ana", ValueOf(FieldOf(rows, L"NOME")).text());
  EXPECT_EQ(20, ValueOf(FieldOf(rows, L"TOTAL")).number());
  ASSERT_EQ(S_OK, rows->MoveNext());
  EXPECT_TRUE(AtEnd(rows));
}

TEST_F(AdoRecordset, KeepsZeroCharactersInsideAText) {
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, AppendField(rows, L"A", adVarChar, 10));
  ASSERT_EQ(S_OK, OpenWithoutArguments(rows));
  ASSERT_EQ(S_OK, AddNew(rows));
  const std::wstring text(L"a\0b", 3);
  ASSERT_EQ(S_OK, FieldOf(rows, L"A")->put_Value(Var(text)));
  EXPECT_EQ(text, ValueOf(FieldOf(rows, L"A")).text());
}

// An open recordset in memory with the fields NOME (text), TOTAL (integer), ATIVO (boolean) and DIA (date).
Ref<_Recordset> OpenInMemory() {
  auto rows = NewRecordset();
  EXPECT_EQ(S_OK, AppendField(rows, L"NOME", adVarChar, 40, adFldIsNullable));
  EXPECT_EQ(S_OK, AppendField(rows, L"TOTAL", adInteger, 0, adFldIsNullable));
  EXPECT_EQ(S_OK, AppendField(rows, L"ATIVO", adBoolean, 0, adFldIsNullable));
  EXPECT_EQ(S_OK, AppendField(rows, L"DIA", adDBTimeStamp, 0, adFldIsNullable));
  EXPECT_EQ(S_OK, OpenWithoutArguments(rows));
  return rows;
}

// A one-dimensional array of variants.
Var ArrayOf(std::initializer_list<Var> elements) {
  Var result;
  VARIANT* raw = result.put();
  V_VT(raw) = VT_ARRAY | VT_VARIANT;
  V_ARRAY(raw) = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(elements.size()));
  LONG i = 0;
  for (const Var& element : elements) {
    VARIANT copy = element;
    SafeArrayPutElement(V_ARRAY(raw), &i, &copy);
    ++i;
  }
  return result;
}

TEST_F(AdoRecordset, AddsAWholeRowFromArraysOfFieldsAndValues) {
  const auto rows = OpenInMemory();
  ASSERT_EQ(S_OK, rows->AddNew(ArrayOf({L"TOTAL", L"NOME"}), ArrayOf({3, L"Ana"})));
  EditModeEnum mode = adEditAdd;
  EXPECT_EQ(S_OK, rows->get_EditMode(&mode));
  EXPECT_EQ(adEditNone, mode);
  EXPECT_EQ(L"Ana", ValueOf(FieldOf(rows, L"NOME")).text());
  EXPECT_EQ(3, ValueOf(FieldOf(rows, L"TOTAL")).number());
  ASSERT_EQ(S_OK, rows->Update(Var(L"NOME"), Var(L"Bia")));
  EXPECT_EQ(L"Bia", ValueOf(FieldOf(rows, L"NOME")).text());
  EXPECT_TRUE(FAILED(rows->Update(ArrayOf({L"NOME", L"TOTAL"}), ArrayOf({L"Caio"}))));
}

TEST_F(AdoRecordset, KeepsBooleansAndDatesAsSuch) {
  const auto rows = OpenInMemory();
  ASSERT_EQ(S_OK, AddNew(rows));
  ASSERT_EQ(S_OK, FieldOf(rows, L"ATIVO")->put_Value(Var(true)));
  ASSERT_EQ(S_OK, FieldOf(rows, L"DIA")->put_Value(Var::Date(45000.5)));
  ASSERT_EQ(S_OK, Update(rows));
  const Var active = ValueOf(FieldOf(rows, L"ATIVO"));
  EXPECT_EQ(VT_BOOL, active.type());
  EXPECT_EQ(VARIANT_TRUE, active.raw().boolVal);
  const Var day = ValueOf(FieldOf(rows, L"DIA"));
  EXPECT_EQ(VT_DATE, day.type());
  EXPECT_EQ(45000.5, day.raw().date);
}

TEST_F(AdoRecordset, AFieldPassedAsAValueIsItsValue) {
  const auto rows = OpenInMemory();
  ASSERT_EQ(S_OK, rows->AddNew(Var(L"NOME"), Var(L"Ana")));
  const auto source = FieldOf(rows, L"NOME");
  const auto other = OpenInMemory();
  ASSERT_EQ(S_OK, other->AddNew(Var(L"NOME"), Var(source.get())));
  EXPECT_EQ(L"Ana", ValueOf(FieldOf(other, L"NOME")).text());
}

TEST_F(AdoRecordset, InMemoryItMovesBothWays) {
  const auto rows = OpenInMemory();
  for (const wchar_t* name : {L"Ana", L"Bia", L"Caio"}) ASSERT_EQ(S_OK, rows->AddNew(Var(L"NOME"), Var(name)));
  const auto name = FieldOf(rows, L"NOME");
  ASSERT_EQ(S_OK, rows->MoveFirst());
  ASSERT_EQ(S_OK, rows->Move(2, Var::Missing()));
  EXPECT_EQ(L"Caio", ValueOf(name).text());
  ASSERT_EQ(S_OK, rows->MovePrevious());
  EXPECT_EQ(L"Bia", ValueOf(name).text());
  PositionEnum_Param position = 0;
  EXPECT_EQ(S_OK, rows->get_AbsolutePosition(&position));
  EXPECT_EQ(2, position);
  ASSERT_EQ(S_OK, rows->Delete(adAffectCurrent));
  ADO_LONGPTR count = 0;
  EXPECT_EQ(S_OK, rows->get_RecordCount(&count));
  EXPECT_EQ(2, count);
  ASSERT_EQ(S_OK, rows->MoveLast());
  EXPECT_EQ(L"Caio", ValueOf(name).text());
  ASSERT_EQ(S_OK, rows->MoveFirst());
  ASSERT_EQ(S_OK, rows->MovePrevious());
  VARIANT_BOOL atStart = VARIANT_FALSE;
  EXPECT_EQ(S_OK, rows->get_BOF(&atStart));
  EXPECT_EQ(VARIANT_TRUE, atStart);
}

TEST_F(AdoRecordset, SupportsWhatItsKindCanDo) {
  const auto supports = [](const Ref<_Recordset>& rows, CursorOptionEnum option) {
    VARIANT_BOOL able = VARIANT_FALSE;
    EXPECT_EQ(S_OK, rows->Supports(option, &able));
    return able != VARIANT_FALSE;
  };
  const auto inMemory = OpenInMemory();
  EXPECT_TRUE(supports(inMemory, adAddNew));
  EXPECT_TRUE(supports(inMemory, adMovePrevious));
  EXPECT_FALSE(supports(inMemory, adBookmark));
  const auto connection = OpenWithDepartments();
  const auto stream = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(stream, L"select COD from DEPTO", connection));
  EXPECT_FALSE(supports(stream, adAddNew));
  EXPECT_FALSE(supports(stream, adMovePrevious));
}

TEST_F(AdoRecordset, AnIntegerBeyond32BitsIsADoubleThatHoldsItExactly) {
  const auto connection = OpenConnection();
  const auto rows = NewRecordset();
  Execute(connection, L"create table T (N bigint)");
  Execute(connection, L"insert into T values (5000000000)");
  ASSERT_EQ(S_OK, OpenStream(rows, L"select N from T", connection));
  const Var value = ValueOf(FieldOf(rows, L"N"));
  EXPECT_EQ(VT_R8, value.type());
  EXPECT_EQ(5000000000.0, value.raw().dblVal);
}

TEST_F(AdoRecordset, AnIntegerThatNoDoubleHoldsIsADecimal) {
  const auto connection = OpenConnection();
  const auto rows = NewRecordset();
  Execute(connection, L"create table T (N bigint)");
  Execute(connection, L"insert into T values (9007199254740993)");
  ASSERT_EQ(S_OK, OpenStream(rows, L"select N from T", connection));
  const Var value = ValueOf(FieldOf(rows, L"N"));
  ASSERT_EQ(VT_DECIMAL, value.type());
  DECIMAL decimal = value.raw().decVal;
  Bstr text;
  ASSERT_EQ(S_OK, VarBstrFromDec(&decimal, LOCALE_INVARIANT, 0, text.put()));
  EXPECT_EQ(L"9007199254740993", text.text());
}

TEST_F(AdoRecordset, DescribesItsFields) {
  const auto connection = OpenWithDepartments();
  const auto rows = Stream(connection, L"select COD, ANDAR from DEPTO");
  LONG count = 0;
  EXPECT_EQ(S_OK, FieldsOf(rows)->get_Count(&count));
  EXPECT_EQ(2, count);
  Bstr name;
  EXPECT_EQ(S_OK, FieldOf(rows, 1)->get_Name(name.put()));
  EXPECT_EQ(L"ANDAR", name.text());
  DataTypeEnum type = adEmpty;
  EXPECT_EQ(S_OK, FieldOf(rows, 1)->get_Type(&type));
  EXPECT_EQ(adInteger, type);
  ADO_LONGPTR size = 0;
  EXPECT_EQ(S_OK, FieldOf(rows, 0)->get_DefinedSize(&size));
  EXPECT_EQ(5, size);
}

TEST_F(AdoRecordset, ReturnsRowsAsAnArrayOfFieldsByRows) {
  const auto connection = OpenWithDepartments();
  const auto rows = Stream(connection, L"select COD, ANDAR from DEPTO order by COD");
  Var result;
  ASSERT_EQ(S_OK, rows->GetRows(2, Var::Missing(), Var::Missing(), result.put()));
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, result.type());
  SAFEARRAY* const array = result.raw().parray;
  LONG lastField = -1;
  LONG lastRow = -1;
  EXPECT_EQ(S_OK, SafeArrayGetUBound(array, 1, &lastField));
  EXPECT_EQ(S_OK, SafeArrayGetUBound(array, 2, &lastRow));
  EXPECT_EQ(1, lastField);
  EXPECT_EQ(1, lastRow);
  LONG secondRowsFirstField[] = {0, 1};
  Var element;
  ASSERT_EQ(S_OK, SafeArrayGetElement(array, secondRowsFirstField, element.put()));
  EXPECT_EQ(L"00002", element.text());
  EXPECT_EQ(L"00003;", CodesOf(rows));
}

TEST_F(AdoRecordset, ReturnsOnlyTheRequestedFieldsAsAnArray) {
  const auto connection = OpenWithDepartments();
  const auto rows = Stream(connection, L"select COD, DESCR, ANDAR from DEPTO order by COD");
  Var result;
  ASSERT_EQ(S_OK, rows->GetRows(-1, Var::Missing(), Var(L"ANDAR"), result.put()));
  SAFEARRAY* const array = result.raw().parray;
  LONG lastField = -1;
  LONG lastRow = -1;
  EXPECT_EQ(S_OK, SafeArrayGetUBound(array, 1, &lastField));
  EXPECT_EQ(S_OK, SafeArrayGetUBound(array, 2, &lastRow));
  EXPECT_EQ(0, lastField);
  EXPECT_EQ(2, lastRow);
  LONG secondRow[] = {0, 1};
  Var element;
  ASSERT_EQ(S_OK, SafeArrayGetElement(array, secondRow, element.put()));
  EXPECT_EQ(2, element.number());
  EXPECT_TRUE(AtEnd(rows));
}

TEST_F(AdoRecordset, AStatementWithoutRowsLeavesItClosed) {
  const auto connection = OpenWithDepartments();
  const auto rows = Stream(connection, L"delete from DEPTO where COD = '00001'");
  EXPECT_EQ(adStateClosed, StateOf(rows));
}

TEST_F(AdoRecordset, TheLastReleaseOfEveryObjectReturnsZero) {
  auto connection = OpenWithDepartments();
  auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD from DEPTO", connection));
  auto field = FieldOf(rows, L"COD");
  auto fields = FieldsOf(rows);
  Ref<IUnknown> enumerator;
  ASSERT_EQ(S_OK, fields->_NewEnum(enumerator.put()));
  EXPECT_EQ(0U, enumerator.Release());
  EXPECT_EQ(0U, field.Release());
  EXPECT_EQ(0U, fields.Release());
  EXPECT_EQ(0U, rows.Release());
  EXPECT_EQ(0U, connection.Release());
}

}  // namespace
}  // namespace kodra::face

// Recordsets as a C++ client of ADO reads and fills them.
#include <initializer_list>

#include "tests/wine/ado_support.h"

namespace kodra::wine {
namespace {

class AdoRecordset : public AdoTest {};

std::wstring CodesOf(const com_ptr<_Recordset>& rows) {
  std::wstring codes;
  const auto code = FieldOf(rows, L"COD");
  for (; !AtEnd(rows); rows->MoveNext()) codes += ValueOf(code).Text() + L";";
  return codes;
}

LONG StateOf(const com_ptr<_Recordset>& rows) {
  LONG state = -1;
  EXPECT_EQ(S_OK, rows->get_State(&state));
  return state;
}

TEST_F(AdoRecordset, StreamsItsRowsInOrderOnce) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD from DEPTO order by COD", connection));
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
  for (; read < 1000 && !AtEnd(rows); ++read, rows->MoveNext()) EXPECT_EQ(L"um texto", ValueOf(text).Text());
  EXPECT_EQ(1000, read);
  EXPECT_EQ(S_OK, rows->Close());
}

TEST_F(AdoRecordset, AFieldLookedUpOnceReadsEveryRow) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD, DESCR, PESO, ANDAR from DEPTO order by COD", connection));
  const auto name = FieldOf(rows, L"descr");
  const auto weight = FieldOf(rows, LONG{2});
  const auto floor = FieldOf(rows, L"ANDAR");
  EXPECT_EQ(L"Administra\u00e7\u00e3o", ValueOf(name).Text());
  EXPECT_EQ(10.0, ValueOf(weight).Real());
  EXPECT_EQ(VT_I4, ValueOf(floor).Type());
  EXPECT_EQ(1, ValueOf(floor).Number());
  ASSERT_EQ(S_OK, rows->MoveNext());
  EXPECT_EQ(L"Biblioteca", ValueOf(name).Text());
  EXPECT_EQ(20.5, ValueOf(weight).Real());
  ASSERT_EQ(S_OK, rows->MoveNext());
  EXPECT_EQ(VT_NULL, ValueOf(name).Type());
  EXPECT_EQ(VT_NULL, ValueOf(weight).Type());
}

TEST_F(AdoRecordset, KeepsItsConnectionAlive) {
  auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD from DEPTO order by COD", connection));
  connection = nullptr;
  EXPECT_EQ(L"00001;00002;00003;", CodesOf(rows));
  Variant kept;
  ASSERT_EQ(S_OK, rows->get_ActiveConnection(kept.put()));
  ASSERT_EQ(VT_DISPATCH, kept.Type());
  LONG state = adStateClosed;
  const auto same = com_ptr<IDispatch>(kept.Object()).as<_Connection>();
  ASSERT_TRUE(same);
  EXPECT_EQ(S_OK, same->get_State(&state));
  EXPECT_EQ(adStateOpen, state);
}

TEST_F(AdoRecordset, ReturnsTheConnectionItWasOpenedOn) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD from DEPTO", connection));
  Variant active;
  ASSERT_EQ(S_OK, rows->get_ActiveConnection(active.put()));
  ASSERT_EQ(VT_DISPATCH, active.Type());
  EXPECT_EQ(connection.as<IUnknown>().get(), com_ptr<IDispatch>(active.Object()).as<IUnknown>().get());
}

TEST_F(AdoRecordset, OnTheClientSideItSurvivesTheClosingOfItsConnection) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, rows->put_CursorLocation(adUseClient));
  ASSERT_EQ(S_OK, rows->Open(Variant(L"select COD from DEPTO order by COD"), Variant(connection.get()), adOpenStatic,
                             adLockReadOnly, adCmdText));
  ADO_LONGPTR count = 0;
  EXPECT_EQ(S_OK, rows->get_RecordCount(&count));
  EXPECT_EQ(3, count);
  Variant nothing(static_cast<IDispatch*>(nullptr));
  ASSERT_EQ(S_OK, rows->put_ActiveConnection(nothing));
  ASSERT_EQ(S_OK, connection->Close());
  EXPECT_EQ(adStateOpen, StateOf(rows));
  EXPECT_EQ(L"00001;00002;00003;", CodesOf(rows));
  ASSERT_EQ(S_OK, rows->MoveFirst());
  EXPECT_EQ(L"00001;00002;00003;", CodesOf(rows));
  Variant active;
  ASSERT_EQ(S_OK, rows->get_ActiveConnection(active.put()));
  EXPECT_EQ(VT_DISPATCH, active.Type());
  EXPECT_EQ(nullptr, active.Object());
}

TEST_F(AdoRecordset, OpensOnAConnectionStringOfItsOwn) {
  OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, rows->Open(Variant(L"select COD from DEPTO order by COD"), Variant(ConnectionString().c_str()),
                             adOpenForwardOnly, adLockReadOnly, adCmdText));
  EXPECT_EQ(L"00001;00002;00003;", CodesOf(rows));
}

TEST_F(AdoRecordset, OpensOnItsPropertiesWhenTheArgumentsAreLeftOut) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, rows->putref_ActiveConnection(connection.get()));
  ASSERT_EQ(S_OK, rows->put_Source(Bstr(L"select COD from DEPTO where COD = '00002'")));
  ASSERT_EQ(S_OK, rows->Open(Variant::Missing(), Variant::Missing(), adOpenUnspecified, adLockUnspecified, -1));
  EXPECT_EQ(L"00002;", CodesOf(rows));
}

TEST_F(AdoRecordset, FollowsArgumentsThatArePassedByReference) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  const Variant text(L"select COD from DEPTO where COD = '00003'");
  VARIANT statement = text;
  VARIANT byReference;
  V_VT(&byReference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&byReference) = &statement;
  IDispatch* object = connection.get();
  VARIANT objectByReference;
  V_VT(&objectByReference) = VT_BYREF | VT_DISPATCH;
  V_DISPATCHREF(&objectByReference) = &object;
  ASSERT_EQ(S_OK, rows->Open(byReference, objectByReference, adOpenForwardOnly, adLockReadOnly, adCmdText));
  EXPECT_EQ(L"00003;", CodesOf(rows));
}

TEST_F(AdoRecordset, ADisconnectedOneIsFilledAndReadBack) {
  const auto rows = NewRecordset();
  com_ptr<Fields> fields;
  ASSERT_EQ(S_OK, rows->get_Fields(fields.put()));
  ASSERT_EQ(S_OK, fields->Append(Bstr(L"NOME"), adVarChar, 40, adFldUnspecified, Variant::Missing()));
  ASSERT_EQ(S_OK, fields->Append(Bstr(L"TOTAL"), adInteger, 0, adFldUnspecified, Variant::Missing()));
  ASSERT_EQ(S_OK, rows->Open(Variant::Missing(), Variant::Missing(), adOpenUnspecified, adLockUnspecified, -1));
  for (LONG i = 1; i <= 2; ++i) {
    ASSERT_EQ(S_OK, rows->AddNew(Variant::Missing(), Variant::Missing()));
    EXPECT_EQ(S_OK, FieldOf(rows, L"NOME")->put_Value(Variant(i == 1 ? L"Jos\u00e9" : L"Ana")));
    EXPECT_EQ(S_OK, FieldOf(rows, L"TOTAL")->put_Value(Variant(i * 10)));
    ASSERT_EQ(S_OK, rows->Update(Variant::Missing(), Variant::Missing()));
  }
  ASSERT_EQ(S_OK, rows->MoveFirst());
  EXPECT_EQ(L"Jos\u00e9", ValueOf(FieldOf(rows, L"NOME")).Text());
  EXPECT_EQ(10, ValueOf(FieldOf(rows, L"TOTAL")).Number());
  ASSERT_EQ(S_OK, rows->MoveNext());
  EXPECT_EQ(L"Ana", ValueOf(FieldOf(rows, L"NOME")).Text());
  EXPECT_EQ(20, ValueOf(FieldOf(rows, L"TOTAL")).Number());
  ASSERT_EQ(S_OK, rows->MoveNext());
  EXPECT_TRUE(AtEnd(rows));
}

TEST_F(AdoRecordset, KeepsZeroCharactersInsideAText) {
  const auto rows = NewRecordset();
  com_ptr<Fields> fields;
  ASSERT_EQ(S_OK, rows->get_Fields(fields.put()));
  ASSERT_EQ(S_OK, fields->Append(Bstr(L"A"), adVarChar, 10, adFldUnspecified, Variant::Missing()));
  ASSERT_EQ(S_OK, rows->Open(Variant::Missing(), Variant::Missing(), adOpenUnspecified, adLockUnspecified, -1));
  ASSERT_EQ(S_OK, rows->AddNew(Variant::Missing(), Variant::Missing()));
  const std::wstring text(L"a\0b", 3);
  Bstr given(text);
  VARIANT value;
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = given;
  ASSERT_EQ(S_OK, FieldOf(rows, L"A")->put_Value(value));
  EXPECT_EQ(text, ValueOf(FieldOf(rows, L"A")).Text());
}

// A disconnected recordset of the fields NOME (text), TOTAL (integer), ATIVO (boolean) and DIA (date), open.
com_ptr<_Recordset> OpenInMemory() {
  auto rows = NewRecordset();
  com_ptr<Fields> fields;
  EXPECT_EQ(S_OK, rows->get_Fields(fields.put()));
  EXPECT_EQ(S_OK, fields->Append(Bstr(L"NOME"), adVarChar, 40, adFldIsNullable, Variant::Missing()));
  EXPECT_EQ(S_OK, fields->Append(Bstr(L"TOTAL"), adInteger, 0, adFldIsNullable, Variant::Missing()));
  EXPECT_EQ(S_OK, fields->Append(Bstr(L"ATIVO"), adBoolean, 0, adFldIsNullable, Variant::Missing()));
  EXPECT_EQ(S_OK, fields->Append(Bstr(L"DIA"), adDBTimeStamp, 0, adFldIsNullable, Variant::Missing()));
  EXPECT_EQ(S_OK,
            rows->Open(Variant::Missing(), Variant::Missing(), adOpenUnspecified, adLockUnspecified, adCmdUnspecified));
  return rows;
}

// An array of variants of one dimension.
Variant ArrayOf(std::initializer_list<Variant> elements) {
  Variant result;
  VARIANT* raw = result.put();
  V_VT(raw) = VT_ARRAY | VT_VARIANT;
  V_ARRAY(raw) = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(elements.size()));
  LONG i = 0;
  for (const Variant& element : elements) {
    VARIANT copy = element;
    SafeArrayPutElement(V_ARRAY(raw), &i, &copy);
    ++i;
  }
  return result;
}

TEST_F(AdoRecordset, AddsAWholeRowFromArraysOfFieldsAndValues) {
  const auto rows = OpenInMemory();
  ASSERT_EQ(S_OK, rows->AddNew(ArrayOf({L"TOTAL", L"NOME"}), ArrayOf({LONG{3}, L"Ana"})));
  EditModeEnum mode = adEditAdd;
  EXPECT_EQ(S_OK, rows->get_EditMode(&mode));
  EXPECT_EQ(adEditNone, mode);
  EXPECT_EQ(L"Ana", ValueOf(FieldOf(rows, L"NOME")).Text());
  EXPECT_EQ(3, ValueOf(FieldOf(rows, L"TOTAL")).Number());
  ASSERT_EQ(S_OK, rows->Update(Variant(L"NOME"), Variant(L"Bia")));
  EXPECT_EQ(L"Bia", ValueOf(FieldOf(rows, L"NOME")).Text());
  EXPECT_TRUE(FAILED(rows->Update(ArrayOf({L"NOME", L"TOTAL"}), ArrayOf({L"Caio"}))));
}

TEST_F(AdoRecordset, KeepsBooleansAndDatesAsSuch) {
  const auto rows = OpenInMemory();
  ASSERT_EQ(S_OK, rows->AddNew(Variant::Missing(), Variant::Missing()));
  VARIANT given;
  V_VT(&given) = VT_BOOL;
  V_BOOL(&given) = VARIANT_TRUE;
  ASSERT_EQ(S_OK, FieldOf(rows, L"ATIVO")->put_Value(given));
  V_VT(&given) = VT_DATE;
  V_DATE(&given) = 45000.5;
  ASSERT_EQ(S_OK, FieldOf(rows, L"DIA")->put_Value(given));
  ASSERT_EQ(S_OK, rows->Update(Variant::Missing(), Variant::Missing()));
  const VARIANT active = ValueOf(FieldOf(rows, L"ATIVO"));
  EXPECT_EQ(VT_BOOL, V_VT(&active));
  EXPECT_EQ(VARIANT_TRUE, V_BOOL(&active));
  const VARIANT day = ValueOf(FieldOf(rows, L"DIA"));
  EXPECT_EQ(VT_DATE, V_VT(&day));
  EXPECT_EQ(45000.5, V_DATE(&day));
}

TEST_F(AdoRecordset, AFieldPassedAsAValueIsItsValue) {
  const auto rows = OpenInMemory();
  ASSERT_EQ(S_OK, rows->AddNew(Variant(L"NOME"), Variant(L"Ana")));
  const auto source = FieldOf(rows, L"NOME");
  const auto other = OpenInMemory();
  ASSERT_EQ(S_OK, other->AddNew(Variant(L"NOME"), Variant(source.get())));
  EXPECT_EQ(L"Ana", ValueOf(FieldOf(other, L"NOME")).Text());
}

TEST_F(AdoRecordset, InMemoryItMovesBothWays) {
  const auto rows = OpenInMemory();
  for (const wchar_t* name : {L"Ana", L"Bia", L"Caio"}) ASSERT_EQ(S_OK, rows->AddNew(Variant(L"NOME"), Variant(name)));
  const auto name = FieldOf(rows, L"NOME");
  ASSERT_EQ(S_OK, rows->MoveFirst());
  ASSERT_EQ(S_OK, rows->Move(2, Variant::Missing()));
  EXPECT_EQ(L"Caio", ValueOf(name).Text());
  ASSERT_EQ(S_OK, rows->MovePrevious());
  EXPECT_EQ(L"Bia", ValueOf(name).Text());
  PositionEnum_Param position = 0;
  EXPECT_EQ(S_OK, rows->get_AbsolutePosition(&position));
  EXPECT_EQ(2, position);
  ASSERT_EQ(S_OK, rows->Delete(adAffectCurrent));
  ADO_LONGPTR count = 0;
  EXPECT_EQ(S_OK, rows->get_RecordCount(&count));
  EXPECT_EQ(2, count);
  ASSERT_EQ(S_OK, rows->MoveLast());
  EXPECT_EQ(L"Caio", ValueOf(name).Text());
  ASSERT_EQ(S_OK, rows->MoveFirst());
  ASSERT_EQ(S_OK, rows->MovePrevious());
  VARIANT_BOOL atStart = VARIANT_FALSE;
  EXPECT_EQ(S_OK, rows->get_BOF(&atStart));
  EXPECT_EQ(VARIANT_TRUE, atStart);
}

TEST_F(AdoRecordset, SupportsWhatItsKindCanDo) {
  const auto supports = [](const com_ptr<_Recordset>& rows, CursorOptionEnum option) {
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
  const Variant value = ValueOf(FieldOf(rows, L"N"));
  EXPECT_EQ(VT_R8, value.Type());
  EXPECT_EQ(5000000000.0, value.Real());
}

TEST_F(AdoRecordset, AnIntegerThatNoDoubleHoldsIsADecimal) {
  const auto connection = OpenConnection();
  const auto rows = NewRecordset();
  Execute(connection, L"create table T (N bigint)");
  Execute(connection, L"insert into T values (9007199254740993)");
  ASSERT_EQ(S_OK, OpenStream(rows, L"select N from T", connection));
  const Variant value = ValueOf(FieldOf(rows, L"N"));
  ASSERT_EQ(VT_DECIMAL, value.Type());
  VARIANT raw = value;
  Bstr text;
  ASSERT_EQ(S_OK, VarBstrFromDec(&V_DECIMAL(&raw), LOCALE_INVARIANT, 0, text.put()));
  EXPECT_EQ(L"9007199254740993", text.Text());
}

TEST_F(AdoRecordset, DescribesItsFields) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD, ANDAR from DEPTO", connection));
  com_ptr<Fields> fields;
  ASSERT_EQ(S_OK, rows->get_Fields(fields.put()));
  LONG count = 0;
  EXPECT_EQ(S_OK, fields->get_Count(&count));
  EXPECT_EQ(2, count);
  Bstr name;
  EXPECT_EQ(S_OK, FieldOf(rows, LONG{1})->get_Name(name.put()));
  EXPECT_EQ(L"ANDAR", name.Text());
  DataTypeEnum type = adEmpty;
  EXPECT_EQ(S_OK, FieldOf(rows, LONG{1})->get_Type(&type));
  EXPECT_EQ(adInteger, type);
  ADO_LONGPTR size = 0;
  EXPECT_EQ(S_OK, FieldOf(rows, LONG{0})->get_DefinedSize(&size));
  EXPECT_EQ(5, size);
}

TEST_F(AdoRecordset, ReturnsRowsAsAnArrayOfFieldsByRows) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD, ANDAR from DEPTO order by COD", connection));
  Variant result;
  ASSERT_EQ(S_OK, rows->GetRows(2, Variant::Missing(), Variant::Missing(), result.put()));
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, result.Type());
  VARIANT raw = result;
  LONG lastField = -1;
  LONG lastRow = -1;
  EXPECT_EQ(S_OK, SafeArrayGetUBound(V_ARRAY(&raw), 1, &lastField));
  EXPECT_EQ(S_OK, SafeArrayGetUBound(V_ARRAY(&raw), 2, &lastRow));
  EXPECT_EQ(1, lastField);
  EXPECT_EQ(1, lastRow);
  LONG secondRowsFirstField[] = {0, 1};
  Variant element;
  ASSERT_EQ(S_OK, SafeArrayGetElement(V_ARRAY(&raw), secondRowsFirstField, element.put()));
  EXPECT_EQ(L"00002", element.Text());
  EXPECT_EQ(L"00003;", CodesOf(rows));
}

TEST_F(AdoRecordset, ReturnsOnlyTheRequestedFieldsAsAnArray) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD, DESCR, ANDAR from DEPTO order by COD", connection));
  Variant result;
  ASSERT_EQ(S_OK, rows->GetRows(-1, Variant::Missing(), Variant(L"ANDAR"), result.put()));
  VARIANT raw = result;
  LONG lastField = -1;
  LONG lastRow = -1;
  EXPECT_EQ(S_OK, SafeArrayGetUBound(V_ARRAY(&raw), 1, &lastField));
  EXPECT_EQ(S_OK, SafeArrayGetUBound(V_ARRAY(&raw), 2, &lastRow));
  EXPECT_EQ(0, lastField);
  EXPECT_EQ(2, lastRow);
  LONG secondRow[] = {0, 1};
  Variant element;
  ASSERT_EQ(S_OK, SafeArrayGetElement(V_ARRAY(&raw), secondRow, element.put()));
  EXPECT_EQ(2, element.Number());
  EXPECT_TRUE(AtEnd(rows));
}

TEST_F(AdoRecordset, AStatementWithoutRowsLeavesItClosed) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"delete from DEPTO where COD = '00001'", connection));
  EXPECT_EQ(adStateClosed, StateOf(rows));
}

TEST_F(AdoRecordset, TheLastReleaseOfEveryObjectReturnsZero) {
  auto connection = OpenWithDepartments();
  auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD from DEPTO", connection));
  auto field = FieldOf(rows, L"COD");
  com_ptr<Fields> fields;
  ASSERT_EQ(S_OK, rows->get_Fields(fields.put()));
  com_ptr<IUnknown> enumerator;
  ASSERT_EQ(S_OK, fields->_NewEnum(enumerator.put()));
  EXPECT_EQ(0u, ReleaseLast(enumerator));
  EXPECT_EQ(0u, ReleaseLast(field));
  EXPECT_EQ(0u, ReleaseLast(fields));
  EXPECT_EQ(0u, ReleaseLast(rows));
  EXPECT_EQ(0u, ReleaseLast(connection));
}

}  // namespace
}  // namespace kodra::wine

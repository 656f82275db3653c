// The errors of ADO as a C++ client sees them: the HRESULT, and the IErrorInfo with source and description.
#include <oledberr.h>

#include "tests/wine/ado_support.h"
#include "tests/wine/import_table.h"

namespace kodra::face {
namespace {

// A call of ADO that fails.
struct FailingCall {
  // In letters only: the test is named after it.
  const char* name;
  HRESULT (*call)();
  Failure expected;

  friend void PrintTo(const FailingCall& failing, std::ostream* out) { *out << failing.name; }
};

class AdoErrors : public AdoTest {};
class AdoErrorTable : public AdoTest, public testing::WithParamInterface<FailingCall> {};

TEST_P(AdoErrorTable, HasNumberSourceAndDescription) { EXPECT_EQ(GetParam().expected, TakeFailure(GetParam().call())); }

const wchar_t* const kStatement = L"select COD from DEPTO";

// The field of a streamed recordset with one field.
HRESULT GetField(const Var& index) {
  const auto rows = Stream(AdoDatabase::OpenWithDepartments(), kStatement);
  Ref<Field> field;
  const HRESULT hr = FieldsOf(rows)->get_Item(index, field.put());
  EXPECT_FALSE(field);
  return hr;
}

HRESULT OpenOn(const Var& source, const Var& connection) {
  return NewRecordset()->Open(source, connection, adOpenForwardOnly, adLockReadOnly, adCmdText);
}

// An open recordset in memory with the field A, a text of at most three characters.
Ref<_Recordset> OpenInMemory() {
  auto rows = NewRecordset();
  EXPECT_EQ(S_OK, AppendField(rows, L"A", adVarChar, 3));
  EXPECT_EQ(S_OK, OpenWithoutArguments(rows));
  return rows;
}

// A command without a connection.
Ref<_Command> NewStatement() {
  auto command = NewCommand();
  EXPECT_EQ(S_OK, command->put_CommandText(Bstr(kStatement)));
  return command;
}

Failure ItemNotFound() {
  return {ControlError(adErrItemNotFound), L"ADODB.Fields",
          L"Item cannot be found in the collection corresponding to the requested name or ordinal."};
}
Failure InvalidArgument(const std::wstring& source) {
  return {ControlError(adErrInvalidArgument), source,
          L"Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another."};
}
Failure InvalidConnection(const std::wstring& source) {
  return {ControlError(adErrInvalidConnection), source,
          L"The connection cannot be used to perform this operation. It is either closed or invalid in this context."};
}

const FailingCall kFailingCalls[] = {
    {"AnUnknownFieldName", [] { return GetField(L"NADA"); }, ItemNotFound()},
    {"AFieldNumberBeyondTheLast", [] { return GetField(1); }, ItemNotFound()},
    {"ANegativeFieldNumber", [] { return GetField(-1); }, ItemNotFound()},
    {"ReadingBeyondTheLastRow",
     [] {
       const auto rows = Stream(AdoDatabase::OpenWithDepartments(), L"select COD from DEPTO where 1 = 0");
       EXPECT_TRUE(AtEnd(rows));
       Var value;
       return FieldOf(rows, L"COD")->get_Value(value.put());
     },
     {ControlError(adErrNoCurrentRecord), L"ADODB.Field",
      L"Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current "
      L"record."}},
    {"AClosedRecordset",
     [] {
       VARIANT_BOOL atEnd = VARIANT_FALSE;
       return NewRecordset()->get_EOF(&atEnd);
     },
     {ControlError(adErrObjectClosed), L"ADODB.Recordset", L"Operation is not allowed when the object is closed."}},
    {"AStatementOnNothing", [] { return OpenOn(kStatement, Var::Nothing()); }, InvalidConnection(L"ADODB.Recordset")},
    {"AStatementOnNoConnection", [] { return OpenOn(kStatement, Var::Missing()); },
     InvalidConnection(L"ADODB.Recordset")},
    {"ACommandWithoutAConnection",
     [] {
       Ref<_Recordset> rows;
       return NewStatement()->Execute(nullptr, nullptr, adCmdText, rows.put());
     },
     InvalidConnection(L"ADODB.Command")},
    {"ARecordsetOfACommandWithoutAConnection", [] { return OpenOn(Var(NewStatement().get()), Var::Missing()); },
     InvalidConnection(L"ADODB.Recordset")},
    {"ARecordsetInPlaceOfACommand",
     [] { return OpenOn(Var(NewRecordset().get()), Var(AdoDatabase::OpenWithDepartments().get())); },
     InvalidArgument(L"ADODB.Recordset")},
    {"ARecordsetInPlaceOfAConnection", [] { return OpenOn(kStatement, Var(NewRecordset().get())); },
     InvalidArgument(L"ADODB.Connection")},
    {"ANullPointerForAResult", [] { return NewConnection()->get_State(nullptr); }, InvalidArgument(L"ADODB")},
    {"ATextTooLongForItsField",
     [] {
       const auto rows = OpenInMemory();
       EXPECT_EQ(S_OK, AddNew(rows));
       return FieldOf(rows, L"A")->put_Value(Var(L"abcd"));
     },
     {DB_E_ERRORSOCCURRED, L"Microsoft Cursor Engine",
      L"Multiple-step operation generated errors. Check each status value."}},
    {"AFieldAppendedToAnOpenRecordset",
     [] { return AppendField(OpenInMemory(), L"B", adVarChar, 3); },
     {ControlError(adErrIllegalOperation), L"ADODB.Fields", L"Operation is not allowed in this context."}},
    {"ATextParameterWithoutASize",
     [] {
       const auto command = NewCommand();
       Ref<_Parameter> parameter;
       Ref<Parameters> parameters;
       EXPECT_EQ(S_OK, command->CreateParameter(Bstr(L"P"), adVarChar, adParamInput, 0, Var(L"a"), parameter.put()));
       EXPECT_EQ(S_OK, command->get_Parameters(parameters.put()));
       return parameters->Append(parameter.get());
     },
     {ControlError(adErrInvalidParamInfo), L"ADODB.Parameters",
      L"Parameter object is improperly defined. Inconsistent or incomplete information was provided."}},
    {"AMemberThatIsNotImplemented",
     [] { return NewRecordset()->put_Sort(Bstr(L"COD")); },
     {E_NOTIMPL, L"ADODB", L"Recordset.Sort is not implemented by this ADO over ODBC."}},
};
INSTANTIATE_TEST_SUITE_P(, AdoErrorTable, testing::ValuesIn(kFailingCalls),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(AdoErrors, AFieldOfAClosedRecordsetFailsWithoutHarm) {
  const auto connection = OpenWithDepartments();
  const auto rows = Stream(connection, kStatement);
  const auto field = FieldOf(rows, L"COD");
  ASSERT_EQ(S_OK, rows->Close());
  Var value;
  EXPECT_TRUE(FAILED(field->get_Value(value.put())));
}

TEST_F(AdoErrors, AWrongStatementLeavesItsNativeErrorInTheConnection) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  const Failure error = TakeFailure(OpenStream(rows, L"select NADA from DEPTO", connection));
  EXPECT_EQ(DB_E_ERRORSINCOMMAND, error.number);
  EXPECT_EQ(L"Microsoft OLE DB Provider for ODBC Drivers", error.source);
  Ref<Errors> errors;
  ASSERT_EQ(S_OK, connection->get_Errors(errors.put()));
  LONG count = 0;
  EXPECT_EQ(S_OK, errors->get_Count(&count));
  ASSERT_EQ(1, count);
  Ref<Error> first;
  ASSERT_EQ(S_OK, errors->get_Item(Var(0), first.put()));
  LONG native = 0;
  EXPECT_EQ(S_OK, first->get_NativeError(&native));
  EXPECT_EQ(1, native);
  Bstr description;
  EXPECT_EQ(S_OK, first->get_Description(description.put()));
  EXPECT_EQ(error.description, description.text());
  EXPECT_EQ(ControlError(adErrItemNotFound), TakeFailure(errors->get_Item(Var(1), first.put())).number);
}

TEST_F(AdoErrors, AMissingDriverNamesTheProvider) {
  const auto connection = NewConnection();
  const Failure error =
      TakeFailure(connection->Open(Bstr(L"Driver={Nenhum};"), nullptr, nullptr, adConnectUnspecified));
  EXPECT_EQ(E_FAIL, error.number);
  EXPECT_EQ(L"Microsoft OLE DB Provider for ODBC Drivers", error.source);
}

HRESULT WINAPI MakeNoErrorInfo(ICreateErrorInfo** info) {
  *info = nullptr;
  return E_OUTOFMEMORY;
}

TEST_F(AdoErrors, HaveNoTextOfAnEarlierErrorWhenTheirOwnCannotBeMade) {
  const auto rows = NewRecordset();
  LeaveErrorInfo(L"OutraFonte", L"De outra chamada.");
  ImportTable ado(DllPath(L"kodra_ado.dll"));
  ado.Redirect("CreateErrorInfo", &MakeNoErrorInfo);
  EXPECT_EQ((Failure{ControlError(adErrObjectClosed), L"", L""}), TakeFailure(rows->Close()));
}

}  // namespace
}  // namespace kodra::face

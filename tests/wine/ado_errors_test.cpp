// The errors of ADO as a C++ client sees them: the HRESULT, and the IErrorInfo with source and description.
#include "tests/wine/ado_support.h"

namespace kodra::wine {
namespace {

class AdoErrors : public AdoTest {};

TEST_F(AdoErrors, AnUnknownFieldIs3265) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD from DEPTO", connection));
  com_ptr<Fields> fields;
  ASSERT_EQ(S_OK, rows->get_Fields(fields.put()));
  com_ptr<Field> field;
  const ComError error = TakeError(fields->get_Item(Variant(L"NADA"), field.put()));
  EXPECT_EQ(0x800A0CC1u, error.code);
  EXPECT_EQ(L"ADODB.Fields", error.source);
  EXPECT_EQ(L"Item cannot be found in the collection corresponding to the requested name or ordinal.",
            error.description);
  EXPECT_FALSE(field);
  EXPECT_EQ(0x800A0CC1u, TakeError(fields->get_Item(Variant(LONG{1}), field.put())).code);
  EXPECT_EQ(0x800A0CC1u, TakeError(fields->get_Item(Variant(LONG{-1}), field.put())).code);
}

TEST_F(AdoErrors, ReadingBeyondTheLastRowIs3021) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD from DEPTO where 1 = 0", connection));
  ASSERT_TRUE(AtEnd(rows));
  Variant value;
  const ComError error = TakeError(FieldOf(rows, L"COD")->get_Value(value.put()));
  EXPECT_EQ(0x800A0BCDu, error.code);
  EXPECT_EQ(
      L"Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current "
      L"record.",
      error.description);
}

TEST_F(AdoErrors, AClosedRecordsetIs3704) {
  const auto rows = NewRecordset();
  VARIANT_BOOL atEnd = VARIANT_FALSE;
  const ComError error = TakeError(rows->get_EOF(&atEnd));
  EXPECT_EQ(0x800A0E78u, error.code);
  EXPECT_EQ(L"ADODB.Recordset", error.source);
  EXPECT_EQ(L"Operation is not allowed when the object is closed.", error.description);
}

TEST_F(AdoErrors, AFieldOfAClosedRecordsetFailsWithoutHarm) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, OpenStream(rows, L"select COD from DEPTO", connection));
  const auto field = FieldOf(rows, L"COD");
  ASSERT_EQ(S_OK, rows->Close());
  Variant value;
  EXPECT_TRUE(FAILED(field->get_Value(value.put())));
}

TEST_F(AdoErrors, AStatementOnNoConnectionIs3709) {
  const auto rows = NewRecordset();
  const Variant nothing(static_cast<IDispatch*>(nullptr));
  const ComError error =
      TakeError(rows->Open(Variant(L"select COD from DEPTO"), nothing, adOpenForwardOnly, adLockReadOnly, adCmdText));
  EXPECT_EQ(0x800A0E7Du, error.code);
  EXPECT_EQ(L"ADODB.Recordset", error.source);
  EXPECT_EQ(L"The connection cannot be used to perform this operation. It is either closed or invalid in this context.",
            error.description);
  EXPECT_EQ(0x800A0E7Du, TakeError(rows->Open(Variant(L"select COD from DEPTO"), Variant::Missing(), adOpenForwardOnly,
                                              adLockReadOnly, adCmdText))
                             .code);
}

TEST_F(AdoErrors, AWrongStatementLeavesItsNativeErrorInTheConnection) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  const ComError error = TakeError(OpenStream(rows, L"select NADA from DEPTO", connection));
  EXPECT_EQ(0x80040E14u, error.code);
  EXPECT_EQ(L"Microsoft OLE DB Provider for ODBC Drivers", error.source);
  com_ptr<Errors> errors;
  ASSERT_EQ(S_OK, connection->get_Errors(errors.put()));
  LONG count = 0;
  EXPECT_EQ(S_OK, errors->get_Count(&count));
  ASSERT_EQ(1, count);
  com_ptr<Error> first;
  ASSERT_EQ(S_OK, errors->get_Item(Variant(LONG{0}), first.put()));
  LONG native = 0;
  EXPECT_EQ(S_OK, first->get_NativeError(&native));
  EXPECT_EQ(1, native);
  Bstr description;
  EXPECT_EQ(S_OK, first->get_Description(description.put()));
  EXPECT_EQ(error.description, description.Text());
  EXPECT_EQ(0x800A0CC1u, TakeError(errors->get_Item(Variant(LONG{1}), first.put())).code);
}

TEST_F(AdoErrors, TextTooLongForItsFieldIsAMultipleStepError) {
  const auto rows = NewRecordset();
  com_ptr<Fields> fields;
  ASSERT_EQ(S_OK, rows->get_Fields(fields.put()));
  ASSERT_EQ(S_OK, fields->Append(Bstr(L"A"), adVarChar, 3, adFldUnspecified, Variant::Missing()));
  ASSERT_EQ(S_OK, rows->Open(Variant::Missing(), Variant::Missing(), adOpenUnspecified, adLockUnspecified, -1));
  ASSERT_EQ(S_OK, rows->AddNew(Variant::Missing(), Variant::Missing()));
  const ComError error = TakeError(FieldOf(rows, L"A")->put_Value(Variant(L"abcd")));
  EXPECT_EQ(0x80040E21u, error.code);
  EXPECT_EQ(L"Multiple-step operation generated errors. Check each status value.", error.description);
}

TEST_F(AdoErrors, AFieldCannotBeAppendedToAnOpenRecordset) {
  const auto rows = NewRecordset();
  com_ptr<Fields> fields;
  ASSERT_EQ(S_OK, rows->get_Fields(fields.put()));
  ASSERT_EQ(S_OK, fields->Append(Bstr(L"A"), adVarChar, 3, adFldUnspecified, Variant::Missing()));
  ASSERT_EQ(S_OK, rows->Open(Variant::Missing(), Variant::Missing(), adOpenUnspecified, adLockUnspecified, -1));
  EXPECT_EQ(0x800A0C93u,
            TakeError(fields->Append(Bstr(L"B"), adVarChar, 3, adFldUnspecified, Variant::Missing())).code);
}

TEST_F(AdoErrors, AnObjectThatIsNoCommandOrConnectionIs3001) {
  const auto connection = OpenWithDepartments();
  const auto rows = NewRecordset();
  const auto other = NewRecordset();
  EXPECT_EQ(0x800A0BB9u, TakeError(rows->Open(Variant(other.get()), Variant(connection.get()), adOpenForwardOnly,
                                              adLockReadOnly, adCmdText))
                             .code);
  EXPECT_EQ(0x800A0BB9u, TakeError(rows->Open(Variant(L"select COD from DEPTO"), Variant(other.get()),
                                              adOpenForwardOnly, adLockReadOnly, adCmdText))
                             .code);
}

TEST_F(AdoErrors, AMissingDriverNamesTheProvider) {
  const auto connection = NewConnection();
  const ComError error = TakeError(connection->Open(Bstr(L"Driver={Nenhum};"), nullptr, nullptr, adConnectUnspecified));
  EXPECT_EQ(0x80004005u, error.code);
  EXPECT_EQ(L"Microsoft OLE DB Provider for ODBC Drivers", error.source);
}

TEST_F(AdoErrors, AMemberThatIsNotImplementedIsNamedInItsError) {
  const auto rows = NewRecordset();
  const ComError error = TakeError(rows->put_Sort(Bstr(L"COD")));
  EXPECT_EQ(static_cast<unsigned long>(E_NOTIMPL), error.code);
  EXPECT_EQ(L"ADODB", error.source);
  EXPECT_EQ(L"Recordset.Sort is not implemented by this ADO over ODBC.", error.description);
}

TEST_F(AdoErrors, ANullPointerForAResultIs3001) {
  const auto connection = NewConnection();
  EXPECT_EQ(0x800A0BB9u, TakeError(connection->get_State(nullptr)).code);
}

}  // namespace
}  // namespace kodra::wine

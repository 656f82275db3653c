// Commands and their parameters as a C++ client uses them.
#include "tests/wine/ado_support.h"

namespace kodra::wine {
namespace {

class AdoCommand : public AdoTest {
 protected:
  static com_ptr<_Command> CommandOn(const com_ptr<_Connection>& connection, const wchar_t* text) {
    auto command = NewCommand();
    EXPECT_EQ(S_OK, command->putref_ActiveConnection(connection.get()));
    EXPECT_EQ(S_OK, command->put_CommandText(Bstr(text)));
    EXPECT_EQ(S_OK, command->put_CommandType(adCmdText));
    return command;
  }
  static com_ptr<_Parameter> Append(const com_ptr<_Command>& command, const wchar_t* name, DataTypeEnum type,
                                    ADO_LONGPTR size, const Variant& value) {
    com_ptr<_Parameter> parameter;
    EXPECT_EQ(S_OK, command->CreateParameter(Bstr(name), type, adParamInput, size, value, parameter.put()));
    com_ptr<Parameters> parameters;
    EXPECT_EQ(S_OK, command->get_Parameters(parameters.put()));
    EXPECT_EQ(S_OK, parameters->Append(parameter.get()));
    return parameter;
  }
};

TEST_F(AdoCommand, BindsItsParametersByPosition) {
  const auto connection = OpenWithDepartments();
  const auto command = CommandOn(connection, L"select COD from DEPTO where DESCR = ? and ANDAR = ?");
  Append(command, L"DESCR", adVarChar, 40, Variant(L"Administra\u00e7\u00e3o"));
  Append(command, L"ANDAR", adInteger, 0, Variant(LONG{1}));
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, rows->Open(Variant(command.get()), Variant::Missing(), adOpenForwardOnly, adLockReadOnly, -1));
  EXPECT_EQ(L"00001", ValueOf(FieldOf(rows, L"COD")).Text());
}

TEST_F(AdoCommand, ReadsAParametersCurrentValueWheneverItRuns) {
  const auto connection = OpenWithDepartments();
  const auto command = CommandOn(connection, L"select DESCR from DEPTO where COD = ?");
  const auto code = Append(command, L"COD", adVarChar, 5, Variant(L"00001"));
  ASSERT_EQ(S_OK, code->put_Value(Variant(L"00002")));
  com_ptr<_Recordset> rows;
  ASSERT_EQ(S_OK, command->Execute(nullptr, nullptr, -1, rows.put()));
  EXPECT_EQ(L"Biblioteca", ValueOf(FieldOf(rows, L"DESCR")).Text());
}

TEST_F(AdoCommand, ReportsHowManyRowsItChanged) {
  const auto connection = OpenWithDepartments();
  const auto command = CommandOn(connection, L"update DEPTO set ANDAR = 9 where COD <> ?");
  Append(command, L"COD", adVarChar, 5, Variant(L"00003"));
  Variant affected;
  ASSERT_EQ(S_OK, command->Execute(affected.put(), nullptr, adExecuteNoRecords, nullptr));
  EXPECT_EQ(VT_I4, affected.Type());
  EXPECT_EQ(2, affected.Number());
}

TEST_F(AdoCommand, HasNoConnectionUntilOneIsSetAndAfterItIsRemoved) {
  const auto connection = OpenWithDepartments();
  const auto command = NewCommand();
  com_ptr<_Connection> active;
  EXPECT_EQ(S_OK, command->get_ActiveConnection(active.put()));
  EXPECT_FALSE(active);
  ASSERT_EQ(S_OK, command->putref_ActiveConnection(connection.get()));
  EXPECT_EQ(S_OK, command->get_ActiveConnection(active.put()));
  EXPECT_EQ(connection.get(), active.get());
  ASSERT_EQ(S_OK, command->put_ActiveConnection(Variant(static_cast<IDispatch*>(nullptr))));
  EXPECT_EQ(S_OK, command->get_ActiveConnection(active.put()));
  EXPECT_FALSE(active);
  ASSERT_EQ(S_OK, command->putref_ActiveConnection(connection.get()));
  ASSERT_EQ(S_OK, command->putref_ActiveConnection(nullptr));
  EXPECT_EQ(S_OK, command->get_ActiveConnection(active.put()));
  EXPECT_FALSE(active);
}

TEST_F(AdoCommand, OpensAConnectionStringOfItsOwn) {
  OpenWithDepartments();
  const auto command = NewCommand();
  ASSERT_EQ(S_OK, command->put_ActiveConnection(Variant(ConnectionString().c_str())));
  ASSERT_EQ(S_OK, command->put_CommandText(Bstr(L"select count(*) as N from DEPTO")));
  com_ptr<_Recordset> rows;
  ASSERT_EQ(S_OK, command->Execute(nullptr, nullptr, adCmdText, rows.put()));
  EXPECT_EQ(3, ValueOf(FieldOf(rows, L"N")).Number());
}

TEST_F(AdoCommand, WithoutAConnectionIs3709) {
  const auto command = NewCommand();
  ASSERT_EQ(S_OK, command->put_CommandText(Bstr(L"select COD from DEPTO")));
  com_ptr<_Recordset> rows;
  EXPECT_EQ(0x800A0E7Du, TakeError(command->Execute(nullptr, nullptr, adCmdText, rows.put())).code);
  const auto opened = NewRecordset();
  EXPECT_EQ(0x800A0E7Du, TakeError(opened->Open(Variant(command.get()), Variant::Missing(), adOpenForwardOnly,
                                                adLockReadOnly, adCmdText))
                             .code);
}

TEST_F(AdoCommand, FindsItsParametersByNameAndNumber) {
  const auto command = NewCommand();
  Append(command, L"PRIMEIRO", adVarChar, 5, Variant(L"a"));
  Append(command, L"SEGUNDO", adVarChar, 5, Variant(L"b"));
  com_ptr<Parameters> parameters;
  ASSERT_EQ(S_OK, command->get_Parameters(parameters.put()));
  com_ptr<_Parameter> found;
  ASSERT_EQ(S_OK, parameters->get_Item(Variant(L"segundo"), found.put()));
  Variant value;
  EXPECT_EQ(S_OK, found->get_Value(value.put()));
  EXPECT_EQ(L"b", value.Text());
  ASSERT_EQ(S_OK, parameters->get_Item(Variant(LONG{0}), found.put()));
  EXPECT_EQ(S_OK, found->get_Value(value.put()));
  EXPECT_EQ(L"a", value.Text());
  ASSERT_EQ(S_OK, parameters->Delete(Variant(LONG{0})));
  LONG count = 0;
  EXPECT_EQ(S_OK, parameters->get_Count(&count));
  EXPECT_EQ(1, count);
  EXPECT_EQ(0x800A0CC1u, TakeError(parameters->get_Item(Variant(L"PRIMEIRO"), found.put())).code);
}

TEST_F(AdoCommand, ATextParameterWithoutASizeIs3708) {
  const auto command = NewCommand();
  com_ptr<_Parameter> parameter;
  ASSERT_EQ(S_OK, command->CreateParameter(Bstr(L"P"), adVarChar, adParamInput, 0, Variant(L"a"), parameter.put()));
  com_ptr<Parameters> parameters;
  ASSERT_EQ(S_OK, command->get_Parameters(parameters.put()));
  EXPECT_EQ(0x800A0E7Cu, TakeError(parameters->Append(parameter.get())).code);
}

TEST_F(AdoCommand, TheLastReleaseOfEveryObjectReturnsZero) {
  auto connection = OpenWithDepartments();
  auto command = CommandOn(connection, L"select COD from DEPTO where COD = ?");
  auto parameter = Append(command, L"COD", adVarChar, 5, Variant(L"00001"));
  com_ptr<_Recordset> rows;
  ASSERT_EQ(S_OK, command->Execute(nullptr, nullptr, -1, rows.put()));
  EXPECT_EQ(0u, ReleaseLast(rows));
  EXPECT_EQ(0u, ReleaseLast(command));
  EXPECT_EQ(0u, ReleaseLast(parameter));
  EXPECT_EQ(0u, ReleaseLast(connection));
}

}  // namespace
}  // namespace kodra::wine

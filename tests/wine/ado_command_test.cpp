// Commands and their parameters as a C++ client uses them.
#include "tests/wine/ado_support.h"

namespace kodra::face {
namespace {

class AdoCommand : public AdoTest {
 protected:
  static Ref<_Command> CommandOn(const Ref<_Connection>& connection, const wchar_t* text) {
    auto command = NewCommand();
    EXPECT_EQ(S_OK, command->putref_ActiveConnection(connection.get()));
    EXPECT_EQ(S_OK, command->put_CommandText(Bstr(text)));
    EXPECT_EQ(S_OK, command->put_CommandType(adCmdText));
    return command;
  }
  static Ref<_Parameter> Append(const Ref<_Command>& command, const wchar_t* name, DataTypeEnum type, ADO_LONGPTR size,
                                const Var& value) {
    Ref<_Parameter> parameter;
    EXPECT_EQ(S_OK, command->CreateParameter(Bstr(name), type, adParamInput, size, value, parameter.put()));
    Ref<Parameters> parameters;
    EXPECT_EQ(S_OK, command->get_Parameters(parameters.put()));
    EXPECT_EQ(S_OK, parameters->Append(parameter.get()));
    return parameter;
  }
};

TEST_F(AdoCommand, BindsItsParametersByPosition) {
  const auto connection = OpenWithDepartments();
  const auto command = CommandOn(connection, L"select COD from DEPTO where DESCR = ? and ANDAR = ?");
  Append(command, L"DESCR", adVarChar, 40, Var(L"Administração"));
  Append(command, L"ANDAR", adInteger, 0, Var(1));
  const auto rows = NewRecordset();
  ASSERT_EQ(S_OK, rows->Open(Var(command.get()), Var::Missing(), adOpenForwardOnly, adLockReadOnly, -1));
  EXPECT_EQ(L"00001", ValueOf(FieldOf(rows, L"COD")).text());
}

TEST_F(AdoCommand, ReadsAParametersCurrentValueWheneverItRuns) {
  const auto connection = OpenWithDepartments();
  const auto command = CommandOn(connection, L"select DESCR from DEPTO where COD = ?");
  const auto code = Append(command, L"COD", adVarChar, 5, Var(L"00001"));
  ASSERT_EQ(S_OK, code->put_Value(Var(L"00002")));
  Ref<_Recordset> rows;
  ASSERT_EQ(S_OK, command->Execute(nullptr, nullptr, -1, rows.put()));
  EXPECT_EQ(L"Biblioteca", ValueOf(FieldOf(rows, L"DESCR")).text());
}

TEST_F(AdoCommand, ReportsHowManyRowsItChanged) {
  const auto connection = OpenWithDepartments();
  const auto command = CommandOn(connection, L"update DEPTO set ANDAR = 9 where COD <> ?");
  Append(command, L"COD", adVarChar, 5, Var(L"00003"));
  Var affected;
  ASSERT_EQ(S_OK, command->Execute(affected.put(), nullptr, adExecuteNoRecords, nullptr));
  EXPECT_EQ(VT_I4, affected.type());
  EXPECT_EQ(2, affected.number());
}

TEST_F(AdoCommand, HasNoConnectionBeforeOneIsSetNorAfterItIsRemoved) {
  const auto connection = OpenWithDepartments();
  const auto command = NewCommand();
  Ref<_Connection> active;
  EXPECT_EQ(S_OK, command->get_ActiveConnection(active.put()));
  EXPECT_FALSE(active);
  ASSERT_EQ(S_OK, command->putref_ActiveConnection(connection.get()));
  EXPECT_EQ(S_OK, command->get_ActiveConnection(active.put()));
  EXPECT_EQ(connection.get(), active.get());
  ASSERT_EQ(S_OK, command->put_ActiveConnection(Var::Nothing()));
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
  ASSERT_EQ(S_OK, command->put_ActiveConnection(Var(ConnectionString().c_str())));
  ASSERT_EQ(S_OK, command->put_CommandText(Bstr(L"select count(*) as N from DEPTO")));
  Ref<_Recordset> rows;
  ASSERT_EQ(S_OK, command->Execute(nullptr, nullptr, adCmdText, rows.put()));
  EXPECT_EQ(3, ValueOf(FieldOf(rows, L"N")).number());
}

TEST_F(AdoCommand, FindsItsParametersByNameAndNumber) {
  const auto command = NewCommand();
  Append(command, L"PRIMEIRO", adVarChar, 5, Var(L"a"));
  Append(command, L"SEGUNDO", adVarChar, 5, Var(L"b"));
  Ref<Parameters> parameters;
  ASSERT_EQ(S_OK, command->get_Parameters(parameters.put()));
  Ref<_Parameter> found;
  ASSERT_EQ(S_OK, parameters->get_Item(Var(L"segundo"), found.put()));
  Var value;
  EXPECT_EQ(S_OK, found->get_Value(value.put()));
  EXPECT_EQ(L"b", value.text());
  ASSERT_EQ(S_OK, parameters->get_Item(Var(0), found.put()));
  EXPECT_EQ(S_OK, found->get_Value(value.put()));
  EXPECT_EQ(L"a", value.text());
  ASSERT_EQ(S_OK, parameters->Delete(Var(0)));
  LONG count = 0;
  EXPECT_EQ(S_OK, parameters->get_Count(&count));
  EXPECT_EQ(1, count);
  EXPECT_EQ(ControlError(adErrItemNotFound), TakeFailure(parameters->get_Item(Var(L"PRIMEIRO"), found.put())).number);
}

TEST_F(AdoCommand, TheLastReleaseOfEveryObjectReturnsZero) {
  auto connection = OpenWithDepartments();
  auto command = CommandOn(connection, L"select COD from DEPTO where COD = ?");
  auto parameter = Append(command, L"COD", adVarChar, 5, Var(L"00001"));
  Ref<_Recordset> rows;
  ASSERT_EQ(S_OK, command->Execute(nullptr, nullptr, -1, rows.put()));
  EXPECT_EQ(0U, rows.Release());
  EXPECT_EQ(0U, command.Release());
  EXPECT_EQ(0U, parameter.Release());
  EXPECT_EQ(0U, connection.Release());
}

}  // namespace
}  // namespace kodra::face

// Connections as a C++ client uses them.
#include "tests/wine/ado_support.h"

namespace kodra::face {
namespace {

class AdoConnection : public AdoTest {
 protected:
  static LONG CountOf(const Ref<_Connection>& connection) {
    const auto rows = NewRecordset();
    EXPECT_EQ(S_OK, OpenStream(rows, L"select count(*) as N from DEPTO", connection));
    return ValueOf(FieldOf(rows, L"N")).number();
  }
};

TEST_F(AdoConnection, KeepsItsPropertiesUntilItOpens) {
  const auto connection = NewConnection();
  ASSERT_EQ(S_OK, connection->put_ConnectionString(Bstr(ConnectionString())));
  ASSERT_EQ(S_OK, connection->put_CursorLocation(adUseClient));
  ASSERT_EQ(S_OK, connection->put_IsolationLevel(adXactReadCommitted));
  Bstr text;
  EXPECT_EQ(S_OK, connection->get_ConnectionString(text.put()));
  EXPECT_EQ(ConnectionString(), text.text());
  CursorLocationEnum location = adUseNone;
  EXPECT_EQ(S_OK, connection->get_CursorLocation(&location));
  EXPECT_EQ(adUseClient, location);
  IsolationLevelEnum level = adXactUnspecified;
  EXPECT_EQ(S_OK, connection->get_IsolationLevel(&level));
  EXPECT_EQ(adXactReadCommitted, level);
}

TEST_F(AdoConnection, OpensWithItsPropertyAndIsClosedAgain) {
  const auto connection = NewConnection();
  EXPECT_EQ(adStateClosed, StateOf(connection));
  ASSERT_EQ(S_OK, connection->put_ConnectionString(Bstr(ConnectionString())));
  ASSERT_EQ(S_OK, connection->Open(Bstr(L""), Bstr(L""), Bstr(L""), adConnectUnspecified));
  EXPECT_EQ(adStateOpen, StateOf(connection));
  EXPECT_EQ(ControlError(adErrObjectOpen),
            TakeFailure(connection->Open(nullptr, nullptr, nullptr, adConnectUnspecified)).number);
  ASSERT_EQ(S_OK, connection->Close());
  EXPECT_EQ(adStateClosed, StateOf(connection));
  EXPECT_EQ(ControlError(adErrObjectClosed), TakeFailure(connection->Close()).number);
}

TEST_F(AdoConnection, ClosesTheRecordsetsThatStreamFromIt) {
  const auto connection = OpenWithDepartments();
  const auto rows = Stream(connection, L"select COD from DEPTO");
  ASSERT_EQ(S_OK, connection->Close());
  EXPECT_EQ(adStateClosed, StateOf(rows));
  EXPECT_EQ(ControlError(adErrObjectClosed), TakeFailure(rows->MoveNext()).number);
}

TEST_F(AdoConnection, ReportsHowManyRowsAStatementChanged) {
  const auto connection = OpenWithDepartments();
  Var affected;
  Ref<_Recordset> rows;
  ASSERT_EQ(S_OK, connection->Execute(Bstr(L"update DEPTO set ANDAR = 7"), affected.put(), adCmdText, rows.put()));
  EXPECT_EQ(VT_I4, affected.type());
  EXPECT_EQ(3, affected.number());
  ASSERT_TRUE(rows);
  EXPECT_EQ(adStateClosed, StateOf(rows));
}

TEST_F(AdoConnection, ReturnsNoRecordsetWhenNoneIsWanted) {
  const auto connection = OpenWithDepartments();
  Ref<_Recordset> rows;
  ASSERT_EQ(S_OK, connection->Execute(Bstr(L"select COD from DEPTO"), nullptr,
                                      static_cast<LONG>(adCmdText) | adExecuteNoRecords, rows.put()));
  EXPECT_FALSE(rows);
}

TEST_F(AdoConnection, UndoesATransactionThatIsRolledBackAndKeepsOneThatIsCommitted) {
  const auto connection = OpenWithDepartments();
  LONG level = 0;
  ASSERT_EQ(S_OK, connection->BeginTrans(&level));
  EXPECT_EQ(1, level);
  Execute(connection, L"delete from DEPTO");
  ASSERT_EQ(S_OK, connection->RollbackTrans());
  EXPECT_EQ(3, CountOf(connection));
  ASSERT_EQ(S_OK, connection->BeginTrans(nullptr));
  Execute(connection, L"delete from DEPTO where COD = '00001'");
  ASSERT_EQ(S_OK, connection->CommitTrans());
  EXPECT_EQ(2, CountOf(connection));
}

TEST_F(AdoConnection, HasNoErrorsUntilAStatementFailsAndNoneAfterClear) {
  const auto connection = OpenWithDepartments();
  Ref<Errors> errors;
  ASSERT_EQ(S_OK, connection->get_Errors(errors.put()));
  LONG count = -1;
  EXPECT_EQ(S_OK, errors->get_Count(&count));
  EXPECT_EQ(0, count);
  EXPECT_TRUE(FAILED(connection->Execute(Bstr(L"select NADA"), nullptr, adCmdText, nullptr)));
  EXPECT_EQ(S_OK, errors->get_Count(&count));
  EXPECT_EQ(1, count);
  EXPECT_EQ(S_OK, errors->Clear());
  EXPECT_EQ(S_OK, errors->get_Count(&count));
  EXPECT_EQ(0, count);
}

}  // namespace
}  // namespace kodra::face

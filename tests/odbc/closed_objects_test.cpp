// The errors of connections, commands and recordsets that are not connected to a database.
#include <gtest/gtest.h>

#include "odbc/engine/command.h"
#include "odbc/engine/connection.h"
#include "odbc/engine/recordset.h"
#include "tests/odbc/print_value.h"
#include "tests/odbc/raised.h"
#include "tests/secret.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

using tests::InvalidArgument;
using tests::InvalidConnection;
using tests::ItemNotFound;
using tests::ObjectClosed;
using tests::ObjectOpen;
using tests::Raised;
using tests::RaisedBy;

const Raised kImproperParameter{
    3708, L"ADODB.Parameters",
    L"Parameter object is improperly defined. Inconsistent or incomplete information was provided."};
const Raised kWrongValue{3421, L"ADODB.Command",
                         L"Application uses a value of the wrong type for the current operation."};

void OpenText(Recordset& rs, const platform::ActiveConnection& connection) {
  rs.Open(L"select 1", connection, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
}

TEST(ClosedConnection, HasAdosDefaults) {
  Connection cn;
  EXPECT_EQ(cn.State(), ad::kStateClosed);
  EXPECT_EQ(cn.CursorLocation(), ad::kUseServer);
  EXPECT_EQ(cn.IsolationLevel(), ad::kXactReadCommitted);
  EXPECT_EQ(cn.ConnectionTimeout(), 15);
  EXPECT_EQ(cn.CommandTimeout(), 30);
  EXPECT_EQ(cn.Provider(), L"MSDASQL");
  EXPECT_EQ(cn.ConnectionString(), L"");
  EXPECT_EQ(cn.ErrorCount(), 0);
}

TEST(ClosedConnection, KeepsWhatIsSet) {
  Connection cn;
  cn.SetConnectionString(L"DSN=Arquivo");
  cn.SetCursorLocation(ad::kUseClient);
  cn.SetIsolationLevel(65536);
  cn.SetCommandTimeout(90);
  cn.SetConnectionTimeout(5);
  cn.SetProvider(L"MSDASQL.1");
  cn.SetMode(1);
  cn.SetDefaultDatabase(L"arq");
  EXPECT_EQ(cn.ConnectionString(), L"DSN=Arquivo");
  EXPECT_EQ(cn.CursorLocation(), ad::kUseClient);
  EXPECT_EQ(cn.IsolationLevel(), 65536);
  EXPECT_EQ(cn.CommandTimeout(), 90);
  EXPECT_EQ(cn.ConnectionTimeout(), 5);
  EXPECT_EQ(cn.Provider(), L"MSDASQL.1");
  EXPECT_EQ(cn.Mode(), 1);
  EXPECT_EQ(cn.DefaultDatabase(), L"arq");
}

TEST(ClosedConnection, RunsAndClosesNothing) {
  Connection cn;
  EXPECT_EQ(RaisedBy([&] { cn.Execute(L"select 1", ad::kUnspecified); }), ObjectClosed(L"ADODB.Connection"));
  EXPECT_EQ(RaisedBy([&] { cn.Query(L"select 1", ad::kCmdText); }), ObjectClosed(L"ADODB.Connection"));
  EXPECT_EQ(RaisedBy([&] { cn.Close(); }), ObjectClosed(L"ADODB.Connection"));
  EXPECT_EQ(RaisedBy([&] { cn.BeginTrans(); }), ObjectClosed(L"ADODB.Connection"));
  EXPECT_EQ(RaisedBy([&] { cn.CommitTrans(); }), ObjectClosed(L"ADODB.Connection"));
  EXPECT_EQ(RaisedBy([&] { cn.RollbackTrans(); }), ObjectClosed(L"ADODB.Connection"));
}

TEST(ClosedConnection, RefusesACursorLocationThatIsNone) {
  Connection cn;
  EXPECT_EQ(RaisedBy([&] { cn.SetCursorLocation(1); }), InvalidArgument(L"ADODB.Connection"));
  EXPECT_EQ(RaisedBy([&] { cn.SetCommandTimeout(-1); }), InvalidArgument(L"ADODB.Connection"));
}

TEST(ClosedConnection, AMalformedStringFailsToOpen) {
  Connection cn;
  cn.SetConnectionString(L"arquivo");
  EXPECT_EQ(RaisedBy([&] { cn.Open(L"", L"", ad::kUnspecified); }),
            (Raised{static_cast<std::int32_t>(0x80040E73U), L"Microsoft OLE DB Service Components",
                    L"Format of the initialization string does not conform to the OLE DB specification."}));
  EXPECT_EQ(cn.State(), ad::kStateClosed);
}

TEST(ClosedConnection, AnUnknownDataSourceRaisesTheDriverManagersMessage) {
  Connection cn;
  cn.SetConnectionString(L"DSN=NaoExiste;PWD=" + tests::kSecret);
  EXPECT_EQ(RaisedBy([&] { cn.Open(L"", L"", ad::kUnspecified); }),
            (Raised{static_cast<std::int32_t>(0x80004005U), L"Microsoft OLE DB Provider for ODBC Drivers",
                    L"[unixODBC][Driver Manager]Data source name not found and no default driver specified"}));
  ASSERT_EQ(cn.ErrorCount(), 1);
  EXPECT_EQ(cn.Errors()[0].sqlState, L"IM002");
  EXPECT_EQ(cn.NativeError(0), 0);
  EXPECT_EQ(cn.State(), ad::kStateClosed);
}

TEST(ClosedRecordset, HasAdosDefaults) {
  Recordset rs;
  EXPECT_EQ(rs.State(), ad::kStateClosed);
  EXPECT_EQ(rs.CursorLocation(), ad::kUseServer);
  EXPECT_EQ(rs.CursorType(), ad::kOpenForwardOnly);
  EXPECT_EQ(rs.LockType(), ad::kLockReadOnly);
  EXPECT_EQ(rs.CacheSize(), 1);
  EXPECT_EQ(rs.MaxRecords(), 0);
  EXPECT_EQ(rs.FieldCount(), 0);
}

TEST(ClosedRecordset, EveryOperationOnRowsRaises) {
  Recordset rs;
  const Raised closed = ObjectClosed(L"ADODB.Recordset");
  EXPECT_EQ(RaisedBy([&] { rs.Bof(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.Eof(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.MoveFirst(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.MoveNext(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.MovePrevious(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.MoveLast(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.Move(0); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.RecordCount(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.AbsolutePosition(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.AddNew(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.Update(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.CancelUpdate(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.Delete(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.EditMode(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.GetRows(1); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.Requery(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.Close(); }), closed);
  EXPECT_EQ(RaisedBy([&] { rs.FieldValue(0); }), ObjectClosed(L"ADODB.Field"));
  EXPECT_EQ(RaisedBy([&] { rs.SetFieldValue(0, 1); }), ObjectClosed(L"ADODB.Field"));
  EXPECT_EQ(RaisedBy([&] { rs.FieldByName(L"A"); }), ItemNotFound(L"ADODB.Fields"));
}

TEST(ClosedRecordset, RefusesPropertiesOutOfRange) {
  Recordset rs;
  const Raised invalid = InvalidArgument(L"ADODB.Recordset");
  EXPECT_EQ(RaisedBy([&] { rs.SetCacheSize(0); }), invalid);
  EXPECT_EQ(RaisedBy([&] { rs.SetCursorType(4); }), invalid);
  EXPECT_EQ(RaisedBy([&] { rs.SetCursorLocation(1); }), invalid);
  EXPECT_EQ(RaisedBy([&] { rs.SetLockType(0); }), invalid);
  EXPECT_EQ(RaisedBy([&] { rs.SetMaxRecords(-1); }), invalid);
  EXPECT_EQ(RaisedBy([&] { rs.Open({}, {}, 9, ad::kUnspecified, ad::kUnspecified); }), invalid);
}

TEST(ClosedRecordset, OpenedOnANullConnectionItRaises) {
  Recordset rs;
  EXPECT_EQ(RaisedBy([&] { OpenText(rs, static_cast<platform::Connection*>(nullptr)); }),
            InvalidConnection(L"ADODB.Recordset"));
  EXPECT_EQ(rs.State(), ad::kStateClosed);
}

TEST(ClosedRecordset, OpenedOnAClosedConnectionItRaises) {
  Recordset rs;
  Connection cn;
  EXPECT_EQ(RaisedBy([&] { OpenText(rs, &cn); }), InvalidConnection(L"ADODB.Recordset"));
}

TEST(ClosedRecordset, OpenedOnNothingAtAllItRaises) {
  Recordset rs;
  EXPECT_EQ(RaisedBy([&] { OpenText(rs, {}); }), InvalidConnection(L"ADODB.Recordset"));
  EXPECT_EQ(RaisedBy([&] { rs.Open({}, {}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified); }),
            InvalidConnection(L"ADODB.Recordset"));
}

TEST(ClosedRecordset, AFailedOpenLeavesItReusable) {
  Recordset rs;
  EXPECT_EQ(RaisedBy([&] { OpenText(rs, std::wstring(L"DSN=NaoExiste")); }).number,
            static_cast<std::int32_t>(0x80004005U));
  EXPECT_EQ(rs.State(), ad::kStateClosed);
  rs.AppendField(L"NOME", ad::kVarChar, 5, ad::kUnspecified);
  rs.Open({}, {}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
  EXPECT_EQ(rs.State(), ad::kStateOpen);
}

TEST(OpenRecordset, RefusesToOpenAgainAndToChangeItsCursor) {
  Recordset rs;
  rs.AppendField(L"NOME", ad::kVarChar, 5, ad::kUnspecified);
  rs.Open({}, {}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
  const Raised open = ObjectOpen(L"ADODB.Recordset");
  EXPECT_EQ(RaisedBy([&] { OpenText(rs, {}); }), open);
  EXPECT_EQ(RaisedBy([&] { rs.SetCursorLocation(ad::kUseServer); }), open);
  EXPECT_EQ(RaisedBy([&] { rs.SetCursorType(ad::kOpenStatic); }), open);
  EXPECT_EQ(RaisedBy([&] { rs.SetLockType(ad::kLockReadOnly); }), open);
  EXPECT_EQ(RaisedBy([&] { rs.SetSource(L"select 1"); }), open);
  rs.SetCacheSize(50);
  EXPECT_EQ(rs.CacheSize(), 50);
}

TEST(CommandObject, KeepsWhatIsSet) {
  Command cmd;
  cmd.SetName(L"Busca");
  cmd.SetPrepared(true);
  cmd.SetCommandTimeout(90);
  EXPECT_EQ(RaisedBy([&] { cmd.SetCommandTimeout(-1); }), InvalidArgument(L"ADODB.Command"));
  EXPECT_EQ(cmd.Name(), L"Busca");
  EXPECT_TRUE(cmd.Prepared());
  EXPECT_EQ(cmd.CommandTimeout(), 90);
  EXPECT_EQ(cmd.ActiveConnection(), nullptr);
}

TEST(CommandObject, TakesAnotherParameterInPlaceOfOne) {
  Command cmd;
  cmd.AppendParameter(L"A", ad::kVarChar, ad::kParamInput, 5, L"x");
  cmd.SetParameter(0, {L"B", ad::kInteger, ad::kParamInput, 0, 7});
  EXPECT_EQ(RaisedBy([&] { cmd.SetParameter(0, {L"C", ad::kInteger, ad::kParamInput, 0, L"x"}); }), kWrongValue);
  EXPECT_EQ(RaisedBy([&] { cmd.SetParameter(0, {L"C", ad::kVarChar, ad::kParamInput, 0, L"x"}); }), kImproperParameter);
  EXPECT_EQ(RaisedBy([&] { cmd.SetParameter(1, cmd.ParameterAt(0)); }), ItemNotFound(L"ADODB.Parameters"));
  EXPECT_EQ(cmd.ParameterAt(0).name, L"B");
  EXPECT_EQ(cmd.ParameterAt(0).value, Value(7));
}

TEST(CommandObject, KeepsItsParametersInOrder) {
  Command cmd;
  cmd.AppendParameter(L"A", ad::kVarChar, ad::kParamInput, 5, L"x");
  cmd.AppendParameter(L"B", ad::kInteger, ad::kParamInput, 0, 7);
  ASSERT_EQ(cmd.ParameterCount(), 2);
  cmd.SetParameterValue(0, L"y");
  EXPECT_EQ(cmd.ParameterAt(0).value, Value(L"y"));
  cmd.RemoveParameter(0);
  EXPECT_EQ(cmd.ParameterCount(), 1);
  EXPECT_EQ(cmd.ParameterAt(0).name, L"B");
}

TEST(CommandObject, AnUnknownParameterRaises) {
  Command cmd;
  EXPECT_EQ(RaisedBy([&] { cmd.ParameterAt(0); }), ItemNotFound(L"ADODB.Parameters"));
  EXPECT_EQ(RaisedBy([&] { cmd.RemoveParameter(-1); }), ItemNotFound(L"ADODB.Parameters"));
}

TEST(CommandObject, AParameterOfVariableLengthNeedsASize) {
  Command cmd;
  EXPECT_EQ(RaisedBy([&] { cmd.AppendParameter(L"A", ad::kVarChar, ad::kParamInput, 0, L""); }), kImproperParameter);
  EXPECT_EQ(RaisedBy([&] { cmd.AppendParameter(L"A", ad::kEmpty, ad::kParamInput, 5, L""); }), kImproperParameter);
  EXPECT_EQ(cmd.ParameterCount(), 0);
}

TEST(CommandObject, AValueThatItsParameterCannotHoldRaises) {
  Command cmd;
  EXPECT_EQ(RaisedBy([&] { cmd.AppendParameter(L"A", ad::kVarChar, ad::kParamInput, 3, L"quatro"); }), kWrongValue);
  EXPECT_EQ(RaisedBy([&] { cmd.AppendParameter(L"A", ad::kInteger, ad::kParamInput, 0, L"x"); }), kWrongValue);
  cmd.AppendParameter(L"A", ad::kVarChar, ad::kParamInput, 3, L"um");
  EXPECT_EQ(RaisedBy([&] { cmd.SetParameterValue(0, L"quatro"); }), kWrongValue);
  EXPECT_EQ(cmd.ParameterAt(0).value, Value(L"um"));
}

TEST(CommandObject, WithoutAConnectionItRunsNothing) {
  Command cmd;
  cmd.SetCommandText(L"select 1");
  EXPECT_FALSE(cmd.HasActiveConnection());
  EXPECT_EQ(RaisedBy([&] { cmd.Execute(ad::kUnspecified); }), InvalidConnection(L"ADODB.Command"));
  Recordset rs;
  EXPECT_EQ(RaisedBy([&] { rs.Open(&cmd, {}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified); }),
            InvalidConnection(L"ADODB.Recordset"));
}

TEST(CommandObject, RefusesAClosedConnection) {
  Command cmd;
  Connection cn;
  EXPECT_EQ(RaisedBy([&] { cmd.SetActiveConnection(&cn); }), InvalidConnection(L"ADODB.Command"));
}

TEST(CommandObject, ARecordsetOnACommandTakesNoConnectionOfItsOwn) {
  Command cmd;
  Connection cn;
  Recordset rs;
  EXPECT_EQ(RaisedBy([&] { rs.Open(&cmd, &cn, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified); }),
            (Raised{3707, L"ADODB.Recordset",
                    L"Cannot change the ActiveConnection property of a Recordset object which has a Command object as "
                    L"its source."}));
}

}  // namespace
}  // namespace kodra::odbc

// Common parts of the tests of ADO in Wine: a database for each test, and short ways to call ADO.
//
// The tests use whatever ADODB is registered, through its interfaces or by member name, as its clients do.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "ado/adoint.h"
#include "tests/wine/automation.h"
#include "tests/wine/environment.h"

namespace kodra::face {

// A new object of a class; a failure fails the test and returns null.
template <class Interface>
Ref<Interface> NewObject(REFCLSID id) {
  Ref<Interface> object;
  const HRESULT hr = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.put_void());
  EXPECT_EQ(S_OK, hr) << std::hex << hr;
  return object;
}
inline Ref<_Connection> NewConnection() { return NewObject<_Connection>(__uuidof(::Connection)); }
inline Ref<_Recordset> NewRecordset() { return NewObject<_Recordset>(__uuidof(::Recordset)); }
inline Ref<_Command> NewCommand() { return NewObject<_Command>(__uuidof(::Command)); }

// An SQLite file that is deleted with this object.
class AdoDatabase {
 public:
  AdoDatabase() = default;
  AdoDatabase(const AdoDatabase&) = delete;
  AdoDatabase& operator=(const AdoDatabase&) = delete;
  ~AdoDatabase() { DeleteFileW(WindowsPath(DatabasePath()).c_str()); }

  // The path of the host, because the driver runs outside Wine.
  static std::wstring DatabasePath() { return L"/tmp/kodra-ado-" + std::to_wstring(GetCurrentProcessId()) + L".db"; }
  static std::wstring ConnectionString() { return ConnectionTo(DatabasePath()) + L";"; }

  static Ref<_Connection> OpenConnection() {
    auto connection = NewConnection();
    const HRESULT hr = connection->Open(Bstr(ConnectionString()), nullptr, nullptr, adConnectUnspecified);
    EXPECT_EQ(S_OK, hr) << std::hex << hr;
    return connection;
  }
  static void Execute(const Ref<_Connection>& connection, const wchar_t* statement) {
    const HRESULT hr =
        connection->Execute(Bstr(statement), nullptr, static_cast<LONG>(adExecuteNoRecords) | adCmdText, nullptr);
    EXPECT_EQ(S_OK, hr) << std::hex << hr;
  }
  // Three departments: ('00001', 'Administração', 10, 1), ('00002', 'Biblioteca', 20.5, 2) and ('00003', nulls).
  static Ref<_Connection> OpenWithDepartments() {
    auto connection = OpenConnection();
    Execute(connection, L"create table DEPTO (COD varchar(5), DESCR varchar(40), PESO double, ANDAR integer)");
    Execute(connection, L"insert into DEPTO values ('00001', 'Administração', 10, 1)");
    Execute(connection, L"insert into DEPTO values ('00002', 'Biblioteca', 20.5, 2)");
    Execute(connection, L"insert into DEPTO values ('00003', null, null, null)");
    return connection;
  }
};

class AdoTest : public testing::Test, protected AdoDatabase {};

// Opens a recordset forward-only and read-only on the server.
inline HRESULT OpenStream(const Ref<_Recordset>& rows, const wchar_t* statement, const Ref<_Connection>& connection) {
  return rows->Open(Var(statement), Var(connection.get()), adOpenForwardOnly, adLockReadOnly, adCmdText);
}
// The recordset of a statement, opened in the same way.
inline Ref<_Recordset> Stream(const Ref<_Connection>& connection, const wchar_t* statement) {
  auto rows = NewRecordset();
  EXPECT_EQ(S_OK, OpenStream(rows, statement, connection));
  return rows;
}
// Opens a recordset on its properties, or in memory when it has only fields.
inline HRESULT OpenWithoutArguments(const Ref<_Recordset>& rows) {
  return rows->Open(Var::Missing(), Var::Missing(), adOpenUnspecified, adLockUnspecified, adCmdUnspecified);
}
inline HRESULT AddNew(const Ref<_Recordset>& rows) { return rows->AddNew(Var::Missing(), Var::Missing()); }
inline HRESULT Update(const Ref<_Recordset>& rows) { return rows->Update(Var::Missing(), Var::Missing()); }

inline Ref<Fields> FieldsOf(const Ref<_Recordset>& rows) {
  Ref<Fields> fields;
  EXPECT_EQ(S_OK, rows->get_Fields(fields.put()));
  return fields;
}
// Appends a field to a recordset that is not open.
inline HRESULT AppendField(const Ref<_Recordset>& rows, const wchar_t* name, DataTypeEnum type, ADO_LONGPTR size,
                           FieldAttributeEnum attributes = adFldUnspecified) {
  return FieldsOf(rows)->Append(Bstr(name), type, size, attributes, Var::Missing());
}
inline Ref<Field> FieldOf(const Ref<_Recordset>& rows, const Var& index) {
  Ref<Field> field;
  EXPECT_EQ(S_OK, FieldsOf(rows)->get_Item(index, field.put()));
  return field;
}
inline Var ValueOf(const Ref<Field>& field) {
  Var value;
  EXPECT_EQ(S_OK, field->get_Value(value.put()));
  return value;
}
inline bool AtEnd(const Ref<_Recordset>& rows) {
  VARIANT_BOOL atEnd = VARIANT_FALSE;
  EXPECT_EQ(S_OK, rows->get_EOF(&atEnd));
  return atEnd != VARIANT_FALSE;
}
// The state of a connection or of a recordset.
template <class Object>
LONG StateOf(const Ref<Object>& object) {
  LONG state = -1;
  EXPECT_EQ(S_OK, object->get_State(&state));
  return state;
}

}  // namespace kodra::face

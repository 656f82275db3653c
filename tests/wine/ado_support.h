// The common part of the tests of ADO in Wine: an SQLite file of their own, and short ways to call ADO.
//
// They use whatever ADODB is registered, through its interfaces or by member name, as its clients do.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "ado/adoint.h"
#include "comkit/com_ptr.h"

namespace kodra::wine {

using comkit::com_ptr;

// The content of an IErrorInfo, with the HRESULT that came with it.
struct ComError {
  unsigned long code = 0;
  std::wstring source;
  std::wstring description;
};

// Takes the thread's IErrorInfo. REQUIRES: called right after the call that returned `hr`.
inline ComError TakeError(HRESULT hr) {
  ComError error{static_cast<unsigned long>(hr), {}, {}};
  com_ptr<IErrorInfo> info;
  if (GetErrorInfo(0, info.put()) != S_OK) return error;
  BSTR text = nullptr;
  if (SUCCEEDED(info->GetSource(&text)) && text != nullptr) error.source = text;
  SysFreeString(text);
  text = nullptr;
  if (SUCCEEDED(info->GetDescription(&text)) && text != nullptr) error.description = text;
  SysFreeString(text);
  return error;
}

// An owned VARIANT, for arguments and results.
class Variant {
 public:
  Variant() { VariantInit(&v_); }
  Variant(const wchar_t* text) : Variant() {
    V_VT(&v_) = VT_BSTR;
    V_BSTR(&v_) = SysAllocString(text);
  }
  Variant(LONG number) : Variant() {
    V_VT(&v_) = VT_I4;
    V_I4(&v_) = number;
  }
  Variant(double number) : Variant() {
    V_VT(&v_) = VT_R8;
    V_R8(&v_) = number;
  }
  Variant(IDispatch* object) : Variant() {
    V_VT(&v_) = VT_DISPATCH;
    V_DISPATCH(&v_) = com_ptr<IDispatch>(object).detach();
  }
  Variant(const Variant& other) : Variant() { VariantCopy(&v_, const_cast<VARIANT*>(&other.v_)); }
  Variant& operator=(const Variant& other) {
    VariantCopy(&v_, const_cast<VARIANT*>(&other.v_));
    return *this;
  }
  ~Variant() { VariantClear(&v_); }

  // An argument left out.
  static Variant Missing() {
    Variant v;
    V_VT(&v.v_) = VT_ERROR;
    V_ERROR(&v.v_) = DISP_E_PARAMNOTFOUND;
    return v;
  }

  VARIANT* put() {
    VariantClear(&v_);
    return &v_;
  }
  // ADO takes its arguments by value and leaves their ownership to the caller.
  operator VARIANT() const { return v_; }
  VARTYPE Type() const { return V_VT(&v_); }
  LONG Number() const { return V_I4(&v_); }
  double Real() const { return V_R8(&v_); }
  IDispatch* Object() const { return V_DISPATCH(&v_); }
  std::wstring Text() const {
    if (V_VT(&v_) != VT_BSTR) return L"(no text)";
    return std::wstring(V_BSTR(&v_), SysStringLen(V_BSTR(&v_)));
  }

 private:
  VARIANT v_;
};

class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(const std::wstring& text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }
  operator BSTR() const { return text_; }
  BSTR* put() {
    SysFreeString(text_);
    text_ = nullptr;
    return &text_;
  }
  std::wstring Text() const { return text_ == nullptr ? std::wstring() : std::wstring(text_, SysStringLen(text_)); }

 private:
  BSTR text_ = nullptr;
};

// An object of a class by its interface's id; a failure shows in the test, and the result is null.
template <class Interface>
com_ptr<Interface> Create(REFCLSID id) {
  com_ptr<Interface> object;
  const HRESULT hr = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.put_void());
  EXPECT_EQ(S_OK, hr) << std::hex << hr;
  return object;
}
inline com_ptr<_Connection> NewConnection() { return Create<_Connection>(__uuidof(::Connection)); }
inline com_ptr<_Recordset> NewRecordset() { return Create<_Recordset>(__uuidof(::Recordset)); }
inline com_ptr<_Command> NewCommand() { return Create<_Command>(__uuidof(::Command)); }

// An SQLite file for the test, which is deleted with it.
class AdoTest : public testing::Test {
 protected:
  void TearDown() override { DeleteFileW((L"Z:" + DatabasePath()).c_str()); }

  // In the form for the driver, which runs outside Windows.
  static std::wstring DatabasePath() { return L"/tmp/kodra-ado-" + std::to_wstring(GetCurrentProcessId()) + L".db"; }
  static std::wstring ConnectionString() { return L"Driver={SQLite3};Database=" + DatabasePath() + L";"; }

  static com_ptr<_Connection> OpenConnection() {
    auto connection = NewConnection();
    const HRESULT hr = connection->Open(Bstr(ConnectionString()), nullptr, nullptr, adConnectUnspecified);
    EXPECT_EQ(S_OK, hr) << std::hex << hr;
    return connection;
  }
  static void Execute(const com_ptr<_Connection>& connection, const wchar_t* statement) {
    const HRESULT hr =
        connection->Execute(Bstr(statement), nullptr, static_cast<LONG>(adExecuteNoRecords) | adCmdText, nullptr);
    EXPECT_EQ(S_OK, hr) << std::hex << hr;
  }
  // Three departments: ('00001', 'Administração', 10), ('00002', 'Biblioteca', 20.5), ('00003', null, null).
  static com_ptr<_Connection> OpenWithDepartments() {
    auto connection = OpenConnection();
    Execute(connection, L"create table DEPTO (COD varchar(5), DESCR varchar(40), PESO double, ANDAR integer)");
    Execute(connection, L"insert into DEPTO values ('00001', 'Administra\u00e7\u00e3o', 10, 1)");
    Execute(connection, L"insert into DEPTO values ('00002', 'Biblioteca', 20.5, 2)");
    Execute(connection, L"insert into DEPTO values ('00003', null, null, null)");
    return connection;
  }
  // Forward-only, read-only, on the server.
  static HRESULT OpenStream(const com_ptr<_Recordset>& rows, const wchar_t* statement,
                            const com_ptr<_Connection>& connection) {
    return rows->Open(Variant(statement), Variant(connection.get()), adOpenForwardOnly, adLockReadOnly, adCmdText);
  }
};

inline com_ptr<Field> FieldOf(const com_ptr<_Recordset>& rows, const Variant& index) {
  com_ptr<Fields> fields;
  com_ptr<Field> field;
  EXPECT_EQ(S_OK, rows->get_Fields(fields.put()));
  if (fields) {
    EXPECT_EQ(S_OK, fields->get_Item(index, field.put()));
  }
  return field;
}
inline Variant ValueOf(const com_ptr<Field>& field) {
  Variant value;
  EXPECT_EQ(S_OK, field->get_Value(value.put()));
  return value;
}
inline bool AtEnd(const com_ptr<_Recordset>& rows) {
  VARIANT_BOOL atEnd = VARIANT_FALSE;
  EXPECT_EQ(S_OK, rows->get_EOF(&atEnd));
  return atEnd != VARIANT_FALSE;
}

// The last reference: releases it and returns how many are left.
template <class T>
ULONG ReleaseLast(com_ptr<T>& object) {
  return object.detach()->Release();
}

}  // namespace kodra::wine

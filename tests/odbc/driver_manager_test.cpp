// The handles that a connection allocates and frees, and messages longer than those of any driver here.
//
// The functions of this program replace those of the driver manager and call them.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "odbc/engine/connection.h"
#include "odbc/engine/odbc_api.h"
#include "tests/odbc/raised.h"

namespace {

// The number of connection handles that are allocated and not freed.
int connections = 0;

// The messages for every failure; while this is empty, the driver manager's are used.
std::vector<std::u16string> messages;

template <class Function>
Function DriverManagers(Function, const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT type, SQLHANDLE parent, SQLHANDLE* handle) {
  const SQLRETURN result = DriverManagers(&SQLAllocHandle, "SQLAllocHandle")(type, parent, handle);
  if (type == SQL_HANDLE_DBC && SQL_SUCCEEDED(result)) ++connections;
  return result;
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT type, SQLHANDLE handle) {
  const SQLRETURN result = DriverManagers(&SQLFreeHandle, "SQLFreeHandle")(type, handle);
  if (type == SQL_HANDLE_DBC && SQL_SUCCEEDED(result)) --connections;
  return result;
}

SQLRETURN SQL_API SQLGetDiagRecW(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT record, SQLWCHAR* state,
                                 SQLINTEGER* native, SQLWCHAR* text, SQLSMALLINT room, SQLSMALLINT* length) {
  if (messages.empty()) {
    return DriverManagers(&SQLGetDiagRecW, "SQLGetDiagRecW")(type, handle, record, state, native, text, room, length);
  }
  if (static_cast<std::size_t>(record) > messages.size()) return SQL_NO_DATA;
  const std::u16string& message = messages[static_cast<std::size_t>(record) - 1];
  const std::size_t copied = std::min(message.size(), static_cast<std::size_t>(room) - 1);
  std::copy_n(u"HY000", 6, state);
  *native = record;
  std::copy_n(message.data(), copied, text);
  text[copied] = 0;
  *length = static_cast<SQLSMALLINT>(message.size());
  return copied == message.size() ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}
}

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

tests::Raised OpenOf(Connection& cn, const wchar_t* connectionString) {
  cn.SetConnectionString(connectionString);
  return tests::RaisedBy([&] { cn.Open(L"", L"", ad::kUnspecified); });
}

// Opens twice, with one object.
void ExpectToFailAndLeaveNothing(const wchar_t* connectionString, const wchar_t* message) {
  const int before = connections;
  Connection cn;
  for (int attempt = 0; attempt < 2; ++attempt) {
    EXPECT_EQ(OpenOf(cn, connectionString).description, message);
    EXPECT_EQ(cn.State(), ad::kStateClosed);
    EXPECT_EQ(connections, before);
  }
}

TEST(DriverManager, FreesTheHandleOfAnOpenConnectionWithTheConnection) {
  const int before = connections;
  {
    Connection cn;
    EXPECT_EQ(OpenOf(cn, L"Driver={SQLite3};Database=:memory:"), tests::Raised());
    EXPECT_EQ(connections, before + 1);
  }
  EXPECT_EQ(connections, before);
}

TEST(DriverManager, FreesTheHandleWhenNoDriverIsFound) {
  ExpectToFailAndLeaveNothing(L"DSN=NaoExiste",
                              L"[unixODBC][Driver Manager]Data source name not found and no default driver specified");
}

TEST(DriverManager, FreesTheHandleWhenTheDriverCannotConnect) {
  ExpectToFailAndLeaveNothing(L"Driver={SQLite3};Database=/nao/existe/a.db", L"[SQLite]connect failed");
}

TEST(DriverManager, PassesOnWholeMessagesOfAnyLength) {
  for (const std::size_t length : {1U, 511U, 512U, 513U, 1024U, 32765U}) {
    messages = {std::u16string(length - 1, u'a') + u'!', u"curta", std::u16string(length, u'b') + u'!'};
    Connection cn;
    const std::wstring first = std::wstring(length - 1, L'a') + L'!';
    EXPECT_EQ(OpenOf(cn, L"DSN=NaoExiste"), (tests::Raised{static_cast<std::int32_t>(0x80004005U),
                                                           L"Microsoft OLE DB Provider for ODBC Drivers", first}));
    ASSERT_EQ(cn.ErrorCount(), 3);
    EXPECT_EQ(cn.Errors()[0].description, first);
    EXPECT_EQ(cn.Errors()[1].description, L"curta");
    EXPECT_EQ(cn.Errors()[2].description, std::wstring(length, L'b') + L'!');
    EXPECT_EQ(cn.NativeError(2), 3);
  }
  messages.clear();
}

}  // namespace
}  // namespace kodra::odbc

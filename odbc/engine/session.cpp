#include "odbc/engine/session.h"

#include <algorithm>
#include <limits>
#include <mutex>
#include <utility>

#include "odbc/engine/connection_string.h"
#include "odbc/engine/driver_quirks.h"
#include "odbc/engine/recordset.h"
#include "odbc/engine/utf8_locale.h"
#include "values/utf16.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

SQLWCHAR* AsWide(std::u16string& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }

std::wstring FromWide(const SQLWCHAR* text, std::size_t length) {
  static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));
  return values::FromUtf16({reinterpret_cast<const char16_t*>(text), length});
}

// ODBC takes the length of a connection string as a number of 16 bits, which cuts a longer one silently.
void RequireFitting(std::u16string_view connectionString) {
  constexpr SQLSMALLINT kMost = std::numeric_limits<SQLSMALLINT>::max();
  if (connectionString.size() <= static_cast<std::size_t>(kMost)) return;
  throw ForeignErro(
      static_cast<std::int32_t>(0x80004005U), std::wstring(kProviderSource),
      L"A string de conexão é longa demais: o ODBC aceita até " + std::to_wstring(kMost) + L" caracteres.");
}

// One environment for the process, never freed: a driver manager that loses its last environment unloads its drivers,
// and not every driver can be loaded twice.
SQLHENV Environment() {
  static SQLHENV const environment = [] {
    SQLHENV handle = nullptr;
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handle);
    SQLSetEnvAttr(handle, SQL_ATTR_ODBC_VERSION, AsAttribute(SQL_OV_ODBC3), 0);
    return handle;
  }();
  return environment;
}

std::vector<ProviderError> Diagnostics(SQLSMALLINT handleType, SQLHANDLE handle, Stage stage) {
  std::vector<ProviderError> errors;
  std::u16string message(512, u'\0');
  for (SQLSMALLINT record = 1;; ++record) {
    SQLWCHAR state[6] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const auto room = [&] { return static_cast<SQLSMALLINT>(message.size()); };
    SQLRETURN result = SQLGetDiagRecW(handleType, handle, record, state, &native, AsWide(message), room(), &length);
    if (result == SQL_SUCCESS_WITH_INFO && length >= room()) {
      message.resize(static_cast<std::size_t>(length) + 1);
      result = SQLGetDiagRecW(handleType, handle, record, state, &native, AsWide(message), room(), &length);
    }
    if (!SQL_SUCCEEDED(result)) return errors;
    // The text ends with its zero: not every driver counts its characters correctly.
    const std::size_t given = std::min(message.find(u'\0'), message.size());
    ProviderError error;
    error.sqlState = FromWide(state, 5);
    error.number = HresultOfSqlState(error.sqlState, stage);
    error.source = kProviderSource;
    error.description = values::FromUtf16(std::u16string_view(message).substr(0, given));
    error.nativeError = native;
    errors.push_back(std::move(error));
  }
}

// Connections are made and ended one at a time: Wine's driver manager sometimes loses one when several threads do so at
// once, and does not say why.
std::mutex& Connecting() {
  static std::mutex mutex;
  return mutex;
}

SQLUINTEGER OdbcIsolation(std::int32_t level) {
  switch (level) {
    case ad::kXactReadUncommitted:
      return SQL_TXN_READ_UNCOMMITTED;
    case ad::kXactReadCommitted:
      return SQL_TXN_READ_COMMITTED;
    case ad::kXactRepeatableRead:
      return SQL_TXN_REPEATABLE_READ;
    case ad::kXactSerializable:
      return SQL_TXN_SERIALIZABLE;
    default:
      return 0;
  }
}

std::wstring DriverName(SQLHDBC handle) {
  SQLWCHAR name[256] = {};
  SQLSMALLINT bytes = 0;
  if (!SQL_SUCCEEDED(SQLGetInfoW(handle, SQL_DRIVER_NAME, name, sizeof name, &bytes))) return {};
  return FromWide(name, std::min<std::size_t>(static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR), 255));
}

}  // namespace

Session::~Session() { Close(); }

void Session::Open(const std::wstring& user, const std::wstring& password) {
  const std::wstring odbc = ToOdbcConnectionString(properties_.connectionString, user, password);
  std::u16string wide = values::ToUtf16(WithStreaming(odbc));
  RequireFitting(wide);
  const Utf8Locale narrowTextIsUtf8;
  const std::lock_guard oneAtATime(Connecting());
  SQLHDBC handle = nullptr;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, Environment(), &handle))) {
    Fail(SQL_HANDLE_ENV, Environment(), Stage::kConnect);
  }
  SQLSetConnectAttrW(handle, SQL_ATTR_LOGIN_TIMEOUT,
                     AsAttribute(static_cast<std::uintptr_t>(properties_.connectionTimeout)), SQL_IS_UINTEGER);
  SQLWCHAR completed[1024];
  SQLSMALLINT completedLength = 0;
  const SQLRETURN result =
      SQLDriverConnectW(handle, nullptr, AsWide(wide), static_cast<SQLSMALLINT>(wide.size()), completed,
                        static_cast<SQLSMALLINT>(std::size(completed)), &completedLength, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(result)) {
    struct Freed {
      SQLHDBC handle;
      ~Freed() { SQLFreeHandle(SQL_HANDLE_DBC, handle); }
    } freed{handle};
    Fail(SQL_HANDLE_DBC, handle, Stage::kConnect);
  }
  handle_ = handle;
  const std::wstring driver = DriverName(handle);
  typesVaryByRow_ = odbc::TypesVaryByRow(driver);
  textIsUtf8_ = odbc::TextIsUtf8(driver, odbc);
  canBeCancelled_ = odbc::CanBeCancelled(driver);
  ApplyIsolationLevel();
}

void Session::Close() noexcept {
  if (!IsOpen()) return;
  for (Recordset* recordset : std::exchange(recordsets_, {})) recordset->ConnectionClosed();
  if (inTransaction_) SQLEndTran(SQL_HANDLE_DBC, handle_, SQL_ROLLBACK);
  inTransaction_ = false;
  const std::lock_guard oneAtATime(Connecting());
  SQLDisconnect(handle_);
  SQLFreeHandle(SQL_HANDLE_DBC, handle_);
  handle_ = nullptr;
}

std::wstring Session::CurrentDatabase() {
  SQLWCHAR name[512] = {};
  SQLINTEGER bytes = 0;
  if (!SQL_SUCCEEDED(SQLGetConnectAttrW(handle_, SQL_ATTR_CURRENT_CATALOG, name, sizeof name, &bytes))) return {};
  const std::size_t given = static_cast<std::size_t>(std::max<SQLINTEGER>(bytes, 0)) / sizeof(SQLWCHAR);
  return FromWide(name, std::min(given, std::size(name) - 1));
}

void Session::SetCurrentDatabase(const std::wstring& name) {
  std::u16string wide = values::ToUtf16(name);
  // MariaDB's driver would take a length in bytes, which ODBC asks for, as one in characters.
  if (!SQL_SUCCEEDED(SQLSetConnectAttrW(handle_, SQL_ATTR_CURRENT_CATALOG, AsWide(wide), SQL_NTS))) {
    Fail(SQL_HANDLE_DBC, handle_, Stage::kExecute);
  }
}

void Session::ApplyIsolationLevel() noexcept {
  const SQLUINTEGER level = OdbcIsolation(properties_.isolationLevel);
  if (IsOpen() && level != 0) SQLSetConnectAttrW(handle_, SQL_ATTR_TXN_ISOLATION, AsAttribute(level), SQL_IS_UINTEGER);
}

void Session::BeginTransaction() {
  if (inTransaction_) Raise(ProviderFault::kTransactionActive);
  const SQLRETURN result =
      SQLSetConnectAttrW(handle_, SQL_ATTR_AUTOCOMMIT, AsAttribute(SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER);
  if (!SQL_SUCCEEDED(result)) Fail(SQL_HANDLE_DBC, handle_, Stage::kExecute);
  inTransaction_ = true;
}

void Session::EndTransaction(bool commit) {
  if (!inTransaction_) Raise(ProviderFault::kNoTransaction);
  if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, handle_, commit ? SQL_COMMIT : SQL_ROLLBACK))) {
    Fail(SQL_HANDLE_DBC, handle_, Stage::kExecute);
  }
  inTransaction_ = false;
  SQLSetConnectAttrW(handle_, SQL_ATTR_AUTOCOMMIT, AsAttribute(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER);
}

void Session::Join(Recordset* recordset) { recordsets_.push_back(recordset); }

void Session::Leave(Recordset* recordset) noexcept { std::erase(recordsets_, recordset); }

void Session::Fail(SQLSMALLINT handleType, SQLHANDLE handle, Stage stage) {
  errors_ = Diagnostics(handleType, handle, stage);
  if (errors_.empty()) {
    errors_.push_back(
        {static_cast<std::int32_t>(0x80004005U), std::wstring(kProviderSource), L"Unspecified error", L"HY000", 0});
  }
  // Warnings may precede the error; the driver manager itself reports a missing driver only as a warning.
  const auto isError = [](const ProviderError& error) { return error.sqlState.substr(0, 2) != L"01"; };
  const auto found = std::find_if(errors_.begin(), errors_.end(), isError);
  const ProviderError& raised = found == errors_.end() ? errors_.front() : *found;
  throw ForeignErro(raised.number, raised.source, raised.description);
}

}  // namespace kodra::odbc

#include "console/check/odbc_inspector.h"

#include <map>

#include "data/connection_string.h"
#include "odbc/engine/cancellation.h"
#include "odbc/engine/odbc_api.h"
#include "odbc/engine/session.h"
#include "odbc/engine/statement.h"
#include "values/upper.h"
#include "values/utf16.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

namespace ad = platform::ad;
using odbc::Stage;

// A statement handle for ODBC's catalogue functions.
class CatalogRows {
 public:
  explicit CatalogRows(odbc::Session& session) : session_(session) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, session.Handle(), &handle_)))
      session.Fail(SQL_HANDLE_DBC, session.Handle(), Stage::kExecute);
  }
  ~CatalogRows() { SQLFreeHandle(SQL_HANDLE_STMT, handle_); }
  CatalogRows(const CatalogRows&) = delete;
  CatalogRows& operator=(const CatalogRows&) = delete;

  SQLHSTMT Handle() const { return handle_; }
  // For the declaration of what runs; null if the driver cannot stop it.
  void* Cancellable() const { return session_.CanBeCancelled() ? handle_ : nullptr; }
  void Check(SQLRETURN result) const {
    if (!SQL_SUCCEEDED(result)) session_.Fail(SQL_HANDLE_STMT, handle_, Stage::kExecute);
  }
  bool Next() const {
    const SQLRETURN result = SQLFetch(handle_);
    if (result == SQL_NO_DATA) return false;
    Check(result);
    return true;
  }
  // Empty for a null. The names of the reports' tables and columns are plain ASCII; other names are only passed over.
  std::string Text(SQLUSMALLINT column) const {
    char text[256] = {};
    SQLLEN length = 0;
    Check(SQLGetData(handle_, column, SQL_C_CHAR, text, sizeof text, &length));
    return length == SQL_NULL_DATA ? std::string() : std::string(text);
  }
  int Number(SQLUSMALLINT column) const {
    SQLSMALLINT number = 0;
    SQLLEN length = 0;
    Check(SQLGetData(handle_, column, SQL_C_SSHORT, &number, sizeof number, &length));
    return length == SQL_NULL_DATA ? 0 : number;
  }

 private:
  odbc::Session& session_;
  SQLHSTMT handle_ = nullptr;
};

SQLCHAR* AsName(std::string& name) { return reinterpret_cast<SQLCHAR*>(name.data()); }

std::string Upper(const std::string& text) { return values::ToUtf8(values::UpperCase(values::FromUtf8(text))); }

std::string Info(odbc::Session& session, SQLUSMALLINT kind) {
  SQLWCHAR text[256] = {};
  SQLSMALLINT bytes = 0;
  if (!SQL_SUCCEEDED(SQLGetInfoW(session.Handle(), kind, text, sizeof text, &bytes))) return {};
  const auto* const units = reinterpret_cast<const char16_t*>(text);
  return values::ToUtf8(values::FromUtf16({units, std::char_traits<char16_t>::length(units)}));
}

// The columns of each index, by their place in it.
using ColumnsByPlace = std::map<int, std::string>;

std::vector<std::string> InOrder(const ColumnsByPlace& columns) {
  std::vector<std::string> names;
  for (const auto& [place, name] : columns) names.push_back(Upper(name));
  return names;
}

}  // namespace

std::unique_ptr<OdbcInspector> OdbcInspector::Open(const std::wstring& connectionString) {
  const std::wstring provider = values::UpperCase(data::ReadKey(connectionString, L"Provider"));
  if (!provider.empty() && !provider.starts_with(L"MSDASQL")) return nullptr;
  auto connection = std::make_unique<odbc::Connection>();
  connection->Open(connectionString, L"", L"", ad::kUnspecified);
  return std::unique_ptr<OdbcInspector>(new OdbcInspector(std::move(connection)));
}

std::string OdbcInspector::Product() const {
  odbc::Session& session = *connection_->SharedSession();
  const std::string name = Info(session, SQL_DBMS_NAME);
  const std::string version = Info(session, SQL_DBMS_VER);
  return name + (name.empty() || version.empty() ? "" : " ") + version;
}

std::string OdbcInspector::DatabaseName() const { return Info(*connection_->SharedSession(), SQL_DATABASE_NAME); }

void OdbcInspector::Prepare(const std::wstring& statement) {
  const odbc::Statement prepared(*connection_->SharedSession(), statement, {}, {});
  // Some drivers pass a statement on only when they are asked about its result.
  SQLSMALLINT columns = 0;
  if (!SQL_SUCCEEDED(SQLNumResultCols(prepared.Handle(), &columns))) prepared.Fail(Stage::kPrepare);
}

std::vector<std::vector<std::string>> OdbcInspector::Indexes(const std::string& table) {
  odbc::Session& session = *connection_->SharedSession();
  std::string name = table;
  std::map<std::string, ColumnsByPlace> indexes;
  const CatalogRows statistics(session);
  const odbc::Running runsStatistics(statistics.Cancellable());
  statistics.Check(
      SQLStatistics(statistics.Handle(), nullptr, 0, nullptr, 0, AsName(name), SQL_NTS, SQL_INDEX_ALL, SQL_QUICK));
  while (statistics.Next()) {
    // Not every driver reads a column after a later one.
    const std::string index = statistics.Text(6);
    const int place = statistics.Number(8);
    const std::string column = statistics.Text(9);
    // The row about the table itself has none.
    if (!column.empty()) indexes[index][place] = column;
  }
  ColumnsByPlace key;
  const CatalogRows keys(session);
  const odbc::Running runsKeys(keys.Cancellable());
  keys.Check(SQLPrimaryKeys(keys.Handle(), nullptr, 0, nullptr, 0, AsName(name), SQL_NTS));
  while (keys.Next()) {
    const std::string column = keys.Text(4);
    key[keys.Number(5)] = column;
  }
  std::vector<std::vector<std::string>> all = {InOrder(key)};
  for (const auto& [index, columns] : indexes) all.push_back(InOrder(columns));
  return all;
}

std::vector<std::int64_t> OdbcInspector::Lengths(const std::wstring& table, const std::vector<std::wstring>& columns) {
  std::wstring list;
  for (const std::wstring& column : columns) list += (list.empty() ? L"" : L", ") + column;
  odbc::Statement statement(*connection_->SharedSession(), L"SELECT " + list + L" FROM " + table + L" WHERE 1=0", {},
                            {});
  statement.Execute();
  std::vector<std::int64_t> lengths;
  for (const odbc::Column& column : statement.Columns()) lengths.push_back(column.info.definedSize);
  return lengths;
}

}  // namespace kodra::console

#include "tests/reports/databases.h"

#include <algorithm>

namespace kodra::reports {
namespace {

Database Oracle(std::int32_t code) {
  return {
      .code = code,
      .connectionString = "Provider=OraOLEDB.Oracle;Data Source=ARQ;User ID=kodra",
      .prepared =
          "Provider=OraOLEDB.Oracle;Data Source=ARQ;User ID=kodra;Persist Security Info=True;"
          "Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;",
      .before = {R"(SetEnvironment("NLS_LANG", "BRAZILIAN PORTUGUESE_BRAZIL.WE8MSWIN1252"))"},
      .after = {"Connection1.State() -> 1",
                "Connection1.Execute(\"alter session set nls_language='brazilian portuguese' "
                "nls_territory='brazil'\", -1)"},
  };
}

}  // namespace

std::string All(std::initializer_list<CallLines> parts) {
  std::string text;
  for (const CallLines& part : parts)
    for (const std::string& line : part) text += line + "\n";
  return text;
}

void Append(CallLines& lines, const CallLines& more) { lines.insert(lines.end(), more.begin(), more.end()); }

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string Replaced(std::string text, std::string_view word, std::string_view replacement) {
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + replacement.size()))
    text.replace(at, word.size(), replacement);
  return text;
}

bool StartsWithAny(std::string_view text, std::initializer_list<std::string_view> starts) {
  return std::any_of(starts.begin(), starts.end(), [&](std::string_view start) { return text.starts_with(start); });
}

const std::vector<Database>& Databases() {
  static const std::vector<Database> databases = {
      Oracle(tbOracle),
      {
          .code = tbSQLServer,
          .connectionString = "Provider=SQLNCLI11;Data Source=arquivo;",
          .prepared = "Provider=SQLNCLI11;Data Source=arquivo;Persist Security Info=True;",
      },
      {
          .code = tbMySQL,
          .connectionString = "Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo",
          .prepared = "Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo;Persist Security Info=True;",
      },
      {
          .code = tbOther4,
          .connectionString = "Provider=Outro",
          .prepared = "Provider=Outro;Persist Security Info=True;",
      },
      Oracle(tbOracleAlt),
      {
          .code = tbDB2,
          .connectionString = "Provider=IBMDADB2;Data Source=arquivo;",
          .prepared = "Provider=IBMDADB2;Data Source=arquivo;Persist Security "
                      "Info=True;IgnoreWarnList=\"'02000'\";Patch1=1024;",
      },
      {
          .code = tbSQLite,
          .connectionString = "Driver=SQLite3;Database=/dados/arquivo.db",
          .prepared = "Driver=SQLite3;Database=/dados/arquivo.db;Persist Security Info=True;OEMCP=1;FKSupport=true;",
          .before = {R"(FileLength("/dados/arquivo.db") -> 4096)"},
      },
  };
  return databases;
}

const Database& DatabaseOf(std::int32_t code) {
  return *std::find_if(Databases().begin(), Databases().end(),
                       [&](const Database& database) { return database.code == code; });
}

void Install(const Database& database, recorder::FakeSurroundings& around) {
  around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {database.code}}});
  around.files[L"/dados/arquivo.db"] = 4096;
}

CallLines InitialisationLines(const Database& database) {
  return {
      R"(CreateObject("KodraConexao.StrCon") -> Object1)",
      "Object1.Let(StrCon, " + Quoted(database.connectionString) + ")",
      "Object1.Get(TipoBanco) -> " + std::to_string(database.code),
      "~Object1",
  };
}

CallLines OpeningLines(const Database& database) {
  CallLines lines = database.before;
  Append(lines, {
                    "NewConnection() -> Connection1",
                    "Connection1.SetConnectionString(" + Quoted(database.prepared) + ")",
                    "Connection1.SetCursorLocation(2)",
                    "Connection1.SetIsolationLevel(4096)",
                    R"(Connection1.Open("", "", -1))",
                });
  Append(lines, database.after);
  return lines;
}

CallLines OpeningRows(const Database& database, std::string_view statement, int connection, int recordset) {
  const std::string opened = "Connection" + std::to_string(connection);
  const std::string rows = "Recordset" + std::to_string(recordset);
  CallLines lines = OpeningLines(database);
  for (std::string& line : lines) line = Replaced(line, "Connection1", opened);
  Append(lines, {
                    "NewRecordset() -> " + rows,
                    rows + ".SetCursorLocation(2)",
                    rows + ".SetCacheSize(100)",
                    rows + ".Open(" + Quoted(statement) + ", " + opened + ", 0, 1, 1)",
                    "~" + opened,
                });
  return lines;
}

std::string ListingCalls(const Database& database, std::string_view statement, const CallLines& before) {
  return All({InitialisationLines(database), before, OpeningRows(database, statement, 1, 1), {"~Recordset1"}});
}

}  // namespace kodra::reports

#include "tests/reports/listing_checks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <stdexcept>

namespace kodra::reports {
namespace {

using recorder::Failure;
using recorder::Framed;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Utf8;

std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

void Append(std::vector<std::string>& lines, const std::vector<std::string>& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

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

// A way for a call to fail, and what it is called in a description.
struct Mishap {
  std::exception_ptr exception;
  std::string source;
  std::string text;
};

std::vector<Mishap> Mishaps() {
  return {
      {Failure(Erro(-2147220000, L"Prova.Fonte", L"Falha provocada")), "Prova.Fonte", "Falha provocada"},
      {Failure(std::bad_alloc()), "KodraRpt", "Memória insuficiente"},
      {Failure(std::runtime_error("unexpected")), "KodraRpt", "Erro interno"},
  };
}

bool StartsWithAny(std::wstring_view call, std::initializer_list<std::wstring_view> starts) {
  return std::any_of(starts.begin(), starts.end(), [&](std::wstring_view start) { return call.starts_with(start); });
}

// The calls whose failure a report goes on without.
bool IsIgnored(std::wstring_view call) {
  return StartsWithAny(call, {
                                 // setting the language of an Oracle session
                                 L"Connection1.State(",
                                 L"Connection1.Execute(",
                                 // detaching a command whose rows are already at the client
                                 L"Command1.HasActiveConnection(",
                                 L"Command1.SetActiveConnection(Nothing)",
                             });
}

// The description that a mishap in a call has when it reaches the frame. The provider's native code is 942.
std::string Cause(const Subject& subject, std::wstring_view call, const Mishap& mishap) {
  const std::string layered = "[" + mishap.source + "]: " + mishap.text;
  const bool connecting = StartsWithAny(call, {L"SetEnvironment(", L"FileLength(", L"NewConnection(", L"Connection1."});
  if (connecting) return subject.firehose ? "[modADO.AbreCn]: " + layered : layered;
  const bool opening = StartsWithAny(call, {L"NewRecordset(", L"Recordset1."});
  return opening && subject.firehose ? layered + " [N:942]" : mishap.text;
}

void CheckEachCallFailing(const Subject& subject, const Database& database, const Mishap& mishap) {
  Stage stage(subject, database);
  const std::string undisturbed = stage.Run();
  const int calls = stage.around.journal.CallCount();
  for (int failing = 1; failing <= calls; ++failing) {
    stage.around.journal.Forget();
    stage.around.journal.FailAt(failing, mishap.exception);
    stage.around.ado.nativeErrors = {942};
    const Raised raised = RaisedBy([&] { EXPECT_NE(stage.Call(), nullptr); });
    const std::wstring call = stage.around.journal.FailedCall();
    SCOPED_TRACE(Utf8(call));
    const Raised nothing = {0, "", "nothing was raised"};
    EXPECT_EQ(raised, IsIgnored(call) ? nothing : Framed(subject.name, Cause(subject, call, mishap)));
    EXPECT_EQ(stage.around.journal.LiveObjects(), 1);  // the client's parameter object
    EXPECT_EQ(stage.Run(), undisturbed);
  }
}

// Expects the frame around a cause when a report is called with that connection string and parameter object.
void CheckRefused(const Subject& subject, const std::wstring& connectionString, bool withParameters,
                  const std::string& cause) {
  recorder::FakeSurroundings around;
  around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {7}}});
  const ObjectRef parameters = withParameters ? around.NewObject(L"Parametros", subject.parameters) : ObjectRef{};
  const Report call = subject.make(around, connectionString);
  EXPECT_EQ(RaisedBy([&] { call(parameters.get()); }), Framed(subject.name, cause));
}

}  // namespace

const std::vector<Database>& Databases() {
  static const std::vector<Database> databases = {
      Oracle(1),
      {
          .code = 2,
          .connectionString = "Provider=SQLNCLI11;Data Source=arquivo;",
          .prepared = "Provider=SQLNCLI11;Data Source=arquivo;Persist Security Info=True;",
      },
      {
          .code = 3,
          .connectionString = "Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo",
          .prepared = "Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo;Persist Security Info=True;",
      },
      {
          .code = 4,
          .connectionString = "Provider=Outro",
          .prepared = "Provider=Outro;Persist Security Info=True;",
      },
      Oracle(5),
      {
          .code = 6,
          .connectionString = "Provider=IBMDADB2;Data Source=arquivo;",
          .prepared = "Provider=IBMDADB2;Data Source=arquivo;Persist Security "
                      "Info=True;IgnoreWarnList=\"'02000'\";Patch1=1024;",
      },
      {
          .code = 7,
          .connectionString = "Driver=SQLite3;Database=/dados/arquivo.db",
          .prepared = "Driver=SQLite3;Database=/dados/arquivo.db;Persist Security Info=True;OEMCP=1;FKSupport=true;",
          .before = {R"(FileLength("/dados/arquivo.db") -> 4096)"},
      },
  };
  return databases;
}

const Database& DatabaseOf(std::int32_t code) { return Databases().at(static_cast<std::size_t>(code - 1)); }

Stage::Stage(const Subject& subject, const Database& database)
    : parameters_(around.NewObject(L"Parametros", subject.parameters)),
      call_(subject.make(around, Wide(database.connectionString))) {
  around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {database.code}}});
  around.files[L"/dados/arquivo.db"] = 4096;
}

std::string Stage::Run() {
  around.journal.Forget();
  EXPECT_NE(Call(), nullptr);
  EXPECT_EQ(around.journal.LiveObjects(), 1);  // the client's parameter object
  return around.journal.Calls();
}

std::vector<std::string> InitialisationLines(const Database& database) {
  return {
      R"(CreateObject("KodraConexao.StrCon") -> Object1)",
      "Object1.Let(StrCon, \"" + database.connectionString + "\")",
      "Object1.Get(TipoBanco) -> " + std::to_string(database.code),
      "~Object1",
  };
}

std::vector<std::string> OpeningLines(const Database& database) {
  std::vector<std::string> lines = database.before;
  Append(lines, {
                    "NewConnection() -> Connection1",
                    "Connection1.SetConnectionString(\"" + database.prepared + "\")",
                    "Connection1.SetCursorLocation(2)",
                    "Connection1.SetIsolationLevel(4096)",
                    R"(Connection1.Open("", "", -1))",
                });
  Append(lines, database.after);
  return lines;
}

std::string ListingCalls(const Database& database, std::string_view statement,
                         const std::vector<std::string>& parameterReads) {
  std::vector<std::string> lines = InitialisationLines(database);
  Append(lines, parameterReads);
  Append(lines, OpeningLines(database));
  Append(lines, {
                    "NewRecordset() -> Recordset1",
                    "Recordset1.SetCursorLocation(2)",
                    "Recordset1.SetCacheSize(100)",
                    "Recordset1.Open(\"" + std::string(statement) + "\", Connection1, 0, 1, 1)",
                    "~Connection1",
                    "~Recordset1",
                });
  return Joined(lines);
}

void CheckListing(const Subject& subject, std::string_view statement) {
  for (const Database& database : Databases())
    EXPECT_EQ(Stage(subject, database).Run(), ListingCalls(database, statement));
}

void CheckFrame(const Subject& subject) {
  CheckRefused(subject, L"", true, R"(É preciso definir a propriedade "StringConexao".)");
  CheckRefused(subject, L"", false, R"(É preciso definir a propriedade "StringConexao".)");
  CheckRefused(subject, L"Driver=SQLite3;Database=nada.db", false, "Objeto não definido.");
  CheckRefused(subject, L"Driver=SQLite3;Database=nada.db", true,
               std::string(subject.firehose ? "[modADO.AbreCn]: " : "") +
                   R"([modADO::PreAbreCn]: Banco de dados "nada.db" não encontrado.)");

  Stage stage(subject, DatabaseOf(1));
  stage.around.ado.nativeErrors = {942};
  stage.around.journal.FailOn(L"Recordset1.Open",
                              Failure(Erro(-2147217865, L"OraOLEDB", L"A tabela ou view não existe")));
  EXPECT_EQ(RaisedBy([&] { stage.Call(); }),
            Framed(subject.name, subject.firehose ? "[OraOLEDB]: A tabela ou view não existe [N:942]"
                                                  : "A tabela ou view não existe"));
}

void CheckFailures(const Subject& subject) {
  for (const Database& database : Databases()) {
    SCOPED_TRACE(database.connectionString);
    for (const Mishap& mishap : Mishaps()) CheckEachCallFailing(subject, database, mishap);
  }
}

}  // namespace kodra::reports

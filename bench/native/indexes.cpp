// The time of each report with and without each index that `kodrarpt verifica` advises.
//
//   kodra-bench-indexes --limit 30 "Driver={SQLite3};Database=/tmp/copia.db"
//
// Without a connection string, that of the environment variable KODRA_MYSQL is used. The database must be a sample
// archive that may be changed: first the advised indexes replace the keys and indexes of their tables. Then each index
// is left out in turn, and its reports run to their last row. Each runs in a process of its own, so that it can be
// ended at the limit. The figure is the best of three runs.
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <set>
#include <sstream>

#include "console/command_line/parameter_value.h"
#include "console/command_line/report_name.h"
#include "console/schema/indexes.h"
#include "odbc/engine/connection.h"
#include "odbc/engine/recordset.h"
#include "odbc/engine/surroundings.h"
#include "siblings/sibling_classes.h"
#include "siblings/str_con.h"
#include "sql/tipo_banco.h"
#include "testbed/archive/schema.h"
#include "values/convert.h"
#include "values/utf8.h"

namespace kodra::bench {
namespace {

namespace schema = console::schema;
using Seconds = std::chrono::duration<double>;

struct Setting {
  std::string_view property;
  std::string_view value;
};

// What a user asks a large archive for: one module, one container, one request, one month.
constexpr Setting kOne[] = {{"Modulo1", "AA010"},
                            {"Container1", "CT0002"},
                            {"CodSolicit", "12"},
                            {"CodGrupo", "001"},
                            {"TipoRpt", "N"},
                            // The statistics and the log have no other way to a part of the archive.
                            {"DataInicial", "01/03/2015"},
                            {"DataFinal", "31/03/2015"}};
constexpr Setting kMonth[] = {{"DataArmazenamento1", "01/03/2015"}, {"DataArmazenamento2", "31/03/2015"}};
constexpr Setting kDepartment[] = {{"CodDepto", "001"}};

void Let(frame::ParameterObject& object, const frame::ParameterClass& parameterClass,
         std::span<const Setting> settings) {
  for (const frame::Property& property : parameterClass.properties)
    for (const Setting& setting : settings)
      if (values::ToUtf8(property.name) == setting.property)
        object.Let(property.name, console::ParameterValue(property, setting.value));
}

// The parameters with which a report can use the index.
frame::ParameterObject ParametersFor(const reports::ReportMethod& method, const schema::Index& index) {
  const frame::ParameterClass& parameterClass = frame::ParameterClassNamed(method.parameterClass);
  frame::ParameterObject object(parameterClass);
  Let(object, parameterClass, kOne);
  if (index.isForPeriod) Let(object, parameterClass, kMonth);
  if (index.columns.front() == L"COD_DEPTO") Let(object, parameterClass, kDepartment);
  return object;
}

// Runs the report once, to its last row.
Seconds TimeOf(const reports::ReportMethod& method, const schema::Index& index, const std::wstring& connectionString) {
  odbc::Surroundings surroundings;
  siblings::RegisterSiblings(surroundings);
  frame::ParameterObject parameters = ParametersFor(method, index);
  const auto start = std::chrono::steady_clock::now();
  const frame::ReportRows rows = method.call(surroundings, connectionString, &parameters);
  while (rows != nullptr && !rows->Eof()) rows->MoveNext();
  return std::chrono::steady_clock::now() - start;
}

// A server goes on with the query of a client that has ended.
void EndQueries(const std::wstring& connectionString) {
  if (siblings::DatabaseCode(connectionString) != sql::tbMySQL) return;
  odbc::Connection connection;
  connection.Open(connectionString, L"", L"", platform::ad::kUnspecified);
  const odbc::Execution others =
      connection.Query(L"SELECT CAST(ID AS CHAR) FROM information_schema.PROCESSLIST WHERE ID <> CONNECTION_ID()",
                       platform::ad::kCmdText);
  for (const std::vector<Value>& row : others.recordset->GetRows(-1))
    connection.Execute(L"KILL " + values::ToText(row.front()), platform::ad::kCmdText);
}

// The best time of three runs, or a text for a report that fails or takes longer than the limit. A failure near the
// limit is that of a driver that observes ADO's own limit of 30 seconds.
std::string Measured(const reports::ReportMethod& method, const schema::Index& index,
                     const std::wstring& connectionString, unsigned limit) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("pipe");
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    alarm(limit);
    double best = -1;
    try {
      for (int run = 0; run < 3; ++run) {
        const double time = TimeOf(method, index, connectionString).count();
        if (best < 0 || time < best) best = time;
        if (write(ends[1], &best, sizeof best) != sizeof best) break;
      }
    } catch (const Erro& error) {
      std::cerr << console::NameOf(method) << ": " << values::ToUtf8(error.Description()) << std::endl;
    }
    _exit(0);
  }
  close(ends[1]);
  double best = -1;
  while (read(ends[0], &best, sizeof best) == sizeof best) continue;
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFSIGNALED(status)) EndQueries(connectionString);
  if (best >= 0) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(best < 10 ? 3 : 1) << best << " s";
    return text.str();
  }
  const Seconds elapsed = std::chrono::steady_clock::now() - start;
  return elapsed > Seconds(0.9 * std::min(limit, 30U)) ? "> " + std::to_string(std::min(limit, 30U)) + " s" : "erro";
}

class Bench {
 public:
  Bench(std::wstring connectionString, unsigned limit)
      : connectionString_(std::move(connectionString)),
        code_(siblings::DatabaseCode(connectionString_)),
        limit_(limit) {}

  void Execute() {
    ReplaceIndexes();
    std::cout << "| índice | relatório | sem | com |\n| --- | --- | --- | --- |" << std::endl;
    for (const schema::Index& index : schema::Indexes())
      if (schema::IsUseful(index, code_)) Compare(index);
  }

 private:
  void Run(const std::wstring& statement) const {
    odbc::Connection connection;
    connection.SetCommandTimeout(0);
    connection.Open(connectionString_, L"", L"", platform::ad::kUnspecified);
    connection.Execute(statement, platform::ad::kCmdText);
  }

  void ReplaceIndexes() const {
    std::set<std::wstring_view> tables;
    for (const schema::Index& index : schema::Indexes()) tables.insert(index.table);
    for (const testbed::TableShape& shape : testbed::AllShapes())
      if (tables.contains(shape.name)) RemoveIndexes(shape);
    for (const schema::Index& index : schema::Indexes()) Run(values::FromUtf8(schema::CreateStatement(index)));
  }

  // The table again, without keys and indexes.
  void RemoveIndexes(const testbed::TableShape& shape) const {
    const std::wstring name(shape.name);
    std::wstring create =
        CreateTable(shape, code_ == sql::tbSQLite ? testbed::Engine::kSqlite : testbed::Engine::kMySql);
    const std::size_t key = create.rfind(L",\n  PRIMARY KEY");
    create.erase(key, create.find(L')', key) + 1 - key);
    Run(L"ALTER TABLE " + name + L" RENAME TO COM_CHAVE");
    Run(create);
    Run(L"INSERT INTO " + name + L" SELECT * FROM COM_CHAVE");
    Run(L"DROP TABLE COM_CHAVE");
  }

  void Compare(const schema::Index& index) const {
    std::vector<std::string> with;
    for (const std::string_view report : index.reports) with.push_back(TimeFor(report, index));
    const std::wstring name = values::FromUtf8(schema::NameOf(index));
    Run(code_ == sql::tbSQLite ? L"DROP INDEX " + name : L"DROP INDEX " + name + L" ON " + std::wstring(index.table));
    auto next = with.begin();
    for (const std::string_view report : index.reports)
      std::cout << "| " << schema::Described(index) << " | " << report << " | " << TimeFor(report, index) << " | "
                << *next++ << " |" << std::endl;
    Run(values::FromUtf8(schema::CreateStatement(index)));
  }

  std::string TimeFor(std::string_view report, const schema::Index& index) const {
    return Measured(console::FindReport(report), index, connectionString_, limit_);
  }

  std::wstring connectionString_;
  std::int32_t code_;
  unsigned limit_;
};

}  // namespace
}  // namespace kodra::bench

int main(int argc, char** argv) {
  CLI::App app("Mede os relatórios com e sem cada índice recomendado. Altera as chaves e os índices do banco.");
  std::string connectionString;
  unsigned limit = 30;
  app.add_option("conexao", connectionString, "String de conexão; sem ela, a da variável KODRA_MYSQL");
  app.add_option("--limit", limit, "Segundos que um relatório pode levar")->capture_default_str();
  CLI11_PARSE(app, argc, argv);
  try {
    if (const char* variable = std::getenv("KODRA_MYSQL"); connectionString.empty() && variable != nullptr)
      connectionString = variable;
    kodra::bench::Bench(kodra::values::FromUtf8(connectionString), limit).Execute();
  } catch (const kodra::Erro& error) {
    std::cerr << "kodra-bench-indexes: " << kodra::values::ToUtf8(error.Description()) << "\n";
    return 1;
  } catch (const std::exception& error) {
    std::cerr << "kodra-bench-indexes: " << error.what() << "\n";
    return 1;
  }
  return 0;
}

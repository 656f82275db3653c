// The time of each report with and without each index that `kodrarpt verifica` advises.
//
//   kodra-bench-indexes --limit 30 "Driver={SQLite3};Database=/tmp/copia.db"
//
// Without a connection string, that of the environment variable KODRA_MYSQL is used. The database must be a sample
// archive that may be changed: first the advised indexes replace the keys and indexes of their tables. Then each index
// is left out in turn, and its reports run to their last row. The figure is the best of three runs.
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <iostream>
#include <set>

#include "bench/native/report_time.h"
#include "console/command_line/report_name.h"
#include "console/schema/indexes.h"
#include "odbc/engine/connection.h"
#include "siblings/str_con.h"
#include "sql/tipo_banco.h"
#include "testbed/archive/schema.h"
#include "values/utf8.h"

namespace kodra::bench {
namespace {

namespace schema = console::schema;

// What a user asks a large archive for: one module, one container, one request; and one month, because the statistics
// and the log have no other way to a part of the archive.
constexpr Setting kOne[] = {{"Modulo1", "AA010"},       {"Container1", "CT0002"}, {"CodSolicit", "12"},
                            {"CodGrupo", "001"},        {"TipoRpt", "N"},         {"DataInicial", "01/03/2015"},
                            {"DataFinal", "31/03/2015"}};
constexpr Setting kMonth[] = {{"DataArmazenamento1", "01/03/2015"}, {"DataArmazenamento2", "31/03/2015"}};
constexpr Setting kDepartment[] = {{"CodDepto", "001"}};

// The parameters with which a report can use the index.
frame::ParameterObject ParametersFor(const reports::ReportMethod& method, const schema::Index& index) {
  const frame::ParameterClass& parameterClass = frame::ParameterClassNamed(method.parameterClass);
  frame::ParameterObject object(parameterClass);
  Let(object, parameterClass, kOne);
  if (index.isForPeriod) Let(object, parameterClass, kMonth);
  if (index.columns.front() == L"COD_DEPTO") Let(object, parameterClass, kDepartment);
  return object;
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
  void RemoveIndexes(testbed::TableShape shape) const {
    const std::wstring name(shape.name);
    shape.keyColumns = 0;
    Run(L"ALTER TABLE " + name + L" RENAME TO COM_CHAVE");
    Run(CreateTable(shape, code_ == sql::tbSQLite ? testbed::Engine::kSqlite : testbed::Engine::kMySql));
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
    const reports::ReportMethod& method = console::FindReport(report);
    return Text(TimeOf(method, ParametersFor(method, index), connectionString_, limit_), limit_);
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

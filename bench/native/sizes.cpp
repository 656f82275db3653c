// The time of every report on an archive with the advised indexes, as lines for kodra-bench-sizes-page.
//
//   kodra-bench-sizes --documents 10000 --banco SQLite "Driver={SQLite3};Database=/tmp/acervo.db" >>medidas.tsv
//
// Without a connection string, that of the environment variable KODRA_MYSQL is used. The database must be a sample
// archive that may be changed: the advised indexes are added to its keys. The figure is the best of three runs to the
// last row.
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <iostream>

#include "bench/native/report_time.h"
#include "console/command_line/report_name.h"
#include "console/schema/indexes.h"
#include "odbc/engine/connection.h"
#include "siblings/str_con.h"
#include "values/utf8.h"

namespace kodra::bench {
namespace {

namespace schema = console::schema;

// What the reports need that do not return all that the archive has: one module, container, request and subgroup, and
// one half-year for the statistics and the log. The rest is printed as it is.
constexpr Setting kAsked[] = {{"Modulo1", "AA001"},        {"Container1", "CT0002"}, {"CodSolicit", "5"},
                              {"CodGrupo", "001"},         {"TipoRpt", "N"},         {"DataInicial", "01/07/2010"},
                              {"DataFinal", "31/12/2010"}, {"NumeroPC1", "5"},       {"NumeroPC2", "4"},
                              {"NumeroPC3", "3"},          {"NumeroPC4", "2"},       {"NumeroPC5", "1"},
                              {"NumeroObs", "0"}};

// The sample archive has some of them, under the same names.
void AddIndexes(const std::wstring& connectionString) {
  odbc::Connection connection;
  connection.SetCommandTimeout(0);
  connection.Open(connectionString, L"", L"", platform::ad::kUnspecified);
  const std::int32_t code = siblings::DatabaseCode(connectionString);
  for (const schema::Index& index : schema::Indexes()) {
    if (!schema::IsUseful(index, code)) continue;
    const std::string statement =
        "CREATE INDEX IF NOT EXISTS " + schema::NameOf(index) + " ON " + schema::Described(index);
    connection.Execute(values::FromUtf8(statement), platform::ad::kCmdText);
  }
}

// A line: database, documents, report, rows, and seconds, or a text for a report without a figure.
void Measure(const std::string& database, long documents, const std::wstring& connectionString, unsigned limit) {
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    const frame::ParameterClass& parameterClass = frame::ParameterClassNamed(method.parameterClass);
    frame::ParameterObject parameters(parameterClass);
    Let(parameters, parameterClass, kAsked);
    const ReportTime time = TimeOf(method, parameters, connectionString, limit);
    std::cout << database << '\t' << documents << '\t' << console::NameOf(method) << '\t' << time.rows << '\t';
    if (time.ending == Ending::kDone)
      std::cout << time.seconds;
    else
      std::cout << Text(time, limit);
    std::cout << std::endl;
  }
}

}  // namespace
}  // namespace kodra::bench

int main(int argc, char** argv) {
  CLI::App app("Mede cada relatório em um acervo com os índices recomendados, que acrescenta ao banco.");
  std::string connectionString;
  std::string database;
  long documents = 0;
  unsigned limit = 30;
  app.add_option("conexao", connectionString, "String de conexão; sem ela, a da variável KODRA_MYSQL");
  app.add_option("--banco", database, "O nome do banco, para a tabela")->required();
  app.add_option("--documents", documents, "Quantidade de documentos, para a tabela")->required();
  app.add_option("--limit", limit, "Segundos que um relatório pode levar")->capture_default_str();
  CLI11_PARSE(app, argc, argv);
  try {
    if (const char* variable = std::getenv("KODRA_MYSQL"); connectionString.empty() && variable != nullptr)
      connectionString = variable;
    const std::wstring connection = kodra::values::FromUtf8(connectionString);
    kodra::bench::AddIndexes(connection);
    kodra::bench::Measure(database, documents, connection, limit);
  } catch (const kodra::Erro& error) {
    std::cerr << "kodra-bench-sizes: " << kodra::values::ToUtf8(error.Description()) << "\n";
    return 1;
  } catch (const std::exception& error) {
    std::cerr << "kodra-bench-sizes: " << error.what() << "\n";
    return 1;
  }
  return 0;
}

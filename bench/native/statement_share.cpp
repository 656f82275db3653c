// statement_share: how much of a small report the building of its statement takes.
//
// Each of the 39 methods is called whole, on a platform that answers at once, for each of the five databases, with
// every filter of its parameter object set. What counts is the component's own time from the answer of the
// connection-type helper to the arrival of the statement where it is opened: converting the parameters, writing dates,
// translating, joining; not the calls to the platform, the siblings and the parameter object, which must be made
// anyway. RelatorioLog builds no statement and adds none.
//
// The line is the median of all statements against the whole of small_report, which the benchmark in Wine has measured.
#include <CLI/CLI.hpp>
#include <array>
#include <map>

#include "bench/native/null_platform.h"
#include "bench/results.h"
#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"
#include "sql/tipo_banco.h"

namespace kodra::bench {
namespace {

constexpr std::array kDatabases = {sql::tbOracle, sql::tbSQLServer, sql::tbMySQL, sql::tbDB2, sql::tbSQLite};
constexpr const wchar_t* kConnection = L"Provider=MSDASQL;Driver={SQLite3};Database=C:\\acervo\\acervo.db";

// Values for every property, by its name where it is not a date.
const std::map<std::wstring, Value, std::less<>> kValues = {
    {L"Owner", L"Arquivo Geral"},     {L"CodDepto", L"0412"},
    {L"CodOperador", L"1207"},        {L"TipoRpt", L"V"},
    {L"CodModelo", L"CTR-2024"},      {L"Modulo1", L"AB001"},
    {L"Modulo2", L"AB002"},           {L"Modulo3", L"AB003"},
    {L"SomenteExistentes", true},     {L"ModoPregresso", true},
    {L"Container1", L"CT-0017"},      {L"Container2", L"CT-0018"},
    {L"Container3", L"CT-0019"},      {L"CodSolicit", L"10231"},
    {L"CodGrupo", L"0031"},           {L"DescrDepto", L"Contabilidade"},
    {L"DescrOperador", L"Ana Prado"}, {L"NumeroPC1", L"5120"},
    {L"NumeroPC2", L"4870"},          {L"NumeroPC3", L"3011"},
    {L"NumeroPC4", L"2790"},          {L"NumeroPC5", L"1644"},
    {L"NumeroObs", L"7733"},
};
constexpr Date kFirst = {45352};  // 1 March 2024
constexpr Date kLast = {45382};   // 31 March 2024

frame::ParameterObject ParametersOf(const reports::ReportMethod& method) {
  const frame::ParameterClass& parameterClass = frame::ParameterClassNamed(method.parameterClass);
  frame::ParameterObject parameters(parameterClass);
  for (const frame::Property& property : parameterClass.properties) {
    if (property.rule == frame::PropertyRule::kDate)
      parameters.Let(property.name,
                     property.name.ends_with(L'2') || property.name.ends_with(L"Final") ? kLast : kFirst);
    else if (const auto value = kValues.find(property.name); value != kValues.end())
      parameters.Let(property.name, value->second);
  }
  return parameters;
}

// The seconds that each statement took: of every method, for every database, in every round.
std::vector<double> StatementTimes(int rounds) {
  std::vector<double> times;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    frame::ParameterObject parameters = ParametersOf(method);
    for (const std::int32_t code : kDatabases) {
      NullPlatform around;
      around.code = code;
      ClientParameters client(parameters, around.watch);
      for (int round = 0; round < rounds; ++round) method.call(around, kConnection, &client);
      times.insert(times.end(), around.times.begin(), around.times.end());
    }
  }
  return times;
}

int Run(int rounds, double reportMicroseconds, const std::string& file) {
  Results results(file);
  results.Ratio({.name = "statement_share", .unit = "ns", .scale = 1e9, .limit = 0.001},
                {.component = Median(StatementTimes(rounds)), .bare = reportMicroseconds * 1e-6});
  return results.ExitCode();
}

}  // namespace
}  // namespace kodra::bench

int main(int argc, char** argv) {
  CLI::App app{"Mede que parte de um relatório pequeno é a montagem do comando SQL."};
  int rounds = 100;
  double report = 0;
  std::string file = "/dev/null";
  app.add_option("--rounds", rounds, "quantas vezes cada método é chamado");
  app.add_option("--report", report, "quanto leva um relatório pequeno, em microssegundos")->required();
  app.add_option("--results", file, "arquivo ao qual o resultado é acrescentado");
  CLI11_PARSE(app, argc, argv);
  return kodra::bench::Run(rounds, report, file);
}

// statement_assembly: building the statements of the 39 methods against appending the same pieces into one string.
//
// The component: each method is called whole, on a platform that answers at once, for each of the five databases, with
// every filter of its parameter object set. What counts is the component's own time from the answer of the
// connection-type helper to the arrival of the statement where it is opened: converting the parameters, writing dates,
// translating, joining; not the calls to the platform, the siblings and the parameter object, which must be made
// anyway. RelatorioLog builds no statement and adds none.
//
// Each such call interrupts the stopwatch, which costs more amid work than on its own: the processor finishes what it
// has begun before it reads the clock. So the cost of an interruption is measured where it matters: the bare side
// appends its pieces once more, interrupted as often as the component is.
//
// Bare: the finished statement, cut where a clause opens, around what the translator adds and around each value from
// outside, is appended piece by piece into one string that has room for the whole. Both sides are measured with the
// same clock, whose own cost is taken off both. Each figure is the median of its runs, which take turns; the ratio is
// of the sums over all statements.
#include <CLI/CLI.hpp>
#include <array>
#include <cstdlib>
#include <deque>
#include <map>
#include <numeric>

#include "bench/native/fragments.h"
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

// The texts in a statement that come from outside.
std::vector<std::wstring> OutsideTexts() {
  std::vector<std::wstring> texts = {L"SÉRIE", L"Série", L"s.NUM_CAIXA || SUBSTR('0' || s.NUM_SEQ, -2)"};
  for (const wchar_t* day : {L"01", L"31"}) {
    const std::wstring d = day;
    texts.insert(texts.end(), {d + L"/03/2024", L"2024/03/" + d, L"202403" + d, L"2024-03-" + d});
  }
  texts.push_back(L"01/04/2024");
  texts.push_back(L"20240401");
  for (const auto& [name, value] : kValues)
    if (value.Is<std::wstring>() && value.As<std::wstring>().size() > 1) texts.push_back(value.As<std::wstring>());
  return texts;
}

// The method for one database: its statements, and how long each side took in each of its runs.
class Case {
 public:
  Case(const reports::ReportMethod& method, std::int32_t code) : method_(method), parameters_(ParametersOf(method)) {
    static const std::vector<std::wstring> values = OutsideTexts();
    around_.code = code;
    for (const Built& built : Build()) {
      texts_.push_back(built.text);
      interruptions_.push_back(built.stops - 1);
    }
    for (std::size_t i = 0; i < texts_.size(); ++i)
      cuts_.push_back({Fragments(texts_[i], values), texts_[i].size(), interruptions_[i]});
  }

  void Component() {
    double seconds = 0;
    for (int run = 0; run < kRuns; ++run)
      for (const Built& built : Build()) seconds += built.seconds;
    component_.push_back(seconds);
  }

  void Bare() {
    double seconds = 0;
    for (int run = 0; run < kRuns; ++run)
      for (const Cut& cut : cuts_) seconds += Append(cut, 0);
    bare_.push_back(seconds);
  }

  // As Bare, but interrupted.
  void Interrupted() {
    double seconds = 0;
    for (int run = 0; run < kRuns; ++run)
      for (const Cut& cut : cuts_) seconds += Append(cut, cut.interruptions);
    interrupted_.push_back(seconds);
  }

  // Whether the pieces give the statements that the component builds.
  bool Agrees() {
    const std::vector<Built>& built = Build();
    if (built.size() != cuts_.size()) return false;
    for (std::size_t i = 0; i < built.size(); ++i) {
      std::wstring text;
      for (const std::wstring_view piece : cuts_[i].pieces) text += piece;
      if (text != built[i].text || text.empty()) return false;
    }
    return true;
  }

  std::size_t Statements() const { return cuts_.size(); }
  std::size_t Pieces() const {
    std::size_t count = 0;
    for (const Cut& cut : cuts_) count += cut.pieces.size();
    return count;
  }

  int Interruptions() const { return std::accumulate(interruptions_.begin(), interruptions_.end(), 0); }
  // The seconds that all interruptions of one run take. REQUIRES: Bare and Interrupted ran.
  double InterruptionCost() const { return (Median(interrupted_) - Median(bare_)) / kRuns; }

  // The seconds of one run without what the clock itself takes, when it is read once for a statement and when it is
  // interrupted. REQUIRES: both sides ran.
  Medians Result(double clock, double interruption) const {
    const double once = clock * static_cast<double>(cuts_.size());
    return {Median(component_) / kRuns - once - interruption * Interruptions(), Median(bare_) / kRuns - once};
  }
  const reports::ReportMethod& Method() const { return method_; }

 private:
  // The clock is coarse: what counts is the sum of so many runs.
  static constexpr int kRuns = 32;

  struct Cut {
    std::vector<std::wstring_view> pieces;
    std::size_t length;
    int interruptions;
  };

  double Append(const Cut& cut, int interruptions) {
    around_.watch.Restart();
    std::wstring text;
    text.reserve(cut.length);
    for (const std::wstring_view piece : cut.pieces) {
      text += piece;
      if (interruptions-- > 0) Interrupt();
    }
    while (interruptions-- > 0) Interrupt();
    around_.watch.Stop();
    // The text is used, so that it has to be made.
    if (text.size() != cut.length) std::abort();
    return around_.watch.Own();
  }

  void Interrupt() {
    around_.watch.Stop();
    around_.watch.Go();
  }

  const std::vector<Built>& Build() {
    around_.built.clear();
    around_.built.reserve(8);
    around_.watch.Restart();
    method_.call(around_, kConnection, &client_);
    return around_.built;
  }

  const reports::ReportMethod& method_;
  frame::ParameterObject parameters_;
  NullPlatform around_;
  ClientParameters client_{parameters_, around_.watch};
  std::vector<std::wstring> texts_;
  std::vector<Cut> cuts_;
  std::vector<int> interruptions_;
  std::vector<double> component_;
  std::vector<double> bare_;
  std::vector<double> interrupted_;
};

// "Class::Method"; the names are ASCII.
std::string NameOf(const reports::ReportMethod& method) {
  std::string name(method.className.begin(), method.className.end());
  return name.append("::").append(method.method.begin(), method.method.end());
}

// What the watch shows for nothing.
double ClockCost() {
  constexpr int kTimes = 1000;
  std::vector<double> figures;
  for (int round = 0; round < kTimes; ++round) {
    Watch watch;
    double seconds = 0;
    for (int i = 0; i < kTimes; ++i) {
      watch.Restart();
      watch.Stop();
      seconds += watch.Own();
    }
    figures.push_back(seconds / kTimes);
  }
  return Median(std::move(figures));
}

int Run(int rounds, const std::string& only, const std::string& file, bool details) {
  std::deque<Case> cases;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    if (NameOf(method).find(only) == std::string::npos) continue;
    for (const std::int32_t code : kDatabases) cases.emplace_back(method, code);
  }
  for (Case& each : cases) {
    if (each.Agrees()) continue;
    std::fprintf(stderr, "statement_assembly: %s: os dois lados não fazem o mesmo comando\n",
                 NameOf(each.Method()).c_str());
    return 2;
  }
  for (int round = 0; round < rounds; ++round) {
    for (Case& each : cases) {
      if (round % 2 == 0) each.Component();
      each.Bare();
      each.Interrupted();
      if (round % 2 != 0) each.Component();
    }
  }
  const double clock = ClockCost();
  double interrupted = 0;
  int interruptions = 0;
  for (const Case& each : cases) {
    if (each.Statements() == 0) continue;
    interrupted += each.InterruptionCost();
    interruptions += each.Interruptions();
  }
  const double interruption = interrupted / interruptions;
  if (details) std::printf("  relógio %.1f ns, interrupção %.1f ns\n", clock * 1e9, interruption * 1e9);
  Medians sum;
  std::size_t statements = 0;
  for (const Case& each : cases) {
    if (each.Statements() == 0) continue;
    const Medians medians = each.Result(clock, interruption);
    sum.component += medians.component;
    sum.bare += medians.bare;
    statements += each.Statements();
    if (details)
      std::printf("  %-40s %zu %3zu %7.3f %8.1f ns contra %8.1f ns\n", NameOf(each.Method()).c_str(), each.Statements(),
                  each.Pieces(), medians.component / medians.bare, medians.component * 1e9, medians.bare * 1e9);
  }
  // The absolute figures are those of one statement.
  Results results(file);
  results.Ratio(
      {.name = "statement_assembly", .unit = "ns", .scale = 1e9 / static_cast<double>(statements), .limit = 1.5}, sum);
  return results.ExitCode();
}

}  // namespace
}  // namespace kodra::bench

int main(int argc, char** argv) {
  CLI::App app{"Mede o que o componente acrescenta à montagem dos comandos SQL."};
  int rounds = 100;
  std::string only;
  std::string file = "/dev/null";
  bool details = false;
  app.add_option("--rounds", rounds, "quantas vezes cada lado tem a vez");
  app.add_option("--only", only, "só os métodos cujo nome, Classe::Método, contém este texto");
  app.add_option("--results", file, "arquivo ao qual os resultados são acrescentados");
  app.add_flag("--details", details, "também uma linha por método e banco");
  CLI11_PARSE(app, argc, argv);
  return kodra::bench::Run(rounds, only, file, details);
}

#include "tests/engines/page.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "tests/engines/comparison.h"
#include "tests/engines/expectations.h"
#include "tests/engines/run.h"

namespace kodra::engines {
namespace {

constexpr std::string_view kFirstLine = "<!-- From here on made by ./kodra dialects -->\n";
constexpr std::string_view kLastLine = "<!-- As far as here -->\n";

// The results of a report on an engine, in statements.
struct Fare {
  int same = 0, oddities = 0, gaps = 0;

  void Add(const Expectation* exception) {
    if (exception == nullptr)
      ++same;
    else if (exception->kind == Kind::kOddity)
      ++oddities;
    else
      ++gaps;
  }
  std::string Text() const {
    std::string text = same == 0 ? "" : std::to_string(same) + " =";
    const auto add = [&](int count, const char* what) {
      if (count > 0) text += (text.empty() ? "" : ", ") + std::to_string(count) + what;
    };
    add(oddities, " odd");
    add(gaps, " gap");
    return text.empty() ? "–" : text;
  }
};

bool HasOtherRows(const Engine& engine, const Asked& asked) {
  return asked.answer->Executed() && ReferenceAnswer(asked.statement).Executed() && Difference(engine, asked);
}

const Expectation* ExceptionOf(const Engine& engine, const Asked& asked) {
  if (!asked.answer->Executed()) return Find(ExpectedRefusals(), engine, asked.statement);
  return HasOtherRows(engine, asked) ? Find(ExpectedDifferences(), engine, asked.statement) : nullptr;
}

std::string Heading() {
  std::string names = "| report |";
  std::string line = "| --- |";
  for (const Engine& engine : Engines()) {
    names += " " + std::string(NameOf(engine.database)) + "<br>" + std::string(engine.name) + " |";
    line += " --- |";
  }
  return names + "\n" + line + "\n";
}

std::string TableOfReports() {
  std::string text = Heading();
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    const std::string name = NameOf(method);
    text += "| " + name + " |";
    for (const EngineRun& run : Runs()) {
      Fare fare;
      for (const Asked& asked : run.asked) {
        if (asked.statement.method == name) fare.Add(ExceptionOf(*run.engine, asked));
      }
      text += " " + fare.Text() + " |";
    }
    text += "\n";
  }
  return text;
}

// The exceptions of one list, each with the engines and the number of statements that it holds for.
template <class Happens>
std::string TableOfExceptions(std::span<const Expectation> expectations, Happens happens) {
  std::string text = "| engines | reports | statements | cause | |\n| --- | --- | --- | --- | --- |\n";
  for (const Expectation& expectation : expectations) {
    int statements = 0;
    std::string engines;
    for (const EngineRun& run : Runs()) {
      int here = 0;
      for (const Asked& asked : run.asked) {
        if (Covers(expectation, *run.engine, asked.statement) && happens(*run.engine, asked)) ++here;
      }
      statements += here;
      if (here > 0) engines += (engines.empty() ? "" : ", ") + std::string(run.engine->name);
    }
    std::string methods;
    for (const std::string_view method : expectation.methods)
      methods += (methods.empty() ? "" : ", ") + std::string(method);
    text += "| " + (expectation.engines.empty() ? "all" : engines) + " | " + methods + " | " +
            std::to_string(statements) + " | " + std::string(expectation.cause) + " | " +
            (expectation.kind == Kind::kOddity ? "required oddity" : "the engine's gap") + " |\n";
  }
  return text;
}

std::string Generated() {
  return "\n## Report by database\n\n" + TableOfReports() + "\n## Refused\n\n" +
         TableOfExceptions(ExpectedRefusals(),
                           [](const Engine&, const Asked& asked) { return !asked.answer->Executed(); }) +
         "\n## Other rows\n\n" + TableOfExceptions(ExpectedDifferences(), HasOtherRows) + "\n";
}

}  // namespace

std::string Page(const std::string& current) {
  const std::size_t first = current.find(kFirstLine);
  const std::size_t last = current.find(kLastLine);
  if (first == std::string::npos || last == std::string::npos || last < first)
    throw std::runtime_error(PagePath() + ": the lines around the generated part are missing");
  return current.substr(0, first + kFirstLine.size()) + Generated() + current.substr(last);
}

std::string PagePath() { return std::string(KODRA_ENGINES) + "/../../docs/dialects.md"; }

std::string ReadPage() {
  std::ifstream in(PagePath(), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void WritePage() {
  const std::string page = Page(ReadPage());
  std::ofstream(PagePath(), std::ios::binary) << page;
}

}  // namespace kodra::engines

// Every statement that the report methods build, on every engine: it executes, or is refused for a known cause; its
// rows are the same everywhere, or differ for a known cause.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>

#include "console/statements/every_statement.h"
#include "sql/tipo_banco.h"
#include "tests/engines/comparison.h"
#include "tests/engines/expectations.h"
#include "tests/engines/page.h"
#include "tests/engines/run.h"
#include "tests/engines/vocabulary.h"
#include "values/utf8.h"

namespace kodra::engines {
namespace {

using values::ToUtf8;

std::string Shown(const Asked& asked) {
  return asked.statement.label + (asked.statement.otherCode ? ", code 5" : "") + "\n  " + ToUtf8(asked.statement.text);
}

struct Pair {
  const reports::ReportMethod* method;
  const Engine* engine;
};

void PrintTo(const Pair& pair, std::ostream* out) { *out << NameOf(*pair.method) << " on " << pair.engine->name; }

std::vector<Pair> Pairs() {
  std::vector<Pair> pairs;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    for (const Engine& engine : Engines()) pairs.push_back({&method, &engine});
  }
  return pairs;
}

std::string NameOfPair(const testing::TestParamInfo<Pair>& info) {
  std::string name = NameOf(*info.param.method);
  std::ranges::replace(name, '.', '_');
  return name + "_On" + std::string(info.param.engine->name);
}

class EveryReport : public testing::TestWithParam<Pair> {
 protected:
  static const Engine& Here() { return *GetParam().engine; }
  // Calls visit with each of the report's statements on the engine.
  template <class Visit>
  static void ForEachStatement(Visit visit) {
    for (const Asked& asked : RunOf(Here()).asked) {
      if (asked.statement.method == NameOf(*GetParam().method)) visit(asked);
    }
  }
};

TEST_P(EveryReport, ExecutesOrIsRefusedForAKnownCause) {
  ForEachStatement([](const Asked& asked) {
    const Expectation* refusal = Find(ExpectedRefusals(), Here(), asked.statement);
    if (refusal == nullptr) {
      EXPECT_TRUE(asked.answer->Executed()) << Shown(asked) << "\n  " << asked.answer->error;
    } else {
      EXPECT_FALSE(asked.answer->Executed())
          << "executes, although a refusal is expected: " << Shown(asked) << "\n  " << refusal->cause;
      EXPECT_TRUE(IsOf(*refusal, asked.answer->error)) << Shown(asked) << "\n  " << asked.answer->error;
    }
  });
}

TEST_P(EveryReport, HasTheSameRowsOrDiffersForAKnownCause) {
  ForEachStatement([](const Asked& asked) {
    const Answer& reference = ReferenceAnswer(asked.statement);
    if (!asked.answer->Executed() || !reference.Executed()) return;
    const std::optional<std::string> difference = Difference(Here(), asked);
    const Expectation* expected = Find(ExpectedDifferences(), Here(), asked.statement);
    if (expected == nullptr) {
      EXPECT_FALSE(difference) << Shown(asked) << "\n  " << *difference;
    } else if (!reference.rows.empty()) {
      EXPECT_TRUE(difference) << "has the same rows, although a difference is expected: " << Shown(asked) << "\n  "
                              << expected->cause;
    }
  });
}

TEST_P(EveryReport, HasItsRowsInTheOrderThatTheStatementAsksFor) {
  ForEachStatement([](const Asked& asked) {
    if (!asked.answer->Executed()) return;
    const std::optional<std::string> disorder = Disorder(Here(), asked);
    EXPECT_FALSE(disorder) << Shown(asked) << "\n  " << *disorder;
  });
}

INSTANTIATE_TEST_SUITE_P(, EveryReport, testing::ValuesIn(Pairs()), NameOfPair);

class EveryEngine : public testing::TestWithParam<const Engine*> {};

TEST_P(EveryEngine, IsAskedOnlyInTheDialectOfItsDatabase) {
  for (const Asked& asked : RunOf(*GetParam()).asked)
    EXPECT_EQ(ForeignWords(asked.statement.text, GetParam()->database), std::vector<std::string>()) << Shown(asked);
}

// A comparison without rows would show nothing: every report has rows.
TEST_P(EveryEngine, IsAskedByEveryReportAndTheReferenceHasRowsForEach) {
  std::set<std::string> asking;
  for (const Asked& asked : RunOf(*GetParam()).asked) {
    if (!ReferenceAnswer(asked.statement).rows.empty()) asking.insert(asked.statement.method);
  }
  std::set<std::string> all;
  for (const reports::ReportMethod& method : reports::ReportMethods()) all.insert(NameOf(method));
  all.erase("CLogRpt.RelatorioLog");  // it asks its sibling and sends no statement
  EXPECT_EQ(asking, all);
}

std::vector<const Engine*> AllEngines() {
  std::vector<const Engine*> engines;
  for (const Engine& engine : Engines()) engines.push_back(&engine);
  return engines;
}

INSTANTIATE_TEST_SUITE_P(, EveryEngine, testing::ValuesIn(AllEngines()),
                         [](const auto& info) { return std::string(info.param->name); });

TEST(Expectations, EachCoversAStatement) {
  for (const auto expectations : {ExpectedRefusals(), ExpectedDifferences()}) {
    for (const Expectation& expectation : expectations) {
      const bool covers = std::ranges::any_of(Runs(), [&](const EngineRun& run) {
        return std::ranges::any_of(
            run.asked, [&](const Asked& asked) { return Covers(expectation, *run.engine, asked.statement); });
      });
      EXPECT_TRUE(covers) << expectation.cause;
    }
  }
}

// The conditions, columns, tables and other parts of a statement. A literal, a list of them and a date without quotes
// are each one empty text.
std::set<std::wstring> PartsOf(const std::wstring& statement) {
  static const std::wregex literal(LR"('[^']*'|\b\d+(/\d+/\d+( \d+:\d+:\d+)?)?\b)");
  static const std::wregex list(LR"(''(\s*,\s*'')+\))");
  static const std::wregex boundary(
      LR"(\s*(,|\b(SELECT|FROM|INNER JOIN|LEFT JOIN|ON|WHERE|AND|GROUP BY|ORDER BY|UNION)\b|$)\s*)");
  const std::wstring text = std::regex_replace(std::regex_replace(statement, literal, L"''"), list, L"'')");
  return {std::wsregex_token_iterator(text.begin(), text.end(), boundary, -1), std::wsregex_token_iterator()};
}

TEST(Vocabulary, SplitsAStatementIntoItsParts) {
  EXPECT_EQ(
      PartsOf(L"SELECT A, 'x' AS B FROM T1 INNER JOIN U ON A=2 WHERE C = 'a' AND D1 > 7 AND E IN (1, 2,3) AND F > "
              L"1/2/2013 08:30:00 ORDER BY A "),
      (std::set<std::wstring>{L"", L"A", L"'' AS B", L"T1", L"U", L"A=''", L"C = ''", L"D1 > ''", L"E IN ('')",
                              L"F > ''"}));
}

// `kodrarpt verifica` prepares what EveryStatementOf returns. It must reach every branch of every report; the cases
// here are another list of them.
TEST_P(EveryEngine, IsAskedNothingThatVerificaDoesNotPrepare) {
  const Database database = GetParam()->database;
  using Parts = std::map<std::string, std::set<std::wstring>>;  // by report
  const auto preparedFor = [](std::int32_t code) {
    Parts prepared;
    for (const reports::ReportMethod& method : reports::ReportMethods())
      for (const console::Statement& statement : console::EveryStatementOf(method, code).ofReport)
        prepared[NameOf(method)].merge(PartsOf(statement.text));
    return prepared;
  };
  const Parts prepared = preparedFor(CodeOf(database));
  const Parts preparedForOtherCode = preparedFor(sql::tbOracleAlt);
  for (const Statement& statement : StatementsFor(database)) {
    const auto isOf = [&](const char* kind) { return statement.label.find(kind) != statement.label.npos; };
    // The program never runs a report on a client's connection.
    if (isOf("client's connection")) continue;
    // What a database refuses whatever is in it: counts that are missing, a quote in a parameter, and on SQLite a
    // period with times.
    const bool hasTimes = isOf("period with hours") || isOf("period left unset");
    if (isOf("missing counts") || isOf("quote in") || (database == Database::kSqlite && hasTimes)) continue;
    const Parts& expected = statement.otherCode ? preparedForOtherCode : prepared;
    for (const std::wstring& part : PartsOf(statement.text))
      EXPECT_TRUE(expected.at(statement.method).contains(part))
          << statement.method << ", " << statement.label << ": " << ToUtf8(part);
  }
}

TEST(Vocabulary, NamesWordsOfOtherDatabasesAndFunctionsThatItDoesNotKnow) {
  EXPECT_EQ(ForeignWords(L"SELECT NVL(A, 'IFNULL(') || B FROM T WHERE C <= SYSDATE", Database::kSqlServer),
            (std::vector<std::string>{"NVL(", "SYSDATE", "||"}));
  EXPECT_EQ(ForeignWords(L"SELECT INITCAP(A) FROM T", Database::kOracle), (std::vector<std::string>{"INITCAP("}));
  EXPECT_EQ(ForeignWords(L"SELECT ISNULL(A, '') + B FROM T WHERE (1=1)", Database::kSqlServer),
            std::vector<std::string>());
}

TEST(Page, AgreesWithTheRun) {
  EXPECT_EQ(ReadPage(), Page(ReadPage())) << "docs/dialects.md is rewritten by ./kodra dialects";
}

}  // namespace
}  // namespace kodra::engines

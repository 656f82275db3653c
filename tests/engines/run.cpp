#include "tests/engines/run.h"

#include <algorithm>
#include <map>

#include "tests/db/sample.h"

namespace kodra::engines {
namespace {

// The statements of an engine, and which of them are different.
struct Plan {
  const Engine* engine;
  std::vector<Statement> all;
  std::vector<Statement> distinct;
  std::vector<std::size_t> distinctOf;  // for each of all
};

Plan PlanFor(const Engine& engine) {
  Plan plan = {&engine, StatementsFor(engine.database), {}, {}};
  std::map<std::pair<std::wstring, std::optional<std::wstring>>, std::size_t> known;
  for (const Statement& statement : plan.all) {
    const auto [found, isNew] = known.try_emplace({statement.text, statement.parameter}, plan.distinct.size());
    if (isNew) plan.distinct.push_back(statement);
    plan.distinctOf.push_back(found->second);
  }
  return plan;
}

EngineRun Match(Plan plan, std::vector<Answer> answers) {
  EngineRun run = {plan.engine, {}, std::move(answers)};
  for (std::size_t i = 0; i < plan.all.size(); ++i)
    run.asked.push_back({std::move(plan.all[i]), &run.answers[plan.distinctOf[i]]});
  return run;
}

std::vector<EngineRun> RunAll() {
  std::vector<Plan> plans;
  for (const Engine& engine : Engines()) plans.push_back(PlanFor(engine));
  std::vector<Questions> questions;
  for (const Plan& plan : plans) {
    if (plan.engine->InJava()) questions.push_back({plan.engine, plan.distinct});
  }
  std::vector<std::vector<Answer>> inJava = AnswersInJava(questions);
  std::vector<EngineRun> runs;
  for (auto next = inJava.begin(); Plan & plan : plans) {
    if (plan.engine->InJava()) {
      runs.push_back(Match(std::move(plan), std::move(*next++)));
      continue;
    }
    const auto sample = plan.engine->database == Database::kSqlite ? tests::Engine::kSqlite : tests::Engine::kMariaDb;
    std::vector<Answer> answers = AnswersThroughOdbc(plan.distinct, tests::SampleOn(sample));
    runs.push_back(Match(std::move(plan), std::move(answers)));
  }
  return runs;
}

}  // namespace

std::span<const EngineRun> Runs() {
  static const std::vector<EngineRun> runs = RunAll();
  return runs;
}

const EngineRun& RunOf(const Engine& engine) { return *std::ranges::find(Runs(), &engine, &EngineRun::engine); }

}  // namespace kodra::engines

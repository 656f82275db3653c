// The run that the tests and the page use: every engine with the statements for its database and its answers.
#pragma once

#include <span>
#include <vector>

#include "tests/engines/answers.h"
#include "tests/engines/engines.h"
#include "tests/engines/statements.h"

namespace kodra::engines {

struct Asked {
  Statement statement;
  const Answer* answer;  // shared by equal statements
};

struct EngineRun {
  const Engine* engine;
  std::vector<Asked> asked;
  std::vector<Answer> answers;
};

// One for each engine, in the order of Engines(). Made at first use; raises the error that prevents it.
std::span<const EngineRun> Runs();
const EngineRun& RunOf(const Engine& engine);

}  // namespace kodra::engines

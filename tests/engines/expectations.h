// What is expected not to be as elsewhere: statements that an engine refuses, and rows that are not the reference's.
// Everything else executes and has the same rows; what stands here and does not happen is a failure too.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "tests/engines/run.h"

namespace kodra::engines {

enum class Kind {
  kOddity,  // the statement is required to be as it is
  kGap,     // the engine is not the database
};

struct Expectation {
  // Which statements: on these engines (all when there are none), of these report classes or methods, whose labels hold
  // one of these words and whose texts hold this one (anything when there is none); of Oracle's second code only.
  std::vector<std::string_view> engines = {};
  std::vector<std::string_view> methods = {};
  std::vector<std::string_view> labels = {};
  std::wstring_view text = {};
  bool otherCode = false;
  // Of a refusal, what the engine says: a statement refused for something else is a failure. One of these words.
  std::vector<std::string_view> errors = {};
  Kind kind;
  std::string_view cause;  // for the page: Markdown, one line
};

std::span<const Expectation> ExpectedRefusals();
std::span<const Expectation> ExpectedDifferences();

// Whether an engine's error is of the kind that a refusal expects.
bool IsOf(const Expectation& refusal, std::string_view error);
bool Covers(const Expectation& expectation, const Engine& engine, const Statement& statement);
// The first that covers the statement, or null.
const Expectation* Find(std::span<const Expectation> expectations, const Engine& engine, const Statement& statement);

}  // namespace kodra::engines

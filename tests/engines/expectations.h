// The expected exceptions: statements that an engine refuses, and rows that are not the reference's. Everything else
// executes and has the same rows; an exception listed here that does not occur is a failure too.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "tests/engines/run.h"

namespace kodra::engines {

enum class Kind {
  kOddity,  // the statement is required to be exactly so
  kGap,     // the engine is not the database
};

struct Expectation {
  // The statements that it covers: on these engines (all when there are none), of these report classes or methods, with
  // one of these words in the label and this one in the text (any when there is none); of Oracle's second code only.
  std::vector<std::string_view> engines = {};
  std::vector<std::string_view> methods = {};
  std::vector<std::string_view> labels = {};
  std::wstring_view text = {};
  bool otherCode = false;
  // For a refusal, the engine's message contains one of these words: a statement refused for another reason is a
  // failure.
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

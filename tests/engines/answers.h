// The answers of an engine to statements, in one form for all engines.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "tests/engines/statements.h"

namespace kodra::engines {

// A value of a row is a letter and its text: "n12", "tCaixa 1", "d2010-07-01 00:00:00"; kNull is a null. A text
// contains \t, \n, \r and \\ in place of the characters that would end it.
using Row = std::vector<std::string>;
inline constexpr const char* kNull = "\\N";

struct Answer {
  std::string error;  // empty when the statement executed
  std::vector<std::string> columns;
  std::vector<Row> rows;

  bool Executed() const { return error.empty(); }
};

// One answer for each statement.
std::vector<Answer> AnswersThroughOdbc(std::span<const Statement> statements, const std::wstring& connectionString);

// The statements for an engine in Java, and its answers to them.
struct Questions {
  const Engine* engine;
  std::span<const Statement> statements;
};
// Runs the engines one after the other in one Java process, each over the sample archive, and returns the answers in
// the same order. Raises std::runtime_error when the runner fails.
std::vector<std::vector<Answer>> AnswersInJava(std::span<const Questions> questions);

}  // namespace kodra::engines

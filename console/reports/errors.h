// Every error that the component raises, and what databases answer, with what to do about it: the one table behind the
// messages of kodrarpt, the guide and the page of errors.
//
// All texts are Brazilian Portuguese in UTF-8, without a full stop.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/reports/guide.h"

namespace kodra::console::guide {

struct Error {
  std::int32_t number;
  // As the component writes it, with … for the part that varies.
  std::string_view text;
  // In lower case, with … for the same part.
  std::string_view whatHappened;
  std::string_view remedy;
};

// The errors that reach a client under their own number: those of the report methods, and those raised outside them.
std::span<const Error> Errors();
// The causes of report errors. A client sees their text in the description; the report drops the number and, except in
// CCaixaRpt, the source.
std::span<const Error> Causes();

// What a database or its driver answers, each in its own words.
struct Answer {
  std::string_view name;
  // An answer is of this kind if it contains one of them, in any letter case.
  std::vector<std::string_view> words;
  std::string_view whatHappened;
  std::string_view remedy;
};

// In the order in which they are tried.
const std::vector<Answer>& Answers();

struct Explanation {
  std::string whatHappened;  // in lower case
  std::string remedy;
  bool isAnswer = false;  // whether the cause is in the words of a database
};

// The cause in the description of a report's error: without what the report and its layers wrote before it, and
// without the native code of the database after it.
std::string CauseIn(std::string_view description);
// What the guide says about a report's error with that description: what the report itself says of its cause, then
// Causes() and Answers(), and at last what the report says of the step that failed. The report may be null.
std::optional<Explanation> Explain(std::string_view description, const Report* report);

// A number as the pages show it: "80041FAB (-2147213397)", or "429" for an error of the runtime.
std::string NumberWords(std::int32_t number);

}  // namespace kodra::console::guide

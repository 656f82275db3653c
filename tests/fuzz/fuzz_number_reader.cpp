// Reading numbers from text, and writing and converting the numbers that were read.
//
// Input: the text.
#include <cmath>
#include <limits>
#include <optional>

#include "tests/fuzz/target.h"
#include "values/convert.h"
#include "values/erro.h"
#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::fuzz {
namespace {

// The number that was read, or the number of the error that was raised.
template <class Number>
struct Outcome {
  std::optional<Number> number;
  std::int32_t error = 0;
  bool operator==(const Outcome&) const = default;
};

template <class Number, class Reading>
Outcome<Number> OutcomeOf(Reading read) {
  try {
    return {read(), 0};
  } catch (const Erro& erro) {
    Require(erro.Source() == kApplicationTitle, "the source of a reading error is the runtime's");
    return {std::nullopt, erro.Number()};
  }
}

bool Is(std::int32_t error, RuntimeError expected) { return error == static_cast<std::int32_t>(expected); }

// Every double except the smallest keeps fifteen digits of a number.
void CheckWritten(double number) {
  constexpr double kSmallest = 1e-300;
  const std::wstring written = values::NumberToText(number);
  if (number != 0 && std::abs(number) < kSmallest) return;
  const std::optional<double> again = values::ParseNumber(written);
  Require(again.has_value(), "a formatted number is read as a number");
  Require(std::abs(*again - number) <= std::abs(number) * 1e-14, "a formatted number keeps fifteen digits");
  RequireEqual(values::NumberToText(*again), written, "formatting a number that was read back returns the same text");
}

void CheckLeadingNumber(const std::wstring& input) {
  const auto read = [](const std::wstring& text) {
    return OutcomeOf<double>([&] { return values::LeadingNumber(text); });
  };
  const auto outcome = read(input);
  Require(outcome.number || Is(outcome.error, RuntimeError::kOverflow), "only a number that is too large fails");
  Require(!outcome.number || std::isfinite(*outcome.number), "a number is finite");
  Require(read(L" \t" + input) == outcome, "blanks before a number are ignored");
  if (input.find_first_of(L" \t\r\n") == input.npos) {
    std::wstring spaced;
    for (const wchar_t c : input) (spaced += c) += L' ';
    Require(read(spaced) == outcome, "blanks between digits are ignored");
  }
  if (outcome.number) CheckWritten(*outcome.number);
}

void CheckConversions(const std::wstring& input, std::optional<double> number) {
  const auto whole = OutcomeOf<std::int32_t>([&] { return values::ToInt32(input); });
  const auto yes = OutcomeOf<bool>([&] { return values::ToBool(input); });
  if (!number) {
    Require(Is(whole.error, RuntimeError::kTypeMismatch), "text that is not a number is not converted to an integer");
    const std::wstring word = values::UpperCase(input);
    const bool known = word == L"VERDADEIRO" || word == L"TRUE" || word == L"FALSO" || word == L"FALSE";
    Require(known == yes.number.has_value(), "text that is not a number is a Boolean only when it is a word for one");
    return;
  }
  const double rounded = std::nearbyint(*number);
  const bool fits =
      rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max();
  Require(fits ? whole.number == static_cast<std::int32_t>(rounded) : Is(whole.error, RuntimeError::kOverflow),
          "an integer is rounded half to even and has at most 32 bits");
  Require(yes.number == (*number != 0), "a number is true unless it is zero");
}

void CheckParseNumber(const std::wstring& input) {
  const auto read = [](const std::wstring& text) {
    return OutcomeOf<std::optional<double>>([&] { return values::ParseNumber(text); });
  };
  const auto outcome = read(input);
  Require(outcome.number || Is(outcome.error, RuntimeError::kOverflow), "only a number that is too large fails");
  Require(read(L" " + input + L" ") == outcome, "blanks around a number are ignored");
  Require(read(values::UpperCase(input)) == outcome, "letter case is ignored");
  if (!outcome.number) return;
  CheckConversions(input, *outcome.number);
  if (*outcome.number) CheckWritten(**outcome.number);
}

void CheckUpperCase(const std::wstring& input) {
  const std::wstring upper = values::UpperCase(input);
  Require(upper.size() == input.size(), "upper case has the same number of characters");
  RequireEqual(values::UpperCase(upper), upper, "upper case does not change in upper case");
  Require(values::EqualIgnoringCase(input, upper), "text equals its upper case when letter case is ignored");
  const std::wstring_view trimmed = values::Trim(input);
  Require(!trimmed.starts_with(L' ') && !trimmed.ends_with(L' '), "trimmed text has no blank at either end");
  Require(input.find(trimmed) != input.npos, "trimmed text is a part of the text");
}

}  // namespace
}  // namespace kodra::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kodra::fuzz;
  const std::wstring input = TextOf(data, size);
  CheckLeadingNumber(input);
  CheckParseNumber(input);
  CheckUpperCase(input);
  return 0;
}

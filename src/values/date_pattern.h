// A date's pattern taken apart when the program is compiled.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "values/upper.h"

namespace kodra::values {

// A pattern as a template's argument.
template <std::size_t kSize>
struct DatePattern {
  // NOLINTNEXTLINE(google-explicit-constructor): a literal is the pattern
  consteval DatePattern(const wchar_t (&literal)[kSize]) { std::copy_n(literal, kSize, text); }
  constexpr std::wstring_view View() const { return {text, kSize - 1}; }

  wchar_t text[kSize]{};
};

enum class DatePart : std::uint8_t { kNone, kDay, kMonth, kYear, kYearOfCentury, kHour, kMinute, kSecond };

// A part of the date in at least so many digits, or characters that stand for themselves.
struct DateField {
  DatePart part = DatePart::kNone;
  std::size_t digits = 0;
  std::wstring_view literal = {};
};

// Reads a pattern field by field.
class DatePatternReader {
 public:
  constexpr explicit DatePatternReader(std::wstring_view pattern) : rest_(pattern) {}

  constexpr bool AtEnd() const { return rest_.empty(); }

  // REQUIRES: not AtEnd().
  constexpr DateField Next() {
    if (rest_.front() == L'\\') {
      Take(1);
      return {.literal = Take(std::min(rest_.size(), std::size_t{1}))};
    }
    const wchar_t letter = UpperCaseAscii(rest_.front());
    const std::wstring_view run = Take(RunLength());
    const DateField field = FieldOf(letter, run.size());
    if (field.part == DatePart::kNone) return {.literal = run};
    afterHour_ = field.part == DatePart::kHour;
    return field;
  }

 private:
  constexpr std::wstring_view Take(std::size_t length) {
    const std::wstring_view taken = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return taken;
  }

  // How often the first character follows itself, in any letter case.
  constexpr std::size_t RunLength() const {
    std::size_t length = 1;
    while (length < rest_.size() && UpperCaseAscii(rest_[length]) == UpperCaseAscii(rest_.front())) ++length;
    return length;
  }

  constexpr DateField FieldOf(wchar_t letter, std::size_t length) const {
    if (letter == L'Y' && length == 4) return {.part = DatePart::kYear, .digits = 1};
    if (letter == L'Y' && length == 2) return {.part = DatePart::kYearOfCentury, .digits = 2};
    if (length > 2) return {};
    return {.part = PartOf(letter), .digits = length};
  }

  constexpr DatePart PartOf(wchar_t letter) const {
    switch (letter) {
      case L'D':
        return DatePart::kDay;
      case L'M':
        return afterHour_ ? DatePart::kMinute : DatePart::kMonth;
      case L'H':
        return DatePart::kHour;
      case L'N':
        return DatePart::kMinute;
      case L'S':
        return DatePart::kSecond;
      default:
        return DatePart::kNone;
    }
  }

  std::wstring_view rest_;
  bool afterHour_ = false;
};

// The number of fields of a pattern.
constexpr std::size_t FieldCount(std::wstring_view pattern) {
  std::size_t count = 0;
  for (DatePatternReader reader(pattern); !reader.AtEnd(); reader.Next()) ++count;
  return count;
}

// The fields of a pattern.
template <std::size_t kCount>
constexpr std::array<DateField, kCount> FieldsOf(std::wstring_view pattern) {
  std::array<DateField, kCount> fields;
  DatePatternReader reader(pattern);
  for (DateField& field : fields) field = reader.Next();
  return fields;
}

}  // namespace kodra::values

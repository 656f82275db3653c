#include "text/dates.h"
#include "text/upper.h"

namespace kodra::text {
namespace {

void AppendNumber(std::wstring& out, std::int32_t number, std::size_t width) {
  const std::wstring digits = std::to_wstring(number);
  if (digits.size() < width) out.append(width - digits.size(), L'0');
  out += digits;
}

// The number of times that the pattern's character at `at` follows itself there, in any letter case.
std::size_t RunLength(std::wstring_view pattern, std::size_t at) {
  std::size_t end = at;
  while (end < pattern.size() && UpperCase(pattern[end]) == UpperCase(pattern[at])) ++end;
  return end - at;
}

class Writer {
 public:
  explicit Writer(const Calendar& calendar) : calendar_(calendar) {}

  // Writes the field that `length` times `letter` (in upper case) stands for; false when it stands for none.
  bool WriteField(wchar_t letter, std::size_t length) {
    const bool afterHour = afterHour_;
    if (letter == L'Y' && (length == 2 || length == 4)) {
      WriteYear(length);
    } else if (length > 2) {
      return false;
    } else if (letter == L'D') {
      AppendNumber(out_, calendar_.day, length);
    } else if (letter == L'M') {
      AppendNumber(out_, afterHour ? calendar_.minute : calendar_.month, length);
    } else if (letter == L'H') {
      AppendNumber(out_, calendar_.hour, length);
    } else if (letter == L'N') {
      AppendNumber(out_, calendar_.minute, length);
    } else if (letter == L'S') {
      AppendNumber(out_, calendar_.second, length);
    } else {
      return false;
    }
    afterHour_ = letter == L'H';
    return true;
  }

  void WriteLiteral(std::wstring_view text) { out_ += text; }

  std::wstring Take() { return std::move(out_); }

 private:
  void WriteYear(std::size_t length) {
    // Four letters write the year as it is: automation writes the year 100 with three digits.
    if (length == 2) {
      AppendNumber(out_, calendar_.year % 100, 2);
    } else {
      AppendNumber(out_, calendar_.year, 0);
    }
  }

  Calendar calendar_;
  std::wstring out_;
  bool afterHour_ = false;
};

}  // namespace

std::wstring FormatDate(platform::Date date, std::wstring_view pattern) {
  Writer writer(ToCalendar(date));
  for (std::size_t at = 0; at < pattern.size();) {
    if (pattern[at] == L'\\') {
      writer.WriteLiteral(pattern.substr(at + 1, 1));
      at += 2;
      continue;
    }
    const std::size_t length = RunLength(pattern, at);
    if (!writer.WriteField(UpperCase(pattern[at]), length)) writer.WriteLiteral(pattern.substr(at, length));
    at += length;
  }
  return writer.Take();
}

std::wstring DateToText(platform::Date date) {
  const Calendar calendar = ToCalendar(date);
  const Calendar midnightOfDayZero;
  const bool dayZero = calendar.year == midnightOfDayZero.year && calendar.month == midnightOfDayZero.month &&
                       calendar.day == midnightOfDayZero.day;
  if (dayZero) return FormatDate(date, L"hh:nn:ss");
  const bool midnight = calendar.hour == 0 && calendar.minute == 0 && calendar.second == 0;
  return FormatDate(date, midnight ? L"dd/mm/yyyy" : L"dd/mm/yyyy hh:nn:ss");
}

}  // namespace kodra::text

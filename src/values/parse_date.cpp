#include <array>
#include <span>

#include "values/characters.h"
#include "values/dates.h"
#include "values/upper.h"

namespace kodra::values {
namespace {

constexpr std::array<std::wstring_view, 12> kMonthNames = {L"JANEIRO",  L"FEVEREIRO", L"MARÇO",    L"ABRIL",
                                                           L"MAIO",     L"JUNHO",     L"JULHO",    L"AGOSTO",
                                                           L"SETEMBRO", L"OUTUBRO",   L"NOVEMBRO", L"DEZEMBRO"};
constexpr std::array<std::wstring_view, 12> kMonthAbbreviations = {L"JAN", L"FEV", L"MAR", L"ABR", L"MAI", L"JUN",
                                                                   L"JUL", L"AGO", L"SET", L"OUT", L"NOV", L"DEZ"};
constexpr std::array<std::wstring_view, 7> kDayNames = {
    L"SEGUNDA-FEIRA", L"TERÇA-FEIRA", L"QUARTA-FEIRA", L"QUINTA-FEIRA", L"SEXTA-FEIRA", L"SÁBADO", L"DOMINGO"};
constexpr std::array<std::wstring_view, 7> kDayAbbreviations = {L"SEG", L"TER", L"QUA", L"QUI", L"SEX", L"SÁB", L"DOM"};

// The last year of two digits that is in the 2000s.
constexpr std::int32_t kLastShortYearOf2000 = 29;
// No number of a date or time has more significant digits than a year.
constexpr std::int32_t kLargestNumber = 9999;

bool IsLetter(wchar_t c) {
  const wchar_t upper = UpperCase(c);
  return (upper >= L'A' && upper <= L'Z') || upper > 0x00BF;
}

std::int32_t FullYear(std::int32_t year) {
  if (year > 99) return year;
  return year + (year <= kLastShortYearOf2000 ? 2000 : 1900);
}

// The numbers of a date in the order of the text, and what the text says of its month by name.
struct DateNumbers {
  std::array<std::int32_t, 3> number{};
  std::size_t count = 0;
  std::int32_t month = 0;       // 0: no month name
  std::size_t beforeMonth = 0;  // how many of the numbers come before the month name
};

// The orders in which the numbers may be meant, first choice first: d day, m month, y year.
std::span<const std::wstring_view> OrdersOf(const DateNumbers& numbers) {
  static constexpr std::array<std::wstring_view, 4> kThree = {L"dmy", L"ymd", L"mdy", L"ydm"};
  static constexpr std::array<std::wstring_view, 4> kTwo = {L"dm", L"md", L"my", L"ym"};
  static constexpr std::array<std::wstring_view, 2> kOneAndName = {L"d", L"y"};
  static constexpr std::array<std::wstring_view, 2> kTwoAroundName = {L"dy", L"yd"};
  static constexpr std::array<std::wstring_view, 1> kTwoAfterName = {L"dy"};
  static constexpr std::array<std::wstring_view, 1> kTwoBeforeName = {L"yd"};

  if (numbers.month == 0) {
    if (numbers.count == 3) return kThree;
    if (numbers.count == 2) return kTwo;
    return {};
  }
  if (numbers.count == 1) return kOneAndName;
  if (numbers.count != 2) return {};
  if (numbers.beforeMonth == 0) return kTwoAfterName;
  if (numbers.beforeMonth == 1) return kTwoAroundName;
  return kTwoBeforeName;
}

// Puts the day that the numbers mean into the calendar; false when they mean none.
bool ResolveDay(const DateNumbers& numbers, std::optional<std::int32_t> currentYear, Calendar& calendar) {
  for (const std::wstring_view order : OrdersOf(numbers)) {
    std::int32_t year = 0;
    if (order.find(L'y') == order.npos) year = currentYear ? *currentYear : ToCalendar(Today()).year;
    std::int32_t month = numbers.month;
    std::int32_t day = 1;
    for (std::size_t i = 0; i < numbers.count; ++i) {
      if (order[i] == L'd') day = numbers.number[i];
      if (order[i] == L'm') month = numbers.number[i];
      if (order[i] == L'y') year = FullYear(numbers.number[i]);
    }
    if (!IsDay(year, month, day)) continue;
    calendar.year = year;
    calendar.month = month;
    calendar.day = day;
    return true;
  }
  return false;
}

// Reads one text from left to right. A step returns false when it meets something that no date contains.
class Reader {
 public:
  explicit Reader(std::wstring_view text) : text_(text) {}

  // Returns the date, with `currentYear` (the clock's, when left out) where the text has no year.
  std::optional<Date> Read(std::optional<std::int32_t> currentYear) {
    for (SkipBlanks(); !AtEnd(); SkipBlanks()) {
      if (!ReadPiece()) return std::nullopt;
    }
    if (pendingSeparator_ != 0) return std::nullopt;
    const bool hasDate = numbers_.count > 0 || numbers_.month != 0;
    if (!hasDate && !hasTime_) return std::nullopt;
    if (hasDate && !ResolveDay(numbers_, currentYear, calendar_)) return std::nullopt;
    return FromCalendar(calendar_);
  }

 private:
  enum class Piece { kNothing, kDate, kTime, kDayName };

  bool AtEnd() const { return at_ == text_.size(); }
  wchar_t Current() const { return AtEnd() ? L'\0' : text_[at_]; }
  void SkipBlanks() {
    while (!AtEnd() && IsBlank(text_[at_])) ++at_;
  }

  bool ReadPiece() {
    const wchar_t c = Current();
    if (IsDigit(c)) return ReadNumberPiece();
    if (c == L'/' || c == L'-' || c == L',') return ReadSeparator(c);
    return ReadName();
  }

  // "/" and "-" are allowed only between two pieces of a date; a comma is allowed before any piece.
  bool ReadSeparator(wchar_t separator) {
    ++at_;
    if (separator == L',') {
      if (pendingSeparator_ == 0) pendingSeparator_ = separator;
      return true;
    }
    const bool joins = pendingSeparator_ == L'/' || pendingSeparator_ == L'-';
    if (last_ != Piece::kDate || joins) return false;
    pendingSeparator_ = separator;
    return true;
  }

  // Records what was read. Only a piece of a date may follow "/" or "-", and a time may not interrupt a date.
  bool Finish(Piece piece) {
    const bool joins = pendingSeparator_ == L'/' || pendingSeparator_ == L'-';
    if (joins && piece != Piece::kDate) return false;
    if (piece == Piece::kDate && dateEnded_) return false;
    if (piece == Piece::kTime) dateEnded_ = numbers_.count > 0 || numbers_.month != 0;
    pendingSeparator_ = 0;
    last_ = piece;
    return true;
  }

  bool ReadNumberPiece() {
    std::int32_t number = 0;
    if (!ReadNumber(number)) return false;
    SkipBlanks();
    if (Current() == L':' || Current() == L'.') return ReadClock(number);
    if (ReadDesignator()) return TakeTime(number, 0, 0);
    if (numbers_.count == numbers_.number.size()) return false;
    numbers_.number[numbers_.count++] = number;
    return Finish(Piece::kDate);
  }

  bool ReadNumber(std::int32_t& number) {
    if (!IsDigit(Current())) return false;
    for (number = 0; IsDigit(Current()); ++at_) {
      number = number * 10 + (text_[at_] - L'0');
      if (number > kLargestNumber) return false;
    }
    return true;
  }

  // The rest of a time after its hour: minutes, optional seconds, an optional am or pm.
  bool ReadClock(std::int32_t hour) {
    std::array<std::int32_t, 2> parts{};
    std::size_t count = 0;
    while (Current() == L':' || Current() == L'.') {
      ++at_;
      SkipBlanks();
      if (count == parts.size() || !ReadNumber(parts[count++])) return false;
      SkipBlanks();
    }
    ReadDesignator();
    return TakeTime(hour, parts[0], parts[1]);
  }

  enum class Half { kNone, kMorning, kAfternoon };

  bool ReadDesignator() {
    half_ = Half::kNone;
    if (ReadWord(L"AM") || ReadWord(L"A")) half_ = Half::kMorning;
    if (half_ == Half::kNone && (ReadWord(L"PM") || ReadWord(L"P"))) half_ = Half::kAfternoon;
    return half_ != Half::kNone;
  }

  bool TakeTime(std::int32_t hour, std::int32_t minute, std::int32_t second) {
    if (hasTime_ || hour > 23 || minute > 59 || second > 59) return false;
    // An hour that is already past noon does not change, whatever the designator says.
    if (half_ == Half::kMorning && hour == 12) hour = 0;
    if (half_ == Half::kAfternoon && hour < 12) hour += 12;
    hasTime_ = true;
    calendar_.hour = hour;
    calendar_.minute = minute;
    calendar_.second = second;
    return Finish(Piece::kTime);
  }

  // A month name is recorded. A day name adds nothing to the numbers and is skipped unchecked.
  bool ReadName() {
    if (const std::int32_t month = ReadOneOf(kMonthNames, kMonthAbbreviations); month != 0) {
      if (numbers_.month != 0) return false;
      numbers_.month = month;
      numbers_.beforeMonth = numbers_.count;
      return Finish(Piece::kDate);
    }
    return ReadOneOf(kDayNames, kDayAbbreviations) != 0 && Finish(Piece::kDayName);
  }

  // The place, from 1, of the name that comes next, full or abbreviated with or without a full stop; 0 when none does.
  template <std::size_t kCount>
  std::int32_t ReadOneOf(const std::array<std::wstring_view, kCount>& names,
                         const std::array<std::wstring_view, kCount>& abbreviations) {
    for (std::size_t i = 0; i < kCount; ++i) {
      if (ReadWord(names[i])) return static_cast<std::int32_t>(i) + 1;
      if (ReadWord(abbreviations[i])) {
        if (Current() == L'.') ++at_;
        return static_cast<std::int32_t>(i) + 1;
      }
    }
    return 0;
  }

  // Skips the word (passed in upper case) when the whole word comes next.
  bool ReadWord(std::wstring_view word) {
    // Most texts that get this far are SQL expressions: their first character is enough to reject them.
    if (UpperCase(Current()) != word.front()) return false;
    const std::wstring_view here = text_.substr(at_, word.size());
    const std::size_t end = at_ + word.size();
    if (!EqualIgnoringCase(here, word) || (end < text_.size() && IsLetter(text_[end]))) return false;
    at_ = end;
    return true;
  }

  std::wstring_view text_;
  std::size_t at_ = 0;
  wchar_t pendingSeparator_ = 0;
  Piece last_ = Piece::kNothing;
  bool dateEnded_ = false;
  DateNumbers numbers_;
  Half half_ = Half::kNone;
  bool hasTime_ = false;
  Calendar calendar_;
};

}  // namespace

std::optional<Date> ParseDate(std::wstring_view text, std::int32_t currentYear) {
  return Reader(text).Read(currentYear);
}

std::optional<Date> ParseDate(std::wstring_view text) { return Reader(text).Read(std::nullopt); }

}  // namespace kodra::values

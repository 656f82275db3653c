#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <string>

#include "values/characters.h"
#include "values/erro.h"
#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::values {
namespace {

// The double nearest to a numeral: ASCII digits, with an optional sign, point and exponent. Infinite for one that is
// too large, zero for one that is too small.
//
// std::from_chars is not used: in GCC 12 for 32-bit Windows it rounds twice when the client lets the processor
// calculate with 64 bits, as programs made by Delphi and GCC do. It reads 115100940185e15 as the neighbour of the
// nearest double.
double NearestDouble(std::string numeral) {
  const std::size_t point = numeral.find('.');
  if (point != numeral.npos) numeral.replace(point, 1, std::localeconv()->decimal_point);
  return std::strtod(numeral.c_str(), nullptr);
}

// The same, but a number that is too large is an error.
double ValueOf(const std::string& numeral) {
  const double value = NearestDouble(numeral);
  if (std::isinf(value)) throw MakeRuntimeError(RuntimeError::kOverflow);
  return value;
}

// The value of a numeral that is an integer and fits the type.
template <class Integer>
std::optional<Value> IntegerOf(const std::string& numeral) {
  const char* const end = numeral.data() + numeral.size();
  Integer value = 0;
  const auto read = std::from_chars(numeral.data(), end, value);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return Value(value);
}

// A text read from the left, one character at a time.
class Scanner {
 public:
  explicit Scanner(std::wstring_view text) : text_(text) {}

  bool AtEnd() const { return at_ == text_.size(); }
  wchar_t Current() const { return AtEnd() ? L'\0' : text_[at_]; }
  void Advance() { ++at_; }
  void SkipBlanks() {
    while (!AtEnd() && IsBlank(text_[at_])) ++at_;
  }
  bool Take(std::wstring_view token) {
    if (!EqualIgnoringCase(text_.substr(at_, token.size()), token)) return false;
    at_ += token.size();
    return true;
  }

  // Appends the digits that come next, skipping `separator` between them; false when there is none.
  bool TakeDigits(std::string& numeral, wchar_t separator = L'\0') {
    const std::size_t before = numeral.size();
    for (; !AtEnd(); ++at_) {
      if (IsDigit(text_[at_])) {
        numeral += static_cast<char>(text_[at_]);
      } else if (separator == L'\0' || text_[at_] != separator || numeral.size() == before) {
        break;
      }
    }
    return numeral.size() > before;
  }

  // Appends the digits that come next with the decimals behind `point`; false when there is no digit.
  bool TakeDecimal(std::string& numeral, wchar_t point, wchar_t separator = L'\0') {
    const bool hasWhole = TakeDigits(numeral, separator);
    if (Current() != point) return hasWhole;
    Advance();
    numeral += '.';
    return TakeDigits(numeral) || hasWhole;
  }

  // Appends the exponent that comes next, when it is complete: letter, optional sign, digits.
  void TakeExponent(std::string& numeral, std::wstring_view letters) {
    if (AtEnd() || letters.find(UpperCase(text_[at_])) == letters.npos) return;
    const std::size_t start = at_++;
    std::string exponent = "e";
    if (Current() == L'-') exponent += '-';
    if (Current() == L'-' || Current() == L'+') ++at_;
    if (TakeDigits(exponent)) {
      numeral += exponent;
    } else {
      at_ = start;
    }
  }

  // The 32 bits of the hexadecimal or octal digits that come next.
  std::optional<std::uint32_t> TakeBits(std::uint32_t base) {
    std::optional<std::uint32_t> bits;
    for (; !AtEnd(); ++at_) {
      const std::uint32_t digit = DigitValue(UpperCase(text_[at_]));
      if (digit >= base) break;
      const std::uint64_t wider = std::uint64_t{bits.value_or(0)} * base + digit;
      if (wider > UINT32_MAX) throw MakeRuntimeError(RuntimeError::kOverflow);
      bits = static_cast<std::uint32_t>(wider);
    }
    return bits;
  }

 private:
  static std::uint32_t DigitValue(wchar_t upper) {
    if (IsDigit(upper)) return static_cast<std::uint32_t>(upper - L'0');
    if (upper >= L'A' && upper <= L'F') return static_cast<std::uint32_t>(upper - L'A' + 10);
    return UINT32_MAX;
  }

  std::wstring_view text_;
  std::size_t at_ = 0;
};

// Skips the "&H" or "&O" prefix that comes next and returns its base; 0 when there is none.
std::uint32_t TakeBasePrefix(Scanner& scanner) {
  if (scanner.Take(L"&H")) return 16;
  if (scanner.Take(L"&O")) return 8;
  return 0;
}

// A hexadecimal or octal literal without suffix is an Integer, 16 bits with sign, as long as it fits.
double SignedValue(std::uint32_t bits, bool isLong) {
  if (!isLong && bits <= UINT16_MAX) return static_cast<std::int16_t>(bits);
  return static_cast<std::int32_t>(bits);
}

// The whole of a Brazilian number without its sign: digits, decimals, exponent.
std::optional<double> TakeBrazilianMagnitude(Scanner& scanner) {
  if (const std::uint32_t base = TakeBasePrefix(scanner); base != 0) {
    const std::optional<std::uint32_t> bits = scanner.TakeBits(base);
    if (!bits) return std::nullopt;
    return SignedValue(*bits, true);
  }
  std::string numeral;
  if (!scanner.TakeDecimal(numeral, L',', L'.')) return std::nullopt;
  scanner.TakeExponent(numeral, L"E");
  return ValueOf(numeral);
}

// The marks that may surround the digits of a Brazilian number, each once and in any order: a sign or parentheses, the
// currency.
class Marks {
 public:
  void TakeBefore(Scanner& scanner) {
    do {
      scanner.SkipBlanks();
    } while (TakeSign(scanner) || TakeOpening(scanner) || TakeCurrency(scanner));
  }

  void TakeAfter(Scanner& scanner) {
    do {
      scanner.SkipBlanks();
    } while (TakeSign(scanner) || TakeClosing(scanner) || TakeCurrency(scanner));
  }

  bool Negative() const { return negative_; }
  bool Unclosed() const { return open_; }

 private:
  bool TakeSign(Scanner& scanner) {
    if (hasSign_ || (scanner.Current() != L'-' && scanner.Current() != L'+')) return false;
    hasSign_ = true;
    negative_ = scanner.Current() == L'-';
    scanner.Advance();
    return true;
  }

  bool TakeOpening(Scanner& scanner) {
    if (hasSign_ || !scanner.Take(L"(")) return false;
    hasSign_ = negative_ = open_ = true;
    return true;
  }

  bool TakeClosing(Scanner& scanner) {
    if (!open_ || !scanner.Take(L")")) return false;
    open_ = false;
    return true;
  }

  bool TakeCurrency(Scanner& scanner) {
    if (hasCurrency_ || !scanner.Take(L"R$")) return false;
    hasCurrency_ = true;
    return true;
  }

  bool hasSign_ = false;
  bool negative_ = false;
  bool open_ = false;
  bool hasCurrency_ = false;
};

}  // namespace

double LeadingNumber(std::wstring_view text) {
  std::wstring packed(text);
  std::erase_if(packed, [](wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; });
  Scanner scanner(packed);
  if (const std::uint32_t base = TakeBasePrefix(scanner); base != 0) {
    const std::uint32_t bits = scanner.TakeBits(base).value_or(0);
    return SignedValue(bits, scanner.Current() == L'&');
  }
  const bool negative = scanner.Current() == L'-';
  if (negative || scanner.Current() == L'+') scanner.Advance();
  std::string numeral;
  if (!scanner.TakeDecimal(numeral, L'.')) return 0;
  scanner.TakeExponent(numeral, L"ED");
  const double magnitude = ValueOf(numeral);
  return negative ? -magnitude : magnitude;
}

std::optional<double> ParseNumber(std::wstring_view text) {
  Scanner scanner(text);
  Marks marks;
  marks.TakeBefore(scanner);
  const std::optional<double> magnitude = TakeBrazilianMagnitude(scanner);
  if (!magnitude) return std::nullopt;
  marks.TakeAfter(scanner);
  if (marks.Unclosed() || !scanner.AtEnd()) return std::nullopt;
  return marks.Negative() ? -*magnitude : *magnitude;
}

std::optional<Value> ParseInvariantNumber(std::wstring_view text) {
  Scanner scanner(text);
  std::string numeral;
  if (scanner.Take(L"-")) numeral = "-";
  if (!scanner.TakeDecimal(numeral, L'.')) return std::nullopt;
  scanner.TakeExponent(numeral, L"E");
  if (!scanner.AtEnd()) return std::nullopt;
  if (const auto whole = IntegerOf<std::int32_t>(numeral)) return *whole;
  if (const auto whole = IntegerOf<std::int64_t>(numeral)) return *whole;
  if (const auto whole = IntegerOf<std::uint64_t>(numeral)) return *whole;
  const double number = NearestDouble(numeral);
  return std::isinf(number) ? std::nullopt : std::optional<Value>(number);
}

}  // namespace kodra::values

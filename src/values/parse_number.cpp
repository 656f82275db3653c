#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "values/characters.h"
#include "values/erro.h"
#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::values {
namespace {

// The value of digits alone, as long as they are few enough to be exact as an integer and as a double.
std::optional<double> WholeValueOf(std::wstring_view digits) {
  constexpr std::size_t kExactDigits = 15;
  if (digits.size() > kExactDigits) return std::nullopt;
  std::int64_t value = 0;
  for (const wchar_t digit : digits) {
    if (!IsDigit(digit)) return std::nullopt;
    value = 10 * value + (digit - L'0');
  }
  return static_cast<double>(value);
}

// The value of a plain ASCII numeral: digits with an optional point and exponent. One too small for a double is zero.
double ValueOf(std::wstring_view numeral) {
  if (const std::optional<double> whole = WholeValueOf(numeral)) return *whole;
  // The standard's own conversion, which knows no locale, would make the component larger by a tenth. A vector and not
  // a std::string: the component has no other use for those.
  std::vector<char> ascii;
  for (const wchar_t c : numeral) {
    if (c == L'.') {
      const std::string_view point = std::localeconv()->decimal_point;
      ascii.insert(ascii.end(), point.begin(), point.end());
    } else {
      ascii.push_back(static_cast<char>(c));
    }
  }
  ascii.push_back('\0');
  const double value = std::strtod(ascii.data(), nullptr);
  if (std::isinf(value)) throw MakeRuntimeError(RuntimeError::kOverflow);
  return value;
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

  // Appends the digits that stand here, passing over `separator` between them; false when there is none.
  bool TakeDigits(std::wstring& numeral, wchar_t separator = L'\0') {
    const std::size_t before = numeral.size();
    for (; !AtEnd(); ++at_) {
      if (IsDigit(text_[at_])) {
        numeral += text_[at_];
      } else if (separator == L'\0' || text_[at_] != separator || numeral.size() == before) {
        break;
      }
    }
    return numeral.size() > before;
  }

  // Appends the exponent that stands here, when it is whole: letter, perhaps a sign, digits.
  void TakeExponent(std::wstring& numeral, std::wstring_view letters) {
    if (AtEnd() || letters.find(UpperCase(text_[at_])) == letters.npos) return;
    const std::size_t start = at_++;
    std::wstring exponent = L"e";
    if (Current() == L'-') exponent += L'-';
    if (Current() == L'-' || Current() == L'+') ++at_;
    if (TakeDigits(exponent)) {
      numeral += exponent;
    } else {
      at_ = start;
    }
  }

  // The 32 bits that the hexadecimal or octal digits standing here give.
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

// The base of the "&H" or "&O" prefix that stands here and is passed over; 0 when there is none.
std::uint32_t TakeBasePrefix(Scanner& scanner) {
  if (scanner.Take(L"&H")) return 16;
  if (scanner.Take(L"&O")) return 8;
  return 0;
}

constexpr std::wstring_view kPassedOver = L" \t\r\n";

std::wstring WithoutBlanks(std::wstring_view text) {
  std::wstring kept;
  kept.reserve(text.size());
  for (const wchar_t c : text) {
    if (kPassedOver.find(c) == kPassedOver.npos) kept += c;
  }
  return kept;
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
  std::wstring numeral;
  bool hasDigits = scanner.TakeDigits(numeral, L'.');
  if (scanner.Current() == L',') {
    scanner.Advance();
    numeral += hasDigits ? L"." : L"0.";
    hasDigits = scanner.TakeDigits(numeral) || hasDigits;
  }
  if (!hasDigits) return std::nullopt;
  scanner.TakeExponent(numeral, L"E");
  return ValueOf(numeral);
}

// What may stand around the digits of a Brazilian number, each once and in any order: a sign or parentheses, the
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
  if (const std::optional<double> whole = WholeValueOf(text)) return *whole;
  std::wstring packed;
  if (text.find_first_of(kPassedOver) != text.npos) text = packed = WithoutBlanks(text);
  Scanner scanner(text);
  if (const std::uint32_t base = TakeBasePrefix(scanner); base != 0) {
    const std::uint32_t bits = scanner.TakeBits(base).value_or(0);
    return SignedValue(bits, scanner.Current() == L'&');
  }
  const bool negative = scanner.Current() == L'-';
  if (negative || scanner.Current() == L'+') scanner.Advance();
  std::wstring numeral;
  bool hasDigits = scanner.TakeDigits(numeral);
  if (scanner.Current() == L'.') {
    scanner.Advance();
    numeral += hasDigits ? L"." : L"0.";
    hasDigits = scanner.TakeDigits(numeral) || hasDigits;
  }
  if (!hasDigits) return 0;
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

}  // namespace kodra::values

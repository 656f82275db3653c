#include "values/convert.h"

#include <cmath>
#include <limits>
#include <utility>

#include "values/automation.h"
#include "values/decimal.h"
#include "values/erro.h"
#include "values/format_date.h"
#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::values {
namespace {

[[noreturn]] void Refuse(Null) { throw MakeRuntimeError(RuntimeError::kInvalidUseOfNull); }

struct TextOf {
  std::wstring operator()(Empty) const { return {}; }
  std::wstring operator()(Null null) const { Refuse(null); }
  std::wstring operator()(bool value) const { return value ? L"Verdadeiro" : L"Falso"; }
  template <class Number>
  std::wstring operator()(Number value) const {
    return NumberToText(value);
  }
  std::wstring operator()(Date value) const { return DateToText(value); }
  std::wstring operator()(const std::wstring& value) const { return value; }
  std::wstring operator()(const ObjectRef& value) const { return ToText(DefaultValue(value)); }
};

double NumberIn(const std::wstring& text) {
  const std::optional<double> number = ParseNumber(text);
  if (!number) throw MakeRuntimeError(RuntimeError::kTypeMismatch);
  return *number;
}

// Rounds halves to the even neighbour, whatever the processor's rounding mode is.
double RoundToEven(double number) {
  const double below = std::floor(number);
  const double rest = number - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

struct Int32Of {
  std::int32_t operator()(Empty) const { return 0; }
  std::int32_t operator()(Null null) const { Refuse(null); }
  std::int32_t operator()(bool value) const { return value ? -1 : 0; }
  std::int32_t operator()(std::int32_t value) const { return value; }
  std::int32_t operator()(std::int64_t value) const { return Narrow(value); }
  std::int32_t operator()(std::uint64_t value) const {
    if (!std::in_range<std::int32_t>(value)) Overflow();
    return static_cast<std::int32_t>(value);
  }
  std::int32_t operator()(double value) const { return Narrow(RoundToEven(value)); }
  std::int32_t operator()(Currency value) const { return (*this)(ToDecimal(value)); }
  std::int32_t operator()(const Decimal& value) const {
    const std::optional<std::int64_t> whole = RoundToInteger(value);
    if (!whole) Overflow();
    return Narrow(*whole);
  }
  std::int32_t operator()(Date value) const { return (*this)(value.days); }
  std::int32_t operator()(const std::wstring& value) const { return (*this)(NumberIn(value)); }
  std::int32_t operator()(const ObjectRef& value) const { return ToInt32(DefaultValue(value)); }

 private:
  [[noreturn]] static void Overflow() { throw MakeRuntimeError(RuntimeError::kOverflow); }
  template <class Number>
  static std::int32_t Narrow(Number number) {
    using Limits = std::numeric_limits<std::int32_t>;
    // Written this way so that a value that is not a number fails too.
    const bool fits = number >= Number{Limits::min()} && number <= Number{Limits::max()};
    if (!fits) Overflow();
    return static_cast<std::int32_t>(number);
  }
};

struct DateOf {
  Date operator()(Empty) const { return {}; }
  Date operator()(Null null) const { Refuse(null); }
  Date operator()(bool value) const { return {value ? -1.0 : 0.0}; }
  template <class Number>
  Date operator()(Number value) const {
    return Checked(static_cast<double>(value));
  }
  Date operator()(Currency value) const { return (*this)(ToDecimal(value)); }
  Date operator()(const Decimal& value) const { return Checked(ToDouble(value)); }
  Date operator()(Date value) const { return value; }
  Date operator()(const std::wstring& value) const {
    if (const std::optional<Date> date = ParseDate(value)) return *date;
    return Checked(NumberIn(value));
  }
  Date operator()(const ObjectRef& value) const { return ToDate(DefaultValue(value)); }

 private:
  static Date Checked(double days) {
    ToCalendar({days});
    return {days};
  }
};

struct BoolOf {
  bool operator()(Empty) const { return false; }
  bool operator()(Null null) const { Refuse(null); }
  bool operator()(bool value) const { return value; }
  template <class Number>
  bool operator()(Number value) const {
    return value != 0;
  }
  bool operator()(Currency value) const { return value.tenThousandths != 0; }
  bool operator()(const Decimal& value) const { return value.low != 0 || value.high != 0; }
  bool operator()(Date value) const { return value.days != 0; }
  bool operator()(const std::wstring& value) const {
    const std::wstring word = UpperCase(value);
    if (word == L"VERDADEIRO" || word == L"TRUE") return true;
    if (word == L"FALSO" || word == L"FALSE") return false;
    return NumberIn(value) != 0;
  }
  bool operator()(const ObjectRef& value) const { return ToBool(DefaultValue(value)); }
};

}  // namespace

std::wstring ToText(const Value& value) { return std::visit(TextOf{}, value.Held()); }

std::wstring ToText(Value&& value) {
  if (value.Is<std::wstring>()) return std::move(value).TakeText();
  return ToText(std::as_const(value));
}

std::wstring ToTextOrEmpty(const Value& value) {
  if (value.Is<ObjectRef>()) return ToTextOrEmpty(DefaultValue(value.As<ObjectRef>()));
  return value.Is<Null>() ? std::wstring() : ToText(value);
}

std::int32_t ToInt32(const Value& value) { return std::visit(Int32Of{}, value.Held()); }

Date ToDate(const Value& value) { return std::visit(DateOf{}, value.Held()); }

bool ToBool(const Value& value) { return std::visit(BoolOf{}, value.Held()); }

}  // namespace kodra::values

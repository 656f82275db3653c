// The decisions in which one SQL dialect may differ from another; one class per database system states them all.
//
// A decision that two systems share is a named form (oracle_forms.h) which each of them calls: nothing is inherited.
// A dialect has no state; the one object of each may serve every thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace kodra::sql {

class Dialect {
 public:
  virtual std::wstring DateAdd(std::wstring_view interval, std::wstring_view number, std::wstring_view date) const = 0;
  virtual std::wstring_view CurrentDate() const = 0;
  virtual std::wstring ToDate(std::wstring_view text, std::int32_t layout) const = 0;
  // Whether a text that is a date becomes a literal of its own, DateLiteral, instead of standing as it came.
  // REQUIRES of DateLiteral: HasDateLiterals() and a known layout.
  virtual bool HasDateLiterals() const = 0;
  virtual std::wstring DateLiteral(platform::Date date, std::int32_t layout) const = 0;
  virtual std::wstring ToInt(std::wstring_view expr) const = 0;
  virtual std::wstring ToChar(std::wstring_view expr, std::wstring_view format) const = 0;
  // What stands between two expressions of a concatenation, and what becomes of the expressions once joined by it.
  virtual std::wstring_view ConcatSeparator() const = 0;
  virtual std::wstring Concat(std::wstring joined) const = 0;
  // The name of the function that replaces a null, and of the type that its default date is cast to.
  virtual std::wstring_view NullReplacer() const = 0;
  virtual std::wstring_view DefaultDateType() const = 0;

 protected:
  ~Dialect() = default;
};

const Dialect& Oracle();
const Dialect& SQLServer();
const Dialect& MySQL();
const Dialect& DB2();
const Dialect& SQLite();

// The dialect of a database code; null when it has none.
const Dialect* FindDialect(std::int32_t code) noexcept;

// The dialect's text for today's date; for a dialect without one, today by the local clock as a literal.
std::wstring CurrentDateOf(const Dialect& dialect);

}  // namespace kodra::sql

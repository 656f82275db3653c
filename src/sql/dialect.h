// The decisions in which one SQL dialect may differ from another; one class per database system states them all.
//
// A decision that two systems share is a named form (oracle_forms.h) which each of them calls: nothing is inherited.
// A dialect has no state; the one object of each may serve every thread.
#pragma once

#include <cstdint>

#include "values/dates.h"
#include "values/piece.h"
#include "values/writer.h"

namespace kodra::sql {

class Dialect {
 public:
  virtual void DateAdd(values::Writer& out, values::Piece interval, values::Piece number, values::Piece date) const = 0;
  virtual values::Piece CurrentDate() const = 0;
  virtual void ToDate(values::Writer& out, values::Piece text, std::int32_t layout) const = 0;
  // Whether a text that is a date becomes a literal of its own, DateLiteral, instead of standing as it came.
  // REQUIRES of DateLiteral: HasDateLiterals() and a known layout.
  virtual bool HasDateLiterals() const = 0;
  virtual void DateLiteral(values::Writer& out, const values::Calendar& date, std::int32_t layout) const = 0;
  virtual void ToInt(values::Writer& out, values::Piece expr) const = 0;
  virtual void ToChar(values::Writer& out, values::Piece expr, values::Piece format) const = 0;
  // What stands between two expressions of a concatenation, and what opens and closes one that is not empty.
  virtual values::Piece ConcatSeparator() const = 0;
  virtual values::Piece ConcatOpening() const { return {}; }
  virtual values::Piece ConcatClosing() const { return {}; }
  // The name of the function that replaces a null, and of the type that its default date is cast to.
  virtual values::Piece NullReplacer() const = 0;
  virtual values::Piece DefaultDateType() const = 0;

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

// Writes the dialect's text for today's date; for a dialect without one, today by the local clock as a literal.
void WriteCurrentDate(values::Writer& out, const Dialect& dialect);

}  // namespace kodra::sql

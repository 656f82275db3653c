// The decisions in which one SQL dialect may differ from another; one class per database system states them all.
//
// A decision that two systems share is a named form (oracle_forms.h) which each of them calls: nothing is inherited.
// A dialect has no state; the one object of each may serve every thread.
#pragma once

#include <cstdint>

#include "text/dates.h"
#include "text/piece.h"
#include "text/writer.h"

namespace kodra::sql {

class Dialect {
 public:
  virtual void DateAdd(text::Writer& out, text::Piece interval, text::Piece number, text::Piece date) const = 0;
  virtual text::Piece CurrentDate() const = 0;
  virtual void ToDate(text::Writer& out, text::Piece text, std::int32_t layout) const = 0;
  // Whether a text that is a date becomes a literal of its own, DateLiteral, instead of standing as it came.
  // REQUIRES of DateLiteral: HasDateLiterals() and a known layout.
  virtual bool HasDateLiterals() const = 0;
  virtual void DateLiteral(text::Writer& out, const text::Calendar& date, std::int32_t layout) const = 0;
  virtual void ToInt(text::Writer& out, text::Piece expr) const = 0;
  virtual void ToChar(text::Writer& out, text::Piece expr, text::Piece format) const = 0;
  // What stands between two expressions of a concatenation, and what opens and closes one that is not empty.
  virtual text::Piece ConcatSeparator() const = 0;
  virtual text::Piece ConcatOpening() const { return {}; }
  virtual text::Piece ConcatClosing() const { return {}; }
  // The name of the function that replaces a null, and of the type that its default date is cast to.
  virtual text::Piece NullReplacer() const = 0;
  virtual text::Piece DefaultDateType() const = 0;

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
void WriteCurrentDate(text::Writer& out, const Dialect& dialect);

}  // namespace kodra::sql

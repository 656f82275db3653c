// The decisions in which one SQL dialect may differ from another; one class per database system states them all.
//
// A decision that two systems share is a named form (oracle_forms.h) which each of them calls: nothing is inherited.
// Texts that are passed in are copied into the result verbatim. A dialect has no state; the one object of each may
// serve every thread.
#pragma once

#include <cstdint>
#include <string>

namespace kodra::sql {

class Dialect {
 public:
  virtual std::wstring DateAdd(const std::wstring& interval, const std::wstring& number,
                               const std::wstring& date) const = 0;
  virtual std::wstring CurrentDate() const = 0;
  virtual std::wstring ToDate(const std::wstring& text, std::int32_t layout) const = 0;
  virtual std::wstring ToInt(const std::wstring& expr) const = 0;
  virtual std::wstring ToChar(const std::wstring& expr, const std::wstring& format) const = 0;
  // What is between two expressions of a concatenation, and what opens and closes one that is not empty.
  virtual std::wstring ConcatSeparator() const = 0;
  virtual std::wstring ConcatOpening() const = 0;
  virtual std::wstring ConcatClosing() const = 0;
  // The name of the function that replaces a null, and of the type that its default date is cast to.
  virtual std::wstring NullReplacer() const = 0;
  virtual std::wstring DefaultDateType() const = 0;
  // The FROM clause of a SELECT of one row of literals; empty where such a SELECT needs none.
  virtual std::wstring FromOneRow() const = 0;

 protected:
  ~Dialect() = default;
};

// The dialect of each system: Oracle(), SQLServer() and so on.
#define KODRA_DIALECT(NAME, CODE) const Dialect& NAME();
#include "sql/dialects.def"

// The dialect of a database code; null when it has none.
const Dialect* FindDialect(std::int32_t code) noexcept;

}  // namespace kodra::sql

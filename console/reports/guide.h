// What there is to know about each report, for those who use it: the one table behind `lista`, `descreve` and the
// reference pages. Texts are Brazilian Portuguese in UTF-8, sentences without a full stop.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "console/reports/report_methods.h"

namespace kodra::console::guide {

enum class ValueType { kText, kNumber, kDate, kFlag };

struct Column {
  std::string_view name;
  ValueType type;
  std::string_view meaning;
  // The values of TipoRpt for which the column is there, "*" for all others; empty for a column that is always there.
  std::string_view kinds = {};
};

// A property of the parameter object that the report reads.
struct Parameter {
  std::string_view name;
  std::string_view effect;
  // A value as typed on a command line, for examples.
  std::string_view sample;
  // Whether it has a part in the text of the statements.
  bool changesSql = true;
};

// What looks wrong and is required.
struct Oddity {
  std::string_view text;
  // The beginning of its entry in docs/behaviours.md.
  std::string_view entry;
};

// What the report alone can fail with: the cause as it stands in the description, and what to do.
struct Failure {
  std::string_view cause;
  std::string_view remedy;
};

struct Report {
  std::string_view className;
  std::string_view method;
  // One line: what it lists or prints.
  std::string_view purpose;
  std::span<const Parameter> parameters;
  // In the order of the recordset.
  std::span<const Column> columns;
  std::span<const Oddity> oddities;
  std::span<const Failure> failures;
};

// In the order of reports::ReportMethods().
std::span<const Report> Reports();
// The entry of a method.
const Report& About(const reports::ReportMethod& method);
// "CDeptoRpt.RelatorioDeptos".
std::string NameOf(const Report& report);

}  // namespace kodra::console::guide

// What people should know about each report, one entry each: purpose, parameters, columns, oddities, failures, and how
// it is printed. `lista`, `descreve`, the printed pages and the reference pages are made of it.
//
// Names are looked up by class and method. Texts are Brazilian Portuguese in UTF-8, sentences without a full stop.
#pragma once

#include <string_view>
#include <vector>

#include "console/reports/report_methods.h"

namespace kodra::console::guide {

enum class ValueType { kText, kNumber, kDate, kFlag };

// Where the printed page shows a column. Labels and the figures of a statistic take their columns by name.
enum class Place {
  kColumn,        // in a listing's table, under its caption
  kDetail,        // below a row of a listing, behind its caption, where it is not empty
  kContinuation,  // in the text of the column before it, which goes on in this one
  kTitle,         // the title, where it is not empty
  kSubtitle,      // a statistic's subtitle; several are joined
  kFact,          // once above the table, behind its caption
  kBlock,         // a statistic's lines are put together by it
  kLine,          // a statistic has a line for each of its values
  kCount,         // a line of a statistic, named by its caption
  kTotal,         // what a statistic adds up
  kNowhere,
};

struct Column {
  std::string_view name;
  ValueType type;
  std::string_view meaning;
  // What it is called on paper.
  std::string_view caption = {};
  Place place = Place::kColumn;
  // A column whose text is the caption instead, where it is not empty: the archive names the thing itself.
  std::string_view captionColumn = {};
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
  // Values with which the report sends other statements than with the sample.
  std::vector<std::string_view> otherSamples = {};
};

// What looks wrong and is required.
struct Oddity {
  std::string_view text;
  // The beginning of its entry in docs/behaviours.md.
  std::string_view entry;
};

// What the report alone can fail with: the cause as the description contains it, and what to do.
struct Failure {
  std::string_view cause;
  std::string_view remedy;
};

enum class PageKind { kListing, kStatistic, kOpeningLabels, kClosingLabels, kDividerLabels, kContainerLabels };

struct Page {
  PageKind kind;
  // Of a listing or a statistic, where no column has the title.
  std::string_view title = {};
  // What the lines of a statistic are where no column is Place::kLine.
  std::string_view lineCaption = {};
  // The columns that come first in their place, in this order; the others follow in the order of the recordset.
  std::vector<std::string_view> first = {};
};

struct Report {
  std::string_view className;
  std::string_view method;
  // One line: what it lists or prints.
  std::string_view purpose;
  std::vector<Parameter> parameters = {};
  // In the order of the recordset.
  std::vector<Column> columns;
  std::vector<Oddity> oddities = {};
  std::vector<Failure> failures = {};
  Page page;
  // What a reader of its statements must know beyond their text; empty for most.
  std::string_view sqlNote = {};
};

// All entries, in no order that counts.
const std::vector<Report>& Reports();
// The entry of a report, or null for a name that is none.
const Report* Find(std::wstring_view className, std::wstring_view method);
// The entry of a method; every method has one.
const Report& About(const reports::ReportMethod& method);

// The columns that the page shows in a place, in their order on paper.
std::vector<const Column*> ColumnsIn(Place place, const Report& report);

}  // namespace kodra::console::guide

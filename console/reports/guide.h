// What people should know about each report: purpose, parameters, columns, oddities, failures, and how it is printed.
// The commands `lista` and `descreve`, the printed pages and the reference pages are generated from these entries.
//
// Texts are Brazilian Portuguese in UTF-8, sentences without a full stop.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "console/reports/report_methods.h"

namespace kodra::console::guide {

enum class ValueType {
  kText,
  kNumber,
  kDate,    // a day, although some databases store it with a time of day
  kMoment,  // a day with its time
  kFlag,
};

// Where the printed page shows a column. Labels and the figures of a statistic look their columns up by name instead.
enum class Place {
  kColumn,        // in the table of a listing, under its caption
  kDetail,        // below a row of a listing, after its caption, unless it is empty
  kContinuation,  // continues the text of the column before it
  kTitle,         // the title, unless it is empty
  kSubtitle,      // the subtitle of a statistic; several are joined
  kFact,          // once above the table, after its caption
  kBlock,         // groups the lines of a statistic
  kLine,          // a statistic has one line for each of its values
  kCount,         // one line of a statistic, named by its caption
  kTotal,         // what a statistic adds up
  kNowhere,
};

struct Column {
  std::string_view name;
  ValueType type;
  std::string_view meaning;
  // Its name on the printed page.
  std::string_view caption = {};
  Place place = Place::kColumn;
  // The column that contains the caption, for things that each archive names itself. Where that column is empty,
  // `caption` is used.
  std::string_view captionColumn = {};
  // The values of TipoRpt with which the recordset has the column; "*" means all values that no other column names, and
  // empty means always.
  std::string_view kinds = {};
  // What its codes mean: "P permanente, I sem data". Printed above the table.
  std::string_view legend = {};
};

// A value of a parameter that has only a few.
struct Choice {
  std::string_view value;
  std::string_view meaning;
};

// What the value of a parameter is in the text of the statements.
enum class InSql {
  kText,     // a text between quotes, or the reason for other words
  kNumber,   // a whole number, without quotes
  kNumbers,  // whole numbers separated by commas, without quotes
  kNothing,  // the text is the same for all values
};

// A property of the parameter object that the report reads.
struct Parameter {
  std::string_view name;
  std::string_view effect;
  // An example, as typed on a command line.
  std::string_view sample;
  // The filter as the page says it, in lower case, "{}" being the value: "departamento {}". A flag is mentioned only if
  // it is set. Empty for what the page shows anyway.
  std::string_view words = {};
  InSql inSql = InSql::kText;
  // Further values, with which the report sends other statements than with the sample.
  std::vector<std::string_view> otherSamples = {};
  // All its values that differ in their effect, for a form; the first is the default. Empty for a parameter that takes
  // any text.
  std::vector<Choice> choices = {};
  // Its name on a form; empty if `effect` begins with words that say it.
  std::string_view label = {};

  bool ChangesSql() const { return inSql != InSql::kNothing; }
};

// What looks wrong and is required.
struct Oddity {
  std::string_view text;
  // The beginning of its entry in docs/behaviours.md.
  std::string_view entry;
};

// An error that means more in this report: the cause as the description contains it, or the name of a kind of answer
// (errors.h).
struct Failure {
  std::string_view cause;
  // In lower case.
  std::string_view whatHappened;
  std::string_view remedy;
};

// What a reader of the page must know, so that its figures do not mislead.
struct Note {
  std::string_view text;
  // The values of TipoRpt with which the page has the note; "!NF" means all others than these, and empty means always.
  std::string_view kinds = {};
};

// How the rows reach the client, and so whether they can be counted and read twice.
enum class RowsKind {
  kStreamed,  // from the server while they are read, forward only
  kAtClient,  // read whole when the recordset is opened
  kInMemory,  // made by the report, without a connection
};

enum class PageKind { kListing, kStatistic, kOpeningLabels, kClosingLabels, kDividerLabels, kContainerLabels };

struct Page {
  PageKind kind;
  // The title of a listing or a statistic, unless a column is Place::kTitle and not empty.
  std::string_view title = {};
  // The heading of the lines of a statistic in which no column is Place::kLine.
  std::string_view lineCaption = {};
  // The columns that come first in their place, in this order; the others follow in the order of the recordset.
  std::vector<std::string_view> first = {};
  std::vector<Note> notes = {};

  bool IsOfLabels() const { return kind != PageKind::kListing && kind != PageKind::kStatistic; }
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
  RowsKind rows = RowsKind::kStreamed;
  Page page;
  // What a reader of its statements must know beyond their text; empty for most.
  std::string_view sqlNote = {};
};

// The entries of all report methods, family by family.
const std::vector<Report>& Reports();

struct Family {
  std::string_view title;
  std::span<const Report> reports;
};
const std::vector<Family>& Families();

// The entry of a report, or of a listing that the program makes itself; null if there is none of these names.
const Report* Find(std::wstring_view className, std::wstring_view method);
// The entry of a method; every method has one.
const Report& About(const reports::ReportMethod& method);

// The column of that name, in any letter case, because databases differ in it; null for a name that the entry does not
// have.
const Column* FindColumn(const Report& report, std::wstring_view name);

// Whether SQLite makes something else of its statement, which then fails or finds nothing.
bool IsOddOnSqlite(const Report& report);

// The columns that the page shows in a place, in their order on paper.
std::vector<const Column*> ColumnsIn(Place place, const Report& report);

}  // namespace kodra::console::guide

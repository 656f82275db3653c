// The papers of the archive's counter and shelves, printed from the rows of its reports.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/formats/pages/printout.h"
#include "console/formats/row_reader.h"

namespace kodra::console::papers {

// All rows of a report.
struct ReportTable {
  std::vector<Column> columns;
  std::vector<std::vector<Value>> rows;

  // REQUIRES: the table outlives the reader.
  RowReader Row(std::size_t index) const { return {columns, rows[index]}; }
};

// What a paper is made from.
struct Source {
  // Calls a report with the parameters of the command.
  std::function<ReportTable(std::wstring_view className, std::wstring_view method)> read;
  // The paper's main parameter as typed; empty if it has none.
  std::wstring subject;
  Date today;
};

struct Paper {
  std::string_view name;     // on the command line
  std::string_view purpose;  // "Comprovante de retirada de originais"
  // The report whose parameters the command takes.
  std::wstring_view className, method;
  std::wstring_view subject;  // the parameter that must be given; empty if there is none
  // Raises UsageError when there is nothing to print on the paper.
  void (*print)(const Source& source, pages::Printout& printout);
};

// All papers, in the order of the help.
std::span<const Paper> Papers();
// The paper of that name, in any letter case. Raises UsageError for an unknown name, with the nearest known one.
const Paper& PaperNamed(std::string_view name);

// The papers about requests for originals, and about modules.
void PrintWithdrawalSlip(const Source& source, pages::Printout& printout);
void PrintOriginals(const Source& source, pages::Printout& printout);
void PrintDiscardAuthorisation(const Source& source, pages::Printout& printout);
void PrintModuleSheet(const Source& source, pages::Printout& printout);

}  // namespace kodra::console::papers

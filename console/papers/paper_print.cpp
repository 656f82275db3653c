#include "console/papers/paper_print.h"

#include <fmt/format.h>

#include "console/command_line/usage_error.h"
#include "console/formats/html/html_printout.h"
#include "console/formats/pages/paged_printout.h"
#include "console/formats/pages/pdf_canvas.h"
#include "console/run/open_report.h"
#include "console/run/row_source.h"
#include "values/dates.h"
#include "values/utf8.h"

namespace kodra::console::papers {
namespace {

// The paper's main parameter as typed. Raises UsageError if it is missing.
std::wstring SubjectOf(const Paper& paper, const std::vector<std::pair<std::wstring, std::wstring>>& given) {
  if (paper.subject.empty()) return {};
  for (const auto& [name, value] : given) {
    if (name == paper.subject && !value.empty()) return value;
  }
  throw UsageError(fmt::format("o papel {} precisa do parâmetro {}", paper.name, values::ToUtf8(paper.subject)));
}

ReportTable Read(const reports::ReportMethod& method, frame::ParameterObject parameters,
                 platform::Surroundings& surroundings, const std::wstring& connection) {
  RowSource source(OpenReport(method, connection, parameters, surroundings), method);
  ReportTable table = {source.Columns(), {}};
  for (std::vector<Value> values; source.Next(values);) table.rows.push_back(values);
  return table;
}

}  // namespace

PaperPrint::PaperPrint(const Paper& paper, const std::vector<std::pair<std::wstring, std::wstring>>& given,
                       ParametersOf parametersOf)
    : paper_(paper), parametersOf_(std::move(parametersOf)), subject_(SubjectOf(paper, given)) {
  parametersOf_(*reports::FindReportMethod(paper_.className, paper_.method));
}

void PaperPrint::Write(platform::Surroundings& surroundings, const std::wstring& connection,
                       const pages::Letterhead& letterhead, pages::PageFormat format, Output& output) const {
  const auto read = [&](std::wstring_view className, std::wstring_view name) {
    const reports::ReportMethod& method = *reports::FindReportMethod(className, name);
    return Read(method, parametersOf_(method), surroundings, connection);
  };
  const Source source = {read, subject_, values::Today()};
  if (format == pages::PageFormat::kPdf) {
    pages::PdfCanvas canvas(output, values::FromUtf8(paper_.purpose));
    pages::PagedPrintout printout(canvas, letterhead);
    paper_.print(source, printout);
  } else {
    html::HtmlPrintout printout(output, letterhead);
    paper_.print(source, printout);
  }
}

}  // namespace kodra::console::papers

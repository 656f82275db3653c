// Prints a paper from an archive.
//
//   const PaperPrint print(PaperNamed("modulo"), {{L"Modulo1", L"AA001"}}, parametersOf);
//   print.Write(surroundings, connection, letterhead, pages::PageFormat::kPdf, output);
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "console/formats/output.h"
#include "console/formats/pages/page_format.h"
#include "console/papers/papers.h"
#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"
#include "platform/surroundings.h"

namespace kodra::console::papers {

class PaperPrint {
 public:
  // The parameter object of a report, with the values that the user gave.
  using ParametersOf = std::function<frame::ParameterObject(const reports::ReportMethod& method)>;

  // `given` has the names and the values as typed. Raises UsageError if the paper's main parameter is not among them,
  // and what `parametersOf` raises for the paper's report.
  PaperPrint(const Paper& paper, const std::vector<std::pair<std::wstring, std::wstring>>& given,
             ParametersOf parametersOf);

  // Raises what the reports raise, ConnectionError, and UsageError when there is nothing to print.
  void Write(platform::Surroundings& surroundings, const std::wstring& connection, const pages::Letterhead& letterhead,
             pages::PageFormat format, Output& output) const;

 private:
  const Paper& paper_;
  ParametersOf parametersOf_;
  std::wstring subject_;
};

}  // namespace kodra::console::papers

// What there is to know about each report, for those who use it: the one table behind `lista`, `descreve` and the
// reference pages. Texts are Brazilian Portuguese in UTF-8.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "reports/report_methods.h"

namespace kodra::client::guide {

struct Report {
  std::string_view className;
  std::string_view method;
  // One line: what it lists or prints.
  std::string_view purpose;
};

// In the order of reports::ReportMethods().
std::span<const Report> Reports();
// The entry of a method.
const Report& About(const reports::ReportMethod& method);
// "CDeptoRpt.RelatorioDeptos".
std::string NameOf(const Report& report);

}  // namespace kodra::client::guide

// The parameters that change the text of a report's statements: each report method has one case for each combination of
// them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "console/reports/report_methods.h"
#include "values/value.h"

namespace kodra::engines {

// A property of the parameter object and the value that the client sets.
struct Setting {
  std::wstring_view property;
  Value value;
};

struct Case {
  const reports::ReportMethod* method;
  std::string label;  // the options that are set, "plain" when none is
  std::vector<Setting> settings;
};

// The cases of all report methods, in the order of the methods.
std::vector<Case> Cases();

// "CDeptoRpt.RelatorioDeptos".
std::string NameOf(const reports::ReportMethod& method);

}  // namespace kodra::engines

#include "reports/modules/module_filters.h"

#include "frame/parameter_reader.h"
#include "values/numbers.h"

namespace kodra::reports {

std::wstring DeptoFilter(AutomationObject& parameters) {
  const std::wstring code = frame::ReadText(parameters, L"CodDepto");
  if (values::LeadingNumber(code) <= 0) return {};
  return L" AND c.COD_DEPTO = '" + code + L"'";
}

std::wstring PregressoFilter(AutomationObject& parameters) {
  return frame::ReadFlag(parameters, L"ModoPregresso") ? L" AND c.DOCS_PREGRESSOS = 1" : L"";
}

}  // namespace kodra::reports

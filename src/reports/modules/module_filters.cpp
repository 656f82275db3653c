#include "reports/modules/module_filters.h"

#include "frame/parameter_reader.h"
#include "values/numbers.h"

namespace kodra::reports {

void FilterDepto(data::SelectBuilder& builder, AutomationObject& parameters) {
  const std::wstring code = frame::ReadText(parameters, L"CodDepto");
  if (values::LeadingNumber(code) > 0) builder.AddToWhere(L" AND c.COD_DEPTO = '", code, L"'");
}

void FilterPregresso(data::SelectBuilder& builder, AutomationObject& parameters) {
  if (frame::ReadFlag(parameters, L"ModoPregresso")) builder.AddToWhere(L" AND c.DOCS_PREGRESSOS = 1");
}

}  // namespace kodra::reports

#include "reports/statistics/taxonomy_names.h"

#include "data/system_parameters.h"
#include "values/convert.h"
#include "values/upper.h"

namespace kodra::reports {

std::wstring TaxonomyName(const std::wstring& parameter, const std::wstring& connectionString,
                          platform::Surroundings& surroundings) {
  return values::ToTextOrEmpty(data::ObtemParametroSistema(parameter, connectionString, surroundings));
}

std::wstring StatisticsTitle(const std::wstring& name) {
  return L"'ESTATÍSTICAS POR " + values::UpperCase(name) + L"'";
}

}  // namespace kodra::reports

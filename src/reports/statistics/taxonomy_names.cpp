#include "reports/statistics/taxonomy_names.h"

#include "data/system_parameters.h"
#include "values/convert.h"

namespace kodra::reports {

std::wstring TaxonomyName(const std::wstring& parameter, const std::wstring& connectionString,
                          platform::Surroundings& surroundings) {
  return values::ToTextOrEmpty(data::ObtemParametroSistema(parameter, connectionString, surroundings));
}

}  // namespace kodra::reports

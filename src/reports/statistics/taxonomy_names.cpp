#include "reports/statistics/taxonomy_names.h"

#include "data/system_parameters.h"
#include "text/convert.h"
#include "text/join.h"
#include "text/upper.h"

namespace kodra::reports {

std::wstring TaxonomyName(const std::wstring& parameter, const std::wstring& connectionString,
                          platform::Surroundings& surroundings) {
  return text::ToTextOrEmpty(data::ObtemParametroSistema(parameter, connectionString, surroundings));
}

std::wstring StatisticsTitle(const std::wstring& name) {
  return text::Join({L"'ESTATÍSTICAS POR ", text::UpperCase(name), L"'"});
}

}  // namespace kodra::reports

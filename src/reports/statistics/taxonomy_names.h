// The names that the installation has for the levels of its taxonomy.
#pragma once

#include <string>

#include "platform/surroundings.h"

namespace kodra::reports {

// A name among the system parameters (NOME_SUBGRUPO, NOME_SERIE), as text; a null is empty.
std::wstring TaxonomyName(const std::wstring& parameter, const std::wstring& connectionString,
                          platform::Surroundings& surroundings);

// The heading of a statistic by a level, as an SQL text literal: 'ESTATÍSTICAS POR <NAME>'.
std::wstring StatisticsTitle(const std::wstring& name);

}  // namespace kodra::reports

// The installation's own settings: what it calls a group, a subgroup and a series, its password rules and limits.
#pragma once

#include <string>

#include "platform/surroundings.h"

namespace kodra::data {

// Reads one system parameter through the sibling "KodraParamSist.Obtedor".
// - name: NOME_GRUPO, NOME_SUBGRUPO, NOME_SERIE, NOME_SERIE_PLURAL, MINUTOS_BLOQUEIO, MAX_DIAS_SENHA,
//   TESTAR_QUALIDADE_SENHA, USAR_AD or TAMANHO_MAXIMO_ARQUIVO, in any letter case.
// - source: a connection string (it names a provider or a driver), otherwise the path of an INI file.
// Returns the value as the sibling returns it. Raises, with source "modObtedorParamSist::ObtemParametroSistema",
// kErrBase + 1 for an empty source, kErrBase + 2 for an unknown name and 429 when the sibling is not installed.
Value ObtemParametroSistema(const std::wstring& name, const std::wstring& source, platform::Surroundings& surroundings);

}  // namespace kodra::data

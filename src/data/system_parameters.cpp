#include "data/system_parameters.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "data/create_object.h"
#include "values/erro.h"
#include "values/upper.h"

namespace kodra::data {
namespace {

constexpr const wchar_t* kSource = L"modObtedorParamSist::ObtemParametroSistema";

// Where the parameter set has a parameter: in a member, or in a member of one of its groups.
struct Parameter {
  std::wstring_view name;
  std::wstring_view group;
  std::wstring_view member;
};

constexpr auto kParameters = std::to_array<Parameter>({
    {L"NOME_GRUPO", L"Nomes", L"Grupo"},
    {L"NOME_SUBGRUPO", L"Nomes", L"Subgrupo"},
    {L"NOME_SERIE", L"Nomes", L"Serie"},
    {L"NOME_SERIE_PLURAL", L"Nomes", L"Serie_Plural"},
    {L"MINUTOS_BLOQUEIO", L"Senha", L"Minutos_Bloqueio"},
    {L"MAX_DIAS_SENHA", L"Senha", L"Max_Dias"},
    {L"TESTAR_QUALIDADE_SENHA", L"Senha", L"Verificar_Qualidade"},
    {L"USAR_AD", L"", L"Usar_Diretorio"},
    {L"TAMANHO_MAXIMO_ARQUIVO", L"", L"Tamanho_Maximo_Importacao"},
});

bool LooksLikeConnectionString(std::wstring_view source) {
  const std::wstring upper = values::UpperCase(source);
  const auto words = {L"PROVIDER=", L"PROVIDER =", L"DRIVER=", L"DRIVER ="};
  return std::any_of(words.begin(), words.end(),
                     [&](const wchar_t* word) { return upper.find(word) != std::wstring::npos; });
}

}  // namespace

Value ObtemParametroSistema(const std::wstring& name, const std::wstring& source,
                            platform::Surroundings& surroundings) {
  const Value reader = CriaObjeto(L"KodraParamSist.Obtedor", kSource, surroundings);
  if (source.empty()) throw Erro(kErrBase + 1, kSource, L"Arquivo INI ou String de Conexão não informada.");
  RequiredObject(reader).Let(LooksLikeConnectionString(source) ? L"StringConexao" : L"ArquivoIni", source);
  const Value set = RequiredObject(reader).Call(L"Obtem", {});

  const std::wstring upper = values::UpperCase(name);
  const auto* parameter = std::find_if(kParameters.begin(), kParameters.end(),
                                       [&](const Parameter& candidate) { return candidate.name == upper; });
  if (parameter == kParameters.end()) throw Erro(kErrBase + 2, kSource, L"Parâmetro desconhecido: \"" + name + L"\".");
  if (parameter->group.empty()) return RequiredObject(set).Get(parameter->member);
  const Value group = RequiredObject(set).Get(parameter->group);
  return RequiredObject(group).Get(parameter->member);
}

}  // namespace kodra::data

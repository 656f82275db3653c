#include "console/statements/placeholders.h"

#include "console/statements/placeholder.h"
#include "siblings/modulos_bsn.h"

namespace kodra::console {
namespace {

using Answer = Placeholder::Answer;
using Answers = Placeholder::Answers;

Answer Always(Value value) {
  return [value = std::move(value)](std::span<const Value>) { return value; };
}

Value Object(Answers answers) { return ObjectRef(std::make_shared<Placeholder>(std::move(answers))); }

Value SystemParameters() {
  return Object({{L"Nomes", Always(Object({{L"Grupo", Always(L"<NOME_GRUPO>")},
                                           {L"Subgrupo", Always(L"<NOME_SUBGRUPO>")},
                                           {L"Serie", Always(L"<NOME_SERIE>")},
                                           {L"Serie_Plural", Always(L"<NOME_SERIE_PLURAL>")}}))}});
}

Answers AnswersOf(const std::wstring& progId, std::int32_t databaseCode) {
  if (progId == L"KodraConexao.StrCon") return {{L"TipoBanco", Always(databaseCode)}};
  if (progId == L"KodraParamSist.Obtedor") return {{L"Obtem", Always(SystemParameters())}};
  if (progId == L"KodraBsnV3.ModulosBsn")
    return {{L"NumCxSubordinadaSQL", Always(siblings::SubordinateCode(databaseCode, L"s"))}};
  if (progId == L"KodraBsnV3.ObtedorDeModulos")
    return {{L"ObtemSubordinados", Always(Object({{L"Count", Always(std::int32_t{1})}}))}};
  if (progId == L"KodraBsnV3.ObtedorDeTiposOperadores") return {{L"ObtemDescricao", Always(L"")}};
  if (progId == L"VantLib.Conversoes") return {{L"ToDate", Always(Date{})}};
  return {};
}

}  // namespace

ObjectRef NewPlaceholder(const std::wstring& progId, std::int32_t databaseCode) {
  return std::make_shared<Placeholder>(AnswersOf(progId, databaseCode));
}

}  // namespace kodra::console

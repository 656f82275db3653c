#include "console/statements/placeholders.h"

#include <map>

#include "siblings/modulos_bsn.h"

namespace kodra::console {
namespace {

// The value of each property or method by its name, whatever the arguments.
using Answers = std::map<std::wstring, Value, std::less<>>;

class Placeholder final : public AutomationObject {
 public:
  explicit Placeholder(Answers answers) : answers_(std::move(answers)) {}

  Value Get(std::wstring_view member) override { return Call(member, {}); }
  void Let(std::wstring_view, const Value&) override {}
  void Set(std::wstring_view, const ObjectRef&) override {}
  // Empty for a member without an answer.
  Value Call(std::wstring_view member, std::span<const Value>) override {
    const auto answer = answers_.find(member);
    return answer == answers_.end() ? Value() : answer->second;
  }

 private:
  Answers answers_;
};

Value Object(Answers answers) { return ObjectRef(std::make_shared<Placeholder>(std::move(answers))); }

Value SystemParameters() {
  return Object({{L"Nomes", Object({{L"Grupo", L"<NOME_GRUPO>"},
                                    {L"Subgrupo", L"<NOME_SUBGRUPO>"},
                                    {L"Serie", L"<NOME_SERIE>"},
                                    {L"Serie_Plural", L"<NOME_SERIE_PLURAL>"}})}});
}

Answers AnswersOf(const std::wstring& progId, std::int32_t databaseCode) {
  if (progId == L"KodraConexao.StrCon") return {{L"TipoBanco", databaseCode}};
  if (progId == L"KodraParamSist.Obtedor") return {{L"Obtem", SystemParameters()}};
  if (progId == L"KodraBsnV3.ModulosBsn")
    return {{L"NumCxSubordinadaSQL", siblings::SubordinateCode(databaseCode, L"s")}};
  if (progId == L"KodraBsnV3.ObtedorDeModulos") return {{L"ObtemSubordinados", Object({{L"Count", std::int32_t{1}}})}};
  if (progId == L"KodraBsnV3.ObtedorDeTiposOperadores") return {{L"ObtemDescricao", L""}};
  if (progId == L"VantLib.Conversoes") return {{L"ToDate", Date{}}};
  return {};
}

}  // namespace

ObjectRef NewPlaceholder(const std::wstring& progId, std::int32_t databaseCode) {
  return std::make_shared<Placeholder>(AnswersOf(progId, databaseCode));
}

}  // namespace kodra::console

#include "tools/reference/member_texts.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include "console/reports/guide.h"
#include "values/utf8.h"

namespace kodra::console::reference {
namespace {

using reports::ReportMethod;
using values::ToUtf8;

// The members that are in no table.
struct MemberNote {
  std::string_view name;
  std::string_view note;
};
constexpr MemberNote kMemberNotes[] = {
    {"StringConexao", "String de conexão do ADO; defina antes do primeiro relatório"},
    {"Conexao", "Conexão aberta do cliente, no lugar de StringConexao; o componente não a abre, fecha nem muda"},
    {"LogFile", "Arquivo do log de depuração; vazio desliga o arquivo, não o evento DebugLog"},
    {"Executavel", "Caminho completo do arquivo do componente"},
    {"Versao", "Versão do componente: maior, menor e revisão"},
    {"Descr_Operador", "Nome de acesso"},
    {"Nome_Completo", "Nome completo"},
    {"Tipo", "Código do tipo de operador"},
    {"Descr_Depto", "Departamento"},
    {"Chapa", "Número da chapa"},
    {"Ramal", "Ramal"},
    {"Descr_Grupo_Op", "Grupo de operadores"},
    {"Ativo", "Se o operador está ativo"},
    {"Desabilitado_AD", "Se a conta no diretório está desabilitada; os relatórios não preenchem"},
    {"Existe_AD", "Se há uma conta no diretório; os relatórios não preenchem"},
    {"ToString", "Todas as propriedades em um texto só"},
};

std::string ParameterText(const frame::ParameterClass& parameterClass, const std::string& property) {
  const std::vector<Use> uses = UsesOf(parameterClass, property);
  if (uses.empty()) return "Nenhum relatório lê esta propriedade";
  return uses.front().effect + (uses.size() == 1 ? "" : " (muda conforme o relatório)");
}

std::string Attribute(const std::string& text) { return ", helpstring(\"" + text + "\")]"; }

}  // namespace

const char* const kEventText = "Traz cada linha do log no momento em que é escrita";

std::vector<const ReportMethod*> MethodsOf(const std::string& className) {
  std::vector<const ReportMethod*> methods;
  for (const ReportMethod& method : reports::ReportMethods())
    if (ToUtf8(method.className) == className) methods.push_back(&method);
  return methods;
}

const frame::ParameterClass* ParameterClassOf(const std::string& className) {
  for (const frame::ParameterClass& candidate : frame::ParameterClasses())
    if (ToUtf8(candidate.name) == className) return &candidate;
  return nullptr;
}

std::vector<Use> UsesOf(const frame::ParameterClass& parameterClass, const std::string& property) {
  std::vector<Use> uses;
  for (const ReportMethod& method : reports::ReportMethods()) {
    if (method.parameterClass != parameterClass.name) continue;
    for (const guide::Parameter& parameter : guide::About(method).parameters) {
      if (parameter.name != property) continue;
      auto use = std::ranges::find(uses, parameter.effect, &Use::effect);
      if (use == uses.end()) use = uses.insert(uses.end(), {{}, std::string(parameter.effect)});
      use->methods.push_back(&method);
    }
  }
  return uses;
}

std::string HelpText(const Class& of, const Member& member) {
  for (const ReportMethod* method : MethodsOf(of.name))
    if (ToUtf8(method->method) == member.name) return std::string(guide::About(*method).purpose);
  if (const frame::ParameterClass* parameters = ParameterClassOf(of.name))
    return ParameterText(*parameters, member.name);
  return std::string(std::ranges::find(kMemberNotes, member.name, &MemberNote::name)->note);
}

std::string WithHelpTexts(const std::string& idl) {
  std::istringstream reader(idl);
  const std::vector<Class> classes = ReadIdl(reader);
  static const std::regex kInterface(R"(    (disp)?interface I?(\w+).*)");
  static const std::regex kDescribed(
      R"((        \[id\(\d+\)(?:, propget)?)(?:, helpstring\("[^"]*"\))?\]( \w+ (\w+)\(.*))");
  std::istringstream lines(idl);
  std::string result;
  std::string className;
  std::smatch match;
  for (std::string line; std::getline(lines, line);) {
    if (std::regex_match(line, match, kInterface)) {
      className = match[1].matched ? std::string() : match[2].str();
    } else if (std::regex_match(line, match, kDescribed)) {
      const auto of = std::ranges::find(classes, className, &Class::name);
      const std::string text = of == classes.end()
                                   ? kEventText
                                   : HelpText(*of, *std::ranges::find(of->members, match[3].str(), &Member::name));
      line = match[1].str() + Attribute(text) + match[2].str();
    }
    result += line + "\n";
  }
  return result;
}

}  // namespace kodra::console::reference

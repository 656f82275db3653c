#include "tools/reference/pages.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "console/command_line/report_name.h"
#include "console/reports/errors.h"
#include "console/reports/words.h"
#include "frame/parameter_object.h"
#include "tools/reference/markdown.h"
#include "tools/reference/member_texts.h"
#include "values/utf8.h"

namespace kodra::console::reference {
namespace {

using reports::ReportMethod;
using values::ToUtf8;

// A database on which every report works, and the small one for all reports that work there.
constexpr const char* kMySql =
    "Provider=MSDASQL;Driver={MySQL ODBC 8.0 Unicode Driver};Server=servidor;Database=acervo;User=kodra;Password=…";
constexpr const char* kSqlite = "Provider=MSDASQL;Driver={SQLite3};Database=C:\\acervo\\acervo.db";

std::string TypeWord(const std::string& idlType) {
  if (idlType == "BSTR") return "texto";
  if (idlType == "DATE") return "data";
  if (idlType == "VARIANT_BOOL") return "sim ou não";
  return "objeto";
}

// The rule of a property of a parameter class, and what it is in a new object.
std::string ValueWords(const frame::Property& property) {
  return std::string(guide::RuleWords(property.rule)) +
         (property.initial.empty() ? "" : "; um objeto novo traz " + ToUtf8(property.initial));
}

std::string KindWords(const Member& member) {
  switch (member.kind) {
    case Member::Kind::kProperty:
      return "propriedade, " + TypeWord(member.type);
    case Member::Kind::kReadOnlyProperty:
      return "propriedade só de leitura, " + TypeWord(member.type);
    case Member::Kind::kMethod:
      break;
  }
  if (member.argument.empty()) return "método, devolve " + TypeWord(member.type);
  return "método de `" + member.argument + "`, devolve um Recordset";
}

std::string Members(const Class& of) {
  Table table({"Membro", "Id", "O que é", "Descrição"});
  for (const Member& member : of.members)
    table.Add({"`" + member.name + "`", std::to_string(member.id), KindWords(member), HelpText(of, member)});
  return "## Membros\n\n" + table.Text();
}

// A value as a script writes it.
std::string Literal(const frame::Property& property, std::string_view sample) {
  if (property.rule == frame::PropertyRule::kFlag) return "True";
  if (property.rule == frame::PropertyRule::kDate)
    return "DateSerial(" + std::string(sample.substr(6, 4)) + ", " +
           std::to_string(std::stoi(std::string(sample.substr(3, 2)))) + ", " +
           std::to_string(std::stoi(std::string(sample.substr(0, 2)))) + ")";
  return "\"" + std::string(sample) + "\"";
}

// The statement of a script that assigns the sample of a parameter.
std::string Assignment(const frame::ParameterClass& parameters, const guide::Parameter& parameter) {
  const auto property = std::ranges::find_if(parameters.properties, [&](const frame::Property& candidate) {
    return ToUtf8(candidate.name) == parameter.name;
  });
  return "parametros." + std::string(parameter.name) + " = " + Literal(*property, parameter.sample) + "\n";
}

std::string Sample(const ReportMethod& method) {
  const std::string className = ToUtf8(method.className);
  const std::string parameterClass = ToUtf8(method.parameterClass);
  const guide::Report& report = guide::About(method);
  std::string script = "Set relatorio = CreateObject(\"KodraRpt." + className +
                       "\")\n"
                       "Set parametros = CreateObject(\"KodraRpt." +
                       parameterClass +
                       "\")\n"
                       "relatorio.StringConexao = \"" +
                       (guide::IsOddOnSqlite(report) ? kMySql : kSqlite) + "\"\n";
  const std::string command = "kodrarpt sql " + NameOf(method) + " --banco todos" + guide::SampleArguments(report);
  for (const guide::Parameter& parameter : report.parameters)
    script += Assignment(*ParameterClassOf(parameterClass), parameter);
  script += "Set linhas = relatorio." + ToUtf8(method.method) + "(parametros)\n";
  return "```vb\n" + script + "```\n\n" + "```sh\n" + command + "\n```\n";
}

// How the rows are read, in a sentence or two with a link to the page about it.
std::string RowsWords(const ReportMethod& method) {
  switch (guide::About(method).rows) {
    case guide::RowsKind::kStreamed:
      return "As linhas [vêm do servidor](../recordsets.pt-BR.md#do-servidor) e são lidas uma vez só." +
             std::string(method.className == L"CCaixaRpt"
                             ? " Com a propriedade `Conexao`, [ficam no cliente](../recordsets.pt-BR.md#no-cliente)."
                             : "");
    case guide::RowsKind::kAtClient:
      return "As linhas [ficam no cliente](../recordsets.pt-BR.md#no-cliente) e podem ser contadas e relidas.";
    case guide::RowsKind::kInMemory:
      return "As linhas [são montadas na memória](../recordsets.pt-BR.md#na-memória) e podem ser contadas e relidas.";
  }
  return {};
}

std::string MethodSection(const ReportMethod& method) {
  const guide::Report& report = guide::About(method);
  const std::string parameterClass = ToUtf8(method.parameterClass);
  std::string text = "## " + ToUtf8(method.method) + "\n\n" + std::string(report.purpose) + ".\n\n";
  text += "Recebe um [`" + parameterClass + "`](" + parameterClass + ".md) e devolve um `Recordset`. " +
          RowsWords(method) + "\n\n";
  Table parameters({"Parâmetro", "O que faz", "Muda o SQL"});
  for (const guide::Parameter& parameter : report.parameters)
    parameters.Add({"`" + std::string(parameter.name) + "`", std::string(parameter.effect),
                    parameter.ChangesSql() ? "sim" : "não"});
  text += report.parameters.empty() ? "Não lê nenhum parâmetro.\n\n" : parameters.Text() + "\n";
  Table columns({"Coluna", "Tipo", "O que é"});
  for (const guide::Column& column : report.columns)
    columns.Add(
        {"`" + std::string(column.name) + "`", std::string(guide::TypeWord(column.type)), guide::MeaningWords(column)});
  text += columns.Text();
  if (!report.oddities.empty()) text += "\nParece errado, mas é assim mesmo ([mais](../behaviours.md)):\n\n";
  for (const guide::Oddity& oddity : report.oddities) text += "- " + std::string(oddity.text) + ".\n";
  if (!report.failures.empty()) text += "\nErros próprios, além dos [comuns](erros.md):\n\n";
  for (const guide::Failure& failure : report.failures)
    text += "- \"" + std::string(failure.cause) + "\": " + std::string(failure.whatHappened) + ". " +
            std::string(failure.remedy) + ".\n";
  return text + "\nExemplo:\n\n" + Sample(method);
}

std::string ReportPage(const Class& of) {
  std::string text = "# " + of.name + "\n\nClasse de relatório, `CreateObject(\"KodraRpt." + of.name + "\")`.\n\n";
  text += Members(of);
  for (const std::string& event : of.events) text += "\n## Evento " + event + "\n\n" + kEventText + ".\n";
  for (const ReportMethod* method : MethodsOf(of.name)) text += "\n" + MethodSection(*method);
  return text;
}

// The properties with the values that they keep.
std::string Properties(const Class& of, const frame::ParameterClass& parameters) {
  Table table({"Propriedade", "Id", "Valor"});
  for (const Member& member : of.members) {
    const auto property = std::ranges::find_if(
        parameters.properties, [&](const frame::Property& candidate) { return ToUtf8(candidate.name) == member.name; });
    table.Add({"`" + member.name + "`", std::to_string(member.id), ValueWords(*property)});
  }
  return table.Text();
}

// What each property does, and in which methods.
std::string Uses(const Class& of, const frame::ParameterClass& parameters) {
  Table table({"Propriedade", "O que faz", "Em"});
  for (const Member& member : of.members) {
    const std::string name = "`" + member.name + "`";
    const std::vector<Use> uses = UsesOf(parameters, member.name);
    if (uses.empty()) table.Add({name, "nenhum relatório lê", ""});
    for (const Use& use : uses) {
      std::string methods;
      for (const ReportMethod* method : use.methods)
        methods += (methods.empty() ? "`" : ", `") + ToUtf8(method->method) + "`";
      table.Add({name, use.effect, methods});
    }
  }
  return table.Text();
}

// An assignment to a property that a report reads; nothing if none is read.
std::string ParameterSample(const frame::ParameterClass& parameters) {
  for (const ReportMethod& method : reports::ReportMethods()) {
    const auto& read = guide::About(method).parameters;
    if (method.parameterClass == parameters.name && !read.empty()) return Assignment(parameters, read.front());
  }
  return {};
}

std::string ParameterPage(const Class& of) {
  const frame::ParameterClass& parameters = *ParameterClassOf(of.name);
  std::string text = "# " + of.name + "\n\nObjeto de parâmetros, `CreateObject(\"KodraRpt." + of.name + "\")`.\n\n";
  text += "## Propriedades\n\n" + Properties(of, parameters);
  text += "\n## O que cada propriedade faz\n\n" + Uses(of, parameters) + "\n## Quem recebe\n\n";
  for (const ReportMethod& method : reports::ReportMethods()) {
    if (method.parameterClass != parameters.name) continue;
    text += "- [`" + NameOf(method) + "`](" + ToUtf8(method.className) + ".md)" +
            (guide::About(method).parameters.empty() ? ": não lê nenhuma, mas exige o objeto\n" : "\n");
  }
  return text + "\n## Exemplo\n\n```vb\nSet parametros = CreateObject(\"KodraRpt." + of.name + "\")\n" +
         ParameterSample(parameters) + "```\n";
}

std::string OtherPage(const Class& of) {
  std::string text = "# " + of.name + "\n\n";
  if (of.isCreatable)
    text += "O que o componente diz de si, `CreateObject(\"KodraRpt." + of.name + "\")`.\n\n";
  else
    text += "Um operador do arquivo. O cliente não cria objetos desta classe.\n\n";
  text += Members(of);
  if (of.isCreatable)
    text += "\n## Exemplo\n\n```vb\nWScript.Echo CreateObject(\"KodraRpt." + of.name + "\")." + of.members.back().name +
            "\n```\n";
  return text;
}

std::string ErrorTable(std::span<const guide::Error> errors) {
  Table table({"Número", "Texto", "O que houve", "O que fazer"});
  for (const guide::Error& error : errors)
    table.Add({guide::NumberWords(error.number), std::string(error.text), std::string(error.whatHappened),
               std::string(error.remedy) + "."});
  return table.Text();
}

std::string Quoted(const std::vector<std::string_view>& words) {
  std::string text;
  for (const std::string_view word : words) text.append(text.empty() ? "\"" : ", \"").append(word).append("\"");
  return text;
}

std::string AnswerTable() {
  Table table({"Resposta", "Traz uma destas palavras", "O que houve", "O que fazer"});
  for (const guide::Answer& answer : guide::Answers())
    table.Add({std::string(answer.name), Quoted(answer.words), std::string(answer.whatHappened),
               std::string(answer.remedy) + "."});
  return table.Text();
}

std::string ErrorsPage() {
  return "# Erros\n\n"
         "As reticências (…) marcam, nos textos, o que muda de um caso para outro.\n\n"
         "## O que o cliente recebe\n\n" +
         ErrorTable(guide::Errors()) +
         "\n## As causas\n\n"
         "O número da causa se perde no caminho, e, fora de `CCaixaRpt`, a origem também: ela só aparece na descrição "
         "do "
         "erro\n80041FAB. Só `DocsNoModuloSubRpt` deixa o erro passar sem mudança. O que falhou ao abrir o banco traz "
         "antes "
         "os nomes entre\ncolchetes, como `[modADO.AbreCn]: `, e depois o código do banco, como ` [N:942]`.\n\n" +
         ErrorTable(guide::Causes()) +
         "\n## O que os bancos respondem\n\n"
         "A causa traz as palavras do banco ou do driver, na língua deles. Por estas o `kodrarpt` reconhece o que "
         "houve:\n\n" +
         AnswerTable();
}

// Whether the list of causes says the same as the report.
bool IsCommon(const guide::Failure& failure) {
  return std::ranges::any_of(guide::Causes(), [&](const guide::Error& error) {
    return error.text == failure.cause && error.remedy == failure.remedy;
  });
}

// All causes, for people who look for what they read in a message.
std::string CauseTable() {
  Table table({"Causa", "O que houve", "O que fazer"});
  const auto add = [&](const std::string& cause, std::string_view whatHappened, std::string_view remedy) {
    table.Add({cause, std::string(whatHappened), guide::Continued(remedy)});
  };
  for (const guide::Error& error : guide::Causes()) add(std::string(error.text), error.whatHappened, error.remedy);
  for (const ReportMethod& method : reports::ReportMethods()) {
    for (const guide::Failure& failure : guide::About(method).failures) {
      if (!IsCommon(failure))
        add(std::string(failure.cause) + ", em " + NameOf(method), failure.whatHappened, failure.remedy);
    }
  }
  for (const guide::Answer& answer : guide::Answers())
    add(std::string(answer.name) + " (" + Quoted({answer.words.front()}) + "…)", answer.whatHappened, answer.remedy);
  return table.Text();
}

std::string Index(const std::vector<Class>& classes) {
  std::string text =
      "# Referência\n\n"
      "As classes públicas de KodraRpt, feitas da IDL e do guia de `kodrarpt`; `./kodra reference` as escreve de "
      "novo.\n"
      "Os erros, com o que fazer, estão em [erros](erros.md); como ler as linhas, em "
      "[recordsets](../recordsets.pt-BR.md).\n\n";
  Table table({"Classe", "O que faz"});
  for (const Class& of : classes) {
    const bool isParameters = ParameterClassOf(of.name) != nullptr;
    std::string what = isParameters ? "Parâmetros de " + of.name.substr(0, of.name.size() - 3) : "";
    for (const ReportMethod* method : MethodsOf(of.name))
      what += (what.empty() ? "" : "; ") + std::string(guide::About(*method).purpose);
    if (what.empty()) what = of.isCreatable ? "Versão e arquivo do componente" : "Um operador";
    table.Add({"[`" + of.name + "`](" + of.name + ".md)", what});
  }
  return text + table.Text();
}

}  // namespace

std::string WithErrorTable(const std::string& guide) {
  constexpr std::string_view kBegin = "<!-- ./kodra reference escreve daqui -->\n";
  constexpr std::string_view kEnd = "<!-- até aqui -->\n";
  const std::size_t begin = guide.find(kBegin);
  const std::size_t end = guide.find(kEnd);
  if (begin == guide.npos || end == guide.npos) throw std::runtime_error("o guia não tem os comentários da tabela");
  return guide.substr(0, begin) + std::string(kBegin) + "\n" + CauseTable() + "\n" + guide.substr(end);
}

std::map<std::string, std::string> Pages(const std::vector<Class>& classes) {
  std::map<std::string, std::string> pages = {{"README.md", Index(classes)}, {"erros.md", ErrorsPage()}};
  for (const Class& of : classes) {
    const bool isReport = !MethodsOf(of.name).empty();
    const bool isParameters = ParameterClassOf(of.name) != nullptr;
    pages[of.name + ".md"] = isReport ? ReportPage(of) : isParameters ? ParameterPage(of) : OtherPage(of);
  }
  return pages;
}

}  // namespace kodra::console::reference

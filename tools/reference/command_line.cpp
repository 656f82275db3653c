#include "tools/reference/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <regex>

#include "console/command_line/help.h"
#include "console/command_line/report_name.h"
#include "frame/parameter_object.h"
#include "frame/version.h"
#include "values/utf8.h"

namespace kodra::console::reference {
namespace {

using values::ToUtf8;

constexpr const char* kReportArgument = "RELATÓRIO";
constexpr const char* kFileArgument = "ARQUIVO";

bool IsFile(const CLI::Option& option) { return option.get_option_text() == "ARQUIVO"; }
bool IsProfile(const CLI::Option& option) { return option.get_option_text() == "PERFIL"; }
bool IsParameter(const CLI::Option& option) { return option.get_group() == kParameterGroup; }
bool TakesAValue(const CLI::Option& option) { return option.get_items_expected_max() > 0; }

std::string Joined(const std::vector<std::string>& words, const char* separator) {
  std::string text;
  for (const std::string& word : words) text.append(text.empty() ? "" : separator).append(word);
  return text;
}

// "-h", "--help".
std::vector<std::string> NamesOf(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

// A branch of a case that sets what bash offers.
std::string WordCase(const std::string& pattern, const std::vector<std::string>& words) {
  return "    " + pattern + ") words='" + Joined(words, " ") + "' ;;\n";
}

// "CDeptoRpt.RelatorioDeptos", for every report.
std::vector<std::string> ReportNames() {
  std::vector<std::string> names;
  for (const reports::ReportMethod& method : reports::ReportMethods()) names.push_back(NameOf(method));
  return names;
}

// The options that are parameters, by the report's class.
std::string ParameterCases() {
  std::string cases;
  std::wstring_view last;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    if (method.className == last) continue;
    last = method.className;
    std::vector<std::string> options;
    for (const frame::Property& property : frame::ParameterClassNamed(method.parameterClass).properties)
      options.push_back("--" + ToUtf8(property.name));
    cases += WordCase(ToUtf8(method.className) + "*", options);
  }
  return cases;
}

// What follows each option of a command that takes a value.
std::string ValueCases(const CLI::App& command) {
  std::string cases;
  for (const CLI::Option* option : command.get_options()) {
    if (!option->nonpositional() || !TakesAValue(*option) || IsParameter(*option)) continue;
    const std::string pattern = "'" + command.get_name() + " " + option->get_name() + "'";
    const std::vector<std::string> words = ValuesIn(option->get_description());
    if (IsFile(*option))
      cases += "    " + pattern + ") files=1 ;;\n";
    else if (IsProfile(*option))
      cases += "    " + pattern + ") words=$(_kodrarpt_profiles) ;;\n";
    else if (words.empty())
      cases += "    " + pattern + ") ;;\n";
    else
      cases += WordCase(pattern, words);
  }
  return cases;
}

// What a command takes: its options, the values of its arguments, and whether it takes the parameters of a report.
std::string CommandCase(const CLI::App& command) {
  std::vector<std::string> options;
  std::string arguments;
  bool hasParameters = false;
  for (const CLI::Option* option : command.get_options()) {
    if (IsParameter(*option))
      hasParameters = true;
    else if (option->nonpositional())
      options.push_back("--" + option->get_lnames().front());
    else if (option->get_name() == kReportArgument)
      arguments = "      arguments=$reports\n";
    else if (option->get_name() == kFileArgument)
      arguments = "      fileArguments=1\n";
    else if (const auto values = ValuesIn(option->get_description()); !values.empty())
      arguments = "      arguments='" + Joined(values, " ") + "'\n";
  }
  return "    " + command.get_name() + ")\n      options='" + Joined(options, " ") + "'\n" + arguments +
         (hasParameters ? "      hasParameters=1\n" : "") + "      ;;\n";
}

// A text as troff prints it.
std::string Troff(const std::string& text) {
  std::string result;
  for (const char letter : text) {
    if (letter == '\\')
      result += "\\e";
    else if (letter == '-')
      result += "\\-";
    else
      result += letter;
  }
  // A line that begins with a point or an apostrophe would be a request.
  return std::regex_replace(result, std::regex("(^|\n)([.'])"), "$1\\&$2");
}

std::string AsTyped(const std::string& text) { return ".nf\n" + Troff(text) + "\n.fi\n"; }

std::string OptionParagraph(const CLI::Option& option) {
  const bool isArgument = !option.nonpositional();
  const std::string name = isArgument ? option.get_name() : Joined(NamesOf(option), ", ");
  const std::string& value = option.get_option_text();
  return ".TP\n\\fB" + Troff(name) + "\\fR" +
         (isArgument || !TakesAValue(option) || value == " " ? "" : " \\fI" + Troff(value) + "\\fR") + "\n" +
         Troff(option.get_description()) + ".\n";
}

std::string CommandSection(const CLI::App& command) {
  std::string text = ".SS " + Troff(command.get_name()) + "\n" + Troff(command.get_description()) + ".\n";
  bool hasParameters = false;
  for (const CLI::Option* option : command.get_options()) {
    if (IsParameter(*option))
      hasParameters = true;
    else
      text += OptionParagraph(*option);
  }
  if (hasParameters)
    text +=
        ".TP\n\\fB\\-\\-NOME\\fR \\fIVALOR\\fR\nUm parâmetro do relatório; \"kodrarpt descreve\" mostra os nomes e os "
        "valores.\n";
  return text + (command.get_footer().empty() ? "" : ".PP\n" + AsTyped(command.get_footer()));
}

}  // namespace

std::vector<std::string> ValuesIn(const std::string& description) {
  static const std::regex kList(R"((?:.*: )?([a-z0-9-]+(?:, [a-z0-9-]+)*(?:, | ou )[a-z0-9-]+)(?: \(.*)?)");
  static const std::regex kWord("[a-z0-9-]+");
  std::smatch match;
  if (!std::regex_match(description, match, kList)) return {};
  const std::string list = std::regex_replace(match[1].str(), std::regex(" ou "), ", ");
  return {std::sregex_token_iterator(list.begin(), list.end(), kWord), std::sregex_token_iterator()};
}

std::string BashCompletion(const Program& program) {
  std::vector<std::string> names;
  std::string commandCases;
  std::string valueCases;
  for (const CLI::App* command : program.Commands()) {
    names.push_back(command->get_name());
    commandCases += CommandCase(*command);
    valueCases += ValueCases(*command);
  }
  return "# Completa os comandos de kodrarpt no bash: source kodrarpt.bash. Feito por ./kodra reference.\n"
         "\n"
         "_kodrarpt() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command=${COMP_WORDS[1]}\n"
         "  local reports='" +
         Joined(ReportNames(), " ") +
         "'\n"
         "  local words='' options='' arguments='' fileArguments='' hasParameters='' files=''\n"
         "  COMPREPLY=()\n"
         "  if [ \"$COMP_CWORD\" = 1 ]; then\n"
         "    words='" +
         Joined(names, " ") +
         " ajuda --help --version'\n"
         "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$word\")\n"
         "    return\n"
         "  fi\n"
         "  case $command in\n" +
         commandCases +
         "  esac\n"
         "  case \"$command $previous\" in\n" +
         valueCases +
         "    'perfil testa' | 'perfil remove') words=$(_kodrarpt_profiles) ;;\n"
         "    *' --'[A-Z]*) ;;\n"
         "    *)\n"
         "      case $word in\n"
         "        -*) words=$options$(_kodrarpt_parameters \"$hasParameters\" \"${COMP_WORDS[2]}\") ;;\n"
         "        *) words=$arguments files=$fileArguments ;;\n"
         "      esac\n"
         "      ;;\n"
         "  esac\n"
         "  if [ -n \"$files\" ]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
         "  else\n"
         "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$word\")\n"
         "  fi\n"
         "}\n"
         "\n"
         "# Os perfis do usuário.\n"
         "_kodrarpt_profiles() {\n"
         "  sed -n 's/^[[:blank:]]*\\[\\([^]]*\\)\\].*/\\1/p' "
         "\"${XDG_CONFIG_HOME:-$HOME/.config}/kodrarpt/perfis.ini\" 2>/dev/null\n"
         "}\n"
         "\n"
         "# Os parâmetros do relatório que o segundo argumento nomeia, se o comando aceita parâmetros.\n"
         "_kodrarpt_parameters() {\n"
         "  local words=''\n"
         "  [ -n \"$1\" ] || return\n"
         "  case $2 in\n" +
         ParameterCases() +
         "  esac\n"
         "  echo \" $words\"\n"
         "}\n"
         "\n"
         "complete -o filenames -F _kodrarpt kodrarpt kodrarpt.exe\n";
}

std::string ManPage(const Program& program) {
  std::string text =
      ".\\\" Feita por ./kodra reference.\n"
      ".TH KODRARPT 1 \"\" \"KodraRpt " KODRA_VERSION_TEXT
      "\"\n"
      ".SH NOME\n"
      "kodrarpt \\- gera os relatórios do arquivo sem o programa que os imprime\n"
      ".SH SINOPSE\n"
      "\\fBkodrarpt\\fR \\fICOMANDO\\fR [\\fIOPÇÕES\\fR]\n"
      ".SH COMANDOS\n";
  for (const CLI::App* command : program.Commands()) text += CommandSection(*command);
  return text + ".SH \"CÓDIGOS DE SAÍDA E AJUDA\"\n" + AsTyped(kProgramFooter);
}

}  // namespace kodra::console::reference

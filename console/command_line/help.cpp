#include "console/command_line/help.h"

#include "console/command_line/columns.h"

namespace kodra::console {
namespace {

// The option or argument that CLI11's message is about. The message begins with its name and a colon or a blank, or
// with "Could not convert: " and its name.
std::string Subject(const CLI::ParseError& error) {
  constexpr std::string_view kConversion = "Could not convert: ";
  std::string message = error.what();
  if (message.starts_with(kConversion)) message.erase(0, kConversion.size());
  return message.substr(0, message.find_first_of(": "));
}

std::string Line(const std::string& left, const std::string& right, std::size_t width) {
  const std::string start = "  " + left;
  if (right.empty()) return start + "\n";
  if (Width(start) >= width) return start + "\n" + std::string(width, ' ') + right + "\n";
  return Padded(start, width) + right + "\n";
}

}  // namespace

const char* const kProgramFooter =
    "Códigos de saída:\n"
    "  0  tudo certo\n"
    "  1  o relatório ou o banco de dados deu erro; rotina: uma saída não foi gravada;\n"
    "     etiquetas: um código não tem etiqueta\n"
    "  2  a linha de comando tem um erro\n"
    "  3  não foi possível conectar ao banco de dados\n"
    "  4  verifica: um relatório não pode funcionar, porque falta algo, não há permissão ou um tipo está errado;\n"
    "     confere: algo está ausente, em outro lugar ou é desconhecido;\n"
    "     perfil testa: os relatórios não têm um dialeto para o banco\n"
    "  5  não foi possível ler ou gravar um arquivo\n"
    "  130  interrompido por Ctrl-C; 143, por SIGTERM\n"
    "\n"
    "\"kodrarpt COMANDO --help\" explica cada comando, com um exemplo.";

HelpFormatter::HelpFormatter() {
  label("Usage", "Uso");
  label("OPTIONS", "OPÇÕES");
  label("SUBCOMMAND", "COMANDO");
  label("Positionals", "Argumentos");
  label("REQUIRED", "(obrigatório)");
  label("TEXT", "TEXTO");
  label("INT", "NÚMERO");
  label("UINT", "NÚMERO");
  label("Env", "variável");
  label("Needs", "com");
  label("Excludes", "sem");
}

std::string HelpFormatter::make_group(std::string group, bool isPositional,
                                      std::vector<const CLI::Option*> options) const {
  if (group != kParameterGroup) return CLI::Formatter::make_group(std::move(group), isPositional, std::move(options));
  return group + ":\n" +
         Line("--NOME VALOR", "\"kodrarpt descreve RELATÓRIO\" mostra os nomes e os valores", get_column_width());
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
  return Line(make_option_name(option, isPositional) + make_option_opts(option), make_option_desc(option),
              get_column_width());
}

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
  return Line(command->get_name(), command->get_description(), get_column_width());
}

std::string InPortuguese(const CLI::ParseError& error) {
  const std::string& kind = error.get_name();
  const std::string subject = Subject(error);
  if (kind == "RequiredError") return subject == "A" ? "falta o comando" : "falta " + subject;
  if (kind == "ArgumentMismatch") {
    const bool tooMany = std::string(error.what()).find("At Most") != std::string::npos;
    return tooMany ? subject + " aparece mais de uma vez: deixe só uma" : "falta o valor de " + subject;
  }
  if (kind == "ConversionError") return "o valor de " + subject + " não é um número inteiro, ou é grande demais";
  // No option of this program has another condition.
  return "a linha de comando tem um erro; \"kodrarpt COMANDO --help\" mostra como ela deve ser";
}

}  // namespace kodra::console

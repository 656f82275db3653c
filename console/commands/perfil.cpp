// kodrarpt perfil: the user's connections by name.
#include <fmt/format.h>
#include <CLI/CLI.hpp>
#include <array>
#include <memory>

#include "console/check/database_identity.h"
#include "console/command_line/path_text.h"
#include "console/command_line/suggest.h"
#include "console/command_line/terminal_text.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/profiles/profiles.h"
#include "console/run/connection_options.h"
#include "console/run/stopping.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::FromUtf8;
using values::ToUtf8;

constexpr const char* kFooter =
    "Um perfil guarda uma conexão com um nome, para --perfil NOME em qualquer comando. Os perfis ficam em um arquivo\n"
    "só do usuário (~/.config/kodrarpt/perfis.ini; no Windows, %APPDATA%\\kodrarpt\\perfis.ini), sem nenhuma senha.\n"
    "A senha vem de onde o perfil diz: de uma variável de ambiente (--senha-de), da primeira linha que um comando\n"
    "escreve (--senha-comando; quem o executa é /bin/sh ou, no Windows, cmd.exe) ou do terminal, que a pergunta sem\n"
    "mostrá-la (--pergunta-senha).\n"
    "\n"
    "testa conecta e diz que banco respondeu, em que dialeto os relatórios o consultam e em quanto tempo. O código de\n"
    "saída é 3 se não foi possível conectar, e 4 se os relatórios não têm um dialeto para o banco.\n"
    "\n"
    "Exemplo:\n"
    "  kodrarpt perfil novo acervo --conexao \"DSN=Acervo;UID=ana\" --senha-comando \"pass acervo\"\n"
    "  kodrarpt perfil testa acervo\n"
    "  kodrarpt executa CDeptoRpt --perfil acervo";

// The options of the command, as typed.
struct Options {
  std::string action, name, connection;
  PasswordSource password;
  bool replaces = false;
  bool details = false;  // which Program reads
};

// Which options an action takes.
struct Action {
  std::string_view name;
  bool takesName;
  std::vector<std::string> options;
};

const std::array kActions = {
    Action{"novo", true, {"--conexao", "--senha-de", "--senha-comando", "--pergunta-senha", "--substitui"}},
    Action{"lista", false, {}},
    Action{"testa", true, {"--senha-de", "--pergunta-senha", kDetailsOption}},
    Action{"remove", true, {}},
};

// Raises UsageError for an unknown action, a name that is missing or too much, and an option that the action does not
// take.
const Action& CheckedAction(const Options& options, const CLI::App& command) {
  const std::string folded = Folded(options.action);
  const auto action = std::ranges::find(kActions, folded, &Action::name);
  if (action == kActions.end()) {
    std::vector<std::string> known;
    known.reserve(std::size(kActions));
    for (const Action& each : kActions) known.emplace_back(each.name);
    throw UsageError(fmt::format("a ação \"{}\" não existe{}; escolha entre {}", options.action,
                                 DidYouMean(folded, known), fmt::join(known, ", ")));
  }
  if (action->takesName && options.name.empty()) throw UsageError("falta o nome do perfil");
  if (!action->takesName && !options.name.empty()) throw ExtraArgument(options.name);
  for (const CLI::Option* option : command.get_options()) {
    const bool isGiven = option->nonpositional() && option->count() > 0;
    if (isGiven && std::ranges::find(action->options, option->get_name()) == action->options.end())
      throw UsageError(fmt::format("{} não vale com perfil {}", option->get_name(), action->name));
  }
  return *action;
}

ExitCode Add(Program& program, const Options& options) {
  if (options.connection.empty()) throw UsageError("falta --conexao");
  Profiles().Add({options.name, options.connection, options.password}, options.replaces);
  program.Out() << fmt::format("Perfil {} gravado em {}\nPara testá-lo: kodrarpt perfil testa {}\n", options.name,
                               TextOf(ProfilesPath()), options.name);
  return ExitCode::kOk;
}

ExitCode Remove(Program& program, const Options& options) {
  Profiles profiles;
  const std::string name = profiles.Remove(options.name);
  program.Out() << fmt::format("Perfil {} removido\n", name);
  return ExitCode::kOk;
}

std::string Described(const PasswordSource& password) {
  if (password.asks) return "perguntada no terminal";
  if (!password.command.empty()) return "da saída de um comando";
  if (!password.variable.empty()) return "da variável " + password.variable;
  return std::string("da variável ") + kPasswordVariable + ", se existir";
}

ExitCode List(Program& program) {
  const Profiles profiles;
  for (const Profile& profile : profiles.All()) {
    const std::wstring connection = FromUtf8(profile.connection);
    std::string lines = fmt::format("{}\n  conexão  {}\n  senha    {}\n", profile.name,
                                    ToUtf8(values::HidePassword(connection, connection)), Described(profile.password));
    if (!profile.problem.empty()) lines += fmt::format("  não pode ser usado: {}\n", profile.problem);
    program.Out() << ForTerminal(lines);
  }
  if (profiles.All().empty()) program.Err() << "kodrarpt: não há perfis; kodrarpt perfil --help mostra como criar um\n";
  return ExitCode::kOk;
}

ExitCode Test(Program& program, const Options& options) {
  if (options.password.asks && !options.password.variable.empty())
    throw UsageError("--senha-de e --pergunta-senha não podem ser usados juntos");
  const std::wstring connection = ConnectionOfProfile(options.name, options.password);
  const std::unique_ptr<Machine> machine = NewMachine();
  const Stopping stopping(*machine, {}, program.Err());
  DatabaseAnswer answer;
  if (!stopping.Completes([&] { answer = AskDatabase(connection, *machine); })) return stopping.Outcome();
  program.Out() << ForTerminal(LinesOf(answer));
  return answer.identity.name.empty() ? ExitCode::kMismatch : ExitCode::kOk;
}

ExitCode Perfil(Program& program, const Options& options, const CLI::App& command) {
  const std::string_view action = CheckedAction(options, command).name;
  if (action == "novo") return Add(program, options);
  if (action == "lista") return List(program);
  return action == "testa" ? Test(program, options) : Remove(program, options);
}

}  // namespace

void AddPerfil(Program& program) {
  const auto options = std::make_shared<Options>();
  const auto self = std::make_shared<const CLI::App*>();
  CLI::App& command = program.Add({"perfil", "Guarda conexões com um nome, sem a senha", kFooter},
                                  [&program, options, self] { return Perfil(program, *options, **self); });
  *self = &command;
  command.add_option("AÇÃO", options->action, "novo, lista, testa ou remove")->option_text(" ")->required();
  command.add_option("NOME", options->name, "O nome do perfil, para novo, testa e remove")->option_text(" ");
  command.add_option("--conexao", options->connection, "novo: a string de conexão, sem a senha")->option_text("STRING");
  command
      .add_option("--senha-de", options->password.variable, "novo, testa: a variável de ambiente que contém a senha")
      ->option_text("VARIÁVEL");
  command
      .add_option("--senha-comando", options->password.command,
                  "novo: um comando que escreve a senha na primeira linha da sua saída")
      ->option_text("COMANDO");
  command.add_flag("--pergunta-senha", options->password.asks, "novo, testa: pergunta a senha no terminal");
  command.add_flag("--substitui", options->replaces, "novo: troca um perfil que já existe");
  command.add_flag(kDetailsOption, options->details, "testa: em um erro, mostra também a mensagem do componente");
}

}  // namespace kodra::console

// kodrarpt painel: the reports in a browser.
#include <CLI/CLI.hpp>
#include <memory>

#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/formats/cell_text.h"
#include "console/panel/serve.h"
#include "console/profiles/profiles.h"
#include "console/run/connection_options.h"
#include "console/run/time_limit.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

constexpr const char* kFooter =
    "Mostra o endereço da página, com a sua chave, e a abre no navegador. A página só existe para este computador,\n"
    "e só para quem tem a chave; nada é gravado no banco. O painel termina com Ctrl-C, ou sozinho, se ninguém o usa.\n"
    "\n"
    "Na página escolhe-se entre a conexão do comando e os perfis. Sem --conexao nem --perfil, a escolha vem primeiro. "
    "Um\n"
    "perfil que pergunta a senha no terminal só pode ser usado com --perfil.\n"
    "\n"
    "Exemplos:\n"
    "  kodrarpt painel\n"
    "  KODRARPT_SENHA=… kodrarpt painel --conexao \"DSN=Acervo;UID=ana\"";

struct Options {
  ConnectionOptions connection;
  TimeLimit timeLimit;
  int port = 0;
  bool hasNoBrowser = false;
  int idleMinutes = 30;
};

constexpr int kHighestPort = 65535;
constexpr int kDay = 24 * 60;

// Without a connection, the page lets the user choose one of the profiles.
void Connect(const ConnectionOptions& options, panel::PanelOptions& panel) {
  const std::string profile = options.ProfileName();
  const bool isNamed = options.HasConnection() || !profile.empty();
  if (!isNamed && !options.Password().IsNone())
    throw UsageError("--senha-de e --pergunta-senha precisam de --conexao ou --perfil");
  if (!isNamed && !Profiles().All().empty()) return;
  panel.connection = options.Text();
  if (panel.connection.empty()) throw UsageError("a string de conexão está vazia: informe-a em --conexao");
  if (!profile.empty()) panel.profile = Profiles().Find(profile).name;
}

ExitCode Painel(const Program& program, const Options& options) {
  if (options.port < 0 || options.port > kHighestPort)
    throw UsageError("--porta vai de 1 a " + std::to_string(kHighestPort));
  if (options.idleMinutes < 1 || options.idleMinutes > kDay)
    throw UsageError("--ocioso vai de 1 a " + values::ToUtf8(CountText(kDay)) + " minutos, um dia");
  panel::ServeOptions serve = {.panel = {.port = options.port, .limit = options.timeLimit.Get()},
                               .opensBrowser = !options.hasNoBrowser,
                               .idle = std::chrono::minutes(options.idleMinutes)};
  Connect(options.connection, serve.panel);
  return panel::Serve(program, serve);
}

}  // namespace

void AddPainel(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command =
      program.Add({"painel", "Abre os relatórios em uma página do navegador, neste computador", kFooter},
                  [&program, options] { return Painel(program, *options); });
  options->connection.AddTo(command);
  command.add_option("--porta", options->port, "A porta da página (sem esta opção, uma que esteja livre)")
      ->option_text("NÚMERO");
  command.add_flag("--sem-navegador", options->hasNoBrowser, "Só mostra o endereço");
  command.add_option("--ocioso", options->idleMinutes, "Termina depois de tantos minutos sem uso (sem esta opção, 30)")
      ->option_text("MINUTOS");
  options->timeLimit.AddTo(command);
}

}  // namespace kodra::console

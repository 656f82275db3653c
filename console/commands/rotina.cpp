// kodrarpt rotina: several reports to their files, as a file says.
#include <fmt/format.h>
#include <CLI/CLI.hpp>
#include <memory>
#include <set>

#include "console/command_line/console.h"
#include "console/command_line/path_text.h"
#include "console/command_line/report_name.h"
#include "console/command_line/terminal_text.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/profiles/profiles.h"
#include "console/routines/routine.h"
#include "console/routines/routine_run.h"
#include "console/routines/schedule_text.h"
#include "console/run/connection_options.h"
#include "values/dates.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using routines::Routine;

constexpr const char* kFooter =
    "O arquivo da rotina é de texto (UTF-8), com uma seção para cada saída:\n"
    "  [rotina]                                  o que vale para todas: perfil, pasta, tempo-limite (de cada saída)\n"
    "  perfil = acervo\n"
    "  pasta = saidas/{ano}\n"
    "  [documentos do mês]\n"
    "  relatorio = CDocumentoRpt.RelatorioSintetico\n"
    "  periodo = mês passado\n"
    "  arquivo = documentos-{periodo}.csv\n"
    "  excel = sim\n"
    "Uma saída tem relatorio, arquivo, os parâmetros do relatório e as opções de executa, sem os hífens; perfil, se "
    "for\n"
    "outro; e periodo, no lugar das duas datas. Um caminho relativo começa na pasta do arquivo da rotina, e as pastas\n"
    "que faltam são criadas.\n"
    "periodo: hoje, ontem, últimos 7 dias (até ontem), esta semana, semana passada (de segunda a domingo), e o mesmo\n"
    "com mês, trimestre, semestre e ano. Uma data sozinha: hoje, ontem, amanhã, há 7 dias, início do mês, fim do mês\n"
    "passado, ou 01/02/2024.\n"
    "Em arquivo e pasta: {data}, {ano}, {mes}, {dia}, {periodo}, {relatorio}, {saida} (o nome da seção) e {perfil}.\n"
    "\n"
    "Tudo é conferido antes de começar. Se uma saída dá erro, as outras continuam; no fim vem um resumo, e o código "
    "de\n"
    "saída é 0 se todas foram gravadas e 1 se não.\n"
    "\n"
    "Exemplo:\n"
    "  kodrarpt rotina mensal.ini --simula\n"
    "  kodrarpt rotina mensal.ini\n"
    "  kodrarpt rotina mensal.ini --agendar --as 06:30 --dias 1";

// The options of the command, as typed.
struct Options {
  std::string file;
  ConnectionOptions connection;
  bool simulates = false;
  bool schedules = false;
  std::string time = "06:00", days = "todos";
};

std::string ProblemsText(const Routine& routine, const std::string& file) {
  std::string text = fmt::format("a rotina \"{}\" tem {}, e nada foi executado:", file,
                                 routine.problems.size() == 1 ? "um problema" : "problemas");
  for (const std::string& problem : routine.problems) text += "\n  " + problem;
  return text;
}

// Adds a problem for each output whose profile cannot be used.
void CheckProfiles(Routine& routine) {
  const Profiles profiles;
  for (const auto& output : routine.outputs) {
    try {
      profiles.Find(output->profile);
    } catch (const UsageError& error) {
      routine.problems.push_back(fmt::format("[{}] {}", output->name, error.what()));
    }
  }
}

// The routine, without problems; its profiles exist.
Routine CheckedRoutine(Program& program, const Options& options) {
  const values::Calendar today = values::ToCalendar(values::Today());
  Routine routine = routines::ReadRoutine(program, PathOf(options.file),
                                          {.chosenProfile = options.connection.ChosenProfile(),
                                           .usualProfile = options.connection.ProfileName(),
                                           .hasConnection = options.connection.HasConnection(),
                                           .today = values::DayNumber({today.year, today.month, today.day})});
  if (!options.connection.HasConnection()) CheckProfiles(routine);
  if (!routine.problems.empty()) throw UsageError(ProblemsText(routine, options.file));
  return routine;
}

// The connection string of every profile, before anything runs, because a password may be asked.
routines::Connections ConnectionsOf(const Routine& routine, const ConnectionOptions& options) {
  routines::Connections connections;
  for (const auto& output : routine.outputs) connections[output->profile];
  const PasswordSource password = options.Password();
  if (!password.IsNone() && connections.size() > 1)
    throw UsageError("a rotina usa mais de um perfil, e a senha da linha de comando só pode ser de um");
  for (auto& [profile, connection] : connections)
    connection = profile.empty() ? options.Text() : ConnectionOfProfile(profile, password);
  return connections;
}

ExitCode Simulate(Program& program, const Routine& routine) {
  for (const auto& output : routine.outputs) {
    std::string lines = fmt::format("{}\n  relatório  {}\n  arquivo    {}\n", output->name,
                                    NameOf(FindReport(output->options.report)), TextOf(output->file));
    if (!output->profile.empty()) lines += fmt::format("  perfil     {}\n", output->profile);
    for (const auto& [name, value] : output->options.parameters.Given())
      lines += fmt::format("  {}  {}\n", values::ToUtf8(name), values::ToUtf8(value));
    program.Out() << ForTerminal(lines);
  }
  return ExitCode::kOk;
}

// What the line of the scheduler has besides the program and the file.
std::vector<std::string> ScheduledOptions(const std::string& profile, const std::string& passwordVariable) {
  std::vector<std::string> options;
  if (!profile.empty()) options.insert(options.end(), {"--perfil", profile});
  if (!passwordVariable.empty()) options.insert(options.end(), {"--senha-de", passwordVariable});
  return options;
}

ExitCode ShowSchedule(Program& program, const Routine& routine, const Options& options) {
  const PasswordSource password = options.connection.Password();
  if (options.connection.HasConnection()) throw UsageError("com --agendar, use um perfil no lugar de --conexao");
  if (password.asks) throw UsageError("--pergunta-senha não vale com --agendar: uma tarefa agendada não tem terminal");
  std::set<std::string> names;
  for (const auto& output : routine.outputs) names.insert(output->profile);
  const Profiles profiles;
  routines::ScheduledRoutine scheduled = {
      .program = ProgramPath(),
      .file = std::filesystem::absolute(PathOf(options.file)).lexically_normal(),
      .options = ScheduledOptions(options.connection.ChosenProfile(), password.variable),
      .passwordVariable = password.variable,
      .profileFromVariable = routine.usesUsualProfile ? options.connection.ProfileName() : ""};
  for (const std::string& name : names) scheduled.profiles.push_back(profiles.Find(name));
  program.Out() << ScheduleText(routines::ScheduleOf(options.time, options.days), scheduled);
  return ExitCode::kOk;
}

ExitCode Rotina(Program& program, const Options& options, const CLI::App& command) {
  if (options.schedules && options.simulates) throw UsageError("--simula e --agendar não podem ser usados juntos");
  for (const char* const option : {"--as", "--dias"}) {
    if (!options.schedules && command.count(option) > 0)
      throw UsageError(fmt::format("{} só vale com --agendar", option));
  }
  const Routine routine = CheckedRoutine(program, options);
  if (options.simulates) return Simulate(program, routine);
  if (options.schedules) return ShowSchedule(program, routine, options);
  return routines::RoutineRun(program, routine, ConnectionsOf(routine, options.connection)).Execute();
}

}  // namespace

void AddRotina(Program& program) {
  const auto options = std::make_shared<Options>();
  const auto self = std::make_shared<const CLI::App*>();
  CLI::App& command = program.Add({"rotina", "Grava vários relatórios, como um arquivo diz", kFooter},
                                  [&program, options, self] { return Rotina(program, *options, **self); });
  *self = &command;
  command.add_option("ARQUIVO", options->file, "O arquivo da rotina")->option_text(" ")->required();
  options->connection.AddTo(command);
  command.add_flag("--simula", options->simulates, "Confere a rotina e mostra o que ela faria, sem executar");
  command.add_flag("--agendar", options->schedules,
                   "Mostra como agendar a rotina no cron e no Windows, e o que isso exige");
  command.add_option("--as", options->time, "com --agendar: a hora (sem esta opção, 06:00)")->option_text("HH:MM");
  command
      .add_option("--dias", options->days,
                  "com --agendar: todos (o padrão), dias da semana como seg,qua,sex, ou um dia do mês")
      ->option_text("DIAS");
}

}  // namespace kodra::console

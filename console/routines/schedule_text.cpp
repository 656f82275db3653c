#include "console/routines/schedule_text.h"

#include <fmt/format.h>

#include "console/command_line/path_text.h"
#include "console/run/connection_options.h"

namespace kodra::console::routines {
namespace {

#ifdef _WIN32
constexpr bool kIsWindows = true;
#else
constexpr bool kIsWindows = false;
#endif

// schtasks accepts no longer command.
constexpr std::size_t kLongestTask = 261;

std::vector<std::string> CommandOf(const ScheduledRoutine& routine, const std::string& program,
                                   const std::string& file) {
  std::vector<std::string> command = {program, "rotina", file};
  command.insert(command.end(), routine.options.begin(), routine.options.end());
  return command;
}

std::string CronText(const Schedule& schedule, const ScheduledRoutine& routine) {
  if (kIsWindows)
    return "Para o cron, em um Linux, com as pastas de lá no lugar de PASTA (crontab -e):\n" +
           CronLine(schedule, CommandOf(routine, "/PASTA/kodrarpt", "/PASTA/" + TextOf(routine.file.filename()))) +
           "\n";
  return "Para o cron, acrescente esta linha com crontab -e:\n" +
         CronLine(schedule, CommandOf(routine, TextOf(routine.program), TextOf(routine.file))) + "\n";
}

std::string TaskText(const Schedule& schedule, const ScheduledRoutine& routine) {
  const std::string name = "kodrarpt " + TextOf(routine.file.stem());
  if (!kIsWindows)
    return "Para o agendador de tarefas do Windows, com as pastas de lá no lugar de PASTA:\n" +
           TaskLine(schedule,
                    CommandOf(routine, "C:\\PASTA\\kodrarpt.exe", "C:\\PASTA\\" + TextOf(routine.file.filename())),
                    name) +
           "\n";
  const std::vector<std::string> command = CommandOf(routine, TextOf(routine.program), TextOf(routine.file));
  std::string text =
      "Para o agendador de tarefas do Windows, em um prompt de comando:\n" + TaskLine(schedule, command, name) + "\n";
  std::size_t length = 0;
  for (const std::string& word : command) length += word.size() + 1;
  if (length > kLongestTask)
    text += fmt::format("O schtasks recusa um comando com mais de {} caracteres, como este: use pastas mais curtas.\n",
                        kLongestTask);
  return text;
}

// What the account must have for the password of a profile.
std::string PasswordNeed(const Profile& profile, const std::string& instead) {
  const PasswordSource& password = profile.password;
  const std::string variable = instead.empty() ? password.variable : instead;
  if (!variable.empty()) return fmt::format("a variável {}, com a senha do perfil {}", variable, profile.name);
  if (!password.command.empty())
    return fmt::format("permissão para executar o comando da senha do perfil {}, sem que ele pergunte nada",
                       profile.name);
  if (password.asks)
    return fmt::format(
        "outra origem para a senha do perfil {}: uma tarefa agendada não tem terminal onde ela possa ser perguntada",
        profile.name);
  return fmt::format("a variável {}, se o banco do perfil {} pede senha", kPasswordVariable, profile.name);
}

}  // namespace

std::string ScheduleText(const Schedule& schedule, const ScheduledRoutine& routine) {
  std::string text = CronText(schedule, routine) + "\n" + TaskText(schedule, routine) +
                     "\nA conta que executa a tarefa precisa ter:\n";
  for (const Profile& profile : routine.profiles) {
    text += fmt::format("- o perfil {}, que ela mesma cria com kodrarpt perfil novo\n", profile.name);
    text += fmt::format("- {}\n", PasswordNeed(profile, routine.passwordVariable));
  }
  if (!routine.profileFromVariable.empty())
    text += fmt::format("- a variável {}, com o valor {}\n", kProfileVariable, routine.profileFromVariable);
  return text +
         "- permissão para gravar os arquivos da rotina\n"
         "No cron, uma variável é uma linha NOME=valor acima desta; no Windows, setx NOME valor, nessa conta.\n"
         "No Windows, a tarefa só é executada com a sessão da conta aberta, a não ser com /RU CONTA /RP *.\n";
}

}  // namespace kodra::console::routines

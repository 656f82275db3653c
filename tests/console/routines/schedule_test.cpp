#include "console/routines/schedule.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "console/routines/schedule_text.h"
#include "testbed/mariadb/child_process.h"
#include "tests/console/failing.h"
#include "tests/db/temporary_folder.h"

namespace kodra::console::routines {
namespace {

const std::vector<std::string> kCommand = {"/usr/bin/kodrarpt", "rotina", "/srv/rotinas 100%/d'água.ini"};

std::string Cron(const std::string& time, const std::string& days) { return CronLine(ScheduleOf(time, days), {"x"}); }
std::string Task(const std::string& time, const std::string& days) {
  return TaskLine(ScheduleOf(time, days), {"x"}, "t");
}

TEST(ScheduleTest, IsEveryDayOnSomeWeekdaysOrOnADayOfTheMonth) {
  EXPECT_EQ(Cron("06:30", "todos"), "30 6 * * * x");
  EXPECT_EQ(Cron("23:00", "seg,sáb,dom"), "0 23 * * 1,6,0 x");
  EXPECT_EQ(Cron("6:05", "1"), "5 6 1 * * x");
  EXPECT_EQ(Task("06:30", "todos"), "schtasks /Create /TN \"t\" /SC DAILY /ST 06:30 /TR \"x\"");
  EXPECT_EQ(Task("23:00", "seg,sáb,dom"), "schtasks /Create /TN \"t\" /SC WEEKLY /D MON,SAT,SUN /ST 23:00 /TR \"x\"");
  EXPECT_EQ(Task("6:05", "1"), "schtasks /Create /TN \"t\" /SC MONTHLY /D 1 /ST 06:05 /TR \"x\"");
}

TEST(ScheduleTest, TakesNoOtherTimesAndDays) {
  for (const char* const time : {"", "6", "24:00", "06:60", "06:30:00"})
    EXPECT_EQ(RefusalOf([&] { ScheduleOf(time, "todos"); }),
              std::string("--as deve ser uma hora como 06:30, e não pode ser \"") + time + "\"");
  for (const char* const days : {"", "segunda", "seg;ter", "seg,,ter", "todas"})
    EXPECT_EQ(
        RefusalOf([&] { ScheduleOf("06:00", days); }),
        std::string("--dias deve ser todos, dias da semana como seg,qua,sex, ou um dia do mês, e não pode ser \"") +
            days + "\"");
  for (const char* const days : {"0", "29"})
    EXPECT_EQ(RefusalOf([&] { ScheduleOf("06:00", days); }),
              "o dia do mês, em --dias, vai de 1 a 28, que todos os meses têm");
}

TEST(ScheduleTest, QuotesTheCommandForCron) {
  EXPECT_EQ(CronLine(ScheduleOf("06:00", "todos"), kCommand),
            "0 6 * * * /usr/bin/kodrarpt rotina '/srv/rotinas 100\\%/d'\\''água.ini'");
}

// Cron removes the backslash before a percent sign and passes the rest to the shell.
TEST(ScheduleTest, GivesTheShellOfCronTheWordsOfTheCommand) {
  const tests::TemporaryFolder folder;
  std::string line = CronLine(ScheduleOf("06:00", "todos"), {"printf", "%s|", "a b", "100%", "d'água $HOME `x` \\"});
  line.erase(0, line.find("printf"));
  for (std::size_t at = line.find("\\%"); at != line.npos; at = line.find("\\%", at)) line.erase(at, 1);
  testbed::ChildProcess child;
  child.command = {"/bin/sh", "-c", "exec " + line};
  child.output = (folder / "saida.txt").string();
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 0);
  std::ostringstream written;
  written << std::ifstream(folder / "saida.txt").rdbuf();
  EXPECT_EQ(written.str(), "a b|100%|d'água $HOME `x` \\|");
}

TEST(ScheduleTest, QuotesTheCommandForTheTaskScheduler) {
  EXPECT_EQ(TaskLine(ScheduleOf("06:00", "todos"),
                     {"C:\\Program Files\\kodrarpt.exe", "rotina", "C:\\rotinas\\mensal.ini"}, "kodrarpt mensal"),
            "schtasks /Create /TN \"kodrarpt mensal\" /SC DAILY /ST 06:00 "
            "/TR \"\\\"C:\\Program Files\\kodrarpt.exe\\\" rotina C:\\rotinas\\mensal.ini\"");
}

TEST(ScheduleTextTest, SaysWhatTheAccountNeedsForEachSourceOfAPassword) {
  const std::string text = ScheduleText(ScheduleOf("06:00", "1"), {.program = "/usr/bin/kodrarpt",
                                                                   .file = "/srv/mensal.ini",
                                                                   .profiles = {{"a", "DSN=A", {.variable = "A_SENHA"}},
                                                                                {"b", "DSN=B", {.command = "pass b"}},
                                                                                {"c", "DSN=C", {.asks = true}},
                                                                                {"d", "DSN=D", {}}},
                                                                   .profileFromVariable = "d"});
  EXPECT_EQ(text,
            "Para o cron, acrescente esta linha com crontab -e:\n"
            "0 6 1 * * /usr/bin/kodrarpt rotina /srv/mensal.ini\n"
            "\n"
            "Para o agendador de tarefas do Windows, com as pastas de lá no lugar de PASTA:\n"
            "schtasks /Create /TN \"kodrarpt mensal\" /SC MONTHLY /D 1 /ST 06:00 "
            "/TR \"C:\\PASTA\\kodrarpt.exe rotina C:\\PASTA\\mensal.ini\"\n"
            "\n"
            "A conta que executa a tarefa precisa ter:\n"
            "- o perfil a, que ela mesma cria com kodrarpt perfil novo\n"
            "- a variável A_SENHA, com a senha do perfil a\n"
            "- o perfil b, que ela mesma cria com kodrarpt perfil novo\n"
            "- permissão para executar o comando da senha do perfil b, sem que ele pergunte nada\n"
            "- o perfil c, que ela mesma cria com kodrarpt perfil novo\n"
            "- outra origem para a senha do perfil c: uma tarefa agendada não tem terminal onde ela possa ser "
            "perguntada\n"
            "- o perfil d, que ela mesma cria com kodrarpt perfil novo\n"
            "- a variável KODRARPT_SENHA, se o banco do perfil d pede senha\n"
            "- a variável KODRARPT_PERFIL, com o valor d\n"
            "- permissão para gravar os arquivos da rotina\n"
            "No cron, uma variável é uma linha NOME=valor acima desta; no Windows, setx NOME valor, nessa conta.\n"
            "No Windows, a tarefa só é executada com a sessão da conta aberta, a não ser com /RU CONTA /RP *.\n");
}

TEST(ScheduleTextTest, PutsThePasswordsVariableOfTheCommandLineInPlaceOfTheProfiles) {
  const std::string text = ScheduleText(ScheduleOf("06:00", "todos"), {.program = "/usr/bin/kodrarpt",
                                                                       .file = "/srv/a.ini",
                                                                       .options = {"--perfil", "c", "--senha-de", "X"},
                                                                       .profiles = {{"c", "DSN=C", {.asks = true}}},
                                                                       .passwordVariable = "X"});
  EXPECT_NE(text.find("/usr/bin/kodrarpt rotina /srv/a.ini --perfil c --senha-de X\n"), text.npos) << text;
  EXPECT_NE(text.find("- a variável X, com a senha do perfil c\n"), text.npos) << text;
}

}  // namespace
}  // namespace kodra::console::routines

// The program as a whole: its help, its messages and how it ends.
#include "console/command_line/program.h"

#include <gtest/gtest.h>

#include "console/command_line/usage_error.h"
#include "tests/console/run.h"
#include "values/erro.h"

namespace kodra::console {
namespace {

// Runs a program of one command, which does that.
Ran RunDoing(std::function<ExitCode()> act) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  CLI::App& command = program.Add({"prova", "Faz a prova", "Exemplo: prova"}, std::move(act));
  command.add_option("RELATÓRIO")->option_text(" ")->required();
  const ExitCode code = program.Run({"prova", "x"});
  return {code, out.str(), err.str()};
}

TEST(ProgramTest, EndsWithTheCodeOfItsCommand) {
  EXPECT_EQ(RunDoing([] { return ExitCode::kMismatch; }), (Ran{ExitCode::kMismatch, "", ""}));
}

TEST(ProgramTest, ShowsTheNumberSourceAndDescriptionOfAReportsError) {
  EXPECT_EQ(
      RunDoing([]() -> ExitCode { throw Erro(-2147213397, L"KodraRpt.CLogRpt::RelatorioLog", L"É isso"); }),
      (Ran{ExitCode::kReportError, "", "kodrarpt: erro -2147213397 em KodraRpt.CLogRpt::RelatorioLog:\nÉ isso\n"}));
}

TEST(ProgramTest, ShowsWhatACommandFindsWrong) {
  EXPECT_EQ(RunDoing([]() -> ExitCode { throw UsageError("não dá"); }), Misused("não dá"));
}

TEST(ProgramTest, ReportsAnUnexpectedException) {
  EXPECT_EQ(RunDoing([]() -> ExitCode { throw std::runtime_error("oops"); }),
            (Ran{ExitCode::kReportError, "", "kodrarpt: erro interno: oops\n"}));
}

TEST(ProgramTest, SuggestsTheCommandForAMisspeltOne) {
  EXPECT_EQ(RunOf({"lsita"}), Misused("o comando \"lsita\" não existe (quis dizer \"lista\"?)"));
  EXPECT_EQ(RunOf({"imprime"}), Misused("o comando \"imprime\" não existe"));
}

TEST(ProgramTest, RefusesOptionsAndArgumentsThatACommandDoesNotHave) {
  EXPECT_EQ(RunOf({"lista", "--hlep"}), Misused("\"lista\" não tem a opção \"--hlep\" (quis dizer \"--help\"?)"));
  EXPECT_EQ(RunOf({"lista", "tudo"}), Misused("argumento a mais: \"tudo\""));
}

TEST(ProgramTest, ShowsItsHelpAndFailsWithoutACommand) {
  const Ran asked = RunOf({"--help"});
  const Ran silent = RunOf({});
  EXPECT_EQ(asked.code, ExitCode::kOk);
  EXPECT_EQ(asked.err, "");
  EXPECT_EQ(silent, (Ran{ExitCode::kUsage, "", asked.out}));
}

TEST(ProgramTest, HelpSetsColumnsByCharactersAndSpeaksPortuguese) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  CLI::App& command = program.Add({"ação", "Faz a prova", "Exemplo: ação"}, [] { return ExitCode::kOk; });
  command.add_option("RELATÓRIO", "O relatório")->option_text(" ")->required();
  command.add_option("--saída", "O arquivo")->type_name("ARQUIVO");
  EXPECT_EQ(program.Run({"ação", "--help"}), ExitCode::kOk);
  EXPECT_EQ(out.str(),
            "Faz a prova\n"
            "Uso: kodrarpt ação [OPÇÕES] RELATÓRIO\n"
            "\n"
            "Argumentos:\n"
            "  RELATÓRIO                   O relatório\n"
            "\n"
            "Opções:\n"
            "  -h,--help                   Mostra esta ajuda\n"
            "  --saída ARQUIVO             O arquivo\n"
            "\n"
            "Exemplo: ação\n");
}

// A command without an example in its help is not finished.
TEST(ProgramTest, EveryCommandHasAnExample) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  AddCommands(program);
  for (const CLI::App* command : program.Commands())
    EXPECT_NE(command->get_footer().find("kodrarpt " + command->get_name()), std::string::npos) << command->get_name();
}

}  // namespace
}  // namespace kodra::console

// The program as a whole: its help, its messages and its exit codes.
#include "console/command_line/program.h"

#include <gtest/gtest.h>
#include <CLI/CLI.hpp>

#include <set>

#include "console/command_line/usage_error.h"
#include "tests/console/run.h"
#include "values/erro.h"

namespace kodra::console {
namespace {

// Runs a program whose only command performs the action.
RunResult RunAction(std::function<ExitCode()> action) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  CLI::App& command = program.Add({"prova", "Faz a prova", "Exemplo: prova"}, std::move(action));
  command.add_option("RELATÓRIO")->option_text(" ")->required();
  const ExitCode code = program.Run({"prova", "x"});
  return {code, out.str(), err.str()};
}

TEST(ProgramTest, EndsWithTheCodeOfItsCommand) {
  EXPECT_EQ(RunAction([] { return ExitCode::kMismatch; }), (RunResult{ExitCode::kMismatch, "", ""}));
}

TEST(ProgramTest, ShowsItsHelpForTheWordAjudaToo) {
  EXPECT_EQ(RunProgram({"ajuda"}), RunProgram({"--help"}));
  EXPECT_EQ(RunProgram({"ajuda", "lista"}), RunProgram({"lista", "--help"}));
  EXPECT_EQ(RunProgram({"ajuda"}).code, ExitCode::kOk);
}

TEST(ProgramTest, SaysWhatAReportsErrorMeansAndWhatToDo) {
  EXPECT_EQ(RunAction([]() -> ExitCode {
              throw Erro(-2147213397, L"KodraRpt.CDeptoRpt::RelatorioDeptos",
                         L"Erro ao gerar dados para o relatório: Objeto não definido.");
            }),
            (RunResult{ExitCode::kReportError, "",
                       "kodrarpt: o relatório CDeptoRpt.RelatorioDeptos não pôde ser gerado: o objeto de parâmetros é "
                       "Nothing.\n"
                       "O que fazer: crie um objeto da classe …RptObj e passe-o ao método, mesmo que o relatório não "
                       "leia nada dele.\n"
                       "Com --detalhes, sai também a mensagem do componente.\n"}));
}

TEST(ProgramTest, ShowsNumberSourceAndDescriptionOfAReportsErrorIfAskedForDetails) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  CLI::App& command = program.Add({"prova", "Faz a prova", "Exemplo: prova"}, []() -> ExitCode {
    throw Erro(-2147213397, L"KodraRpt.CLogRpt::RelatorioLog", L"Erro ao gerar dados para o relatório: Estouro");
  });
  bool details = false;
  command.add_flag("--detalhes", details, "");
  EXPECT_EQ(program.Run({"prova", "--detalhes"}), ExitCode::kReportError);
  EXPECT_EQ(
      err.str(),
      "kodrarpt: o relatório CLogRpt.RelatorioLog não pôde ser gerado: uma data está fora dos anos 100 a 9999, ou "
      "um número é grande demais.\n"
      "O que fazer: confira as datas e os números informados.\n"
      "A mensagem do componente: erro -2147213397 em KodraRpt.CLogRpt::RelatorioLog:\n"
      "Erro ao gerar dados para o relatório: Estouro\n");
}

TEST(ProgramTest, ShowsTheMessageOfAUsageError) {
  EXPECT_EQ(RunAction([]() -> ExitCode { throw UsageError("não dá"); }), UsageFailure("não dá"));
}

TEST(ProgramTest, SaysThatThereIsTooLittleMemory) {
  EXPECT_EQ(RunAction([]() -> ExitCode { throw std::bad_alloc(); }),
            (RunResult{ExitCode::kReportError, "",
                       "kodrarpt: faltou memória; feche outros programas ou peça menos linhas\n"}));
}

TEST(ProgramTest, ReportsAnUnexpectedException) {
  EXPECT_EQ(RunAction([]() -> ExitCode { throw std::runtime_error("oops"); }),
            (RunResult{ExitCode::kReportError, "", "kodrarpt: erro interno: oops\n"}));
}

TEST(ProgramTest, ShowsNoControlCharactersOfAMessage) {
  EXPECT_EQ(RunAction([]() -> ExitCode {
              throw Erro(1, L"S",
                         L"tabela \x1b[31m\x9b"
                         L"2J não há\r\nnem\tcoluna\x07\x7f\rfim\u2028");
            }),
            (RunResult{ExitCode::kReportError, "",
                       "kodrarpt: o relatório não pôde ser gerado: tabela \uFFFD[31m\uFFFD"
                       "2J não há\nnem\tcoluna\uFFFD\uFFFD\uFFFDfim\uFFFD.\n"
                       "O que fazer: procure a mensagem no guia, ou mostre-a a quem cuida do banco de dados.\n"
                       "Com --detalhes, sai também a mensagem do componente.\n"}));
}

TEST(ProgramTest, SuggestsTheCommandForAMisspeltOne) {
  EXPECT_EQ(RunProgram({"lsita"}), UsageFailure("o comando \"lsita\" não existe (quis dizer \"lista\"?)"));
  EXPECT_EQ(RunProgram({"imprime"}), UsageFailure("o comando \"imprime\" não existe"));
}

TEST(ProgramTest, RefusesOptionsAndArgumentsThatACommandDoesNotHave) {
  EXPECT_EQ(RunProgram({"lista", "--hlep"}),
            UsageFailure("\"lista\" não tem a opção \"--hlep\" (quis dizer \"--help\"?)"));
  EXPECT_EQ(RunProgram({"lista", "tudo"}), UsageFailure("argumento a mais: \"tudo\""));
}

TEST(ProgramTest, RefusesAWrongNumberAndOptionsThatDoNotGoTogether) {
  const auto refusal = [](std::vector<std::string> arguments) {
    std::ostringstream out;
    std::ostringstream err;
    Program program(out, err);
    CLI::App& command = program.Add({"prova", "Faz a prova", "Exemplo: prova"}, [] { return ExitCode::kOk; });
    int number = 0;
    command.add_option("--numero", number);
    CLI::Option* const wide = command.add_flag("--largo");
    command.add_flag("--estreito")->excludes(wide);
    command.add_flag("--dobrado")->needs(wide);
    arguments.insert(arguments.begin(), "prova");
    const ExitCode code = program.Run(arguments);
    return RunResult{code, out.str(), err.str()};
  };
  EXPECT_EQ(refusal({"--numero", "sete"}), UsageFailure("o valor de --numero não é um número inteiro"));
  EXPECT_EQ(refusal({"--estreito", "--largo"}),
            UsageFailure("--largo não pode ser usado com outra das opções informadas"));
  EXPECT_EQ(refusal({"--dobrado"}), UsageFailure("--dobrado precisa de outra opção"));
}

TEST(ProgramTest, ShowsItsHelpAndFailsWithoutACommand) {
  const RunResult help = RunProgram({"--help"});
  const RunResult noCommand = RunProgram({});
  EXPECT_EQ(help.code, ExitCode::kOk);
  EXPECT_EQ(help.err, "");
  EXPECT_EQ(noCommand, (RunResult{ExitCode::kUsage, "", help.out}));
}

TEST(ProgramTest, ShowsItsVersion) {
  EXPECT_EQ(RunProgram({"--version"}), Success("kodrarpt 1.0.49\n"));
  EXPECT_EQ(RunProgram({"lista", "--version"}), UsageFailure("\"lista\" não tem a opção \"--version\""));
}

TEST(ProgramTest, ListsTheOptionThatShowsTheVersionInItsHelp) {
  EXPECT_NE(RunProgram({"--help"})
                .out.find("Opções:\n"
                          "  -h,--help                   Mostra esta ajuda\n"
                          "  --version                   Mostra a versão\n"),
            std::string::npos);
}

TEST(ProgramTest, WritesItsHelpInPortugueseWithColumnsOfCharacters) {
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

// The messages about reports and databases offer it.
TEST(ProgramTest, HasTheOptionForDetailsInEveryCommandThatRunsReports) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  AddCommands(program);
  std::set<std::string> without;
  for (const CLI::App* command : program.Commands())
    if (command->get_option_no_throw(kDetailsOption) == nullptr) without.insert(command->get_name());
  EXPECT_EQ(without, (std::set<std::string>{"descreve", "esquema", "lista"}));
}

TEST(ProgramTest, HasAnExampleInTheHelpOfEveryCommand) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  AddCommands(program);
  for (const CLI::App* command : program.Commands())
    EXPECT_NE(command->get_footer().find("kodrarpt " + command->get_name()), std::string::npos) << command->get_name();
}

}  // namespace
}  // namespace kodra::console

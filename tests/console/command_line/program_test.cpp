// The program as a whole: its help, its messages and its exit codes.
#include "console/command_line/program.h"

#include <gtest/gtest.h>
#include <CLI/CLI.hpp>

#include <regex>
#include <set>

#include "console/command_line/connection_error.h"
#include "console/command_line/help.h"
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
                       "kodrarpt: o relatório CDeptoRpt.RelatorioDeptos não pôde ser gerado: falta o objeto de "
                       "parâmetros (é Nothing).\n"
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

TEST(ProgramTest, SaysWhatToDoAboutAConnectionThatFailsForAnUnknownReason) {
  EXPECT_EQ(RunAction([]() -> ExitCode { throw ConnectionError(Erro(1, L"S", L"[X]Server is tired")); }),
            (RunResult{ExitCode::kConnection, "",
                       "kodrarpt: não foi possível conectar ao banco de dados.\n"
                       "Mensagem recebida: Server is tired\n"
                       "O que fazer: confira a string de conexão, e se o banco está no ar.\n"
                       "Com --detalhes, sai também a mensagem do componente.\n"}));
}

TEST(ProgramTest, PointsToTheHelpForAnUnknownErrorOfTheCommandLine) {
  EXPECT_EQ(RunAction([]() -> ExitCode { throw UsageError(InPortuguese(CLI::ValidationError("--x", "bad"))); }),
            UsageFailure("a linha de comando tem um erro; \"kodrarpt COMANDO --help\" mostra como ela deve ser"));
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
            (RunResult{ExitCode::kReportError, "",
                       "kodrarpt: erro interno: anote o comando usado e avise quem mantém o programa.\n"
                       "Texto original: oops\n"}));
}

TEST(ProgramTest, ShowsNoControlCharactersOfAMessage) {
  EXPECT_EQ(RunAction([]() -> ExitCode {
              throw Erro(1, L"S",
                         L"tabela \x1b[31m\x9b"
                         L"2J não há\r\nnem\tcoluna\x07\x7f\rfim\u2028");
            }),
            (RunResult{ExitCode::kReportError, "",
                       "kodrarpt: o relatório não pôde ser gerado.\n"
                       "Mensagem recebida: tabela \uFFFD[31m\uFFFD"
                       "2J não há\nnem\tcoluna\uFFFD\uFFFD\uFFFDfim\uFFFD\n"
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
  EXPECT_EQ(RunProgram({"lista", "tudo"}),
            UsageFailure("argumento a mais: \"tudo\"; tire-o, ou ponha entre aspas um valor que tem espaços"));
}

TEST(ProgramTest, RefusesAnOptionBeforeTheCommand) {
  EXPECT_EQ(RunProgram({"--conexao", "DSN=A", "lista"}), UsageFailure("\"kodrarpt\" não tem a opção \"--conexao\""));
}

// Words of the library that reads the command line.
void ExpectPortuguese(const std::string& text, const std::string& origin) {
  static const std::regex english(
      R"(\b(REQUIRED|TEXT|INT|UINT|FLOAT|BOOLEAN|Needs|Excludes|OPTIONS|SUBCOMMAND|Env|Could|required|Usage|Options|)"
      R"(Positionals|argument|expected|following)\b)");
  std::smatch word;
  EXPECT_FALSE(std::regex_search(text, word, english)) << word.str() << " in " << origin << text;
}

TEST(ProgramTest, WritesNoEnglishInTheHelpOfAnyCommand) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  AddCommands(program);
  ExpectPortuguese(RunProgram({"--help"}).out, "--help: ");
  for (const CLI::App* command : program.Commands()) {
    const RunResult help = RunProgram({command->get_name(), "--help"});
    EXPECT_EQ(help.code, ExitCode::kOk);
    EXPECT_NE(help.out.find("Uso: kodrarpt " + command->get_name()), std::string::npos) << help.out;
    ExpectPortuguese(help.out, command->get_name() + ": ");
  }
}

// Each option of each command without its value, twice, and with a number that is too large.
TEST(ProgramTest, SaysInPortugueseWhatIsWrongWithAnyOption) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  AddCommands(program);
  int numbers = 0;
  for (const CLI::App* command : program.Commands()) {
    const std::string start = command->get_name();
    for (const CLI::Option* option : command->get_options()) {
      const std::string name = option->get_name();
      const bool takesValue = option->get_items_expected_min() > 0;
      if (!option->nonpositional() || !takesValue || option->get_group() == kParameterGroup) continue;
      EXPECT_EQ(RunProgram({start, name}), UsageFailure("falta o valor de " + name)) << start;
      if (option->get_items_expected_max() == 1) {
        EXPECT_EQ(RunProgram({start, name, "1", name, "1"}),
                  UsageFailure(name + " aparece mais de uma vez: deixe só uma"))
            << start;
      }
      if (name == "--conexao") continue;  // the command would run
      const RunResult wrong = RunProgram({start, name, "99999999999999999999999"});
      EXPECT_NE(wrong.code, ExitCode::kOk) << start << " " << name;
      if (wrong == UsageFailure("o valor de " + name + " não é um número inteiro, ou é grande demais")) ++numbers;
      ExpectPortuguese(wrong.err, start + " " + name + ": ");
    }
  }
  EXPECT_GE(numbers, 10);
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

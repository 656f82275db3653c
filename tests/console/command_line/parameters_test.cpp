// The options "--NOME VALOR" of a command that calls a report.
#include "console/command_line/parameters.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "console/command_line/program.h"
#include "console/command_line/report_name.h"
#include "values/dates.h"

namespace kodra::console {
namespace {

// A command that calls a report with such options, and reads one property back.
struct Command {
  std::ostringstream out;
  std::ostringstream err;
  Program program{out, err};
  ReportParameters parameters;
  Value read;

  Command(const char* report, const wchar_t* property) {
    CLI::App& command = program.Add({"prova", "", ""}, [this, report, property] {
      read = parameters.For(FindReport(report)).Get(property);
      return ExitCode::kOk;
    });
    parameters.AddTo(command);
  }

  Value Reading(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "prova");
    EXPECT_EQ(program.Run(std::move(arguments)), ExitCode::kOk) << err.str();
    return read;
  }
  std::string Complaining(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "prova");
    EXPECT_EQ(program.Run(std::move(arguments)), ExitCode::kUsage);
    return err.str();
  }
};

TEST(ReportParametersTest, FillTheObjectByThePropertysRule) {
  EXPECT_EQ(Command("CCDRpt", L"TipoRpt").Reading({"--TipoRpt", "vencidas"}), Value(L"V"));
  EXPECT_EQ(Command("CModeloRpt", L"CodModelo").Reading({"--CodModelo", "  ofício "}), Value(L"ofício"));
  EXPECT_EQ(Command("CLogRpt", L"DataFinal").Reading({"--DataFinal", "2024-02-01"}),
            Value(values::FromCalendar({2024, 2, 1})));
  EXPECT_EQ(Command("ModulosVencidos", L"ModoPregresso").Reading({"--ModoPregresso", "sim"}), Value(true));
}

TEST(ReportParametersTest, LeaveWhatIsNotGivenAsANewObjectHasIt) {
  EXPECT_EQ(Command("ModulosVencidos", L"Ordenacao").Reading({}), Value(L"N"));
}

TEST(ReportParametersTest, DoNotMindLetterCaseAndTakeAnEqualsSign) {
  EXPECT_EQ(Command("CLogRpt", L"Acao").Reading({"--ACAO=a b"}), Value(L"a b"));
}

TEST(ReportParametersTest, KnowEveryPropertyOfEveryClass) {
  std::set<std::wstring_view> seen;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    if (!seen.insert(method.parameterClass).second) continue;
    std::vector<std::string> arguments;
    for (const frame::Property& property : frame::ParameterClassNamed(method.parameterClass).properties) {
      arguments.push_back("--" + std::string(property.name.begin(), property.name.end()));
      arguments.push_back(property.rule == frame::PropertyRule::kDate ? "01/02/2024" : "1");
    }
    EXPECT_EQ(Command(NameOf(method).c_str(), L"Owner").Reading(arguments), Value(L"1"));
  }
}

TEST(ReportParametersTest, StandInTheHelpInOneLine) {
  Command command("CModeloRpt", L"Owner");
  EXPECT_EQ(command.program.Run({"prova", "--help"}), ExitCode::kOk);
  EXPECT_EQ(command.out.str(),
            "Uso: kodrarpt prova [OPÇÕES]\n"
            "\n"
            "Opções:\n"
            "  -h,--help                   Mostra esta ajuda\n"
            "\n"
            "Parâmetros do relatório:\n"
            "  --NOME VALOR                \"kodrarpt descreve RELATÓRIO\" mostra os nomes e os valores\n"
            "\n");
}

TEST(ReportParametersTest, RefuseAPropertyOfAnotherClass) {
  EXPECT_EQ(
      Command("CModeloRpt", L"Owner").Complaining({"--CodDepto", "1"}),
      "kodrarpt: CModeloRpt.RelatorioModelos não tem o parâmetro \"CodDepto\"; os parâmetros são Owner, CodModelo\n");
  EXPECT_EQ(Command("CDocumentoRpt.RelatorioSintetico", L"Owner").Complaining({"--CodDocto", "1"}),
            "kodrarpt: CDocumentoRpt.RelatorioSintetico não tem o parâmetro \"CodDocto\" (quis dizer \"CodDepto\"?); "
            "os parâmetros são Owner, DataArmazenamento1, DataArmazenamento2, CodDepto\n");
}

TEST(ReportParametersTest, RefuseAMisspeltNameAndSuggestTheRightOne) {
  EXPECT_EQ(Command("CModeloRpt", L"Owner").Complaining({"--CodModleo", "x"}),
            "kodrarpt: \"prova\" não tem a opção \"--CodModleo\" (quis dizer \"--CodModelo\"?)\n");
}

TEST(ReportParametersTest, RefuseAMissingAndASecondValue) {
  EXPECT_EQ(Command("CModeloRpt", L"Owner").Complaining({"--CodModelo"}), "kodrarpt: falta o valor de --CodModelo\n");
  EXPECT_EQ(Command("CModeloRpt", L"Owner").Complaining({"--CodModelo", "a", "--CodModelo", "b"}),
            "kodrarpt: --CodModelo aparece mais de uma vez\n");
}

}  // namespace
}  // namespace kodra::console

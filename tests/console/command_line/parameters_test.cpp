// The options "--NOME VALOR" of a command that calls a report.
#include "console/command_line/parameters.h"

#include <gtest/gtest.h>
#include <CLI/CLI.hpp>

#include <set>
#include <sstream>

#include "console/command_line/program.h"
#include "console/command_line/report_name.h"
#include "console/statements/capture.h"
#include "sql/tipo_banco.h"
#include "values/dates.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

// A program whose command "prova" stores one property of the parameter object.
struct Command {
  std::ostringstream out;
  std::ostringstream err;
  Program program{out, err};
  ReportParameters parameters;
  Value stored;

  Command(const char* report, const wchar_t* property) {
    CLI::App& command = program.Add({"prova", "", ""}, [this, report, property] {
      stored = parameters.For(FindReport(report)).Get(property);
      return ExitCode::kOk;
    });
    parameters.AddTo(command);
  }

  // The value of the property after a run with these options.
  Value ValueAfter(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "prova");
    EXPECT_EQ(program.Run(std::move(arguments)), ExitCode::kOk) << err.str();
    return stored;
  }
  // The message of a run that fails because of these options.
  std::string UsageMessage(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "prova");
    EXPECT_EQ(program.Run(std::move(arguments)), ExitCode::kUsage);
    return err.str();
  }
};

TEST(ReportParametersTest, FillTheObjectByThePropertysRule) {
  EXPECT_EQ(Command("CCDRpt", L"TipoRpt").ValueAfter({"--TipoRpt", "vencidas"}), Value(L"V"));
  EXPECT_EQ(Command("CModeloRpt", L"CodModelo").ValueAfter({"--CodModelo", "  ofício "}), Value(L"ofício"));
  EXPECT_EQ(Command("CLogRpt", L"DataFinal").ValueAfter({"--DataFinal", "2024-02-01"}),
            Value(values::FromCalendar({2024, 2, 1})));
  EXPECT_EQ(Command("ModulosVencidos", L"ModoPregresso").ValueAfter({"--ModoPregresso", "sim"}), Value(true));
}

TEST(ReportParametersTest, RefuseATextThatIsMoreThanAValueInAStatement) {
  for (const std::string piece : {"'", "\"", "\\", ";", "--", "/*"}) {
    EXPECT_EQ(Command("RelatorioSintetico", L"CodDepto").UsageMessage({"--CodDepto", "7" + piece + "1"}),
              "kodrarpt: o valor de --CodDepto contém " + piece +
                  ", e o relatório passa o valor ao SQL como está; se é isso mesmo, acrescente --literal\n");
  }
  EXPECT_EQ(
      Command("RelatorioEstatisticasPorPalavrasChave", L"NumeroPC1").UsageMessage({"--NumeroPC1", "1 or 1=1"}),
      "kodrarpt: o valor de --NumeroPC1 não é um número inteiro, e o relatório passa o valor ao SQL como está; se é "
      "isso mesmo, acrescente --literal\n");
  EXPECT_EQ(
      Command("RelatorioRetiradaOriginal", L"CodSolicit").UsageMessage({"--CodSolicit", "1) OR (1=1"}),
      "kodrarpt: o valor de --CodSolicit não é um número inteiro, nem vários separados por vírgula, e o relatório "
      "passa o valor ao SQL como está; se é isso mesmo, acrescente --literal\n");
}

TEST(ReportParametersTest, AcceptTheNumbersThatAStatementHasWithoutQuotes) {
  EXPECT_EQ(Command("RelatorioRetiradaOriginal", L"CodSolicit").ValueAfter({"--CodSolicit", "3, 4"}), Value(L"3, 4"));
  EXPECT_EQ(Command("RelatorioEstatisticasPorPalavrasChave", L"NumeroPC1").ValueAfter({"--NumeroPC1", "0"}),
            Value(L"0"));
}

// Whether the marker is in the statement outside of the texts between quotes.
bool HasUnquoted(std::wstring_view marker, const std::wstring& statement) {
  bool isInText = false;
  for (std::size_t i = 0; i < statement.size(); ++i) {
    if (statement[i] == L'\'') isInText = !isInText;
    if (!isInText && statement.compare(i, marker.size(), marker) == 0) return true;
  }
  return false;
}

TEST(ReportParametersTest, RefuseALetterWhereTheStatementHasNoQuotes) {
  constexpr std::wstring_view kMarker = L"QZ7QZ";
  std::set<std::string> unquoted;
  for (const reports::ReportMethod& method : reports::ReportMethods())
    for (const frame::Property& property : frame::ParameterClassNamed(method.parameterClass).properties) {
      if (property.rule == frame::PropertyRule::kDate || property.rule == frame::PropertyRule::kFlag) continue;
      frame::ParameterObject object(frame::ParameterClassNamed(method.parameterClass));
      object.Let(property.name, std::wstring(kMarker));
      for (const Statement& statement : Capture(method, sql::tbSQLite, object).statements) {
        if (!HasUnquoted(kMarker, statement.text)) continue;
        unquoted.insert(values::ToUtf8(property.name));
        EXPECT_NE(WrongWithText(property, "QZ7QZ", method), "")
            << NameOf(method) << " " << values::ToUtf8(property.name);
      }
    }
  EXPECT_EQ(unquoted, (std::set<std::string>{"CodSolicit", "NumeroObs", "NumeroPC1", "NumeroPC2", "NumeroPC3",
                                             "NumeroPC4", "NumeroPC5"}));
}

TEST(ReportParametersTest, AcceptSuchATextWhenItIsLiteral) {
  EXPECT_EQ(Command("RelatorioSintetico", L"CodDepto").ValueAfter({"--literal", "--CodDepto", "7'1"}), Value(L"7'1"));
}

TEST(ReportParametersTest, RefuseToTakeNothingLiterally) {
  EXPECT_EQ(Command("RelatorioSintetico", L"CodDepto").UsageMessage({"--literal"}),
            "kodrarpt: --literal só vale com um parâmetro do relatório\n");
}

TEST(ReportParametersTest, AcceptAnyTextThatNoStatementContains) {
  EXPECT_EQ(Command("CLogRpt", L"Acao").ValueAfter({"--Acao", "d'água"}), Value(L"d'água"));
}

TEST(ReportParametersTest, WarnOfAPeriodThatEndsBeforeItBegins) {
  const reports::ReportMethod& method = FindReport("RelatorioSintetico");
  frame::ParameterObject object(frame::ParameterClassNamed(method.parameterClass));
  EXPECT_EQ(ReportParameters::PeriodWarning(object, method), "");
  object.Let(L"DataArmazenamento1", values::FromCalendar({2024, 12, 31}));
  EXPECT_EQ(ReportParameters::PeriodWarning(object, method), "");  // without the last day there is no period
  object.Let(L"DataArmazenamento2", values::FromCalendar({2024, 1, 1}));
  EXPECT_EQ(ReportParameters::PeriodWarning(object, method),
            "DataArmazenamento2 é antes de DataArmazenamento1, e nenhuma data cai nesse período");
  object.Let(L"DataArmazenamento2", values::FromCalendar({2024, 12, 31}));
  EXPECT_EQ(ReportParameters::PeriodWarning(object, method), "");
}

TEST(ReportParametersTest, KeepTheInitialValueOfAPropertyThatIsNotGiven) {
  EXPECT_EQ(Command("ModulosVencidos", L"Ordenacao").ValueAfter({}), Value(L"N"));
}

TEST(ReportParametersTest, IgnoreLetterCaseAndAcceptAnEqualsSign) {
  EXPECT_EQ(Command("CLogRpt", L"Acao").ValueAfter({"--ACAO=a b"}), Value(L"a b"));
}

TEST(ReportParametersTest, IncludeEveryPropertyOfEveryClass) {
  std::set<std::wstring_view> seen;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    if (!seen.insert(method.parameterClass).second) continue;
    std::vector<std::string> arguments;
    for (const frame::Property& property : frame::ParameterClassNamed(method.parameterClass).properties) {
      arguments.push_back("--" + std::string(property.name.begin(), property.name.end()));
      arguments.push_back(property.rule == frame::PropertyRule::kDate ? "01/02/2024" : "1");
    }
    EXPECT_EQ(Command(NameOf(method).c_str(), L"Owner").ValueAfter(arguments), Value(L"1"));
  }
}

TEST(ReportParametersTest, AreOneLineInTheHelp) {
  Command command("CModeloRpt", L"Owner");
  EXPECT_EQ(command.program.Run({"prova", "--help"}), ExitCode::kOk);
  EXPECT_EQ(command.out.str(),
            "Uso: kodrarpt prova [OPÇÕES]\n"
            "\n"
            "Opções:\n"
            "  -h,--help                   Mostra esta ajuda\n"
            "  --literal                   Aceita aspas e sinais do SQL nos valores dos parâmetros\n"
            "\n"
            "Parâmetros do relatório:\n"
            "  --NOME VALOR                \"kodrarpt descreve RELATÓRIO\" mostra os nomes e os valores\n"
            "\n");
}

TEST(ReportParametersTest, RefuseAPropertyOfAnotherClass) {
  EXPECT_EQ(
      Command("CModeloRpt", L"Owner").UsageMessage({"--CodDepto", "1"}),
      "kodrarpt: CModeloRpt.RelatorioModelos não tem o parâmetro \"CodDepto\"; os parâmetros são Owner, CodModelo\n");
  EXPECT_EQ(Command("CDocumentoRpt.RelatorioSintetico", L"Owner").UsageMessage({"--CodDocto", "1"}),
            "kodrarpt: CDocumentoRpt.RelatorioSintetico não tem o parâmetro \"CodDocto\" (quis dizer \"CodDepto\"?); "
            "os parâmetros são Owner, DataArmazenamento1, DataArmazenamento2, CodDepto\n");
}

TEST(ReportParametersTest, RefuseAMisspeltNameAndSuggestTheRightOne) {
  EXPECT_EQ(Command("CModeloRpt", L"Owner").UsageMessage({"--CodModleo", "x"}),
            "kodrarpt: \"prova\" não tem a opção \"--CodModleo\" (quis dizer \"--CodModelo\"?)\n");
}

TEST(ReportParametersTest, RefuseAMissingValueAndASecondOne) {
  EXPECT_EQ(Command("CModeloRpt", L"Owner").UsageMessage({"--CodModelo"}), "kodrarpt: falta o valor de --CodModelo\n");
  EXPECT_EQ(Command("CModeloRpt", L"Owner").UsageMessage({"--CodModelo", "a", "--CodModelo", "b"}),
            "kodrarpt: --CodModelo aparece mais de uma vez: deixe só uma\n");
}

}  // namespace
}  // namespace kodra::console

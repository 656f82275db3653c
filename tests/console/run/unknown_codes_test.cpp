// Codes that the archive does not have. What `executa` makes of them is in commands/executa_empty_test.cpp.
#include "console/run/unknown_codes.h"

#include <gtest/gtest.h>

#include "console/command_line/report_name.h"
#include "console/run/machine.h"
#include "tests/db/sample.h"

namespace kodra::console {
namespace {

using tests::Engine;
using Texts = std::vector<std::string>;

std::wstring Archive(Engine engine) {
  return tests::DatabaseOf(
      engine, L"codigos",
      {L"CREATE TABLE DEPTO (COD_DEPTO VARCHAR(10))", L"INSERT INTO DEPTO VALUES ('1')",
       L"CREATE TABLE SOLICITACAO (COD_SOLICIT INTEGER)", L"INSERT INTO SOLICITACAO VALUES (3)",
       L"CREATE TABLE MODELO (COD_MODELO VARCHAR(128))", L"CREATE TABLE DOCUMENTO (COD_DOCTO VARCHAR(10))"});
}

class UnknownCodesOn : public testing::TestWithParam<Engine> {
 protected:
  static Texts Warnings(const char* report, const wchar_t* parameter, const wchar_t* code, std::uint64_t rows) {
    const reports::ReportMethod& method = FindReport(report);
    frame::ParameterObject parameters(frame::ParameterClassNamed(method.parameterClass));
    parameters.Let(parameter, std::wstring(code));
    Texts warnings;
    for (const UnknownCode& code : UnknownCodes(parameters, rows, method, Archive(GetParam()), NewMachine()->Around()))
      warnings.push_back(code.words + ", de --" + std::string(code.parameter));
    return warnings;
  }
};

INSTANTIATE_TEST_SUITE_P(, UnknownCodesOn, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

// A statistic of a department that does not exist has rows, too.
TEST_P(UnknownCodesOn, AreNamedWhetherThereAreRowsOrNot) {
  for (const std::uint64_t rows : {0, 7}) {
    EXPECT_EQ(Warnings("CEstatImgRpt", L"CodDepto", L"9", rows),
              (Texts{"nenhum departamento tem o código \"9\", de --CodDepto"}));
    EXPECT_EQ(Warnings("CEstatImgRpt", L"CodDepto", L"1", rows), Texts());
  }
}

TEST_P(UnknownCodesOn, AreNamedEachOfAListOfNumbers) {
  EXPECT_EQ(Warnings("RelatorioRetiradaOriginal", L"CodSolicit", L"3, 4,5", 1),
            (Texts{"nenhuma solicitação tem o código \"4\", de --CodSolicit",
                   "nenhuma solicitação tem o código \"5\", de --CodSolicit"}));
  EXPECT_EQ(Warnings("RelatorioRetiradaOriginal", L"CodSolicit", L"SELECT 4", 1), Texts());
}

TEST_P(UnknownCodesOn, AreNotLookedForWhereTheReportFiltersNothing) {
  EXPECT_EQ(Warnings("RelatoriosModulos", L"CodDepto", L"0", 7), Texts());
  EXPECT_EQ(Warnings("RelatoriosModulos", L"CodDepto", L"9", 7),
            (Texts{"nenhum departamento tem o código \"9\", de --CodDepto"}));
}

// An event may be about a document that was deleted, and a model is found in any letter case.
TEST_P(UnknownCodesOn, AreNotLookedForWhereRowsProveThem) {
  EXPECT_EQ(Warnings("CLogRpt", L"CodDocto", L"D000001", 1), Texts());
  EXPECT_EQ(Warnings("CLogRpt", L"CodDocto", L"D000001", 0),
            (Texts{"nenhum documento tem o código \"D000001\", de --CodDocto"}));
  EXPECT_EQ(Warnings("CModeloRpt", L"CodModelo", L"oficio", 1), Texts());
  EXPECT_EQ(Warnings("CModeloRpt", L"CodModelo", L"oficio", 0),
            (Texts{"nenhum modelo tem o código \"oficio\", de --CodModelo"}));
}

}  // namespace
}  // namespace kodra::console

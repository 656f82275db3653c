// The snapshot of an error.
#include "frame/cerro.h"

#include <gtest/gtest.h>

#include "frame/report_call.h"

namespace kodra::frame {
namespace {

TEST(CErroTest, StartsEmpty) {
  const CErro erro;
  EXPECT_EQ(erro.Number(), 0);
  EXPECT_EQ(erro.Description(), L"");
  EXPECT_EQ(erro.Source(), L"");
  EXPECT_EQ(erro.LastDLLError(), 0);
  EXPECT_EQ(erro.ToString(), L"Erro 0 em : ");
}

TEST(CErroTest, ReturnsWhatWasSet) {
  CErro erro;
  erro.SetNumber(5);
  erro.SetDescription(L"Y");
  erro.SetSource(L"X");
  erro.SetLastDLLError(3);
  EXPECT_EQ(erro.Number(), 5);
  EXPECT_EQ(erro.Description(), L"Y");
  EXPECT_EQ(erro.Source(), L"X");
  EXPECT_EQ(erro.LastDLLError(), 3);
  EXPECT_EQ(erro.ToString(), L"Erro 5 em X: Y");
}

TEST(CErroTest, PrintsANegativeNumberInDecimal) {
  CErro erro;
  erro.SetErro(Erro(kReportError, L"KodraRpt.CCDRpt::RelatorioMidias", L"Falha"));
  EXPECT_EQ(erro.ToString(), L"Erro -2147213397 em KodraRpt.CCDRpt::RelatorioMidias: Falha");
}

TEST(CErroTest, CopiesAWholeError) {
  CErro erro;
  erro.SetErro(Erro(429, L"Fonte", L"Descrição"), 126);
  EXPECT_EQ(erro.Number(), 429);
  EXPECT_EQ(erro.Description(), L"Descrição");
  EXPECT_EQ(erro.Source(), L"Fonte");
  EXPECT_EQ(erro.LastDLLError(), 126);
}

TEST(CErroTest, ReplacesTheWholeFormerError) {
  CErro erro;
  erro.SetErro(Erro(429, L"Fonte", L"Descrição"), 126);
  erro.SetErro(Erro(0, L"", L""));
  EXPECT_EQ(erro.Number(), 0);
  EXPECT_EQ(erro.Description(), L"");
  EXPECT_EQ(erro.Source(), L"");
  EXPECT_EQ(erro.LastDLLError(), 0);
}

}  // namespace
}  // namespace kodra::frame

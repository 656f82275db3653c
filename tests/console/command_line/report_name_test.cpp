// Finding a report by the name that the user typed.
#include "console/command_line/report_name.h"

#include <gtest/gtest.h>

#include "tests/console/failing.h"

namespace kodra::console {
namespace {

std::string Found(std::string_view name) { return NameOf(FindReport(name)); }

std::string UsageMessage(std::string_view name) {
  return RefusalOf([&] { FindReport(name); });
}

TEST(FindReportTest, FindsEveryReportByItsFullName) {
  for (const reports::ReportMethod& method : reports::ReportMethods()) EXPECT_EQ(&FindReport(NameOf(method)), &method);
}

TEST(FindReportTest, IgnoresLetterCaseAndAccents) {
  EXPECT_EQ(Found("cdeptorpt.RELATÓRIODEPTOS"), "CDeptoRpt.RelatorioDeptos");
}

TEST(FindReportTest, AcceptsAClassWithOneMethodAndAMethodOfOneClass) {
  EXPECT_EQ(Found("CTipo_CaixaRpt"), "CTipo_CaixaRpt.RelatorioTiposModulo");
  EXPECT_EQ(Found("modulosvencidos"), "CCaixaRpt.ModulosVencidos");
}

TEST(FindReportTest, AcceptsTheSourceOfAnError) {
  EXPECT_EQ(Found("KodraRpt.CLogRpt::RelatorioLog"), "CLogRpt.RelatorioLog");
}

TEST(FindReportTest, ListsTheCandidatesOfAnAmbiguousName) {
  EXPECT_EQ(UsageMessage("CEstatIndexRpt"),
            "\"CEstatIndexRpt\" pode ser um destes relatórios:\n"
            "  CEstatIndexRpt.RelatorioEstatisticasPorDocumento\n"
            "  CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave");
  EXPECT_EQ(UsageMessage("etiquetaabertura"),
            "\"etiquetaabertura\" pode ser um destes relatórios:\n"
            "  CCaixaRpt.EtiquetaAbertura\n"
            "  CContainerRpt.EtiquetaAbertura");
}

TEST(FindReportTest, SuggestsTheNearestName) {
  EXPECT_EQ(UsageMessage("CDetpoRpt"),
            "o relatório \"CDetpoRpt\" não existe (quis dizer \"CDeptoRpt\"?); \"kodrarpt lista\" mostra todos");
  EXPECT_EQ(UsageMessage("CCaixaRpt.ModulosVencido"),
            "o relatório \"CCaixaRpt.ModulosVencido\" não existe (quis dizer \"CCaixaRpt.ModulosVencidos\"?); "
            "\"kodrarpt lista\" mostra todos");
}

TEST(FindReportTest, SuggestsNothingForANameUnlikeAllReports) {
  EXPECT_EQ(UsageMessage("zzzzz"), "o relatório \"zzzzz\" não existe; \"kodrarpt lista\" mostra todos");
  EXPECT_EQ(UsageMessage(""), "o relatório \"\" não existe; \"kodrarpt lista\" mostra todos");
}

}  // namespace
}  // namespace kodra::console

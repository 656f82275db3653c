// kodrarpt lista.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "console/command_line/report_name.h"
#include "console/reports/guide.h"
#include "tests/console/run.h"

namespace kodra::console {
namespace {

TEST(ListaTest, NamesEveryReportInOrderWithItsPurpose) {
  const RunResult result = RunProgram({"lista"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err, "");
  std::istringstream lines(result.out);
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    std::string line;
    std::getline(lines, line);
    EXPECT_TRUE(line.starts_with(NameOf(method) + " ")) << line;
    EXPECT_EQ(line.substr(54), guide::About(method).purpose);
  }
  EXPECT_EQ(lines.peek(), EOF);
}

TEST(ListaTest, ShowsAReportInOneLine) {
  const std::string out = RunProgram({"lista"}).out;
  EXPECT_EQ(out.substr(0, out.find('\n')),
            "CCDRpt.RelatorioMidias                                As mídias, todas ou só as vencidas");
}

TEST(ListaTest, WritesOneJsonListForPrograms) {
  const RunResult result = RunProgram({"lista", "--json"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  const std::string start =
      "[{\"nome\":\"CCDRpt.RelatorioMidias\",\"finalidade\":\"As mídias, todas ou só as vencidas\"},"
      "{\"nome\":\"CTipo_MidiaRpt.RelatorioTiposMidia\",";
  EXPECT_EQ(result.out.substr(0, start.size()), start);
  EXPECT_TRUE(result.out.ends_with("\"}]\n")) << result.out;
  const auto reports = nlohmann::json::parse(result.out);
  ASSERT_EQ(reports.size(), reports::ReportMethods().size());
  for (std::size_t i = 0; i < reports.size(); ++i) {
    EXPECT_EQ(reports[i]["nome"], NameOf(reports::ReportMethods()[i]));
    EXPECT_EQ(reports[i]["finalidade"], guide::About(reports::ReportMethods()[i]).purpose);
  }
}

TEST(ListaTest, HasADifferentPurposeForEachReport) {
  std::set<std::string_view> purposes;
  for (const guide::Report& report : guide::Reports()) {
    EXPECT_FALSE(report.purpose.empty()) << report.method;
    purposes.insert(report.purpose);
  }
  EXPECT_EQ(purposes.size(), reports::ReportMethods().size());
}

}  // namespace
}  // namespace kodra::console

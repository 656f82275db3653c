// The list of report methods: each method is in it once and calls itself.
#include "console/reports/report_methods.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "frame/parameter_object.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::reports {
namespace {

TEST(ReportMethods, AreThirtyNineDifferentOnes) {
  std::set<std::pair<std::wstring_view, std::wstring_view>> names;
  for (const ReportMethod& entry : ReportMethods()) names.emplace(entry.className, entry.method);
  EXPECT_EQ(ReportMethods().size(), 39U);
  EXPECT_EQ(names.size(), 39U);
}

TEST(ReportMethods, AreInTheOrderInWhichPeopleReadThem) {
  std::vector<std::string> classes;
  for (const ReportMethod& entry : ReportMethods()) {
    const std::string name = recorder::Utf8(entry.className);
    if (classes.empty() || classes.back() != name) classes.push_back(name);
  }
  EXPECT_EQ(classes,
            (std::vector<std::string>{"CCDRpt",           "CTipo_MidiaRpt",    "CSuporteRpt",       "CSerieRpt",
                                      "CDepositoRpt",     "CDicionarioRpt",    "CDeptoRpt",         "CGrupoRpt",
                                      "CModeloRpt",       "CTipo_CaixaRpt",    "CGrupoOperadorRpt", "CSubgrupoRpt",
                                      "COperadorRpt",     "CDocumentoRpt",     "CSolicitacaoRpt",   "CLogRpt",
                                      "CCaixaRpt",        "CContainerRpt",     "CEstatImgRpt",      "CEstatIndexRpt",
                                      "CEstatSuporteRpt", "CEstatSubgrupoRpt", "CEstatSerieRpt"}));
}

TEST(ReportMethods, NameParameterClassesThatExist) {
  for (const ReportMethod& entry : ReportMethods()) {
    EXPECT_TRUE(std::ranges::any_of(frame::ParameterClasses(), [&](const frame::ParameterClass& known) {
      return known.name == entry.parameterClass;
    })) << recorder::Utf8(entry.className);
  }
}

// Without the connection component a report fails under its own name. The one method without a frame reads its
// parameter object before it asks for that component.
TEST(ReportMethods, CallTheMethodTheyName) {
  for (const ReportMethod& entry : ReportMethods()) {
    recorder::FakeSurroundings bare;
    frame::ParameterObject parameters(frame::ParameterClassNamed(entry.parameterClass));
    const bool framed = entry.method != L"DocsNoModuloSubRpt";
    const recorder::Raised raised =
        recorder::RaisedBy([&] { entry.call(bare, L"DSN=acervo", framed ? &parameters : nullptr); });
    if (framed) {
      EXPECT_EQ(raised.source, L"KodraRpt." + std::wstring(entry.className) + L"::" + std::wstring(entry.method));
    } else {
      EXPECT_EQ(raised, recorder::Raised(MakeRuntimeError(RuntimeError::kObjectNotSet)));
    }
  }
}

TEST(ReportMethods, AreFoundByTheirExactNames) {
  const ReportMethod* found = FindReportMethod(L"CDeptoRpt", L"RelatorioDeptos");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->method, L"RelatorioDeptos");
  EXPECT_EQ(FindReportMethod(L"CDeptoRpt", L"RELATORIODEPTOS"), nullptr);
  EXPECT_EQ(FindReportMethod(L"CGrupoRpt", L"RelatorioDeptos"), nullptr);
}

}  // namespace
}  // namespace kodra::reports

// The filters of the module listings.
#include "reports/modules/module_filters.h"

#include <gtest/gtest.h>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::reports {
namespace {

using recorder::kInvalidUseOfNull;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Utf8;

class ModuleFiltersTest : public testing::Test {
 protected:
  using Filter = std::wstring (*)(AutomationObject&);

  // A condition with a filter, when the property that the filter reads has a value.
  std::string Filtered(Filter filter, const wchar_t* property, const Value& value,
                       const std::wstring& condition = L"c.TIPO_GUARDA = 'E'") {
    return Utf8(condition + filter(*around_.NewObject(L"Parametros", {{property, {value}}})));
  }
  std::string OfDepto(const Value& code) { return Filtered(DeptoFilter, L"CodDepto", code); }
  std::string OfPregresso(const Value& flag) { return Filtered(PregressoFilter, L"ModoPregresso", flag); }

  recorder::FakeSurroundings around_;
};

TEST_F(ModuleFiltersTest, AddsTheDepartmentToTheCondition) {
  EXPECT_EQ(OfDepto(L"7"), "c.TIPO_GUARDA = 'E' AND c.COD_DEPTO = '7'");
}

TEST_F(ModuleFiltersTest, InsertsTheDepartmentUnchanged) {
  EXPECT_EQ(OfDepto(L"007"), "c.TIPO_GUARDA = 'E' AND c.COD_DEPTO = '007'");
  EXPECT_EQ(OfDepto(L" 7 "), "c.TIPO_GUARDA = 'E' AND c.COD_DEPTO = ' 7 '");
  EXPECT_EQ(OfDepto(L"7A"), "c.TIPO_GUARDA = 'E' AND c.COD_DEPTO = '7A'");
  EXPECT_EQ(OfDepto(L"0.5"), "c.TIPO_GUARDA = 'E' AND c.COD_DEPTO = '0.5'");
  EXPECT_EQ(OfDepto(L"1'x"), "c.TIPO_GUARDA = 'E' AND c.COD_DEPTO = '1'x'");
}

TEST_F(ModuleFiltersTest, AcceptsADepartmentThatIsANumber) {
  EXPECT_EQ(OfDepto(7), "c.TIPO_GUARDA = 'E' AND c.COD_DEPTO = '7'");
  EXPECT_EQ(OfDepto(0), "c.TIPO_GUARDA = 'E'");
}

TEST_F(ModuleFiltersTest, LeavesTheConditionWithoutADepartmentAboveZero) {
  for (const wchar_t* code : {L"", L"0", L"000", L" ", L"-1", L"A7", L"abc", L"0,5"})
    EXPECT_EQ(OfDepto(code), "c.TIPO_GUARDA = 'E'") << Utf8(code);
}

TEST_F(ModuleFiltersTest, AddsTheBackCatalogueToTheCondition) {
  EXPECT_EQ(OfPregresso(true), "c.TIPO_GUARDA = 'E' AND c.DOCS_PREGRESSOS = 1");
  EXPECT_EQ(OfPregresso(false), "c.TIPO_GUARDA = 'E'");
}

TEST_F(ModuleFiltersTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  EXPECT_EQ(RaisedBy([&] { Filtered(DeptoFilter, L"Owner", L""); }),
            (Raised{438, "KodraRpt", R"(O objeto de parâmetros não tem a propriedade "CodDepto".)"}));
  EXPECT_EQ(RaisedBy([&] { Filtered(PregressoFilter, L"Owner", L""); }),
            (Raised{438, "KodraRpt", R"(O objeto de parâmetros não tem a propriedade "ModoPregresso".)"}));
}

TEST_F(ModuleFiltersTest, RefusesANull) {
  EXPECT_EQ(RaisedBy([&] { OfDepto(Null{}); }), kInvalidUseOfNull);
  EXPECT_EQ(RaisedBy([&] { OfPregresso(Null{}); }), kInvalidUseOfNull);
}

}  // namespace
}  // namespace kodra::reports

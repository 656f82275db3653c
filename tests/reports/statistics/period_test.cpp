// The period of a statistic, without any database.
#include "reports/statistics/period.h"

#include <gtest/gtest.h>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"
#include "tests/reports/statistics/march.h"

namespace kodra::reports {
namespace {

using recorder::kTypeMismatch;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Utf8;

std::string Between(const Period& period, std::int32_t code, std::int32_t layout) {
  return Utf8(Between(L"d.DT_ARMAZ", period, layout, sql::Translator(code)));
}

std::string TitleOf(const Period& period) { return Utf8(PeriodTitle(period)); }

TEST(PeriodTest, IsTitledByItsTwoDays) {
  EXPECT_EQ(TitleOf({k1March2024, k31March2024}), "'Período: 01/03/2024 a 31/03/2024'");
  EXPECT_EQ(TitleOf({k31March2024, k1March2024}), "'Período: 31/03/2024 a 01/03/2024'");
  EXPECT_EQ(TitleOf({{45352.75}, {45382.99}}), "'Período: 01/03/2024 a 31/03/2024'");
  EXPECT_EQ(TitleOf({}), "'Período: 30/12/1899 a 30/12/1899'");
}

TEST(PeriodTest, IsAConditionInTheDialectOfEachDatabase) {
  const Period march = {k1March2024, k31March2024};
  for (const auto& [code, condition] : kInMarch)
    EXPECT_EQ(Between(march, code, sql::fdDDMMYYYY), "d.DT_ARMAZ" + condition);
  for (const auto& [code, condition] : kInMarchYearFirst)
    EXPECT_EQ(Between(march, code, sql::fdYYYYMMDD), "d.DT_ARMAZ" + condition);
}

TEST(PeriodTest, HasBoundsWithoutTimeOnEveryDatabaseThatReadsTheDate) {
  const Period march = {{45352.75}, {45382.5}};
  for (const auto& [code, condition] : kInMarch) {
    if (code == tbSQLite) continue;
    EXPECT_EQ(Between(march, code, sql::fdDDMMYYYY), "d.DT_ARMAZ" + condition);
  }
  // SQLite gets the date's text as it is.
  EXPECT_EQ(Between(march, tbSQLite, sql::fdDDMMYYYY),
            "d.DT_ARMAZ BETWEEN strftime('%d-%m-%Y',01/03/2024 18:00:00) AND strftime('%d-%m-%Y',31/03/2024 12:00:00)");
}

TEST(PeriodTest, StartsAndEndsOnTheZeroDateWhenItIsNotSet) {
  EXPECT_EQ(Between({}, tbOracle, sql::fdDDMMYYYY),
            "d.DT_ARMAZ BETWEEN TO_DATE('30/12/1899','DD/MM/YYYY') AND TO_DATE('30/12/1899','DD/MM/YYYY')");
  EXPECT_EQ(Between({}, tbSQLServer, sql::fdDDMMYYYY), "d.DT_ARMAZ BETWEEN '18991230' AND '18991230'");
  EXPECT_EQ(Between({}, tbMySQL, sql::fdDDMMYYYY),
            "d.DT_ARMAZ BETWEEN STR_TO_DATE('30/12/1899','%d/%m/%Y') AND STR_TO_DATE('30/12/1899','%d/%m/%Y')");
  EXPECT_EQ(Between({}, tbDB2, sql::fdYYYYMMDD),
            "d.DT_ARMAZ BETWEEN TO_DATE('1899/12/30','YYYY/MM/DD') AND TO_DATE('1899/12/30','YYYY/MM/DD')");
}

TEST(PeriodTest, HasNoConditionForADatabaseWithoutDialect) {
  for (const std::int32_t code : {0, tbOther4, 8, -1})
    EXPECT_EQ(
        RaisedBy([&] {
          Between({k1March2024, k31March2024}, code, sql::fdDDMMYYYY);
        }),
        (Raised{kErrBase + 1, "TradutorSQL.SQLToDate", "Não há entrada para o banco tipo " + std::to_string(code)}));
}

TEST(PeriodTest, IsReadFromTheFirstDayToTheLast) {
  recorder::FakeSurroundings around;
  const ObjectRef parameters =
      around.NewObject(L"Parametros", {{L"DataInicial", {L"01/03/2024"}}, {L"DataFinal", {k31March2024}}});
  const Period period = ReadPeriod(*parameters);
  EXPECT_EQ(period.first, k1March2024);
  EXPECT_EQ(period.last, k31March2024);
  EXPECT_EQ(around.journal.Calls(), Lines({
                                        R"(Parametros.Get(DataInicial) -> "01/03/2024")",
                                        "Parametros.Get(DataFinal) -> Date(45382)",
                                    }));
}

TEST(PeriodTest, IsNotReadFromWhatIsNoDate) {
  recorder::FakeSurroundings around;
  const ObjectRef parameters =
      around.NewObject(L"Parametros", {{L"DataInicial", {k1March2024}}, {L"DataFinal", {L"amanhã"}}});
  EXPECT_EQ(RaisedBy([&] { ReadPeriod(*parameters); }), kTypeMismatch);
}

}  // namespace
}  // namespace kodra::reports

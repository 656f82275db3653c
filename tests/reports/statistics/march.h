// March 2024, the period of the statistics' tests, and how each database that has a dialect says it.
#pragma once

#include <string>
#include <vector>

#include "tests/reports/listing_checks.h"
#include "values/value.h"

namespace kodra::reports {

inline constexpr Date k1March2024 = {45352};
inline constexpr Date k31March2024 = {45382};

// A condition on a column, without its name.
struct Condition {
  std::int32_t code;
  std::string text;
};

// In the day/month/year layout.
inline const std::vector<Condition> kInMarch = {
    {1, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('31/03/2024','DD/MM/YYYY')"},
    {2, " BETWEEN '20240301' AND '20240331'"},
    {3, " BETWEEN STR_TO_DATE('01/03/2024','%d/%m/%Y') AND STR_TO_DATE('31/03/2024','%d/%m/%Y')"},
    {5, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('31/03/2024','DD/MM/YYYY')"},
    {6, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('31/03/2024','DD/MM/YYYY')"},
    {7, " BETWEEN strftime('%d-%m-%Y',01/03/2024) AND strftime('%d-%m-%Y',31/03/2024)"},
};

// The same up to the day after.
inline const std::vector<Condition> kInMarchAndTheDayAfter = {
    {1, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('01/04/2024','DD/MM/YYYY')"},
    {2, " BETWEEN '20240301' AND '20240401'"},
    {3, " BETWEEN STR_TO_DATE('01/03/2024','%d/%m/%Y') AND STR_TO_DATE('01/04/2024','%d/%m/%Y')"},
    {5, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('01/04/2024','DD/MM/YYYY')"},
    {6, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('01/04/2024','DD/MM/YYYY')"},
    {7, " BETWEEN strftime('%d-%m-%Y',01/03/2024) AND strftime('%d-%m-%Y',01/04/2024)"},
};

// In the year/month/day layout.
inline const std::vector<Condition> kInMarchYearFirst = {
    {1, " BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {2, " BETWEEN '20240301' AND '20240331'"},
    {3, " BETWEEN STR_TO_DATE('2024/03/01','%Y/%m/%d') AND STR_TO_DATE('2024/03/31','%Y/%m/%d')"},
    {5, " BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {6, " BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {7, " BETWEEN strftime('%Y-%m-%d',01/03/2024) AND strftime('%Y-%m-%d',31/03/2024)"},
};

// The reads of that period and of further text properties of the client's parameter object, in their order.
using TextRead = std::pair<const char*, std::string>;
inline std::vector<std::string> MarchReads(const std::vector<TextRead>& texts) {
  std::vector<std::string> reads = {"Parametros.Get(DataInicial) -> Date(45352)",
                                    "Parametros.Get(DataFinal) -> Date(45382)"};
  for (const auto& [property, value] : texts)
    reads.push_back(std::string("Parametros.Get(").append(property).append(") -> \"").append(value).append("\""));
  return reads;
}

}  // namespace kodra::reports

// March 2024, the period of the statistics' tests, in each dialect.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "tests/reports/databases.h"
#include "values/value.h"

namespace kodra::reports {

inline constexpr Date k1March2024 = {45352};
inline constexpr Date k31March2024 = {45382};

// A condition on a column, without its name.
struct Condition {
  std::int32_t code;
  std::string text;
};

// The condition of that database.
inline const std::string& TextOf(const std::vector<Condition>& conditions, std::int32_t code) {
  return std::find_if(conditions.begin(), conditions.end(),
                      [&](const auto& condition) { return condition.code == code; })
      ->text;
}

// In the day/month/year layout.
inline const std::vector<Condition> kInMarch = {
    {tbOracle, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('31/03/2024','DD/MM/YYYY')"},
    {tbSQLServer, " BETWEEN '20240301' AND '20240331'"},
    {tbMySQL, " BETWEEN STR_TO_DATE('01/03/2024','%d/%m/%Y') AND STR_TO_DATE('31/03/2024','%d/%m/%Y')"},
    {tbOracleAlt, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('31/03/2024','DD/MM/YYYY')"},
    {tbDB2, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('31/03/2024','DD/MM/YYYY')"},
    {tbSQLite, " BETWEEN strftime('%d-%m-%Y',01/03/2024) AND strftime('%d-%m-%Y',31/03/2024)"},
};

// The same with the day after the last one.
inline const std::vector<Condition> kInMarchAndTheDayAfter = {
    {tbOracle, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('01/04/2024','DD/MM/YYYY')"},
    {tbSQLServer, " BETWEEN '20240301' AND '20240401'"},
    {tbMySQL, " BETWEEN STR_TO_DATE('01/03/2024','%d/%m/%Y') AND STR_TO_DATE('01/04/2024','%d/%m/%Y')"},
    {tbOracleAlt, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('01/04/2024','DD/MM/YYYY')"},
    {tbDB2, " BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('01/04/2024','DD/MM/YYYY')"},
    {tbSQLite, " BETWEEN strftime('%d-%m-%Y',01/03/2024) AND strftime('%d-%m-%Y',01/04/2024)"},
};

// In the year/month/day layout.
inline const std::vector<Condition> kInMarchYearFirst = {
    {tbOracle, " BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {tbSQLServer, " BETWEEN '20240301' AND '20240331'"},
    {tbMySQL, " BETWEEN STR_TO_DATE('2024/03/01','%Y/%m/%d') AND STR_TO_DATE('2024/03/31','%Y/%m/%d')"},
    {tbOracleAlt, " BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {tbDB2, " BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {tbSQLite, " BETWEEN strftime('%Y-%m-%d',01/03/2024) AND strftime('%Y-%m-%d',31/03/2024)"},
};

// The reads of that period and of further text properties of the client's parameter object, in their order.
using TextRead = std::pair<const char*, std::string>;
inline CallLines MarchReads(const std::vector<TextRead>& texts) {
  CallLines reads = {"Parametros.Get(DataInicial) -> Date(45352)", "Parametros.Get(DataFinal) -> Date(45382)"};
  for (const auto& [property, value] : texts)
    reads.push_back("Parametros.Get(" + std::string(property) + ") -> " + Quoted(value));
  return reads;
}

}  // namespace kodra::reports

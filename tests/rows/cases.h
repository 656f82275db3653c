// A case of a report: the properties that a client sets, and the rows that a plain loop over the sample archive finds.
//
//   INSTANTIATE_TEST_SUITE_P(Catalogs, ReportRows, testing::Combine(testing::ValuesIn(Cases()), BothEngines()),
//   CaseName);
#pragma once

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "tests/rows/differences.h"
#include "tests/rows/driver.h"

namespace kodra::rows {

struct Case {
  // A description of the rows, in letters only: the test is named after it.
  std::string name;
  Report report;
  Properties properties = {};
  // The rows that the test expects, one at least.
  std::function<Table()> expected;
  // The columns by which they are in ascending order.
  std::vector<std::wstring> order = {};
  // The databases on which the report returns the columns but no row; the predicate says why.
  bool (*isEmptyOn)(Engine) = OnNoEngine;
  From from = From::kCurrentRow;

  friend void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }
};

// The test of a case is in cases.cpp.
class ReportRows : public testing::TestWithParam<std::tuple<Case, Engine>> {};

inline std::string CaseName(const testing::TestParamInfo<ReportRows::ParamType>& info) {
  return std::get<Case>(info.param).name + NameOf(std::get<Engine>(info.param));
}

}  // namespace kodra::rows

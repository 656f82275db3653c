#include "tests/rows/cases.h"

namespace kodra::rows {
namespace {

TEST_P(ReportRows, AreThoseOfAPlainLoopOverTheArchive) {
  const auto& [asked, engine] = GetParam();
  const Table actual = RowsAt(SampleOn(engine), asked.report, asked.properties, asked.from);
  if (asked.isEmptyOn(engine)) {
    ExpectNoRows(actual, asked.expected().columns);
  } else {
    ExpectRows(actual, asked.expected(), asked.order);
  }
}

}  // namespace
}  // namespace kodra::rows

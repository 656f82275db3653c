// The sample archive in memory: the rows that the plain loops of the tests go through. Both databases contain them.
//
// A few rows that the reports' edge cases need are added to the generated ones; SampleArchive() has them too.
#pragma once

#include <string>
#include <vector>

#include "testbed/archive/archive.h"

namespace kodra::rows {

// The number of documents in the databases of every test program.
inline constexpr testbed::Size kSampleSize{.documents = 500};

// The rows of the archive in the databases.
const testbed::Archive& SampleArchive();

// The statements that add the rows that are not generated, for any database.
std::vector<std::wstring> ExtraRowStatements();

// Today, by the databases' clocks.
testbed::Day Today();

// The rows of a table.
template <class Record>
const std::vector<Record>& All() {
  return SampleArchive().Of<Record>();
}

// The row with that key, or null; a null key finds none, as in a join.
template <class Record>
const Record* Find(testbed::Text Record::*key, const testbed::MaybeText& code) {
  if (!code) return nullptr;
  for (const Record& record : All<Record>()) {
    if (record.*key == *code) return &record;
  }
  return nullptr;
}

// The organisation's name, which many reports print.
inline testbed::MaybeText Company() { return Find(&testbed::Parametro::codigo, testbed::Text(L"1"))->empresa; }

// A day without its time.
inline testbed::Day DayOf(testbed::Moment moment) { return std::chrono::floor<std::chrono::days>(moment); }

}  // namespace kodra::rows

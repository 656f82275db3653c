// A client of the reports: the machine with its sibling components, the sample archive on one database, and the ways to
// look the archive's rows up in memory.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "frame/parameter_object.h"
#include "frame/report_class.h"
#include "odbc/engine/surroundings.h"
#include "siblings/sibling_classes.h"
#include "tests/db/sample.h"
#include "tests/db/table.h"
#include "tests/odbc/raised.h"

namespace kodra::tests {

// The period that the tests of filtered reports ask for: its first and last day.
struct Period {
  testbed::Day first, last;
};

class Reports {
 public:
  explicit Reports(Engine engine) : engine_(engine), connection_(SampleOn(engine)) {
    siblings::RegisterSiblings(machine_);
  }

  const std::wstring& ConnectionString() const { return connection_; }
  void ReadTheEmptyArchive() { connection_ = EmptyOn(engine_); }

  odbc::Surroundings& Machine() { return machine_; }

  // A report of a class, told where to read.
  template <class Report>
  Report New() {
    return Report(machine_);
  }

  // A parameter object with these properties set.
  using Properties = std::initializer_list<std::pair<const wchar_t*, Value>>;
  static frame::ParameterObject Parameters(const wchar_t* className, Properties properties = {}) {
    frame::ParameterObject object(frame::ParameterClassNamed(className));
    for (const auto& [name, value] : properties) object.Let(name, value);
    return object;
  }

  // What a report method gives to a client who sets its connection string and passes these parameters.
  template <class Report>
  frame::ReportRows Open(frame::ReportRows (Report::*method)(AutomationObject*), frame::ParameterObject obj) {
    Report report(machine_);
    report.SetStringConexao(connection_);
    return (report.*method)(&obj);
  }
  template <class Report>
  Table RowsOf(frame::ReportRows (Report::*method)(AutomationObject*), frame::ParameterObject obj) {
    return Read(*Open(method, std::move(obj)));
  }
  // What it raises.
  template <class Report>
  Raised ErrorOf(frame::ReportRows (Report::*method)(AutomationObject*), frame::ParameterObject obj) {
    return RaisedBy([&] { Open(method, std::move(obj)); });
  }

  // The rows of a table in memory.
  template <class Record>
  static const std::vector<Record>& All() {
    return SampleArchive().Of<Record>();
  }
  // The row with that key, or null; a null key finds none, as in a join.
  template <class Record>
  static const Record* Find(testbed::Text Record::*key, const testbed::MaybeText& code) {
    if (!code) return nullptr;
    for (const Record& record : All<Record>()) {
      if (record.*key == *code) return &record;
    }
    return nullptr;
  }
  // The organisation's name, which many reports print.
  static testbed::MaybeText Company() { return Find(&testbed::Parametro::codigo, testbed::Text(L"1"))->empresa; }

 private:
  Engine engine_;
  std::wstring connection_;
  odbc::Surroundings machine_;
};

// Tests of what is the same on both databases.
class OnBoth : public testing::TestWithParam<Engine>, protected Reports {
 protected:
  OnBoth() : Reports(GetParam()) {}
};

inline std::string EngineName(const testing::TestParamInfo<Engine>& info) {
  return info.param == Engine::kSqlite ? "OnSqlite" : "OnMariaDb";
}

#define KODRA_ON_BOTH_DATABASES(suite) \
  INSTANTIATE_TEST_SUITE_P(, suite, testing::Values(Engine::kSqlite, Engine::kMariaDb), EngineName)

// Tests of what is one database's own.
template <Engine kEngine>
class On : public testing::Test, protected Reports {
 protected:
  On() : Reports(kEngine) {}
};
using OnSqlite = On<Engine::kSqlite>;
using OnMariaDb = On<Engine::kMariaDb>;

// An error of a report method as its client gets it.
inline Raised Framed(const wchar_t* method, const std::wstring& cause) {
  return {frame::kReportError, L"KodraRpt." + std::wstring(method), std::wstring(frame::kReportErrorPrefix) + cause};
}

// The cause that SQLite's refusal of a statement gives.
inline std::wstring RefusedBySqlite(const std::wstring& message) {
  return L"[Microsoft OLE DB Provider for ODBC Drivers]: [SQLite]" + message + L" (1) [N:1]";
}

// A date as a client sets it in a parameter object.
inline Value DateOf(testbed::Day day) { return Cell(day); }

}  // namespace kodra::tests

// The guide against the component: its methods, its parameter classes, its statements and its list of behaviours. Its
// columns are checked against real rows in db/guide_rows_test.cpp.
#include "console/reports/guide.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "console/command_line/databases.h"
#include "console/command_line/parameter_value.h"
#include "console/command_line/report_name.h"
#include "console/statements/capture.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using enum frame::PropertyRule;
using guide::Parameter;
using reports::ReportMethod;
using values::ToUtf8;

const frame::Property* PropertyNamed(const ReportMethod& method, std::string_view name) {
  for (const frame::Property& property : frame::ParameterClassNamed(method.parameterClass).properties)
    if (ToUtf8(property.name) == name) return &property;
  return nullptr;
}

// A parameter object with the samples of all parameters of a report but one.
frame::ParameterObject SamplesWithout(std::string_view left, const ReportMethod& method) {
  frame::ParameterObject object(frame::ParameterClassNamed(method.parameterClass));
  for (const Parameter& parameter : guide::About(method).parameters) {
    if (parameter.name == left) continue;
    const frame::Property& property = *PropertyNamed(method, parameter.name);
    object.Let(property.name, ParameterValue(property, parameter.sample));
  }
  return object;
}

// What a report sends to all databases.
std::wstring Sent(const ReportMethod& method, frame::ParameterObject object) {
  std::wstring sent;
  for (const Database& database : Databases()) {
    for (const Statement& statement : Capture(method, database.code, object).statements) {
      sent += statement.text + L"\n";
      for (const std::wstring& value : statement.parameters) sent += value + L"\n";
    }
  }
  return sent;
}

TEST(GuideTest, HasTheReportsInTheirOrder) {
  ASSERT_EQ(guide::Reports().size(), reports::ReportMethods().size());
  for (const ReportMethod& method : reports::ReportMethods())
    EXPECT_EQ(guide::NameOf(guide::About(method)), NameOf(method));
}

TEST(GuideTest, DescribesParametersThatTheirClassesHave) {
  for (const ReportMethod& method : reports::ReportMethods())
    for (const Parameter& parameter : guide::About(method).parameters)
      EXPECT_NE(PropertyNamed(method, parameter.name), nullptr) << NameOf(method) << " " << parameter.name;
}

TEST(GuideTest, SaysOfEachParameterWhetherItChangesTheSql) {
  for (const ReportMethod& method : reports::ReportMethods()) {
    const std::wstring whole = Sent(method, SamplesWithout("", method));
    for (const Parameter& parameter : guide::About(method).parameters)
      EXPECT_EQ(Sent(method, SamplesWithout(parameter.name, method)) != whole, parameter.changesSql)
          << NameOf(method) << " " << parameter.name;
  }
}

TEST(GuideTest, LeavesOutParametersThatChangeNothing) {
  for (const ReportMethod& method : reports::ReportMethods()) {
    const std::wstring whole = Sent(method, SamplesWithout("", method));
    const auto parameters = guide::About(method).parameters;
    for (const frame::Property& property : frame::ParameterClassNamed(method.parameterClass).properties) {
      if (std::ranges::find(parameters, ToUtf8(property.name), &Parameter::name) != parameters.end()) continue;
      frame::ParameterObject object = SamplesWithout("", method);
      object.Let(property.name, ParameterValue(property, property.rule == kDate ? "31/05/2021" : "1"));
      EXPECT_EQ(Sent(method, std::move(object)), whole) << NameOf(method) << " " << ToUtf8(property.name);
    }
  }
}

TEST(GuideTest, LinksEachOddityToItsEntry) {
  std::ostringstream behaviours;
  behaviours << std::ifstream(KODRA_SOURCE_DIR "/docs/behaviours.md").rdbuf();
  for (const guide::Report& report : guide::Reports())
    for (const guide::Oddity& oddity : report.oddities)
      EXPECT_NE(behaviours.str().find("\n**" + std::string(oddity.entry)), std::string::npos) << oddity.entry;
}

TEST(GuideTest, EndsNoSentence) {
  for (const guide::Report& report : guide::Reports()) {
    EXPECT_FALSE(report.purpose.empty() || report.purpose.ends_with('.')) << guide::NameOf(report);
    for (const guide::Oddity& oddity : report.oddities) EXPECT_FALSE(oddity.text.ends_with('.')) << oddity.text;
    for (const Parameter& parameter : report.parameters)
      EXPECT_FALSE(parameter.effect.ends_with('.')) << parameter.effect;
  }
}

}  // namespace
}  // namespace kodra::console

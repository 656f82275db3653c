#include "console/statements/needs.h"

#include <algorithm>

#include "console/command_line/parameter_value.h"
#include "console/reports/guide.h"
#include "console/statements/capturing_surroundings.h"
#include "siblings/sibling_classes.h"
#include "values/erro.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

// Every dialect reads the same columns, but the dialect of SQLite hides some of them between quotes.
constexpr const wchar_t* kConnectionString = L"Driver=MySQL";

void Let(frame::ParameterObject& object, const frame::ParameterClass& parameterClass, std::string_view name,
         std::string_view value) {
  for (const frame::Property& property : parameterClass.properties)
    if (values::ToUtf8(property.name) == name) object.Let(property.name, ParameterValue(property, value));
}

// Parameter objects with all properties set, so that every filter is in the statements: one object with the samples of
// the guide, and one for each further value that changes the form of the statements.
std::vector<frame::ParameterObject> Variants(const reports::ReportMethod& method) {
  const frame::ParameterClass& parameterClass = frame::ParameterClassNamed(method.parameterClass);
  const auto& parameters = guide::About(method).parameters;
  frame::ParameterObject samples(parameterClass);
  for (const guide::Parameter& parameter : parameters) Let(samples, parameterClass, parameter.name, parameter.sample);
  std::vector<frame::ParameterObject> variants = {samples};
  for (const guide::Parameter& parameter : parameters)
    for (const std::string_view other : parameter.otherSamples)
      Let(variants.emplace_back(samples), parameterClass, parameter.name, other);
  return variants;
}

ObjectRef NewSibling(const std::wstring& progId, platform::Surroundings& surroundings) {
  const auto found = std::ranges::find(siblings::SiblingClasses(), progId, &siblings::SiblingClass::progId);
  if (found == siblings::SiblingClasses().end()) throw MakeRuntimeError(RuntimeError::kCannotCreateObject);
  return found->create(surroundings);
}

// Runs the report with `rows` rows of nulls for every statement, and adds what it read. Raises what the report raises,
// unless there were no rows.
void AddRun(Needs& needs, int rows, const reports::ReportMethod& method, frame::ParameterObject parameters) {
  CapturingSurroundings siblingSurroundings(
      rows, [](const std::wstring&) -> ObjectRef { throw MakeRuntimeError(RuntimeError::kCannotCreateObject); });
  CapturingSurroundings reportSurroundings(
      rows, [&](const std::wstring& progId) { return NewSibling(progId, siblingSurroundings); });
  try {
    method.call(reportSurroundings, kConnectionString, &parameters);
  } catch (const Erro&) {
    if (rows > 0) throw;
    // Some reports fail without rows. The statements that they sent before count. The components do not, because a
    // report may ask for one only to log the error.
    reportSurroundings.captured.components.clear();
  }
  for (const Statement& statement : reportSurroundings.captured.statements)
    AddNeeds(needs.tables, TablesRead(statement.text));
  for (const Statement& statement : siblingSurroundings.captured.statements)
    AddNeeds(needs.siblingTables, TablesRead(statement.text));
  for (const std::wstring& sibling : reportSurroundings.captured.components)
    if (std::ranges::find(needs.siblings, sibling) == needs.siblings.end()) needs.siblings.push_back(sibling);
}

}  // namespace

Needs NeedsOf(const reports::ReportMethod& method) {
  Needs needs;
  for (const frame::ParameterObject& parameters : Variants(method))
    for (const int rows : {1, 0}) AddRun(needs, rows, method, parameters);
  return needs;
}

}  // namespace kodra::console

#include "console/statements/every_statement.h"

#include <algorithm>

#include "console/command_line/parameter_value.h"
#include "console/reports/guide.h"
#include "console/statements/capturing_surroundings.h"
#include "console/statements/placeholders.h"
#include "siblings/sibling_classes.h"
#include "sql/tipo_banco.h"
#include "values/erro.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

// A connection string that the siblings take for one of the database.
std::wstring ConnectionStringOf(std::int32_t databaseCode) {
  switch (databaseCode) {
    case sql::tbOracle:
    case sql::tbOracleAlt:
      return L"Driver=Oracle";
    case sql::tbSQLServer:
      return L"Driver=SQL Server";
    case sql::tbMySQL:
      return L"Driver=MySQL";
    case sql::tbDB2:
      return L"Driver=IBM DB2";
    case sql::tbSQLite:
      return L"Driver=SQLite;Database=kodrarpt";
    default:
      return L"kodrarpt";
  }
}

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

ObjectRef NewSibling(const std::wstring& progId, std::int32_t databaseCode, platform::Surroundings& surroundings) {
  if (progId == L"KodraConexao.StrCon") return NewPlaceholder(progId, databaseCode);
  const auto found = std::ranges::find(siblings::SiblingClasses(), progId, &siblings::SiblingClass::progId);
  if (found == siblings::SiblingClasses().end()) throw MakeRuntimeError(RuntimeError::kCannotCreateObject);
  return found->create(surroundings);
}

void AddNew(std::vector<Statement>& known, const std::vector<Statement>& more) {
  for (const Statement& statement : more)
    if (std::ranges::find(known, statement.text, &Statement::text) == known.end()) known.push_back(statement);
}

// Runs the report with `rows` rows of nulls for every statement, and adds what it sent. Raises what the report raises,
// unless there were no rows.
void AddRun(EveryStatement& every, int rows, const reports::ReportMethod& method, std::int32_t databaseCode,
            frame::ParameterObject parameters) {
  CapturingSurroundings siblingSurroundings(
      rows, [](const std::wstring&) -> ObjectRef { throw MakeRuntimeError(RuntimeError::kCannotCreateObject); });
  CapturingSurroundings reportSurroundings(
      rows, [&](const std::wstring& progId) { return NewSibling(progId, databaseCode, siblingSurroundings); });
  try {
    method.call(reportSurroundings, ConnectionStringOf(databaseCode), &parameters);
  } catch (const Erro&) {
    if (rows > 0) throw;
    // Some reports fail without rows. The statements that they sent before count. The components do not, because a
    // report may ask for one only to log the error.
    reportSurroundings.captured.components.clear();
  }
  AddNew(every.ofReport, reportSurroundings.captured.statements);
  AddNew(every.ofSiblings, siblingSurroundings.captured.statements);
  for (const std::wstring& sibling : reportSurroundings.captured.components)
    if (std::ranges::find(every.siblings, sibling) == every.siblings.end()) every.siblings.push_back(sibling);
}

}  // namespace

EveryStatement EveryStatementOf(const reports::ReportMethod& method, std::int32_t databaseCode) {
  EveryStatement every;
  for (const frame::ParameterObject& parameters : Variants(method))
    for (const int rows : {1, 0}) AddRun(every, rows, method, databaseCode, parameters);
  return every;
}

}  // namespace kodra::console

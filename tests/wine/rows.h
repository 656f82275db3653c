// The rows of a recordset, and reports that are run as a client runs them.
#pragma once

#include "tests/rows/table.h"
#include "tests/wine/automation.h"
#include "tests/wine/environment.h"

namespace kodra::face {

using rows::Table;
using Texts = std::vector<std::wstring>;

// The value of a field. A type that no field of a report has fails the test.
Value ValueOf(const Var& field);

// The columns of a recordset, and its rows from the current one or from the first one to the last.
Table ReadAll(const Ref<IDispatch>& recordset);
Table ReadFromFirst(const Ref<IDispatch>& recordset);

// An error in the frame of most reports.
inline Failure Framed(const std::wstring& method, const std::wstring& cause) {
  return {kReportError, L"KodraRpt." + method, L"Erro ao gerar dados para o relatório: " + cause};
}

// Creates a report, sets its connection string and calls a method with a parameter object.
inline Outcome RunReport(const std::wstring& name, const std::wstring& method, const Var& obj,
                         const std::wstring& connection) {
  const auto report = Create(L"KodraRpt." + name);
  EXPECT_EQ(S_OK, Put(report, L"StringConexao", connection).hr);
  return Call(report, method, {obj});
}
// The recordset of a report on the sample archive, by default with the initial parameters.
inline Ref<IDispatch> OpenReport(const std::wstring& name, const std::wstring& method, const Ref<IDispatch>& obj) {
  return Got(RunReport(name, method, Var(obj.get()), ArchiveConnection())).object();
}
inline Ref<IDispatch> OpenReport(const std::wstring& name, const std::wstring& method) {
  return OpenReport(name, method, Create(L"KodraRpt." + name + L"Obj"));
}

}  // namespace kodra::face

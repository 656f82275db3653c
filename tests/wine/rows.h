// What a recordset contains, and a report run the way its client does it.
#pragma once

#include "tests/rows/table.h"
#include "tests/wine/automation.h"
#include "tests/wine/environment.h"

namespace kodra::face {

using rows::Table;
using Names = std::vector<std::wstring>;

// What a field holds. A type that no field of a report has is a failure of the test.
Value ValueOf(const Var& field);

// All columns and all rows of a recordset from its current one on, and from its first one on.
Table ReadAll(const Ref<IDispatch>& recordset);
Table ReadFromFirst(const Ref<IDispatch>& recordset);

// A report's recordset as a client gets it: create, connect, fill the parameter object, call.
inline Outcome RunReport(const std::wstring& name, const std::wstring& method, const Var& obj,
                         const std::wstring& connection) {
  const auto report = Create(L"KodraRpt." + name);
  EXPECT_EQ(S_OK, Put(report, L"StringConexao", connection).hr);
  return Call(report, method, {obj});
}
inline Ref<IDispatch> OpenReport(const std::wstring& name, const std::wstring& method, const Ref<IDispatch>& obj) {
  return Got(RunReport(name, method, Var(obj.get()), ArchiveConnection())).object();
}
inline Ref<IDispatch> OpenReport(const std::wstring& name, const std::wstring& method) {
  return OpenReport(name, method, Create(L"KodraRpt." + name + L"Obj"));
}

}  // namespace kodra::face

// One call of a report of CCaixaRpt: a report call that may run on the client's own connection, with a log.
//
// On the client's own connection the rows are at the client, a listing of main and subordinate modules has only the
// main ones, unordered, and an opening label comes once instead of twice.
#pragma once

#include <string>

#include "frame/report_call.h"
#include "reports/modules/module_object.h"

namespace kodra::reports {

class ModuleCall final : public frame::ReportCall {
 public:
  using Object = ModuleObject;

  ModuleCall(ModuleObject& object, std::wstring_view method, AutomationObject* parameters)
      : ReportCall(object, method, parameters), object_(object) {}

  // Whether the client passed a connection.
  bool HasConexao() const { return static_cast<bool>(object_.Conexao()); }

  // Opens the result on the client's connection or, without one, on the connection string.
  frame::ReportRows OpenResult(const std::wstring& statement) const;
  // Opens main modules united with their subordinates on the connection string; on the client's connection only the
  // main ones.
  frame::ReportRows OpenUnion(const std::wstring& main, const std::wstring& subordinates) const;
  // A closed recordset that will be static and at the client.
  frame::ReportRows NewStatic() const;
  // Opens it on the client's connection or, without one, on the connection string, which is used unchanged.
  void OpenStatic(platform::Recordset& recordset, const std::wstring& statement) const;

  // A business component, which knows from which connection to read and to which log to write.
  ObjectRef CreateBusinessObject(const std::wstring& progId) const;
  // The expression for a subordinate's 7-character code, over the alias s.
  std::wstring SubordinateCode() const;

  // Writes a line to the log and announces it.
  void DebugLog(const std::wstring& line) { object_.WriteLog(line); }

  // Lets errors reach the client unchanged, without the frame and without a line in the log.
  void PassErrorsOn() { passesErrorsOn_ = true; }
  // An error is logged, and reaches the client as kReportError with the cause's source (the method's own for an error
  // of the runtime).
  Erro Framed(const Erro& cause) override;

 protected:
  // The client's connection is as good as a connection string, and has one.
  void CheckConnection() override;

 private:
  ModuleObject& object_;
  bool passesErrorsOn_ = false;
};

}  // namespace kodra::reports

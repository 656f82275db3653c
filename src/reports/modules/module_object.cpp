#include "reports/modules/module_object.h"

#include "values/automation.h"
#include "values/convert.h"
#include "values/password.h"

namespace kodra::reports {

void ModuleObject::WriteLog(const std::wstring& line) { Announce(PassThroughLog(line)); }

void ModuleObject::WriteFailure(const std::wstring& line) {
  std::wstring announced = line;
  try {
    announced = PassThroughLog(line);
  } catch (...) {  // NOLINT(bugprone-empty-catch): the client hears of the failure without a log too
  }
  Announce(announced);
}

std::wstring ModuleObject::PassThroughLog(const std::wstring& line) {
  if (!log_) log_ = Around().CreateObject(L"VantLog.FnLog");
  // On every line: the client may have changed the file between two calls.
  log_->Let(L"LogFile", logFile_);
  log_->Let(L"Ativar", !logFile_.empty());
  Value left = line;
  log_->CallByReference(L"DebugLog", left, {});
  std::wstring announced = values::ToText(left);
  return announced == line ? announced : values::HidePassword(announced, StringConexao());
}

void ModuleObject::Announce(const std::wstring& line) {
  if (listener_) listener_(line);
}

}  // namespace kodra::reports

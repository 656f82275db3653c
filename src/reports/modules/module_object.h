// The state that a client's CCaixaRpt object keeps between two calls.
//
// Unlike the other report objects it may hold an open connection instead of a connection string, writes a log and
// announces each line of it. It keeps its properties and its log object, nothing else.
#pragma once

#include <functional>
#include <string>

#include "frame/report_object.h"

namespace kodra::reports {

class ModuleObject : public frame::ReportObject {
 public:
  explicit ModuleObject(std::wstring_view className, platform::Surroundings& surroundings)
      : ReportObject(className, surroundings) {}

  // A connection that the client opened and keeps; it is never opened, closed or changed here. None by default. A
  // report call puts its connection string into StringConexao.
  const platform::ClientConnection& Conexao() const { return conexao_; }
  void SetConexao(platform::ClientConnection connection) { conexao_ = std::move(connection); }

  // The path of the log file; an empty path switches off the file, never the event.
  const std::wstring& LogFile() const { return logFile_; }
  void SetLogFile(std::wstring path) { logFile_ = std::move(path); }

  // Called with each log line, on the caller's thread.
  void OnDebugLog(std::function<void(const std::wstring&)> listener) { listener_ = std::move(listener); }

  // Writes a line to the log and announces it.
  void WriteLog(const std::wstring& line);
  // The same for the line of a failure, which is announced even when the log fails.
  void WriteFailure(const std::wstring& line);

 private:
  // Writes a line to the log and returns the line as the log leaves it.
  std::wstring PassThroughLog(const std::wstring& line);
  void Announce(const std::wstring& line);

  platform::ClientConnection conexao_;
  std::wstring logFile_;
  ObjectRef log_;
  std::function<void(const std::wstring&)> listener_;
};

}  // namespace kodra::reports

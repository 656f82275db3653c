// VantLog.FnLog: appends lines to a log file.
//
// Members: LogFile (text, read and written: the file's path), Ativar (flag, read and written, initially false),
// DebugLog (method: a text).
//
// DebugLog appends "31/05/2024 14:03:22 <text>" in UTF-8 with CR LF, by the local clock; line breaks within the text
// become blanks, so that each call writes one line. The file is opened and closed for each line: a program that ends
// abruptly loses none. Nothing is written while Ativar is false or LogFile is empty. A file that cannot be written
// raises kErrBase + 1, source "VantLog.FnLog::DebugLog".
#pragma once

#include <string>

#include "siblings/sibling.h"

namespace kodra::siblings {

class FnLog final : public Sibling<FnLog> {
 public:
  static std::span<const Member<FnLog>> Members();

 private:
  Value DebugLog(std::span<const Value> arguments);

  std::wstring logFile_;
  bool ativar_ = false;
};

}  // namespace kodra::siblings

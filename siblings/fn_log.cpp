#include "siblings/fn_log.h"

#include <algorithm>
#include <fstream>

#include "siblings/file_path.h"
#include "values/format_date.h"
#include "values/utf8.h"

namespace kodra::siblings {
namespace {

void Append(const std::wstring& path, const std::string& bytes) {
  std::ofstream file(ToPath(path), std::ios::binary | std::ios::app);
  file << bytes;
  file.close();
  if (!file) {
    throw ForeignErro(kErrBase + 1, L"VantLog.FnLog::DebugLog",
                      L"Não foi possível gravar no arquivo de log \"" + path + L"\".");
  }
}

}  // namespace

Value FnLog::DebugLog(std::span<const Value> arguments) {
  std::wstring text = values::ToTextOrEmpty(arguments[0]);
  if (!ativar_ || logFile_.empty()) return {};
  std::replace_if(
      text.begin(), text.end(), [](wchar_t c) { return c == L'\r' || c == L'\n'; }, L' ');
  Append(logFile_, values::ToUtf8(values::FormatDate(values::Now(), L"dd/mm/yyyy hh:nn:ss") + L" " + text + L"\r\n"));
  return {};
}

std::span<const Member<FnLog>> FnLog::Members() {
  static const Member<FnLog> kMembers[] = {
      Property<&FnLog::logFile_>(L"LogFile"),
      Property<&FnLog::ativar_>(L"Ativar"),
      Method<&FnLog::DebugLog, 1>(L"DebugLog"),
  };
  return kMembers;
}

}  // namespace kodra::siblings

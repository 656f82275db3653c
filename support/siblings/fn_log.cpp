#include "siblings/fn_log.h"

#include <algorithm>
#include <fstream>

#include "siblings/file_text.h"
#include "text/format_date.h"

namespace kodra::support {
namespace {

using platform::Value;

void Append(const std::wstring& path, const std::string& bytes) {
  std::ofstream file(ToPath(path), std::ios::binary | std::ios::app);
  file << bytes;
  file.close();
  if (!file) {
    throw platform::ForeignErro(platform::kErrBase + 1, L"VantLog.FnLog::DebugLog",
                                L"Não foi possível gravar no arquivo de log \"" + path + L"\".");
  }
}

}  // namespace

Value FnLog::DebugLog(std::span<const Value> arguments) {
  std::wstring text = text::ToTextOrEmpty(arguments[0]);
  if (!ativar_ || logFile_.empty()) return {};
  std::replace_if(
      text.begin(), text.end(), [](wchar_t c) { return c == L'\r' || c == L'\n'; }, L' ');
  Append(logFile_, EncodeUtf8(text::FormatDate<L"dd/mm/yyyy hh:nn:ss">(text::Now()) + L" " + text + L"\r\n"));
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

}  // namespace kodra::support

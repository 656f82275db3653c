#include "odbc/engine/command_text.h"

#include "odbc/engine/errors.h"
#include "odbc/engine/types.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

constexpr std::int32_t kCommandTypeBits =
    ad::kCmdText | ad::kCmdTable | ad::kCmdStoredProc | ad::kCmdUnknown | ad::kCmdTableDirect;

}  // namespace

std::wstring StatementText(const std::wstring& text, std::int32_t options, std::int32_t commandType,
                           std::size_t parameterCount) {
  if (text.empty()) Raise(ProviderFault::kNoCommandText);
  const std::int32_t named = options == ad::kUnspecified ? 0 : options & kCommandTypeBits;
  const std::int32_t type = named != 0 ? named : commandType;
  if (type == ad::kCmdTable || type == ad::kCmdTableDirect) return L"select * from " + text;
  if (type != ad::kCmdStoredProc) return text;
  std::wstring marks;
  for (std::size_t i = 0; i < parameterCount; ++i) marks += i == 0 ? L"(?" : L",?";
  return L"{call " + text + marks + (parameterCount > 0 ? L")}" : L"}");
}

}  // namespace kodra::odbc

#include "client/formats/xlsx_path.h"

#include "platform/odbc/utf8.h"

namespace kodra::client {

std::string XlsxPath(const std::wstring& path) { return platform::odbc::ToUtf8(path); }

}  // namespace kodra::client

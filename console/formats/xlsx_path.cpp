#include "console/formats/xlsx_path.h"

#include "values/utf8.h"

namespace kodra::console {

std::string XlsxPath(const std::wstring& path) { return values::ToUtf8(path); }

}  // namespace kodra::console

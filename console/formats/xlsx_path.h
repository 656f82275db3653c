// The path of a spreadsheet as the library that writes it takes it.
#pragma once

#include <string>

namespace kodra::console {

// In the encoding in which the system opens files of narrow names. Raises OutputError for a path that it cannot name.
std::string XlsxPath(const std::wstring& path);

}  // namespace kodra::console

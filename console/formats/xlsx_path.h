// The path of a spreadsheet in the form that libxlsxwriter expects.
#pragma once

#include <string>

namespace kodra::console {

// Returns the path in the encoding that fopen uses. Raises FileError for a path that this encoding cannot express.
std::string XlsxPath(const std::wstring& path);

}  // namespace kodra::console

// Paths of the files that siblings read and write.
#pragma once

#include <filesystem>
#include <string>

namespace kodra::siblings {

// A path for the file system, whatever the host's locale is: UTF-8 on Linux, where an unpaired surrogate becomes
// U+FFFD.
std::filesystem::path ToPath(const std::wstring& path);

}  // namespace kodra::siblings

// Paths and bytes of the files that siblings read and write.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kodra::support {

// A path for the file system, whatever the host's locale is.
std::filesystem::path ToPath(const std::wstring& path);

// A text in UTF-8; half a surrogate pair becomes U+FFFD.
std::string EncodeUtf8(std::wstring_view text);

}  // namespace kodra::support

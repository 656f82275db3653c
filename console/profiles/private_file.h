// A file of settings that only its user may change, in a folder of which the same is true.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace kodra::console {

// The file's text, or nothing if there is no such file. Raises FileError if the file or its folder belongs to another
// user, or if others may change it: what it contains would not be the user's word. On Windows, permissions come from
// the user's folder.
std::optional<std::string> ReadPrivateFile(const std::filesystem::path& path);

// Writes the file under another name and renames it. Makes its folders if they are missing. Only the user may read the
// file, and look into the folders that were made. Raises FileError.
void WritePrivateFile(const std::filesystem::path& path, const std::string& text);

}  // namespace kodra::console

// Files that the user names, and the standard input, to be read whole.
#pragma once

#include <cstddef>
#include <string>

namespace kodra::console {

// Returns the file's bytes. Raises FileError, with the file's name and the reason, if it cannot be read or is longer
// than `most` bytes.
std::string ReadInputFile(const std::wstring& path, std::size_t most);
// The same for the standard input.
std::string ReadStandardInput(std::size_t most);

}  // namespace kodra::console

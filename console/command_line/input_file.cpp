#include "console/command_line/input_file.h"

#include <fmt/format.h>
#include <cerrno>
#include <filesystem>
#include <fstream>

#include "console/command_line/system_reason.h"
#include "console/command_line/usage_error.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

namespace fs = std::filesystem;
using values::ToUtf8;

UsageError CannotRead(const std::wstring& path, const std::string& reason) {
  return UsageError(fmt::format("não foi possível ler \"{}\": {}", ToUtf8(path), reason));
}

}  // namespace

std::string ReadInputFile(const std::wstring& path, std::size_t most) {
  const std::string utf8 = ToUtf8(path);
  const fs::path name(std::u8string(utf8.begin(), utf8.end()));
  std::error_code error;
  if (!fs::exists(name, error) && !error) throw CannotRead(path, "o arquivo não existe");
  if (fs::is_directory(name, error)) throw CannotRead(path, "é uma pasta");
  errno = 0;
  std::ifstream file(name, std::ios::binary);
  if (!file) throw CannotRead(path, ToUtf8(SystemReason({errno, std::generic_category()})));
  std::string bytes(most + 1, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (file.bad()) throw CannotRead(path, ToUtf8(SystemReason({errno, std::generic_category()})));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  if (bytes.size() > most) throw CannotRead(path, fmt::format("tem mais de {} bytes", most));
  return bytes;
}

}  // namespace kodra::console

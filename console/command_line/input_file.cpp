#include "console/command_line/input_file.h"

#include <fmt/format.h>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "console/command_line/file_error.h"
#include "console/command_line/path_text.h"
#include "console/command_line/system_reason.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

namespace fs = std::filesystem;
using values::ToUtf8;

// `what` is the file's name in quotes, or "a entrada padrão".
FileError CannotRead(const std::string& what, const std::string& reason) {
  return FileError(values::FromUtf8(fmt::format("não foi possível ler {}: {}", what, reason)));
}

std::string LastReason() {
  if (errno == ENOENT) return "o arquivo não existe";
  return ToUtf8(SystemReason({errno, std::generic_category()}));
}

std::string SizeText(std::size_t bytes) {
  constexpr std::size_t kMegabyte = 1000000;
  return bytes < kMegabyte ? fmt::format("{} bytes", bytes) : fmt::format("{} MB", bytes / kMegabyte);
}

std::string Read(std::istream& input, const std::string& what, std::size_t most) {
  std::string bytes(most + 1, '\0');
  input.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (input.bad()) throw CannotRead(what, LastReason());
  bytes.resize(static_cast<std::size_t>(input.gcount()));
  if (bytes.size() > most) throw CannotRead(what, "passa do máximo, que é de " + SizeText(most));
  return bytes;
}

}  // namespace

std::string ReadInputFile(const std::wstring& path, std::size_t most) {
  const std::string utf8 = ToUtf8(path);
  const fs::path name = PathOf(utf8);
  const std::string what = "\"" + utf8 + "\"";
  std::error_code error;
  if (!fs::exists(name, error) && !error) throw CannotRead(what, "o arquivo não existe");
  if (fs::is_directory(name, error)) throw CannotRead(what, "é uma pasta; informe um arquivo");
  errno = 0;
  std::ifstream file(name, std::ios::binary);
  if (!file) throw CannotRead(what, LastReason());
  return Read(file, what, most);
}

std::string ReadStandardInput(std::size_t most) {
  errno = 0;
  return Read(std::cin, "a entrada padrão", most);
}

}  // namespace kodra::console

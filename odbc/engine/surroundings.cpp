#include "odbc/engine/surroundings.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "odbc/engine/command.h"
#include "odbc/engine/connection.h"
#include "odbc/engine/recordset.h"
#include "values/erro.h"
#include "values/upper.h"
#include "values/utf16.h"

namespace kodra::odbc {
namespace {

// std::filesystem knows how each system names its files: UTF-8 on Linux, wide on Windows. Names that UTF-8 cannot
// write (unpaired surrogates) name no file.
std::filesystem::path PathOf(const std::wstring& text) {
  const std::u16string units = values::ToUtf16(text);
  return std::filesystem::path(units);
}

// The path when it leads to a file or a folder.
std::optional<std::filesystem::path> ExistingPath(const std::wstring& text) {
  if (text.empty()) return std::nullopt;
  try {
    std::filesystem::path path = PathOf(text);
    std::error_code error;
    if (std::filesystem::exists(path, error)) return path;
  } catch (const std::system_error&) {  // NOLINT(bugprone-empty-catch): no file has such a name
  }
  return std::nullopt;
}

}  // namespace

void Surroundings::Register(const std::wstring& progId, Factory factory) {
  factories_[values::UpperCase(progId)] = std::move(factory);
}

std::unique_ptr<platform::Connection> Surroundings::NewConnection() { return std::make_unique<Connection>(); }
std::unique_ptr<platform::Command> Surroundings::NewCommand() { return std::make_unique<Command>(); }
std::unique_ptr<platform::Recordset> Surroundings::NewRecordset() { return std::make_unique<Recordset>(); }

ObjectRef Surroundings::CreateObject(const std::wstring& progId) {
  const auto found = factories_.find(values::UpperCase(progId));
  ObjectRef object = found == factories_.end() ? nullptr : found->second();
  if (!object) throw MakeRuntimeError(RuntimeError::kCannotCreateObject);
  return object;
}

void Surroundings::SetEnvironment(const std::wstring& name, const std::wstring& value) {
#ifdef _WIN32
  _wputenv_s(name.c_str(), value.c_str());
#else
  setenv(PathOf(name).c_str(), PathOf(value).c_str(), 1);
#endif
}

std::optional<std::uint64_t> Surroundings::FileLength(const std::wstring& path) {
  const std::optional<std::filesystem::path> file = ExistingPath(path);
  if (!file) return std::nullopt;
  std::error_code error;
  if (std::filesystem::is_directory(*file, error)) return 0;
  const std::uintmax_t length = std::filesystem::file_size(*file, error);
  return error ? std::optional<std::uint64_t>(0) : length;
}

bool Surroundings::IsFile(const std::wstring& path) {
  const std::optional<std::filesystem::path> file = ExistingPath(path);
  std::error_code error;
  return file && !std::filesystem::is_directory(*file, error);
}

}  // namespace kodra::odbc

#include "console/profiles/private_file.h"

#include "console/command_line/file_error.h"
#include "console/command_line/input_file.h"
#include "console/command_line/path_text.h"
#include "console/command_line/system_reason.h"
#include "console/run/target_file.h"

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace kodra::console {
namespace {

namespace fs = std::filesystem;
using values::FromUtf8;

constexpr std::size_t kLargest = std::size_t{1} << 20;

std::wstring Shown(const fs::path& path) { return L"\"" + FromUtf8(TextOf(path)) + L"\""; }

#ifdef _WIN32

void RequireOwn(const fs::path&, const wchar_t*) {}
void MakeFolder(const fs::path& folder, std::error_code& error) { fs::create_directory(folder, error); }

#else

// Raises FileError if somebody else than the user and root may change what the path names.
void RequireOwn(const fs::path& path, const wchar_t* permissions) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return;
  if (status.st_uid != geteuid() && status.st_uid != 0)
    throw FileError(
        Shown(path) +
        L" pertence a outro usuário, e por isso não é usado: peça a quem administra a máquina que o passe para você.");
  if ((status.st_mode & (S_IWGRP | S_IWOTH)) != 0)
    throw FileError(L"outros usuários podem alterar " + Shown(path) +
                    L", e por isso não é usado: confira o que há nele e rode chmod " + permissions + L" " +
                    Shown(path) + L".");
}

void MakeFolder(const fs::path& folder, std::error_code& error) {
  if (mkdir(folder.c_str(), 0700) != 0) error = {errno, std::generic_category()};
}

#endif

// The same for the file and its folder, and for those that a symbolic link leads to.
void RequireOwnFile(const fs::path& path) {
  std::error_code error;
  const fs::path real = fs::canonical(path, error);
  RequireOwn(path.parent_path(), L"700");
  if (!error) RequireOwn(real.parent_path(), L"700");
  RequireOwn(path, L"600");
}

// Makes a folder and those above it.
void MakeFolders(const fs::path& folder) {
  std::error_code error;
  if (fs::is_directory(folder, error)) return;
  if (folder.has_relative_path() && folder.parent_path() != folder) MakeFolders(folder.parent_path());
  error.clear();
  MakeFolder(folder, error);
  if (error && !fs::is_directory(folder))
    throw FileError(L"não foi possível criar a pasta " + Shown(folder) + L": " + SystemReason(error) + L".");
}

}  // namespace

std::optional<std::string> ReadPrivateFile(const fs::path& path) {
  std::error_code error;
  if (!fs::exists(path, error) && !error) return std::nullopt;
  RequireOwnFile(path);
  return ReadInputFile(FromUtf8(TextOf(path)), kLargest);
}

void WritePrivateFile(const fs::path& path, const std::string& text) {
  MakeFolders(path.parent_path());
  RequireOwnFile(path);
  TargetFile file(FromUtf8(TextOf(path)), TargetFile::Permissions::kPrivate);
  file.Write(text);
  file.Commit();
}

}  // namespace kodra::console

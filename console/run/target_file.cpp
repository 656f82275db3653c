#include "console/run/target_file.h"

#include <cerrno>
#include <system_error>

#include "console/command_line/file_error.h"
#include "console/command_line/path_text.h"
#include "console/command_line/system_reason.h"
#include "console/run/interruption.h"
#include "values/utf8.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace kodra::console {
namespace {

namespace fs = std::filesystem;
using values::FromUtf8;
using values::ToUtf8;

// More unfinished files than this of one process id are no accident.
constexpr int kMostAttempts = 100;

std::error_code LastError() { return {errno, std::generic_category()}; }

std::wstring Shown(const fs::path& path) { return FromUtf8(TextOf(path)); }

FileError CannotWrite(const fs::path& path, std::error_code error) {
  return FileError(L"não foi possível gravar \"" + Shown(path) + L"\": " + SystemReason(error) + L".");
}

// The target of a symbolic link, so that the file is replaced and not the link.
fs::path Real(const fs::path& path) {
  std::error_code error;
  const fs::path real = fs::canonical(path, error);
  return error ? path : real;
}

bool IsWrittenDirectly(const fs::path& target) {
  std::error_code error;
  const fs::file_status status = fs::status(target, error);
  return fs::exists(status) && !fs::is_regular_file(status);
}

// The name of a file until it is complete, a different one for each attempt: a run that was killed leaves its file
// behind, and in a container every run may have the same process id.
fs::path Beside(const fs::path& target, int attempt) {
#ifdef _WIN32
  const int process = _getpid();
#else
  const int process = getpid();
#endif
  std::string ending = "." + std::to_string(process);
  if (attempt > 1) ending += "-" + std::to_string(attempt);
  return target.parent_path() / fs::path(".").concat(target.filename().native()).concat(ending).concat(".parcial");
}

// Raises FileError for a target that Commit could not replace, before any work is done for it.
void RequireReplaceable(const fs::path& target) {
#ifdef _WIN32
  std::error_code error;
  if (!fs::exists(target, error)) return;
  // Read-only, or open in another program.
  std::FILE* const file = _wfopen(target.c_str(), L"r+b");
  if (file == nullptr) throw CannotWrite(target, LastError());
  std::fclose(file);
#else
  struct statx status {};
  const bool known = statx(AT_FDCWD, target.c_str(), 0, STATX_TYPE, &status) == 0;
  if (known && (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0) {
    throw FileError(L"não foi possível gravar \"" + Shown(target) +
                    L"\": o arquivo é um ponto de montagem e não pode ser substituído; monte a pasta dele.");
  }
#endif
}

#ifdef _WIN32
// Makes a new file, with the permissions of its folder. Returns null and the error when it cannot be made: file_exists
// when there is such a file. An interruption can delete it while it is open.
std::FILE* Create(const fs::path& path, bool /*isPrivate*/, std::error_code& error) {
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, kShared, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  error.assign(file == INVALID_HANDLE_VALUE ? static_cast<int>(GetLastError()) : 0, std::system_category());
  if (error) return nullptr;
  return _fdopen(_open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY), "wb");
}
#else
// Makes a new file, for its owner only if it is private and otherwise with the default permissions. Returns null and
// the error when it cannot be made: file_exists when there is such a file.
std::FILE* Create(const fs::path& path, bool isPrivate, std::error_code& error) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, isPrivate ? 0600 : 0666);
  error = file < 0 ? LastError() : std::error_code();
  return file < 0 ? nullptr : fdopen(file, "wb");
}

// Gives a file the owner, group and permissions of the one that it replaces, as far as this user may change them, but
// neither set-uid nor set-gid: a report is not a program.
void TakeOver(int file, const struct stat& former) {
  mode_t permissions = former.st_mode & 0777;
  const bool sameGroup = fchown(file, static_cast<uid_t>(-1), former.st_gid) == 0;
  // The members of another group get the permissions of everybody else.
  if (!sameGroup) permissions = (permissions & ~070U) | (permissions & 07U) << 3;
  if (fchmod(file, permissions) != 0) return;
  // The owner comes last, because only the owner may change the permissions. For everybody but root this fails.
  [[maybe_unused]] const int changed = fchown(file, former.st_uid, static_cast<gid_t>(-1));
}
#endif

// A device or a pipe.
std::FILE* OpenDirectly(const fs::path& path) {
#ifdef _WIN32
  return _wfopen(path.c_str(), L"ab");
#else
  return std::fopen(path.c_str(), "abe");
#endif
}

}  // namespace

TargetFile::TargetFile(const std::wstring& target, Permissions permissions)
    : permissions_(permissions), target_(Real(PathOf(ToUtf8(target)))), path_(target_) {
  std::error_code error;
  if (fs::is_directory(target_, error)) throw CannotWrite(target_, std::make_error_code(std::errc::is_a_directory));
  if (IsWrittenDirectly(target_)) {
    file_.reset(OpenDirectly(target_));
    if (!file_) throw CannotWrite(target_, LastError());
    return;
  }
  RequireReplaceable(target_);
  // Nobody may read more of the unfinished file than of the file that it replaces.
  const bool isPrivate = permissions_ == Permissions::kPrivate || fs::exists(target_, error);
  for (int attempt = 1; !file_; ++attempt) {
    path_ = Beside(target_, attempt);
    file_.reset(Create(path_, isPrivate, error));
    const bool taken = error == std::errc::file_exists;
    if (taken && attempt == kMostAttempts) throw CannotWrite(path_, error);
    if (error && !taken) throw CannotWrite(target_, error);
  }
  Interruption::RemoveAtOnce(path_);
}

TargetFile::~TargetFile() {
  file_.reset();
  std::error_code error;
  if (path_ == target_) return;
  fs::remove(path_, error);
  Interruption::RemoveAtOnce({});
}

std::wstring TargetFile::PathText() const { return Shown(path_); }

void TargetFile::Write(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) throw CannotWrite(target_, LastError());
}

void TargetFile::Commit() {
  if (std::fflush(file_.get()) != 0) throw CannotWrite(target_, LastError());
#ifndef _WIN32
  struct stat former {};
  const bool takesOver = path_ != target_ && permissions_ == Permissions::kAsBefore;
  if (takesOver && stat(target_.c_str(), &former) == 0) TakeOver(fileno(file_.get()), former);
  // The bytes must reach the disk before the new name does. A device need not support fsync.
  if (fsync(fileno(file_.get())) != 0 && path_ != target_) throw CannotWrite(target_, LastError());
#endif
  if (std::fclose(file_.release()) != 0) throw CannotWrite(target_, LastError());
  if (path_ == target_) return;
  std::error_code error;
  fs::rename(path_, target_, error);
  if (error) throw CannotWrite(target_, error);
  path_ = target_;
  Interruption::RemoveAtOnce({});
}

}  // namespace kodra::console

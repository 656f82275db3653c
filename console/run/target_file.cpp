#include "console/run/target_file.h"

#include <cerrno>
#include <system_error>

#include "console/command_line/output_error.h"
#include "console/run/interruption.h"
#include "values/utf8.h"

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace kodra::console {
namespace {

namespace fs = std::filesystem;
using values::FromUtf8;
using values::ToUtf8;

std::wstring Reason(std::error_code error) {
  if (error == std::errc::no_such_file_or_directory) return L"a pasta não existe";
  if (error == std::errc::not_a_directory) return L"o caminho passa por um arquivo que não é pasta";
  if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted) return L"não há permissão";
  if (error == std::errc::read_only_file_system) return L"o disco é só de leitura";
  if (error == std::errc::no_space_on_device) return L"o disco está cheio";
  if (error == std::errc::is_a_directory) return L"é uma pasta";
  if (error == std::errc::filename_too_long) return L"o nome é longo demais";
  return FromUtf8(error.message());
}

std::error_code LastError() { return {errno, std::generic_category()}; }

std::wstring Shown(const fs::path& path) {
  const std::u8string text = path.u8string();
  return FromUtf8({reinterpret_cast<const char*>(text.data()), text.size()});
}

OutputError CannotWrite(const fs::path& path, std::error_code error) {
  return OutputError(L"não foi possível gravar \"" + Shown(path) + L"\": " + Reason(error) + L".");
}

fs::path PathOf(const std::wstring& text) {
  const std::string bytes = ToUtf8(text);
  return {std::u8string(bytes.begin(), bytes.end())};
}

// What a symbolic link leads to, so that the link stays one.
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

fs::path Beside(const fs::path& target) {
#ifdef _WIN32
  const int process = _getpid();
#else
  const int process = getpid();
#endif
  fs::path name = fs::path(".").concat(target.filename().native());
  return target.parent_path() / name.concat(".").concat(std::to_string(process)).concat(".parcial");
}

// A file that this program alone has just made, or one to write directly.
std::FILE* Open(const fs::path& path, bool asNew) {
#ifdef _WIN32
  return _wfopen(path.c_str(), asNew ? L"wb" : L"ab");
#else
  return std::fopen(path.c_str(), asNew ? "wbxe" : "abe");
#endif
}

}  // namespace

TargetFile::TargetFile(const std::wstring& target)
    : target_(Real(PathOf(target))), path_(IsWrittenDirectly(target_) ? target_ : Beside(target_)) {
  std::error_code error;
  if (fs::is_directory(target_, error)) throw CannotWrite(target_, std::make_error_code(std::errc::is_a_directory));
  file_.reset(Open(path_, path_ != target_));
  if (!file_) throw CannotWrite(target_, LastError());
  if (path_ == target_) return;
  Interruption::RemoveAtOnce(path_.string());
  const fs::file_status former = fs::status(target_, error);
  if (fs::exists(former)) fs::permissions(path_, former.permissions(), error);
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
  // A name must never come to the disk before the bytes that it names. A device need not support it.
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

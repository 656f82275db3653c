#include "console/panel/temporary_file.h"

#include <array>

#include "console/command_line/file_error.h"
#include "console/panel/access.h"
#include "values/utf8.h"

#include <fcntl.h>
#ifdef _WIN32
#include <io.h>
#include <sys/stat.h>
#endif

namespace kodra::console::panel {
namespace {

[[noreturn]] void Fail() {
  throw FileError(L"não foi possível gravar na pasta de arquivos temporários: o disco pode estar cheio.");
}

std::FILE* Open(const std::filesystem::path& path, bool isNew) {
#ifdef _WIN32
  if (!isNew) return _wfopen(path.c_str(), L"rb");
  // The folder is private to the user.
  const int file =
      _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
  return file < 0 ? nullptr : _fdopen(file, "wb");
#else
  if (!isNew) return std::fopen(path.c_str(), "rbe");
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  return file < 0 ? nullptr : fdopen(file, "wb");
#endif
}

}  // namespace

TemporaryFile::TemporaryFile() {
  std::error_code error;
  path_ = std::filesystem::temp_directory_path(error) / ("kodrarpt-" + RandomKey());
  file_ = Open(path_, true);
  if (file_ == nullptr) Fail();
}

TemporaryFile::~TemporaryFile() {
  if (file_ != nullptr) std::fclose(file_);
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

void TemporaryFile::Write(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) Fail();
}

std::wstring TemporaryFile::PathText() const {
  const std::u8string text = path_.u8string();
  return values::FromUtf8({reinterpret_cast<const char*>(text.data()), text.size()});
}

void TemporaryFile::CopyTo(Output& to) {
  const bool isWritten = std::fclose(file_) == 0;
  file_ = isWritten ? Open(path_, false) : nullptr;
  if (file_ == nullptr) Fail();
  std::array<char, 65536> piece{};
  while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), file_)) to.Write({piece.data(), count});
  if (std::ferror(file_) != 0) Fail();
}

}  // namespace kodra::console::panel

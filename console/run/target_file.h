// Output files that appear only when they are complete.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "console/formats/output.h"
#include "console/run/write_signals.h"

namespace kodra::console {

// A file being written under a temporary name beside its target. Commit renames it to the target.
//
//   TargetFile file(L"relatório.csv");
//   file.Write("…");
//   file.Commit();
//
// Until Commit the target stays as it was, or absent. Without Commit, and after an interruption (interruption.h), the
// temporary file is removed; a failed write, of whatever stream, does not end the process meanwhile. A target that is
// not a regular file, for example a device or a pipe, is written directly.
//
// A new file that replaces another gets its owner, group and permissions, as far as the user may change them; until
// then only the user may read it. On Windows it gets the permissions of its folder.
class TargetFile final : public Output {
 public:
  enum class Permissions {
    kAsBefore,  // those of the file that it replaces, as above
    kPrivate,   // only the user may read and write it
  };

  // Raises FileError when the temporary file cannot be made, or Commit could not replace the target: because it is a
  // mount point or, on Windows, read-only or open in another program.
  explicit TargetFile(const std::wstring& target, Permissions permissions = Permissions::kAsBefore);
  ~TargetFile() override;
  TargetFile(const TargetFile&) = delete;
  TargetFile& operator=(const TargetFile&) = delete;

  void Write(std::string_view bytes) override;
  // The file to write, for a library that opens it by its path.
  const std::filesystem::path& Path() const { return path_; }
  std::wstring PathText() const;
  // Raises FileError when the file was not written completely or cannot be renamed.
  void Commit();

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  IgnoredWriteSignals ignoredSignals_;
  Permissions permissions_;
  std::filesystem::path target_;
  std::filesystem::path path_;  // equals target_ when the target is written directly
  std::unique_ptr<std::FILE, Close> file_;
};

}  // namespace kodra::console

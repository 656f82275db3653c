// Files that exist complete or not at all.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "console/formats/output.h"

namespace kodra::console {

// A file being written under a temporary name beside its target. Commit renames it to the target.
//
//   TargetFile file(L"relatório.csv");
//   file.Write("…");
//   file.Commit();
//
// A target that is there already passes its owner, group and permissions on to the new file, as far as the user may
// give them (on Windows, a new file has the permissions of its folder); until then only the user may read it.
//
// Until Commit the target is what it was before, or absent. Without Commit, an interruption included (interruption.h),
// nothing stays. A target that is no regular file, as a device or a pipe, is written to directly.
class TargetFile final : public Output {
 public:
  // Raises OutputError when the file cannot be made, or could not get its name in the end because the target is mounted
  // on its own or, on Windows, read-only or open in another program.
  explicit TargetFile(const std::wstring& target);
  ~TargetFile() override;
  TargetFile(const TargetFile&) = delete;
  TargetFile& operator=(const TargetFile&) = delete;

  void Write(std::string_view bytes) override;
  // The path to write at, for those who write the file themselves; its content is discarded.
  const std::filesystem::path& Path() const { return path_; }
  std::wstring PathText() const;
  // Raises OutputError when something of the file was not written or it cannot get its name.
  void Commit();

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  std::filesystem::path target_;
  std::filesystem::path path_;  // equals target_ when that is written directly
  std::unique_ptr<std::FILE, Close> file_;
};

}  // namespace kodra::console

// Where a command writes: the standard output, or a file that is there complete or not at all.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "formats/output.h"

namespace kodra::client {

// An open C stream as an output. Raises OutputError when the system does not take what is written.
class StreamOutput : public Output {
 public:
  // REQUIRES: the stream outlives the object.
  explicit StreamOutput(std::FILE* stream) : stream_(stream) {}
  void Write(std::string_view bytes) override;
  // Hands everything to the system.
  void Flush();

 private:
  std::FILE* stream_;
};

// A file being written under a temporary name beside its target, which Commit gives it.
//
//   TargetFile file(L"relatório.csv");
//   file.Stream().Write("…");
//   file.Commit();
//
// Until Commit the target is what it was before, or absent. Without Commit, an interruption included (interruption.h),
// nothing stays. A target that is no regular file, as a device or a pipe, is written to directly.
class TargetFile {
 public:
  // Raises OutputError when the file cannot be made.
  explicit TargetFile(const std::wstring& target);
  ~TargetFile();
  TargetFile(const TargetFile&) = delete;
  TargetFile& operator=(const TargetFile&) = delete;

  // The file as a stream.
  Output& Stream() { return output_; }
  // The path to write at, for those who write the file themselves; its content is discarded.
  const std::filesystem::path& Path() const { return path_; }
  // Raises OutputError when something of the file was not written or it cannot get its name.
  void Commit();

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  std::filesystem::path target_;
  std::filesystem::path path_;  // equals target_ when that is written directly
  std::unique_ptr<std::FILE, Close> file_;
  StreamOutput output_;
};

}  // namespace kodra::client

// A file in the system's folder for temporary files that only this user may read, and that is removed with the object.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

#include "console/formats/output.h"

namespace kodra::console::panel {

class TemporaryFile final : public Output {
 public:
  // Raises FileError if the file cannot be made.
  TemporaryFile();
  ~TemporaryFile() override;
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void Write(std::string_view bytes) override;
  // The file, for a library that opens it by its path.
  std::wstring PathText() const;
  // Passes the whole file on. Raises FileError when it cannot be read again, and what `to` raises.
  void CopyTo(Output& to);

 private:
  std::filesystem::path path_;
  std::FILE* file_ = nullptr;
};

}  // namespace kodra::console::panel

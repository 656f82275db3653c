// An Output that writes to a C++ stream, for example the standard output.
#pragma once

#include <cerrno>
#include <ostream>

#include "console/command_line/file_error.h"
#include "console/formats/output.h"

namespace kodra::console {

class StreamOutput final : public Output {
 public:
  // REQUIRES: the stream outlives the object.
  explicit StreamOutput(std::ostream& stream) : stream_(stream) {}

  void Write(std::string_view bytes) override {
    errno = 0;
    stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    Check();
  }
  // Passes everything to the system. Raises FileError when it cannot be written.
  void Flush() {
    errno = 0;
    stream_.flush();
    Check();
  }

 private:
  void Check() const {
    if (!stream_) throw StandardOutputError();
  }

  std::ostream& stream_;
};

}  // namespace kodra::console

// A C++ stream, as the standard output, that a format is written to.
#pragma once

#include <ostream>

#include "console/command_line/output_error.h"
#include "console/formats/output.h"

namespace kodra::console {

class StreamOutput final : public Output {
 public:
  // REQUIRES: the stream outlives the object.
  explicit StreamOutput(std::ostream& stream) : stream_(stream) {}

  void Write(std::string_view bytes) override {
    stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    Check();
  }
  // Hands everything to the system. Raises OutputError when it does not take it.
  void Flush() {
    stream_.flush();
    Check();
  }

 private:
  void Check() const {
    if (!stream_) throw OutputError(L"não foi possível gravar a saída");
  }

  std::ostream& stream_;
};

}  // namespace kodra::console

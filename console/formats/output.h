// The destination of a writer's bytes: a file, the standard output, a string in a test.
#pragma once

#include <string>
#include <string_view>

namespace kodra::console {

class Output {
 public:
  virtual ~Output() = default;
  // Writes UTF-8. Raises FileError when that fails.
  virtual void Write(std::string_view bytes) = 0;
};

// Collects the bytes in memory.
class TextOutput final : public Output {
 public:
  void Write(std::string_view bytes) override { text_ += bytes; }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace kodra::console

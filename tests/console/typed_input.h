// What a test types on the standard input.
#pragma once

#include <iostream>
#include <sstream>
#include <string>

namespace kodra::console {

// Replaces the standard input for the lifetime of the object.
class TypedInput {
 public:
  explicit TypedInput(const std::string& bytes) : bytes_(bytes), former_(std::cin.rdbuf(bytes_.rdbuf())) {}
  ~TypedInput() {
    std::cin.rdbuf(former_);
    std::cin.clear();
  }
  TypedInput(const TypedInput&) = delete;
  TypedInput& operator=(const TypedInput&) = delete;

 private:
  std::istringstream bytes_;
  std::streambuf* former_;
};

}  // namespace kodra::console

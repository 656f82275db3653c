#include "values/writer.h"

namespace kodra::values {

void Writer::Erase(std::size_t position, std::size_t length) {
  std::copy(characters_ + position + length, characters_ + size_, characters_ + position);
  size_ -= length;
}

void Writer::MoveEnd(std::size_t start, std::size_t position) {
  std::rotate(characters_ + position, characters_ + start, characters_ + size_);
}

}  // namespace kodra::values

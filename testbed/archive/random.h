// A small pseudo-random generator for one row: fast, and the same on every machine.
//
// A row's numbers depend only on the archive's seed, its table and its row number, so any row can be generated
// independently.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kodra::testbed {

class Random {
 public:
  Random(std::uint64_t table, std::int64_t row) : state_(Mix(Mix(kSeed + table) ^ static_cast<std::uint64_t>(row))) {}

  // A number from 0 to limit - 1. REQUIRES: limit > 0. Draw one number per expression: compilers evaluate the operands
  // of one in different orders.
  std::int64_t Below(std::int64_t limit) {
    state_ += kStep;
    return static_cast<std::int64_t>((Mix(state_) >> 1) % static_cast<std::uint64_t>(limit));
  }
  std::int64_t Between(std::int64_t first, std::int64_t last) { return first + Below(last - first + 1); }

  // An element of an array.
  template <class T, std::size_t kSize>
  const T& Of(const T (&choices)[kSize]) {
    return choices[static_cast<std::size_t>(Below(static_cast<std::int64_t>(kSize)))];
  }

 private:
  static constexpr std::uint64_t kSeed = 20240531;
  static constexpr std::uint64_t kStep = 0x9e3779b97f4a7c15ULL;

  // Spreads every bit of the argument over the whole result.
  static constexpr std::uint64_t Mix(std::uint64_t bits) {
    for (int round = 0; round < 3; ++round) {
      bits ^= bits >> 32;
      bits *= 0xda942042e4dd58b5ULL;
    }
    return bits ^ (bits >> 29);
  }

  std::uint64_t state_;
};

// The element of an array for a row, in rotation.
template <class T, std::size_t kSize>
const T& InTurn(const T (&choices)[kSize], std::int64_t row) {
  return choices[static_cast<std::size_t>(row % static_cast<std::int64_t>(kSize))];
}

}  // namespace kodra::testbed

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace quorvel::vt {

// One escape sequence, control sequence or device control string introducer, as collected
// (ECMA-48, 5.4). Parameters that are missing are 0, which every function takes as its default.
struct Sequence {
  static constexpr std::size_t kMaxParameters = 16;  // VT220: further ones are ignored
  static constexpr int kMaxValue = 65535;            // larger values stay at this one
  // More than two intermediates belong to no function that is known.
  static constexpr std::uint16_t kTooManyIntermediates = 0xFFFF;

  std::array<int, kMaxParameters> parameters{};
  std::size_t count = 0;            // of parameters that are there
  char marker = 0;                  // "<", "=", ">" or "?" in front of the parameters
  std::uint16_t intermediates = 0;  // the first in the low byte, the second above it
  char final = 0;

  // Parameter `index` as a number from 1 up: absent or 0 is 1.
  int CountAt(std::size_t index) const { return std::max(ValueAt(index), 1); }
  int ValueAt(std::size_t index) const { return index < count ? parameters[index] : 0; }
};

}  // namespace quorvel::vt

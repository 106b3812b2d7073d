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
  // More characters than fit in `prefix` belong to no function that is known.
  static constexpr std::uint32_t kLongPrefix = 0xFFFFFFFF;

  std::array<int, kMaxParameters> parameters{};
  std::size_t count = 0;  // of parameters that are there
  // The private marker ("<", "=", ">" or "?") and the intermediates as they came, the first in the
  // low byte. 0 when there are none.
  std::uint32_t prefix = 0;
  char final = 0;

  // Parameter `index` as a number from 1 up: absent or 0 is 1.
  int CountAt(std::size_t index) const { return std::max(ValueAt(index), 1); }
  int ValueAt(std::size_t index) const { return index < count ? parameters[index] : 0; }
};

}  // namespace quorvel::vt

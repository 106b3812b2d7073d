#pragma once

#include <cstddef>
#include <cstdint>

namespace quorvel::sim {

// splitmix64: the same numbers everywhere, unlike the distributions of the library.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }
  // From 0 to below `count`, which is above 0.
  std::size_t Below(std::size_t count) { return static_cast<std::size_t>(Next() % count); }
  // Both ends included.
  int Between(int least, int most) {
    return least + static_cast<int>(Below(static_cast<std::size_t>(most - least) + 1));
  }
  bool Chance(int percent) { return Between(1, 100) <= percent; }

 private:
  std::uint64_t state_;
};

}  // namespace quorvel::sim

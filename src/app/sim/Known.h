#pragma once

#include <cstdint>

#include "app/sim/Story.h"

namespace quorvel::sim {

// A story in which a rule has failed once. It is played in every test, so that it never does again.
struct KnownStory {
  Kind kind;
  std::uint64_t seed;
  const char* acts;
};

inline constexpr KnownStory kKnownStories[] = {
#include "app/sim/Known.inc"
};

}  // namespace quorvel::sim

#pragma once

#include <cstdint>

namespace quorvel::sim {

// The blocks of memory that the program has in use.
std::int64_t BlocksInUse();

}  // namespace quorvel::sim

#pragma once

#include <string>

#include "app/sim/Random.h"

namespace quorvel::sim {

// A frame that the rude host sends though nobody asked for it; `number` tells boxes apart.
std::string UnaskedFrame(Random& dice, int number);

}  // namespace quorvel::sim

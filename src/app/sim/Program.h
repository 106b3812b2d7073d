#pragma once

#include <string>
#include <vector>

#include "app/sim/Player.h"

namespace quorvel::sim {

// The program around the player, whatever the desktop: words in, report and status out. `name` is
// the program's own.
int RunProgram(const std::string& name, const std::vector<std::string>& words,
               const PlayerSetup& setup);

}  // namespace quorvel::sim

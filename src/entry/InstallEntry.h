#pragma once

namespace quorvel {

// Installs what the host can make happen on a data-entry screen (see link/HandOvers.h).
void InstallEntry();

}  // namespace quorvel

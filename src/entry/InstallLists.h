#pragma once

namespace quorvel {

// Makes the lists of the host reachable from below.
void InstallListWindows();

}  // namespace quorvel

#pragma once

namespace quorvel {

// Installs every folder's hand-overs. To be called once, with the desktop there and before Main.
void WireHandOvers();

}  // namespace quorvel

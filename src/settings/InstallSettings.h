#pragma once

namespace quorvel {

// Installs what this folder does for the folders below it.
void InstallSettings();

}  // namespace quorvel

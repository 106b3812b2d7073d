#pragma once

namespace quorvel {

// Installs what this folder does for the ones below it: the report viewer, export, printing, images
// and fax.
void InstallOutput();

}  // namespace quorvel

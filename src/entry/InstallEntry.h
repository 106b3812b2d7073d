#pragma once

namespace quorvel {

// Installs what this folder does for the folders below it: data-entry screens and lists.
void InstallEntry();

}  // namespace quorvel

#pragma once

#include <string>

#include "platform/Application.h"

namespace quorvel {

// The window style that a text asks for by its classic number, 0 to 4 or 6; normal with focus for
// any other text.
ProgramWindow WindowStyleOf(const std::string& text);

// Starts a local program, as the host or a command string asks, and yields. A program that is not
// there is told in a box; other failures are passed over.
void StartProgram(const std::string& command, ProgramWindow window);

}  // namespace quorvel

#pragma once

namespace quorvel {

// Makes terminal widgets readable by assistive tools: role Terminal and the text interface, the
// rows at fixed width joined by LF. To be called once, with the application there.
void InstallTerminalAccessibility();

}  // namespace quorvel

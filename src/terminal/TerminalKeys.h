#pragma once

#include "platform/controls/Keys.h"

namespace quorvel {

class Terminal;

// A key goes down in the terminal: function keys with a command string send it, and keys of the
// keypad send what is printed on them as the setting KeyPad tells. The code becomes 0 for a key
// that is used up; every other key is the terminal's own.
void TakeTerminalKey(Terminal& terminal, KeyEvent& key);

}  // namespace quorvel

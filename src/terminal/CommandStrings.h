#pragma once

#include <string>

namespace quorvel {

class MenuItem;
class Window;

// A command string as the user has bound it to a button or a function key. It is typed at the host
// with its notation expanded (ExpandCommandString), or, led by "^[DOS]", starts a local program:
// the command, a comma, and the number of the program's window style.

// What marks the rest of a command string as a local program.
inline constexpr char kDosMark[] = "^[DOS]";

// Sends or starts it. `text` is left expanded. Afterwards the keyboard is with the terminal, unless
// a data-entry screen is up or the string calls the host's own "SY.DOS". RuntimeError for a code
// above 255 in the notation.
void SendCommandString(std::string& text);

// Why a command string could not be kept in a line of the configuration file or not be sent; empty
// when nothing speaks against it. Reads on from what the string is the value of: "... has 300
// characters".
std::string CommandStringFault(const std::string& text);

// Binds the entries of a window's Insert menu: each puts its notation into the box that has the
// keyboard, at the caret, as if typed.
void BindInsertMenu(const Window& window, MenuItem& enter, MenuItem& escape, MenuItem& program);

}  // namespace quorvel

#pragma once

#include <string>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/controls/TerminalControl.h"
#include "platform/controls/Window.h"

namespace quorvel::sim {

// What an operator sees.

// The loaded windows that show, by name: their order must not depend on the process.
std::vector<Window*> VisibleWindows();
// The controls of a kind that can be reached, in the order of their creation.
std::vector<Control*> ReachableOf(Window& window, ControlKind kind);
std::vector<Control*> ReachableOf(Window& window);
// The rows of a list that an operator picks. Not those that ask for a report of so many lines that
// one story would take as long as all others, nor folders of the machine.
std::vector<int> RowsOf(Control& list);
// All entries of a window's menus that can be clicked.
std::vector<MenuItem*> EntriesOf(Window& window);
// The last line of the screen that is not empty, without blanks at its end.
std::string LastLineOf(const Terminal& terminal);

}  // namespace quorvel::sim

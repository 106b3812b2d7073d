#pragma once

#include <QKeyEvent>
#include <optional>

#include "platform/controls/Control.h"
#include "platform/vt/Keys.h"

namespace quorvel {

// The toolkit's key as the forms know it; code 0 for one that they do not.
KeyEvent ToKeyEvent(const QKeyEvent& event);

// A key press that reached the widget of `control`: the windows decide what it means. True when
// the widget is not to see it.
bool TakeKey(Control& control, QKeyEvent& event);

// The terminal key behind a key press, if it is one that sends more than its character.
struct TerminalKey {
  vt::Key key;
  vt::Modifiers modifiers;
};
std::optional<TerminalKey> ToTerminalKey(const QKeyEvent& event);

}  // namespace quorvel

#pragma once

#include <QKeyEvent>
#include <optional>
#include <string>

#include "platform/controls/Keys.h"
#include "platform/vt/Keys.h"

namespace quorvel {

// The toolkit's key as the forms know it; code 255 for one that they do not. For a terminal the
// keys of the keypad keep their own numbers, whatever Num Lock says; elsewhere they are what they
// type.
KeyEvent ToKeyEvent(const QKeyEvent& event, bool forTerminal);

// Whether it is a key that only changes what other keys do.
bool IsModifierKey(const QKeyEvent& event);

// The character that a key press types, one byte of Windows-1252; 0 for none. Enter, Backspace and
// Escape type their control characters; chords with Control or Alt type nothing.
int CharacterOf(const QKeyEvent& event);

// The terminal key behind a key press, if it is one that sends more than its character.
struct TerminalKey {
  vt::Key key;
  vt::Modifiers modifiers;
  bool operator==(const TerminalKey&) const = default;
};
std::optional<TerminalKey> ToTerminalKey(const QKeyEvent& event);

// What any other key types at a terminal: its text, or the control character of a chord with
// Control as on a VT220 keyboard.
std::string ToTerminalText(const QKeyEvent& event);

}  // namespace quorvel

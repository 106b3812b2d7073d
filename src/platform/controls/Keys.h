#pragma once

namespace quorvel {

// A key that is no character, or that forms look at before it becomes one.
enum class KeyCode : int {
  None = 0,
  Backspace = 8,
  Tab = 9,
  Return = 13,
  Escape = 27,
  Space = 32,
  PageUp = 33,
  PageDown = 34,
  End = 35,
  Home = 36,
  Left = 37,
  Up = 38,
  Right = 39,
  Down = 40,
  Insert = 45,
  Delete = 46,
  Menu = 93,
  Numpad0 = 96,
  Numpad9 = 105,
  Multiply = 106,
  Add = 107,
  NumpadEnter = 108,
  Subtract = 109,
  Decimal = 110,
  Divide = 111,
  F1 = 112,
  F3 = 114,
  F10 = 121,
  F12 = 123,
  F13 = 124,
  F20 = 131,
  F24 = 135,
  NumLock = 144,
};

// Shift states, added up, by their classic numbers.
enum Shift : int { kNoShift = 0, kShift = 1, kControl = 2, kAlt = 4 };

// One key going down. `code` is a KeyCode number; letters and digits have the code of their
// upper-case character. A handler that wants to keep the key for itself sets `code` to 0.
struct KeyEvent {
  int code = 0;
  int shift = kNoShift;
};

}  // namespace quorvel

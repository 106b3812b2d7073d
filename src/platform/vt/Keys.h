#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorvel::vt {

// The keys of a VT220 keyboard that send more than their character. Where a PC keyboard has the
// key, the name is that of the VT220: Home is Find, End is Select, the page keys Previous and Next.
// clang-format off
enum class Key : std::uint8_t {
  Up, Down, Right, Left,
  PF1, PF2, PF3, PF4,
  Keypad0, Keypad1, Keypad2, Keypad3, Keypad4, Keypad5, Keypad6, Keypad7, Keypad8, Keypad9,
  KeypadMinus, KeypadComma, KeypadPeriod, KeypadEnter,
  Find, Insert, Remove, Select, Previous, Next,
  F6, F7, F8, F9, F10, F11, F12, F13, F14, F15, F16, F17, F18, F19, F20,
  Enter, Backspace, Delete, Tab, Escape,
  Count,
};
// clang-format on

struct Modifiers {
  bool shift = false;
  bool control = false;
  bool alt = false;
  bool operator==(const Modifiers&) const = default;
};

// What the terminal works as at the moment: DECSCL and DECANM choose among those its type allows.
enum class Level : std::uint8_t { Plain, Vt52, Vt100, Vt220 };

// The modes that decide what a key sends.
struct KeyModes {
  Level level = Level::Vt220;
  bool applicationKeypad = false;      // DECKPAM
  bool applicationCursorKeys = false;  // DECCKM
  bool newLine = false;                // LNM
  bool eightBitControls = false;       // S8C1T
};

// The bytes that a key sends; empty when it sends nothing in these modes.
std::string Encode(Key key, Modifiers modifiers, const KeyModes& modes);

struct KeyStroke {
  Key key = Key::F6;
  Modifiers modifiers;
  bool operator==(const KeyStroke&) const = default;
};

// The VT220 key behind function key `number` (1 to 12) of a PC keyboard: F1 to F4 stand for PF1 to
// PF4 and F6 to F12 for themselves; with Shift, F1 to F10 stand for F11 to F20. Control stands for
// the VT220's Shift, which gives the text that DECUDK has put on a key. F5 and anything else: none.
std::optional<KeyStroke> FromPcFunctionKey(int number, Modifiers modifiers);

}  // namespace quorvel::vt

#include "platform/vt/Keys.h"

#include <algorithm>
#include <array>

namespace quorvel::vt {
namespace {

enum class Family : std::uint8_t { Cursor, Pf, Keypad, Editing, Function, Plain };

// VT220 programmer reference, chapter 3.
struct KeyRow {
  Key key;
  Family family;
  char code;         // final character of the cursor, PF and application keypad sequences
  char numeric = 0;  // character of the numeric keypad; what F11 to F13 send on a VT100
  int number = 0;    // parameter of CSI n ~
};

// clang-format off
constexpr KeyRow kRows[] = {
  {Key::Up,     Family::Cursor, 'A'}, {Key::Down, Family::Cursor, 'B'},
  {Key::Right,  Family::Cursor, 'C'}, {Key::Left, Family::Cursor, 'D'},
  {Key::PF1,    Family::Pf, 'P'},     {Key::PF2,  Family::Pf, 'Q'},
  {Key::PF3,    Family::Pf, 'R'},     {Key::PF4,  Family::Pf, 'S'},
  {Key::Keypad0,      Family::Keypad, 'p', '0'}, {Key::Keypad1,      Family::Keypad, 'q', '1'},
  {Key::Keypad2,      Family::Keypad, 'r', '2'}, {Key::Keypad3,      Family::Keypad, 's', '3'},
  {Key::Keypad4,      Family::Keypad, 't', '4'}, {Key::Keypad5,      Family::Keypad, 'u', '5'},
  {Key::Keypad6,      Family::Keypad, 'v', '6'}, {Key::Keypad7,      Family::Keypad, 'w', '7'},
  {Key::Keypad8,      Family::Keypad, 'x', '8'}, {Key::Keypad9,      Family::Keypad, 'y', '9'},
  {Key::KeypadMinus,  Family::Keypad, 'm', '-'}, {Key::KeypadComma,  Family::Keypad, 'l', ','},
  {Key::KeypadPeriod, Family::Keypad, 'n', '.'}, {Key::KeypadEnter,  Family::Keypad, 'M', '\r'},
  {Key::Find,     Family::Editing, 0, 0, 1}, {Key::Insert,   Family::Editing, 0, 0, 2},
  {Key::Remove,   Family::Editing, 0, 0, 3}, {Key::Select,   Family::Editing, 0, 0, 4},
  {Key::Previous, Family::Editing, 0, 0, 5}, {Key::Next,     Family::Editing, 0, 0, 6},
  {Key::F6,  Family::Function, 0, 0, 17},      {Key::F7,  Family::Function, 0, 0, 18},
  {Key::F8,  Family::Function, 0, 0, 19},      {Key::F9,  Family::Function, 0, 0, 20},
  {Key::F10, Family::Function, 0, 0, 21},      {Key::F11, Family::Function, 0, '\x1B', 23},
  {Key::F12, Family::Function, 0, '\b', 24},   {Key::F13, Family::Function, 0, '\n', 25},
  {Key::F14, Family::Function, 0, 0, 26},      {Key::F15, Family::Function, 0, 0, 28},
  {Key::F16, Family::Function, 0, 0, 29},      {Key::F17, Family::Function, 0, 0, 31},
  {Key::F18, Family::Function, 0, 0, 32},      {Key::F19, Family::Function, 0, 0, 33},
  {Key::F20, Family::Function, 0, 0, 34},
  {Key::Enter,     Family::Plain, '\r'},   {Key::Backspace, Family::Plain, '\x7F'},
  {Key::Delete,    Family::Plain, '\x7F'}, {Key::Tab,       Family::Plain, '\t'},
  {Key::Escape,    Family::Plain, '\x1B'},
};
// clang-format on
static_assert(std::size(kRows) == static_cast<std::size_t>(Key::Count));
static_assert([] {
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    if (kRows[i].key != static_cast<Key>(i)) return false;
  }
  return true;
}());

std::string Csi(const KeyModes& modes, std::string_view rest) {
  return (modes.eightBitControls ? "\x9B" : "\x1B[") + std::string(rest);
}

std::string Ss3(const KeyModes& modes, char final) {
  return (modes.eightBitControls ? "\x8F" : "\x1BO") + std::string(1, final);
}

std::string EncodeCursor(const KeyRow& row, const KeyModes& modes) {
  if (modes.level == Level::Vt52) return std::string("\x1B") + row.code;
  if (modes.applicationCursorKeys) return Ss3(modes, row.code);
  return Csi(modes, std::string_view(&row.code, 1));
}

std::string EncodeKeypad(const KeyRow& row, const KeyModes& modes) {
  if (!modes.applicationKeypad || modes.level == Level::Plain) {
    return row.key == Key::KeypadEnter && modes.newLine ? "\r\n" : std::string(1, row.numeric);
  }
  if (modes.level == Level::Vt52) return std::string("\x1B?") + row.code;
  return Ss3(modes, row.code);
}

// The key above Return sends DEL on a VT220. A VT100 has a BACKSPACE and a DELETE key; Control
// gives the other one everywhere.
std::string EncodePlain(const KeyRow& row, Modifiers modifiers, const KeyModes& modes) {
  if (row.key == Key::Enter && modes.newLine) return "\r\n";
  if (row.key == Key::Backspace) {
    const bool deletes = (modes.level == Level::Vt220) != modifiers.control;
    return deletes ? "\x7F" : "\b";
  }
  return std::string(1, row.code);
}

}  // namespace

std::string Encode(Key key, Modifiers modifiers, const KeyModes& modes) {
  if (key >= Key::Count) return {};
  const KeyRow& row = kRows[static_cast<std::size_t>(key)];
  const bool plain = modes.level == Level::Plain;
  switch (row.family) {
    case Family::Cursor:
      return plain ? std::string() : EncodeCursor(row, modes);
    case Family::Pf:
      if (plain) return {};
      return modes.level == Level::Vt52 ? std::string("\x1B") + row.code : Ss3(modes, row.code);
    case Family::Keypad:
      return EncodeKeypad(row, modes);
    case Family::Editing:
    case Family::Function:
      if (modes.level == Level::Vt220) return Csi(modes, std::to_string(row.number) + "~");
      return plain || row.numeric == 0 ? std::string() : std::string(1, row.numeric);
    case Family::Plain:
      // On a PC keyboard Delete is in the place of Remove.
      if (row.key == Key::Delete && modes.level == Level::Vt220) return Csi(modes, "3~");
      return EncodePlain(row, modifiers, modes);
  }
  return {};
}

std::optional<KeyStroke> FromPcFunctionKey(int number, Modifiers modifiers) {
  const Modifiers out{modifiers.control, false, false};
  const auto plus = [](Key key, int n) { return static_cast<Key>(static_cast<int>(key) + n); };
  if (modifiers.alt) return std::nullopt;
  if (modifiers.shift) {
    if (number < 1 || number > 10) return std::nullopt;
    return KeyStroke{plus(Key::F11, number - 1), out};
  }
  if (number >= 1 && number <= 4 && !modifiers.control) {
    return KeyStroke{plus(Key::PF1, number - 1), out};
  }
  if (number >= 6 && number <= 12) return KeyStroke{plus(Key::F6, number - 6), out};
  return std::nullopt;
}

}  // namespace quorvel::vt

#include "platform/qt/Keyboard.h"

#include <algorithm>
#include <iterator>

#include "platform/qt/Text.h"

namespace quorvel {
namespace {

struct KeyRow {
  int qt;
  KeyCode code;
};

constexpr KeyRow kKeys[] = {
    {Qt::Key_Backspace, KeyCode::Backspace},
    {Qt::Key_Tab, KeyCode::Tab},
    {Qt::Key_Backtab, KeyCode::Tab},
    {Qt::Key_Return, KeyCode::Return},
    {Qt::Key_Enter, KeyCode::Return},
    {Qt::Key_Escape, KeyCode::Escape},
    {Qt::Key_PageUp, KeyCode::PageUp},
    {Qt::Key_PageDown, KeyCode::PageDown},
    {Qt::Key_End, KeyCode::End},
    {Qt::Key_Home, KeyCode::Home},
    {Qt::Key_Left, KeyCode::Left},
    {Qt::Key_Up, KeyCode::Up},
    {Qt::Key_Right, KeyCode::Right},
    {Qt::Key_Down, KeyCode::Down},
    {Qt::Key_Insert, KeyCode::Insert},
    {Qt::Key_Delete, KeyCode::Delete},
    {Qt::Key_NumLock, KeyCode::NumLock},
    {Qt::Key_Menu, KeyCode::Menu},
};

// What every other key has: none of the classic numbers, and not 0, which is a key used up.
constexpr int kOtherKey = 255;

// A key of the keypad: what it is with Num Lock, what without, and what a terminal has there.
struct PadRow {
  int qt;
  int unlocked;
  int code;
  std::optional<vt::Key> terminal;
};

constexpr int PadCode(int digit) {
  return static_cast<int>(KeyCode::Numpad0) + digit;
}

// "*", "/" and "+" are no keys of a VT220's keypad and type themselves.
constexpr PadRow kPad[] = {
    {Qt::Key_0, Qt::Key_Insert, PadCode(0), vt::Key::Keypad0},
    {Qt::Key_1, Qt::Key_End, PadCode(1), vt::Key::Keypad1},
    {Qt::Key_2, Qt::Key_Down, PadCode(2), vt::Key::Keypad2},
    {Qt::Key_3, Qt::Key_PageDown, PadCode(3), vt::Key::Keypad3},
    {Qt::Key_4, Qt::Key_Left, PadCode(4), vt::Key::Keypad4},
    {Qt::Key_5, Qt::Key_Clear, PadCode(5), vt::Key::Keypad5},
    {Qt::Key_6, Qt::Key_Right, PadCode(6), vt::Key::Keypad6},
    {Qt::Key_7, Qt::Key_Home, PadCode(7), vt::Key::Keypad7},
    {Qt::Key_8, Qt::Key_Up, PadCode(8), vt::Key::Keypad8},
    {Qt::Key_9, Qt::Key_PageUp, PadCode(9), vt::Key::Keypad9},
    {Qt::Key_Period, Qt::Key_Delete, static_cast<int>(KeyCode::Decimal), vt::Key::KeypadPeriod},
    {Qt::Key_Comma, Qt::Key_Comma, static_cast<int>(KeyCode::Decimal), vt::Key::KeypadComma},
    {Qt::Key_Minus, Qt::Key_Minus, static_cast<int>(KeyCode::Subtract), vt::Key::KeypadMinus},
    {Qt::Key_Enter, Qt::Key_Enter, static_cast<int>(KeyCode::NumpadEnter), vt::Key::KeypadEnter},
    {Qt::Key_Asterisk, Qt::Key_Asterisk, static_cast<int>(KeyCode::Multiply), std::nullopt},
    {Qt::Key_Plus, Qt::Key_Plus, static_cast<int>(KeyCode::Add), std::nullopt},
    {Qt::Key_Slash, Qt::Key_Slash, static_cast<int>(KeyCode::Divide), std::nullopt},
};

const PadRow* PadRowOf(const QKeyEvent& event) {
  if (!(event.modifiers() & Qt::KeypadModifier)) return nullptr;
  const auto found = std::find_if(std::begin(kPad), std::end(kPad), [&](const PadRow& row) {
    return row.qt == event.key() || row.unlocked == event.key();
  });
  return found == std::end(kPad) ? nullptr : found;
}

struct TerminalRow {
  int qt;
  vt::Key key;
};

constexpr TerminalRow kTerminalKeys[] = {
    {Qt::Key_Up, vt::Key::Up},
    {Qt::Key_Down, vt::Key::Down},
    {Qt::Key_Left, vt::Key::Left},
    {Qt::Key_Right, vt::Key::Right},
    {Qt::Key_Home, vt::Key::Find},
    {Qt::Key_End, vt::Key::Select},
    {Qt::Key_Insert, vt::Key::Insert},
    {Qt::Key_Delete, vt::Key::Remove},
    {Qt::Key_PageUp, vt::Key::Previous},
    {Qt::Key_PageDown, vt::Key::Next},
    {Qt::Key_Backspace, vt::Key::Backspace},
    {Qt::Key_Tab, vt::Key::Tab},
    {Qt::Key_Backtab, vt::Key::Tab},
    {Qt::Key_Escape, vt::Key::Escape},
    {Qt::Key_Return, vt::Key::Enter},
    {Qt::Key_Enter, vt::Key::Enter},
};

// Chords with Control that are no letters (VT220 Programmer Reference, table 3-5: keys used to
// generate 7-bit control characters).
struct ControlRow {
  int qt;
  char code;
};
constexpr ControlRow kControls[] = {
    {Qt::Key_Space, 0},
    {Qt::Key_At, 0},
    {Qt::Key_2, 0},
    {Qt::Key_BracketLeft, 27},
    {Qt::Key_3, 27},
    {Qt::Key_Backslash, 28},
    {Qt::Key_4, 28},
    {Qt::Key_BracketRight, 29},
    {Qt::Key_5, 29},
    {Qt::Key_AsciiTilde, 30},
    {Qt::Key_AsciiCircum, 30},
    {Qt::Key_6, 30},
    {Qt::Key_Question, 31},
    {Qt::Key_Underscore, 31},
    {Qt::Key_Slash, 31},
    {Qt::Key_7, 31},
    {Qt::Key_8, 127},
};

bool IsAltGraph(const QKeyEvent& event) {
  // Where there is no such modifier of its own it comes as both.
  constexpr auto kBoth = Qt::ControlModifier | Qt::AltModifier;
  return (event.modifiers() & kBoth) == kBoth && !event.text().isEmpty() &&
         event.text().at(0).isPrint();
}

}  // namespace

KeyEvent ToKeyEvent(const QKeyEvent& event, bool forTerminal) {
  KeyEvent key;
  if (event.modifiers() & Qt::ShiftModifier) key.shift |= kShift;
  if (event.modifiers() & Qt::ControlModifier) key.shift |= kControl;
  if (event.modifiers() & Qt::AltModifier) key.shift |= kAlt;
  const int qt = event.key();
  if (qt == Qt::Key_Backtab) key.shift |= kShift;
  const PadRow* pad = PadRowOf(event);
  if (pad && (forTerminal || (qt == pad->qt && qt != Qt::Key_Enter))) {
    key.code = pad->code;
    return key;
  }
  if (qt >= Qt::Key_F1 && qt <= Qt::Key_F24) {
    key.code = static_cast<int>(KeyCode::F1) + (qt - Qt::Key_F1);
    return key;
  }
  for (const KeyRow& row : kKeys) {
    if (row.qt == qt) key.code = static_cast<int>(row.code);
  }
  // Letters, digits and blank have the codes of their characters; those of other signs would be
  // taken for the keys above ("." is 46, and so is Delete).
  const bool letter = (qt >= Qt::Key_A && qt <= Qt::Key_Z) || (qt >= Qt::Key_0 && qt <= Qt::Key_9);
  if (letter || qt == Qt::Key_Space) key.code = qt;
  if (key.code == 0) key.code = kOtherKey;
  return key;
}

bool IsModifierKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_Meta:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
      return true;
    default:
      return false;
  }
}

int CharacterOf(const QKeyEvent& event) {
  const std::string bytes = ToTypedBytes(event.text());
  const bool chord = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
  if (bytes.size() != 1 || (chord && !IsAltGraph(event))) return 0;
  const auto code = static_cast<unsigned char>(bytes[0]);
  const bool control = code < 32 && code != '\r' && code != '\b' && code != 27;
  return control ? 0 : code;
}

std::optional<TerminalKey> ToTerminalKey(const QKeyEvent& event) {
  const vt::Modifiers modifiers{(event.modifiers() & Qt::ShiftModifier) != 0,
                                (event.modifiers() & Qt::ControlModifier) != 0,
                                (event.modifiers() & Qt::AltModifier) != 0};
  const int qt = event.key();
  if (qt >= Qt::Key_F1 && qt <= Qt::Key_F12) {
    const auto stroke = vt::FromPcFunctionKey(qt - Qt::Key_F1 + 1, modifiers);
    if (!stroke) return std::nullopt;
    return TerminalKey{stroke->key, stroke->modifiers};
  }
  if (const PadRow* pad = PadRowOf(event)) {
    if (!pad->terminal) return std::nullopt;
    return TerminalKey{*pad->terminal, modifiers};
  }
  for (const TerminalRow& row : kTerminalKeys) {
    if (row.qt == qt) return TerminalKey{row.key, modifiers};
  }
  return std::nullopt;
}

std::string ToTerminalText(const QKeyEvent& event) {
  const bool control = (event.modifiers() & Qt::ControlModifier) != 0;
  if (IsAltGraph(event)) return ToTypedBytes(event.text());
  if (event.modifiers() & Qt::AltModifier) return {};  // a VT220 has no such key
  if (!control) return ToTypedBytes(event.text());
  const int qt = event.key();
  if (qt >= Qt::Key_A && qt <= Qt::Key_Z) return std::string(1, static_cast<char>(qt - 64));
  for (const ControlRow& row : kControls) {
    if (row.qt == qt) return std::string(1, row.code);
  }
  return {};
}

}  // namespace quorvel

#include "platform/qt/Keyboard.h"

#include <QCoreApplication>
#include <QWidget>

#include "platform/controls/Desktop.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeers.h"

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
};

bool IsModifier(int key) {
  return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
         key == Qt::Key_Meta || key == Qt::Key_AltGr || key == Qt::Key_CapsLock;
}

struct TerminalRow {
  int qt;
  bool keypad;
  vt::Key key;
};

constexpr TerminalRow kTerminalKeys[] = {
    {Qt::Key_Up, false, vt::Key::Up},
    {Qt::Key_Down, false, vt::Key::Down},
    {Qt::Key_Left, false, vt::Key::Left},
    {Qt::Key_Right, false, vt::Key::Right},
    {Qt::Key_Home, false, vt::Key::Find},
    {Qt::Key_End, false, vt::Key::Select},
    {Qt::Key_Insert, false, vt::Key::Insert},
    {Qt::Key_Delete, false, vt::Key::Remove},
    {Qt::Key_PageUp, false, vt::Key::Previous},
    {Qt::Key_PageDown, false, vt::Key::Next},
    {Qt::Key_Backspace, false, vt::Key::Backspace},
    {Qt::Key_Tab, false, vt::Key::Tab},
    {Qt::Key_Backtab, false, vt::Key::Tab},
    {Qt::Key_Escape, false, vt::Key::Escape},
    {Qt::Key_Return, false, vt::Key::Enter},
    {Qt::Key_Enter, true, vt::Key::KeypadEnter},
    {Qt::Key_0, true, vt::Key::Keypad0},
    {Qt::Key_1, true, vt::Key::Keypad1},
    {Qt::Key_2, true, vt::Key::Keypad2},
    {Qt::Key_3, true, vt::Key::Keypad3},
    {Qt::Key_4, true, vt::Key::Keypad4},
    {Qt::Key_5, true, vt::Key::Keypad5},
    {Qt::Key_6, true, vt::Key::Keypad6},
    {Qt::Key_7, true, vt::Key::Keypad7},
    {Qt::Key_8, true, vt::Key::Keypad8},
    {Qt::Key_9, true, vt::Key::Keypad9},
    {Qt::Key_Period, true, vt::Key::KeypadPeriod},
    {Qt::Key_Comma, true, vt::Key::KeypadComma},
    {Qt::Key_Minus, true, vt::Key::KeypadMinus},
};

// The character that the key types, one byte; -1 for none.
int CharacterOf(const QKeyEvent& event) {
  const std::string bytes = ToBytes(event.text());
  const bool chord = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  const bool altGr = (event.modifiers() & Qt::ControlModifier) &&
                     (event.modifiers() & Qt::AltModifier) && !bytes.empty();
  if (bytes.size() != 1 || (chord && !altGr)) return -1;
  const auto code = static_cast<unsigned char>(bytes[0]);
  return code >= 32 || code == '\r' || code == '\b' || code == 27 ? code : -1;
}

// Characters of the present key are typed in place of it: guards the filter against itself.
bool replacing = false;

}  // namespace

KeyEvent ToKeyEvent(const QKeyEvent& event) {
  KeyEvent key;
  if (event.modifiers() & Qt::ShiftModifier) key.shift |= kShift;
  if (event.modifiers() & Qt::ControlModifier) key.shift |= kControl;
  if (event.modifiers() & Qt::AltModifier) key.shift |= kAlt;
  if (event.key() == Qt::Key_Backtab) key.shift |= kShift;
  const int qt = event.key();
  if (qt >= Qt::Key_F1 && qt <= Qt::Key_F24) {
    key.code = static_cast<int>(KeyCode::F1) + (qt - Qt::Key_F1);
    return key;
  }
  for (const KeyRow& row : kKeys) {
    if (row.qt == qt) key.code = static_cast<int>(row.code);
  }
  if (key.code == 0 && qt >= 0x20 && qt <= 0xFF) key.code = qt;
  return key;
}

std::optional<TerminalKey> ToTerminalKey(const QKeyEvent& event) {
  const vt::Modifiers modifiers{(event.modifiers() & Qt::ShiftModifier) != 0,
                                (event.modifiers() & Qt::ControlModifier) != 0,
                                (event.modifiers() & Qt::AltModifier) != 0};
  const int qt = event.key();
  if (qt >= Qt::Key_F1 && qt <= Qt::Key_F12) {
    const auto stroke = vt::FromPcFunctionKey(qt - Qt::Key_F1 + 1, modifiers);
    if (stroke) return TerminalKey{stroke->key, stroke->modifiers};
    return std::nullopt;
  }
  const bool keypad = (event.modifiers() & Qt::KeypadModifier) != 0;
  for (const TerminalRow& row : kTerminalKeys) {
    if (row.qt == qt && (!row.keypad || keypad)) return TerminalKey{row.key, modifiers};
  }
  return std::nullopt;
}

bool TakeKey(Control& control, QKeyEvent& event) {
  if (replacing || IsModifier(event.key())) return false;
  Control* target = desktop().focus().KeyTarget();
  if (!target) return true;  // nobody has the keyboard: keys go nowhere
  if (target != &control) {
    // The toolkit has moved its focus by itself; the keyboard is where the windows say.
    QWidget* widget = WidgetOf(*target);
    if (!widget || widget == WidgetOf(control)) return true;
    target->peer()->ShowFocus();
    QCoreApplication::sendEvent(widget, &event);
    return true;
  }
  const auto keep = control.window().weak_from_this().lock();
  Window& window = control.window();
  if (window.UserKeyDown(ToKeyEvent(event))) return true;
  const int code = CharacterOf(event);
  if (code < 0) return false;
  const int typed = window.UserKeyPress(code);
  if (typed == 0 || desktop().focus().KeyTarget() != &control) return true;
  if (typed == code) return false;
  QKeyEvent other(QEvent::KeyPress, 0, Qt::NoModifier,
                  ToUnicode(std::string(1, static_cast<char>(typed))));
  replacing = true;
  QCoreApplication::sendEvent(WidgetOf(control), &other);
  replacing = false;
  return true;
}

}  // namespace quorvel

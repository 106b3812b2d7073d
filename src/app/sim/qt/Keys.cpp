#include "app/sim/qt/Keys.h"

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <cctype>

namespace quorvel::sim {
namespace {

struct KeyRow {
  KeyCode code;
  Qt::Key key;
  const char* text;
};
constexpr KeyRow kKeys[] = {
    {KeyCode::Return, Qt::Key_Return, "\r"},
    {KeyCode::Tab, Qt::Key_Tab, "\t"},
    {KeyCode::Escape, Qt::Key_Escape, "\x1B"},
    {KeyCode::Backspace, Qt::Key_Backspace, "\b"},
    {KeyCode::Delete, Qt::Key_Delete, "\x7F"},
    {KeyCode::Up, Qt::Key_Up, ""},
    {KeyCode::Down, Qt::Key_Down, ""},
    {KeyCode::Left, Qt::Key_Left, ""},
    {KeyCode::Home, Qt::Key_Home, ""},
    {KeyCode::Menu, Qt::Key_Menu, ""},
    {KeyCode::F1, Qt::Key_F1, ""},
    {KeyCode::F3, Qt::Key_F3, ""},
    {KeyCode::F10, Qt::Key_F10, ""},
    {KeyCode::F12, Qt::Key_F12, ""},
};

struct ModifierRow {
  int shift;
  Qt::Key key;
  Qt::KeyboardModifier modifier;
};
constexpr ModifierRow kModifiers[] = {
    {kShift, Qt::Key_Shift, Qt::ShiftModifier},
    {kControl, Qt::Key_Control, Qt::ControlModifier},
    {kAlt, Qt::Key_Alt, Qt::AltModifier},
};

void Send(QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const QWidget* popUp = QApplication::activePopupWidget();
  QWindow* const window = popUp ? popUp->windowHandle() : QGuiApplication::focusWindow();
  if (window) qt_handleKeyEvent(window, type, key, modifiers, text);
}

}  // namespace

void Keys::Stroke(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
  door_.Add([=] { Send(QEvent::KeyPress, key, modifiers, text); });
  door_.Add([=] { Send(QEvent::KeyRelease, key, modifiers, text); });
}

// The keys of the shifts go down ahead of it and up behind it.
void Keys::Press(KeyCode code, int shift) {
  for (const KeyRow& row : kKeys) {
    if (row.code != code) continue;
    Qt::KeyboardModifiers modifiers;
    for (const ModifierRow& held : kModifiers) {
      if ((shift & held.shift) == 0) continue;
      door_.Add([held] { Send(QEvent::KeyPress, held.key, held.modifier, {}); });
      modifiers |= held.modifier;
    }
    const bool back = row.key == Qt::Key_Tab && (shift & kShift) != 0;
    Stroke(back ? Qt::Key_Backtab : row.key, modifiers, QString::fromLatin1(row.text));
    for (const ModifierRow& held : kModifiers) {
      if ((shift & held.shift) == 0) continue;
      door_.Add([held] { Send(QEvent::KeyRelease, held.key, Qt::NoModifier, {}); });
    }
  }
}

void Keys::Type(const std::string& text) {
  for (const char c : text) {
    if (c == '\r' || c == '\n') {
      Press(KeyCode::Return);
    } else {
      // The toolkit's numbers of keys are those of their upper-case characters.
      const int key = std::toupper(static_cast<unsigned char>(c));
      Stroke(static_cast<Qt::Key>(key), Qt::NoModifier, QString(QLatin1Char(c)));
    }
  }
}

}  // namespace quorvel::sim

#include "platform/qt/InputGate.h"

#include <QInputMethodEvent>
#include <QMenuBar>
#include <QPointer>
#include <QWidget>

#include "platform/controls/Desktop.h"
#include "platform/qt/Keyboard.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {
namespace {

bool IsGated(QObject* receiver) {
  auto* widget = qobject_cast<QWidget*>(receiver);
  if (!widget || qobject_cast<QMenuBar*>(widget) || !HasDesktop()) return false;
  return dynamic_cast<OwnWindow*>(widget->window()) != nullptr;
}

// The widget that takes the keys of a control; nullptr when it has none.
QWidget* KeyWidgetOf(const Control& control) {
  QWidget* widget = WidgetOf(control);
  return widget && widget->focusProxy() ? widget->focusProxy() : widget;
}

}  // namespace

bool InputGate::notify(QObject* receiver, QEvent* event) {
  try {
    return Pass(receiver, event);
  } catch (...) {
    if (!HasDesktop()) return false;
    const auto thrown = std::current_exception();
    desktop().Handle(EventKind::Program, [&thrown] { std::rethrow_exception(thrown); });
    return false;
  }
}

bool InputGate::Pass(QObject* receiver, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride: {
      const auto* key = static_cast<QKeyEvent*>(event);
      Control* target = IsGated(receiver) ? desktop().focus().KeyTarget() : nullptr;
      // A letter that leads to a control of the window goes before the same one in the menu bar.
      if (target && key->modifiers() == Qt::AltModifier &&
          target->window().HasMnemonic(key->key())) {
        event->accept();
        return true;
      }
      break;
    }
    case QEvent::KeyPress:
      if (IsGated(receiver) && !IsModifierKey(*static_cast<QKeyEvent*>(event))) {
        return PassKey(*static_cast<QKeyEvent*>(event));
      }
      break;
    case QEvent::InputMethod:
      if (IsGated(receiver)) return PassTypedText(*event);
      break;
    default:
      break;
  }
  return QApplication::notify(receiver, event);
}

// Whatever becomes of the key, the toolkit is not to go on with it: true, and accepted.
bool InputGate::PassKey(QKeyEvent& event) {
  event.accept();
  Control* target = desktop().focus().KeyTarget();
  if (!target) return true;  // nobody has the keyboard: keys go nowhere
  const bool terminal = target->kind() == ControlKind::Terminal;
  if (target->window().UserKeyDown(ToKeyEvent(event, terminal))) return true;
  target = desktop().focus().KeyTarget();
  if (!target) return true;
  const int code = CharacterOf(event);
  int typed = code;
  if (code != 0) {
    typed = target->window().UserKeyPress(code);
    if (typed == 0 || desktop().focus().KeyTarget() != target) return true;
  }
  QWidget* widget = KeyWidgetOf(*target);
  if (!widget) return true;
  if (typed == code) {
    QApplication::notify(widget, &event);
  } else {
    QKeyEvent other(QEvent::KeyPress, 0, Qt::NoModifier,
                    ToUnicode(std::string(1, static_cast<char>(typed))));
    QApplication::notify(widget, &other);
  }
  event.accept();
  return true;
}

// Text of an input method (a dead key and a letter, for one) is typed text too: every character is
// offered to the control first.
bool InputGate::PassTypedText(QEvent& event) {
  const auto& typed = static_cast<QInputMethodEvent&>(event);
  Control* target = desktop().focus().KeyTarget();
  event.accept();
  if (!target) return true;
  std::string kept;
  for (const char c : ToTypedBytes(typed.commitString())) {
    const int code = target->window().UserKeyPress(static_cast<unsigned char>(c));
    if (desktop().focus().KeyTarget() != target) return true;
    if (code != 0) kept += static_cast<char>(code);
  }
  QWidget* widget = KeyWidgetOf(*target);
  if (!widget) return true;
  QInputMethodEvent passed(typed.preeditString(), typed.attributes());
  passed.setCommitString(ToUnicode(kept), typed.replacementStart(), typed.replacementLength());
  QApplication::notify(widget, &passed);
  return true;
}

}  // namespace quorvel

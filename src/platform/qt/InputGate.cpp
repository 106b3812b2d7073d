#include "platform/qt/InputGate.h"

#include <QInputMethodEvent>
#include <QMenuBar>
#include <QPointer>
#include <QThread>
#include <QWidget>

#include "platform/controls/Desktop.h"
#include "platform/controls/TerminalControl.h"
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

// Whether a key copies, which no wait keeps anybody from. Where nothing is selected in a terminal
// it is a key for the host.
bool CopiesText(const QKeyEvent& event) {
  const bool copies = event.modifiers() == Qt::ControlModifier &&
                      (event.key() == Qt::Key_C || event.key() == Qt::Key_Insert);
  const Control* target = copies ? desktop().focus().KeyTarget() : nullptr;
  if (!target) return false;
  return target->kind() != ControlKind::Terminal ||
         static_cast<const Terminal*>(target)->selection().length > 0;
}

}  // namespace

bool InputGate::notify(QObject* receiver, QEvent* event) {
  // The toolkit's own threads come through here, too.
  if (QThread::currentThread() != thread()) return QApplication::notify(receiver, event);
  try {
    return Pass(receiver, event);
  } catch (...) {
    if (!HasDesktop()) return false;
    const auto thrown = std::current_exception();
    desktop().Handle(EventKind::Program, [&thrown] { std::rethrow_exception(thrown); });
    return false;
  }
}

bool InputGate::Deliver(QObject* receiver, QEvent* event) {
  const Discarded::Delivery delivery(discarded_, receiver);
  return QApplication::notify(receiver, event);
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
    case QEvent::KeyRelease:
      if (!IsGated(receiver)) break;
      PassKeyRelease(receiver, *static_cast<QKeyEvent*>(event));
      return true;
    case QEvent::InputMethod:
      if (!IsGated(receiver)) break;
      PassTypedText(*static_cast<QInputMethodEvent*>(event));
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (!IsGated(receiver)) break;
      return mouse_.Press(*static_cast<QWidget*>(receiver), *static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
      if (!IsGated(receiver)) break;
      return mouse_.Release(*static_cast<QWidget*>(receiver), *static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
      if (!IsGated(receiver)) break;
      return mouse_.Move(*static_cast<QWidget*>(receiver), *static_cast<QMouseEvent*>(event));
    case QEvent::Wheel:
      if (!IsGated(receiver)) break;
      return mouse_.Wheel(*static_cast<QWidget*>(receiver), *static_cast<QWheelEvent*>(event));
    default:
      break;
  }
  return Deliver(receiver, event);
}

// Whatever becomes of the key, the toolkit is not to go on with it: true, and accepted.
bool InputGate::PassKey(QKeyEvent& event) {
  event.accept();
  Window* front = desktop().focus().Front();
  if (!front) return true;  // nobody has the keyboard: keys go nowhere
  if (desktop().KeepsInput(*front) && CopiesText(event)) {
    front->AsUserEventAtOnce([&] { ServeKey(event); });
    return true;
  }
  const std::shared_ptr<QKeyEvent> copy(event.clone());
  desktop().TakeInput(*front, [this, copy] { ServeKey(*copy); });
  return true;
}

void InputGate::ServeKey(QKeyEvent& event) {
  Control* target = desktop().focus().KeyTarget();
  if (!target) return;
  const bool terminal = target->kind() == ControlKind::Terminal;
  if (target->window().UserKeyDown(ToKeyEvent(event, terminal))) return;
  target = desktop().focus().KeyTarget();
  if (!target) return;
  const int code = CharacterOf(event);
  int typed = code;
  if (code != 0) {
    typed = target->window().UserKeyPress(code);
    if (typed == 0 || desktop().focus().KeyTarget() != target) return;
  }
  QWidget* widget = KeyWidgetOf(*target);
  if (!widget) return;
  if (typed == code) {
    Deliver(widget, &event);
  } else {
    QKeyEvent other(QEvent::KeyPress, 0, Qt::NoModifier,
                    ToUnicode(std::string(1, static_cast<char>(typed))));
    Deliver(widget, &other);
  }
}

// A button is pressed by the blank and works when it is released: in their order, if one is kept.
void InputGate::PassKeyRelease(QObject* receiver, QKeyEvent& event) {
  Window* front = desktop().focus().Front();
  const bool follows = front && event.key() == Qt::Key_Space &&
                       (desktop().KeepsInput(*front) || desktop().HasKeptInput());
  if (!follows) {
    Deliver(receiver, &event);
    return;
  }
  event.accept();
  const std::shared_ptr<QKeyEvent> copy(event.clone());
  desktop().TakeInput(*front, [this, copy] {
    const Control* target = desktop().focus().KeyTarget();
    QWidget* widget = target ? KeyWidgetOf(*target) : nullptr;
    if (widget) Deliver(widget, copy.get());
  });
}

// What an input method has so far is shown at once; what it has finished is typed.
void InputGate::PassTypedText(QInputMethodEvent& event) {
  event.accept();
  Window* front = desktop().focus().Front();
  if (!front || event.commitString().isEmpty()) return ServeTypedText(event);
  const std::shared_ptr<QInputMethodEvent> copy(event.clone());
  desktop().TakeInput(*front, [this, copy] { ServeTypedText(*copy); });
}

// Text of an input method (a dead key and a letter, for one) is typed text too: every character is
// offered to the control first.
void InputGate::ServeTypedText(const QInputMethodEvent& typed) {
  Control* target = desktop().focus().KeyTarget();
  if (!target) return;
  std::string kept;
  for (const char c : ToTypedBytes(typed.commitString())) {
    const int code = target->window().UserKeyPress(static_cast<unsigned char>(c));
    if (desktop().focus().KeyTarget() != target) return;
    if (code != 0) kept += static_cast<char>(code);
  }
  QWidget* widget = KeyWidgetOf(*target);
  if (!widget) return;
  QInputMethodEvent passed(typed.preeditString(), typed.attributes());
  passed.setCommitString(ToUnicode(kept), typed.replacementStart(), typed.replacementLength());
  Deliver(widget, &passed);
}

}  // namespace quorvel

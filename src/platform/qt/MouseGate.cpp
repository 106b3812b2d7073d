#include "platform/qt/MouseGate.h"

#include <QScrollBar>

#include "platform/controls/Desktop.h"
#include "platform/qt/InputGate.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {
namespace {

// The toolkit moves its own focus with a press; it belongs where the keyboard is.
void ShowKeyboard() {
  const Control* target = desktop().focus().KeyTarget();
  const QWidget* widget = target ? WidgetOf(*target) : nullptr;
  const QWidget* focus = QApplication::focusWidget();
  if (!widget || QApplication::activePopupWidget()) return;
  if (focus && (focus == widget || widget->isAncestorOf(focus))) return;
  target->peer()->ShowFocus();
}

bool CanTake(const QPointer<QWidget>& widget) {
  return widget && widget->isVisible() && widget->isEnabled();
}

}  // namespace

Window* WindowAround(const QWidget& widget) {
  for (const QWidget* at = &widget; at; at = at->parentWidget()) {
    if (const auto* own = dynamic_cast<const OwnWindow*>(at)) return own->Owner();
  }
  return nullptr;
}

bool MouseGate::Deliver(QWidget& widget, QEvent& event) {
  return gate_.Deliver(&widget, &event);
}

bool MouseGate::DeliverAtOnce(Window& window, QWidget& widget, QEvent& event) {
  window.AsUserEventAtOnce([&] { Deliver(widget, event); });
  return true;
}

// Whether the mouse does no more here than select what is shown.
bool MouseGate::LooksOnly(const WidgetPeer* peer, const QMouseEvent& event) const {
  if (!peer || !desktop().KeepsInput(peer->control().window())) return false;
  const ControlKind kind = peer->control().kind();
  const bool left = event.button() == Qt::LeftButton || (event.buttons() & Qt::LeftButton) != 0;
  return left && (kind == ControlKind::Terminal || kind == ControlKind::ReportView);
}

bool MouseGate::Press(QWidget& widget, QMouseEvent& event) {
  const WidgetPeer* peer = WidgetPeer::Around(&widget);
  Window* window = WindowAround(widget);
  const auto pressed = std::make_shared<Pressed>();
  pressed_[event.button()] = pressed;
  if (!peer || !window) {
    *pressed = {true, true};
    return Deliver(widget, event);
  }
  const bool scrolls = qobject_cast<const QScrollBar*>(&widget) != nullptr;
  if (scrolls || peer->control().IsWayOut || LooksOnly(peer, event)) {
    pressed->served = true;
    ServePress(widget, event, *pressed);
    return true;
  }
  const std::shared_ptr<QMouseEvent> copy(event.clone());
  desktop().TakeInput(*window, [this, pressed, copy, meant = QPointer<QWidget>(&widget),
                                first = QPointer<const QObject>(peer)] {
    pressed->served = true;
    if (first && CanTake(meant)) ServePress(*meant, *copy, *pressed);
  });
  event.accept();
  return true;
}

// Handlers may end the window and all that is in it.
void MouseGate::ServePress(QWidget& widget, QMouseEvent& event, Pressed& pressed) {
  const QPointer<WidgetPeer> peer = WidgetPeer::Around(&widget);
  Control& control = peer->control();
  const auto window = control.window().weak_from_this().lock();
  const bool scrolls = qobject_cast<const QScrollBar*>(&widget) != nullptr;
  const bool held = window && desktop().KeepsInput(*window);
  if (control.kind() == ControlKind::ComboBox) return PressCombo(widget, event, pressed);
  pressed.delivered = true;
  if (event.button() == Qt::RightButton && control.MouseDown) {
    Deliver(widget, event);  // the peer serves it, and the keyboard with it
    return;
  }
  peer->BeginPress();
  if (LooksOnly(peer, event)) {
    DeliverAtOnce(*window, widget, event);
  } else {
    Deliver(widget, event);
  }
  if (!peer) return;
  const auto causes = peer->EndPress();
  const bool atOnce = held && (scrolls || control.IsWayOut);
  if (control.FocusOnClick && !atOnce) control.UserPress();
  for (const auto& cause : causes) {
    if (peer) cause();
  }
  // A button that loses the toolkit's focus is not pressed any more.
  if (!peer || !peer->control().IsWayOut) ShowKeyboard();
}

void MouseGate::PressCombo(QWidget& widget, QMouseEvent& event, Pressed& pressed) {
  const QPointer<WidgetPeer> peer = WidgetPeer::Around(&widget);
  const QPointer<QWidget> meant(&widget);
  Control& control = peer->control();
  control.UserPress();
  if (!peer || !meant || desktop().focus().KeyTarget() != &control) return;
  pressed.delivered = true;
  Deliver(widget, event);
}

bool MouseGate::Release(QWidget& widget, QMouseEvent& event) {
  const auto found = pressed_.find(event.button());
  if (found == pressed_.end()) return Deliver(widget, event);
  const auto pressed = found->second;
  pressed_.erase(found);
  const WidgetPeer* peer = WidgetPeer::Around(&widget);
  Window* window = WindowAround(widget);
  if (pressed->delivered) {
    const bool wayOut = peer && peer->control().IsWayOut;
    const bool taken =
        LooksOnly(peer, event) ? DeliverAtOnce(*window, widget, event) : Deliver(widget, event);
    if (wayOut && HasDesktop()) ShowKeyboard();
    return taken;
  }
  event.accept();
  const bool dropped = pressed.use_count() == 1;
  if (pressed->served || dropped || !window) return true;
  const std::shared_ptr<QMouseEvent> copy(event.clone());
  desktop().KeepInput(*window, [this, pressed, copy, meant = QPointer<QWidget>(&widget)] {
    if (pressed->delivered && CanTake(meant)) Deliver(*meant, *copy);
  });
  return true;
}

bool MouseGate::Move(QWidget& widget, QMouseEvent& event) {
  for (const auto& [button, pressed] : pressed_) {
    // Not over a widget that does not know of the press yet.
    if ((event.buttons() & button) != 0 && !pressed->delivered) return true;
  }
  const WidgetPeer* peer = WidgetPeer::Around(&widget);
  if (event.buttons() != Qt::NoButton && LooksOnly(peer, event)) {
    return DeliverAtOnce(peer->control().window(), widget, event);
  }
  return Deliver(widget, event);
}

// The wheel scrolls, but over a combo box it chooses.
bool MouseGate::Wheel(QWidget& widget, QWheelEvent& event) {
  const WidgetPeer* peer = WidgetPeer::Around(&widget);
  const bool chooses =
      peer && peer->control().kind() == ControlKind::ComboBox && peer->control().HasFocus();
  if (!chooses || !desktop().KeepsInput(peer->control().window())) return Deliver(widget, event);
  const std::shared_ptr<QWheelEvent> copy(event.clone());
  desktop().TakeInput(peer->control().window(), [this, copy, meant = QPointer<QWidget>(&widget)] {
    if (CanTake(meant)) Deliver(*meant, *copy);
  });
  event.accept();
  return true;
}

}  // namespace quorvel

#pragma once

#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>
#include <QWidget>
#include <map>
#include <memory>

namespace quorvel {

class InputGate;
class WidgetPeer;
class Window;

// The mouse in the program's windows. A press is finished by the toolkit (caret, selection) before
// its control is told of it, which may wait for the host; only the list of a combo box does not
// drop down before its control has the keyboard.
//
// While input is held, presses are kept and their releases with them. What only looks is served at
// once: scrolling, selecting and copying what is shown.
class MouseGate {
 public:
  explicit MouseGate(InputGate& gate) : gate_(gate) {}

  bool Press(QWidget& widget, QMouseEvent& event);
  bool Release(QWidget& widget, QMouseEvent& event);
  bool Move(QWidget& widget, QMouseEvent& event);
  bool Wheel(QWidget& widget, QWheelEvent& event);

 private:
  // A press whose release has yet to come.
  struct Pressed {
    bool served = false;     // else it is kept, or was dropped
    bool delivered = false;  // to the toolkit
  };

  bool Deliver(QWidget& widget, QEvent& event);
  // As part of an event, so that nothing of it is kept.
  bool DeliverAtOnce(Window& window, QWidget& widget, QEvent& event);
  void ServePress(QWidget& widget, QMouseEvent& event, Pressed& pressed);
  void PressCombo(QWidget& widget, QMouseEvent& event, Pressed& pressed);
  bool LooksOnly(const WidgetPeer* peer, const QMouseEvent& event) const;

  InputGate& gate_;
  std::map<Qt::MouseButton, std::shared_ptr<Pressed>> pressed_;
};

// The window of the program that a widget lies in; nullptr for none.
Window* WindowAround(const QWidget& widget);

}  // namespace quorvel

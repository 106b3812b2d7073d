#pragma once

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include "platform/qt/Discarded.h"
#include "platform/qt/MouseGate.h"

namespace quorvel {

class Window;

// What marks the widgets that are windows of the program, as against the toolkit's own boxes and
// menus.
class OwnWindow {
 public:
  virtual ~OwnWindow() = default;
  // nullptr when the window's object has gone.
  virtual Window* Owner() const = 0;
};

// The application object, with a gate in front of every widget. A key pressed in a window of the
// program goes to the control that has the keyboard by the windows' own account (Focus.h), after
// the window has been asked what it makes of it; the toolkit's idea of the focus does not count.
// Keys of menus, lists that pop up, message boxes and the toolkit's dialogs pass untouched.
//
// Keys and presses of the mouse that are to be kept for the end of a wait are copied here, and
// delivered later by the same roads.
//
// The gate is also the last edge for exceptions: none gets into the toolkit's loops.
class InputGate : public QApplication {
 public:
  InputGate(int& argc, char** argv) : QApplication(argc, argv), mouse_(*this) {}

  bool notify(QObject* receiver, QEvent* event) override;
  // Past the gate.
  bool Deliver(QObject* receiver, QEvent* event);
  Discarded& discarded() { return discarded_; }

 private:
  bool Pass(QObject* receiver, QEvent* event);
  bool PassKey(QKeyEvent& event);
  void ServeKey(QKeyEvent& event);
  void PassKeyRelease(QObject* receiver, QKeyEvent& event);
  void PassTypedText(QInputMethodEvent& event);
  void ServeTypedText(const QInputMethodEvent& typed);

  Discarded discarded_;
  MouseGate mouse_;
};

}  // namespace quorvel

#pragma once

#include <QApplication>
#include <QKeyEvent>

namespace quorvel {

// What marks the widgets that are windows of the program, as against the toolkit's own boxes and
// menus.
class OwnWindow {
 public:
  virtual ~OwnWindow() = default;
};

// The application object, with a gate in front of every widget. A key pressed in a window of the
// program goes to the control that has the keyboard by the windows' own account (Focus.h), after
// the window has been asked what it makes of it; the toolkit's idea of the focus does not count.
// Keys of menus, lists that pop up, message boxes and the toolkit's dialogs pass untouched.
//
// The gate is also the last edge for exceptions: none gets into the toolkit's loops.
class InputGate : public QApplication {
 public:
  InputGate(int& argc, char** argv) : QApplication(argc, argv) {}

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  bool Pass(QObject* receiver, QEvent* event);
  bool PassKey(QKeyEvent& event);
  bool PassTypedText(QEvent& event);
};

}  // namespace quorvel

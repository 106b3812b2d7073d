#pragma once

#include <string>

#include "platform/controls/Window.h"

namespace quorvel {

class ListBox;

// The hands of a user on a headless desktop: keys go where the keyboard is, clicks where they
// point. What a toolkit would do itself with a key (typing into a box, moving in a list) is done
// here.
class HeadlessUser {
 public:
  // Types characters; line ends are Enter.
  void Type(const std::string& text);
  void Press(KeyCode key, int shift = kNoShift);
  void Click(Control& control) { control.UserClick(); }
  void DoubleClick(Control& control) { control.UserDblClick(); }
  // Presses the mouse on a row, moves to another and releases it there.
  void Drag(ListBox& list, int from, int to);
  void RightClick(Control& control) { control.UserMouseDown(MouseButton::Right); }

 private:
  bool KeyDown(KeyEvent key);
  void TypeOne(char c);
};

}  // namespace quorvel

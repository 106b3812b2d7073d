#pragma once

#include <functional>
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
  void Click(Control& control);
  void DoubleClick(Control& control);
  // Presses the mouse on a row, moves to another and releases it there.
  void Drag(ListBox& list, int from, int to);
  void RightClick(Control& control);

 private:
  void Do(Control& control, const std::function<void(Control&)>& act);
  bool KeyDown(KeyEvent key);
  void TypeOne(char c);
  void PressOne(KeyCode key, int shift);
};

}  // namespace quorvel

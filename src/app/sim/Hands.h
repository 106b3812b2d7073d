#pragma once

#include <optional>
#include <string>

#include "platform/controls/Keys.h"
#include "platform/controls/Lists.h"
#include "platform/controls/Menu.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/Window.h"

namespace quorvel::sim {

// What lies over the windows: a message box, a dialog of the platform, or a menu that has popped
// up.
struct OpenBox {
  enum class Kind { Message, File, Other, PopUp };
  Kind kind = Kind::Message;
  std::string title;
  std::string text;
  bool asks = false;         // a message box with Yes and No
  bool saves = false;        // a file dialog for what is to be written
  MenuItem* menu = nullptr;  // of Kind::PopUp
};

struct BoxReply {
  bool yes = true;            // Yes or OK; else No, or a dialog is cancelled
  std::string file;           // that is chosen; empty: cancelled
  MenuItem* entry = nullptr;  // that is clicked; none: the menu closes
};

// What an operator can do at a desktop. The stories speak to this alone, so that they can be played
// at any desktop. What can't be reached is left alone by the controls themselves.
class Hands {
 public:
  virtual ~Hands() = default;
  // Whether what they do has been served, or kept, when the call returns.
  virtual bool AreAtOnce() const = 0;
  virtual void Click(Control& control) = 0;
  virtual void DoubleClick(Control& control) = 0;
  virtual void RightClick(Control& control) = 0;
  virtual void Press(KeyCode key, int shift = kNoShift) = 0;
  virtual void Type(const std::string& text) = 0;
  virtual void ChooseMenu(MenuItem& entry) = 0;
  virtual void CloseBox(Window& window) = 0;
  virtual void TurnTo(Window& window) = 0;
  virtual void Resize(Window& window, int width, int height) = 0;
  virtual void PickRow(Control& list, int row) = 0;  // from 0
  virtual void TurnToPage(TabStrip& strip, int page) = 0;
  // What takes the input in place of the windows; nothing while they do.
  virtual std::optional<OpenBox> BoxInFront() = 0;
  virtual void AnswerBox(const BoxReply& reply) = 0;
};

}  // namespace quorvel::sim

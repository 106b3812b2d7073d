#pragma once

#include <vector>

namespace quorvel {

class Control;
class Window;

// Who has the keyboard. The windows are kept in their order from the bottom to the front; each
// remembers its active control. Peers follow what is decided here and report only what the user
// did.
//
// - SetFocus on a control that has not got the keyboard raises GotFocus before it returns, also
//   inside another GotFocus (the inner one wins and stays).
// - A control that is disabled or hidden loses the keyboard at once; keys go nowhere until the
//   outermost running handler is done (Settle), unless a SetFocus comes first. If it can take the
//   keyboard again by then it has it back silently.
// - After a modal window, the first SetFocus, else Settle, raises GotFocus in the window below.
// - Activate and then GotFocus are raised when a window comes to the front from behind another of
//   ours, and by Show; never after a message box.
class Focus {
 public:
  // The window in front; nullptr when only the main window is there.
  Window* Front() const;
  // The control that keys go to now; nullptr for none.
  Control* KeyTarget() const;
  const std::vector<Window*>& Order() const { return order_; }

  void SetFocus(Control& control);
  void SetFocus(Window& window);
  void Shown(Window& window);
  void Hidden(Window& window);
  // Something was disabled, hidden or removed: takes the keyboard from a control that can't have
  // it any more.
  void Check(Window& window);
  void Removed(Control& control);
  // An event has been handled; `outermost` when no other handler is running below it.
  // True when that raised events, after which there may be more to settle.
  bool Settle(bool outermost);
  // Whether a modal window stands above `window`.
  bool IsBlocked(const Window& window) const;

 private:
  void BringToFront(Window& window);
  void PutBehindModal(Window& window);
  void Activate(Window& window);
  void Enter(Window& window, Control& control);
  void EnterAgain(Window& window);

  std::vector<Window*> order_;
  unsigned changes_ = 0;  // counts every GotFocus that has been raised
};

}  // namespace quorvel

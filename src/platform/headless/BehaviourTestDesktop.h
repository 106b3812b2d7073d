#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Desktop.h"
#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"

namespace quorvel {

// A desktop with somebody who works at it. The tests of behaviour speak to this alone, so that
// the same tests run against every backend.
class BehaviourTestDesktop {
 public:
  virtual ~BehaviourTestDesktop() = default;

  // --- what the user does. Done at once; what is queued because of it is not served yet.
  virtual void Click(Control& control) = 0;
  virtual void DoubleClick(Control& control) = 0;
  // Keys into whatever has the keyboard.
  virtual void Type(const std::string& text) = 0;
  virtual void Press(KeyCode key, int shift = kNoShift) = 0;
  // Types while the program is busy: the keys wait at the door until it serves the user's input.
  virtual void TypeAhead(const std::string& text) = 0;
  virtual void ClickMenu(MenuItem& entry) = 0;
  virtual void CloseBox(Window& window) = 0;
  // Turns to a window by the desktop's own means: its title bar, the task bar.
  virtual void TurnTo(Window& window) = 0;
  virtual void PickItem(ComboBox& box, int row) = 0;  // from 0
  virtual void PickRow(ListBox& list, int row) = 0;   // from 0
  virtual void PickRow(ListView& list, int row) = 0;  // from 1
  virtual void TurnTo(TabStrip& strip, int page) = 0;
  // Presses and releases the mouse ahead of a character of a line of text.
  virtual void ClickInText(TextBox& box, int place) = 0;
  // Sizes a window by its frame.
  virtual void Size(Window& window, int width, int height) = 0;

  virtual void ServeUntilIdle() = 0;
  // The program waited for something that could never come; it has been ended.
  virtual bool Stalled() const = 0;

  // --- what the user will do while the program waits, oldest first
  // One act for each time a wait or modal window has nothing to serve; a real user takes a while.
  void Meanwhile(std::function<void()> act, int milliseconds = 0) {
    acts_.push_back({milliseconds, std::move(act)});
  }
  // The answer to the next message box (without it: its first button), after doing `whileOpen`.
  void AnswerBox(MessageBoxAnswer answer, std::function<void()> whileOpen = {}) {
    answers_.push_back({answer, std::move(whileOpen)});
  }
  // The entry of the next pop-up menu to click.
  void ChooseInPopUp(MenuItem& entry) { popUpChoice_ = &entry; }
  // Whether all of these have been done.
  bool AllDone() const { return acts_.empty() && answers_.empty() && !popUpChoice_; }

  std::vector<MessageBoxRequest> boxes;  // shown so far

 protected:
  struct BoxAnswer {
    MessageBoxAnswer answer;
    std::function<void()> whileOpen;
  };

  // How long the user takes for the next act.
  int NextActIn() const { return acts_.empty() ? 0 : acts_.front().milliseconds; }
  // Does the next act; false when none is left.
  bool ActOnce() {
    if (acts_.empty()) return false;
    const Act next = std::move(acts_.front());
    acts_.pop_front();
    next.act();
    return true;
  }
  // How to answer the box that shows now.
  BoxAnswer NextAnswer(const MessageBoxRequest& shown) {
    boxes.push_back(shown);
    const bool ok = (shown.style & MessageBoxStyle::kButtonMask) == MessageBoxStyle::kOkOnly;
    BoxAnswer next{ok ? MessageBoxAnswer::Ok : MessageBoxAnswer::Yes, {}};
    if (!answers_.empty()) {
      next = std::move(answers_.front());
      answers_.pop_front();
    }
    return next;
  }
  MenuItem* TakePopUpChoice() { return std::exchange(popUpChoice_, nullptr); }

 private:
  struct Act {
    int milliseconds;
    std::function<void()> act;
  };
  std::deque<Act> acts_;
  std::deque<BoxAnswer> answers_;
  MenuItem* popUpChoice_ = nullptr;
};

// The desktop under test; every backend has a file of its own with this function.
std::unique_ptr<BehaviourTestDesktop> MakeTestDesktop();

}  // namespace quorvel

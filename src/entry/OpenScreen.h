#pragma once

#include <functional>
#include <string>

#include "link/HostWait.h"
#include "platform/MessageBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// All that an entry screen does in the course of which other events run: requests to the host,
// message boxes, moving the keyboard. The screen may be unloaded meanwhile, and another one opened,
// or another session begun; each of these ends in QuietEnd then, so that nothing goes on with what
// is gone.
class OpenScreen {
 public:
  explicit OpenScreen(Window& window) : window_(window) {}

  // Takes down what the session says of the screen that is being loaded.
  void Opened();
  // Whether the link on which it was opened is up.
  bool IsOfThisSession() const;
  // Makes the session's fields this screen's again: another screen may have been asked for in vain.
  void Resume() const;

  // Whether an event of the screen waits for the host.
  bool IsInWait() const { return IsWaiting(window_); }
  // Runs the handling of one event of the screen. Does nothing for a screen that is gone, nor while
  // another screen is being fetched.
  void Run(const std::function<void()>& body);

  void Read(const std::string& file, const std::string& key) const;
  void ReadData(const std::string& key) const;  // from the file that the screen maintains
  void Write(const std::string& key, const std::string& record) const;
  void Delete(const std::string& key) const;
  void Lock(const std::string& key) const;
  void Unlock(const std::string& key) const;
  void CaseCall(const std::string& field) const;
  MessageBoxAnswer MsgBox(const std::string& text, int style = MessageBoxStyle::kOkOnly,
                          const std::string& title = {}) const;
  // Gives the box the keyboard; nullptr does nothing.
  void Focus(Control* box) const;
  // Whether the box is the one that keys go to as soon as the screen is in front.
  bool HasKeyboard(const Control& box) const { return window_.ActiveControl() == &box; }

 private:
  void Check() const;

  Window& window_;
  unsigned session_ = 0;
  std::string screenId_;
  std::string dataFile_;
  std::string caseProgram_;
};

}  // namespace quorvel

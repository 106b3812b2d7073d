#pragma once

#include <gtest/gtest.h>

#include "app/SessionTest.h"
#include "link/HandOvers.h"
#include "link/Marks.h"

namespace quorvel {

// A frame of these fields, as either side writes it with the default mark.
inline std::string FrameOf(const std::vector<std::string>& fields) {
  std::string frame = "\x7F";
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) frame += FS;
    frame += fields[i];
  }
  return frame + "\x7F";
}

// A request line of these fields.
inline std::string RequestOf(const std::vector<std::string>& fields) {
  return FrameOf(fields) + CR;
}

// A client with its session up and nothing pending, at a far end that is the test's.
class FarEndTest : public ::testing::Test, public ClientTest {
 protected:
  // With these settings in section LOGIN and TELNET; QuickExit is off unless they say otherwise.
  void LogIn(const std::string& login = "UserId=demo\nPwd=secret\n",
             const std::string& telnet = "QuickExit=0\n") {
    Connect("[TELNET]\nHostName=host\n" + telnet + "[LOGIN]\n" + login);
    Session().PendingOp.clear();
  }

  // The program asks something of the host, as an event of the user.
  void Run(const std::function<void()>& operation) {
    desktop().Handle(EventKind::User, operation);
    backend.RunUntilIdle();
  }

  // From here on the host answers line after line with these frames; what it was sent is in asked.
  void Answer(std::vector<std::string> replies) {
    asked.clear();
    replies_ = std::move(replies);
    backend.onIdle = [this] {
      if (replies_.empty() || backend.lines.empty() || Line().sent.empty()) return false;
      asked.push_back(Line().TakeSent());
      const std::string reply = replies_.front();
      replies_.erase(replies_.begin());
      Line().Deliver(reply);
      return true;
    };
  }
  bool AllAnswered() const { return replies_.empty(); }

  std::vector<std::string> BoxTexts() const {
    std::vector<std::string> texts;
    for (const MessageBoxRequest& box : backend.messageBoxes) texts.push_back(box.text);
    return texts;
  }
  bool InFront(const Window* window) { return window && desktop().focus().Front() == window; }

  // Its middle is that of the terminal window's place on the screen, to a twip of rounding.
  static void ExpectOverTelnetWindow(const Window& window) {
    const mdiMain& main = *LoadedForm<mdiMain>();
    const frmTelnet& telnet = *LoadedForm<frmTelnet>();
    const int left = main.Left() + main.FrameWidth() / 2 + telnet.Left();
    const int top = main.Top() + main.FrameHeight() + telnet.Top();
    EXPECT_NEAR(2 * window.Left() + window.Width(), 2 * left + telnet.Width(), 2);
    EXPECT_NEAR(2 * window.Top() + window.Height(), 2 * top + telnet.Height(), 2);
  }

  std::vector<std::string> asked;

 private:
  std::vector<std::string> replies_;
};

using Texts = std::vector<std::string>;

}  // namespace quorvel

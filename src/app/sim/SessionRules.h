#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/sim/Failure.h"
#include "platform/MessageBox.h"

namespace quorvel::sim {

// What is under way has been begun by the frames of this session, not by those of the last one.
class StreamRule {
 public:
  explicit StreamRule(Verdict& verdict) : verdict_(verdict) {}
  void OnAccepted();
  void OnFrame(const std::string& token);
  // `insideFrame`: the host has begun a frame and not ended it.
  void CheckQuiet(bool insideFrame);

 private:
  Verdict& verdict_;
  bool captures_ = false;
  bool prints_ = false;
};

// The menu that shows is the one that the host has sent last.
class MenuRule {
 public:
  explicit MenuRule(Verdict& verdict) : verdict_(verdict) {}
  void OnAccepted() { text_.clear(); }
  void OnFrame(const std::vector<std::string>& fields);
  void CheckQuiet();

 private:
  Verdict& verdict_;
  std::string text_;
  std::string commands_;
};

// Who has chosen to leave the program and then answers No is not put out of it.
class ExitRule {
 public:
  explicit ExitRule(Verdict& verdict) : verdict_(verdict) {}
  void OnAccepted() { chosen_ = refused_ = false; }
  void OnChosen() { chosen_ = true; }
  void OnBox(const MessageBoxRequest& box);
  void OnAnswered(const std::string& title, bool yes);
  void CheckEnd();

 private:
  Verdict& verdict_;
  bool chosen_ = false;   // the entry that leaves the program, and no answer has been given since
  bool asked_ = false;    // the question is open that came of it
  bool refused_ = false;  // it was answered No, and he has not been asked again
};

// A help text that is to be saved without a link stays in its window.
class HelpRule {
 public:
  explicit HelpRule(Verdict& verdict) : verdict_(verdict) {}
  void OnAnswered(const std::string& title, bool yes);
  void OnLink(bool up) { up_ = up; }
  // He closes the window once more, whatever is in it.
  void OnLeft() { due_ = false; }
  void CheckQuiet();

 private:
  Verdict& verdict_;
  bool up_ = false;
  bool due_ = false;
};

// Each connection that fails is told once, and the main window shows that there is none.
class LinkRule {
 public:
  explicit LinkRule(Verdict& verdict) : verdict_(verdict) {}
  void OnAccepted() { gone_ = false; }
  void OnRefused();
  void OnGone() { gone_ = true; }
  // The main window has the caption of the configuration from now on.
  void OnFileChosen() { gone_ = false; }
  void OnBox(const MessageBoxRequest& box);
  // There is no line.
  void CheckQuiet();

 private:
  Verdict& verdict_;
  bool gone_ = false;
  int untold_ = 0;
};

}  // namespace quorvel::sim

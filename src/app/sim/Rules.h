#pragma once

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/sim/Failure.h"
#include "app/sim/Network.h"
#include "app/sim/Requests.h"
#include "app/sim/SessionRules.h"
#include "app/sim/Story.h"
#include "app/sim/Workplace.h"
#include "platform/MessageBox.h"
#include "platform/controls/Window.h"

namespace quorvel::sim {

// Nothing but the login goes to a host that has not sent a frame yet.
class LoginRule {
 public:
  explicit LoginRule(Verdict& verdict) : verdict_(verdict) {}
  void OnAccepted(const std::string& host);
  void OnSent(std::string_view bytes);
  void OnFrame() { done_ = true; }
  void OnTyped(const std::string& text);
  bool IsDone() const { return done_; }

 private:
  bool IsLoginLine(const std::string& line) const;

  Verdict& verdict_;
  DataBytes data_;
  bool done_ = true;
  std::string host_;
  std::string line_;   // what has been sent of it that the operator did not type
  std::string typed_;  // by the operator, and not sent yet
};

// What is written is what the operator sees, under the key that is locked, with the fields of that
// record; and what he saw saved is there.
class SavedRule {
 public:
  SavedRule(Verdict& verdict, Workplace& place) : verdict_(verdict), place_(place) {}
  void OnAccepted();
  void OnSent(std::string_view bytes, bool hostIsSample);
  void OnRequest(const std::string& text, int port);
  void OnBox(const MessageBoxRequest& box);
  void OnLinkGone() { promise_.reset(); }
  void OnSaveClicked();
  void OnAct() { wrote_ = false; }
  void CheckPromise();
  // The host holds no lock but that of the record on the screen.
  void CheckLocks(int port);

 private:
  using Boxes = std::map<int, std::string>;  // by attribute of the file
  struct Promise {
    std::string file;
    std::string key;
    Boxes boxes;
  };
  void CompareWithScreen(const std::vector<std::string>& write);

  Verdict& verdict_;
  Workplace& place_;
  DataBytes data_;
  RequestReader requests_;
  std::optional<Promise> promise_;
  bool loggedOff_ = false;  // in this session
  bool wrote_ = false;      // and the operator has done nothing since
};

// Each box of the host opens once, in the order in which they came.
class FramesRule {
 public:
  explicit FramesRule(Verdict& verdict) : verdict_(verdict) {}
  void OnFrame(const std::string& frame);
  void OnBox(const MessageBoxRequest& box);
  void Forget() { due_.clear(); }
  void CheckQuiet();

 private:
  struct Due {
    std::string title;
    std::string text;
  };
  Verdict& verdict_;
  std::deque<Due> due_;
};

// Each question of the sample host gets its answer.
class AnsweredRule {
 public:
  explicit AnsweredRule(Verdict& verdict) : verdict_(verdict) {}
  void OnAccepted();
  void OnSent(std::string_view bytes);
  void OnTyped(const std::string& text);
  void CheckQuiet(const demohost::HostSession& host);

 private:
  Verdict& verdict_;
  DataBytes data_;
  RequestReader requests_;
  std::ptrdiff_t typedReturns_ = 0;  // by the operator, and not sent yet
  bool hasEndedText_ = false;        // an answer has ended a line that the operator had half typed
};

// Every window that has been loaded is the desktop's, or gone.
class OwnersRule {
 public:
  explicit OwnersRule(Verdict& verdict) : verdict_(verdict) {}
  void OnLoad(Window& window);
  // With nothing being handled: nobody else holds a window.
  void CheckQuiet();
  // The desktop is gone.
  void CheckEnd();

 private:
  struct Seen {
    std::weak_ptr<Window> window;
    std::string name;
  };
  Verdict& verdict_;
  std::vector<Seen> seen_;
};

// Sessions leave nothing behind: what is in use at their beginnings stays as it was.
class MemoryRule {
 public:
  MemoryRule(Verdict& verdict, Workplace& place) : verdict_(verdict), place_(place) {}
  void OnSession();
  void CheckEnd();

 private:
  Verdict& verdict_;
  Workplace& place_;
  std::vector<std::int64_t> blocks_;  // at the beginning of each session
};

// What must hold, whatever the operator, the host and the line do.
class Rules final : public WireWatch {
 public:
  Rules(const Story& story, Workplace& place, Verdict& verdict, const Teller& tell);

  // --- the line
  void OnAccepted(const std::string& host) override;
  void OnRefused() override;
  void OnSent(std::string_view bytes) override;
  void OnDelivered(std::string_view bytes) override;
  void OnLost() override;
  void OnHungUp() override;
  void OnClosedByClient() override;
  void OnRequest(const std::string& text, int port) override;

  // --- the desktop and the operator
  void OnBox(const MessageBoxRequest& box);
  void OnLoad(Window& window) { owners_.OnLoad(window); }
  void OnTyped(const std::string& text);
  void OnSaveClicked() { saved_.OnSaveClicked(); }
  void OnAct();
  void OnExitChosen() { exit_.OnChosen(); }
  void OnHelpLeft() { help_.OnLeft(); }
  void OnAnswered(const std::string& title, bool yes);
  void OnFileChosen() { link_.OnFileChosen(); }
  // What was typed while the program waits for the host is not kept for the end of the wait.
  void OnDropped(const std::string& text);

  // Nothing is under way, nothing is handled or open.
  void CheckQuiet(const demohost::HostSession* host);
  void CheckEnd();

 private:
  bool HostIsSample() const { return RowOf(story_.kind).host == HostKind::Sample; }
  void OnFrame(const std::string& frame);
  bool IsExpected(const std::string& failure) const;
  void CheckState();
  void CheckKeyboard();

  const Story& story_;
  Verdict& verdict_;
  const Teller& tell_;
  DataBytes data_;
  FrameReader frames_;
  LoginRule login_;
  SavedRule saved_;
  AnsweredRule answered_;
  FramesRule boxes_;
  OwnersRule owners_;
  MemoryRule memory_;
  StreamRule stream_;
  MenuRule menu_;
  ExitRule exit_;
  HelpRule help_;
  LinkRule link_;
};

}  // namespace quorvel::sim

#pragma once

#include <string>

namespace quorvel {

// How far the run of a menu option has come. While one is under way no other begins: a second
// Enter or double click is dropped, for nobody wants it twice. What the user has typed ahead
// meanwhile goes on to what the option opens.
class OptionRun {
 public:
  // Whether a run that the user asks for now is to be dropped: one is under way, or he asked for it
  // while one was, in the menu that still shows.
  bool DropsAnother() const;

  void Begin();       // the option is being looked up
  void Request();     // the host has been asked to get it ready
  void SendOption();  // its id has been sent: what it opens is to come
  bool AwaitsReply() const { return stage_ == Stage::Requested; }
  bool AwaitsWindow() const { return stage_ == Stage::Sent; }
  void End();

 private:
  enum class Stage { None, LookUp, Requested, Sent };
  bool IsUnderWay() const;

  Stage stage_ = Stage::None;
  unsigned endedAt_ = 0;  // moment of the desktop
  std::string menu_;      // the menu that it was begun in
};

}  // namespace quorvel

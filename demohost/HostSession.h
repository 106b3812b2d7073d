// One session of the host: raw bytes of the network in, writes for the network out.
// No sockets, no threads, no clock.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "demohost/CaseCall.h"
#include "demohost/LineReader.h"
#include "demohost/Printout.h"
#include "demohost/Program.h"
#include "demohost/TelnetServer.h"

namespace quorvel::demohost {

class Application;
struct Reply;

class HostSession final : public Console {
 public:
  /// `port` is the number that users see; unique among the sessions of the application, which must
  /// outlive them.
  HostSession(Application& application, int port);
  ~HostSession() override;

  /// The telnet offers and the login prompt.
  void Start();
  /// Bytes from the network, telnet commands included, cut anywhere.
  void Receive(std::string_view bytes);
  /// What is to be sent since the last call, each element in a write of its own: a frame stands
  /// alone in its write. Other sessions can add to it too, so ask after each event of any session,
  /// until nothing comes: a printout gives a piece each time. `more` false leaves it waiting.
  std::vector<std::string> TakeWrites(bool more = true);
  /// All of it in one text.
  std::string TakeOutput();
  /// True once the host drops the link, after what TakeWrites still gives.
  bool Ended() const { return phase_ == Phase::Ended; }

  int Port() const override { return port_; }
  const std::string& User() const override { return user_; }
  /// "demo on port 3".
  std::string Where() const;
  /// The menu or program that is on.
  const std::string& Doing() const { return doing_; }
  bool IsAtLineStart() const { return reader_.IsAtLineStart(); }
  bool HasLostRequest() const { return reader_.HasLostRequest(); }
  bool IsInProgram() const { return phase_ == Phase::Program; }
  /// What has been sent that the client has yet to answer by a line.
  struct Owed {
    std::size_t boxes = 0;  // mode messages too
    int lists = 0;          // of screens
    int helps = 0;
  };
  Owed StillOwed() const { return {boxes_.size(), listOpen_ ? 1 : 0, helpsOpen_}; }
  /// Shows a box out of turn; false if nobody is logged in here.
  bool Notify(std::string_view title, std::string_view text);

  void Print(std::string_view text) override;
  void ShowBox(std::string_view title, std::string_view text) override;
  void AskPassword(std::string_view program) override;
  void ShowList(const PickList& list) override;
  void Deliver(Printout printout) override { waiting_ = std::move(printout); }
  void Finish() override { finished_ = true; }
  bool RunOption(std::string_view id) override;
  void LogOff() override;
  Application& Host() override { return application_; }
  int Rows() const override { return telnet_.Rows(); }
  int Broadcast(std::string_view text) override;

 private:
  enum class Phase { User, Password, Menu, Program, Ended };
  /// What follows when the user has closed a box: the program goes on, what the business rules
  /// still have to send, the menu, or nothing. A mode message counts as a box that closes at once.
  enum class Box { OfProgram, OfRules, ThenMenu, OutOfTurn };

  void FeedData(char byte);
  void Accept(char byte);
  void StartPrintout();
  void OnMarkSeen();
  void PrintOn();
  void EndPrintout();
  void OnEvent(LineReader::Event event);
  void OnLine(const std::string& line);
  void OnRequest(const std::string& text);
  void OnUser(const std::string& line);
  void OnPassword(const std::string& line);
  void OnMenuLine(const std::string& line);
  void OnBoxClosed();
  void SendRules(Reply reply);
  void SendSteps();

  void Run(const std::function<void(Program&)>& step);
  void StartProgram(std::unique_ptr<Program> program, const std::string& name);
  void EndProgram();
  void OpenMenu(const std::string& id);
  void SendMenu();
  void SendBox(Box box, std::string_view title, std::string_view text);
  void SendFrame(const std::string& frame);
  void End();

  Application& application_;
  int port_;
  TelnetServer telnet_;
  LineReader reader_;
  Phase phase_ = Phase::User;
  std::string user_;
  std::string doing_;
  int failures_ = 0;
  bool hideEcho_ = false;
  bool finished_ = false;
  std::vector<std::string> menus_;  // from the main menu to the one on
  std::unique_ptr<Program> program_;
  std::unique_ptr<Program> retired_;  // replaced by RunOption while it was running
  std::string runRequested_;          // the option whose run request was the last request
  std::deque<Box> boxes_;             // not yet closed, in the order they were sent
  std::deque<Step> steps_;            // of business rules, waiting for the return of a box
  CaseMemory memory_;                 // of the business rules of the open screen
  int helpsOpen_ = 0;                 // help windows that still owe an empty line
  bool listOpen_ = false;             // a list of a screen still owes a line
  std::optional<Printout> waiting_;   // delivered by the program that is ending
  std::optional<Printout> printout_;  // on its way; what the user does meanwhile waits in held_
  // What of it has been sent that the client has yet to say it has.
  enum class Awaited { Nothing, Opening, Lines } awaited_ = Awaited::Nothing;
  std::string held_;
  std::vector<std::string> writes_;
  bool appendable_ = false;  // the last write is plain text and may grow
};

}  // namespace quorvel::demohost

#include "demohost/HostSession.h"

#include <algorithm>
#include <utility>

#include "demohost/Application.h"
#include "demohost/Frames.h"
#include "demohost/Lists.h"
#include "demohost/Marks.h"
#include "demohost/Menus.h"
#include "demohost/Record.h"
#include "demohost/Requests.h"
#include "demohost/Screens.h"

namespace quorvel::demohost {
namespace {

constexpr int kLoginFailures = 3;
// Boxes that one user has not closed yet; more broadcasts are kept from that user.
constexpr std::size_t kBoxLimit = 20;
// What the user may type ahead during a printout; the rest is lost.
constexpr std::size_t kHeldLimit = 4096;
// A piece of a printout, about: some thirty packets.
constexpr std::size_t kPieceSize = 40'000;
constexpr std::string_view kLoginPrompt = "login: ";
constexpr std::string_view kPasswordPrompt = "Password: ";

}  // namespace

HostSession::HostSession(Application& application, int port)
    : application_(application), port_(port), doing_("login") {
  application_.sessions_.push_back(this);
}

HostSession::~HostSession() {
  program_.reset();  // frees its lock
  application_.locks_.ReleaseAll(port_);
  std::erase(application_.sessions_, this);
}

void HostSession::Start() {
  writes_.push_back(telnet_.Offers());
  Print("Meridian Trading Company - sample host\r\n\r\n");
  Print(kLoginPrompt);
}

std::string HostSession::Where() const {
  return user_ + " on port " + std::to_string(port_);
}

void HostSession::Receive(std::string_view bytes) {
  for (const char byte : bytes) {
    if (Ended()) return;
    if (const auto data = telnet_.Feed(byte)) Accept(*data);
    if (telnet_.TakeTimingMark()) OnMarkSeen();
  }
  if (const auto answers = telnet_.TakeAnswers(); !answers.empty()) {
    writes_.push_back(answers);
    appendable_ = false;
  }
}

// Nothing may be answered in the middle of a printout: an echo would stand in the report, and a
// frame would end it.
void HostSession::Accept(char byte) {
  if (!printout_) return FeedData(byte);
  if (held_.size() < kHeldLimit) held_ += byte;
  // A client that answers no timing mark: its user's Enter does as well.
  const bool typed = held_.find(kFrameMark) == std::string::npos;
  if (typed && byte == kCr) OnMarkSeen();
}

void HostSession::StartPrintout() {
  if (!waiting_ || Ended()) return;
  auto printout = std::exchange(waiting_, std::nullopt);
  SendFrame(printout->opening);
  if (!printout->next) return;
  writes_.push_back(TelnetServer::TimingMark());
  awaited_ = Awaited::Opening;
  printout_ = std::move(printout);
}

// The lines wait for the client's word that it has the opening frame, and the closing frame for its
// word that it has the lines: text that the network joins with a frame would not be in the report.
void HostSession::OnMarkSeen() {
  const Awaited had = std::exchange(awaited_, Awaited::Nothing);
  if (had == Awaited::Lines) EndPrintout();
}

void HostSession::PrintOn() {
  if (!printout_ || awaited_ != Awaited::Nothing || !writes_.empty()) return;
  std::string piece;
  bool more = true;
  while (more && piece.size() < kPieceSize) more = printout_->next(piece);
  appendable_ = false;
  if (more) {
    writes_.push_back(TelnetServer::Escape(piece));
  } else if (printout_->joined) {
    writes_.push_back(TelnetServer::Escape(piece + std::exchange(printout_->closing, {})));
    EndPrintout();
  } else {
    writes_.push_back(TelnetServer::Escape(piece) + TelnetServer::TimingMark());
    awaited_ = Awaited::Lines;
  }
}

void HostSession::EndPrintout() {
  const auto printout = std::exchange(printout_, std::nullopt);
  awaited_ = Awaited::Nothing;
  if (!printout->closing.empty()) SendFrame(printout->closing);
  for (const char byte : std::exchange(held_, {})) {
    if (Ended()) return;
    Accept(byte);
  }
}

// The first return after a box closes it, whatever has been typed: the box is modal, so nothing
// typed later can come before it. If a return was already under way when the box went out, the two
// change places, and the line ends just the same.
void HostSession::FeedData(char byte) {
  if (!boxes_.empty() && reader_.EndsLine(byte)) {
    reader_.SkipReturn();
    OnBoxClosed();
    return;
  }
  std::string echo;
  const auto event = reader_.Feed(byte, echo);
  if (hideEcho_)
    echo.erase(
        std::remove_if(echo.begin(), echo.end(), [](char c) { return c != '\r' && c != '\n'; }),
        echo.end());
  if (telnet_.EchoAllowed()) Print(echo);
  if (event == LineReader::Event::None) return;
  try {
    OnEvent(event);
  } catch (const StoreError& error) {
    PrintLine(std::string("The host's data can't be had: ") + error.what());
  }
}

void HostSession::OnEvent(LineReader::Event event) {
  // Copies: what they set off may read on.
  const auto text = reader_.Text();
  if (event == LineReader::Event::Line) OnLine(text);
  if (event == LineReader::Event::Frame) OnRequest(text);
  if (event == LineReader::Event::FrameTooLong) SendFrame(Refusal(text, "The request is too long"));
}

void HostSession::OnLine(const std::string& line) {
  if (phase_ == Phase::User) return OnUser(line);
  if (phase_ == Phase::Password) return OnPassword(line);
  // A help window may be closed at any time later; one empty line is owed for it.
  if (line.empty() && helpsOpen_ > 0) {
    --helpsOpen_;
    return;
  }
  // The choice from a list is for the screen, which has it already.
  if (std::exchange(listOpen_, false)) return;
  // What the client promised to run is run, whatever waits for a line.
  const auto promised = std::exchange(runRequested_, {});
  if (!promised.empty() && promised == Upper(Trim(line))) {
    EndProgram();
    return OnMenuLine(line);
  }
  if (phase_ == Phase::Menu) return OnMenuLine(line);
  hideEcho_ = false;
  Run([&](Program& program) { program.OnLine(*this, line); });
}

void HostSession::OnRequest(const std::string& text) {
  auto reply = Answer({application_, port_, user_, memory_}, text);
  runRequested_ = std::move(reply.runOption);
  // A text that is written is open till now: the empty line that was taken for its own was the
  // answer to a list.
  if (reply.helpChange < 0 && helpsOpen_ == 0) listOpen_ = false;
  helpsOpen_ = std::clamp(helpsOpen_ + reply.helpChange, 0, 1);
  listOpen_ = listOpen_ || reply.list;
  if (IsCaseLogic(text)) return SendRules(std::move(reply));
  SendFrame(reply.frame);
}

// A second call while the first still waits for a return: the user has run ahead of a box. The
// first is sent to its end, since one reply must not overtake another.
void HostSession::SendRules(Reply reply) {
  std::replace(boxes_.begin(), boxes_.end(), Box::OfRules, Box::OutOfTurn);
  for (const auto& step : std::exchange(steps_, {})) {
    if (step.bringsReturn && boxes_.size() >= kBoxLimit) continue;
    SendFrame(step.frame);
    if (step.bringsReturn) boxes_.push_back(Box::OutOfTurn);
  }
  steps_.assign(reply.before.begin(), reply.before.end());
  steps_.push_back({std::move(reply.frame)});
  SendSteps();
}

void HostSession::SendSteps() {
  while (!steps_.empty()) {
    const auto step = std::move(steps_.front());
    steps_.pop_front();
    if (step.bringsReturn && boxes_.size() >= kBoxLimit) continue;
    SendFrame(step.frame);
    if (!step.bringsReturn) continue;
    boxes_.push_back(Box::OfRules);
    return;
  }
}

void HostSession::OnUser(const std::string& line) {
  user_ = Trim(line);
  if (user_.empty()) return Print(kLoginPrompt);
  phase_ = Phase::Password;
  hideEcho_ = true;
  Print(kPasswordPrompt);
}

void HostSession::OnPassword(const std::string& line) {
  hideEcho_ = false;
  if (application_.Data().CheckPassword(user_, line)) {
    reader_.AllowFrames(true);
    PrintLine();
    PrintLine("Welcome, " + Where() + ".");
    menus_ = {kMainMenu};
    phase_ = Phase::Menu;
    return SendMenu();
  }
  user_.clear();
  PrintLine("Unknown user or wrong password.");
  if (++failures_ == kLoginFailures) return End();
  phase_ = Phase::User;
  Print(kLoginPrompt);
}

void HostSession::OnMenuLine(const std::string& line) {
  const auto entry = Upper(Trim(line));
  if (entry.empty()) return SendMenu();
  if (entry == "OFF") return LogOff();
  if (entry == "T") return StartProgram(MakeCommandPrompt(), "command prompt");
  if (entry == "E") {
    if (menus_.size() > 1) menus_.pop_back();
    return SendMenu();
  }
  if (RunOption(entry)) return;
  if (IsScreen(application_.Data(), entry))
    return SendBox(Box::ThenMenu, "Menus", entry + " is a screen: choose it in the menu.");
  SendBox(Box::ThenMenu, "Menus", "There is no option " + entry + ".");
}

bool HostSession::RunOption(std::string_view id) {
  auto name = Upper(id);
  if (name.size() == 2) name += ".MENU";
  if (MenuRecord(application_.Data(), name)) {
    OpenMenu(name);
    return true;
  }
  const auto option = FindOption(name);
  if (!option) return false;
  StartProgram(option->make(), name);
  return true;
}

void HostSession::OpenMenu(const std::string& id) {
  // A menu that is open already is gone back to, so the way back never grows in circles.
  menus_.erase(std::find(menus_.begin(), menus_.end(), id), menus_.end());
  menus_.push_back(id);
  if (program_) {
    finished_ = true;
  } else {
    SendMenu();
  }
}

void HostSession::StartProgram(std::unique_ptr<Program> program, const std::string& name) {
  retired_ = std::exchange(program_, std::move(program));
  phase_ = Phase::Program;
  doing_ = name;
  Run([&](Program& started) { started.OnStart(*this); });
}

// One step of the program. A failure of the data ends the program and not the session.
void HostSession::Run(const std::function<void(Program&)>& step) {
  finished_ = false;
  auto* running = program_.get();
  try {
    step(*running);
  } catch (const StoreError& error) {
    PrintLine();
    PrintLine(std::string("The program has ended: ") + error.what());
    finished_ = true;
  }
  if (program_.get() != running) {  // it has started another, which has had its own step
    retired_.reset();
    return;
  }
  if (finished_ && !Ended()) {
    EndProgram();
    SendMenu();
    StartPrintout();
  }
}

void HostSession::EndProgram() {
  program_.reset();
  std::replace(boxes_.begin(), boxes_.end(), Box::OfProgram, Box::OutOfTurn);
  hideEcho_ = false;
  phase_ = Phase::Menu;
}

void HostSession::SendMenu() {
  auto record = MenuRecord(application_.Data(), menus_.back());
  if (!record) {  // deleted while it was open
    menus_ = {kMainMenu};
    record = MenuRecord(application_.Data(), kMainMenu);
  }
  doing_ = menus_.back();
  const auto who = Where() + ", " + ShowDate(application_.Now());
  SendFrame(MenuFrame(menus_.back(), record.value_or(""), who));
}

bool HostSession::Notify(std::string_view title, std::string_view text) {
  if (phase_ == Phase::User || phase_ == Phase::Password || Ended()) return false;
  if (boxes_.size() >= kBoxLimit || printout_) return false;
  SendBox(Box::OutOfTurn, title, text);
  return true;
}

void HostSession::ShowBox(std::string_view title, std::string_view text) {
  SendBox(Box::OfProgram, title, text);
}

void HostSession::SendBox(Box box, std::string_view title, std::string_view text) {
  boxes_.push_back(box);
  SendFrame(Frame({"~MSGBOX~", title, text}));
}

void HostSession::OnBoxClosed() {
  const auto box = boxes_.front();
  boxes_.pop_front();
  if (box == Box::OfRules) SendSteps();
  if (box == Box::OfProgram) Run([&](Program& program) { program.OnLine(*this, ""); });
  if (box == Box::ThenMenu && phase_ == Phase::Menu) SendMenu();
}

void HostSession::AskPassword(std::string_view program) {
  hideEcho_ = true;
  SendFrame(Frame({"~GETPASSWORD~", program}));
}

void HostSession::ShowList(const PickList& list) {
  SendFrame(ListFrame(list));
}

int HostSession::Broadcast(std::string_view text) {
  return application_.Broadcast(*this, text);
}

void HostSession::LogOff() {
  PrintLine("Good bye.");
  End();
}

void HostSession::End() {
  phase_ = Phase::Ended;
  doing_.clear();
  application_.locks_.ReleaseAll(port_);
}

void HostSession::Print(std::string_view text) {
  if (text.empty()) return;
  if (!appendable_) writes_.emplace_back();
  appendable_ = true;
  writes_.back() += TelnetServer::Escape(text);
}

void HostSession::SendFrame(const std::string& frame) {
  writes_.push_back(TelnetServer::Escape(frame));
  appendable_ = false;
}

std::vector<std::string> HostSession::TakeWrites(bool more) {
  if (more) PrintOn();
  appendable_ = false;
  return std::exchange(writes_, {});
}

std::string HostSession::TakeOutput() {
  std::string output;
  for (auto writes = TakeWrites(); !writes.empty(); writes = TakeWrites()) {
    for (const auto& write : writes) output += write;
  }
  return output;
}

}  // namespace quorvel::demohost

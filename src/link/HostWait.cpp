#include "link/HostWait.h"

#include <algorithm>
#include <utility>

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "link/TelnetControl.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

bool IsLinkUp() {
  const TelnetControl* telnet = Ask().LoadedTelnet();
  return telnet && telnet->State() == TelnetControl::kConnected;
}

HostWait* UnansweredWait(std::string_view pendingOp) {
  const HostWaits& waits = Session().Waits;
  const auto open = std::find_if(waits.rbegin(), waits.rend(), [&](const HostWait* wait) {
    return !wait->IsAnswered() && wait->PendingOp() == pendingOp;
  });
  return open == waits.rend() ? nullptr : *open;
}

std::string AwaitedBeside() {
  const SessionState& s = Session();
  const auto open = std::find_if(s.Waits.rbegin(), s.Waits.rend(), [](const HostWait* wait) {
    return !wait->IsAnswered() && wait->PendingOp() != kReturnCase && !wait->PendingOp().empty();
  });
  if (open != s.Waits.rend()) return (*open)->PendingOp();
  return s.Run.AwaitsReply() ? "RunOption" : "";
}

void ClearPendingOp() {
  Session().PendingOp = Session().Run.AwaitsReply() ? "RunOption" : "";
}

void ResumeAwaiting() {
  Session().PendingOp = AwaitedBeside();
}

bool IsWaiting(const Window& window) {
  const HostWaits& waits = Session().Waits;
  return std::any_of(waits.begin(), waits.end(),
                     [&window](const HostWait* wait) { return wait->IsOf(window); });
}

// The host answers in the order in which it was asked.
bool SettleGivenUp(bool isHookReply) {
  SessionState& s = Session();
  if (s.GivenUp.empty() || (s.GivenUp.front() == kReturnCase) != isHookReply) return false;
  const std::string name = s.GivenUp.front();
  s.GivenUp.erase(s.GivenUp.begin());
  if (s.PendingOp == name && !UnansweredWait(name)) s.PendingOp.clear();
  return true;
}

void WaitForTurn() {
  if (!desktop().RunningWindow()) return;
  const auto earlier = [] {
    const std::string& pending = Session().PendingOp;
    if (Session().Run.AwaitsReply()) return pending == "RunOption" || pending == kCapture;
    return !pending.empty() && UnansweredWait(pending) != nullptr;
  };
  if (!earlier()) return;
  HostWait turn("");
  turn.Run(earlier);
}

HostWait::HostWait(std::string pendingOp) : pendingOp_(std::move(pendingOp)) {
  Session().Waits.push_back(this);
}

HostWait::~HostWait() {
  std::erase(Session().Waits, this);
}

void HostWait::Run(const std::function<bool()>& waiting) {
  Desktop& desk = desktop();
  if (!IsLinkUp() || desk.IsRunningStale()) throw QuietEnd{};
  const std::shared_ptr<Window> owner = desk.RunningWindow();
  owner_ = owner;
  const unsigned session = desk.Generation();
  const bool owned = owner && owner->IsLoaded();
  const auto over = [&] { return desk.IsRunningStale() || (owned && !owner->IsLoaded()); };
  desk.HoldInput();
  desk.WaitWhile([&] { return !answered_ && waiting() && !over(); });
  if (over()) {
    const bool loggedOff = desk.IsRunningStale() && session == desk.Generation();
    if (!answered_ && loggedOff) GiveUp();
    throw QuietEnd{};
  }
  if (answered_) PutReplyBack();
}

// The host may answer all the same before it comes to the log-off. An empty name waits for none.
void HostWait::GiveUp() const {
  if (!pendingOp_.empty() && IsLinkUp()) Session().GivenUp.push_back(pendingOp_);
}

void HostWait::TakeReply() {
  const SessionState& s = Session();
  answered_ = true;
  reply_ = {s.HostMessage, s.ReplyRecord, s.ReadMessage, s.OpenMessage,
            s.CaseHook,    s.CaseData,    s.ReadFailed,  s.OpenFailed};
}

void HostWait::PutReplyBack() const {
  SessionState& s = Session();
  s.HostMessage = reply_.HostMessage;
  s.ReplyRecord = reply_.ReplyRecord;
  s.ReadMessage = reply_.ReadMessage;
  s.OpenMessage = reply_.OpenMessage;
  s.CaseHook = reply_.CaseHook;
  s.CaseData = reply_.CaseData;
  s.ReadFailed = reply_.ReadFailed;
  s.OpenFailed = reply_.OpenFailed;
}

void HostQuestion::Ask() {
  open_ = true;
  session_ = desktop().Generation();
}

void HostQuestion::Answer(const std::string& text) {
  if (!std::exchange(open_, false) || session_ != desktop().Generation()) return;
  SendToHost(text + CR);
}

}  // namespace quorvel

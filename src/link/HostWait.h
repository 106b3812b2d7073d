#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

class Window;

// PendingOp when the reply to a hook has come, and while a report is captured.
inline constexpr char kReturnCase[] = "ReturnCase";
inline constexpr char kCapture[] = "Capture";

// A wait for the host: the one place where the program waits for it. Serves events, without a time
// limit, until the reply has come.
//
// Every wait belongs to its session and to the window whose event began it; when the window is
// gone, the user has logged off, or the next session has connected, it ends by QuietEnd. The link's
// end alone ends none. Until the event is over, what the user does in the windows that are open is
// kept for its end. QuietEnd at once where nothing can come: without a link, or for a session that
// is over.
//
// A reply may come while boxes and windows that have opened since are on the stack above the wait,
// and they may ask the host as well: so each wait keeps its own reply until it goes on.
class HostWait {
 public:
  // `pendingOp` names what is waited for.
  explicit HostWait(std::string pendingOp);
  ~HostWait();
  HostWait(const HostWait&) = delete;
  HostWait& operator=(const HostWait&) = delete;

  // Waits while `waiting` is true and the reply has not come. Then the session's fields of a reply
  // are as this wait's reply has left them.
  void Run(const std::function<bool()>& waiting);

  const std::string& PendingOp() const { return pendingOp_; }
  bool IsOf(const Window& window) const { return owner_.lock().get() == &window; }
  bool IsAnswered() const { return answered_; }
  // The reply has come: takes down what it has left in the session.
  void TakeReply();

 private:
  struct Reply {
    std::string HostMessage, ReplyRecord, ReadMessage, OpenMessage, CaseHook, CaseData;
    std::int16_t ReadFailed = 0, OpenFailed = 0;
  };
  void PutReplyBack() const;
  void GiveUp() const;

  const std::string pendingOp_;
  std::weak_ptr<Window> owner_;
  bool answered_ = false;
  Reply reply_;
};

// The waits of the session, one inside the other.
using HostWaits = std::vector<HostWait*>;

// The innermost wait of this name without a reply; nullptr for none.
HostWait* UnansweredWait(std::string_view pendingOp);

// Whether an event of this window waits for the host.
bool IsWaiting(const Window& window);

// What a reply is a reply to, where PendingOp names something else that goes on meanwhile (the
// capture of a report); empty where nothing is waited for.
std::string AwaitedBeside();

// Empties PendingOp, but for a run whose reply is still to come: it stands there again.
void ClearPendingOp();

// What had taken the place of PendingOp for a while is over: what is waited for still stands there
// again.
void ResumeAwaiting();

// Whether the frame that has come is the reply to a wait that a log-off has ended; then that is
// settled, and nobody is to see it.
bool SettleGivenUp(bool isHookReply);

// A request of a window waits for its turn: until what was asked before has been answered.
void WaitForTurn();

// Whether the link is up.
bool IsLinkUp();

// A question of the host that a window shows: it is answered once, and in the session that asked.
class HostQuestion {
 public:
  // The host asks, now.
  void Ask();
  // Sends the text and CR; nothing where it has been answered, or its session is over.
  void Answer(const std::string& text);

 private:
  bool open_ = false;
  unsigned session_ = 0;
};

}  // namespace quorvel

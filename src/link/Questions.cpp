#include "link/Questions.h"

#include <utility>

#include "link/Marks.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// Questions of one kind that may wait. A host that asks more is answered by empty lines, so that it
// goes on.
constexpr std::size_t kMostWaiting = 100;

}  // namespace

void Questions::Put(const std::function<void()>& ask) {
  if (!open_) return ask();
  if (waiting_.size() < kMostWaiting) {
    waiting_.push_back({Session().HostMessage, ask});
  } else {
    SendToHost(std::string(1, CR));
  }
}

// Those behind it keep waiting until the event comes.
void Questions::Answered() {
  if (waiting_.empty() || !HasDesktop()) {
    open_ = false;
    return;
  }
  desktop().Post(EventKind::Receive, [this] { AskNext(); });
}

void Questions::AskNext() {
  open_ = false;
  if (waiting_.empty()) return;
  const Question next = std::move(waiting_.front());
  waiting_.pop_front();
  Session().HostMessage = next.message;
  next.ask();
}

}  // namespace quorvel

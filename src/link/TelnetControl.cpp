#include "link/TelnetControl.h"

#include "link/Receiver.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// Characters that may wait for the receiver before the network is asked to hold back, and how few
// there must be before it may go on. A host that prints while a box is open meets these.
constexpr std::size_t kHoldBackAbove = std::size_t{4} * 1024 * 1024;
constexpr std::size_t kGoOnBelow = std::size_t{1024} * 1024;

}  // namespace

TelnetControl::TelnetControl(Window& owner)
    : owner_(owner), telnet_(desktop().backend().MakeTransport()) {
  telnet_.onConnect = [this] {
    desktop().Post(EventKind::Receive, [this, session = session_, keep = owner_.weak_from_this()] {
      const auto alive = keep.lock();
      if (alive && session == session_ && ConnectEvent) ConnectEvent();
    });
  };
  telnet_.onData = [this](std::string_view data) {
    blocks_.Push(data);
    if (blocks_.Size() > kHoldBackAbove) telnet_.SetReading(false);
    PostNextBlock();
  };
  telnet_.onClosed = [this] {
    ended_ = true;
    PostNextBlock();
  };
  telnet_.onOption = [this](int command, int option) {
    if (OptionEvent) OptionEvent(command, option);
  };
  telnet_.onFailed = [this](const std::string& where, const std::string& reason) {
    desktop().Post(EventKind::Receive,
                   [this, where, reason, session = session_, keep = owner_.weak_from_this()] {
                     const auto alive = keep.lock();
                     if (alive && session == session_ && FailEvent) FailEvent(where, reason);
                   });
  };
}

void TelnetControl::Connect(const std::string& host) {
  if (telnet_.State() != Telnet::Connection::Closed) return;
  ++session_;
  blocks_.Clear();
  ended_ = false;
  telnet_.Connect(host);
}

void TelnetControl::Close() {
  const bool wasUp = State() == kConnected;
  ++session_;
  telnet_.Close();
  blocks_.Clear();
  if (wasUp) PostEnd();
}

void TelnetControl::OptionReply(int command, int option, const std::string& text) {
  telnet_.OptionReply(command, option, text);
}

void TelnetControl::PostNextBlock() {
  if (posted_ || (blocks_.IsEmpty() && !ended_)) return;
  posted_ = true;
  desktop().Post(EventKind::Receive, [this, keep = owner_.weak_from_this()] {
    if (const auto alive = keep.lock()) DeliverBlock();
  });
}

void TelnetControl::DeliverBlock() {
  posted_ = false;
  std::string block;
  if (!blocks_.IsEmpty()) {
    const auto ahead = Session().CutAtFrames == 1 ? BlockQueue::TextAhead::Alone
                                                  : BlockQueue::TextAhead::WithTheFrame;
    block = blocks_.Take(Session().FrameStart != 0, FrameMark(), ahead);
    if (blocks_.Size() < kGoOnBelow) telnet_.SetReading(true);
  } else if (ended_) {
    ended_ = false;
  } else {
    return;  // closed from this side meanwhile
  }
  PostNextBlock();  // ahead of the handling: a wait in there brings it in
  if (ReceiveEvent) ReceiveEvent(block);
}

// The event holds the window: its session's end is told even if the window is unloaded by then.
void TelnetControl::PostEnd() {
  ended_ = false;
  desktop().Post(EventKind::Receive, [this, keep = owner_.weak_from_this().lock()] {
    std::string nothing;
    if (keep && ReceiveEvent) ReceiveEvent(nothing);
  });
}

}  // namespace quorvel

#include "app/sim/HostEnd.h"

#include <utility>

#include "app/sim/Random.h"
#include "demohost/Frames.h"
#include "demohost/Requests.h"

namespace quorvel::sim {
namespace {

// Many, or so few that screens are opened and records saved.
constexpr int kRefusedOfHundred[] = {30, 5};
// A printout that is longer than this goes on when the client has answered; none that operators
// begin is.
constexpr std::size_t kMostAtOnce = 2'000'000;

// The refusals that have another form than Refusal gives them.
std::string RefusalOf(const std::string& text, const std::string& reason, std::uint64_t number) {
  const std::vector<std::string> fields = FieldsOf(text);
  if (fields[0] == "CASELOGIC" && fields.size() > 7) {
    return demohost::Frame({"~CASELOGIC~", fields[4], fields[5], fields[6], "Error"});
  }
  if (fields[0] == "SYLIST" || fields[0] == "SYLOCATR") {
    if (number % 3 == 0) return demohost::Frame({"~MSGBOX~", "Lists", reason});
    if (number % 3 == 1) return demohost::Frame({"~LISTBOX~", reason, "0,0,0,0"});
  }
  return demohost::Refusal(text, reason);
}

}  // namespace

HostEnd::HostEnd(demohost::Application& application, int port, const Story& story,
                 OnRequest onRequest)
    : session_(application, port), story_(story), onRequest_(std::move(onRequest)) {}

void HostEnd::Receive(std::string_view bytes) {
  for (const char byte : bytes) {
    if (session_.Ended()) return;  // it reads nothing behind the log-off
    heldBack_ += byte;
    const auto data = data_.Feed(byte);
    if (!data) {
      if (!requests_.IsInside()) session_.Receive(std::exchange(heldBack_, {}));
      continue;
    }
    const auto request = requests_.Feed(*data);
    if (request) TakeRequest(*request);
    if (!requests_.IsInside() && !heldBack_.empty()) {
      session_.Receive(std::exchange(heldBack_, {}));
    }
  }
}

void HostEnd::TakeRequest(const std::string& text) {
  // A return of the client may have closed a box of the host in place of ending a typed line.
  lost_ = lost_ || !session_.IsAtLineStart();
  if (Refuses(text)) {
    heldBack_.clear();
    // What the session has to say was said before.
    for (std::string& write : session_.TakeWrites()) refusals_.push_back(std::move(write));
    refusals_.push_back(
        RefusalOf(text, "The host refuses request " + std::to_string(count_), count_));
    return;
  }
  onRequest_(text, session_.Port());
}

bool HostEnd::Refuses(const std::string& text) {
  ++count_;
  if (RowOf(story_.kind).host != HostKind::Errors || text.empty()) return false;
  // Without its parameters a screen has fields without rules, and no good end.
  if (text.starts_with("SYBPARM")) return false;
  Random random(story_.seed * 1000 + count_);
  random.Next();
  return random.Chance(kRefusedOfHundred[story_.seed % 2]);
}

std::vector<std::string> HostEnd::TakeWrites() {
  std::vector<std::string> all = std::exchange(refusals_, {});
  std::size_t size = 0;
  while (size < kMostAtOnce) {
    const std::vector<std::string> writes = session_.TakeWrites();
    if (writes.empty()) break;
    for (const std::string& write : writes) size += write.size();
    all.insert(all.end(), writes.begin(), writes.end());
  }
  return all;
}

}  // namespace quorvel::sim

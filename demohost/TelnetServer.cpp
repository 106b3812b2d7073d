#include "demohost/TelnetServer.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace quorvel::demohost {
namespace {

enum Command { kSe = 240, kSb = 250, kWill = 251, kWont = 252, kDo = 253, kDont = 254, kIac = 255 };
enum Option { kEcho = 1, kSuppressGoAhead = 3, kType = 24, kWindowSize = 31, kTimingMark = 6 };

// The longest sub-negotiation that says anything to this host is a terminal type; RFC 1091 names
// have at most 40 characters.
constexpr std::size_t kSubLimit = 64;

std::string Bytes(std::initializer_list<int> codes) {
  std::string text;
  for (const int code : codes) text += static_cast<char>(code);
  return text;
}

int Code(char c) {
  return static_cast<unsigned char>(c);
}

}  // namespace

std::string TelnetServer::Offers() const {
  return Bytes({kIac, kDo, kType, kIac, kDo, kWindowSize, kIac, kWill, kEcho, kIac, kWill,
                kSuppressGoAhead});
}

std::optional<char> TelnetServer::Feed(char byte) {
  const int code = Code(byte);
  switch (state_) {
    case State::Data:
      if (code != kIac) return byte;
      state_ = State::Command;
      break;
    case State::Command:
      state_ = State::Data;
      if (code == kIac) return byte;
      if (code == kSb) state_ = State::SubOption;
      if (code >= kWill && code <= kDont) {
        command_ = code;
        state_ = State::Option;
      }
      break;
    case State::Option:
      state_ = State::Data;
      Negotiate(command_, code);
      break;
    case State::SubOption:
      subOption_ = code;
      sub_.clear();
      state_ = State::Sub;
      break;
    case State::Sub:
      if (code == kIac) {
        state_ = State::SubCommand;
      } else if (sub_.size() < kSubLimit) {
        sub_ += byte;
      }
      break;
    case State::SubCommand:
      state_ = code == kIac ? State::Sub : State::Data;
      if (code == kIac && sub_.size() < kSubLimit) sub_ += byte;
      if (code == kSe) EndSub();
      break;
  }
  return std::nullopt;
}

std::string TelnetServer::TimingMark() {
  return Bytes({kIac, kDo, kTimingMark});
}

std::string TelnetServer::TakeAnswers() {
  return std::exchange(answers_, {});
}

// What the host asked or offered itself needs no answer; all else is refused. The two questions
// are put once, so that a client which repeats itself gets no endless conversation.
void TelnetServer::Negotiate(int command, int option) {
  if (option == kTimingMark && (command == kWill || command == kWont)) {
    markSeen_ = true;
    return;
  }
  const bool offered = option == kEcho || option == kSuppressGoAhead;
  const bool asked = option == kType || option == kWindowSize;
  if (command == kDo && !offered) answers_ += Bytes({kIac, kWont, option});
  if (command == kWill && !asked) answers_ += Bytes({kIac, kDont, option});
  if (option == kEcho && command == kDont) echo_ = false;
  if (option == kEcho && command == kDo) echo_ = true;
  if (command == kWill && option == kType && !std::exchange(askedType_, true))
    answers_ += Bytes({kIac, kSb, kType, 1, kIac, kSe});
  // RFC 1073 has the client send its size unasked. A client that waits to be asked gets the same
  // question as for its type; others overlook it.
  if (command == kWill && option == kWindowSize && !std::exchange(askedSize_, true))
    answers_ += Bytes({kIac, kSb, kWindowSize, 1, kIac, kSe});
}

void TelnetServer::EndSub() {
  if (subOption_ == kType && sub_.size() > 1 && sub_[0] == 0) terminalType_ = sub_.substr(1);
  if (subOption_ == kWindowSize && sub_.size() >= 4) {
    columns_ = std::clamp(Code(sub_[0]) * 256 + Code(sub_[1]), 20, 250);
    rows_ = std::clamp(Code(sub_[2]) * 256 + Code(sub_[3]), 5, 200);
  }
}

std::string TelnetServer::Escape(std::string_view data) {
  std::string wire;
  wire.reserve(data.size());
  for (const char c : data) wire.append(Code(c) == kIac ? 2 : 1, c);
  return wire;
}

}  // namespace quorvel::demohost

#include "demohost/LineReader.h"

#include <utility>

#include "demohost/Marks.h"

namespace quorvel::demohost {
namespace {

constexpr char kBell = '\a';
constexpr char kBackspace = '\b';
constexpr char kEscape = '\x1B';

// Characters that may stand in a typed line: printable ones of Windows-1252. The codes 128 to 159
// would act as control characters when echoed to a VT220, and 250 and above are the marks.
bool Printable(char c) {
  const auto code = static_cast<unsigned char>(c);
  return (code >= 32 && code < 127) || (code >= 160 && code < 250);
}

}  // namespace

bool LineReader::EndsLine(char byte) const {
  const bool typing = state_ == State::Typing || state_ == State::Escape ||
                      state_ == State::Sequence || state_ == State::OneMore;
  return typing && byte == kCr;
}

LineReader::Event LineReader::Feed(char byte, std::string& echo) {
  // A client may end its line with CR, CR LF or CR NUL (RFC 854).
  if (std::exchange(afterReturn_, false) && (byte == kLf || byte == '\0')) return Event::None;
  switch (state_) {
    case State::Typing:
      return FeedTyping(byte, echo);
    // Function and cursor keys (ECMA-48 control sequences, SS3) say nothing to a line of text.
    case State::Escape:
      state_ = byte == '[' ? State::Sequence : byte == 'O' ? State::OneMore : State::Typing;
      return byte == kCr ? FeedTyping(byte, echo) : Event::None;
    case State::Sequence:
      if ((byte >= 0x40 && byte < 0x7F) || byte == kCr) state_ = State::Typing;
      return byte == kCr ? FeedTyping(byte, echo) : Event::None;
    case State::OneMore:
      state_ = State::Typing;
      return byte == kCr ? FeedTyping(byte, echo) : Event::None;
    default:
      return FeedFrame(byte, echo);
  }
}

LineReader::Event LineReader::FeedTyping(char byte, std::string& echo) {
  const bool verb = byte >= 'A' && byte <= 'Z';
  if (std::exchange(afterDelete_, false) && verb && framesAllowed_) lostRequest_ = true;
  if (byte == kCr) {
    afterReturn_ = true;
    echo += "\r\n";
    return Finish(Event::Line);
  }
  if (byte == kFrameMark && line_.empty() && framesAllowed_) {
    state_ = State::Frame;
  } else if (byte == kEscape) {
    state_ = State::Escape;
  } else if (byte == kBackspace || byte == kFrameMark) {
    if (line_.empty()) return Event::None;
    line_.pop_back();
    afterDelete_ = byte == kFrameMark;
    echo += "\b \b";
  } else if (Printable(byte)) {
    if (line_.size() == kLineLimit) {
      echo += kBell;
    } else {
      line_ += byte;
      echo += byte;
    }
  }
  return Event::None;
}

LineReader::Event LineReader::FeedFrame(char byte, std::string& echo) {
  if (state_ == State::FrameTooLong) {
    if (byte != kCr) return Event::None;
    afterReturn_ = true;
    return Finish(Event::FrameTooLong);
  }
  if (state_ == State::FrameClosed) {
    if (byte == kCr) {
      afterReturn_ = true;
      return Finish(Event::Frame);
    }
    // No return behind the mark: it was the delete key, pressed once more.
    if (!line_.empty()) line_.pop_back();
    BackToTyping();
    return FeedTyping(byte, echo);
  }
  // A request begins with its verb. Anything else: the mark was the delete key on an empty line.
  const bool verb = byte >= 'A' && byte <= 'Z';
  if (byte == kCr || (line_.empty() && !verb)) {
    BackToTyping();
    return FeedTyping(byte, echo);
  }
  if (byte == kFrameMark) {
    state_ = State::FrameClosed;
  } else if (line_.size() == kFrameLimit) {
    state_ = State::FrameTooLong;
  } else {
    line_ += byte;
  }
  return Event::None;
}

LineReader::Event LineReader::Finish(Event event) {
  text_ = std::exchange(line_, {});
  state_ = State::Typing;
  return event;
}

void LineReader::BackToTyping() {
  state_ = State::Typing;
  std::string kept;
  for (const char c : line_) {
    if (Printable(c) && kept.size() < kLineLimit) kept += c;
  }
  line_ = std::move(kept);
}

}  // namespace quorvel::demohost

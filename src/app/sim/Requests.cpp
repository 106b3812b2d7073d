#include "app/sim/Requests.h"

#include "demohost/Marks.h"
#include "demohost/Record.h"

namespace quorvel::sim {

using demohost::kCr;
using demohost::kFrameMark;

std::optional<std::string> RequestReader::Feed(char byte) {
  switch (state_) {
    case State::LineStart:
    case State::Line:
      if (state_ == State::LineStart && byte == kFrameMark) {
        state_ = State::Marked;
      } else {
        state_ = byte == kCr ? State::LineStart : State::Line;
      }
      return std::nullopt;
    case State::Marked:
      if (byte == kFrameMark) return std::nullopt;  // the delete key once more
      text_.assign(1, byte);
      state_ = byte >= 'A' && byte <= 'Z' ? State::Request
               : byte == kCr              ? State::LineStart
                                          : State::Line;
      return std::nullopt;
    case State::Request:
      if (byte == kFrameMark) {
        state_ = State::Closed;
      } else if (byte == kCr) {
        state_ = State::LineStart;  // a typed line, behind the delete key
      } else {
        text_ += byte;
      }
      return std::nullopt;
    case State::Closed:
      state_ = byte == kCr ? State::LineStart : State::Line;
      if (byte == kCr) return text_;
      return std::nullopt;
  }
  return std::nullopt;
}

std::optional<std::string> FrameReader::Feed(char byte) {
  if (byte != kFrameMark) {
    if (inside_) text_ += byte;
    return std::nullopt;
  }
  inside_ = !inside_;
  if (!inside_) return text_;
  text_.clear();
  return std::nullopt;
}

std::vector<std::string> FieldsOf(const std::string& text) {
  return demohost::Split(text, demohost::kFs);
}

std::string Readable(std::string_view bytes, std::size_t most) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char byte : bytes.substr(0, most)) {
    const auto code = static_cast<unsigned char>(byte);
    if (code >= 32 && code < 127) {
      text += byte;
    } else {
      text += '<';
      text += kDigits[code / 16U];
      text += kDigits[code % 16U];
      text += '>';
    }
  }
  if (bytes.size() > most) text += "... (" + std::to_string(bytes.size()) + ")";
  return text;
}

}  // namespace quorvel::sim

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "demohost/TelnetServer.h"

namespace quorvel::sim {

// The data of a telnet stream: what is left without the commands.
class DataBytes {
 public:
  std::optional<char> Feed(char byte) {
    const auto data = telnet_.Feed(byte);
    if (!data) telnet_.TakeAnswers();
    return data;
  }

 private:
  demohost::TelnetServer telnet_;
};

// Finds the client's requests in what it sends: a mark at the beginning of a line, a capital, then
// all up to the next mark and CR.
class RequestReader {
 public:
  // The text between the marks of a request that this byte completes.
  std::optional<std::string> Feed(char byte);
  // Whether a request has begun and not ended.
  bool IsInside() const {
    return state_ == State::Marked || state_ == State::Request || state_ == State::Closed;
  }
  // A line of text has begun and not ended.
  bool IsInText() const { return state_ == State::Line; }

 private:
  enum class State { LineStart, Line, Marked, Request, Closed };
  State state_ = State::LineStart;
  std::string text_;
};

// Finds the frames of the host in what the client gets.
class FrameReader {
 public:
  std::optional<std::string> Feed(char byte);
  bool IsInside() const { return inside_; }

 private:
  bool inside_ = false;
  std::string text_;
};

std::vector<std::string> FieldsOf(const std::string& text);

// One line of text of bytes: what can't be read as <7F>.
std::string Readable(std::string_view bytes, std::size_t most = 160);

}  // namespace quorvel::sim

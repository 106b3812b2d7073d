// Makes lines and frames of what the client types, one byte at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvel::demohost {

class LineReader {
 public:
  /// A typed line: far more than any prompt of the host asks for.
  static constexpr std::size_t kLineLimit = 512;
  /// A request, without its marks: a record of 4,000 characters with names is far below it.
  static constexpr std::size_t kFrameLimit = std::size_t{64} * 1024;

  enum class Event { None, Line, Frame, FrameTooLong };

  /// Takes one byte of data. After Line or Frame, Text() is what was read; after FrameTooLong its
  /// beginning. What is to be shown to the user is added to `echo`.
  Event Feed(char byte, std::string& echo);
  const std::string& Text() const { return text_; }

  /// True if `byte` would end a typed line (and not a frame, nor the pair of an earlier CR).
  bool EndsLine(char byte) const;
  /// False while a line or a request has begun; what comes next could not begin a request.
  bool IsAtLineStart() const { return state_ == State::Typing && line_.empty(); }
  /// True once a request has come behind typed text, where the mark is the delete key and the rest
  /// more text: the client can't know that a line is half typed.
  bool HasLostRequest() const { return lostRequest_; }
  /// Takes that CR without ending the line: what has been typed so far stays.
  void SkipReturn() {
    state_ = State::Typing;
    afterReturn_ = true;
  }

  /// Without frames a frame mark is only the delete key; so at the login prompts.
  void AllowFrames(bool allow) { framesAllowed_ = allow; }

 private:
  enum class State { Typing, Escape, Sequence, OneMore, Frame, FrameClosed, FrameTooLong };

  Event FeedTyping(char byte, std::string& echo);
  Event FeedFrame(char byte, std::string& echo);
  Event Finish(Event event);
  void BackToTyping();

  State state_ = State::Typing;
  bool framesAllowed_ = false;
  bool afterReturn_ = false;
  bool afterDelete_ = false;  // of a character that was there, by the frame mark
  bool lostRequest_ = false;
  std::string line_;
  std::string text_;
};

}  // namespace quorvel::demohost

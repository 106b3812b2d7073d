#pragma once

#include <deque>
#include <string>
#include <string_view>

namespace quorvel {

// The blocks that wait for the receiver. Each read of the network is cut so that no frame is lost
// to the network's joining of writes: a block has at most kLongestBlock characters and never holds
// the opening mark of a second frame. What follows a closing mark stays in the block, where the
// receiver drops it, up to the next opening mark or the block's greatest length.
class BlockQueue {
 public:
  // Longest block handed over; positions in it fit 16 bits with room to spare.
  static constexpr std::size_t kLongestBlock = 16384;

  void Push(std::string_view read);
  bool IsEmpty() const { return reads_.empty(); }
  std::size_t Size() const { return size_; }  // characters waiting
  void Clear();

  // What stands ahead of a frame in the same read: part of the frame's block, or one of its own.
  enum class TextAhead { WithTheFrame, Alone };

  // The next block. `frameOpen` tells, at this moment, whether the receiver is inside a frame;
  // `mark` is the frame mark in force. The queue must not be empty.
  std::string Take(bool frameOpen, char mark, TextAhead ahead = TextAhead::WithTheFrame);

 private:
  std::deque<std::string> reads_;
  std::size_t at_ = 0;  // where the next block begins in the first read
  std::size_t size_ = 0;
};

}  // namespace quorvel

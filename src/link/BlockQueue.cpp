#include "link/BlockQueue.h"

#include <algorithm>

namespace quorvel {
namespace {

// Length of the block that begins `text`.
std::size_t BlockLength(std::string_view text, bool frameOpen, char mark,
                        BlockQueue::TextAhead ahead) {
  text = text.substr(0, BlockQueue::kLongestBlock);
  std::size_t from = 0;
  if (!frameOpen) {
    const auto opening = text.find(mark);
    if (opening == std::string_view::npos) return text.size();
    if (opening > 0 && ahead == BlockQueue::TextAhead::Alone) return opening;
    from = opening + 1;
  }
  const auto closing = text.find(mark, from);
  if (closing == std::string_view::npos) return text.size();
  // What the receiver drops behind a closed frame ends at the next opening mark, and with the
  // block: a network that joins very much must not cost the host all of it.
  return std::min(text.find(mark, closing + 1), text.size());
}

}  // namespace

void BlockQueue::Push(std::string_view read) {
  if (read.empty()) return;
  reads_.emplace_back(read);
  size_ += read.size();
}

void BlockQueue::Clear() {
  reads_.clear();
  at_ = 0;
  size_ = 0;
}

std::string BlockQueue::Take(bool frameOpen, char mark, TextAhead ahead) {
  const std::string& read = reads_.front();
  const std::string_view left = std::string_view(read).substr(at_);
  std::string block(left.substr(0, BlockLength(left, frameOpen, mark, ahead)));
  at_ += block.size();
  size_ -= block.size();
  if (at_ >= read.size()) {
    reads_.pop_front();
    at_ = 0;
  }
  return block;
}

}  // namespace quorvel

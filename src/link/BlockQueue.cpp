#include "link/BlockQueue.h"

#include <algorithm>

namespace quorvel {
namespace {

struct Cut {
  std::size_t block;  // characters of the block
  std::size_t used;   // characters of the read that it stands for: dropped ones count
};

// Where the block that begins `text` ends.
Cut FindCut(std::string_view text, bool frameOpen, char mark, BlockQueue::TextAhead ahead) {
  const std::size_t longest = std::min(text.size(), BlockQueue::kLongestBlock);
  std::size_t from = 0;
  if (!frameOpen) {
    const auto opening = text.substr(0, longest).find(mark);
    if (opening == std::string_view::npos) return {longest, longest};
    if (opening > 0 && ahead == BlockQueue::TextAhead::Alone) return {opening, opening};
    from = opening + 1;
  }
  const auto closing = text.substr(0, longest).find(mark, from);
  if (closing == std::string_view::npos) return {longest, longest};
  // Behind a closed frame everything up to the next opening mark would be dropped by the receiver;
  // what does not fit into the block is dropped here.
  const std::size_t next = std::min(text.find(mark, closing + 1), text.size());
  return {std::min(next, longest), next};
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
  const Cut cut = FindCut(std::string_view(read).substr(at_), frameOpen, mark, ahead);
  std::string block = read.substr(at_, cut.block);
  at_ += cut.used;
  size_ -= cut.used;
  if (at_ >= read.size()) {
    reads_.pop_front();
    at_ = 0;
  }
  return block;
}

}  // namespace quorvel

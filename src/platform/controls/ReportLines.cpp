#include "platform/controls/ReportLines.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "platform/RuntimeError.h"

namespace quorvel {

void ReportLines::Reserve(std::size_t bytes) {
  if (bytes <= room_) return;
  if (bytes > kMostBytes) throw RuntimeError(Failure::OutOfMemory);
  // Not filled with zeros first: a report is written once.
  std::unique_ptr<char[]> text(new (std::nothrow) char[bytes]);
  if (!text) throw RuntimeError(Failure::OutOfMemory);
  if (size_ > 0) std::memcpy(text.get(), text_.get(), size_);
  text_ = std::move(text);
  room_ = bytes;
}

std::span<char> ReportLines::Room(std::size_t bytes) {
  if (room_ - size_ < bytes) {
    Reserve(std::max(size_ + bytes, std::min(2 * room_, kMostBytes)));
  }
  return {text_.get() + size_, room_ - size_};
}

void ReportLines::Took(std::size_t bytes) {
  size_ += bytes;
  Index(false);
}

void ReportLines::Finish() {
  Index(true);
  if (end_ < size_) AddLine(end_, size_ - end_);
  end_ = size_;
}

// Finds the lines behind end_ that have their end. A CR at the very end may be half of a CR LF: it
// waits for the next piece.
void ReportLines::Index(bool last) {
  const char* const text = text_.get();
  while (seen_ < size_) {
    const void* found = std::memchr(text + seen_, '\r', size_ - seen_);
    seen_ = found ? static_cast<std::size_t>(static_cast<const char*>(found) - text) : size_;
    if (!found || (seen_ + 1 == size_ && !last)) return;
    AddLine(end_, seen_ - end_);
    end_ = seen_ + 1;
    if (end_ < size_ && text[end_] == '\n') ++end_;
    seen_ = end_;
  }
}

void ReportLines::AddLine(std::size_t start, std::size_t length) {
  if (starts_.size() >= kMostLines) throw RuntimeError(Failure::OutOfMemory);
  starts_.push_back(static_cast<std::uint32_t>(start));
  longest_ = std::max(longest_, length);
}

void ReportLines::Clear() {
  *this = ReportLines();
}

std::string_view ReportLines::At(std::size_t index) const {
  if (index >= starts_.size()) throw RuntimeError(Failure::InvalidCall);
  const std::size_t start = starts_[index];
  const std::size_t end = index + 1 < starts_.size() ? starts_[index + 1] : end_;
  std::string_view line(text_.get() + start, end - start);
  if (line.ends_with("\r\n")) {
    line.remove_suffix(2);
  } else if (line.ends_with('\r')) {
    line.remove_suffix(1);
  }
  return line;
}

std::size_t ReportLines::LineAt(std::size_t at) const {
  const auto next = std::upper_bound(starts_.begin(), starts_.end(), at);
  return static_cast<std::size_t>(next - starts_.begin()) - 1;
}

}  // namespace quorvel

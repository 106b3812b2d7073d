#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace quorvel {

// The text of a report: its bytes once, and where each line begins (4 bytes a line). A line ends at
// CR or at CR LF; a lone LF is part of the line. Text comes in pieces, each read straight into
// place: Room, then Took; at the end Finish.
class ReportLines {
 public:
  // What a workstation can be asked to keep in memory for one report. Positions fit 32 bits.
  static constexpr std::size_t kMostBytes = std::size_t{1} << 30;
  // Rows of a usual font then still fit the pixels of a scroll bar.
  static constexpr std::size_t kMostLines = std::size_t{1} << 25;

  // Makes room for `bytes` at once. RuntimeError 7 (out of memory) beyond kMostBytes.
  void Reserve(std::size_t bytes);
  // Where the next bytes of the text go: at least `bytes` of them. RuntimeError 7 when there is no
  // more room; the lines so far stay.
  std::span<char> Room(std::size_t bytes);
  // `bytes` have been put into Room. RuntimeError 7 when that is too many lines.
  void Took(std::size_t bytes);
  // No more text follows: what is behind the last line end is a line too, unless it is empty.
  void Finish();
  void Clear();

  std::size_t Count() const { return starts_.size(); }
  // Line `index`, from 0, without its line end. RuntimeError 5 outside 0 to Count() - 1.
  std::string_view At(std::size_t index) const;
  // The line that position `at` of Text() is in; Count() > 0.
  std::size_t LineAt(std::size_t at) const;
  std::size_t StartOf(std::size_t index) const { return starts_[index]; }
  std::size_t Longest() const { return longest_; }  // characters of the longest line
  // All bytes of the lines that there are, line ends included.
  std::string_view Text() const { return {text_.get(), end_}; }
  // Memory that is taken up, in bytes.
  std::size_t MemoryUsed() const { return room_ + starts_.capacity() * sizeof(std::uint32_t); }

 private:
  void Index(bool last);
  void AddLine(std::size_t start, std::size_t length);

  std::unique_ptr<char[]> text_;
  std::size_t room_ = 0;
  std::size_t size_ = 0;  // bytes of text_ in use
  std::size_t end_ = 0;   // the end of the last line: what follows is a line that has no end yet
  std::size_t seen_ = 0;  // no line end lies between end_ and here
  std::size_t longest_ = 0;
  std::vector<std::uint32_t> starts_;
};

}  // namespace quorvel

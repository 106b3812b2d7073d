#include "link/BlockQueue.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr char kMark = '|';

// A receiver as far as the queue is concerned: it knows whether a frame is open, takes the first
// frame of a block, and drops what follows its closing mark.
class FramesOnly {
 public:
  void Take(const std::string& block) {
    EXPECT_LE(block.size(), 16384u);
    EXPECT_FALSE(block.empty());
    std::size_t from = 0;
    if (!open) {
      const auto opening = block.find(kMark);
      text += block.substr(0, opening);
      if (opening == std::string::npos) return;
      open = true;
      frames.emplace_back();
      from = opening + 1;
    }
    const auto closing = block.find(kMark, from);
    frames.back() += block.substr(from, closing - from);
    if (closing == std::string::npos) return;
    open = false;
    const std::string dropped = block.substr(closing + 1);
    EXPECT_EQ(dropped.find(kMark), std::string::npos) << "a second frame is lost";
  }

  bool open = false;
  std::string text;
  std::vector<std::string> frames;
};

std::vector<std::string> BlocksOf(const std::vector<std::string>& reads) {
  BlockQueue queue;
  FramesOnly receiver;
  std::vector<std::string> blocks;
  for (const std::string& read : reads) queue.Push(read);
  while (!queue.IsEmpty()) {
    blocks.push_back(queue.Take(receiver.open, kMark));
    receiver.Take(blocks.back());
  }
  EXPECT_EQ(queue.Size(), 0u);
  return blocks;
}

using Blocks = std::vector<std::string>;

TEST(BlockQueue, CutsAheadOfASecondFrame) {
  const struct {
    const char* what;
    Blocks reads;
    Blocks blocks;
  } cases[] = {
      {"nothing", {}, {}},
      {"an empty read", {"", "a"}, {"a"}},
      {"plain text", {"abc"}, {"abc"}},
      {"reads are not joined", {"a", "b|c", "d|"}, {"a", "b|c", "d|"}},
      {"one frame", {"a|b|"}, {"a|b|"}},
      {"what follows the frame stays", {"a|b|cd"}, {"a|b|cd"}},
      {"two frames", {"a|b||c|"}, {"a|b|", "|c|"}},
      {"two frames, text between", {"a|b|cd|e|f"}, {"a|b|cd", "|e|f"}},
      {"three frames, one empty", {"|a|||x|b|"}, {"|a|", "||x", "|b|"}},
      {"the end of a frame, then another", {"|a", "b|c|d|"}, {"|a", "b|c", "|d|"}},
      {"a frame that stays open", {"|a|x|b", "c", "d|e"}, {"|a|x", "|b", "c", "d|e"}},
      {"a read that ends in the opening mark", {"a|", "b|c|d|"}, {"a|", "b|c", "|d|"}},
  };
  for (const auto& c : cases) EXPECT_EQ(BlocksOf(c.reads), c.blocks) << c.what;
}

TEST(BlockQueue, NoBlockIsLongerThanItsLimit) {
  constexpr std::size_t kMost = 16384;
  const std::string x(kMost, 'x');
  const std::string y(kMost, 'y');
  EXPECT_EQ(BlocksOf({x}), (Blocks{x}));
  EXPECT_EQ(BlocksOf({x + "z"}), (Blocks{x, "z"}));
  // A mark on either side of the limit.
  EXPECT_EQ(BlocksOf({x + "|a|"}), (Blocks{x, "|a|"}));
  const std::string shorter = x.substr(1);
  EXPECT_EQ(BlocksOf({shorter + "|a|"}), (Blocks{shorter + "|", "a|"}));
  EXPECT_EQ(BlocksOf({"|" + shorter + "||b|"}), (Blocks{"|" + shorter, "|", "|b|"}));
  // What is dropped behind a frame ends with its block.
  EXPECT_EQ(BlocksOf({"|a|" + y + y + "|b|"}), (Blocks{"|a|" + y.substr(3), y, "yyy|b|"}));
}

// On request what stands ahead of a frame is a block of its own; what stands behind one is not.
TEST(BlockQueue, CutsAheadOfEveryFrameOnRequest) {
  BlockQueue queue;
  queue.Push("ab|c|de|f|");
  queue.Push("g|h");
  queue.Push("i|j|k|");
  Blocks blocks;
  bool open = false;
  while (!queue.IsEmpty()) {
    blocks.push_back(queue.Take(open, kMark, BlockQueue::TextAhead::Alone));
    open = open != (std::count(blocks.back().begin(), blocks.back().end(), kMark) == 1);
  }
  EXPECT_EQ(blocks, (Blocks{"ab", "|c|de", "|f|", "g", "|h", "i|j", "|k|"}));
}

// Whether a frame is open is asked at each delivery: a change of the mark, or a frame that has been
// ended meanwhile, counts for what is still waiting.
TEST(BlockQueue, DecidesAtTheMomentOfDelivery) {
  BlockQueue queue;
  queue.Push("|a|b#c#d");
  EXPECT_EQ(queue.Size(), 8u);
  EXPECT_EQ(queue.Take(true, '|'), "|a");
  EXPECT_EQ(queue.Size(), 6u);
  EXPECT_EQ(queue.Take(false, '#'), "|b#c#d");
  queue.Push("left");
  queue.Push("over");
  queue.Take(false, '#');
  queue.Clear();
  EXPECT_TRUE(queue.IsEmpty());
  queue.Push("new");
  EXPECT_EQ(queue.Take(false, '#'), "new");
}

// Whatever the reads: each frame comes out whole, and only text that follows a closing mark in its
// read is lost.
TEST(BlockQueue, LosesNoFrameHoweverTheNetworkJoins) {
  std::mt19937 random(1024);
  for (int round = 0; round < 500; ++round) {
    std::vector<std::string> reads;
    std::string whole;
    for (auto left = random() % 6; left > 0; --left) {
      std::string read(random() % 40, ' ');
      for (char& c : read) c = "ab|"[random() % 3];
      whole += read;
      reads.push_back(read);
    }
    BlockQueue queue;
    FramesOnly receiver;
    for (const std::string& read : reads) queue.Push(read);
    while (!queue.IsEmpty()) receiver.Take(queue.Take(receiver.open, kMark));
    // The text between marks, by turns outside and inside a frame.
    std::vector<std::string> frames;
    bool inside = false;
    for (const char c : whole) {
      if (c != kMark) {
        if (inside) frames.back() += c;
        continue;
      }
      inside = !inside;
      if (inside) frames.emplace_back();
    }
    ASSERT_EQ(receiver.frames, frames) << whole;
  }
}

}  // namespace
}  // namespace quorvel

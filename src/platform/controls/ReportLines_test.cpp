#include "platform/controls/ReportLines.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/controls/TextSearch.h"

namespace quorvel {
namespace {

using Lines = std::vector<std::string>;

// Reads `text` in pieces of at most `piece` bytes.
Lines Read(const std::string& text, std::size_t piece) {
  ReportLines lines;
  for (std::size_t at = 0; at < text.size(); at += piece) {
    const std::size_t size = std::min(piece, text.size() - at);
    std::memcpy(lines.Room(size).data(), text.data() + at, size);
    lines.Took(size);
  }
  lines.Finish();
  EXPECT_EQ(lines.Text(), text);
  Lines read;
  for (std::size_t i = 0; i < lines.Count(); ++i) read.emplace_back(lines.At(i));
  return read;
}

// Line by line, as slowly and plainly as it can be said.
Lines Plainly(const std::string& text) {
  Lines lines;
  std::string line;
  bool open = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    open = text[i] != '\r';
    if (open) {
      line += text[i];
    } else {
      lines.push_back(std::exchange(line, {}));
      if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    }
  }
  if (open) lines.push_back(line);
  return lines;
}

TEST(ReportLines, ArePlainlyReadWhateverThePieces) {
  std::mt19937 random(1024);
  for (int round = 0; round < 2000; ++round) {
    std::string text(random() % 30, ' ');
    for (char& c : text) c = "ab\r\n"[random() % 4];
    const Lines expected = Plainly(text);
    for (const std::size_t piece : {1u, 2u, 7u, 64u}) {
      ASSERT_EQ(Read(text, piece), expected) << ::testing::PrintToString(text) << " by " << piece;
    }
  }
}

TEST(ReportLines, PlacesAndLimits) {
  ReportLines lines;
  EXPECT_EQ(lines.Count(), 0u);
  EXPECT_THROW(lines.At(0), RuntimeError);
  const std::string text = "one\r\ntwo2\rthree";
  std::memcpy(lines.Room(text.size()).data(), text.data(), text.size());
  lines.Took(text.size());
  EXPECT_EQ(lines.Count(), 2u);  // the third may go on
  lines.Finish();
  EXPECT_EQ(lines.Count(), 3u);
  EXPECT_EQ(lines.Longest(), 5u);
  EXPECT_THROW(lines.At(3), RuntimeError);
  const struct {
    std::size_t at;
    std::size_t line;
  } places[] = {{0, 0}, {4, 0}, {5, 1}, {9, 1}, {10, 2}, {14, 2}};
  for (const auto& place : places) EXPECT_EQ(lines.LineAt(place.at), place.line) << place.at;
  EXPECT_THROW(lines.Reserve(ReportLines::kMostBytes + 1), RuntimeError);
  EXPECT_EQ(lines.At(1), "two2");  // what there was stays
  lines.Clear();
  EXPECT_EQ(lines.Count() + lines.MemoryUsed(), 0u);
}

TEST(ReportLines, AMillionLinesTakeLittleBesidesTheirText) {
  constexpr std::size_t kCount = 1'000'000;
  const std::string line = std::string(98, 'x') + "\r\n";
  ReportLines lines;
  lines.Reserve(kCount * line.size());
  for (std::size_t i = 0; i < kCount; ++i) {
    std::memcpy(lines.Room(line.size()).data(), line.data(), line.size());
    lines.Took(line.size());
  }
  lines.Finish();
  ASSERT_EQ(lines.Count(), kCount);
  EXPECT_LE(lines.MemoryUsed(), kCount * line.size() + 16 * kCount);
}

// One line of 32 MB in small pieces: each byte is looked at once.
TEST(ReportLines, NoLineEndAtAll) {
  constexpr std::size_t kPiece = 4096;
  constexpr std::size_t kPieces = 8192;
  ReportLines lines;
  for (std::size_t i = 0; i < kPieces; ++i) {
    std::memset(lines.Room(kPiece).data(), 'x', kPiece);
    lines.Took(kPiece);
  }
  EXPECT_EQ(lines.Count(), 0u);
  lines.Finish();
  EXPECT_EQ(lines.At(0).size(), kPiece * kPieces);
}

TEST(TextSearch, FindsWhatAPlainSearchFinds) {
  std::mt19937 random(7);
  for (int round = 0; round < 3000; ++round) {
    std::string text(random() % 40, ' ');
    for (char& c : text) c = "aAbB"[random() % 4];
    std::string sought(1 + random() % 4, ' ');
    for (char& c : sought) c = "aAbB"[random() % 4];
    std::string lowText = text;
    std::string lowSought = sought;
    for (std::string* s : {&lowText, &lowSought}) {
      std::replace(s->begin(), s->end(), 'A', 'a');
      std::replace(s->begin(), s->end(), 'B', 'b');
    }
    const TextSearch search(sought);
    const std::size_t from = random() % 10;
    ASSERT_EQ(search.Find(text, from), lowText.find(lowSought, from)) << text << " " << sought;
    ASSERT_EQ(search.FindLast(text, text.size()), lowText.rfind(lowSought));
    std::size_t count = 0;
    for (auto at = lowText.find(lowSought); at != std::string::npos; ++count) {
      at = lowText.find(lowSought, at + lowSought.size());
    }
    ASSERT_EQ(search.Count(text), count);
  }
  EXPECT_EQ(TextSearch("").Find("abc"), TextSearch::kNone);
  EXPECT_EQ(TextSearch("\xC9T\xC9").Find("un \xE9t\xE9"), 3u);    // letters of Windows-1252
  EXPECT_EQ(TextSearch("\xD7").Find("\xF7"), TextSearch::kNone);  // signs, no letters
}

}  // namespace
}  // namespace quorvel

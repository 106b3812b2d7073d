#include "platform/vt/Scrollback.h"

#include "platform/vt/VtTest.h"

namespace quorvel::vt {
namespace {

std::string Lines(const Emulator& terminal) {
  std::string text;
  for (int line = 0; line < terminal.LineCount(); ++line) {
    text += Trimmed(terminal.LineText(line)) + "/";
  }
  return text;
}

TEST(Scrollback, KeepsWhatLeavesAtTheTop) {
  Emulator terminal(10, 2);
  terminal.SetScrollbackRows(3);
  (void)terminal.TakeDirty();
  terminal.Feed("1\r\n2\r\n3\r\n4");
  EXPECT_EQ(terminal.ScrollbackCount(), 2);
  EXPECT_EQ(Lines(terminal), "1/2/3/4/");
  DirtyRows dirty = terminal.TakeDirty();
  EXPECT_EQ(dirty.scrolledOff, 2);
  EXPECT_EQ(dirty.dropped, 0);
  terminal.Feed("\r\n5\r\n6\r\n7");
  EXPECT_EQ(Lines(terminal), "3/4/5/6/7/");
  dirty = terminal.TakeDirty();
  EXPECT_EQ(dirty.scrolledOff, 3);
  EXPECT_EQ(dirty.dropped, 2);
  terminal.SetScrollbackRows(1);  // the oldest go
  EXPECT_EQ(Lines(terminal), "5/6/7/");
  terminal.SetScrollbackRows(2);
  terminal.Feed("\r\n8\r\n9");
  EXPECT_EQ(Lines(terminal), "6/7/8/9/");
  terminal.Feed("\x1B[2J");  // what is erased on the screen has not left at the top
  EXPECT_EQ(terminal.ScrollbackCount(), 2);
  terminal.SetScrollbackRows(0);
  terminal.Feed("\r\n\n\n");
  EXPECT_EQ(terminal.ScrollbackCount(), 0);
}

TEST(Scrollback, OnlyRegionsFromTheTopFeedIt) {
  Emulator terminal(10, 3);
  terminal.SetScrollbackRows(9);
  terminal.Feed("1\r\n2\r\n3\x1B[2;3r\x1B[3H\n\x1B[H\x1B[M");
  EXPECT_EQ(terminal.ScrollbackCount(), 0);
  terminal.Feed("\x1B[1;2ra\x1B[2H\n");
  EXPECT_EQ(terminal.ScrollbackCount(), 1);
}

TEST(Scrollback, KeepsAttributesGlyphsAndLineAttributes) {
  Emulator terminal(20, 2);
  terminal.SetScrollbackRows(10);
  const std::string line = "a\x1B[1;31mb\x1B[4m  \x1B[0m \x1B(0q\x1B(B\x80\xE4";
  terminal.Feed(line + "\x1B#6");
  const Line before = terminal.LineAt(0);
  terminal.Feed("\r\nplain\r\n\r\n\r\n");
  ASSERT_EQ(terminal.ScrollbackCount(), 3);
  const Line after = terminal.LineAt(0);
  EXPECT_EQ(after.cells, before.cells);
  EXPECT_EQ(after.attribute, LineAttribute::DoubleWidth);
  EXPECT_EQ(terminal.LineText(1), "plain" + std::string(15, ' '));
  EXPECT_EQ(terminal.LineText(2), std::string(20, ' '));
  EXPECT_EQ(terminal.LineText(-1), std::string(20, ' '));
  EXPECT_EQ(terminal.LineText(99), std::string(20, ' '));
  terminal.SetSize(4, 2);  // lines are cut for reading only
  EXPECT_EQ(terminal.LineText(1), "plai");
  terminal.SetSize(30, 2);
  EXPECT_EQ(terminal.LineText(1), "plain" + std::string(25, ' '));
}

TEST(Scrollback, AWrappedLineSaysSo) {
  Emulator terminal(4, 2);
  terminal.SetScrollbackRows(10);
  terminal.Feed("abcdef\r\ng\r\nh");
  EXPECT_TRUE(terminal.LineAt(0).wrapped);
  EXPECT_FALSE(terminal.LineAt(1).wrapped);
}

}  // namespace
}  // namespace quorvel::vt

#include "platform/vt/VtTest.h"

namespace quorvel::vt {
namespace {

// VT220 Programmer Reference Manual, chapter 4: editing and erasing.
TEST(Edit, InsertsAndDeletes) {
  Check({
      {"ICH", "abcdef\x1B[1;3H\x1B[2@", "ab  cdef", "1;3"},
      {"ICH pushes over the edge", "0123456789\x1B[1;9H\x1B[9@", "01234567", "1;9"},
      {"DCH", "abcdef\x1B[1;2H\x1B[3P", "aef", "1;2"},
      {"DCH of more than there is", "abcdef\x1B[1;2H\x1B[99P", "a", "1;2"},
      {"IRM", "abc\x1B[H\x1B[4hXY\x1B[4lZ", "XYZbc", "1;4"},
      {"IRM at the edge", "0123456789\x1B[1;10H\x1B[4hXY", "012345678X/Y", "2;2"},
      {"IL goes to the first column", "1\r\n2\r\n3\x1B[2;2H\x1B[LX", "1/X/2/3", "2;2"},
      {"DL", "1\r\n2\r\n3\r\n4\x1B[2;2H\x1B[2MX", "1/X", "2;2"},
      {"DL moves up", "1\r\n2\r\n3\r\n4\x1B[1H\x1B[2M", "3/4", "1;1"},
  });
}

TEST(Edit, Erases) {
  const std::string screen = "aaaaa\r\nbbbbb\r\nccccc\x1B[2;3H";
  const std::vector<ScreenCase> cases = {
      {"ED 0", "\x1B[J", "aaaaa/bb", "2;3"},
      {"ED 1", "\x1B[1J", "/   bb/ccccc", "2;3"},
      {"ED 2", "\x1B[2J", "", "2;3"},
      {"EL 0", "\x1B[K", "aaaaa/bb/ccccc", "2;3"},
      {"EL 1", "\x1B[1K", "aaaaa/   bb/ccccc", "2;3"},
      {"EL 2", "\x1B[2K", "aaaaa//ccccc", "2;3"},
      {"ECH", "\x1B[2X", "aaaaa/bb  b/ccccc", "2;3"},
      {"ECH of more", "\x1B[99X", "aaaaa/bb/ccccc", "2;3"},
      {"unknown extents", "\x1B[3J\x1B[7K", "aaaaa/bbbbb/ccccc", "2;3"},
  };
  for (const ScreenCase& c : cases) {
    SCOPED_TRACE(c.name);
    Emulator terminal(10, 5);
    terminal.Feed(screen + std::string(c.input));
    EXPECT_EQ(Dump(terminal), c.dump);
    EXPECT_EQ(CursorOf(terminal), c.cursor);
  }
}

// DECSCA protects against DECSED and DECSEL, not against ED, EL and ECH; SGR 0 does not end it.
TEST(Edit, SelectiveErase) {
  const std::string line = "a\x1B[1\"q\x1B[4mbc\x1B[0md\x1B[0\"qe\x1B[1m f\x1B[H";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"\x1B[?2K", " bcd"},
      {"\x1B[?2J", " bcd"},
      {"\x1B[1;3H\x1B[?K", "abcd"},
      {"\x1B[1;3H\x1B[?1K", " bcde f"},
      {"\x1B[2K", ""},
      {"\x1B[1;3H\x1B[2X", "ab  e f"},
  };
  for (const auto& [input, dump] : cases) {
    Emulator terminal(10, 5);
    terminal.Feed(line + input);
    EXPECT_EQ(Dump(terminal), dump) << input.substr(1);
  }
  // Selective erasing takes the characters only (VT510 manual, DECSED: attributes unchanged).
  Emulator terminal(10, 5);
  terminal.Feed("\x1B[4mab\x1B[H\x1B[?2J");
  EXPECT_EQ(AttributesOf(terminal, 0, 0), "u");
  terminal.Feed("\x1B[2J");
  EXPECT_EQ(AttributesOf(terminal, 0, 0), "-");
}

TEST(Edit, LineAttributes) {
  Emulator terminal(10, 5);
  terminal.Feed("0123456789\r\n\x1B[A\x1B#6");
  EXPECT_EQ(terminal.screen().LineAttributeAt(0), LineAttribute::DoubleWidth);
  EXPECT_EQ(Dump(terminal), "01234");
  terminal.Feed("\x1B[1;9HXY");  // five columns: the cursor goes to the last, then wraps
  EXPECT_EQ(Dump(terminal), "0123X/Y");
  terminal.Feed("\x1B[3;1H\x1B#3top\x1B[4;1H\x1B#4low\x1B[5;1H\x1B#6\x1B#5");
  EXPECT_EQ(terminal.screen().LineAttributeAt(2), LineAttribute::DoubleHeightTop);
  EXPECT_EQ(terminal.screen().LineAttributeAt(3), LineAttribute::DoubleHeightBottom);
  EXPECT_EQ(terminal.screen().LineAttributeAt(4), LineAttribute::SingleWidth);
  terminal.Feed("\x1B[4;2H\x1B[2K\x1B[1J");  // EL keeps it, ED ends it on lines it clears
  EXPECT_EQ(terminal.screen().LineAttributeAt(0), LineAttribute::SingleWidth);
  EXPECT_EQ(terminal.screen().LineAttributeAt(3), LineAttribute::DoubleHeightBottom);
}

TEST(Edit, AlignmentPatternFillsAndResetsTheMargins) {
  Check({{"DECALN", "\x1B[2;3r\x1B[5;5H\x1B#8\x1B[5H\nX",
          "EEEEEEEEEE/EEEEEEEEEE/EEEEEEEEEE/EEEEEEEEEE/X", "5;2"}});
}

}  // namespace
}  // namespace quorvel::vt

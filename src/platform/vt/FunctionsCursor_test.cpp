#include "platform/vt/VtTest.h"

namespace quorvel::vt {
namespace {

// VT220 Programmer Reference Manual (EK-VT220-RM), chapter 4: cursor positioning.
TEST(Cursor, MovesAndStopsAtTheEdges) {
  Check({
      {"CUP", "\x1B[3;4HX", "//   X", "3;5"},
      {"CUP without parameters is home", "ab\x1B[HX", "Xb", "1;2"},
      {"CUP with 0 is 1", "\x1B[0;0HX", "X", "1;2"},
      {"CUP beyond the screen", "\x1B[99;99HX", "////         X", "5;10"},
      {"HVP", "\x1B[2;2fX", "/ X", "2;3"},
      {"CUU, CUB", "\x1B[3;5H\x1B[2A\x1B[3DX", " X", "1;3"},
      {"CUD, CUF", "\x1B[2B\x1B[4CX", "//    X", "3;6"},
      {"edges", "\x1B[99A\x1B[99D1\x1B[99B\x1B[99C2", "1////         2", "5;10"},
      {"CNL, CPL", "ab\x1B[2Ec\x1B[Fd", "ab/d/c", "2;2"},
      {"CHA, HPA, HPR, VPA, VPR", "\x1B[3Ga\x1B[5`b\x1B[1ac\x1B[3dd\x1B[1ee",
       "  a b c//       d/        e", "4;10"},
      {"IND keeps the column",
       "ab\x1B"
       "DX",
       "ab/  X", "2;4"},
      {"NEL",
       "ab\x1B"
       "EX",
       "ab/X", "2;2"},
      {"RI at the top scrolls", "ab\x1BMX", "  X/ab", "1;4"},
      {"BS stops at the left", "a\b\b\bX", "X", "1;2"},
      {"VT and FF are LF", "a\vb\fc", "a/ b/  c", "3;4"},
      {"LF at the bottom scrolls", "1\r\n2\r\n3\r\n4\r\n5\r\n6", "2/3/4/5/6", "5;2"},
  });
}

// Numbers of any length, whether the sequence comes in one piece with more behind it (NUL is a fill
// character) or byte by byte.
TEST(Cursor, EveryAddress) {
  constexpr int kColumns = 132;
  constexpr int kRows = 120;
  Emulator terminal(kColumns, kRows);
  const auto expect = [&](const std::string& row, const std::string& column, int atRow,
                          int atColumn) {
    const std::string place = std::to_string(atRow) + ";" + std::to_string(atColumn);
    const std::string text = "\x1B[" + row + ";" + column + "H" + std::string(8, '\0');
    terminal.Feed("\x1B[H");
    terminal.Feed(text);
    ASSERT_EQ(CursorOf(terminal), place) << row << ";" << column;
    terminal.Feed("\x1B[H");
    for (const char byte : text) terminal.Feed({&byte, 1});
    ASSERT_EQ(CursorOf(terminal), place) << row << ";" << column << ", byte by byte";
  };
  for (int row = 1; row <= kRows; ++row) {
    for (int column = 1 + row % 3; column <= kColumns; column += 3) {
      expect(std::to_string(row), std::to_string(column), row, column);
    }
  }
  expect("007", "00012", 7, 12);
  expect("", "131", 1, 131);
  expect("119", "", 119, 1);
  expect("999", "1000", kRows, kColumns);
  expect("5", "6;7;8;9;10;11;12;13;14;15;16;17;18;19", 5, 6);  // further parameters mean nothing
}

// DEC STD 070 and a real VT220 (the wrap tests published for it): what ends a pending wrap.
TEST(Cursor, LastColumnFlag) {
  const std::string full = "0123456789";
  struct Case {
    const char* name;
    std::string between;
    bool wraps;
  };
  const Case cases[] = {
      {"nothing", "", true},
      {"NUL", std::string(1, '\0'), true},
      {"BEL", "\a", true},
      {"SGR", "\x1B[1m", true},
      {"SM", "\x1B[?7h", true},
      {"DSR", "\x1B[6n", true},
      {"DECSC",
       "\x1B"
       "7",
       true},
      {"DECRC",
       "\x1B"
       "7\x1B[H\x1B"
       "8",
       true},
      {"TAB", "\t", false},
      {"CUP", "\x1B[1;10H", false},
      {"CUF", "\x1B[C", false},
      {"EL", "\x1B[K", false},
      {"ED", "\x1B[J", false},
      {"DCH", "\x1B[P", false},
      {"ICH", "\x1B[@", false},
      {"ECH", "\x1B[X", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Emulator terminal(10, 5);
    terminal.Feed(full + c.between + "X");
    EXPECT_EQ(Dump(terminal), c.wraps ? "0123456789/X" : "012345678X");
  }
  Check({
      {"the cursor is reported in the last column", full, "0123456789", "1;10"},
      {"BS goes to the column before", "0123456789\bX", "01234567X9", "1;10"},
      {"LF ends it", "0123456789\nX", "0123456789/         X", "2;10"},
      {"wrapping at the bottom scrolls", "\x1B[5;1H0123456789X", "///0123456789/X", "5;2"},
      {"no autowrap: the last place is overwritten", "\x1B[?7l0123456789XYZ", "012345678Z", "1;10"},
      {"a line that is wrapped twice", "abcdefghijKLMNOPQRSTuv", "abcdefghij/KLMNOPQRST/uv", "3;3"},
  });
}

TEST(Cursor, TabStops) {
  Check({
      {"every 8 columns, then the last", "\tX\r\t\tY", "        XY", "1;10"},
      {"HTS, TBC at the cursor", "\x1B[4G\x1BH\rA\tB\x1B[4G\x1B[g\rC\tD", "C  B    D", "1;10"},
      {"TBC 3", "\x1B[3g\r\tX", "         X", "1;10"},
      {"CHT and CBT", "\x1B[3G\x1BH\r\x1B[2IA\x1B[2ZB", "  B     A", "1;4"},
  });
}

// VT220 manual, DECSTBM and DECOM; CUU and CUD stop at the margins only from inside.
TEST(Cursor, MarginsAndOrigin) {
  const std::string lines = "1\r\n2\r\n3\r\n4\r\n5";
  const std::string region = lines + "\x1B[2;4r";
  const std::vector<ScreenCase> cases = {
      {"home after DECSTBM", "X", "X/2/3/4/5", "1;2"},
      {"LF scrolls inside", "\x1B[4H\nX", "1/3/4/X/5", "4;2"},
      {"LF below the region does not", "\x1B[5H\nX", "1/2/3/4/X", "5;2"},
      {"RI scrolls inside", "\x1B[2H\x1BMX", "1/X/2/3/5", "2;2"},
      {"RI above stops at the top", "\x1BM\x1BMX", "X/2/3/4/5", "1;2"},
      {"CUU, CUD from inside", "\x1B[3H\x1B[9AX\x1B[9BY", "1/X/3/4Y/5", "4;3"},
      {"CUU from below stops at the top margin", "\x1B[5H\x1B[9AX", "1/X/3/4/5", "2;2"},
      {"CUD from above stops at the bottom margin", "\x1B[9BX", "1/2/3/X/5", "4;2"},
      {"DECOM", "\x1B[?6hX\x1B[9;2HY", "1/X/3/4Y/5", "4;3"},
      {"DECOM off goes home", "\x1B[?6h\x1B[?6lX", "X/2/3/4/5", "1;2"},
      {"IL, DL inside", "\x1B[2H\x1B[L\x1B[4HX\x1B[2H\x1B[2M", "1/X///5", "2;1"},
      {"IL, DL outside do nothing", "\x1B[5H\x1B[L\x1B[MX", "1/2/3/4/X", "5;2"},
      {"SU, SD", "\x1B[S\x1B[2TX",
       "X//"
       "/3/5",
       "1;2"},
      {"too small a region is ignored", "\x1B[5;2HX\x1B[3;3rY", "1/2/3/4/5XY", "5;4"},
      {"region beyond the screen", "\x1B[2;99r\x1B[5H\nX", "1/3/4/5/X", "5;2"},
      {"DECSTBM without parameters is the screen", "\x1B[r\x1B[5H\nX", "2/3/4/5/X", "5;2"},
  };
  for (const ScreenCase& c : cases) {
    SCOPED_TRACE(c.name);
    Emulator terminal(10, 5);
    terminal.Feed(region + std::string(c.input));
    EXPECT_EQ(Dump(terminal), c.dump);
    EXPECT_EQ(CursorOf(terminal), c.cursor);
  }
}

// VT220 manual, DECSC and DECRC: position, attributes, character sets, origin mode.
TEST(Cursor, SaveAndRestore) {
  Emulator terminal(10, 5);
  terminal.Feed(
      "\x1B[2;3H\x1B[1m\x1B(0\x1B"
      "7\x1B[0m\x1B(B\x1B[5;5H\x1B[2;4r\x1B[?6h\x1B"
      "8qq");
  EXPECT_EQ(Dump(terminal), "/  --");
  EXPECT_EQ(AttributesOf(terminal, 1, 2), "b");
  terminal.Feed("\x1B[1;1HX");  // origin mode was off when saved
  EXPECT_EQ(CursorOf(terminal), "1;2");
  Check({{"nothing saved: home",
          "ab\x1B"
          "8X",
          "Xb", "1;2"}});
}

}  // namespace
}  // namespace quorvel::vt

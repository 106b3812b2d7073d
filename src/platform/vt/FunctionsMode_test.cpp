#include "platform/vt/VtTest.h"

namespace quorvel::vt {
namespace {

TEST(Modes, ScreenModes) {
  Emulator terminal(80, 5);
  terminal.Feed("ab\x1B[?25l\x1B[?5h\x1B[20hX\nY");
  EXPECT_FALSE(terminal.screen().CursorVisible());
  EXPECT_TRUE(terminal.screen().ReverseScreen());
  EXPECT_EQ(Dump(terminal), "abX/Y");  // LNM
  terminal.Feed("\x1B[2;3r\x1B[?3h");  // DECCOLM clears, homes and takes the margins away
  EXPECT_EQ(terminal.screen().Columns(), 132);
  EXPECT_EQ(Dump(terminal), "");
  terminal.Feed("1\n2\n3\n4\n5\n6");
  EXPECT_EQ(Dump(terminal), "2/3/4/5/6");
  terminal.Feed("\x1B[?3l");
  EXPECT_EQ(terminal.screen().Columns(), 80);
  terminal.Feed(
      "\x1B[?3h\x1B"
      "c");  // the width that the user chose comes back
  EXPECT_EQ(terminal.screen().Columns(), 80);
  EXPECT_TRUE(terminal.screen().CursorVisible());
  EXPECT_FALSE(terminal.screen().ReverseScreen());
}

// One sequence must not cost more than a screenful: DECCOLM clears the screen, so it is worked off
// once however often it is named, and a mode behind it still counts.
TEST(Modes, NamedTwiceIsChangedOnce) {
  Emulator terminal;
  terminal.SetScrollbackRows(100);
  terminal.Feed("text\x1B[?3;3;3;25l");
  EXPECT_EQ(terminal.LineText(0), std::string(80, ' '));
  EXPECT_FALSE(terminal.screen().CursorVisible());
}

TEST(Modes, KeyboardModes) {
  Emulator terminal;
  EXPECT_FALSE(terminal.LocalEcho());
  EXPECT_TRUE(terminal.AutoRepeat());
  terminal.Feed("\x1B[12l\x1B[?8l\x1B[?1h\x1B=");
  EXPECT_TRUE(terminal.LocalEcho());
  EXPECT_FALSE(terminal.AutoRepeat());
  EXPECT_TRUE(terminal.ApplicationCursorKeys());
  EXPECT_TRUE(terminal.ApplicationKeypad());
  terminal.Feed("\x1B[2h");  // KAM
  EXPECT_EQ(terminal.EncodeText("x") + terminal.Encode(Key::Up), "");
  terminal.Feed("\x1B[2;12l\x1B[12h\x1B[?1l\x1B>");
  EXPECT_EQ(terminal.EncodeText("x\xE4") + terminal.Encode(Key::Up), "x\xE4\x1B[A");
}

// VT220 Programmer Reference Manual, table 4-10 (DECSTR), and RIS.
TEST(Modes, Resets) {
  const std::string set =
      "\x1B[?25l\x1B[4h\x1B[2;4r\x1B[?6h\x1B[2h\x1B=\x1B[?1h\x1B[1m\x1B[1\"q\x1B(0\x1B[2;3H\x1B"
      "7";
  Emulator terminal(10, 5);
  terminal.Feed(set + "\x1B[!p");
  EXPECT_EQ(CursorOf(terminal), "3;3");  // stays
  EXPECT_TRUE(terminal.screen().CursorVisible());
  EXPECT_FALSE(terminal.ApplicationKeypad() || terminal.ApplicationCursorKeys());
  EXPECT_EQ(terminal.EncodeText("x"), "x");
  terminal.Feed("\x1B[Hq\x1B[1;1Hj");  // absolute origin, replace, ASCII, plain
  EXPECT_EQ(Dump(terminal), "j");
  EXPECT_EQ(AttributesOf(terminal, 0, 0), "-");
  terminal.Feed("0123456789ab");  // no autowrap
  EXPECT_EQ(Dump(terminal), "j01234567b");
  terminal.Feed(
      "\x1B[5H\n\x1B"
      "8X");  // whole screen scrolls; saved state is home
  EXPECT_EQ(Dump(terminal), "X");

  Emulator hard(10, 5);
  hard.SetApplicationKeypad(true);
  hard.Feed(set +
            "abc\x1B[3g\x1B>\x1B"
            "c");
  EXPECT_EQ(Dump(hard), "");
  EXPECT_EQ(CursorOf(hard), "1;1");
  EXPECT_TRUE(hard.ApplicationKeypad());  // as the user set it up
  hard.Feed("\tX0123");
  EXPECT_EQ(Dump(hard), "        X0/123");
}

// VT220 manual, DECSCL, S7C1T and S8C1T: received C1 controls count in VT200 mode whichever was
// chosen; in VT100 mode the terminal works with 7 bits, so they are text here.
TEST(Modes, LevelsAndControls) {
  const std::string csi8 =
      "\x9B"
      "6n";
  Emulator terminal(10, 5);
  terminal.Feed(csi8 + "\x1B G" + csi8 + "\x1B F" + csi8);
  EXPECT_EQ(terminal.TakeAnswers(),
            "\x1B[1;1R\x9B"
            "1;1R\x1B[1;1R");
  terminal.Feed("\x1B[62\"p\x1B[6n\x1B[62;1\"p\x1B[6n");
  EXPECT_EQ(terminal.TakeAnswers(),
            "\x9B"
            "1;1R\x1B[1;1R");
  terminal.Feed("\x1B[61\"p\x1B G\x1B[6n" + csi8);
  EXPECT_EQ(terminal.TakeAnswers(), "\x1B[1;1R");
  EXPECT_EQ(Dump(terminal),
            "\x9B"
            "6n");
  terminal.Feed("\x1B[H\x1B[2@");  // ICH is no function of a VT100
  EXPECT_EQ(Dump(terminal),
            "\x9B"
            "6n");
  // C1 in 7 and in 8 bits are the same.
  Check({{"IND, NEL, HTS, RI",
          "\x84"
          "a\x85"
          "b\x8Dg",
          "/ag/b", "2;3"}});
  Check({{"the VT100 shows them as text", "a\x85\x93", "a\x85\x93", "1;4"},
         {"and does not know DECSCL", "\x1B[62\"p\x1B[1;5H\x1B[3Xx", "    x", "1;6"}},
        TerminalType::VT100);
}

}  // namespace
}  // namespace quorvel::vt

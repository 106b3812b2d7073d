#include "platform/vt/Emulator.h"

#include <random>

#include "platform/vt/VtTest.h"

namespace quorvel::vt {
namespace {

// The published diagram of the DEC-compatible parser (vt100.net/emu/dec_ansi_parser).
TEST(Parser, SequencesInsideSequences) {
  Check({
      {"a control inside is obeyed", "ab\x1B[\r1CX", "aX", "1;3"},
      {"CAN ends a sequence", "\x1B[1\x18mX", "mX", "1;3"},
      {"ESC begins a new one", "\x1B[1\x1B[2;2HX", "/ X", "2;3"},
      {"C1 begins a new one",
       "\x1B[1\x9B"
       "2;2HX",
       "/ X", "2;3"},
      {"a colon voids it", "\x1B[2:3HX", "X", "1;2"},
      {"a late marker voids it", "\x1B[2?HX", "X", "1;2"},
      {"an intermediate makes it another", "\x1B[2;2 HX", "X", "1;2"},
      {"upper half inside counts as lower", "\x1B[2;2\xC8X", "/ X", "2;3"},
      {"DEL is nothing",
       "a\x7F\x1B[\x7F"
       "2CX",
       "a  X", "1;5"},
      {"NUL is nothing",
       std::string_view("a\0\x1B[\0"
                        "1CX",
                        8),
       "a X", "1;4"},
      {"numbers stay bounded", "\x1B[99999999999999999999;4294967298HX", "////         X", "5;10"},
      {"parameters beyond 16", "\x1B[1;1;1;1;1;1;1;1;1;1;1;1;1;1;1;1;1;9;9HX", "X", "1;2"},
      {"unknown ones", "\x1B[9y\x1B[=3h\x1B[1$w\x1B[1!!p\x1B%G\x1B#9X", "X", "1;2"},
  });
}

// DECDLD, OSC, SOS, PM, APC are received whole and shown nowhere.
TEST(Parser, Strings) {
  Check({
      {"soft font", "\x1BP1;1;1{ @ABC/??~;~?/x\x1B\\X", "X", "1;2"},
      {"title, ended by BEL", "\x1B]0;title\aX", "X", "1;2"},
      {"title, ended by ST", "\x1B]0;title\x1B\\X", "X", "1;2"},
      {"SOS, PM, APC",
       "\x1BX1\r2\x1B\\\x1B^a\a\x9C\x9F"
       "b\x1B\\X",
       "X", "1;2"},
      {"CAN gives up", "\x1BPabc\x18X", "X", "1;2"},
      {"another sequence ends it", "\x1BPabc\x1B[2;2HX", "/ X", "2;3"},
  });
  Emulator terminal(10, 5);
  terminal.Feed("\x1B]" + std::string(65536, 'x'));
  EXPECT_EQ(Dump(terminal), "");
  terminal.Feed("xxY");  // nobody ended it within the limit
  EXPECT_NE(Dump(terminal), "");
}

// SUB shows the error character (VT220 manual, table of control characters).
TEST(Parser, Substitute) {
  Emulator terminal(10, 5);
  terminal.Feed("\x1B[1\x1AX");
  EXPECT_EQ(terminal.screen().CellAt(0, 0).glyph, 0x2426);
  EXPECT_EQ(terminal.screen().CellAt(0, 1).glyph, 'X');
}

TEST(Types, NoEmulationShowsTheBytes) {
  Check({{"the six controls", "ab\bc\r\nd\te\a", "ac/d       e", "2;10"},
         {"form feed is a new page", "ab\fc", "c", "1;2"},
         {"all else is shown", "\x1B[1mX\x0E\x9B\xE4", "?[1mX?\x9B\xE4", "1;9"}},
        TerminalType::None);
  Emulator terminal(10, 5);
  terminal.SetType(TerminalType::None);
  terminal.Feed("\x1B");
  EXPECT_EQ(terminal.screen().CellAt(0, 0).glyph, 0x241B);
}

TEST(Types, ChangeAtAnyTime) {
  Emulator terminal(10, 5);
  terminal.Feed("a\x1B[1");  // in the middle of a sequence
  terminal.SetType(TerminalType::VT52);
  terminal.Feed("b\x1BY");
  terminal.SetType(TerminalType::VT220_8);
  terminal.Feed(
      "c\x9B"
      "2;2Hd");
  EXPECT_EQ(Dump(terminal), "abc/ d");
  for (const int wrong : {-1, 0, 6, 1000}) terminal.SetType(static_cast<TerminalType>(wrong));
  EXPECT_EQ(terminal.Type(), TerminalType::VT220_8);
}

TEST(Emulator, BellsAndDirtyRows) {
  Emulator terminal(10, 5);
  EXPECT_TRUE(terminal.TakeDirty().Any());
  EXPECT_FALSE(terminal.TakeDirty().Any());
  terminal.Feed("\a\a\x1B[3Hx");
  EXPECT_EQ(terminal.TakeBells(), 2);
  EXPECT_EQ(terminal.TakeBells(), 0);
  const DirtyRows dirty = terminal.TakeDirty();
  for (int row = 0; row < 5; ++row) EXPECT_EQ(dirty.Has(row), row == 2) << row;
  terminal.Feed("\x1B[?5h");
  EXPECT_TRUE(terminal.TakeDirty().Has(0));
}

TEST(Emulator, ResizeKeepsWhatIsShown) {
  Emulator terminal(10, 5);
  terminal.SetScrollbackRows(10);
  terminal.Feed("1\r\n2\r\n3\x1B[2;4r\x1B[3;9Hx");
  terminal.SetSize(5, 4);  // the empty row below goes
  EXPECT_EQ(Dump(terminal), "1/2/3");
  EXPECT_EQ(CursorOf(terminal), "3;5");
  terminal.SetSize(5, 2);  // then rows at the top, into the scroll-back
  EXPECT_EQ(Dump(terminal), "2/3");
  EXPECT_EQ(Trimmed(terminal.LineText(0)), "1");
  terminal.SetSize(20, 3);
  terminal.Feed("\x1B[3;17H\x1B[Zt\x1B[3H\ny");  // tab stops of the new columns; no margins
  EXPECT_EQ(Dump(terminal), "3/        t/y");
  terminal.SetSize(-5, 100000);
  EXPECT_EQ(terminal.screen().Columns(), kMinColumns);
  EXPECT_EQ(terminal.screen().Rows(), kMaxRows);
}

// A control sequence with none to eighteen parameters of none to five digits.
std::string RandomSequence(std::mt19937& random) {
  static constexpr std::string_view kFinals = "ABCDHJKLMPXdfmrm";
  std::string sequence = "\x1B[";
  for (std::size_t n = random() % 3 == 0 ? random() % 19 : random() % 4; n > 0; --n) {
    const std::size_t digits = random() % 8 == 0 ? random() % 6 : 1 + random() % 2;
    for (std::size_t i = 0; i < digits; ++i) sequence += static_cast<char>('0' + random() % 10);
    if (n > 1) sequence += ';';
  }
  return sequence + kFinals[random() % kFinals.size()];
}

// Bytes as a hostile or broken host might send them: fragments of sequences between random ones.
std::string RandomStream(std::mt19937& random, std::size_t pieces) {
  static const std::string_view kFragments[] = {"\x1B[",
                                                "\x1B",
                                                "\x9B",
                                                ";",
                                                "?",
                                                "0",
                                                "1",
                                                "3",
                                                "9999999",
                                                "H",
                                                "r",
                                                "m",
                                                "J",
                                                "K",
                                                "L",
                                                "M",
                                                "@",
                                                "P",
                                                "X",
                                                "S",
                                                "T",
                                                "h",
                                                "l",
                                                "\x1B[?3h",
                                                "\x1B[?3l",
                                                "\x1B#6",
                                                "\x1B#3",
                                                "\x1B#8",
                                                "\x1B[?6h",
                                                "\x1B[2;3r",
                                                "\x1B[4h",
                                                "\x1B[?7l",
                                                "\x1B[?2l",
                                                "\x1B<",
                                                "\0337",
                                                "\0338",
                                                "\x1BM",
                                                "\033D",
                                                "\n",
                                                "\r",
                                                "\t",
                                                "\b",
                                                "\x1B[38;5;1m",
                                                "\x1B[1\"q",
                                                "\x1B[?J",
                                                "\x1B[?K",
                                                "\x1BP1;1|17/41",
                                                "\x1B\\",
                                                "\x9C",
                                                "\x1B]0;",
                                                "\x07",
                                                "\x1B[5i",
                                                "\x1B[4i",
                                                "\x1B[?5i",
                                                "\x1B[i",
                                                "\x1B[c",
                                                "\x1B[6n",
                                                "\x1B(0",
                                                "\x1B)<",
                                                "\x0E",
                                                "\x0F",
                                                "\x1BN",
                                                "\033c",
                                                "\x1B[!p",
                                                "\x1B[61\"p",
                                                "\x1B[62\"p",
                                                "text that is longer than a line of this terminal"};
  std::string stream;
  for (std::size_t i = 0; i < pieces; ++i) {
    if (random() % 4 == 0) {
      for (std::size_t n = random() % 6; n > 0; --n) stream += static_cast<char>(random() & 0xFF);
    } else if (random() % 4 == 0) {
      stream += RandomSequence(random);
    } else {
      stream += kFragments[random() % std::size(kFragments)];
    }
  }
  return stream;
}

struct Outcome {
  Emulator terminal{20, 6};
  std::string answers, paper;
  int bells = 0;

  explicit Outcome(TerminalType type) {
    terminal.SetType(type);
    terminal.SetScrollbackRows(7);
    terminal.SetPassThrough(true);
    terminal.onPrint = [this](std::string_view bytes) { paper += bytes; };
    terminal.onPrintEnd = [this] { paper += "<end>"; };
  }
  void Feed(std::string_view bytes) {
    terminal.Feed(bytes);
    answers += terminal.TakeAnswers();
    bells += terminal.TakeBells();
  }
};

void ExpectSane(const Emulator& terminal) {
  const Screen& screen = terminal.screen();
  ASSERT_GE(screen.CursorRow(), 0);
  ASSERT_LT(screen.CursorRow(), screen.Rows());
  ASSERT_GE(screen.CursorColumn(), 0);
  ASSERT_LT(screen.CursorColumn(), screen.Width(screen.CursorRow()));
  ASSERT_LE(terminal.ScrollbackCount(), 7);
  for (int row = 0; row < screen.Rows(); ++row) {
    for (int column = screen.UsedColumns(row); column < screen.Columns(); ++column) {
      ASSERT_EQ(screen.CellAt(row, column), kBlankCell) << row << ";" << column;
    }
    for (int column = screen.Width(row); column < screen.Columns(); ++column) {
      ASSERT_EQ(screen.CellAt(row, column), kBlankCell) << row << ";" << column;
    }
  }
}

TEST(Emulator, AnyCuttingGivesTheSame) {
  std::mt19937 random(20250101);
  for (int round = 0; round < 400; ++round) {
    const auto type = static_cast<TerminalType>(1 + round % 5);
    const std::string stream = RandomStream(random, 150);
    Outcome whole(type);
    whole.Feed(stream);
    Outcome cut(type);
    for (std::size_t at = 0; at < stream.size();) {
      const std::size_t length = round % 2 == 0 ? 1 : 1 + random() % 40;
      cut.Feed(std::string_view(stream).substr(at, length));
      at += length;
      ASSERT_NO_FATAL_FAILURE(ExpectSane(cut.terminal)) << "round " << round;
    }
    ASSERT_TRUE(whole.terminal.screen() == cut.terminal.screen()) << "round " << round;
    ASSERT_EQ(whole.answers, cut.answers) << "round " << round;
    ASSERT_EQ(whole.paper, cut.paper) << "round " << round;
    ASSERT_EQ(whole.bells, cut.bells) << "round " << round;
    for (int line = 0; line < whole.terminal.ScrollbackCount(); ++line) {
      ASSERT_EQ(whole.terminal.LineAt(line).cells, cut.terminal.LineAt(line).cells);
    }
    // From any state a reset leads back to the beginning.
    whole.terminal.Reset();
    Outcome fresh(type);
    ASSERT_TRUE(whole.terminal.screen() == fresh.terminal.screen()) << "round " << round;
  }
}

TEST(Emulator, AnswersAreBounded) {
  Emulator terminal;
  std::string questions;
  for (int i = 0; i < 30000; ++i) questions += "\x1B[6n";
  terminal.Feed(questions);
  const std::string answers = terminal.TakeAnswers();
  EXPECT_LE(answers.size(), 65536U);
  EXPECT_EQ(answers.substr(0, 6), "\x1B[1;1R");
}

}  // namespace
}  // namespace quorvel::vt

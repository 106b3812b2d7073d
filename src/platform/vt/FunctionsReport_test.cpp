#include <stdexcept>

#include "platform/vt/VtTest.h"

namespace quorvel::vt {
namespace {

// VT220 Programmer Reference Manual, chapter 4 (reports); VT100 User Guide, chapter 3.
TEST(Reports, EachTypeAnswersAsItself) {
  using enum TerminalType;
  struct Case {
    TerminalType type;
    std::string_view input;
    std::string_view answer;
  };
  const Case cases[] = {
      {VT220_7, "\x1B[c", "\x1B[?62;1;2;6;8;9c"},
      {VT220_7, "\x1BZ", "\x1B[?62;1;2;6;8;9c"},
      {VT220_8,
       "\x9B"
       "0c",
       "\x9B?62;1;2;6;8;9c"},
      {VT220_7, "\x1B[>c", "\x1B[>1;10;0c"},
      {VT220_7, "\x1B[1c\x1B[>7c", ""},
      {VT220_7, "\x1B[5n", "\x1B[0n"},
      {VT220_7, "\x1B[3;7H\x1B[6n", "\x1B[3;7R"},
      {VT220_7, "\x1B[5;9r\x1B[?6h\x1B[3;7H\x1B[6n", "\x1B[3;7R"},
      {VT220_7, "\x1B[?15n", "\x1B[?13n"},
      {VT220_7, "\x1B[?25n\x1B[?26n", "\x1B[?20n\x1B[?27;1n"},
      {VT220_7, "\x1BP0;0|17/41\x1B\\\x1B[?25n", "\x1B[?21n"},
      {VT220_7, "\x1B[x\x05", ""},  // no DECREQTPARM; the answerback is empty
      {VT100, "\x1B[c\x1BZ", "\x1B[?1;2c\x1B[?1;2c"},
      {VT100, "\x1B[x\x1B[1x\x1B[2x", "\x1B[2;1;1;120;120;1;0x\x1B[3;1;1;120;120;1;0x"},
      {VT100, "\x1B[>c\x1B[?26n", ""},
      {VT52, "\x1BZ", "\x1B/Z"},
      {None, "\x1B[c\x1BZ", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(AnswerTo(c.input, c.type), c.answer) << c.input.substr(1);
  }
  EXPECT_EQ(AnswerTo("\x1B[?15n", VT220_7, true), "\x1B[?10n");
}

struct Printout {
  explicit Printout(Emulator& terminal) {
    terminal.onPrint = [this](std::string_view bytes) { text += bytes; };
    terminal.onPrintEnd = [this] { text += "<end>"; };
  }
  std::string text;
};

// VT220 manual, MC, DECPEX and DECPFF.
TEST(Printing, MediaCopy) {
  struct Case {
    const char* name;
    std::string input;
    std::string paper;
    std::string dump;
  };
  const Case cases[] = {
      {"print screen", "ab\r\n\x1B(0q\x1B(B\x1B[i", "ab\r\n-\r\n\r\n<end>", "ab/-"},
      {"region and form feed", "1\r\n2\r\n3\x1B[1;2r\x1B[?19l\x1B[?18h\x1B[0i", "1\r\n2\r\n\f<end>",
       "1/2/3"},
      {"cursor line", "1\r\n2\x1B[?1i", "2\r\n", "1/2"},
      {"auto print", "0\x1B[?5i\r\nab\r\n0123456789x\x1B[?4i\n", "0\r\nab\r\n0123456789\r\n<end>",
       "0123456789/x"},
      {"controller", std::string("a\x1B[5i\x1B[1mb\0\x11\x13\x1B[5ic\x1B\x1B[4id", 24),
       "\x1B[1mbc\x1B<end>", "ad"},
      {"controller in 8 bits",
       "\x9B"
       "5i\x9B"
       "4x\x9B"
       "4id",
       "\x9B"
       "4x<end>",
       "d"},
      {"VT52 controller", "\x1B[?2l\x1BWa\x1B[4ib\x1BXc", "a\x1B[4ib<end>", "c"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    for (const std::size_t piece : {std::size_t{1}, c.input.size()}) {
      Emulator terminal(10, 3);
      terminal.SetPassThrough(true);
      Printout printout(terminal);
      for (std::size_t at = 0; at < c.input.size(); at += piece) {
        terminal.Feed(std::string_view(c.input).substr(at, piece));
      }
      EXPECT_EQ(printout.text, c.paper);
      EXPECT_EQ(Dump(terminal), c.dump);
    }
    Emulator off(10, 3);
    Printout printout(off);
    off.Feed(c.input);
    EXPECT_EQ(printout.text, "");
    EXPECT_EQ(Dump(off), c.dump);
  }
}

// A printer that fails, or that serves events and so brings in more output, costs no text.
TEST(Printing, FailureAndReentry) {
  Emulator terminal(10, 3);
  terminal.SetPassThrough(true);
  terminal.onPrint = [](std::string_view) { throw std::runtime_error("482"); };
  EXPECT_THROW(terminal.Feed("a\x1B[5ixyz\x1B[4ib"), std::runtime_error);
  EXPECT_EQ(Dump(terminal), "ab");
  terminal.onPrint = [&](std::string_view) { terminal.Feed("d"); };
  terminal.Feed("\x1B[5ix\x1B[4ic");
  EXPECT_EQ(Dump(terminal), "abcd");
}

// While it is given what is printed, the owner may change the terminal.
TEST(Printing, TheOwnerMayChangeTheTerminalMeanwhile) {
  const std::string rows(std::size_t{132} * 100, 'x');
  for (const std::string input : {"\x1B[i\x1B[?1ia", "x\x1B[?5i\r\nb\x1B[?4i", "\x1B[5i\x1B"}) {
    for (const bool resets : {false, true}) {
      Emulator terminal(132, 100);
      terminal.SetPassThrough(true);
      bool asked = false;
      terminal.onPrint = [&](std::string_view) {
        asked = true;
        if (resets) terminal.Reset();
        terminal.SetSize(2, 1);
      };
      terminal.Feed(rows);
      terminal.Feed(input);
      terminal.Feed(rows);
      terminal.Feed("\x1B[4iz");
      EXPECT_TRUE(asked);
      EXPECT_EQ(terminal.screen().Columns(), 2);
      if (!resets) {
        EXPECT_EQ(Dump(terminal).back(), 'z');
      }
    }
  }
}

}  // namespace
}  // namespace quorvel::vt

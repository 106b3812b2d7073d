#include "platform/vt/CharacterSets.h"
#include "platform/vt/VtTest.h"

namespace quorvel::vt {
namespace {

// VT220 manual, SGR; ECMA-48 8.3.117 for the colours; 38 and 48 as in ISO 8613-6 with semicolons.
TEST(Rendition, Attributes) {
  const std::pair<std::string, std::string> cases[] = {
      {"1", "b"},
      {"1;4;5;7", "bukr"},
      {"1;4;5;7;8;22;25", "uri"},
      {"1;4;0", "-"},
      {"1;;5", "k"},
      {"", "-"},
      {"24;27;28", "-"},
      {"31", "f1"},
      {"37;44", "f7g4"},
      {"31;39;41;49", "-"},
      {"92;107", "f10g15"},
      {"38;5;200", "f200"},
      {"48;5;7;1", "bg7"},
      {"38;2;255;0;255", "f#255,0,255"},
      {"38;5", "-"},
      {"38;2;1;2", "-"},
      {"38;9;1", "b"},
      {"99;1", "b"},
      {"1:2", "-"},
  };
  for (const auto& [parameters, expected] : cases) {
    Emulator terminal(10, 5);
    terminal.Feed("\x1B[" + parameters + "mX");
    EXPECT_EQ(AttributesOf(terminal, 0, 0), expected) << parameters;
  }
  // A direct colour is kept within 3 of 255.
  for (int value = 0; value < 256; ++value) {
    const auto byte = static_cast<std::uint8_t>(value);
    const Colour colour = Colour::Direct(byte, 7, 250);
    EXPECT_NEAR(colour.red(), value, 3);
    EXPECT_NEAR(colour.green(), 7, 3);
    EXPECT_NEAR(colour.blue(), 250, 3);
  }
}

std::u16string Glyphs(const Emulator& terminal, int count) {
  std::u16string glyphs;
  for (int column = 0; column < count; ++column) {
    glyphs += static_cast<char16_t>(terminal.screen().CellAt(0, column).glyph);
  }
  return glyphs;
}

// VT220 manual, chapter 2 (tables of the sets) and chapter 4 (SCS, locking and single shifts).
TEST(Rendition, CharacterSets) {
  struct Case {
    const char* name;
    std::string input;
    std::u16string glyphs;
  };
  const Case cases[] = {
      {"ASCII and the code page", "A~\xE4\xFF", u"A~äÿ"},
      {"graphics in G0", "\x1B(0lqkx\x1B(Bl", u"┌─┐│l"},
      {"graphics in G1 by SO and SI", "\x1B)0j\x0Ej\x0Fj", u"j┘j"},
      {"British", "\x1B(A#", u"£"},
      {"German", "\x1B(K@[\\]{|}~", u"§ÄÖÜäöüß"},
      {"French, both letters of Finnish", "\x1B(R@{\x1B(C[\x1B(5[", u"àéÄÄ"},
      {"Swiss, Spanish", "\x1B(=_\x1B(Z\\", u"èÑ"},
      {"LS2 and LS3", "\x1B*0\x1B+A\x1Bnq\x1Bo#\x0F#", u"─£#"},
      {"LS1R, LS2R", "\x1B)0\x1B~\xF1\x1B}\xF1", u"─ñ"},
      {"SS2 and SS3 hold for one character", "\x1B*0\x1B+A\x1BNqq\x1BO##", u"─q£#"},
      {"SS2 in 8 bits, upper half", "\x1B*0\x8E\xF1\xF1", u"──"},
      {"DEC supplemental", "\x1B*<\xD7\xDD\xA8\xE9", u"ŒŸ¤é"},
      {"supplemental as 96",
       "\x1B-A\x0E"
       "d",
       u"ä"},
      {"an unknown set changes nothing", "\x1B(0\x1B(Xq\x1B( @q", u"──"},
      {"RIS",
       "\x1B(0\x1B"
       "cq",
       u"q"},
  };
  for (const Case& c : cases) {
    Emulator terminal(20, 5);
    terminal.Feed(c.input);
    EXPECT_EQ(Glyphs(terminal, static_cast<int>(c.glyphs.size())), c.glyphs) << c.name;
  }
}

// What LineText gives for glyphs: Windows-1252 (the mapping table of the Unicode consortium), with
// stand-ins for graphics.
TEST(Rendition, TextOfGlyphs) {
  for (int byte = 0; byte < 256; ++byte) {
    const auto code = static_cast<unsigned char>(byte);
    EXPECT_EQ(static_cast<unsigned char>(ByteOf(UnicodeOf(code))), code);
  }
  EXPECT_EQ(UnicodeOf(0x80), 0x20AC);
  EXPECT_EQ(UnicodeOf(0x9F), 0x0178);
  Emulator terminal(10, 2);
  terminal.Feed("\x1B(0lqkxmjna`~");
  EXPECT_EQ(terminal.LineText(0), "+-+|+++#+\xB7");
}

}  // namespace
}  // namespace quorvel::vt

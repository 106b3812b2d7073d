#include "platform/vt/VtTest.h"

namespace quorvel::vt {
namespace {

// VT220 Programmer Reference Manual, chapter 4, VT52 mode; VT52 DECscope manual for ESC Y.
TEST(Vt52, Functions) {
  Check({{"cursor",
          "\x1B"
          "C\x1B"
          "BX\x1B"
          "A\x1B"
          "DY",
          " Y/ X", "1;3"},
         {"address", "\x1BY#%X", "///     X", "4;7"},
         {"address beyond the screen: row stays, column is the last", "\n\x1BYz~X", "/         X",
          "2;10"},
         {"home, erase",
          "abc\n\rdef\x1BH\x1B"
          "C\x1BK",
          "a/def", "1;2"},
         {"erase to the end of the screen", "abc\r\ndef\x1BH\x1BJ", "", "1;1"},
         {"reverse line feed", "a\x1BI\x1BIb", " b//a", "1;3"},
         {"graphics",
          "\x1B"
          "Fq\x1BGq",
          "-q", "1;3"},
         {"no ANSI sequences", "\x1B[2Jx", "2Jx", "1;4"},
         {"bytes of the upper half are text", "\x9B\xE4", "\x9B\xE4", "1;3"},
         {"CAN ends a sequence", "\x1BY\x18x", "x", "1;2"},
         {"a control inside a sequence", "\x1BY\r#%X", "///     X", "4;7"},
         {"ESC < is ANSI mode", "\x1B<\x1B[2;2HX", "/ X", "2;3"}},
        TerminalType::VT52);
  Check({{"DECANM and back", "\x1B[?2l\x1BY!!a\x1B<\x1B[1mb", "/ ab", "2;4"}});
}

}  // namespace
}  // namespace quorvel::vt

#include "platform/vt/Keys.h"

#include "platform/vt/VtTest.h"

namespace quorvel::vt {
namespace {

// VT220 Programmer Reference Manual, chapter 3: what the keys send, mode by mode.
TEST(Keys, SendWhatTheModeAsksFor) {
  struct Mode {
    TerminalType type;
    const char* input;
  };
  const Mode numeric{TerminalType::VT220_7, ""};
  const Mode application{TerminalType::VT220_7, "\x1B[?1h\x1B="};
  const Mode eight{TerminalType::VT220_8, "\x1B[?1h\x1B="};
  const Mode vt100{TerminalType::VT100, ""};
  const Mode vt52{TerminalType::VT52, ""};
  const Mode vt52Keypad{TerminalType::VT52, "\x1B="};
  const Mode plain{TerminalType::None, ""};
  struct Case {
    Mode mode;
    Key key;
    const char* bytes;
  };
  const Case cases[] = {
      {numeric, Key::Up, "\x1B[A"},
      {application, Key::Left, "\x1BOD"},
      {eight, Key::Right,
       "\x8F"
       "C"},
      {vt52, Key::Down,
       "\x1B"
       "B"},
      {vt100, Key::Right, "\x1B[C"},
      {plain, Key::Up, ""},
      {numeric, Key::PF1, "\x1BOP"},
      {eight, Key::PF4, "\x8FS"},
      {vt52, Key::PF2, "\x1BQ"},
      {plain, Key::PF1, ""},
      {numeric, Key::Keypad7, "7"},
      {application, Key::Keypad7, "\x1BOw"},
      {application, Key::Keypad0, "\x1BOp"},
      {application, Key::KeypadMinus, "\x1BOm"},
      {application, Key::KeypadComma, "\x1BOl"},
      {application, Key::KeypadPeriod, "\x1BOn"},
      {application, Key::KeypadEnter, "\x1BOM"},
      {numeric, Key::KeypadEnter, "\r"},
      {vt52Keypad, Key::Keypad5, "\x1B?u"},
      {plain, Key::KeypadComma, ","},
      {numeric, Key::Find, "\x1B[1~"},
      {numeric, Key::Insert, "\x1B[2~"},
      {numeric, Key::Remove, "\x1B[3~"},
      {numeric, Key::Select, "\x1B[4~"},
      {eight, Key::Previous,
       "\x9B"
       "5~"},
      {numeric, Key::Next, "\x1B[6~"},
      {vt100, Key::Find, ""},
      {numeric, Key::F6, "\x1B[17~"},
      {numeric, Key::F10, "\x1B[21~"},
      {numeric, Key::F11, "\x1B[23~"},
      {numeric, Key::F14, "\x1B[26~"},
      {numeric, Key::F15, "\x1B[28~"},
      {numeric, Key::F16, "\x1B[29~"},
      {numeric, Key::F17, "\x1B[31~"},
      {numeric, Key::F20, "\x1B[34~"},
      {vt100, Key::F11, "\x1B"},
      {vt100, Key::F12, "\b"},
      {vt52, Key::F13, "\n"},
      {vt100, Key::F6, ""},
      {plain, Key::F11, ""},
      {numeric, Key::Backspace, "\x7F"},
      {vt100, Key::Backspace, "\b"},
      {numeric, Key::Delete, "\x1B[3~"},
      {vt100, Key::Delete, "\x7F"},
      {numeric, Key::Enter, "\r"},
      {plain, Key::Tab, "\t"},
      {{TerminalType::VT220_7, "\x1B[20h"}, Key::Enter, "\r\n"},
      {{TerminalType::VT220_7, "\x1B[20h"}, Key::KeypadEnter, "\r\n"},
  };
  for (const Case& c : cases) {
    Emulator terminal;
    terminal.SetType(c.mode.type);
    terminal.Feed(c.mode.input);
    EXPECT_EQ(terminal.Encode(c.key), c.bytes)
        << "key " << static_cast<int>(c.key) << ", type " << static_cast<int>(c.mode.type);
  }
}

TEST(Keys, OfAPc) {
  const Modifiers none{};
  const Modifiers shift{true, false, false};
  const Modifiers control{false, true, false};
  const Modifiers both{true, true, false};
  EXPECT_EQ(FromPcFunctionKey(1, none), (KeyStroke{Key::PF1, none}));
  EXPECT_EQ(FromPcFunctionKey(12, none), (KeyStroke{Key::F12, none}));
  EXPECT_EQ(FromPcFunctionKey(1, shift), (KeyStroke{Key::F11, none}));
  EXPECT_EQ(FromPcFunctionKey(10, both), (KeyStroke{Key::F20, shift}));
  EXPECT_EQ(FromPcFunctionKey(6, control), (KeyStroke{Key::F6, shift}));
  for (const int number : {0, 5, 13, 99}) EXPECT_FALSE(FromPcFunctionKey(number, none));
  EXPECT_FALSE(FromPcFunctionKey(12, shift));
}

// VT220 manual, DECUDK: Pc 0 clears all keys first, Pl 0 locks; a fault ends the loading.
TEST(Keys, UserDefined) {
  const auto texts = [](const Emulator& terminal) {
    const Modifiers shift{true, false, false};
    return terminal.Encode(Key::F6, shift) + "," + terminal.Encode(Key::F20, shift);
  };
  struct Case {
    const char* name;
    std::string input;
    std::string texts;
  };
  const std::string load = "\x1BP1;1|17/41;34/4a6B\x1B\\";
  const Case cases[] = {
      {"loaded", load, "A,Jk"},
      {"in 8 bits",
       "\x90"
       "1;1|17/42\x9C",
       "B,\x1B[34~"},
      {"one is replaced", load + "\x1BP1;1|17/43\x1B\\", "C,Jk"},
      {"all are cleared", load + "\x1BP0;1|17/43\x1B\\", "C,\x1B[34~"},
      {"emptied", load + "\x1BP1;1|17/\x1B\\", "\x1B[17~,Jk"},
      {"locked", "\x1BP1;0|17/41\x1B\\" + load, "A,\x1B[34~"},
      {"RIS",
       load + "\x1B"
              "c",
       "\x1B[17~,\x1B[34~"},
      {"a fault ends the loading", "\x1BP1;1|17/41;34/4\x1B\\", "A,\x1B[34~"},
      {"no such key", "\x1BP1;1|22/41;17/42\x1B\\", "\x1B[17~,\x1B[34~"},
      {"CAN drops the definition", "\x1BP1;1|17/41\x18", "\x1B[17~,\x1B[34~"},
      {"more than 256 bytes", "\x1BP1;1|17/41;34/" + std::string(512, '4') + "\x1B\\",
       "A,\x1B[34~"},
  };
  for (const Case& c : cases) {
    Emulator terminal;
    terminal.Feed(c.input);
    EXPECT_EQ(texts(terminal), c.texts) << c.name;
    EXPECT_EQ(Dump(terminal), "") << c.name;
    EXPECT_EQ(terminal.Encode(Key::F6), "\x1B[17~") << c.name;  // without Shift
  }
}

}  // namespace
}  // namespace quorvel::vt

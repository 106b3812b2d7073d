// Command strings: their way to the host or to a local program, the keys of the terminal that send
// them, and the windows in which they are edited.

#include "app/ModalTest.h"
#include "terminal/frmButtons.h"
#include "terminal/frmFunk.h"

namespace quorvel {
namespace {

class CommandKeysTest : public ModalTest {
 protected:
  Terminal& Screen() { return LoadedForm<frmTelnet>()->VT2201; }
  std::string Send(const std::string& text) {
    return Do([&] { Run([&] { Ask().SendCommandString(text); }); });
  }
  std::string Press(int code, int shift = kNoShift) {
    return Do([&] { user.Press(static_cast<KeyCode>(code), shift); });
  }
};

TEST_F(CommandKeysTest, StringsAreTypedOrStartPrograms) {
  using Started = std::vector<std::pair<std::string, ProgramWindow>>;
  const struct {
    std::string text, sent;
    Started started;
  } cases[] = {
      {"LIST^[13]", "LIST\r", {}},
      {"^[27]OP^[x", "\x1BOP^[x", {}},
      {"", "", {}},
      {"a^[DOS]b", "a^[DOS]b", {}},
      {"^[DOS]", "", {}},
      {"^[DOS],2", "", {}},
      {"^[DOS] ", "", {}},
      {"^[DOS]calc", "", {{"calc", ProgramWindow::NormalFocus}}},
      {"^[DOS]  edit a b,0", "", {{"edit a b", ProgramWindow::Hidden}}},
      {"^[DOS]x,1", "", {{"x", ProgramWindow::NormalFocus}}},
      {"^[DOS]x,2", "", {{"x", ProgramWindow::MinimizedFocus}}},
      {"^[DOS]x,3", "", {{"x", ProgramWindow::MaximizedFocus}}},
      {"^[DOS]x,4", "", {{"x", ProgramWindow::NormalNoFocus}}},
      {"^[DOS]x,6", "", {{"x", ProgramWindow::MinimizedNoFocus}}},
      {"^[DOS]x,5", "", {{"x", ProgramWindow::NormalFocus}}},
      {"^[DOS]x^[13],02,2", "", {{"x^[13]", ProgramWindow::NormalFocus}}},
  };
  LogIn();
  for (const auto& c : cases) {
    backend.started.clear();
    EXPECT_EQ(Send(c.text), c.sent) << c.text;
    EXPECT_EQ(backend.started, c.started) << c.text;
  }
  EXPECT_EQ(BoxTexts(), Texts{});
  Line().sent.clear();
  Run([] { Ask().SendCommandString("abc"); });
  EXPECT_EQ(Line().sent, (Texts{"a", "b", "c"}));  // one send a character

  backend.onStart = [](const std::string&, ProgramWindow) {
    throw RuntimeError(Failure::FileNotFound);
  };
  Send("^[DOS] gone,1");
  EXPECT_EQ(BoxTexts(), Texts{"Command string gone not found!"});
  backend.onStart = [](const std::string&, ProgramWindow) {
    throw RuntimeError(Failure::PermissionDenied);
  };
  Send("^[DOS]gone");
  EXPECT_EQ(BoxTexts().size(), 1u);
}

TEST_F(CommandKeysTest, SendingBringsTheTerminalToTheFront) {
  LogIn();
  Deliver(FrameOf({"~STARTMENU~", "M", "Main", "", "who"}));
  Window* const menu = LoadedForm<frmSubMenu>();
  for (const auto& [text, screen, leaves] :
       {std::tuple{"SY.DOS x", kFalse, true}, {"LIST", kTrue, true}, {"LIST", kFalse, false}}) {
    ASSERT_TRUE(InFront(menu));
    Session().ScreenLoaded = screen;
    EXPECT_EQ(Send(text), text);
    EXPECT_EQ(InFront(menu), leaves) << text;
    EXPECT_EQ(InFront(LoadedForm<frmTelnet>()), !leaves) << text;
  }
}

TEST_F(CommandKeysTest, KeysOfTheTerminal) {
  LogIn();
  SessionState& s = Session();
  s.FunctionKeys[1] = "one^[13]";
  s.FunctionKeys[12] = "twelve";
  s.FunctionKeys[13] = "never";
  s.ShiftFunctionKeys[1] = "shifted";
  constexpr int kF1 = static_cast<int>(KeyCode::F1);
  constexpr int kEnter = static_cast<int>(KeyCode::NumpadEnter);
  const struct {
    int code, shift, keyPad;
    std::string sent;
    bool passes;  // the terminal has it
  } cases[] = {
      {kF1, kNoShift, 0, "one\r", false},
      {kF1, kShift, 0, "shifted", false},
      {kF1, kControl, 0, "shifted", false},
      {kF1, kAlt, 0, "shifted", false},
      {kF1 + 11, kNoShift, 0, "twelve", false},
      {kF1 + 11, kShift, 0, "", true},
      {kF1 + 1, kNoShift, 0, "", true},
      {kF1 + 12, kNoShift, 0, "", true},
      {144, kNoShift, 1, "", false},
      {106, kNoShift, 1, "*", false},
      {109, kNoShift, 1, "-", false},
      {107, kShift, 1, "+", false},
      {111, kControl, 1, "/", false},
      {101, kNoShift, 0, "5", false},
      {96, kShift, 0, "0", false},
      {105, kNoShift, 0, "9", false},
      {101, kNoShift, 1, "", true},
      {110, kNoShift, 0, ".", false},
      {110, kNoShift, 1, "", true},
      {kEnter, kNoShift, 0, "\r", false},
      {kEnter, kNoShift, 1, "", true},
      {13, kNoShift, 0, "", true},
  };
  for (const auto& c : cases) {
    s.KeyPad = static_cast<std::int16_t>(c.keyPad);
    bool used = false;
    const std::string sent = Do([&] {
      used = LoadedForm<frmTelnet>()->UserKeyDown({c.code, c.shift});
    });
    EXPECT_EQ(sent, c.sent) << c.code << " " << c.shift << " " << c.keyPad;
    EXPECT_EQ(used, !c.passes) << c.code << " " << c.shift << " " << c.keyPad;
  }
  EXPECT_EQ(s.FunctionKeys[1], "one^[13]");
  EXPECT_EQ(BoxTexts(), Texts{});
  s.FunctionKeys[1] = "^[256]";
  EXPECT_EQ(Do([] { EXPECT_TRUE(LoadedForm<frmTelnet>()->UserKeyDown({kF1, 0})); }), "");
  EXPECT_EQ(BoxTexts().size(), 1u);
  EXPECT_TRUE(Screen().HasFocus());
}

TEST_F(CommandKeysTest, ButtonsAreDefinedAndPressed) {
  LogIn();
  mdiMain& main = *LoadedForm<mdiMain>();
  main.cmdButton(3).Caption = "Old";
  backend.onMessageBox = [](const MessageBoxRequest&) { return MessageBoxAnswer::No; };
  const auto open = [] { LoadedForm<frmTelnet>()->mnuOButtons.UserClick(); };
  In<frmButtons>(open, [this](frmButtons& window) {
    EXPECT_EQ(window.txtBtnLabel(3).Text(), "Old");
    window.txtButton(3).SetFocus();
    user.Type("LISTX");
    window.txtButton(3).UserSelect(4, 1);
    window.mnuInsertReturn.UserClick();
    window.mnuInsertEscape.UserClick();
    window.mnuInsertDos.UserClick();
    EXPECT_EQ(window.txtButton(3).Text(), "LIST^[13]^[27]^[DOS]");
    window.txtButton(3).UserEdit("LIST^[13]");
    window.txtBtnLabel(3).UserEdit("New");
    // Nothing is stored while something can't be kept; the keyboard goes there.
    const std::string bad[] = {std::string(255, 'x'), "a\nb", "^[256]"};
    for (const std::string& text : bad) {
      window.txtButton(15).UserEdit(text);
      user.Click(window.cmdOK);
      EXPECT_TRUE(window.IsVisible());
      EXPECT_TRUE(window.txtButton(15).HasFocus());
      EXPECT_EQ(Session().ButtonCommands[3], "");
    }
    window.txtButton(15).UserEdit("^[DOS]x^[256]");  // no notation for a program
    window.cmdOK.SetFocus();
    user.Press(KeyCode::Return);
  });
  const Texts told{"Button 16 has 255 characters; a setting has at most 254.",
                   "Button 16 holds a line break; a setting is one line.",
                   "Button 16 has a code above 255; a character has one from 0 to 255.",
                   "Save current settings?"};
  EXPECT_EQ(BoxTexts(), told);
  EXPECT_EQ(main.cmdButton(3).Caption(), "New");
  EXPECT_EQ(Session().ButtonLabels[3], "");
  EXPECT_EQ(Do([&] { user.Click(main.cmdButton(3)); }), "LIST\r");
  EXPECT_EQ(Session().ButtonCommands[3], "LIST^[13]");
  EXPECT_EQ(Do([&] { user.Click(main.cmdButton(4)); }), "");

  In<frmButtons>(open, [](frmButtons& window) { window.txtButton(3).UserEdit("lost"); });
  EXPECT_EQ(Session().ButtonCommands[3], "LIST^[13]");
}

TEST_F(CommandKeysTest, FunctionKeysAreDefined) {
  LogIn();
  Session().FunctionKeys[1] = "first";
  Session().ShiftFunctionKeys[16] = "last";
  In<frmFunk>([] { Ask().ShowFunctionKeys(); },
              [](frmFunk& window) {
                EXPECT_EQ(window.txtFunk(0).Text(), "first");
                EXPECT_EQ(window.txtFunk(31).Text(), "last");
                EXPECT_EQ(window.txtFunk(15).AccessibleName(), "F16");
                window.txtFunk(15).UserEdit("f16");
                window.txtFunk(16).UserEdit("^[999]");
                window.mnuFileSave.UserClick();
                EXPECT_TRUE(window.txtFunk(16).HasFocus());
                EXPECT_EQ(Session().FunctionKeys[16], "");
                window.txtFunk(16).UserEdit("sf1");
                window.mnuFileSave.UserClick();
              });
  EXPECT_EQ(BoxTexts().size(), 1u);  // saving is not asked for here
  EXPECT_EQ(Session().FunctionKeys[16], "f16");
  EXPECT_EQ(Session().ShiftFunctionKeys[1], "sf1");
  EXPECT_EQ(Session().ShiftFunctionKeys[16], "last");
}

}  // namespace
}  // namespace quorvel

// The terminal window: its menu, the clipboard, keys, settings, and how a session begins and ends.

#include "app/FarEndTest.h"

namespace quorvel {
namespace {

class TerminalTest : public FarEndTest {
 protected:
  frmTelnet& Window() { return *LoadedForm<frmTelnet>(); }
  mdiMain& Main() { return *LoadedForm<mdiMain>(); }
  std::string Click(MenuItem frmTelnet::*entry) {
    return Do([&] { (Window().*entry).UserClick(); });
  }
  std::string Type(const std::string& text) {
    return Do([&] { user.Type(text); });
  }
  void Select(int start, int length, const std::string& text) {
    Do([&] { Window().VT2201.UserSelect({start, length, text}); });
  }
  bool SessionEntriesEnabled() {
    EXPECT_EQ(Window().mnuCRemoteSystem.Enabled(), Window().mnuSOpen.Enabled());
    return Window().mnuCRemoteSystem.Enabled();
  }
};

TEST_F(TerminalTest, TheSessionComesUp) {
  Start("[TELNET]\nHostName=host\n[LOGIN]\nUserId=demo\n");
  EXPECT_EQ(Session().Connected, 1);
  EXPECT_EQ(Session().ExitRequested, kTrue);
  EXPECT_EQ(Session().ActiveContext, "TELNET");
  EXPECT_TRUE(SessionEntriesEnabled());
  EXPECT_FALSE(Main().pnlButtons.Visible());
  EXPECT_EQ(Session().PendingOp, "");

  Line().Accept();
  backend.RunUntilIdle();
  EXPECT_FALSE(SessionEntriesEnabled());
  EXPECT_TRUE(Window().VT2201.SessionUp());
  EXPECT_EQ(Main().Caption(), "Quorvel GUI - host");
  const Panel& panel = Main().pnlButtons;
  EXPECT_TRUE(panel.Visible() && panel.Enabled());
  EXPECT_EQ(panel.Top(), Main().Top() + Main().Height() - panel.Height() - 690);
  EXPECT_EQ(Main().VideoSoftElastic1.Width(), panel.Width());
  EXPECT_EQ(Main().VideoSoftElastic1.Height(), panel.Height());
  EXPECT_EQ(Window().VT2201.Height(), Main().ClientHeight() + 15);
  EXPECT_EQ(Window().VT2201.Width(), Window().ClientWidth() + 15);
  EXPECT_TRUE(Window().VT2201.HasFocus());
  EXPECT_EQ(Session().PendingOp, "Login");
}

TEST_F(TerminalTest, SettingsReachTheTerminal) {
  LogIn("UserId=demo\n",
        "TermType=5\nColumns=1\nRows=30\nBufferRows=70\nKeyPad=1\nCursorKeys=1\nPassThrough=2\n"
        "[FONTS]\nFontName=Mono\nFontSize=9.5\nFontBold=false\nFontItalic=-1\n"
        "[COLORS]\nBackColor=255\nForeColor=65280\nBoldColor=16711680\n");
  const Terminal& terminal = Window().VT2201;
  EXPECT_EQ(terminal.TermType(), 5);
  EXPECT_EQ(terminal.Columns(), 1);
  EXPECT_EQ(terminal.Rows(), 30);
  EXPECT_EQ(terminal.ScreenLines().size(), 30u);
  EXPECT_EQ(terminal.BufferRows(), 70);
  for (int line = 0; line < 200; ++line) Window().VT2201.Write("\r\n");
  EXPECT_EQ(terminal.emulation().ScrollbackCount(), 70);
  EXPECT_EQ(terminal.KeyPad(), 1);
  EXPECT_EQ(terminal.CursorKeys(), 1);
  EXPECT_FALSE(terminal.PassThrough());
  // What they do, with the 8-bit controls of this type (SS3 is 8F).
  EXPECT_EQ(terminal.emulation().screen().Columns(), 132);
  EXPECT_EQ(Do([this] { Window().VT2201.UserKey(vt::Key::Up, {}); }),
            "\x8F"
            "A");
  EXPECT_EQ(Do([this] { Window().VT2201.UserKey(vt::Key::Keypad5, {}); }), "\x8Fu");
  Deliver("\x1B[5ilost\x1B[4i");
  EXPECT_EQ(backend.printed, Texts{});
  const Font font{"Mono", 9.5, false, true};
  EXPECT_EQ(terminal.Font(), font);
  EXPECT_EQ(terminal.BackColor(), 255);
  EXPECT_EQ(terminal.ForeColor(), 65280);
  EXPECT_EQ(terminal.BoldColor(), 16711680);
  // It fills the main window, whose panel was not there yet when the settings were applied.
  EXPECT_EQ(Window().Width(), Main().ClientWidth() + 15);

  // What the file leaves empty stays as it is.
  const auto apply = [this](const std::string& lines) {
    Session().ConfigArgument = folder.Write("next.inf", lines);
    Run([] {
      Ask().LoadConfiguration();
      Ask().ApplySettings();
    });
  };
  apply(
      "[FONTS]\nFontName=\nFontSize=\nFontBold=\nFontItalic=\n[COLORS]\nBackColor=\nForeColor=1\n"
      "BoldColor=\n");
  EXPECT_EQ(terminal.Font(), font);
  EXPECT_EQ(terminal.BackColor(), 255);
  EXPECT_EQ(terminal.ForeColor(), 1);
  EXPECT_EQ(terminal.BoldColor(), 16711680);
  EXPECT_TRUE(terminal.PassThrough());
  EXPECT_EQ(BoxTexts(), Texts{});
  // Nonsense ends in a box; numbers out of any reason don't shake the terminal.
  apply("[COLORS]\nBackColor=blue\n");
  EXPECT_EQ(BoxTexts(), Texts{"Run-time error '13':\n\nType mismatch"});
  apply("[TELNET]\nRows=-32768\nBufferRows=32767\nTermType=99\nColumns=9\n[FONTS]\nFontSize=1e9\n");
  EXPECT_EQ(BoxTexts().size(), 1u);
  EXPECT_GE(terminal.ScreenLines().size(), 1u);
}

TEST_F(TerminalTest, CopyCutsBlanksLineByLine) {
  const struct {
    const char* what;
    int start, length;
    std::string text, clipboard;
  } cases[] = {
      {"nothing", 0, 0, "", "\r\n"},
      {"nothing, on a screen", 3, 0, "abc", "\r\n"},
      {"part of a line", 2, 3, "abcdef", "bcd\r\n"},
      {"leading blanks stay", 1, 8, "  ab  cd  ", "  ab  cd\r\n"},
      {"three lines", 1, 18, "one   \r\n  \r\n three  ", "one\r\n\r\n three\r\n"},
      {"a line end at the end", 1, 5, "abc\r\n", "abc\r\n\r\n"},
      {"more than there is", 3, 99, "abcd", "cd\r\n"},
      {"far outside", 99, 5, "abcd", "\r\n"},
      {"more than 16 bits", 40'001, 2, std::string(40'000, 'x') + "yz", "yz\r\n"},
  };
  LogIn();
  for (const auto& c : cases) {
    backend.clipboardText = "old";
    Select(c.start, c.length, c.text);
    EXPECT_EQ(Session().SelectionStart, c.start);
    EXPECT_EQ(Session().SelectionLength, c.length);
    EXPECT_EQ(Click(&frmTelnet::mnuECopy), "");
    EXPECT_EQ(backend.clipboardText, c.clipboard) << c.what;
    // The key copies only what is selected; the host never sees it.
    backend.clipboardText = "old";
    EXPECT_EQ(Type("\x03"), "");
    EXPECT_EQ(backend.clipboardText, c.length > 0 ? c.clipboard : "old") << c.what;
  }
}

TEST_F(TerminalTest, KeysAndPasteGoOutAsTheyAre) {
  LogIn();
  EXPECT_EQ(Type("LIST\r"), "LIST\r");
  EXPECT_FALSE(ScreenShows("LIST"));
  backend.clipboardText = "one\r\ntwo\xFF";
  EXPECT_EQ(Type("\x16"), "one\r\ntwo\xFF\xFF");  // IAC is doubled
  EXPECT_EQ(Click(&frmTelnet::mnuEPaste), "one\r\ntwo\xFF\xFF");
  EXPECT_FALSE(ScreenShows("one"));
  EXPECT_EQ(Do([this] { Window().VT2201.UserPaste("\x03 and\r\n\x16"); }), "\x03 and\r\n\x16");
  EXPECT_EQ(Do([this] { Window().VT2201.UserKey(vt::Key::Up, {}); }), "\x1B[A");
  EXPECT_EQ(Deliver("\x1B[6n"), "\x1B[1;1R");  // the terminal's own answer
  Session().LocalEcho = 1;
  EXPECT_EQ(Type("echo"), "echo");
  EXPECT_TRUE(ScreenShows("echo"));

  // Without a session all of it is dropped, paste and local echo too.
  LoadedForm<frmTelnet>()->TELNET1.Close();
  for (const char* key : {"x", "\x16", "\r"}) user.Type(key);
  EXPECT_TRUE(Line().sent.empty());
  EXPECT_FALSE(ScreenShows("echox"));
}

TEST_F(TerminalTest, ForceCaptureOff) {
  LogIn();
  Session().PendingOp = "Keep";
  Window().Enabled = false;
  Click(&frmTelnet::mnuOptCapOff);
  EXPECT_EQ(Session().PendingOp, "Keep");
  EXPECT_FALSE(Window().Enabled());
  Deliver(FrameOf({"~CAPTURE-ON~", "", "", ""}));
  Deliver("report");
  EXPECT_EQ(Type("x"), "");         // the disabled window takes no keys,
  Click(&frmTelnet::mnuOptCapOff);  // but its menu bar works
  EXPECT_EQ(Session().PendingOp, "");
  EXPECT_TRUE(Window().Enabled());
  EXPECT_TRUE(Main().pnlButtons.Enabled());
  EXPECT_TRUE(Window().mnuBookMarks.Enabled());
  EXPECT_TRUE(std::filesystem::exists(Session().CaptureFile));
  EXPECT_EQ(Type("x"), "x");
}

TEST_F(TerminalTest, OtherEntries) {
  LogIn();
  Texts calls;
  const auto note = [&](const char* call) { return [&calls, call] { calls.emplace_back(call); }; };
  Ask().ShowTerminalSettings = note("terminal");
  Ask().ChoosePrinter = note("printer");
  Ask().ShowFaxSettings = note("fax");
  Ask().ShowCommandButtons = note("buttons");
  Ask().ShowExportParameters = note("export");
  Ask().ShowBookmarks = note("bookmarks");
  Ask().ShowAbout = note("about");
  for (const auto entry : {&frmTelnet::mnuOTerminal, &frmTelnet::mnuOptPrinter,
                           &frmTelnet::mnuOptFax, &frmTelnet::mnuOButtons, &frmTelnet::mnuOptExport,
                           &frmTelnet::mnuBookMarks, &frmTelnet::mnuHAbout}) {
    Click(entry);
  }
  EXPECT_EQ(calls,
            (Texts{"terminal", "printer", "fax", "buttons", "export", "bookmarks", "about"}));
  EXPECT_EQ(Session().BookmarkContext, "TELNET");

  Deliver("\x1B[2J\x1B[Hto be printed");
  Click(&frmTelnet::mnuPrintScreen);
  ASSERT_FALSE(backend.printed.empty());
  EXPECT_EQ(backend.printed[0].substr(0, 13), "to be printed");
  backend.printerFails = true;
  Click(&frmTelnet::mnuPrintScreen);
  EXPECT_EQ(BoxTexts(), Texts{});  // a failure is ignored
  backend.printerFails = false;
  backend.printFile = "/home/kit/screen.pdf";
  Click(&frmTelnet::mnuPrintScreen);
  EXPECT_EQ(BoxTexts(), Texts{"The screen has been printed to the file\n\n"
                              "/home/kit/screen.pdf"});
  backend.messageBoxes.clear();

  // Saving: to the file in use, and under a new name.
  Main().Left = 45;
  Click(&frmTelnet::mnuSSaveSettings);
  Click(&frmTelnet::mnuSSaveAs);  // cancelled
  EXPECT_EQ(backend.fileDialogs.size(), 1u);
  backend.onFileDialog = [this](const FileDialog&) { return folder.Path() + "/other.inf"; };
  Click(&frmTelnet::mnuSSaveAs);
  for (const char* name : {"/test.inf", "/other.inf"}) {
    std::ifstream file(folder.Path() + name);
    const std::string content((std::istreambuf_iterator<char>(file)), {});
    EXPECT_NE(content.find("Left=45"), std::string::npos) << name;
  }
}

// Media copy (VT220): CSI 5 i to CSI 4 i goes to the printer, in as many pieces as come.
TEST_F(TerminalTest, WhatTheTerminalPrints) {
  LogIn();
  Deliver("\x1B[5ione\r\ntwo\r\n");
  Deliver("three\x1B[4ishown");
  EXPECT_EQ(backend.printed, (Texts{"one\r\ntwo\r", "three"}));  // the printer ends lines itself
  EXPECT_EQ(backend.documentsEnded, 1);
  EXPECT_TRUE(ScreenShows("shown"));
  backend.printerFails = true;
  const std::string box = "Run-time error '482':\n\nPrinter error";
  for (const std::size_t boxes : {1u, 2u}) {  // one for each printing
    for (const char* piece : {"\x1B[5ia", "b", "c\x1B[4i"}) Deliver(piece);
    EXPECT_EQ(BoxTexts(), Texts(boxes, box));
  }
}

// --- the end of a session

TEST_F(TerminalTest, ClosingAsksTheHostOrClosesTheLink) {
  struct Way {
    const char* what;
    bool menu;
    int forceOff, quickExit;
    bool asksHost;
  };
  const Way ways[] = {
      {"plain terminal", false, 0, 0, false},
      {"plain terminal, quick exit", false, 0, 1, false},
      {"off is forced", false, 1, 0, true},
      {"menus are up", true, 0, 0, true},
      {"menus are up, quick exit", true, 0, 1, true},
  };
  for (const Way& way : ways) {
    SCOPED_TRACE(way.what);
    ClientTest client;
    client.Connect("[TELNET]\nHostName=host\nForceOff=" + std::to_string(way.forceOff) +
                   "\nQuickExit=" + std::to_string(way.quickExit) + "\n[LOGIN]\nUserId=demo\n");
    Session().PendingOp.clear();
    if (way.menu) client.Deliver(FrameOf({"~STARTMENU~", "M", "Title\xFE\xFEOne", "", ""}));
    const std::string sent = client.Do([] { LoadedForm<frmTelnet>()->mnuCExit.UserClick(); });
    EXPECT_EQ(sent, way.asksHost ? "OFF\r" : "");
    EXPECT_EQ(client.Line().open, way.asksHost);
    if (way.asksHost) {
      ASSERT_NE(LoadedForm<frmTelnet>(), nullptr);  // it stays until the host has ended
      EXPECT_EQ(LoadedForm<frmSubMenu>() != nullptr, way.menu);
      client.Line().HangUp();
      client.backend.RunUntilIdle();
    }
    EXPECT_EQ(LoadedForm<frmTelnet>(), nullptr);
    EXPECT_EQ(LoadedForm<frmSubMenu>(), nullptr);
    EXPECT_EQ(Session().Connected, 0);
    EXPECT_EQ(client.backend.ended, way.quickExit == 1);
    EXPECT_TRUE(client.backend.messageBoxes.empty());  // no question
    if (way.quickExit == 1) continue;
    mdiMain& main = *LoadedForm<mdiMain>();
    EXPECT_EQ(main.Caption(), "Quorvel GUI - Not Connected");
    EXPECT_FALSE(main.pnlButtons.Visible() || main.pnlButtons.Enabled());
  }
}

TEST_F(TerminalTest, TheNextSessionHasAWindowOfItsOwn) {
  LogIn();
  Deliver("of the first session");
  Session().HelpOpen = 1;
  int helpUnloaded = 0;
  Ask().UnloadHelpText = [&] { ++helpUnloaded; };
  const std::shared_ptr<HeadlessLine> first = backend.lines.back();
  Line().HangUp();
  backend.RunUntilIdle();
  EXPECT_EQ(helpUnloaded, 1);
  EXPECT_EQ(Session().ExitRequested, kFalse);
  EXPECT_EQ(Session().ActiveContext, "TELNET");

  Session().ActiveContext = "old";
  Run([] { StartSession(); });
  ASSERT_EQ(backend.lines.size(), 2u);
  Line().Accept();
  backend.RunUntilIdle();
  EXPECT_EQ(Session().ActiveContext, "TELNET");
  EXPECT_FALSE(ScreenShows("of the first session"));
  EXPECT_EQ(Session().PendingOp, "Login");
  // What the old line still does touches nobody.
  first->Deliver("late");
  first->HangUp();
  backend.RunUntilIdle();
  EXPECT_FALSE(ScreenShows("late"));
  EXPECT_EQ(Session().Connected, 1);
}

TEST_F(TerminalTest, AFailedConnectLeavesTheClientUsable) {
  Start("[TELNET]\nHostName=host:992\nQuickExit=0\n[LOGIN]\nUserId=demo\n");
  Line().Refuse("Connection refused");
  backend.RunUntilIdle();
  ASSERT_EQ(backend.messageBoxes.size(), 1u);
  EXPECT_EQ(backend.messageBoxes[0].text, "Could not connect to host:992\nConnection refused");
  EXPECT_TRUE(SessionEntriesEnabled());
  // Again, from the menu: the same host, and another configuration.
  Click(&frmTelnet::mnuCRemoteSystem);
  ASSERT_EQ(backend.lines.size(), 2u);
  Line().Refuse("again");
  backend.RunUntilIdle();
  EXPECT_EQ(backend.messageBoxes.size(), 2u);
  Click(&frmTelnet::mnuSOpen);  // cancelled
  EXPECT_EQ(backend.lines.size(), 2u);
  backend.onFileDialog = [this](const FileDialog&) {
    return folder.Write("b.inf", "[TELNET]\nHostName=b\nRows=30\nQuickExit=0\n[LOGIN]\nUserId=u\n");
  };
  Click(&frmTelnet::mnuSOpen);
  ASSERT_EQ(backend.lines.size(), 3u);
  EXPECT_EQ(Line().host, "b");
  EXPECT_EQ(Line().port, 23);
  EXPECT_EQ(Window().VT2201.Rows(), 30);
  Click(&frmTelnet::mnuCRemoteSystem);  // one is under way: ignored
  EXPECT_EQ(backend.lines.size(), 3u);
  Line().Accept();
  backend.RunUntilIdle();
  EXPECT_EQ(Main().Caption(), "Quorvel GUI - b");
  // An address without a usable port is told in the same box.
  backend.messageBoxes.clear();
  Line().HangUp();
  backend.RunUntilIdle();
  Session().HostName = "b:none";
  Run([] { StartSession(); });
  ASSERT_EQ(backend.messageBoxes.size(), 1u);
  EXPECT_EQ(backend.messageBoxes[0].text.find("Could not connect to b:none\n"), 0u);
}

// The connection is up, but the user leaves before its event has been served.
TEST_F(TerminalTest, LeavingAheadOfTheConnectEvent) {
  Start("[TELNET]\nHostName=host\nQuickExit=0\n[LOGIN]\nUserId=demo\n");
  Line().Accept();
  Window().mnuCExit.UserClick();
  backend.RunUntilIdle();
  EXPECT_EQ(LoadedForm<frmTelnet>(), nullptr);
  EXPECT_EQ(Session().PendingOp, "");
  EXPECT_EQ(Main().Caption(), "Quorvel GUI - Not Connected");
  EXPECT_FALSE(Main().pnlButtons.Visible());
}

}  // namespace
}  // namespace quorvel

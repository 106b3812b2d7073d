// The main window: start-up, the connect dialog, the panel of buttons, and leaving the program.

#include "app/FarEndTest.h"
#include "link/Requests.h"
#include "link/frmConnect.h"
#include "link/frmPassword.h"
#include "menus/frmAbout.h"

namespace quorvel {
namespace {

class ShellTest : public FarEndTest {
 protected:
  mdiMain& Main() { return *LoadedForm<mdiMain>(); }
  // When the program waits in the connect dialog, the user does these things, one a pause.
  void InDialog(std::vector<std::function<void(frmConnect&)>> acts) {
    backend.onIdle = [acts = std::move(acts), next = std::size_t{0}]() mutable {
      frmConnect* dialog = LoadedForm<frmConnect>();
      if (!dialog || !dialog->IsVisible() || next == acts.size()) return false;
      acts[next++](*dialog);
      return true;
    };
  }
  void Accept() {
    Line().Accept();
    backend.RunUntilIdle();
  }
  void HangUp() {
    Line().HangUp();
    backend.RunUntilIdle();
  }
  std::string Target() { return Line().host + " " + std::to_string(Line().port); }
  void ShowMenu() { Deliver(FrameOf({"~STARTMENU~", "M", "Title\xFE\xFEOne", "", ""})); }
};

// --- start-up

TEST_F(ShellTest, StartsWithoutAConfiguration) {
  backend.commandLine.clear();
  Do([] { desktop().Post(EventKind::Program, [] { quorvel::Main(); }); });
  EXPECT_TRUE(Main().IsVisible());
  EXPECT_FALSE(Main().pnlButtons.Visible());
  EXPECT_TRUE(backend.lines.empty());
  EXPECT_EQ(desktop().LoadedWindows().size(), 1u);
  EXPECT_EQ(Session().ConfirmExit, kTrue);
  EXPECT_EQ(Session().AppTitleBase, "Quorvel GUI");
  EXPECT_EQ(Session().CaptureFile, (std::filesystem::path(folder.Path()) / "TEMPRPT.TXT").string());
  // The user begins: first without picking a file, then with one.
  Do([this] { Main().cmdStartTelnet.UserClick(); });
  EXPECT_TRUE(backend.lines.empty());
  backend.onFileDialog = [this](const FileDialog&) {
    return folder.Write("a.inf", "[TELNET]\nHostName=a\nPort=992\n[LOGIN]\nUserId=u\n");
  };
  Do([this] { Main().cmdStartTelnet.UserClick(); });
  EXPECT_EQ(Target(), "a 23");  // with a user set, the port of the file is not applied
  EXPECT_TRUE(InFront(LoadedForm<frmTelnet>()));
}

// Without a folder nothing can be kept: one message, and the end.
TEST_F(ShellTest, WithoutItsFolderItEnds) {
  backend.folderFails = true;
  Do([] { desktop().Post(EventKind::Program, [] { quorvel::Main(); }); });
  EXPECT_EQ(BoxTexts(), Texts{"The program can't run without its folder.\n\nPath not found"});
  EXPECT_TRUE(backend.ended);
  EXPECT_EQ(backend.exitStatus, 1);
  EXPECT_EQ(LoadedForm<mdiMain>(), nullptr);
}

TEST_F(ShellTest, AConfigurationThatDoesNotLoadLeavesTheProgramIdle) {
  Start("[TELNET]\nRows=x\n[LOGIN]\nUserId=demo\n");
  EXPECT_EQ(backend.messageBoxes.size(), 1u);
  EXPECT_TRUE(backend.lines.empty());
  EXPECT_FALSE(backend.ended);
  Do([this] { Main().cmdStartTelnet.UserClick(); });
  EXPECT_EQ(backend.fileDialogs.size(), 1u);  // the next one is picked
}

TEST_F(ShellTest, WhereItConnects) {
  const struct {
    const char* what;
    std::string settings, target, caption;
  } cases[] = {
      {"a user is set", "HostName=h\nPort=992\n[LOGIN]\nUserId=u\n", "h 23", "h"},
      {"a port with the host", "HostName=h:2323\nPort=992\n[LOGIN]\nUserId=u\n", "h 2323",
       "h:2323"},
      {"an address with a port", "HostName=[::1]:2323\n[LOGIN]\nUserId=u\n", "::1 2323",
       "[::1]:2323"},
      {"the word, in any case", "HostName=Orlan\n[LOGIN]\nUserId=u\n[AUTOIP]\norlan=10.0.0.1\n",
       "10.0.0.1 23", "Orlan"},
      {"the word alone", "HostName=ORLAN\n[LOGIN]\nUserId=u\n", "ORLAN 23", "ORLAN"},
      {"no such word", "HostName=orlan2\n[LOGIN]\nUserId=u\n[AUTOIP]\norlan=10.0.0.1\n",
       "orlan2 23", "orlan2"},
  };
  for (const auto& c : cases) {
    ClientTest client;
    client.Connect("[TELNET]\n" + c.settings);
    EXPECT_EQ(client.Line().host + " " + std::to_string(client.Line().port), c.target) << c.what;
    EXPECT_EQ(LoadedForm<mdiMain>()->Caption(), "Quorvel GUI - " + c.caption) << c.what;
  }
}

// --- the connect dialog

TEST_F(ShellTest, TheDialogAsksForHostAndUser) {
  const auto typeAll = [this](frmConnect&) { user.Type("Demo\rSecret\r"); };
  const struct {
    const char* what;
    std::string settings;
    std::function<void(frmConnect&)> act;
    std::string target, loginUser, loginPassword;
  } cases[] = {
      {"Enter from box to box", "HostName=h\n", typeAll, "h 23", "Demo", "Secret"},
      {"a port of the file", "HostName=h\nPort=992\n", typeAll, "h 992", "Demo", "Secret"},
      {"no port", "HostName=h\nPort=telnet\n", typeAll, "h 23", "Demo", "Secret"},
      {"upper and lower case", "HostName=h\n[LOGIN]\nConvUser=U\nConvPwd=L\n", typeAll, "h 23",
       "DEMO", "secret"},
      {"other letters", "HostName=h\n[LOGIN]\nConvUser=u\nConvPwd=X\n", typeAll, "h 23", "Demo",
       "Secret"},
      {"another host", "HostName=h\n",
       [this](frmConnect& d) {
         user.Click(d.HostName);
         user.Type("other:99\r\r\r");  // over the selected text
       },
       "other 99", "", ""},
      {"the button", "HostName=h\n",
       [this](frmConnect& d) {
         user.Type("x");
         user.Click(d.cmdConnect);
       },
       "h 23", "x", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    InDialog({[&](frmConnect& d) {
      EXPECT_TRUE(d.txtUserId.HasFocus());
      EXPECT_EQ(d.HostName.Text(), "h");
      EXPECT_EQ(d.txtUserId.Text() + d.txtPassword.Text(), "");
      EXPECT_EQ(d.txtPassword.PasswordChar(), '*');
      EXPECT_EQ(Session().LoginUser + Session().LoginPassword, "");
      c.act(d);
    }});
    Session().LoginUser = Session().LoginPassword = "of the last session";
    Session().PendingOp.clear();
    Start("[TELNET]\nQuickExit=0\n" + c.settings);
    EXPECT_EQ(LoadedForm<frmConnect>(), nullptr);
    ASSERT_FALSE(backend.lines.empty());
    EXPECT_EQ(Target(), c.target);
    EXPECT_EQ(Session().LoginUser, c.loginUser);
    EXPECT_EQ(Session().LoginPassword, c.loginPassword);
    Accept();
    EXPECT_EQ(Session().PendingOp, c.loginUser.empty() ? "" : "Login");
    HangUp();
  }
}

TEST_F(ShellTest, TheDialogIsLeftWithoutConnecting) {
  int dialogs = 0;
  const std::function<void(frmConnect&)> ways[] = {
      [this](frmConnect& d) { user.Click(d.cmdCancel); },
      [](frmConnect& d) { d.UserClose(); },
      [this](frmConnect& d) {
        user.Type("x");
        user.Press(KeyCode::Escape);
        EXPECT_FALSE(d.IsVisible());
      },
  };
  for (const auto& way : ways) {
    InDialog({[&](frmConnect& d) {
      ++dialogs;
      EXPECT_EQ(d.txtUserId.Text(), "");  // a dialog of its own each time
      way(d);
    }});
    Start("[TELNET]\nHostName=h\n");
    EXPECT_TRUE(backend.lines.empty());
    EXPECT_EQ(Session().ConnectRequested, kFalse);
    EXPECT_EQ(LoadedForm<frmConnect>(), nullptr);
    EXPECT_EQ(LoadedForm<frmTelnet>(), nullptr);
    EXPECT_EQ(desktop().LoadedWindows().size(), 1u);
    EXPECT_FALSE(backend.ended);
  }
  EXPECT_EQ(dialogs, 3);
}

TEST_F(ShellTest, BrowsingFromTheDialog) {
  std::string picked;
  backend.onFileDialog = [&](const FileDialog&) -> std::optional<std::string> {
    if (picked.empty()) return std::nullopt;
    return picked;
  };
  InDialog({
      [this](frmConnect& d) {
        user.Click(d.cmdBrowse);  // cancelled: the dialog stays
        EXPECT_TRUE(d.IsVisible());
      },
      [&](frmConnect& d) {
        picked = folder.Write("b.inf", "[TELNET]\nHostName=b\n[LOGIN]\nConvUser=U\n");
        user.Click(d.cmdBrowse);  // has no user: the dialog asks anew
      },
      [this](frmConnect& d) {
        EXPECT_EQ(d.HostName.Text(), "b");
        user.Type("demo\r\r");
      },
  });
  Start("[TELNET]\nHostName=h\n");
  ASSERT_EQ(backend.lines.size(), 1u);
  EXPECT_EQ(Target(), "b 23");
  EXPECT_EQ(Session().LoginUser, "DEMO");
  EXPECT_EQ(LoadedForm<frmConnect>(), nullptr);
  EXPECT_TRUE(InFront(LoadedForm<frmTelnet>()));
  Accept();
  EXPECT_EQ(Session().PendingOp, "Login");
}

// --- the window

TEST_F(ShellTest, ThePanelOfButtons) {
  LogIn();
  constexpr int kColumns[][2] = {{60, 1470},   {1605, 1455}, {3165, 1470}, {4725, 1470},
                                 {6315, 1455}, {7875, 1470}, {9435, 1470}, {10995, 1470}};
  mdiMain design;
  for (int i = 0; i < 16; ++i) {
    const Button& button = design.cmdButton(i);
    EXPECT_EQ(button.Left(), kColumns[i % 8][0]) << i;
    EXPECT_EQ(button.Width(), kColumns[i % 8][1]) << i;
    EXPECT_EQ(button.Top(), i == 0 ? 70 : i < 8 ? 75 : 420) << i;
    EXPECT_EQ(button.Height(), 330) << i;
  }
  // It stands at the bottom of the main window, wherever that is.
  Main().UserMove(2000, 3000);
  Main().UserResize(15000, 8000);
  const Panel& panel = Main().pnlButtons;
  EXPECT_EQ(panel.Top(), 3000 + 8000 - panel.Height() - 690);
  const frmTelnet& terminal = *LoadedForm<frmTelnet>();
  EXPECT_EQ(terminal.Height(), Main().ClientHeight() + 15);
  EXPECT_EQ(terminal.Width(), Main().ClientWidth() + 15);
  EXPECT_EQ(terminal.VT2201.Height(), terminal.ClientHeight() + 15);
  EXPECT_EQ(terminal.VT2201.Width(), terminal.ClientWidth() + 15);

  // A press sends its string, if it has one; the keyboard stays at the terminal.
  Texts sent;
  Ask().SendCommandString = [&](const std::string& command) { sent.push_back(command); };
  Session().ButtonCommands[15] = "LIST^[13]";
  user.Click(Main().cmdButton(0));
  user.Click(Main().cmdButton(15));
  EXPECT_EQ(sent, Texts{"LIST^[13]"});
  EXPECT_TRUE(terminal.VT2201.HasFocus());
}

TEST_F(ShellTest, TheTerminalKeepsTheKeyboard) {
  LogIn();
  ShowMenu();
  Do([this] { Main().UserActivate(); });
  EXPECT_TRUE(InFront(LoadedForm<frmSubMenu>()));
  Session().ActiveContext = "TELNET";  // as if the terminal were in front
  Session().ScreenLoaded = kTrue;
  Do([this] { Main().UserActivate(); });
  EXPECT_TRUE(InFront(LoadedForm<frmSubMenu>()));
  Session().ScreenLoaded = kFalse;
  Do([this] { Main().UserActivate(); });
  EXPECT_TRUE(LoadedForm<frmTelnet>()->VT2201.HasFocus());
}

TEST_F(ShellTest, TheAboutBox) {
  LogIn();
  backend.onIdle = [this] {
    frmAbout* about = LoadedForm<frmAbout>();
    if (!about || !about->IsVisible()) return false;
    EXPECT_TRUE(about->IsModal());
    EXPECT_EQ(about->Caption(), "About Quorvel GUI");
    EXPECT_EQ(about->lblClient.Caption(), "GUI Client");
    EXPECT_EQ(about->lblVersion.Caption(), "Version 5.1.0");
    EXPECT_EQ(about->Left(), Main().Left() + (Main().Width() - about->Width()) / 2);
    user.Click(about->cmdOK);
    return true;
  };
  bool returned = false;
  Run([&] {
    Ask().ShowAbout();
    returned = true;
  });
  EXPECT_TRUE(returned);
}

// --- leaving

TEST(ShellLeaving, WithoutASession) {
  const MessageBoxRequest question{"Exit the system?", "Confirm Exit", 36};
  for (const bool menu : {false, true}) {
    ClientTest client;
    client.backend.commandLine.clear();
    client.Do([] { desktop().Post(EventKind::Program, [] { quorvel::Main(); }); });
    mdiMain& main = *LoadedForm<mdiMain>();
    const auto leave = [&] { menu ? main.mnuExit.UserClick() : main.UserClose(); };
    client.backend.onMessageBox = [](const MessageBoxRequest&) { return MessageBoxAnswer::No; };
    client.Do(leave);
    EXPECT_FALSE(client.backend.ended);
    client.backend.onMessageBox = nullptr;
    client.Do(leave);
    EXPECT_TRUE(client.backend.ended);
    EXPECT_EQ(client.backend.messageBoxes, (std::vector{question, question}));
  }
}

struct Leaving {
  const char* what;
  bool menu, byEntry, forceOff, quickExit;
  std::string sent;
};

TEST(ShellLeaving, WithASession) {
  // By the close box the host is asked once; the entry closes the terminal window first.
  const Leaving cases[] = {
      {"plain terminal", false, false, false, true, ""},
      {"plain terminal, entry", false, true, false, true, ""},
      {"plain terminal, off is forced", false, false, true, true, "OFF\r"},
      {"menus", true, false, false, true, "OFF\r"},
      {"menus, entry", true, true, false, true, "OFF\rOFF\r"},
      {"menus, no quick exit", true, false, false, false, "OFF\r"},
      {"plain terminal, no quick exit", false, false, false, false, ""},
  };
  for (const Leaving& c : cases) {
    SCOPED_TRACE(c.what);
    ClientTest client;
    client.Connect(std::string("[TELNET]\nHostName=host\nForceOff=") + (c.forceOff ? "1" : "0") +
                   "\nQuickExit=" + (c.quickExit ? "1" : "0") + "\n[LOGIN]\nUserId=demo\n");
    Session().PendingOp.clear();
    if (c.menu) client.Deliver(FrameOf({"~STARTMENU~", "M", "Title\xFE\xFEOne", "", ""}));
    mdiMain& main = *LoadedForm<mdiMain>();
    const std::string sent =
        client.Do([&] { c.byEntry ? main.mnuExit.UserClick() : main.UserClose(); });
    EXPECT_EQ(sent, c.sent);
    EXPECT_EQ(client.backend.messageBoxes.size(), 1u);  // the question
    const bool waitsForHost = !c.sent.empty();
    EXPECT_EQ(client.backend.ended, !waitsForHost);
    EXPECT_EQ(client.Line().open, waitsForHost);
    if (!waitsForHost) continue;
    EXPECT_EQ(Session().ExitRequested, kFalse);
    EXPECT_NE(LoadedForm<frmTelnet>(), nullptr);
    client.Line().HangUp();
    client.backend.RunUntilIdle();
    EXPECT_EQ(client.backend.ended, c.quickExit);
    EXPECT_EQ(client.backend.messageBoxes.size(), 1u);  // no second one
    if (c.quickExit) continue;
    EXPECT_EQ(main.Caption(), "Quorvel GUI - Not Connected");
  }
}

// A box, a dialog or a wait is open: all of it unwinds, and the process ends.
TEST(ShellLeaving, WhileTheProgramWaits) {
  const std::string quickExit = "[TELNET]\nHostName=host\n[LOGIN]\nUserId=demo\n";
  const std::pair<const char*, std::function<void(ClientTest&)>> cases[] = {
      {"while it connects",
       [&](ClientTest& client) {
         client.Start(quickExit);
         client.Do([] { LoadedForm<mdiMain>()->UserClose(); });
       }},
      {"a request waits, the user leaves",
       [&](ClientTest& client) {
         client.Connect(quickExit);
         client.backend.onIdle = [&client] {
           if (client.backend.ended) return false;
           LoadedForm<mdiMain>()->UserClose();
           return true;
         };
         client.Do([] {
           desktop().Handle(EventKind::User, [] {
             ReadRecord("FILE", "KEY");
             ADD_FAILURE() << "goes on after the end";
           });
         });
       }},
      {"a dialog is open, the link ends",
       [&](ClientTest& client) {
         client.Connect(quickExit);
         client.backend.onIdle = [&client] {
           if (!LoadedForm<frmPassword>() || !client.Line().open) return false;
           client.Line().HangUp();
           return true;
         };
         EXPECT_EQ(client.Deliver(FrameOf({"~GETPASSWORD~", "Payroll"})), "");
       }},
      {"a box is open, the link ends",
       [&](ClientTest& client) {
         client.Connect(quickExit);
         client.backend.onMessageBox = [&client](const MessageBoxRequest&) {
           client.Line().HangUp();
           client.backend.RunUntilIdle();
           return MessageBoxAnswer::Ok;
         };
         EXPECT_EQ(client.Deliver(FrameOf({"~MSGBOX~", "", "Text"})), "");
       }},
  };
  for (const auto& [what, play] : cases) {
    SCOPED_TRACE(what);
    ClientTest client;
    play(client);
    EXPECT_TRUE(client.backend.ended);
    EXPECT_FALSE(client.backend.stalled);
  }
}

// --- the menu bars

std::string BarOf(const Window& window) {
  std::string text;
  for (const MenuItem* menu : window.MenuBar()) {
    text += menu->Name() + " " + menu->Caption() + "\n";
    for (const MenuItem* item : menu->Items()) {
      text += item->IsSeparator() ? "  " + item->Name() + "\n"
                                  : "  " + item->Name() + " " + item->Caption() + "\n";
    }
  }
  return text;
}

TEST_F(ShellTest, MenuBars) {
  LogIn();
  ShowMenu();
  EXPECT_EQ(BarOf(Main()), "mnuStart &Start\n  cmdStartTelnet &Telnet Session\nmnuExit &Exit\n");
  EXPECT_EQ(BarOf(*LoadedForm<frmTelnet>()),
            "mnuConnect &Session\n  mnuCRemoteSystem &Connect...\n  mnuCSep\n"
            "  mnuSOpen &Open Session\n  mnuSSaveSettings &Save Settings\n"
            "  mnuSSaveAs S&ave Settings As...\n  mnuCSep2\n  mnuCExit E&xit\n"
            "mnuEdit &Edit\n  mnuECopy &Copy\n  mnuEPaste &Paste\n"
            "mnuOptions &Options\n  mnuOTerminal &Terminal Settings\n  mnuSep1\n"
            "  mnuPrintScreen &Print Screen\n  mnuOptPrinter Printer &Setup\n"
            "  mnuOptFax &Fax Settings\n  mnuSep2\n  mnuOButtons &Command Buttons\n  mnuSep3\n"
            "  mnuOptExport &Export Parameters\n  mnuOptCapOff &Force Capture OFF\n"
            "mnuBookMarks &Bookmarks\nmnuHelp &Help\n  mnuHAbout &About...\n");
  EXPECT_EQ(BarOf(*LoadedForm<frmSubMenu>()),
            "mnuSession &Session\n  mnuSSaveSettings &Save Settings\n"
            "  mnuSSaveAs S&ave Settings As...\n"
            "mnuOptions &Options\n  mnuOTerminal &Terminal Settings\n"
            "  mnuOptPrinter &Printer Setup\n  mnuOptFax &Fax Settings\n  mnuSep\n"
            "  mnuOButtons &Command Buttons\n  mnuSep2\n  mnuOptExport &Export Parameters\n"
            "  mnuOptCapOff &Force Capture OFF\n"
            "mnuBookMark &Bookmarks\nmnuLogoff &Logoff\n"
            "mnuHelp &Help\n  mnuHelpCurrent &Current Selection\n  mnuHelpAbout &About\n");
}

}  // namespace
}  // namespace quorvel

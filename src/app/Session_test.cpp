// A whole session against the sample host, joined in one process: login, menus, options, terminal,
// back, log-off, link lost, second session.

#include <gtest/gtest.h>

#include "app/SessionTest.h"
#include "link/frmPassword.h"

namespace quorvel {
namespace {

constexpr const char* kAutoLogin =
    "[TELNET]\nHostName=127.0.0.1:2323\nQuickExit=0\n[LOGIN]\nUserId=demo\nPwd=demo\n";

class SessionStory : public ::testing::Test, public JoinedTest {
 protected:
  std::string MenuTitle() { return Session().MenuText.substr(0, Session().MenuText.find('\xfe')); }
  // Types an option into the entry of the menu window and presses Enter.
  void Open(const std::string& option) {
    Do([&] {
      user.Click(Form<frmSubMenu>()->cboExecute);
      user.Type(option + "\r");
    });
  }
  bool InFront(const Window* window) { return window && desktop().focus().Front() == window; }
};

TEST_F(SessionStory, FromLoginToLogOffAndASecondSession) {
  Start(kAutoLogin);
  EXPECT_EQ(Line().host, "127.0.0.1");
  EXPECT_EQ(Line().port, 2323);
  ASSERT_TRUE(InFront(LoadedForm<frmSubMenu>()));
  EXPECT_EQ(MenuTitle(), "Main Menu");
  EXPECT_EQ(Session().PendingOp, "");
  frmSubMenu& menu = *Form<frmSubMenu>();
  EXPECT_TRUE(menu.tabMenu.TabVisible(4));
  EXPECT_FALSE(menu.tabMenu.TabVisible(5));
  EXPECT_NE(menu.lblWho.Caption().find("demo"), std::string::npos);

  // A row of the list is a sub-menu; the button leads back.
  Do([&] {
    menu.lstOptions(0).UserPick(1);
    user.Press(KeyCode::Return);
  });
  EXPECT_EQ(MenuTitle(), "Customers and Receivables");
  Open("AR.CREDIT.MENU");
  EXPECT_EQ(MenuTitle(), "Credit Control");
  Do([&] { user.Click(menu.cmdBack); });
  Do([&] { user.Click(menu.cmdBack); });
  EXPECT_EQ(MenuTitle(), "Main Menu");

  // Two letters are a menu; the longer text goes into the history.
  Open("IC");
  EXPECT_EQ(MenuTitle(), "Items and Stock");
  EXPECT_EQ(menu.cboExecute.List.At(0), "IC.MENU");
  Do([&] { user.Click(menu.cmdBack); });

  // The command prompt in the terminal, and back to the menus.
  Do([&] { user.Click(menu.cmdTcl); });
  EXPECT_TRUE(InFront(LoadedForm<frmTelnet>()));
  EXPECT_EQ(Session().ActiveContext, "TELNET");
  Do([&] { user.Type("WHO\r"); });
  EXPECT_TRUE(ScreenShows("demo"));
  Do([&] { user.Type("\r"); });  // the listing waits for Enter
  Do([&] { user.Type("MENU\r"); });
  EXPECT_TRUE(InFront(&menu));

  // Logging off ends the session; with QuickExit off the program stays for the next one.
  Do([&] { user.Click(menu.cmdLogoff); });
  EXPECT_EQ(backend.messageBoxes.back().text, "Are you sure you want to log off?");
  EXPECT_EQ(LoadedForm<frmTelnet>(), nullptr);
  EXPECT_EQ(LoadedForm<frmSubMenu>(), nullptr);
  EXPECT_FALSE(backend.ended);
  EXPECT_EQ(LoadedForm<mdiMain>()->Caption(), "Quorvel GUI - Not Connected");

  backend.onFileDialog = [this](const FileDialog&) { return backend.commandLine; };
  Do([&] { Form<mdiMain>()->cmdStartTelnet.UserClick(); });
  EXPECT_EQ(backend.lines.size(), 2u);
  EXPECT_TRUE(InFront(LoadedForm<frmSubMenu>()));
  EXPECT_EQ(MenuTitle(), "Main Menu");
}

TEST_F(SessionStory, JoinedWritesLoseNoFrame) {
  joinWrites = true;
  Start(kAutoLogin);
  EXPECT_TRUE(InFront(LoadedForm<frmSubMenu>()));
  Open("AR");
  EXPECT_EQ(MenuTitle(), "Customers and Receivables");
}

TEST_F(SessionStory, TheHostAsksForAPassword) {
  Start(kAutoLogin);
  bool asked = false;
  backend.onIdle = [this, asked = &asked, exchange = backend.onIdle] {
    if (exchange()) return true;
    frmPassword* dialog = LoadedForm<frmPassword>();
    if (!dialog || *asked) return false;
    *asked = true;
    EXPECT_FALSE(dialog->lblPgm.Caption().empty());
    user.Type("demo\r");
    return true;
  };
  Open("UT.CLOSE");
  EXPECT_TRUE(asked);
  EXPECT_EQ(LoadedForm<frmPassword>(), nullptr);
}

TEST_F(SessionStory, TheLinkIsLostInAMenuAndEndsTheProgram) {
  Start("[TELNET]\nHostName=127.0.0.1\n[LOGIN]\nUserId=demo\nPwd=demo\n");
  ASSERT_TRUE(InFront(LoadedForm<frmSubMenu>()));
  Line().HangUp();
  backend.RunUntilIdle();
  EXPECT_TRUE(backend.ended);
  EXPECT_TRUE(backend.messageBoxes.empty());
}

}  // namespace
}  // namespace quorvel

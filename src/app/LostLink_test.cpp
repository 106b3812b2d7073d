// What a session leaves behind when its link is lost, and what is gone when the next one connects:
// no wait goes on there, nothing is sent to a host that did not ask, and nothing is in its way.

#include "app/SlowHostTest.h"
#include "entry/frmList.h"
#include "entry/frmLocate.h"
#include "link/frmConnect.h"
#include "link/frmPassword.h"
#include "menus/frmHelpText.h"
#include "menus/frmSubMenu.h"

namespace quorvel {
namespace {

std::string MenuOf(const std::string& title, const std::string& option) {
  return FrameOf({"~STARTMENU~", title,
                  title +
                      "\xFE"
                      "Tab\xFE" +
                      option +
                      "\xFD"
                      "Tab",
                  "\xFE" + option, "who"});
}

class LostLink : public SlowHostTest {
 protected:
  void OpenCustomers() {
    Open({{1,
           "2\xFD"
           "3"},
          {2, DefinitionOf({{1, PlaceAt(10, 1, 8)}, {5, "X"}, {6, "KEY"}, {13, "LOC"}})},
          {3, DefinitionOf({{1, PlaceAt(10, 2, 20)}, {2, MappingOf({{2, "1"}})}, {5, "X"}})}});
    Put("DATA", "100", "Acme");
  }
  // What the next host is sent up to the end of its login, requests and all.
  std::string LogInAgain() {
    std::string sent = Deliver("login: ");
    sent += Deliver("Password: ");
    for (const std::string& request : TakeRequests()) sent += request;
    return sent + std::exchange(plain, "");
  }
};

// Whatever waits when the link is lost: the next session's login goes its way, and the wait ends
// without a word. Never does what was waited for count as done.
TEST_F(LostLink, WaitsEndWithTheNextSession) {
  const auto enterKey = [this] {
    OpenCustomers();
    EnterKey("100");
  };
  const struct {
    const char* what;
    std::string heldBack;
    std::function<void()> prepare, act;
  } cases[] = {
      {"lock", "LOCK", [this] { OpenCustomers(); }, [this] { EnterKey("100"); }},
      {"read", "READ DATA", [this] { OpenCustomers(); }, [this] { EnterKey("100"); }},
      {"save", "WRITE", enterKey,
       [this] {
         Enter(3, "Changed");
         Click(Screen().cmdSave);
       }},
      {"delete", "DELETE", enterKey, [this] { Click(Screen().cmdDelete); }},
      {"open", "OPENALLFILES", [] {}, [this] { OpenCustomers(); }},
      {"option", "READ DICTIONARY",
       [this] {
         Deliver(MenuOf("Main", "A.X"));
         LoadedForm<frmSubMenu>()->lstOptions(0).UserPick(1);
       },
       [this] { Press(KeyCode::Return); }},
      {"help", "WRITEHELP",
       [this] {
         Deliver(FrameOf({"~FIELDHELP~", "KEY", "PGM", ""}));
         Do([this] { user.Type("text"); });
       },
       [this] { Click(LoadedForm<frmHelpText>()->cmdSave); }},
      {"locator", "READ LOCATOR",
       [this] {
         OpenCustomers();
         Meanwhile([this] { user.Type("a\r"); });
       },
       [this] { Run([this] { Screen().SYLocatr(); }); }},
  };
  bool first = true;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    if (!first) {
      LogInAgain();
      Session().PendingOp.clear();
      onRequest = nullptr;
      TakeRequests();
    }
    first = false;
    c.prepare();
    HoldBack(c.heldBack);
    MeanwhileLoseLink();
    if (c.what == std::string("help")) {  // its text is not lost with the link
      Meanwhile([this] { user.Click(LoadedForm<frmHelpText>()->cmdExit); });
    }
    MeanwhileReconnect();
    c.act();
    PlayOn();
    TakeRequests();
    ForgetHeld();
    ExpectDone();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(LoadedForm<frmLocate>(), nullptr);
    EXPECT_EQ(Session().PendingOp, "Login");
    EXPECT_EQ(desktop().Pointer(), MousePointer::Default);
    EXPECT_EQ(LogInAgain(), "demo\rsecret\r");
  }
  EXPECT_EQ(files["DATA"]["100"], "Acme");
}

// Frame, capture, host printing, what was asked: none of it is in the way of the next session.
TEST_F(LostLink, NothingSwallowsTheNextSessionsText) {
  const struct {
    const char* what;
    std::string left;
  } cases[] = {
      {"an open frame", "text\x7F~MSGB"},
      {"a capture", FrameOf({"~CAPTURE-ON~", "", "", ""})},
      {"host printing", FrameOf({"~STARTPRINT~"})},
      {"a menu", MenuOf("Sub", "B")},
  };
  backend.onIdle = nullptr;
  Deliver(MenuOf("Main", "A"));
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Deliver(c.left);
    Line().HangUp();
    backend.RunUntilIdle();
    Do([] { desktop().Post(EventKind::User, [] { StartSession(); }); });
    Line().Accept();
    backend.RunUntilIdle();
    EXPECT_EQ(LogInAgain(), "demo\rsecret\r");
    Deliver("Welcome\r\n");
    EXPECT_TRUE(ScreenShows("Welcome"));
    EXPECT_TRUE(LoadedForm<frmTelnet>()->Enabled());
    Deliver(MenuOf("Main", "A"));
    Deliver(MenuOf("Sub", "B"));  // as the last one left it: shown again all the same
    EXPECT_EQ(LoadedForm<frmSubMenu>()->lstOptions(0).Items().front().text, "B  ");
    Deliver(MenuOf("Main", "A"));
  }
}

// A question that is open when the link is lost goes with the next session, and its answer to
// nobody.
TEST_F(LostLink, QuestionsGoWithTheirSession) {
  const Texts questions[] = {{"~LISTBOX~", "Pick", "0,0,0,0", "one"},
                             {"~GETPASSWORD~", "PGM"},
                             {"~MSGBOX~", "Title", "Text"}};
  backend.answersAtOnce = false;
  for (const Texts& question : questions) {
    SCOPED_TRACE(question[0]);
    MeanwhileLoseLink();
    MeanwhileReconnect();
    if (question[0] == "~MSGBOX~") {
      Meanwhile([this] { backend.BoxInFront()->Close(); });
    }
    Deliver(FrameOf(question));
    PlayOn();
    ExpectDone();
    EXPECT_EQ(LoadedForm<frmList>(), nullptr);
    EXPECT_EQ(LoadedForm<frmPassword>(), nullptr);
    EXPECT_EQ(LogInAgain(), "demo\rsecret\r");
    Session().PendingOp.clear();
  }
}

// The question of a changed help text is open when the link is lost: the text stays until it is
// saved or given up, also over the next session's login.
TEST_F(LostLink, AChangedHelpTextStays) {
  Deliver(FrameOf({"~FIELDHELP~", "KEY", "PGM", ""}));
  Do([this] { user.Type("new text"); });
  backend.answersAtOnce = false;
  const auto answer = [this](const std::string& begins, MessageBoxAnswer with) {
    Meanwhile([this, begins, with] {
      ASSERT_NE(backend.BoxInFront(), nullptr);
      EXPECT_TRUE(backend.BoxInFront()->message.text.starts_with(begins));
      backend.BoxInFront()->answer = with;
      backend.BoxInFront()->Close();
    });
  };
  MeanwhileLoseLink();
  answer("Changes have been made!", MessageBoxAnswer::Yes);
  answer("Error updating Help Text \nNot connected", MessageBoxAnswer::Ok);
  Click(LoadedForm<frmHelpText>()->cmdExit);
  ASSERT_NE(LoadedForm<frmHelpText>(), nullptr);
  EXPECT_EQ(LoadedForm<frmHelpText>()->txtHelp.Text(), "new text");

  MeanwhileReconnect();
  Do([] { desktop().Post(EventKind::User, [] { StartSession(); }); });
  Line().Accept();
  backend.RunUntilIdle();
  answer("Error updating Help Text \nNot connected", MessageBoxAnswer::Ok);
  Click(LoadedForm<frmHelpText>()->cmdSave);  // the host is at its login
  EXPECT_EQ(LogInAgain(), "demo\rsecret\r");
  Deliver(MenuOf("Main", "A"));
  Click(LoadedForm<frmHelpText>()->cmdSave);
  EXPECT_EQ(TakeRequests().back(), "WRITEHELP KEY new text 70 \xFC");
  EXPECT_EQ(LoadedForm<frmHelpText>(), nullptr);
}

}  // namespace
}  // namespace quorvel

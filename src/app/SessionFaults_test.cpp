// Slips of the wire, of the host and of the user that must not cost more than themselves.

#include "app/SlowHostTest.h"
#include "link/frmConnect.h"
#include "menus/frmSubMenu.h"
#include "menus/mdiMain.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

class SessionFaults : public SlowHostTest {};

// Each call of a hook ends by its own reply, one inside the other.
TEST_F(SessionFaults, NestedHooksEndByTheirOwnReplies) {
  Session().CaseProgram = "P";
  HoldBack("HOOK");
  std::vector<std::string> ended;
  Meanwhile([&] {
    desktop().Post(EventKind::Program, [&] {
      Session().CaseHook = "inner";
      CaseCall("0");
      ended.push_back("inner by " + Session().CaseData);
    });
  });
  Meanwhile([&] { Line().Deliver(FrameOf({"~CASELOGIC~", "h", "", "", "first"})); });
  Meanwhile([&] {
    EXPECT_EQ(ended, Texts{"inner by first"});
    Line().Deliver(FrameOf({"~CASELOGIC~", "h", "", "", "second"}));
  });
  Run([&] {
    Session().CaseHook = "outer";
    CaseCall("0");
    ended.push_back("outer by " + Session().CaseData);
    // And the next one is not over before it has begun.
    onRequest = nullptr;
    Session().CaseHook = "next";
    Session().CaseData = "asked";
    onHook = [](const Texts&) { return FrameOf({"~CASELOGIC~", "RETURN", "", "", "answered"}); };
    CaseCall("0");
    ended.push_back("next by " + Session().CaseHook);
  });
  ForgetHeld();
  ExpectDone();
  EXPECT_EQ(ended, (Texts{"inner by first", "outer by second", "next by RETURN"}));
}

// A reply that comes when nobody waits for it any more is none to the next call.
TEST_F(SessionFaults, AReplyToNobodyIsNoReply) {
  Deliver(FrameOf({"~CASELOGIC~", "RETURN", "", "", ""}));
  Session().CaseProgram = "P";
  Session().CaseHook = "BeforeWrite";
  Run([] { CaseCall("0"); });
  EXPECT_EQ(TakeRequests(), Texts{"HOOK BeforeWrite 0"});
  EXPECT_EQ(Session().CaseHook, "BeforeWrite");
}

// The host sends the keyboard back behind the last open field of a Save: the record is saved, its
// lock given back, and Enter begins with a key as ever.
TEST_F(SessionFaults, AnErrorBehindTheStoreInSave) {
  Open({{1,
         "2\xFD"
         "3"},
        {2, DefinitionOf({{1, PlaceAt(10, 1, 8)}, {5, "X"}, {6, "KEY"}})},
        {3, DefinitionOf({{1, PlaceAt(10, 2, 20)},
                          {2, MappingOf({{2, "1"}})},
                          {5, "X"},
                          {6, "NAME"},
                          {15, "Y"},
                          {26, "NNY"}})}},
       "PROG");
  Put("DATA", "1", "a");
  EnterKey("1");
  Enter(3, "b");
  onHook = [](const Texts& f) { return HookReply(f, f[4], f[4] == "as_NAME" ? "Error" : f[7]); };
  TakeRequests();
  Click(Screen().cmdSave);
  EXPECT_EQ(TakeRequests(), (Texts{"HOOK as_NAME 3", "HOOK BeforeWrite 0", "WRITE DATA 1 b SYCRLOC",
                                   "HOOK AfterWrite 0", "LOCK AR.X DATA 1 U"}));
  EXPECT_EQ(BoxTexts(), Texts{});
  EXPECT_EQ(Session().RecordKey, "");
  EXPECT_TRUE(HasKeyboard(Text(2)));
}

// A record is open: another screen is not opened over it, and says why.
TEST_F(SessionFaults, AnOpenRecordComesFirst) {
  Open({{2, DefinitionOf({{1, PlaceAt(10, 1, 8)}, {5, "X"}, {6, "KEY"}})},
        {3, DefinitionOf({{1, PlaceAt(10, 2, 20)}, {2, MappingOf({{2, "1"}})}, {5, "X"}})}});
  Put("DATA", "1", "a");
  Put("DICTIONARY", "AR.Y", RecordOf({{22, "OTHER"}}));
  EnterKey("1");
  Enter(3, "changed");
  Deliver(FrameOf({"~STARTMENU~", "M", "Main\xFEOne\xFEOption\xFDOne",
                   "\xFE"
                   "AR.Y",
                   ""}));
  TakeRequests();
  LoadedForm<frmSubMenu>()->lstOptions(0).UserPick(1);
  Press(KeyCode::Return);
  EXPECT_EQ(TakeRequests(), Texts{"READ DICTIONARY AR.Y"});
  EXPECT_EQ(BoxTexts(), Texts{"The record on the open screen is to be saved or cancelled first."});
  EXPECT_TRUE(InFront(&Screen()));
  EXPECT_EQ(Text(3).Text(), "changed");
  Click(Screen().cmdSave);
  EXPECT_EQ(files["DATA"]["1"], "changed");
}

// What fails in one step of a block costs that step: the frame behind it counts, and those after
// it.
TEST_F(SessionFaults, AFailingPrinterCostsItsTextOnly) {
  backend.printerFails = true;
  backend.onIdle = nullptr;
  const std::string printOn = "\x1b[5i", printOff = "\x1b[4i";
  Session().OptionId = "X";
  Deliver(printOn + "to the printer" + printOff + FrameOf({"~MSGBOX~", "T", "behind"}));
  EXPECT_EQ(Session().FrameStart, 0);
  Deliver("text");
  EXPECT_TRUE(ScreenShows("text"));
  const Texts boxes = BoxTexts();
  EXPECT_NE(std::find(boxes.begin(), boxes.end(), "behind"), boxes.end());
  EXPECT_EQ(boxes.size(), 2u);  // and the failure
}

// The hourglass goes when the host answers by a box, and with the link.
TEST_F(SessionFaults, TheHourglassGoes) {
  backend.onIdle = nullptr;
  const std::function<void()> ends[] = {
      [this] {
        Deliver(FrameOf({"~MSGBOX~", "T", "No list"}));
      },
      [this] {
        Deliver(FrameOf({"~ERRORMSG~", "No list"}));
      },
      [this] { Do([this] { Line().HangUp(); }); },
  };
  for (const auto& end : ends) {
    desktop().SetMousePointer(MousePointer::Hourglass);
    end();
    EXPECT_EQ(desktop().Pointer(), MousePointer::Default);
  }
}

// --- connecting

// A code that no character has is refused where the file is read, not in every block of the
// session.
TEST(ConnectFaults, SendKeysThatCannotBeSent) {
  ClientTest client;
  client.Start("[TELNET]\nHostName=host\n[LOGIN]\nUserId=demo\nSendKeys=a^[256]\n");
  ASSERT_EQ(client.backend.messageBoxes.size(), 1u);
  const std::string text = client.backend.messageBoxes[0].text;
  EXPECT_NE(text.find("code above 255"), text.npos) << text;
  EXPECT_NE(text.find("[LOGIN] SendKeys"), text.npos) << text;
  EXPECT_TRUE(client.backend.lines.empty());
}

// While one connection is being made, no other is taken over: not its user, nor its password.
TEST(ConnectFaults, ASecondSessionWhileTheFirstConnects) {
  ClientTest client;
  client.Start("[TELNET]\nHostName=first\n[LOGIN]\nUserId=one\nPwd=1\n");
  const std::string other =
      client.folder.Write("other.inf", "[TELNET]\nHostName=second\n[LOGIN]\nUserId=two\nPwd=2\n");
  client.backend.onFileDialog = [&](const FileDialog&) { return other; };
  client.Do([] { LoadedForm<frmTelnet>()->mnuSOpen.UserClick(); });
  client.Do([] { LoadedForm<mdiMain>()->cmdStartTelnet.UserClick(); });
  client.Do([] { LoadedForm<frmTelnet>()->mnuCRemoteSystem.UserClick(); });
  ASSERT_EQ(client.backend.lines.size(), 1u);
  client.Line().Accept();
  client.backend.RunUntilIdle();
  EXPECT_EQ(client.Deliver("login: "), "one\r");
  EXPECT_EQ(client.Deliver("Password: "), "1\r");
  EXPECT_EQ(Session().HostName, "first");
}

// Another configuration is picked in the dialog: what was typed for the first host goes, a failure
// is told once, and the program shows that it is not connected.
TEST(ConnectFaults, BrowsingInTheDialog) {
  ClientTest client;
  const std::string other = client.folder.Write("other.inf", "[TELNET]\nHostName=second\n");
  client.backend.onFileDialog = [&](const FileDialog&) { return other; };
  int idle = 0;
  client.backend.onIdle = [&] {
    frmConnect* dialog = LoadedForm<frmConnect>();
    switch (++idle) {
      case 1:
        dialog->txtUserId.UserFocus();
        client.user.Type("me");
        dialog->txtPassword.UserFocus();
        client.user.Type("pw");
        client.user.Click(dialog->cmdBrowse);
        return true;
      case 2:
        EXPECT_EQ(dialog->HostName.Text(), "second");
        EXPECT_EQ(dialog->txtUserId.Text() + dialog->txtPassword.Text(), "");
        client.user.Click(dialog->cmdConnect);
        return true;
      case 3:
        client.Line().Refuse("no");
        return true;
      default:
        return false;
    }
  };
  client.Start("[TELNET]\nHostName=first\n");
  EXPECT_EQ(client.backend.lines.size(), 1u);
  ASSERT_EQ(client.backend.messageBoxes.size(), 1u);
  EXPECT_TRUE(client.backend.messageBoxes[0].text.starts_with("Could not connect to second"));
  EXPECT_TRUE(LoadedForm<mdiMain>()->Caption().ends_with(" - Not Connected"));
}

// Who says No to leaving stays, whatever ends with the session.
TEST(ConnectFaults, NoToLeavingStays) {
  ClientTest client;
  client.Connect("[TELNET]\nHostName=host\nQuickExit=1\n[LOGIN]\nUserId=demo\n");
  Session().PendingOp.clear();
  client.backend.onMessageBox = [](const MessageBoxRequest&) { return MessageBoxAnswer::No; };
  client.Do([] { LoadedForm<mdiMain>()->mnuExit.UserClick(); });
  EXPECT_FALSE(client.backend.ended);
  EXPECT_EQ(Session().Connected, 0);
  EXPECT_TRUE(LoadedForm<mdiMain>()->TakesInput());
}

}  // namespace
}  // namespace quorvel

// The help text window: what a help message shows, and what leaving it tells the host.

#include <iterator>
#include <sstream>

#include "app/FarEndTest.h"
#include "menus/frmHelpText.h"

namespace quorvel {
namespace {

// A help record: "^" for AM, "]" for VM.
std::string Record(std::string text) {
  for (char& c : text) c = c == '^' ? AM : c == ']' ? VM : c;
  return text;
}

const char* const kRecord = "Customer^2^3^4^5^6^7^8^9^10^One]Two]]Four^12";
const MessageBoxRequest kQuestion{"Changes have been made! Do you wish to save the changes?",
                                  "Help Text Changed", 3};

class HelpTextTest : public FarEndTest {
 protected:
  HelpTextTest() { LogIn(); }

  std::string Show(const std::string& record = kRecord, const std::string& key = "AR.CUST") {
    return Deliver(FrameOf({"~FIELDHELP~", key, "AR.MENU", Record(record)}));
  }
  static frmHelpText& Help() { return *LoadedForm<frmHelpText>(); }
  static bool IsOpen() { return LoadedForm<frmHelpText>() != nullptr; }
  static void Edit(const std::string& text) { Help().txtHelp.UserEdit(text); }
  static std::string WriteOf(const std::string& text, const std::string& key = "AR.CUST") {
    return RequestOf({"WRITEHELP", key, text, "70", "\xFC"});
  }
  void AnswerBoxWith(MessageBoxAnswer answer) {
    backend.messageBoxes.clear();
    backend.onMessageBox = [answer](const MessageBoxRequest&) { return answer; };
  }
};

TEST_F(HelpTextTest, TheMessageFillsTheWindow) {
  EXPECT_EQ(Show(), "");
  EXPECT_EQ(Help().Caption(), "Help Key - AR.CUST  Pgm/Menu - AR.MENU");
  EXPECT_EQ(Help().lblTitle.Caption(), "Customer");
  EXPECT_EQ(Help().txtHelp.Text(), "One\r\nTwo\r\n\r\nFour");
  EXPECT_TRUE(Help().txtHelp.HasFocus());
  EXPECT_FALSE(Help().IsModal());
  EXPECT_EQ(Session().HelpKey, "AR.CUST");
  EXPECT_EQ(Session().HelpOpen, 1);
  EXPECT_EQ(Session().PendingOp, "");
  // The next one waits until this one has been answered.
  Show("Heading only", "K2");
  EXPECT_EQ(Help().lblTitle.Caption(), "Customer");
  EXPECT_EQ(Do([this] { user.Press(KeyCode::Escape); }), "\r");
  EXPECT_EQ(Help().Caption(), "Help Key - K2  Pgm/Menu - AR.MENU");
  EXPECT_EQ(Help().lblTitle.Caption(), "Heading only");
  EXPECT_EQ(Help().txtHelp.Text(), "");
  EXPECT_EQ(Do([this] { user.Press(KeyCode::Escape); }), "\r");
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Session().HelpOpen, 0);
  Deliver(FrameOf({"~FIELDHELP~"}));
  EXPECT_EQ(Help().txtHelp.Text(), "");
}

TEST_F(HelpTextTest, StandsOverTheTerminalWindow) {
  Form<mdiMain>()->Left = 900;
  Form<mdiMain>()->Top = 600;
  backend.RunUntilIdle();
  Show();
  ExpectOverTelnetWindow(Help());
}

TEST_F(HelpTextTest, LeavingUnchangedAnswersWithAnEmptyLine) {
  const std::function<void()> ways[] = {[this] { user.Click(Help().cmdExit); },
                                        [this] { user.Click(Help().cmdSave); },
                                        [] { Help().mnuFileExit.UserClick(); },
                                        [] { Help().mnuFileSave.UserClick(); },
                                        [] { Help().UserClose(); },
                                        [this] { user.Press(KeyCode::Escape); },
                                        [this] { user.Press(static_cast<KeyCode>('E'), kAlt); }};
  for (const auto& way : ways) {
    Show();
    EXPECT_EQ(Do(way), "\r");
    EXPECT_FALSE(IsOpen());
  }
  EXPECT_TRUE(backend.messageBoxes.empty());
}

TEST_F(HelpTextTest, SavingWritesTheLines) {
  for (const bool menu : {false, true}) {
    Show();
    Edit("One\r\nNew \xFA\r\n");
    Answer({FrameOf({"OK"})});
    EXPECT_EQ(Do([&] { menu ? Help().mnuFileSave.UserClick() : user.Click(Help().cmdSave); }), "");
    EXPECT_EQ(asked, Texts{WriteOf("One\xFCNew ?\xFC")});
    EXPECT_FALSE(IsOpen());
  }
  EXPECT_TRUE(backend.messageBoxes.empty());
  // The host refuses: that is told, and the window goes all the same.
  Show();
  Edit("x");
  Answer({FrameOf({"No room"})});
  EXPECT_EQ(Do([this] { user.Press(static_cast<KeyCode>('S'), kAlt); }), "");
  EXPECT_EQ(BoxTexts(), Texts{"Error updating Help Text \nNo room"});
  EXPECT_FALSE(IsOpen());
}

TEST_F(HelpTextTest, LeavingChangedAsks) {
  Show();
  Edit("xOne\r\nTwo\r\n\r\nFour");
  AnswerBoxWith(MessageBoxAnswer::Cancel);
  EXPECT_EQ(Do([this] { user.Press(KeyCode::Escape); }), "");
  EXPECT_EQ(backend.messageBoxes, std::vector{kQuestion});
  EXPECT_EQ(Help().txtHelp.Text(), "xOne\r\nTwo\r\n\r\nFour");

  AnswerBoxWith(MessageBoxAnswer::No);
  EXPECT_EQ(Do([] { Help().UserClose(); }), "\r");
  EXPECT_FALSE(IsOpen());

  Show();
  Edit("xOne\r\nTwo\r\n\r\nFour");
  AnswerBoxWith(MessageBoxAnswer::Yes);
  Answer({FrameOf({"OK"})});
  EXPECT_EQ(Do([this] { user.Click(Help().cmdExit); }), "");
  EXPECT_EQ(asked, Texts{WriteOf("xOne\xFCTwo\xFC\xFC"
                                 "Four")});
  EXPECT_EQ(backend.messageBoxes, std::vector{kQuestion});
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Session().HelpOpen, 0);
}

TEST_F(HelpTextTest, AChangedTextIsNeverWrittenUnderAnotherKey) {
  Show();
  Edit("mine");
  // The user asks for another help text, which sets the key, and the host sends it.
  Session().HelpKey = "K2";
  Show("Other", "K2");
  EXPECT_EQ(Help().Caption(), "Help Key - AR.CUST  Pgm/Menu - AR.MENU");
  EXPECT_EQ(Help().txtHelp.Text(), "mine");
  Answer({FrameOf({"OK"})});
  Do([this] { user.Click(Help().cmdSave); });
  EXPECT_EQ(asked, Texts{WriteOf("mine")});
}

TEST_F(HelpTextTest, WhileTheHostWritesTheWindowStays) {
  Show();
  Edit("x");
  EXPECT_EQ(Do([this] {
              desktop().Post(EventKind::User, [this] {
                EXPECT_EQ(Line().TakeSent(), WriteOf("x"));
                user.Click(Help().cmdSave);
                user.Click(Help().cmdExit);
                Help().UserClose();
                EXPECT_TRUE(Help().IsVisible());
                Line().Deliver(FrameOf({"OK"}));
              });
              user.Click(Help().cmdSave);
            }),
            "");
  EXPECT_FALSE(IsOpen());
  EXPECT_FALSE(backend.stalled);
}

TEST_F(HelpTextTest, TheEndOfTheSessionClosesIt) {
  Show();
  Line().HangUp();
  backend.RunUntilIdle();
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(backend.messageBoxes.empty());
}

TEST_F(HelpTextTest, ChangesOutliveTheSession) {
  Show();
  Edit("x");
  AnswerBoxWith(MessageBoxAnswer::Yes);
  Line().HangUp();
  backend.RunUntilIdle();
  // Nowhere to write to: the user can still copy the text.
  EXPECT_EQ(BoxTexts(), (Texts{kQuestion.text, "Error updating Help Text \nNot connected"}));
  ASSERT_TRUE(IsOpen());
  EXPECT_EQ(Help().txtHelp.Text(), "x");
  AnswerBoxWith(MessageBoxAnswer::No);
  Do([this] { user.Click(Help().cmdExit); });
  EXPECT_FALSE(IsOpen());
  EXPECT_FALSE(backend.stalled);
}

Texts WordsOf(const std::string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), {}};
}

class HelpTextStory : public ::testing::Test, public JoinedTest {};

TEST_F(HelpTextStory, TheSampleHostKeepsWhatIsSaved) {
  Start("[TELNET]\nHostName=host\n[LOGIN]\nUserId=demo\nPwd=demo\n");
  const auto open = [this] { Do([this] { user.Click(Form<frmSubMenu>()->cmdHelp); }); };
  open();
  ASSERT_TRUE(LoadedForm<frmHelpText>());
  const std::string before = LoadedForm<frmHelpText>()->txtHelp.Text();
  std::string words;
  for (int i = 0; i < 20; ++i) words += "word" + std::to_string(i) + " ";
  LoadedForm<frmHelpText>()->txtHelp.UserEdit(words + "\r\n" + before);
  Do([this] { user.Click(LoadedForm<frmHelpText>()->cmdSave); });
  EXPECT_EQ(LoadedForm<frmHelpText>(), nullptr);
  open();
  // Reflowed to lines of at most 70 characters, nothing lost.
  const std::string after = LoadedForm<frmHelpText>()->txtHelp.Text();
  EXPECT_LE(after.find("\r\n"), 70u);
  EXPECT_EQ(WordsOf(after), WordsOf(words + before));
  Do([this] { user.Press(KeyCode::Escape); });
  EXPECT_EQ(LoadedForm<frmHelpText>(), nullptr);
  EXPECT_TRUE(backend.messageBoxes.empty());
  // The host has gone on.
  Do([this] {
    user.Click(Form<frmSubMenu>()->cboExecute);
    user.Type("IC\r");
  });
  EXPECT_EQ(Session().MenuText.substr(0, 5), "Items");
}

}  // namespace
}  // namespace quorvel

// The stream of the host taken apart: bytes in; frames, terminal, capture file, printer and sent
// bytes out.

#include "link/Receiver.h"

#include <sstream>

#include "app/FarEndTest.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

using namespace std::string_literals;

class ReceiverTest : public FarEndTest {
 protected:
  // A session whose terminal text is collected; frames that nobody awaits show in boxes.
  void Begin(const std::string& login = "UserId=demo\nPwd=secret\n") {
    LogIn(login);
    Ask().WriteTerminal = [this](std::string_view text) { terminal += text; };
  }
  std::string Captured() {
    std::ostringstream content;
    content << std::ifstream(Session().CaptureFile, std::ios::binary).rdbuf();
    return content.str();
  }

  std::string terminal;
};

TEST_F(ReceiverTest, FramesAndTextAreToldApart) {
  const std::string text(100'000, 'x');
  struct Case {
    const char* what;
    Texts reads;
    std::string terminal;
    Texts frames;
  };
  const Case cases[] = {
      {"plain text", {"a", "b\r\n"}, "ab\r\n", {}},
      {"text, then a frame",
       {"ab\x7F"
        "cd\x7F"},
       "ab",
       {"cd"}},
      {"the opening mark ends the read", {"ab\x7F", "cd\x7F"}, "ab", {"cd"}},
      {"over three reads",
       {"a\x7F"
        "b",
        "c", "d\x7F"},
       "a",
       {"bcd"}},
      {"the closing mark alone",
       {"\x7F"
        "a",
        "\x7F", "b"},
       "b",
       {"a"}},
      {"what follows a frame is dropped",
       {"\x7F"
        "a\x7F"
        "b",
        "c"},
       "c",
       {"a"}},
      {"dropped behind the end of a frame too",
       {"\x7F"
        "a",
        "b\x7F"
        "c",
        "d"},
       "d",
       {"ab"}},
      {"empty frames", {"\x7F\x7F", "\x7F", "\x7F"}, "", {"", ""}},
      {"two frames in one read",
       {"a\x7F"
        "b\x7F"
        "c\x7F"
        "d\x7F"
        "e"},
       "a",
       {"b", "d"}},
      {"every byte but the mark",
       {"\x7F\0\x01\xFA\xFB\xFC\xFD\xFE\xFF\xFF\r\n\x1B\x80\x7F"s},
       "",
       {"\0\x01\xFA\xFB\xFC\xFD\xFE\xFF\r\n\x1B\x80"s}},
      {"a telnet command inside",
       {"\x7F"
        "a\xFF\xFD\x1F"
        "b\x7F"},
       "",
       {"ab"}},
      {"a long frame and long text", {text + "\x7F" + text + "\x7F", text}, text + text, {text}},
  };
  Begin();
  for (const Case& c : cases) {
    terminal.clear();
    backend.messageBoxes.clear();
    for (const std::string& read : c.reads) Deliver(read);
    Texts boxes;
    for (const std::string& frame : c.frames) {
      boxes.push_back(frame + "\n" + std::to_string(frame.size()));
    }
    EXPECT_EQ(terminal, c.terminal) << c.what;
    EXPECT_EQ(BoxTexts(), boxes) << c.what;
    EXPECT_EQ(Session().FrameStart, 0) << c.what;
  }
}

TEST_F(ReceiverTest, CalledDirectlyItActsOnTheFirstFrameOnly) {
  Begin();
  const auto receive = [this](std::string block) {
    backend.messageBoxes.clear();
    desktop().Handle(EventKind::Receive, [&] { ReceiveHostData(block); });
    return BoxTexts();
  };
  EXPECT_EQ(receive("a\x7F"
                    "1\x7F"
                    "b\x7F"
                    "2\x7F"
                    "c"),
            Texts{"1\n1"});
  EXPECT_EQ(terminal, "a");
  // Positions are 16 bits wide.
  EXPECT_EQ(receive(std::string(32766, 'x') + "\x7F"), Texts{});
  EXPECT_EQ(Session().FrameStart, 32767);
  EXPECT_EQ(receive("\x7F"), Texts{"\n0"});
  EXPECT_EQ(receive(std::string(32767, 'x') + "\x7F"), Texts{"Run-time error '6':\n\nOverflow"});
  EXPECT_EQ(receive("\x7F"
                    "3\x7F"),
            Texts{"3\n1"});  // the session goes on
}

TEST_F(ReceiverTest, AnotherMark) {
  LogIn("UserId=demo\n", "QuickExit=0\nMagic=1\n");
  EXPECT_EQ(Deliver("\x7F\x01~MSGBOX~\xFATitle\xFAText\x01"), "\r");
  EXPECT_EQ(BoxTexts(), Texts{"Text"});
}

struct Login {
  const char* what;
  std::string settings;
  Texts reads;
  std::string sent, terminal, pendingOp;
};

TEST(ReceiverLogin, ScansForThePrompts) {
  const std::string user = "UserId=demo\nPwd=secret\n";
  const std::string noPassword = user + "PwdString=NONE\n";
  const std::string keys = "SendKeys=a^[13]\n";
  const std::string frame = FrameOf({"~ENTRYSCREEN~"});  // known and ignored
  const Login cases[] = {
      {"both prompts", user, {"Hi\r\nlogin: ", "Password: ", "$ "}, "demo\rsecret\r", "$ ", ""},
      {"text ahead", user, {"Hi\r\n", "login: ", "\r\n"}, "demo\r", "Hi\r\n\r\n", "Password"},
      {"own prompts",
       user + "LoginString=User\nPwdString=Key\n",
       {"login: ", "User", "Key"},
       "demo\rsecret\r",
       "login: ",
       ""},
      {"case counts", user, {"LOGIN: "}, "", "LOGIN: ", "Login"},
      {"a prompt in two halves", user, {"log", "in: "}, "", "login: ", "Login"},
      {"no password", noPassword, {"login: ", "Password: "}, "demo\r", "Password: ", ""},
      {"no password, keys", noPassword + keys, {"login: ", "$ ", "b"}, "demo\ra\r", "b", ""},
      {"keys after the password",
       user + keys,
       {"login: ", "word", "$ ", "b"},
       "demo\rsecret\ra\r",
       "b",
       ""},
      {"keys wait for a block", user + keys, {"login: ", "word"}, "demo\rsecret\r", "", "SendKeys"},
      {"a prompt ahead of a frame", user, {"login: " + frame}, "", "login: ", "Login"},
      {"a prompt inside a frame", user, {"\x7Flogin: ", "login: ", frame.substr(0, 1)}, "", "", ""},
      {"an empty password", "UserId=demo\n", {"login: ", "word"}, "demo\r\r", "", ""},
  };
  for (const Login& c : cases) {
    ClientTest client;
    client.Connect("[TELNET]\nHostName=host\n[LOGIN]\n" + c.settings);
    std::string terminal;
    Ask().WriteTerminal = [&](std::string_view text) { terminal += text; };
    std::string sent;
    for (const std::string& read : c.reads) sent += client.Deliver(read);
    EXPECT_EQ(sent, c.sent) << c.what;
    EXPECT_EQ(terminal, c.terminal) << c.what;
    EXPECT_EQ(Session().PendingOp, c.pendingOp) << c.what;
  }
}

TEST_F(ReceiverTest, LoginKeysGoOutOneByOneAndShowTheTerminal) {
  const struct {
    std::string keys;
    Texts sent;
    bool terminalInFront;
  } cases[] = {
      {"^[27]x^[13]", {"\x1B", "x", "\r"}, true},
      {"SY.DOSX", {"S", "Y", ".", "D", "O", "S", "X"}, false},
      {"sy.dos", {"s", "y", ".", "d", "o", "s"}, true},
  };
  Begin();
  for (const auto& c : cases) {
    Deliver(FrameOf({"~STARTMENU~", "M", "Title\xFE\xFEOne", "", ""}));
    ASSERT_TRUE(InFront(LoadedForm<frmSubMenu>()));
    Session().SendKeys = c.keys;
    Session().PendingOp = "SendKeys";
    Line().Deliver("swallowed");
    backend.RunUntilIdle();
    EXPECT_EQ(Line().sent, c.sent);
    EXPECT_EQ(InFront(LoadedForm<frmTelnet>()), c.terminalInFront) << c.keys;
    EXPECT_EQ(Session().PendingOp, "");
  }
  EXPECT_EQ(terminal, "");
  // A code that is no character is a failure; the session goes on.
  Session().SendKeys = "a^[256]";
  Session().PendingOp = "SendKeys";
  Line().TakeSent();
  EXPECT_EQ(Deliver("x"), "");
  EXPECT_EQ(BoxTexts(), Texts{"Run-time error '5':\n\nInvalid procedure call or argument"});
}

TEST_F(ReceiverTest, CaptureTakesEveryBlockWithoutAMark) {
  Begin();
  Deliver(FrameOf({"~CAPTURE-ON~", "", "\x1B[H", ""}));
  EXPECT_EQ(Session().PendingOp, "Capture");
  Deliver("Page 1\r\n");
  Deliver("\x1B[H\x1B[H");
  Deliver("a\x1B\x1B[H[Hb\x7E\0"s);  // what a removal forms is removed too
  EXPECT_EQ(Captured(), "Page 1\r\nab\x7E\0"s);
  // While printing, too; a block with a mark is neither captured nor printed.
  Session().PassThroughPrint = kTrue;
  Deliver("c");
  Deliver("head" + FrameOf({"~ENTRYSCREEN~"}));
  EXPECT_EQ(Captured(), "Page 1\r\nab\x7E\0"s + "c");
  EXPECT_EQ(terminal, "head");
  EXPECT_TRUE(backend.printed.empty());
  // A frame that is still open takes all, whatever is pending.
  Deliver("\x7F~ENTRY");
  Deliver("SCREEN~");
  Deliver("\x7F");
  EXPECT_EQ(Captured().back(), 'c');
  EXPECT_TRUE(backend.messageBoxes.empty());

  Session().CaptureFile = folder.Path();  // can't be written
  Deliver("d");
  Deliver("e");
  EXPECT_EQ(BoxTexts(), Texts{"The report can't be written to " + folder.Path() +
                              "\n\nIs a directory\n\nParts of it will be missing."});
  EXPECT_EQ(Session().PendingOp, "Capture");
}

TEST_F(ReceiverTest, PassThroughPrint) {
  Begin();
  Deliver(FrameOf({"~STARTPRINT~"}));
  Deliver("one\r\n");
  Deliver("two");
  Deliver("head" + FrameOf({"~ENTRYSCREEN~"}));
  EXPECT_EQ(backend.printed, (Texts{"one\r\n", "two"}));
  EXPECT_EQ(terminal, "head");
  EXPECT_EQ(backend.documentsEnded, 0);
  backend.printerFails = true;
  Deliver("lost");
  Deliver("lost too");
  Deliver(FrameOf({"~STARTPRINT~"}));  // changes nothing
  Deliver("and this");
  EXPECT_EQ(BoxTexts(), Texts{"Run-time error '482':\n\nPrinter error"});  // one box a job
  Deliver(FrameOf({"~STOPPRINT~"}));
  EXPECT_EQ(backend.documentsEnded, 1);
  Deliver("three");
  EXPECT_EQ(terminal, "headthree");
  // The next job tells it again, and a printer that is back prints what comes then.
  Deliver(FrameOf({"~STARTPRINT~"}));
  Deliver("lost");
  EXPECT_EQ(BoxTexts().size(), 2u);
  backend.printerFails = false;
  Deliver("back");
  EXPECT_EQ(backend.printed.back(), "back");
  backend.printerFails = true;
  Deliver("gone again");
  EXPECT_EQ(BoxTexts().size(), 3u);
  // A session that ends while it prints leaves nothing of it to the next one.
  Begin();
  Deliver("on the screen");
  EXPECT_EQ(BoxTexts().size(), 3u);
  Deliver(FrameOf({"~STARTPRINT~"}));
  Deliver("lost");
  EXPECT_EQ(BoxTexts().size(), 4u);
}

}  // namespace
}  // namespace quorvel

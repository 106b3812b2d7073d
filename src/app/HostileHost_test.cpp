// A host that means no good: frames cut at every byte, without end, empty, of random bytes; random
// bytes and a dropped link at every state of the session. The session goes on or ends cleanly.

#include <random>

#include <gtest/gtest.h>

#include "app/SessionTest.h"
#include "link/Marks.h"
#include "link/Requests.h"
#include "link/frmPassword.h"

namespace quorvel {
namespace {

std::string Frame(const std::vector<std::string>& fields) {
  std::string frame = "\x7F";
  for (std::size_t i = 0; i < fields.size(); ++i)
    frame += (i ? std::string(1, FS) : "") + fields[i];
  return frame + "\x7F";
}

std::string MenuFrame() {
  return Frame({"~STARTMENU~", "ID",
                "Title\xFE"
                "Tab\xFEOne\xFDTab\xFETwo\xFDTab",
                "\xFE"
                "A.MENU\xFE"
                "B",
                "who"});
}

// The states of a session that the host can misbehave in, and how to get there.
struct State {
  const char* name;
  void (*reach)(ClientTest&);
};

void Connecting(ClientTest& client) {
  client.Start("[TELNET]\nHostName=host\nQuickExit=0\n[LOGIN]\nUserId=demo\nPwd=secret\n");
}
void Login(ClientTest& client) {
  Connecting(client);
  client.Line().Accept();
  client.backend.RunUntilIdle();
}
void Password(ClientTest& client) {
  Login(client);
  client.Deliver("login: ");
}
void AtTerminal(ClientTest& client) {
  Password(client);
  client.Deliver("Password: ");
}
void AtMenu(ClientTest& client) {
  AtTerminal(client);
  client.Deliver(MenuFrame());
}
void InCapture(ClientTest& client) {
  AtMenu(client);
  client.Deliver(Frame({"~CAPTURE-ON~", "", "", ""}));
}
void InFrame(ClientTest& client) {
  AtMenu(client);
  client.Deliver("text\x7F~MSG");
}

constexpr State kStates[] = {{"connecting", Connecting}, {"login", Login}, {"password", Password},
                             {"terminal", AtTerminal},   {"menu", AtMenu}, {"capture", InCapture},
                             {"in a frame", InFrame}};

// A window or box of the client that is left open is closed as its user would.
void LeaveBoxesToTheirDefault(ClientTest& client) {
  client.backend.onIdle = [] {
    frmPassword* dialog = LoadedForm<frmPassword>();
    if (!dialog || !dialog->IsVisible()) return false;
    dialog->cmdExit.UserClick();
    return true;
  };
}

TEST(HostileHost, RandomBytesInEveryState) {
  std::mt19937 random(7);
  const std::string pieces[] = {"\x7F",
                                std::string(1, FS),
                                "\xFE",
                                "\xFD",
                                "~STARTMENU~",
                                "~MSGBOX~",
                                "~CAPTURE-OFF~",
                                "~GETPASSWORD~",
                                "~ERRORMSG~",
                                "~GENOUT~",
                                "~LISTBOX~",
                                "ogin",
                                "word",
                                "\xFF\xFD\x18",
                                "\xFF\xFA",
                                "\x1B[",
                                "\x1BP",
                                "\r\n",
                                "9"};
  for (const State& state : kStates) {
    SCOPED_TRACE(state.name);
    ClientTest client;
    state.reach(client);
    LeaveBoxesToTheirDefault(client);
    for (int read = 0; read < 300 && !client.backend.ended; ++read) {
      std::string bytes;
      for (int i = 0; i < 12; ++i) {
        if (random() % 3 == 0) {
          bytes += static_cast<char>(random());
        } else {
          bytes += pieces[random() % std::size(pieces)];
        }
      }
      client.Deliver(bytes);
    }
    EXPECT_FALSE(client.backend.stalled);
  }
}

TEST(HostileHost, ADroppedLinkInEveryState) {
  for (const State& state : kStates) {
    SCOPED_TRACE(state.name);
    ClientTest client;
    state.reach(client);
    if (client.Line().open) {
      client.Line().HangUp();
    } else {
      client.Line().Refuse("refused");
    }
    client.backend.RunUntilIdle();
    EXPECT_FALSE(client.backend.ended);
    // The client can begin another session.
    Session().FrameStart = 0;  // a frame left open stays open over the link's end
    client.Do([] { desktop().Post(EventKind::User, [] { StartSession(); }); });
    ASSERT_EQ(client.backend.lines.size(), 2u);
    client.Line().Accept();
    client.backend.RunUntilIdle();
    EXPECT_EQ(Session().PendingOp, "Login");
  }
}

TEST(HostileHost, AFrameCutAtEveryByteIsTheSameFrame) {
  const std::string frame = MenuFrame();
  for (std::size_t cut = 1; cut < frame.size(); ++cut) {
    ClientTest client;
    AtTerminal(client);
    client.Deliver(frame.substr(0, cut));
    EXPECT_EQ(LoadedForm<frmSubMenu>(), nullptr);
    client.Deliver(frame.substr(cut));
    frmSubMenu* menu = LoadedForm<frmSubMenu>();
    ASSERT_NE(menu, nullptr) << cut;
    EXPECT_EQ(menu->lstOptions(0).Items().size(), 2u);
  }
}

TEST(HostileHost, AMenuBeyondItsLimitsEndsInOneBox) {
  ClientTest client;
  AtTerminal(client);
  std::string text = "Title\xFEOnly";
  for (int i = 0; i < 101; ++i) text += "\xFEOption\xFDOnly";
  client.Deliver(Frame({"~STARTMENU~", "ID", text, "", ""}));
  ASSERT_EQ(client.backend.messageBoxes.size(), 1u);
  EXPECT_EQ(client.backend.messageBoxes[0].text, "Run-time error '9':\n\nSubscript out of range");
  client.backend.messageBoxes.clear();
  client.Deliver(MenuFrame());
  EXPECT_TRUE(client.backend.messageBoxes.empty());
  EXPECT_EQ(LoadedForm<frmSubMenu>()->lstOptions(0).Items().size(), 2u);
}

TEST(HostileHost, BoxesWithoutEndNestOnlySoFar) {
  ClientTest client;
  AtTerminal(client);
  const std::string box = Frame({"~MSGBOX~", "Title", "Text"});
  std::string flood;
  for (int i = 0; i < 500; ++i) flood += box;
  int open = 0, deepest = 0;
  client.backend.onMessageBox = [&](const MessageBoxRequest&) {
    deepest = std::max(deepest, ++open);
    while (desktop().ServeOne()) {
    }
    --open;
    return MessageBoxAnswer::Ok;
  };
  const std::string sent = client.Deliver(flood);
  EXPECT_EQ(client.backend.messageBoxes.size(), 500u);
  EXPECT_EQ(sent, std::string(500, CR));
  EXPECT_LT(deepest, 40);
}

TEST(HostileHost, AFrameWithoutEndIsHeldBackNeverLost) {
  ClientTest client;
  AtTerminal(client);
  client.Deliver("\x7FREC");
  const std::string piece(100'000, 'x');
  for (int i = 0; i < 50; ++i) client.Deliver(piece);
  EXPECT_EQ(Session().FrameBuffer.size(), 3 + 50 * piece.size());
  EXPECT_EQ(client.ScreenLine(0), "");
}

TEST(HostileHost, AHostThatIsNotReadIsHeldBack) {
  ClientTest client;
  AtTerminal(client);
  client.backend.onMessageBox = [&](const MessageBoxRequest&) {
    for (int i = 0; i < 50; ++i) client.Line().Deliver(std::string(100'000, 'x'));
    EXPECT_FALSE(client.Line().reading);
    return MessageBoxAnswer::Ok;
  };
  client.Deliver(Frame({"~MSGBOX~", "Title", "Text"}));
  EXPECT_TRUE(client.Line().reading);
}

}  // namespace
}  // namespace quorvel

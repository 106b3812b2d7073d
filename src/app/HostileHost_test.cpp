// A host that means no good: frames cut at every byte, without end, empty, of random bytes; random
// bytes and a dropped link at every state of the session. The session goes on or ends cleanly.

#include <random>

#include "app/FarEndTest.h"
#include "link/Requests.h"

namespace quorvel {
namespace {

std::string MenuFrame() {
  const std::string titleAndTabs =
      "Title\xFE"
      "Tab\xFEOne\xFDTab\xFETwo\xFDTab";
  const std::string menuIds =
      "\xFE"
      "A.MENU\xFE"
      "B";
  return FrameOf({"~STARTMENU~", "ID", titleAndTabs, menuIds, "who"});
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
  client.Deliver(FrameOf({"~CAPTURE-ON~", "", "", ""}));
}
void InFrame(ClientTest& client) {
  AtMenu(client);
  client.Deliver("text\x7F~MSG");
}

constexpr State kStates[] = {{"connecting", Connecting}, {"login", Login}, {"password", Password},
                             {"terminal", AtTerminal},   {"menu", AtMenu}, {"capture", InCapture},
                             {"in a frame", InFrame}};

// Closes the window that keeps the user from all others; false if there is none.
bool CloseModalWindow() {
  Window* front = desktop().focus().Front();
  if (!front || !front->IsModal()) return false;
  front->UserClose();
  return true;
}

// A window of the client that is left open is closed as its user would.
void LeaveBoxesToTheirDefault(ClientTest& client) {
  client.backend.onIdle = CloseModalWindow;
}

// One read of a host gone mad: marks, words of the protocol and single bytes, in any order.
std::string RandomRead(std::mt19937& random) {
  static const std::string kPieces[] = {"\x7F",          std::string(1, FS),
                                        "\xFE",          "\xFD",
                                        "~STARTMENU~",   "~MSGBOX~",
                                        "~CAPTURE-OFF~", "~GETPASSWORD~",
                                        "~CASELOGIC~",   "~ERRORMSG~",
                                        "~GENOUT~",      "~LISTBOX~",
                                        "ogin",          "word",
                                        "\xFF\xFD\x18",  "\xFF\xFA\x18\x01\xFF\xF0",
                                        "\x1B[",         "\x1BP",
                                        "\r\n",          "9"};
  std::string bytes;
  for (int i = 0; i < 12; ++i) {
    if (random() % 3 == 0) {
      bytes += static_cast<char>(random());
    } else {
      bytes += kPieces[random() % std::size(kPieces)];
    }
  }
  return bytes;
}

TEST(HostileHost, RandomBytesInEveryState) {
  std::mt19937 random(7);
  for (const State& state : kStates) {
    SCOPED_TRACE(state.name);
    ClientTest client;
    state.reach(client);
    LeaveBoxesToTheirDefault(client);
    for (int read = 0; read < 300 && !client.backend.ended; ++read) {
      client.Deliver(RandomRead(random));
    }
    EXPECT_FALSE(client.backend.stalled);
  }
}

// States in which the program waits inside an event of its own.
struct Wait {
  const char* name;
  bool forRequest;  // without a reply it lasts as long as the process
  void (*begin)(ClientTest&);
};

void AskTheHost(std::function<void()> request) {
  desktop().Post(EventKind::User, std::move(request));
}

const Wait kWaits[] = {
    {"a read", true, [](ClientTest&) { AskTheHost([] { ReadRecord("FILE", "KEY"); }); }},
    {"a write", true,
     [](ClientTest&) { AskTheHost([] { WriteRecord("FILE", "KEY", "r", "t"); }); }},
    {"a hook", true, [](ClientTest&) { AskTheHost([] { CaseCall("argument"); }); }},
    {"an option", true, [](ClientTest&) { AskTheHost(RunOption); }},
    {"a screen", true, [](ClientTest&) { AskTheHost(OpenAllFiles); }},
    {"a password", false,
     [](ClientTest& client) {
       client.Line().Deliver(FrameOf({"~GETPASSWORD~", "Payroll"}));
     }},
    {"a box", false,
     [](ClientTest& client) {
       client.Line().Deliver(FrameOf({"~MSGBOX~", "Title", "Text"}));
     }},
};

// Plays a wait in which the host makes `reads` random reads, then drops the link. Then the user
// closes what is open.
void PlayWait(ClientTest& client, const Wait& wait, int reads, std::mt19937& random) {
  auto hostActs = [&client, &random, reads]() mutable {
    if (!client.Line().open) return false;
    if (reads-- > 0) {
      client.Line().Deliver(RandomRead(random));
    } else {
      client.Line().HangUp();
    }
    return true;
  };
  client.backend.onMessageBox = [&hostActs](const MessageBoxRequest&) {
    hostActs();
    while (desktop().ServeOne()) {
    }
    return MessageBoxAnswer::Ok;
  };
  AtMenu(client);
  client.backend.onIdle = [&hostActs] { return hostActs() || CloseModalWindow(); };
  wait.begin(client);
  client.backend.RunUntilIdle();
  client.backend.onIdle = nullptr;
  client.backend.onMessageBox = nullptr;
}

TEST(HostileHost, TheLinkEndsWhileTheProgramWaits) {
  std::mt19937 random(11);
  for (const Wait& wait : kWaits) {
    SCOPED_TRACE(wait.name);
    ClientTest client;
    PlayWait(client, wait, 0, random);
    EXPECT_EQ(LoadedForm<frmTelnet>(), nullptr);
    EXPECT_EQ(client.backend.stalled, wait.forRequest);
  }
}

TEST(HostileHost, RandomBytesWhileTheProgramWaits) {
  std::mt19937 random(13);
  for (const Wait& wait : kWaits) {
    SCOPED_TRACE(wait.name);
    int stalled = 0;
    for (int round = 0; round < 20; ++round) {
      ClientTest client;
      PlayWait(client, wait, 30, random);
      EXPECT_EQ(LoadedForm<frmTelnet>(), nullptr);
      stalled += client.backend.stalled ? 1 : 0;
    }
    EXPECT_TRUE(stalled == 0 || wait.forRequest) << stalled;
  }
}

// Frames that are whole, with any fields behind any token.
TEST(HostileHost, RandomFrames) {
  const char* const tokens[] = {"~STARTMENU~",   "~ENTRYSCREEN~", "~CASELOGIC~", "~GENOUT~",
                                "~MAINT.MODE~",  "~ENTRY.MODE~",  "~DOSEXE~",    "~SHOWIMAGE~",
                                "~LISTBOX~",     "~LISTBOXF~",    "~MSGBOX~",    "~CAPTURE-ON~",
                                "~CAPTURE-OFF~", "~GETPASSWORD~", "~FIELDHELP~", "~STARTPRINT~",
                                "~STOPPRINT~",   "~ERRORMSG~",    "~OPENERROR~", ""};
  const std::string pieces[] = {"\xFE",
                                "\xFD",
                                "\xFC",
                                "A",
                                "9",
                                "-1",
                                "32768",
                                " ",
                                "MENU",
                                "*",
                                std::string(1, '\0'),
                                std::string(400, 'x')};
  std::mt19937 random(17);
  ClientTest client;
  AtMenu(client);
  LeaveBoxesToTheirDefault(client);
  for (int round = 0; round < 3000; ++round) {
    Texts fields = {tokens[random() % std::size(tokens)]};
    for (auto left = random() % 7; left > 0; --left) {
      fields.emplace_back();
      for (auto more = random() % 9; more > 0; --more) {
        fields.back() += pieces[random() % std::size(pieces)];
      }
    }
    Session().ScreenLoaded = random() % 2 ? kTrue : kFalse;
    Session().FieldList =
        "9\xFD"
        "-1";
    client.Deliver(FrameOf(fields));
  }
  EXPECT_FALSE(client.backend.ended);
  Session().ScreenLoaded = kFalse;
  client.Deliver(MenuFrame());
  EXPECT_EQ(LoadedForm<frmSubMenu>()->lstOptions(0).Items().size(), 2u);
  EXPECT_TRUE(LoadedForm<frmSubMenu>()->tabMenu.Visible());
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
  client.Deliver(FrameOf({"~STARTMENU~", "ID", text, "", ""}));
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
  const std::string box = FrameOf({"~MSGBOX~", "Title", "Text"});
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
  client.Deliver(FrameOf({"~MSGBOX~", "Title", "Text"}));
  EXPECT_TRUE(client.Line().reading);
}

}  // namespace
}  // namespace quorvel

#include "demohost/HostSession.h"

#include <algorithm>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "demohost/Menus.h"
#include "demohost/Printout.h"
#include "demohost/Record.h"
#include "demohost/Screens.h"
#include "demohost/TestClient.h"

namespace quorvel::demohost {
namespace {

using std::string;

// Codes of RFC 854: IAC 255, SB 250, SE 240, WILL 251, WONT 252, DO 253, DONT 254.
const string kOffers = "\xFF\xFD\x18\xFF\xFD\x1F\xFF\xFB\x01\xFF\xFB\x03";

class HostTest : public testing::Test {
 protected:
  Application host_{":memory:", TestNow};
  TestClient demo_{host_, 1};
};

std::vector<string> FieldsOf(const string& frame) {
  return Split(std::string_view(frame).substr(1, frame.size() - 2), kFs);
}

TEST_F(HostTest, LoginLeadsToTheMainMenu) {
  demo_.Collect();
  EXPECT_EQ(demo_.Writes().front(), kOffers);
  EXPECT_TRUE(demo_.Text().ends_with("login: "));

  demo_.Forget().Type("demo");
  EXPECT_EQ(demo_.Text(), "demo\r\nPassword: ");
  demo_.Forget().Type("demo");
  EXPECT_FALSE(demo_.Shows("demo\r\n")) << "the password has been echoed";
  ASSERT_TRUE(demo_.AtMenu("MAIN.MENU"));
  EXPECT_EQ(demo_.Writes().back(), demo_.LastFrame()) << "a frame is the last thing in its write";

  const auto fields = FieldsOf(demo_.LastFrame());
  ASSERT_EQ(fields.size(), 5u);
  EXPECT_EQ(fields[4], "demo on port 1, 22 Nov 2026");
  EXPECT_EQ(Attribute(fields[2], 1), "Main Menu");
  EXPECT_EQ(Split(Attribute(fields[2], 2), kVm),
            (std::vector<string>{"Customers", "Items", "Orders", "Reports", "Utilities"}));
  // Attribute n+1 of the ids belongs to attribute n+2 of the text.
  EXPECT_EQ(Attribute(fields[2], 3),
            "Customers and Receivables Menu\xFD"
            "Customers");
  EXPECT_EQ(Attribute(fields[3], 2), "AR.MENU");
  EXPECT_EQ(Attribute(fields[2], 4),
            "Customer Inquiry\xFD"
            "Customers");
  EXPECT_EQ(Attribute(fields[3], 3), "AR.CUST.INQ");
  EXPECT_EQ(Split(fields[2], kAm).size(), Split(fields[3], kAm).size() + 1);
}

TEST_F(HostTest, ThreeFailedLoginsDropTheLink) {
  for (const auto* wrong : {"demo\rsales\r", "nobody\r\r"}) {
    demo_.Forget().Send(wrong);
    EXPECT_TRUE(demo_.Text().ends_with("login: "));
    EXPECT_FALSE(demo_.Session().Ended());
  }
  demo_.Send("demo\rDEMO\r");
  EXPECT_TRUE(demo_.Session().Ended());
}

TEST_F(HostTest, RequestsBeforeTheLoginAreTypingErrors) {
  demo_.Request({"READ", "CUSTOMERS", "C1001"});
  demo_.Send("x\rdemo\r").Type("sales");
  EXPECT_TRUE(demo_.Frames().empty());
}

TEST_F(HostTest, NegotiationCopesWithAnyAnswer) {
  struct Case {
    const char* what;
    string in, out;
  };
  const Case cases[] = {
      {"type asked once", "\xFF\xFB\x18\xFF\xFB\x18", "\xFF\xFA\x18\x01\xFF\xF0"},
      {"size asked", "\xFF\xFB\x1F", "\xFF\xFA\x1F\x01\xFF\xF0"},
      {"our offers taken or refused", "\xFF\xFD\x01\xFF\xFE\x03\xFF\xFC\x18", ""},
      {"other requests refused", "\xFF\xFD\x05\xFF\xFB\x22", "\xFF\xFC\x05\xFF\xFE\x22"},
      {"refusals of what is off", "\xFF\xFE\x05\xFF\xFC\x22", ""},
      {"commands without option", "\xFF\xF1\xFF\xF6", ""},
  };
  for (const auto& c : cases) {
    TestClient client(host_, 9);
    client.Forget().Send(c.in);
    EXPECT_EQ(client.Text(), c.out) << c.what;
  }
  TestClient silent(host_, 8);
  silent.Forget().Send(
      "\xFF\xFE\x01"
      "demo\r");
  EXPECT_EQ(silent.Text(), "Password: ") << "echo goes on though it has been refused";
}

// Terminal type and size arrive in sub-negotiations, which may be of any length and cut anywhere.
TEST_F(HostTest, TheWindowSizeDecidesTheLengthOfAPage) {
  demo_.LogIn().Type("SO*ORDERS");
  EXPECT_FALSE(demo_.Shows("5030"));
  demo_.Type(".");
  const auto size = string("\xFF\xFA\x1F\0\x50\0\x20  \xFF\xF0", 11) + "\xFF\xFA\x18" +
                    string(1, '\0') + string(5000, 'x') + "\xFF\xF0";
  for (const char byte : size) demo_.Send(string(1, byte));
  demo_.Forget().Type("SO*ORDERS");
  // 32 rows less title, headings, a free row and the question.
  EXPECT_TRUE(demo_.Shows("5028 ") && !demo_.Shows("5029 ")) << demo_.Text();
}

TEST_F(HostTest, LinesMayEndAndBeCorrectedInManyWays) {
  struct Case {
    const char* what;
    string typed, command;
  };
  const Case cases[] = {
      {"CR LF", "COUNT REPS\r\n", "4 records."},
      {"CR NUL", string("COUNT REPS\r\0", 12), "4 records."},
      {"backspace", "COUNT REPZ\bS\r", "4 records."},
      {"delete", "COUNT REPZ\x7FS\r", "4 records."},
      {"delete on an empty line",
       "\x7F\x7F"
       "count REPS\r",
       "4 records."},
      {"delete, then letters like a verb",
       "\x7F"
       "COUNT REPS\r",
       "4 records."},
      {"cursor keys", "COUNT \x1B[A\x1BOBREPS\r", "4 records."},
      {"marks can't be typed", "COUNT \xFE\xFD\xFA\x80REPS\r", "4 records."},
      {"far too long", string(5000, 'x') + "\rCOUNT REPS\r", "4 records."},
  };
  demo_.LogIn().Type("T");
  for (const auto& c : cases) {
    demo_.Forget().Send(c.typed);
    EXPECT_TRUE(demo_.Shows(c.command)) << c.what << ": " << demo_.Text();
    EXPECT_TRUE(demo_.Text().ends_with("> ")) << c.what;
  }
}

TEST_F(HostTest, MenusGoDownAndBack) {
  struct Step {
    const char* typed;
    const char* menu;
  };
  const Step steps[] = {{"E", "MAIN.MENU"},
                        {"AR", "AR.MENU"},
                        {"AR.CREDIT.MENU", "AR.CREDIT.MENU"},
                        {"E", "AR.MENU"},
                        {"ar.credit.menu", "AR.CREDIT.MENU"},
                        {"AR.MENU", "AR.MENU"},
                        {"e", "MAIN.MENU"},
                        {"", "MAIN.MENU"}};
  demo_.LogIn();
  for (const auto& step : steps) {
    demo_.Forget().Type(step.typed);
    EXPECT_TRUE(demo_.AtMenu(step.menu)) << step.typed;
    EXPECT_EQ(demo_.Frames().size(), 1u);
  }
}

// What stands in a menu must run, and every program must lead back to the menu.
TEST_F(HostTest, EveryOptionOfEveryMenuRunsAndComesBack) {
  demo_.LogIn();
  std::set<string> menus{kMainMenu}, done, programs;
  int reports = 0;
  while (menus != done) {
    for (const auto& menu : std::set<string>(menus)) {
      if (!done.insert(menu).second) continue;
      for (const auto& id : Split(Attribute(*MenuRecord(host_.Data(), menu), 5), kVm)) {
        if (id.ends_with("MENU"))
          menus.insert(id);
        else
          programs.insert(id);
      }
    }
  }
  for (const auto& id : programs) {
    // Screens are opened by the client and never run here; printouts have a test of their own.
    if (IsScreen(host_.Data(), id) || FindWorkstationOption(id)) continue;
    reports += id[2] == '*';
    demo_.Forget().Request({"READ", "MENUS", id, "E"}).Type(id);
    ASSERT_FALSE(demo_.LastFrame().starts_with("\x7F~ERRORMSG~\xFAThere is no")) << id;
    EXPECT_NE(demo_.Session().Doing(), "MAIN.MENU") << id;
    for (int i = 0; i < 6 && demo_.Session().Doing() != "MAIN.MENU"; ++i)
      demo_.Type(id == "UT.TCL" ? "MENU" : "");
    EXPECT_TRUE(demo_.AtMenu("MAIN.MENU")) << id << demo_.Text();
  }
  EXPECT_EQ(menus.size(), 9u);
  EXPECT_GE(reports, 10);
  EXPECT_GE(Split(Attribute(*MenuRecord(host_.Data(), kMainMenu), 5), kVm).size(), 40u);
}

TEST_F(HostTest, TheRunRequestTellsWhetherTheTerminalIsNeeded) {
  demo_.LogIn().Request({"READ", "DICTIONARY", "AR.CUST.INQ"});
  EXPECT_EQ(FieldsOf(demo_.LastFrame()).front(), "~ERRORMSG~") << "it would be a screen";

  demo_.Request({"READ", "MENUS", "SO.MENU", "E"});
  EXPECT_EQ(Attribute(FieldsOf(demo_.LastFrame()).front(), 1), "Sales Orders");
  demo_.Forget().Type("SO.MENU");
  EXPECT_TRUE(demo_.AtMenu("SO.MENU"));

  demo_.Request({"READ", "MENUS", "UT.MSGBOX", "E"});
  EXPECT_EQ(demo_.LastFrame(), "\x7FOK\x7F");
  demo_.Type("UT.MSGBOX");
  EXPECT_EQ(FieldsOf(demo_.LastFrame()).front(), "~MSGBOX~");
  demo_.Send("\r\r");
  EXPECT_TRUE(demo_.AtMenu("SO.MENU"));

  // A promised option is run whatever program waits for a line.
  demo_.Type("AR.CUST.INQ").Forget().Request({"READ", "MENUS", "IC.ITEM.INQ", "E"});
  EXPECT_EQ(FieldsOf(demo_.LastFrame()).front(), "~ERRORMSG~");
  demo_.Type("IC.ITEM.INQ");
  EXPECT_TRUE(demo_.Shows("Item Inquiry"));
  EXPECT_EQ(demo_.Session().Doing(), "IC.ITEM.INQ");
  demo_.Type(".");

  // An option that is not there: the client types it all the same.
  demo_.Forget().Request({"READ", "MENUS", "NO.SUCH", "E"});
  EXPECT_EQ(FieldsOf(demo_.LastFrame()).front(), "~ERRORMSG~");
  demo_.Forget().Type("NO.SUCH");
  ASSERT_EQ(demo_.Frames().size(), 1u) << "the menu waits until the box is closed";
  EXPECT_EQ(FieldsOf(demo_.LastFrame()),
            (std::vector<string>{"~MSGBOX~", "Menus", "There is no option NO.SUCH."}));
  demo_.Type("");
  EXPECT_TRUE(demo_.AtMenu("SO.MENU"));
}

TEST_F(HostTest, FramesAreNeitherEchoedNorDisturbWhatIsTyped) {
  demo_.LogIn().Type("T").Forget();
  demo_.Request({"READ", "REPS", "R1"});
  EXPECT_EQ(demo_.Writes(), (std::vector<string>{"\x7FNora Beck\xFE"
                                                 "Ashford\xFE"
                                                 "555-0301\x7F"}));
  demo_.Forget().Send("COUNT RE");
  EXPECT_EQ(demo_.Text(), "COUNT RE");
  demo_.Type("PS");
  EXPECT_TRUE(demo_.Shows("4 records."));
}

TEST_F(HostTest, LeavingTheMenusAndTheHost) {
  demo_.LogIn().Type("T");
  EXPECT_TRUE(demo_.Text().ends_with("> "));
  demo_.Type("MENU");
  EXPECT_TRUE(demo_.AtMenu("MAIN.MENU"));
  demo_.Type("OFF");
  EXPECT_TRUE(demo_.Session().Ended());
  demo_.Forget().Type("T");
  EXPECT_TRUE(demo_.Writes().empty()) << "an ended session still answers";
}

TEST_F(HostTest, BroadcastsShowABoxToTheOthersOnly) {
  TestClient sales(host_, 2), waiting(host_, 3);
  sales.LogIn("sales").Type("T").Send("COUNT RE").Forget();
  waiting.Forget();
  demo_.LogIn().Type("T").Forget().Type("broadcast Closing at five");
  EXPECT_TRUE(demo_.Shows("Sent to 1 users."));
  EXPECT_TRUE(demo_.Frames().empty());
  EXPECT_EQ(waiting.Collect().Writes().size(), 0u) << "not logged in yet";
  sales.Collect();
  EXPECT_EQ(
      sales.Writes(),
      std::vector<string>{Framed({"~MSGBOX~", "Message from demo on port 1", "Closing at five"})});
  // The return of the box must not end the line that was being typed.
  sales.Forget().Type("");
  EXPECT_TRUE(sales.Writes().empty());
  sales.Type("PS");
  EXPECT_TRUE(sales.Shows("4 records."));

  for (int i = 0; i < 100; ++i) demo_.Type("BROADCAST again");
  EXPECT_LE(sales.Collect().Frames().size(), 20u) << "boxes of an absent user pile up";
}

TEST_F(HostTest, PasswordsAreAskedInAWindowAndNotEchoed) {
  struct Case {
    const char* answer;
    const char* told;
  };
  demo_.LogIn();
  for (const auto& c :
       {Case{"demo", "Month 1 has been closed."}, {"bad", "That is not your password."}}) {
    demo_.Forget().Type("UT.CLOSE");
    EXPECT_EQ(demo_.LastFrame(), Framed({"~GETPASSWORD~", "Close the Month"}));
    demo_.Forget().Type(c.answer);
    EXPECT_EQ(demo_.Text(), "\r\n");
    EXPECT_EQ(demo_.LastFrame(), Framed({"~MSGBOX~", "Close the Month", c.told}));
    demo_.Type("");
    EXPECT_TRUE(demo_.AtMenu("MAIN.MENU"));
  }
  demo_.Type("UT.CLOSE").Type("");
  EXPECT_TRUE(demo_.AtMenu("MAIN.MENU")) << "left without an answer";
  EXPECT_EQ(Attribute(*host_.Data().Read("PARM", "COMPANY"), 2), "2");

  demo_.Type("UT.PASSWORD").Type("demo").Type("new one").Type("new one").Type("");
  EXPECT_TRUE(host_.Data().CheckPassword("demo", "new one"));
  EXPECT_FALSE(host_.Data().CheckPassword("demo", "demo"));
}

TEST_F(HostTest, MenusThatAClientHasSpoiltStillOpen) {
  auto wide = string("Wide\xFE") + "A" + string(30, '\xFD') + "\xFE" + "x";
  for (int i = 0; i < 300; ++i) wide += "\xFDx";
  host_.Data().Write("MENUS", "WI.MENU", wide);
  host_.Data().Delete("MENUS", "MAIN.MENU");
  demo_.LogIn().Type("WI");
  ASSERT_TRUE(demo_.AtMenu("WI.MENU"));
  const auto fields = FieldsOf(demo_.LastFrame());
  EXPECT_EQ(Split(fields[2], kAm).size(), 2u + 100u);
  EXPECT_EQ(Split(Attribute(fields[2], 2), kVm).size(), 10u);
  host_.Data().Delete("MENUS", "WI.MENU");
  demo_.Type("");
  EXPECT_TRUE(demo_.AtMenu("MAIN.MENU"));
}

// Random input at every state; the sanitizers watch. The host must still serve another user.
TEST_F(HostTest, RandomBytesDoNoHarm) {
  const string alphabet = string("\xFF\xFA\xF0\xFB\xFD\x18\x1F\x7F\x1B\r\0.EY", 14) + "\xFE\xFD" +
                          "READWRITELOCKUT*MENUSO12 ";
  std::mt19937 random(20261122);
  for (const auto* state : {"", "demo\rdemo\r", "demo\rdemo\rT\r", "demo\rdemo\rAR.CUST.INQ\r",
                            "demo\rdemo\rSO.ENTER\r", "demo\rdemo\rUT.PASSWORD\r"}) {
    for (int round = 0; round < 20; ++round) {
      TestClient client(host_, 5);
      client.Send(state);
      string noise(2000, ' ');
      for (char& c : noise) c = alphabet[random() % alphabet.size()];
      client.Send(noise);
      for (const auto& frame : client.Frames()) {
        EXPECT_EQ(std::count(frame.begin(), frame.end(), kFrameMark), 2);
        EXPECT_EQ(frame.back(), kFrameMark);
      }
    }
  }
  EXPECT_TRUE(demo_.LogIn().Type("").AtMenu("MAIN.MENU"));
}

}  // namespace
}  // namespace quorvel::demohost

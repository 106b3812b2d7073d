// What the workstation captures, prints, shows and starts.
#include <algorithm>

#include <gtest/gtest.h>

#include "demohost/Picture.h"
#include "demohost/TestScreen.h"

namespace quorvel::demohost {
namespace {

using std::string;

// IAC DO TIMING-MARK, and the refusal that a client may give (RFC 860).
const string kMark = "\xFF\xFD\x06";
const string kMarkSeen = "\xFF\xFC\x06";

class PrintoutTest : public testing::Test {
 protected:
  PrintoutTest() {
    host_.SetPictureFile("chart.bmp");
    demo_.LogIn();
  }
  std::vector<string> Opening() { return FieldsOf(demo_.Frames().at(1)); }

  Application host_{":memory:", TestNow};
  TestClient demo_{host_, 1};
};

TEST_F(PrintoutTest, AReportStandsBetweenItsFrames) {
  demo_.Forget().Type("RP*CUSTOMERS");
  ASSERT_EQ(demo_.Frames().size(), 2u) << "the menu, then the opening";
  EXPECT_EQ(Opening(), std::vector<string>{"~CAPTURE-ON~"});
  EXPECT_FALSE(demo_.Shows("Alder & Finch Hardware")) << "nothing behind the frame";
  EXPECT_TRUE(demo_.Text().ends_with(kMark));
  demo_.Forget().Send(kMarkSeen);
  EXPECT_TRUE(demo_.Shows("Alder & Finch Hardware") && demo_.Shows("24 records listed."));
  EXPECT_TRUE(demo_.Text().ends_with("\r\n" + kMark)) << "the client is asked to say when";

  // Nothing may come in between: what the user does waits.
  TestClient sales(host_, 2);
  sales.LogIn("sales").Type("T").Type("BROADCAST hello").Forget();
  demo_.Forget().Request({"READ", "PARM", "NEXT.ORDER"});
  EXPECT_TRUE(demo_.Writes().empty());
  demo_.Send(kMarkSeen);
  ASSERT_EQ(demo_.Frames().size(), 2u);
  EXPECT_EQ(demo_.Frames()[0], Framed({"~CAPTURE-OFF~"}));
  EXPECT_EQ(demo_.Frames()[1],
            "\x7F"
            "5081\x7F");
  EXPECT_TRUE(demo_.Text().empty());

  // A client without timing marks, whose user presses Enter.
  demo_.Type("RP*CUSTOMERS").Type("").Forget().Type("");
  EXPECT_EQ(demo_.Frames().front(), Framed({"~CAPTURE-OFF~"}));
  EXPECT_TRUE(demo_.AtMenu("MAIN.MENU"));
}

TEST_F(PrintoutTest, OpeningsNameWhatIsToBeDone) {
  struct Case {
    const char* option;
    std::vector<string> opening;
  };
  const Case cases[] = {
      {"RP*PRICES", {"~CAPTURE-ON~", "notepad.exe @"}},
      {"RP*BALANCES", {"~CAPTURE-ON~", "", "\x1B[1m"}},
      {"RP*REMINDER",
       {"~CAPTURE-ON~", "", "",
        Join({"Ron Carter", "Carter Brothers Building", "555-0103", "555-0103",
              "accounts@carter.example", "Accounts", "Meridian Trading Company", "555-0900",
              "555-0901", "accounts@meridian.example", "Your account"},
             kAm)}},
      {"RP.LABELS", {"~STARTPRINT~"}},
      {"UT.PICTURE", {"~SHOWIMAGE~", "chart.bmp", "600", "800", "", ""}},
      {"UT.DESKTOP", {"~DOSEXE~", "calc.exe", "1"}},
  };
  for (const auto& c : cases) {
    demo_.Forget().Type(c.option);
    EXPECT_EQ(Opening(), c.opening) << c.option;
    demo_.Send(kMarkSeen).Send(kMarkSeen);
  }
  demo_.Forget().Type("RP.LABELS").Send(kMarkSeen).Send(kMarkSeen);
  EXPECT_EQ(demo_.LastFrame(), Framed({"~STOPPRINT~"}));
}

TEST_F(PrintoutTest, TheLastBlockMayHoldTheClosing) {
  demo_.Forget().Type("RP*VENDORS").Send(kMarkSeen);
  EXPECT_TRUE(demo_.Writes().back().ends_with("records listed.\r\n" + Framed({"~CAPTURE-OFF~"})));
  demo_.Forget().Type("");
  EXPECT_TRUE(demo_.AtMenu("MAIN.MENU"));
}

TEST_F(PrintoutTest, LongReportsGoOutPieceByPiece) {
  demo_.Forget().Type("RP*STOCKCOUNT").Send(kMarkSeen);
  const auto text = demo_.Text();
  EXPECT_EQ(std::count(text.begin(), text.end(), '\f'), 10'000 / 60);
  EXPECT_TRUE(demo_.Shows("  9999  ") && demo_.Shows(" 10000  "));
  demo_.Send(kMarkSeen);

  // The ledger: what is not asked for is not there yet, and the log-off ends it.
  auto& session = demo_.Session();
  session.Receive("RP*LEDGER\r");
  session.TakeWrites();
  session.Receive(kMarkSeen);
  std::size_t taken = 0;
  for (int i = 0; i < 100; ++i) {
    for (const auto& write : session.TakeWrites()) {
      EXPECT_LT(write.size(), 50'000u);
      taken += write.size();
    }
  }
  EXPECT_GT(taken, 3'000'000u);
  EXPECT_FALSE(session.TakeWrites().empty());
  EXPECT_TRUE(session.TakeWrites(false).empty()) << "a link that is full takes nothing";
  EXPECT_FALSE(session.TakeWrites().empty());
}

// Sizes and offsets as the bitmap format has them.
TEST(Picture, IsABitmap) {
  const auto bytes = SalesChart();
  const auto number = [&](std::size_t at) {
    return static_cast<unsigned char>(bytes[at]) | static_cast<unsigned char>(bytes[at + 1]) << 8;
  };
  EXPECT_TRUE(bytes.starts_with("BM"));
  EXPECT_EQ(number(10), 54);
  EXPECT_EQ(number(18), 320);
  EXPECT_EQ(number(22), 200);
  EXPECT_EQ(number(28), 24);
  EXPECT_EQ(bytes.size(), 54u + 320u * 200u * 3u);
}

}  // namespace
}  // namespace quorvel::demohost

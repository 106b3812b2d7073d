// The terminal programs, as a user sees them.
#include <gtest/gtest.h>

#include "demohost/Record.h"
#include "demohost/TestClient.h"
#include "demohost/Values.h"

namespace quorvel::demohost {
namespace {

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() { demo_.LogIn(); }

  std::string Stored(const char* file, const char* key, int attribute) {
    return Attribute(host_.Data().Read(file, key).value_or("?"), attribute);
  }

  Application host_{":memory:", TestNow};
  TestClient demo_{host_, 1};
};

TEST_F(ProgramTest, AnInquiryPaintsAFormAndFillsIt) {
  demo_.Type("AR.CUST.INQ");
  EXPECT_TRUE(demo_.Shows("\x1B(0lqqqq")) << "no upper left corner in DEC special graphics";
  EXPECT_TRUE(demo_.Text().ends_with("Customer number or part of the name: "));
  demo_.Forget().Type("C1003");
  for (const auto* text : {"Carter Brothers Building", "50,000.00", "52,144.75", "-2,144.75",
                           "Nora Beck", "Jill Carter"})
    EXPECT_TRUE(demo_.Shows(text)) << text;
  demo_.Forget().Type("heron");
  EXPECT_TRUE(demo_.Shows("Blue Heron Marine"));
  demo_.Forget().Type("C9");
  EXPECT_TRUE(demo_.Shows("C9 is not on file."));
  demo_.Type(".");
  EXPECT_TRUE(demo_.AtMenu("MAIN.MENU"));
}

TEST_F(ProgramTest, ListingsGoByPagesAndAddUp) {
  demo_.Type("T").Forget().Type("LIST CUSTOMERS");
  EXPECT_TRUE(demo_.Shows("\x1B[7mNumber"));
  EXPECT_TRUE(demo_.Shows("C1001") && !demo_.Shows("C1024"));
  demo_.Type("");
  EXPECT_TRUE(demo_.Shows("C1024") && demo_.Shows("24 records listed."));
  demo_.Type("");
  EXPECT_TRUE(demo_.Text().ends_with("> "));

  // The sum of the balances in the data, worked out apart from the report.
  long long sum = 0;
  host_.Data().ForEach("CUSTOMERS", [&](const auto&, const std::string& record) {
    sum += std::stoll(Attribute(record, customer::Balance));
    return true;
  });
  demo_.Type("MENU").Type("AR*BALANCES").Type("");
  EXPECT_TRUE(demo_.Shows(Show(Form::Money, std::to_string(sum)))) << sum;
  demo_.Type("").Forget().Type("AR*OVERLIMIT");
  EXPECT_TRUE(demo_.Shows("3 records listed.")) << demo_.Text();
}

TEST_F(ProgramTest, AnOrderIsEnteredShippedAndPaid) {
  const auto balance = std::stoll(Stored("CUSTOMERS", "C1001", customer::Balance));
  demo_.Type("SO.ENTER").Type("c1001").Type("I101").Type("none").Type("3").Type("I106").Type("2");
  demo_.Forget().Type("");
  // 3 at 15.95 and 2 at 9.95
  EXPECT_TRUE(demo_.Shows("Order 5081 has been stored, total 67.75.")) << demo_.Text();
  EXPECT_TRUE(demo_.AtMenu("MAIN.MENU"));
  EXPECT_EQ(Stored("ORDERS", "5081", order::Status), "OPEN");
  // 22 November 2026 is 21511 days after 31 December 1967.
  EXPECT_EQ(Stored("ORDERS", "5081", order::Date), "21511");

  TestClient sales(host_, 2);
  sales.LogIn("sales").Request({"LOCK", "S", "ITEMS", "I106", "L"});
  demo_.Type("SO.SHIP").Type("5081").Forget().Type("Y");
  EXPECT_TRUE(demo_.Shows("Item I106 is in use."));
  EXPECT_EQ(Stored("ITEMS", "I101", item::OnHand), "84") << "half of the order has been shipped";
  sales.Request({"LOCK", "S", "ITEMS", "I106", "U"});
  demo_.Type("5081").Type("Y").Type("");
  EXPECT_EQ(Stored("ORDERS", "5081", order::Status), "SHIPPED");
  EXPECT_EQ(Stored("ITEMS", "I101", item::OnHand), "81");
  EXPECT_EQ(Stored("ITEMS", "I106", item::OnHand), "138");
  EXPECT_EQ(Stored("CUSTOMERS", "C1001", customer::Balance), std::to_string(balance + 6775));
  EXPECT_TRUE(host_.RecordLocks().List().empty());

  demo_.Type("SO.CANCEL").Forget().Type("5081");
  EXPECT_TRUE(demo_.Shows("Order 5081 is SHIPPED."));
  demo_.Type("").Type("AR.CASH").Type("C1001").Type("67.75").Type(".");
  EXPECT_EQ(Stored("CUSTOMERS", "C1001", customer::Balance), std::to_string(balance));
}

TEST_F(ProgramTest, EntriesAreCheckedBeforeTheyAreStored) {
  struct Case {
    const char* program;
    const char* entry;
    const char* stored;
  };
  const Case cases[] = {{"IC.PRICE", "12.5", "1250"}, {"IC.PRICE", "12.345", "1250"},
                        {"IC.PRICE", "-3", "1250"},   {"IC.PRICE", "99999999999", "1250"},
                        {"IC.PRICE", "7", "700"},     {"IC.PRICE", "1e3", "700"}};
  for (const auto& c : cases) {
    demo_.Type(c.program).Type("I110").Type(c.entry).Type("").Type("");
    EXPECT_EQ(Stored("ITEMS", "I110", item::Price), c.stored) << c.entry;
    EXPECT_TRUE(demo_.AtMenu("MAIN.MENU"));
  }
  demo_.Type("IC.RECEIVE").Type("I110").Type("5").Type("");
  EXPECT_EQ(Stored("ITEMS", "I110", item::OnHand), "14");
}

TEST_F(ProgramTest, RecordsOfAnyContentAreShownHarmlessly) {
  const std::string hostile =
      "\x1B[2J\x01 name\xFE"
      "x\xFE\xFE\xFE\xFE\xFE"
      "99999999999999999999\xFE"
      "-999999999999\xFE\xFE";
  demo_.Request({"WRITE", "CUSTOMERS", "C1", hostile, "t"});
  demo_.Request({"WRITE", "ORDERS", "1",
                 "C1\xFE"
                 "999999999999\xFE"
                 "a\xFD"
                 "b\xFE"
                 "999999999999\xFD"
                 "999999999999\xFE"
                 "999999999999\xFD"
                 "999999999999",
                 "t"});
  for (const auto* program : {"AR*CUSTLIST", "AR*BALANCES", "SO*ORDERS", "SO.LIST"}) {
    demo_.Forget().Type(program);
    EXPECT_FALSE(demo_.Shows("\x01")) << program;
    const auto first = demo_.Text().find("\x1B[2J");
    EXPECT_EQ(demo_.Text().find("\x1B[2J", first + 1), std::string::npos) << program;
    demo_.Type(".");
  }
}

TEST_F(ProgramTest, OrderNumbersSurviveASpoiltCounter) {
  for (const auto* counter : {"", "-999999999999", "5001", "rubbish"}) {
    demo_.Request({"WRITE", "PARM", "NEXT.ORDER", counter, "t"});
    demo_.Forget().Type("SO.ENTER").Type("C1001").Type("I101").Type("1").Type("");
    EXPECT_TRUE(demo_.Shows("has been stored") && demo_.AtMenu("MAIN.MENU")) << counter;
  }
  EXPECT_EQ(host_.Data().Count("ORDERS"), 84) << "an order has been written over";
}

TEST_F(ProgramTest, UsersAndLocksAreListed) {
  TestClient sales(host_, 7);
  sales.LogIn("sales").Type("IC.PRICE").Type("I101");
  demo_.Type("T").Forget().Type("WHO").Type("").Type("LOCKS").Type("").Type("TIME");
  for (const auto* text : {"IC.PRICE", "I101", "sales on port 7", "14:03:09  22 Nov 2026"})
    EXPECT_TRUE(demo_.Shows(text)) << text;
}

}  // namespace
}  // namespace quorvel::demohost

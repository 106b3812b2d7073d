// The business rules of the screens, called as a client calls them.
#include <gtest/gtest.h>

#include "demohost/Screens.h"
#include "demohost/TestScreen.h"
#include "demohost/Values.h"

namespace quorvel::demohost {
namespace {

using std::string;
using Texts = std::vector<string>;

class RulesTest : public testing::Test {
 protected:
  // The record as a client has it after the read: by fields, from the attributes that the
  // definition names.
  void Find(TestScreen& screen, const char* file, const string& key) {
    const auto record = host_.Data().Read(file, key).value_or("");
    screen.entry.clear();
    SetAttribute(screen.entry, 2, key);
    for (std::size_t n = 3; n < screen.fields.size(); ++n) {
      const auto map = Split(Attribute(screen.fields[n], 1, 2), kSvm);
      if (map.size() < 6 || map[1].empty() || map[5] == "5") continue;
      const int value = map[2].empty() || map[2] == "*" ? 0 : std::stoi(map[2]);
      SetAttribute(screen.entry, static_cast<int>(n), Attribute(record, std::stoi(map[1]), value));
    }
    screen.original = screen.entry;
    screen.Hook("AfterRead");
  }
  string Stored(const char* file, const string& key, int attribute) {
    return Attribute(host_.Data().Read(file, key).value_or("?"), attribute);
  }

  Application host_{":memory:", TestNow};
  TestScreen demo_{host_, 1};
};

TEST_F(RulesTest, AHookWithoutARuleGivesBackWhatItGot) {
  auto& client = demo_.Client();
  for (const auto* program : {"CUSTOMER.RULES", "NO.SUCH", ""}) {
    client.Forget().Request({"CASELOGIC", "S", "4", program, "bi_CUST.NAME", "new", "old", "data"});
    EXPECT_EQ(client.LastFrame(), Framed({"~CASELOGIC~", "bi_CUST.NAME", "new", "old", "data"}));
  }
}

TEST_F(RulesTest, KeysAreCompletedAndCounted) {
  struct Case {
    const char* screen;
    const char* typed;
    const char* stored;  // null: refused
  };
  const Case cases[] = {
      {"AR.CUSTOMER", "C1003", "C1003"}, {"AR.CUSTOMER", "1003", "C1003"},
      {"AR.CUSTOMER", "NEW", "C1025"},   {"AR.CUSTOMER", "E", "E"},
      {"AR.CUSTOMER", "X1", nullptr},    {"IC.ITEM", "101", "I101"},
      {"IC.ITEM", "NEW", "I131"},        {"IC.ITEM", "I10", nullptr},
      {"SO.ORDER", "5001", "5001"},      {"SO.ORDER", "NEW", "5081"},
      {"SO.ORDER", "NEW", "5082"},       {"SO.ORDER", "50A", nullptr},
  };
  for (const auto& c : cases) {
    demo_.Open(c.screen);
    demo_.entry.clear();
    EXPECT_EQ(demo_.Enter(2, c.typed), c.stored != nullptr) << c.typed;
    EXPECT_EQ(demo_.boxes.size(), c.stored == nullptr ? 1u : 0u) << c.typed;
    EXPECT_EQ(demo_.Value(2), c.stored == nullptr ? "" : c.stored) << c.typed;
  }
}

TEST_F(RulesTest, ACustomerIsChecked) {
  using namespace customer_field;
  demo_.Open("AR.CUSTOMER");
  Find(demo_, "CUSTOMERS", "C1001");
  EXPECT_EQ(demo_.shown[Credit], "$10,176.50") << "a limit of 15,000.00 less 4,823.50";

  EXPECT_FALSE(demo_.Enter(Limit, "10000001"));
  EXPECT_EQ(demo_.boxes, Texts{"A limit above $100,000.00 needs the board."});
  EXPECT_TRUE(demo_.Enter(Limit, "2000000"));
  EXPECT_EQ(demo_.shown[Credit], "$15,176.50");

  EXPECT_TRUE(demo_.Enter(Zip, "4011")) << "stored, though the user is taken back";
  EXPECT_EQ(demo_.data, "Error");
  EXPECT_TRUE(demo_.Enter(Zip, "40111"));
  EXPECT_EQ(demo_.data, "40111");

  EXPECT_FALSE(demo_.Enter(Email, "nobody"));
  EXPECT_EQ(demo_.word, "RETURN");
  EXPECT_EQ(demo_.shown[Email], "accounts@alder.example");

  EXPECT_TRUE(demo_.Enter(Class, "A"));
  EXPECT_EQ(demo_.Value(Discount), "1000");
  EXPECT_EQ(demo_.shown[Discount], "10.00") << "the text of the combo box's item";

  demo_.Hook("bi_CUST.LIMIT", "", Limit);
  EXPECT_NE(demo_.word, "RETURN");
  EXPECT_TRUE(demo_.Enter(Terms, "COD"));
  EXPECT_EQ(demo_.Value(Limit), "0");
  EXPECT_EQ(demo_.shown[Limit], "$0.00");
  demo_.Hook("bi_CUST.LIMIT", "", Limit);
  EXPECT_EQ(demo_.word, "RETURN");

  demo_.Hook("BeforeWrite");
  EXPECT_EQ(demo_.word, "RETURN") << "a balance, and cash only";
  demo_.Enter(Terms, "NET60");
  demo_.Hook("BeforeWrite");
  EXPECT_EQ(demo_.word, "BeforeWrite");
}

TEST_F(RulesTest, ContactsAreShownAndStoredInDifferentForms) {
  using namespace customer_field;
  demo_.Open("AR.CUSTOMER");
  Find(demo_, "CUSTOMERS", "C1001");
  demo_.Hook("bo_CUST.CONTACTS", demo_.Value(Contacts), Contacts);
  EXPECT_EQ(demo_.data, "Paula Finch; Sam Alder");
  EXPECT_TRUE(demo_.Enter(Contacts, " Paula Finch;; Jo Reed ;"));
  EXPECT_EQ(demo_.Value(Contacts), "Paula Finch\xFDJo Reed");
  SetAttribute(demo_.entry, Contacts, "A; B");  // a field without the focus is stored as shown
  demo_.Hook("BeforeWrite");
  EXPECT_EQ(demo_.Value(Contacts),
            "A\xFD"
            "B");
  demo_.Hook("bo_CUST.CONTACTS", "", Contacts);
  EXPECT_EQ(demo_.data, "");
}

TEST_F(RulesTest, DeletesAreGuarded) {
  using namespace customer_field;
  TestScreen sales(host_, 2, "sales");
  sales.Open("AR.CUSTOMER");
  sales.Hook("BeforeDelete");
  EXPECT_EQ(sales.data, "Error");

  demo_.Open("AR.CUSTOMER");
  // Every 24th order is this customer's: 5001, 5025, 5049, 5073; only the last is open.
  Find(demo_, "CUSTOMERS", "C1001");
  EXPECT_EQ(demo_.Value(OpenOrders), "1") << "a balance that is not on the screen";
  demo_.Hook("BeforeDelete");
  EXPECT_EQ(demo_.data, "");

  demo_.Hook("AfterDelete");
  EXPECT_TRUE(host_.Data().Read("PRICES", "C1001I101")) << "the delete was refused";
  host_.Data().Delete("CUSTOMERS", "C1001");
  demo_.Hook("AfterDelete");
  EXPECT_FALSE(host_.Data().Read("PRICES", "C1001I101"));
  EXPECT_TRUE(host_.Data().Read("PRICES", "C1003I127"));
}

TEST_F(RulesTest, AnItemIsCheckedAndItsPartsPutTogether) {
  using namespace item_field;
  demo_.Open("IC.ITEM");
  Find(demo_, "ITEMS", "I101");
  EXPECT_EQ(demo_.shown[VendorName], "Hartwell Tools");
  EXPECT_EQ(demo_.shown[Margin], "79 %") << "15.95 over 8.90";
  EXPECT_FALSE(demo_.Enter(Price, "889"));
  EXPECT_EQ(demo_.boxes, Texts{"The price is below the cost of $8.90."});
  EXPECT_TRUE(demo_.Enter(Price, "890"));
  EXPECT_EQ(demo_.shown[Margin], "0 %");
  EXPECT_TRUE(demo_.Enter(Aisle, "7"));
  EXPECT_EQ(demo_.data, "Error");

  // What a client has written, and what its fields hold.
  auto record = *host_.Data().Read("ITEMS", "I101");
  SetAttribute(record, item::Bin, "0707");
  host_.Data().Write("ITEMS", "I101", record);
  for (const auto& [field, text] :
       std::map<int, string>{{Aisle, "B"}, {Shelf, "07"}, {Inner, "24"}, {Packs, "8"}})
    SetAttribute(demo_.entry, field, text);
  demo_.Hook("AfterWrite");
  EXPECT_EQ(Stored("ITEMS", "I101", item::Bin), "B-07");
  EXPECT_EQ(Stored("ITEMS", "I101", item::Pack), "24x8");

  SetAttribute(demo_.entry, Price, "0");
  demo_.Hook("ExitWoSave");
  EXPECT_EQ(demo_.data, "Error");
  demo_.entry.clear();
  demo_.Hook("ExitWoSave");
  EXPECT_EQ(demo_.data, "") << "an item that has not been added can be left";
}

TEST_F(RulesTest, AKeyOfTwoPartsIsRemembered) {
  using namespace price_field;
  demo_.Open("AR.PRICE");
  demo_.Enter(Customer, "C1003");
  demo_.Enter(Item, "I127");
  demo_.entry.clear();  // as the client does when it accepts the key
  demo_.Enter(Customer, "C1003");
  EXPECT_EQ(demo_.Value(Customer) + demo_.Value(Item), "C1003I127");
  demo_.Hook("AfterRead");
  EXPECT_EQ(demo_.shown[ListPrice], "$38.95");

  demo_.Open("AR.PRICE");
  demo_.entry.clear();
  demo_.Enter(Customer, "C1003");
  demo_.Hook("NewItem");
  EXPECT_EQ(demo_.data, "Error") << "a screen begins without the key of the last one";
  demo_.Enter(Item, "I101");
  demo_.Hook("NewItem");
  EXPECT_EQ(demo_.data, "");
  EXPECT_EQ(demo_.shown[Until], "02/20/27") << "90 days from 22 November 2026";
}

TEST_F(RulesTest, AnOrderIsPricedAddedUpAndClosed) {
  using namespace order_field;
  const auto at = [](int line, int part) { return FirstLine + line * LineFields + part; };
  demo_.Open("SO.ORDER");
  demo_.Enter(Key, "NEW");
  demo_.Hook("NewItem");
  EXPECT_EQ(demo_.shown[Date], "11/22/26");
  EXPECT_EQ(demo_.Value(Status), "OPEN");
  demo_.Enter(Customer, "C1001");
  EXPECT_EQ(demo_.Value(Rep), "R1");
  EXPECT_EQ(demo_.shown[RepName], "Nora Beck");

  EXPECT_FALSE(demo_.Enter(at(0, LineQuantity), "5")) << "no item yet: dropped";
  EXPECT_EQ(demo_.word, "RETURN");
  demo_.Enter(at(0, LineItem), "I101");
  EXPECT_EQ(demo_.Value(at(0, LinePrice)), "1450") << "as agreed with this customer";
  EXPECT_FALSE(demo_.Enter(at(0, LineQuantity), "0"));
  EXPECT_TRUE(demo_.Enter(at(0, LineQuantity), "2"));
  EXPECT_EQ(demo_.modes, Texts{"~MAINT.MODE~"}) << "from here on the customer stays";
  demo_.Enter(at(1, LineItem), "I108");
  EXPECT_EQ(demo_.Value(at(1, LinePrice)), "10995") << "the list price";
  demo_.Enter(at(1, LineQuantity), "100");
  EXPECT_TRUE(demo_.modes.empty());
  EXPECT_EQ(demo_.shown[Note], "Only 26 on hand of Cordless drill 18 V");
  EXPECT_EQ(demo_.shown[Total], "$11,024.00");
  EXPECT_EQ(demo_.shown[at(1, LineAmount)], "10995.00");
  demo_.Enter(at(1, LinePrice), "10000");
  demo_.Enter(at(1, LineItem), "I108");
  EXPECT_EQ(demo_.Value(at(1, LinePrice)), "10000") << "passing the item keeps the price";
  demo_.Enter(at(1, LineItem), "");
  EXPECT_EQ(demo_.Value(at(1, LineQuantity)), "");
  EXPECT_EQ(demo_.shown[Total], "$29.00");

  EXPECT_FALSE(demo_.Enter(Status, "SHIPPED"));
  EXPECT_TRUE(demo_.Enter(Status, "CANCELLED"));
  demo_.Hook("BeforeExitWoSave");
  EXPECT_EQ(demo_.data, "Error");

  const auto key = demo_.Value(Key);
  host_.Data().Write("ORDERS", key,
                     Join({"C1001", "1", "I101\xFD\xFD", "2\xFD\xFD", "1450\xFD"}, kAm));
  demo_.Hook("AfterWrite");
  EXPECT_EQ(Stored("ORDERS", key, order::Items), "I101") << "values without an item are cut";
  demo_.entry.clear();
  demo_.Hook("BeforeWrite");
  EXPECT_EQ(demo_.word, "RETURN") << "an order without a line";
}

TEST_F(RulesTest, AShippedOrderIsKept) {
  using namespace order_field;
  demo_.Open("SO.ORDER");
  Find(demo_, "ORDERS", "5001");
  EXPECT_EQ(demo_.modes, Texts{"~ENTRY.MODE~"});
  demo_.Hook("BeforeDelete");
  EXPECT_EQ(demo_.data, "Error");
  Find(demo_, "ORDERS", "5080");
  EXPECT_TRUE(demo_.modes.empty());
  demo_.Hook("BeforeDelete");
  EXPECT_EQ(demo_.data, "");

  // An order of the terminal may have more lines than the screen.
  host_.Data().Write("ORDERS", "6000",
                     Join({"C1001", "1",
                           "a\xFD"
                           "b\xFD"
                           "c\xFD"
                           "d\xFD"
                           "e\xFD"
                           "f",
                           "1\xFD"
                           "1\xFD"
                           "1\xFD"
                           "1\xFD"
                           "1\xFD"
                           "3",
                           "100\xFD"
                           "100\xFD"
                           "100\xFD"
                           "100\xFD"
                           "100\xFD"
                           "100",
                           "OPEN"},
                          kAm));
  Find(demo_, "ORDERS", "6000");
  EXPECT_EQ(demo_.shown[Total], "$8.00");
}

TEST_F(RulesTest, ASecondSessionSeesTheLock) {
  TestScreen sales(host_, 2, "sales");
  const std::vector<string> lock{"LOCK", "AR.CUSTOMER", "CUSTOMERS", "C1001", "L"};
  demo_.Open("AR.CUSTOMER");
  EXPECT_EQ(demo_.Ask(lock), "OK");
  Find(demo_, "CUSTOMERS", "C1001");
  EXPECT_EQ(demo_.data, "");

  sales.Open("AR.CUSTOMER");
  EXPECT_EQ(sales.Ask(lock), "Record C1001 of CUSTOMERS is locked by demo on port 1");
  Find(sales, "CUSTOMERS", "C1001");
  EXPECT_EQ(sales.data, "Error");
  EXPECT_EQ(sales.boxes, Texts{"C1001 is being changed by demo on port 1."});
  EXPECT_NE(sales.Ask({"WRITE", "CUSTOMERS", "C1001", "x", "SYCRLOC"}), "OK");

  demo_.Ask({"LOCK", "AR.CUSTOMER", "CUSTOMERS", "C1001", "U"});
  EXPECT_EQ(sales.Ask(lock), "OK");
  Find(sales, "CUSTOMERS", "C1001");
  EXPECT_EQ(sales.data, "");
}

// Whatever a client sends, the answer is one reply; the sanitizers watch.
TEST_F(RulesTest, AnyCallIsAnswered) {
  Texts hooks{"AfterRead",    "NewItem",     "BeforeWrite",      "AfterWrite",
              "BeforeDelete", "AfterDelete", "BeforeExitWoSave", "ExitWoSave"};
  for (const auto& field : FieldEntries()) {
    for (const auto* prefix : {"bi_", "ai_", "as_", "bo_"})
      hooks.push_back(prefix + string(field.name));
  }
  const Texts records{"", string(200, '\xFE'),
                      "a\xFE" + string(300, '\xFD') + "\xFE-99999999999999"};
  auto& client = demo_.Client();
  for (const auto* program : {"CUSTOMER.RULES", "ITEM.RULES", "PRICE.RULES", "ORDER.RULES"}) {
    for (std::size_t i = 0; i < hooks.size(); ++i) {
      const auto& record = records[i % records.size()];
      const auto* field = i % 4 == 0 ? "-5" : i % 4 == 1 ? "0" : i % 4 == 2 ? "80" : "99999";
      for (const auto* data : {"", "NEW", "-1", "COD"}) {
        client.Forget().Request({"CASELOGIC", "S", field, program, hooks[i], record, record, data});
        for (int n = 0; n < 3 && !client.LastFrame().starts_with("\x7F~CASELOGIC~"); ++n)
          client.Type("");
        EXPECT_TRUE(client.LastFrame().starts_with("\x7F~CASELOGIC~")) << program << hooks[i];
      }
    }
  }
}

// A box of a rule holds the reply back; a client that calls again before its return gets all.
TEST_F(RulesTest, TheReplyWaitsForTheBox) {
  auto& client = demo_.Client();
  const std::vector<string> call{
      "CASELOGIC", "AR.CUSTOMER", "7", "CUSTOMER.RULES", "as_CUST.ZIP", "", "", "bad"};
  client.Forget().Request(call);
  ASSERT_EQ(client.Frames().size(), 1u);
  EXPECT_TRUE(client.LastFrame().starts_with("\x7F~MSGBOX~"));
  EXPECT_EQ(demo_.Ask({"READ", "PARM", "NEXT.ORDER"}), "5081") << "other requests go on";
  client.Forget().Type("");
  EXPECT_EQ(client.LastFrame(), Framed({"~CASELOGIC~", "as_CUST.ZIP", "", "", "Error"}));
  client.Type("");
  EXPECT_TRUE(client.AtMenu("MAIN.MENU")) << "the box owes one return only";

  client.Forget().Request(call).Request(call);
  int replies = 0, boxes = 0;
  for (int i = 0; i < 1'000; ++i) client.Request(call);
  client.Type("").Type("");
  for (const auto& frame : client.Frames()) {
    replies += frame.starts_with("\x7F~CASELOGIC~");
    boxes += frame.starts_with("\x7F~MSGBOX~");
  }
  EXPECT_LE(boxes, 20) << "boxes of a client that never answers";
  EXPECT_GE(replies, 1'001);
}

}  // namespace
}  // namespace quorvel::demohost

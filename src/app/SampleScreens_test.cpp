// The screens of the sample host in the client, joined in one process: keys, hooks, lookups, lists,
// saving, deleting, locks.

#include <algorithm>
#include <iterator>

#include <gtest/gtest.h>

#include "app/SessionTest.h"
#include "demohost/Record.h"
#include "entry/frmEntry.h"
#include "entry/frmList.h"
#include "entry/frmLocate.h"

namespace quorvel {
namespace {

using Texts = std::vector<std::string>;

class SampleScreens : public ::testing::Test, public JoinedTest {
 protected:
  SampleScreens() {
    Start("[TELNET]\nHostName=127.0.0.1:2323\nQuickExit=0\n[LOGIN]\nUserId=demo\nPwd=demo\n");
  }

  void Open(const std::string& option) {
    Do([&] {
      user.Click(Form<frmSubMenu>()->cboExecute);
      user.Type(option + "\r");
    });
    ASSERT_TRUE(LoadedForm<frmEntry>()) << option;
  }
  frmEntry& Screen() { return *LoadedForm<frmEntry>(); }
  std::string Text(int field) { return Screen().txtEntry(field).Text(); }
  std::string Choice(int field) {
    auto& box = Screen().cboEntry(field);
    return box.ListIndex() < 0 ? "" : box.List.At(box.ListIndex());
  }
  // Types over a field; what follows depends on `key`.
  void Enter(int field, const std::string& text, KeyCode key = KeyCode::Return) {
    Do([&] { Screen().txtEntry(field).UserFocus(); });
    Do([&] {
      auto& box = Screen().txtEntry(field);
      box.UserSelect(0, static_cast<int>(box.Text().size()));
      if (text.empty()) user.Press(KeyCode::Backspace);
      user.Type(text);
    });
    Do([&] { user.Press(key); });
  }
  void Click(Control& control) {
    Do([&] { user.Click(control); });
  }
  std::string Stored(const char* file, const std::string& key, int attribute) {
    return demohost::Attribute(HostData().Read(file, key).value_or("?"), attribute);
  }
  Texts Boxes() {
    Texts texts;
    for (const auto& box : std::exchange(backend.messageBoxes, {})) texts.push_back(box.text);
    return texts;
  }
};

// Fields of the customer screen.
enum {
  Key = 2,
  Note,
  Name,
  Street,
  City,
  Zip,
  Phone,
  Email,
  Rep,
  RepName,
  Account,
  Contacts,
  Class,
  Terms,
  Discount,
  Limit,
  Balance,
  Credit,
  Since,
  Reviewed,
  LastOrder
};

TEST_F(SampleScreens, ACustomerIsFoundChangedAndSaved) {
  Open("AR.CUSTOMER");
  Enter(Key, "1001");
  EXPECT_EQ(Text(Key), "C1001");
  EXPECT_EQ(Text(Name), "Alder & Finch Hardware");
  EXPECT_EQ(Text(RepName), "Nora Beck");
  EXPECT_EQ(Text(Contacts), "Paula Finch; Sam Alder");
  EXPECT_EQ(Choice(Terms), "NET30");
  EXPECT_EQ(Text(Limit), "$15,000.00");
  EXPECT_EQ(Text(Balance), "$4,823.50");
  EXPECT_EQ(Text(Credit), "$10,176.50");
  EXPECT_FALSE(Screen().txtEntry(Balance).Enabled());
  EXPECT_FALSE(Screen().txtEntry(Since).Enabled()) << "for new customers only";
  EXPECT_TRUE(Screen().txtEntry(Reviewed).Enabled());

  Enter(City, "new ashford");
  EXPECT_EQ(Text(City), "New Ashford");
  Enter(Rep, "R9");
  EXPECT_EQ(Boxes(), Texts{"Item R9 not on file!"});
  Enter(Rep, "R2");
  EXPECT_EQ(Text(RepName), "Omar Dale");
  Enter(Account, "77");
  EXPECT_EQ(Text(Account), "000077");
  Enter(Contacts, "Ann Fell;Bo Orr");
  Enter(Limit, "200000");
  EXPECT_EQ(Boxes(), Texts{"A limit above $100,000.00 needs the board."});
  Enter(Limit, "20000");
  EXPECT_EQ(Text(Credit), "$15,176.50");
  Click(Screen().cmdSave);
  EXPECT_EQ(Boxes(), Texts{});
  EXPECT_EQ(Text(Name), "");
  EXPECT_EQ(Text(Note), "C1001 has been stored");
  EXPECT_TRUE(Screen().cmdOK.Enabled());
  EXPECT_EQ(Stored("CUSTOMERS", "C1001", 3), "New Ashford");
  EXPECT_EQ(Stored("CUSTOMERS", "C1001", 7), "2000000");
  EXPECT_EQ(Stored("CUSTOMERS", "C1001", 8), "482350");
  EXPECT_EQ(Stored("CUSTOMERS", "C1001", 9), "R2");
  EXPECT_EQ(Stored("CUSTOMERS", "C1001", 10),
            "Ann Fell\xFD"
            "Bo Orr");
  EXPECT_EQ(Stored("CUSTOMERS", "C1001", 14), "000077");
}

TEST_F(SampleScreens, ACustomerIsAddedAndDeleted) {
  Open("AR.CUSTOMER");
  Enter(Key, "NEW");
  EXPECT_EQ(Boxes(), Texts{"Do you want to add this record?"});
  EXPECT_EQ(Text(Key), "C1025");
  EXPECT_EQ(Choice(Class), "C");
  EXPECT_FALSE(Screen().txtEntry(Reviewed).Enabled());
  Enter(Name, "Zephyr Kites");
  Enter(Rep, "R3");
  Do([&] { Screen().cboEntry(Terms).UserFocus(); });
  EXPECT_EQ(Choice(Terms), "NET30") << "the default";
  Click(Screen().cmdSave);
  EXPECT_EQ(Boxes(), Texts{});
  EXPECT_EQ(Stored("CUSTOMERS", "C1025", 1), "Zephyr Kites");

  Enter(Key, "C1025");
  Click(Screen().cmdDelete);
  EXPECT_EQ(Boxes(), Texts{"Are you sure you want to Delete this record?"});
  EXPECT_EQ(Stored("CUSTOMERS", "C1025", 1), "?");
  Enter(Key, "C1001");
  Click(Screen().cmdDelete);
  EXPECT_EQ(Boxes(), Texts{"An open balance still exists! Cannot Delete."});
  Click(Screen().cmdCancel);
  Enter(Key, "E");
  EXPECT_EQ(LoadedForm<frmEntry>(), nullptr);
}

TEST_F(SampleScreens, PartsOfOneValueAreShownAndPutTogether) {
  enum { GroupName = 7, Aisle = 9, Shelf, Inner, Packs, VendorName = 20, VendorTerms, TermsText };
  Open("IC.ITEM");
  Enter(2, "I101");
  EXPECT_EQ(Text(Aisle) + Text(Shelf), "A01");
  EXPECT_EQ(Text(Inner) + "," + Text(Packs), "12,6");
  EXPECT_EQ(Text(GroupName), "Hand tools");
  EXPECT_EQ(Text(VendorName), "Hartwell Tools");
  EXPECT_EQ(Text(VendorTerms) + ": " + Text(TermsText), "NET30: 30 days net");
  Enter(Shelf, "7");
  Click(Screen().cmdSave);
  EXPECT_EQ(Boxes(), Texts{});
  EXPECT_EQ(Stored("ITEMS", "I101", 8), "A-07");
  EXPECT_EQ(Stored("ITEMS", "I101", 12), "12x6");
}

TEST_F(SampleScreens, AKeyOfTwoPartsOpensItsRecord) {
  enum { Customer = 2, CustomerName, Item, ItemName, Price, ListPrice };
  Open("AR.PRICE");
  Enter(Customer, "C1003", KeyCode::Tab);
  Enter(Item, "I127");
  EXPECT_EQ(Text(CustomerName), "Carter Brothers Building");
  EXPECT_EQ(Text(ItemName), "Interior emulsion, white 10 l");
  Do([&] { user.Press(KeyCode::Return); });
  EXPECT_EQ(Text(Price), "$35.00");
  EXPECT_EQ(Text(ListPrice), "$38.95");
  Enter(Price, "34.5");
  Click(Screen().cmdSave);
  EXPECT_EQ(Boxes(), Texts{});
  EXPECT_EQ(Stored("PRICES", "C1003I127", 1), "3450");
}

TEST_F(SampleScreens, AnOrderIsEntered) {
  enum {
    Customer = 4,
    OrderRep = 6,
    CustomerName,
    Date,
    Item1 = 12,
    Text1,
    Quantity1,
    Price1,
    Amount1,
    Item2,
    Text2,
    Quantity2,
    Total = 37
  };
  Open("SO.ORDER");
  Enter(2, "NEW");
  EXPECT_EQ(Boxes(), Texts{"Do you want to add this record?"});
  Enter(Customer, "C1001");
  EXPECT_EQ(Text(CustomerName), "Alder & Finch Hardware");
  EXPECT_EQ(Text(OrderRep), "R1");
  Enter(Item1, "I101");
  EXPECT_EQ(Text(Text1), "Claw hammer 16 oz");
  EXPECT_EQ(Text(Price1), "14.50");
  Enter(Quantity1, "2");
  EXPECT_EQ(Text(Amount1), "29.00");
  EXPECT_FALSE(Screen().txtEntry(Customer).Enabled()) << "closed by the first line";
  Enter(Item2, "I120");
  Enter(Quantity2, "10");
  EXPECT_EQ(Text(Total), "$43.50");
  Click(Screen().cmdSave);
  EXPECT_EQ(Boxes(), Texts{});
  EXPECT_EQ(Stored("ORDERS", "5081", 3), "I101\xFDI120");
  EXPECT_EQ(Stored("ORDERS", "5081", 4),
            "2\xFD"
            "10");
  EXPECT_EQ(Stored("ORDERS", "5081", 6), "OPEN");
}

TEST_F(SampleScreens, AListFillsTheField) {
  Open("AR.CUSTOMER");
  Enter(Key, "C1001");
  Do([&] { Screen().txtEntry(City).UserFocus(); });
  bool picked = false;
  backend.onIdle = [&picked, exchange = backend.onIdle] {
    if (exchange()) return true;
    auto* list = LoadedForm<frmList>();
    if (picked || !list) return false;
    picked = true;
    list->lstItems.UserPick(3);
    list->cmdOK.UserClick();
    return true;
  };
  Do([&] { Screen().SYList(); });
  EXPECT_TRUE(picked);
  EXPECT_EQ(Text(City), "Kelham");
  EXPECT_EQ(Boxes(), Texts{});
}

// The host asks the client whether it has the lines before it ends the report.
TEST_F(SampleScreens, ACapturedReportIsWhole) {
  Do([&] {
    user.Click(Form<frmSubMenu>()->cboExecute);
    user.Type("RP*STOCKCOUNT\r");
  });
  std::ifstream file(Session().CaptureFile, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  EXPECT_TRUE(text.starts_with("Stock count sheets   page 1\r\n"));
  EXPECT_TRUE(text.ends_with("Counted: ________\r\n"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '_'), 10'000 * 8);
  EXPECT_EQ(Session().PendingOp, "");
}

}  // namespace
}  // namespace quorvel

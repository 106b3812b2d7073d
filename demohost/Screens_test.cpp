// The data-entry screens as a client meets them: definitions, lists, locators.
#include "demohost/Screens.h"

#include <set>

#include <gtest/gtest.h>

#include "demohost/TestScreen.h"

namespace quorvel::demohost {
namespace {

using std::string;

class ScreenTest : public testing::Test {
 protected:
  Application host_{":memory:", TestNow};
  TestScreen demo_{host_, 1};
};

struct Placed {
  int column, row, width;
};

Placed PlaceOf(const string& field) {
  const auto place = Attribute(field, 1, 1);
  auto width = std::stoi(place.substr(4, 2));
  if (width == 99) width = std::stoi("0" + Attribute(field, 1, 22));
  return {std::stoi(place.substr(0, 2)), std::stoi(place.substr(2, 2)), width};
}

string Mapped(const string& field, std::size_t subvalue) {
  const auto parts = Split(Attribute(field, 1, 2), kSvm);
  return subvalue <= parts.size() ? parts[subvalue - 1] : "";
}

bool IsKey(const string& field) {
  return Mapped(field, 2).empty() && Mapped(field, 6) == "1";
}

// A cell is 130 twips wide, a field 120 for each character and 255 for its frame, 255 more with the
// button of a combo box.
int EndOf(const string& field, const Placed& place) {
  const int combo = Attribute(field, 1, 21).empty() ? 0 : 255;
  return place.column * 130 + (place.width - 1) * 120 + 255 + combo;
}

TEST_F(ScreenTest, ScreensFitTheirCellsAndNothingOverlaps) {
  for (const auto& screen : Screens()) {
    demo_.Open(screen.id);
    std::map<int, std::map<int, int>> rows;  // by row and left edge: right edge
    for (std::size_t n = 2; n < demo_.fields.size(); ++n) {
      const auto& field = demo_.fields[n];
      if (field.empty() || field.starts_with("9999")) continue;
      const auto place = PlaceOf(field);
      EXPECT_TRUE(place.row >= 1 && place.row <= 22 && EndOf(field, place) <= 80 * 130)
          << screen.id << n;
      EXPECT_TRUE(rows[place.row].emplace(place.column * 130, EndOf(field, place)).second);
    }
    for (const auto& line : Split(demo_.prompts, kAm)) {
      const auto place = Split(Attribute(line, 1, 1), kSvm);
      const int left = std::stoi(place[0]) * 130;
      // The number in front is shown as blanks.
      rows[std::stoi(place[1])].emplace(
          left, left + static_cast<int>(Attribute(line, 1, 2).size()) * 120);
    }
    for (const auto& [row, spans] : rows) {
      int end = 0;
      for (const auto& [left, right] : spans) {
        EXPECT_GE(left, end) << screen.id << " row " << row;
        end = right;
      }
    }
  }
}

// A client takes the definition as it is, so what it can't take must not be there.
TEST_F(ScreenTest, DefinitionsAreCompleteAndSound) {
  for (const auto& screen : Screens()) {
    demo_.Open(screen.id);
    const auto& fields = demo_.fields;
    bool keys = true;
    for (std::size_t n = 2; n < fields.size(); ++n) {
      const auto& field = fields[n];
      const auto what = screen.id + (" field " + std::to_string(n));
      if (field.empty()) continue;
      if (Mapped(field, 6) != "5" && !Mapped(field, 2).empty()) keys = false;
      EXPECT_TRUE(keys || !IsKey(field)) << what << ": a key behind other fields";
      const bool notStored = Mapped(field, 6) == "4" && Mapped(field, 2).empty();
      EXPECT_TRUE(n >= 7 || !notStored) << what << ": would not be cleared";
      EXPECT_EQ(field.find('@'), string::npos) << what << ": an open reference";
      const auto name = Attribute(field, 1, 6);
      EXPECT_TRUE(host_.Data().Read("DICTIONARY", name)) << what;
      const auto file = Attribute(field, 1, 16);
      EXPECT_TRUE(file.empty() || host_.Data().HasFile(file)) << what;
      if (const auto shown = Attribute(field, 1, 18); !shown.empty()) {
        const auto& display = fields.at(std::stoul(shown));
        EXPECT_EQ(Mapped(display, 6), IsKey(field) ? "5" : "4") << what;
      }
    }
    for (const auto& number : Split(fields[1], kVm)) {
      const auto kind = Mapped(fields.at(std::stoul(number)), 6);
      EXPECT_TRUE(kind == "1" || kind == "2" || kind == "3") << screen.id << " order " << number;
    }
  }
}

TEST_F(ScreenTest, EveryPartOfADefinitionIsInUse) {
  std::set<string> used;
  int keys = 0;
  for (const auto& screen : Screens()) {
    demo_.Open(screen.id);
    for (std::size_t n = 2; n < demo_.fields.size(); ++n) {
      const auto& field = demo_.fields[n];
      if (field.empty()) continue;
      const auto value = [&](int number) { return Attribute(field, 1, number); };
      keys += IsKey(field);
      used.insert("type " + value(1).substr(6, 1));
      used.insert("class " + Mapped(field, 6));
      used.insert("conversion " + value(4));
      if (Mapped(field, 3) == "*") used.insert("all values");
      if (!Mapped(field, 5).empty())
        used.insert(Mapped(field, 8).empty() ? "columns" : "delimited");
      if (Mapped(field, 7) == "Y") used.insert("balance");
      if (!value(21).empty()) used.insert(value(4).empty() ? "combo" : "combo converted");
      if (!value(10).empty()) used.insert(string("justify ") + value(10).front());
      for (const int number : {3, 5, 7, 13, 15, 22, 24})
        if (!value(number).empty()) used.insert("value " + std::to_string(number));
      for (std::size_t i = 0; i < value(26).size(); ++i)
        if (value(26)[i] == 'Y') used.insert("hook " + std::to_string(i + 1));
      if (value(16).empty() || value(18).empty()) continue;
      used.insert("lookup");
      const auto entry = host_.Data().Read("DICTIONARY", value(6)).value_or("");
      if (!Attribute(entry, 14).empty() && !Attribute(entry, 15).empty())
        used.insert("prefix and suffix");
      if (!Attribute(demo_.fields.at(std::stoul(value(18))), 1, 16).empty())
        used.insert("lookup of a lookup");
    }
  }
  EXPECT_EQ(keys, 5) << "three keys of one part and one of two";
  for (const auto* part : {"type 1",
                           "type 2",
                           "type 3",
                           "class 1",
                           "class 2",
                           "class 3",
                           "class 4",
                           "class 5",
                           "conversion MR2",
                           "conversion MR2,$",
                           "conversion D2/",
                           "conversion D",
                           "conversion D4-",
                           "conversion MCU",
                           "conversion MCT",
                           "conversion MCL",
                           "all values",
                           "columns",
                           "delimited",
                           "balance",
                           "combo",
                           "combo converted",
                           "justify L",
                           "justify R",
                           "value 3",
                           "value 5",
                           "value 7",
                           "value 13",
                           "value 15",
                           "value 22",
                           "value 24",
                           "hook 1",
                           "hook 2",
                           "hook 3",
                           "hook 4",
                           "lookup",
                           "prefix and suffix",
                           "lookup of a lookup"})
    EXPECT_TRUE(used.contains(part)) << part;
}

TEST_F(ScreenTest, DefinitionsFollowTheFilesTheyReferTo) {
  host_.Data().Write("PARM", "TERMS", "COD\xFDNET10");
  auto entry = *host_.Data().Read("DICTIONARY", "CUST.CITY");
  SetAttribute(entry, 4, "MCU");
  host_.Data().Write("DICTIONARY", "CUST.CITY", entry);
  demo_.Open("AR.CUSTOMER");
  EXPECT_EQ(Attribute(demo_.fields[customer_field::Terms], 1, 21), "COD\xFCNET10");
  EXPECT_EQ(Attribute(demo_.fields[customer_field::City], 1, 4), "MCU");
  EXPECT_EQ(Attribute(demo_.fields[customer_field::City], 1, 7), "CITIES");

  // References that lead nowhere, and a definition that is none.
  const string lost =
      "1\xFE"
      "0101051\xFD\xFD\xFD\xFD\xFD"
      "NO.NAME" +
      string(15, '\xFD');
  for (const auto* reference : {"@", "@PARM", "@NOPE/TERMS/1", "@PARM/NOPE/1", "@PARM/TERMS/0",
                                "@PARM/TERMS/99999999999999999999", "@PARM/TERMS/x", "@//"}) {
    const auto reply = demo_.Ask({"SYBPARM", lost + reference});
    EXPECT_EQ(Attribute(Split(reply, kAm).at(1), 1, 21), reference) << "kept as it is";
  }
  EXPECT_EQ(demo_.Ask({"SYBPARM", ""}), "");
}

TEST_F(ScreenTest, ListsAnswerByFirstWordOrByLine) {
  auto& client = demo_.Client();
  client.Forget().Request({"SYLIST", "REPS"});
  auto list = FieldsOf(client.LastFrame());
  ASSERT_EQ(list.size(), 3u + 4u);
  EXPECT_EQ(list[0], "~LISTBOX~");
  EXPECT_EQ(list[2], "0,0,0,0");
  EXPECT_EQ(list[3].substr(0, 7), "R1   No");
  client.Forget().Type("R2");  // the choice is the screen's and no option of the menu
  EXPECT_TRUE(client.Frames().empty());
  client.Request({"SYLIST", "CITIES"});
  list = FieldsOf(client.LastFrame());
  EXPECT_EQ(list[0], "~LISTBOXF~");
  EXPECT_EQ((std::vector<string>(list.begin() + 3, list.end())),
            (std::vector<string>{"Ashford", "Dunmore", "Eastgate", "Kelham", "Saltmouth"}));
  client.Forget().Type("");
  EXPECT_TRUE(client.Frames().empty()) << "nothing has been chosen";
  client.Type("");
  EXPECT_TRUE(client.AtMenu("MAIN.MENU")) << "a list owes one line only";

  client.Request({"SYLIST", "NOPE"});
  EXPECT_EQ(client.LastFrame(), Framed({"~LISTBOX~", "There is no list NOPE", "0,0,0,0"}));
}

TEST_F(ScreenTest, LocatorsFindRecordsByTheirWords) {
  struct Case {
    const char* locator;
    const char* word;
    std::size_t matches;  // as the words stand in the sample data; above 8 the user narrows it
    const char* limiter;
    std::size_t found;
  };
  const Case cases[] = {
      {"CUSTOMERS", "ASHFORD", 6, "", 6}, {"CUSTOMERS", "NET30", 14, "KELHAM", 2},
      {"CUSTOMERS", "NET30", 14, "", 14}, {"ITEMS", "HAMMER", 2, "CLAW", 1},
      {"ITEMS", "IN", 10, "SCR", 2},      {"ITEMS", "IN", 10, "NOTHING", 0},
  };
  auto& client = demo_.Client();
  for (const auto& c : cases) {
    const auto index = Attribute(*host_.Data().Read("LOCATOR", c.locator), 2);
    EXPECT_EQ(Split(demo_.Ask({"READ", index, c.word}), kVm).size(), c.matches) << c.word;
    client.Forget().Request({"SYLOCATR", c.locator, c.word, c.limiter});
    const auto list = FieldsOf(client.LastFrame());
    ASSERT_GE(list.size(), 3u);
    EXPECT_EQ(list.size() - 3, c.found) << c.word << " " << c.limiter;
    client.Type("");
  }
  client.Forget().Request({"READ", "CUSTOMERS.WORDS", "ZEBRA"});
  EXPECT_EQ(FieldsOf(client.LastFrame()).front(), "~ERRORMSG~");
  // The index follows the data.
  auto customer = *host_.Data().Read("CUSTOMERS", "C1004");
  SetAttribute(customer, 1, "Zebra-Crossing Ltd");
  host_.Data().Write("CUSTOMERS", "C1004", customer);
  EXPECT_EQ(demo_.Ask({"READ", "CUSTOMERS.WORDS", "ZEBRA"}), "C1004");
}

TEST_F(ScreenTest, AProgramGoesOnWithThePickedLine) {
  auto& client = demo_.Client();
  client.Forget().Type("AR.CITY");
  const auto list = FieldsOf(client.LastFrame());
  EXPECT_EQ(list.front(), "~LISTBOXF~");
  client.Forget().Type(list.back());
  EXPECT_TRUE(client.Shows("Customers of Saltmouth") && client.Shows("Blue Heron Marine"));
  EXPECT_FALSE(client.Shows("Carter Brothers"));
  client.Type("");
  EXPECT_TRUE(client.AtMenu("MAIN.MENU"));
  client.Type("AR.CITY").Type("");
  EXPECT_TRUE(client.AtMenu("MAIN.MENU")) << "left without a choice";
}

TEST_F(ScreenTest, AScreenThatIsTypedAtTheMenuIsExplained) {
  auto& client = demo_.Client();
  client.Forget().Type("AR.CUSTOMER");
  EXPECT_EQ(client.LastFrame(),
            Framed({"~MSGBOX~", "Menus", "AR.CUSTOMER is a screen: choose it in the menu."}));
  client.Type("");
  EXPECT_TRUE(client.AtMenu("MAIN.MENU"));
}

}  // namespace
}  // namespace quorvel::demohost

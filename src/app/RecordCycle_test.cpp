// The round of a record on a data-entry screen: key, lock, read, change, save, delete, cancel.

#include "app/EntryTest.h"

namespace quorvel {
namespace {

class RecordCycleTest : public EntryTest {
 protected:
  // A key (2) and the fields name (3), balance (4, with two decimals), for new records only (5),
  // for old records only (6), display only (7).
  void OpenCustomers(const std::string& program = {}) {
    Open({{1,
           "2\xFD"
           "3\xFD"
           "4\xFD"
           "5\xFD"
           "6"},
          {2, DefinitionOf({{1, PlaceAt(10, 1, 8)}, {5, "X"}, {6, "CUST.ID"}})},
          {3, Stored(2, 1, 20, {{15, "Y"}})},
          {4, Stored(3, 2, 10, {{2, MappingOf({{2, "2"}, {7, "Y"}})}, {4, "MR2"}}, "2")},
          {5, Stored(4, 3, 10, {{2, MappingOf({{2, "3"}, {6, "2"}})}})},
          {6, Stored(5, 4, 10, {{2, MappingOf({{2, "4"}, {6, "3"}})}})},
          {7, Stored(6, 5, 10, {{2, MappingOf({{2, "5"}, {6, "4"}})}})}},
         program);
    Put("DATA", "100",
        RecordOf({{1, "Acme"}, {2, "1250"}, {3, "c"}, {4, "d"}, {5, "e"}, {6, "f"}}));
  }
  static std::string Stored(int row, int attribute, int width, ByPosition values,
                            const std::string& type = "1") {
    values.try_emplace(1, PlaceAt(10, row, width, type));
    values.try_emplace(2, MappingOf({{2, std::to_string(attribute)}}));
    values.try_emplace(5, "X");
    return DefinitionOf(values);
  }
  // Enabled fields, then the enabled buttons: O, S, C, D, E.
  std::string State() {
    std::string state;
    for (auto& [number, box] : Screen().txtEntry) {
      if (box->Enabled()) state += std::to_string(number);
    }
    const std::pair<Button*, char> buttons[] = {{&Screen().cmdOK, 'O'},
                                                {&Screen().cmdSave, 'S'},
                                                {&Screen().cmdCancel, 'C'},
                                                {&Screen().cmdDelete, 'D'},
                                                {&Screen().cmdExit, 'E'}};
    for (const auto& [button, letter] : buttons) {
      if (button->Enabled()) state += letter;
    }
    EXPECT_EQ(Screen().mnuFileExit.Enabled(), Screen().cmdExit.Enabled());
    EXPECT_EQ(Screen().mnuFileSave.Enabled(), Screen().cmdSave.Enabled());
    EXPECT_EQ(Screen().mnuFileCancel.Enabled(), Screen().cmdCancel.Enabled());
    EXPECT_EQ(Screen().mnuFileDelete.Enabled(), Screen().cmdDelete.Enabled());
    return state;
  }
};

TEST_F(RecordCycleTest, ARecordIsFoundChangedAndSaved) {
  OpenCustomers();
  EXPECT_EQ(opening, (Texts{"READ DICTIONARY AR.X", "READ SCREEN AR.X", "READ DICT BPAR AR!X",
                            "OPENALLFILES DATA BPAR DATA", "READ DICT BPAR AR*X", "SYBPARM RAW"}));
  ASSERT_TRUE(IsOpen());
  EXPECT_EQ(State(), "2OE");
  EXPECT_TRUE(HasKeyboard(Text(2)));

  user.Type("100\r");
  backend.RunUntilIdle();
  EXPECT_EQ(TakeRequests(), (Texts{"LOCK AR.X DATA 100 L", "READ DATA 100"}));
  EXPECT_EQ(State(), "346SCD");
  EXPECT_EQ(Text(3).Text(), "Acme");
  EXPECT_EQ(Text(4).Text(), "12.50");
  EXPECT_TRUE(HasKeyboard(Text(3)));

  Replace("Acme & Sons");
  Press(KeyCode::Return);
  EXPECT_TRUE(HasKeyboard(Text(4)));
  Replace("7");
  Click(Screen().cmdSave);
  EXPECT_EQ(TakeRequests(), (Texts{"WRITE DATA 100 Acme & Sons\xFE"
                                   "700\xFE"
                                   "c\xFE"
                                   "d\xFE"
                                   "e\xFE"
                                   "f SYCRLOC",
                                   "LOCK AR.X DATA 100 U"}));
  EXPECT_EQ(State(), "2OE");
  EXPECT_TRUE(HasKeyboard(Text(2)));
  EXPECT_EQ(Text(3).Text(), "");
  EXPECT_TRUE(backend.messageBoxes.empty());
}

}  // namespace
}  // namespace quorvel

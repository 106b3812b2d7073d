// The round of a record on a data-entry screen: key, lock, read, change, save, delete, cancel.

#include <map>

#include "app/EntryTest.h"
#include "link/StartUp.h"

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

// --- the states

TEST_F(RecordCycleTest, WhatIsOpenInEachState) {
  OpenCustomers();
  EXPECT_EQ(State(), "2OE");
  EnterKey("100");
  EXPECT_EQ(State(), "346SCD");  // mode MAINT
  EXPECT_EQ(Session().NewRecord, "");
  Do([&] { Screen().UserClose(); });
  EXPECT_TRUE(IsOpen());  // not with a record open
  Click(Screen().cmdCancel);
  EXPECT_EQ(State(), "2OE");

  EnterKey("200");
  EXPECT_EQ(
      backend.messageBoxes,
      (std::vector<MessageBoxRequest>{{"Do you want to add this record?", "New Record", 36}}));
  EXPECT_EQ(State(), "345SCD");  // mode ENTRY
  EXPECT_EQ(Session().NewRecord, "Y");
  EXPECT_TRUE(HasKeyboard(Text(3)));
  Click(Screen().cmdCancel);
  EXPECT_EQ(State(), "345SCD");  // the required field is still empty
  Enter(3, "New");
  Click(Screen().cmdSave);
  EXPECT_EQ(State(), "2OE");
  EXPECT_EQ(files["DATA"]["200"].substr(0, 4), "New\xFE");
  EnterKey("200");
  EXPECT_EQ(Session().NewRecord, "");
  Click(Screen().cmdCancel);
  Click(Screen().cmdExit);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Session().ScreenLoaded, kFalse);
}

TEST_F(RecordCycleTest, KeysThatOpenNothing) {
  OpenCustomers();
  onRequest = [](const Texts& f) -> std::optional<std::string> {
    if (f[0] != "READ" || f[1] != "DATA") return std::nullopt;
    return FrameOf({"~ERRORMSG~", "Unable to Open file DATA"});
  };
  EnterKey("100");
  EXPECT_EQ(BoxTexts(), Texts{"Unable to Open file DATA"});
  EXPECT_EQ(State(), "2OE");
  EXPECT_EQ(TakeRequests(), (Texts{"LOCK AR.X DATA 100 L", "READ DATA 100"}));  // no unlock
  onRequest = nullptr;

  backend.onMessageBox = [](const MessageBoxRequest&) { return MessageBoxAnswer::No; };
  EnterKey("300");
  EXPECT_EQ(State(), "2OE");
  EXPECT_TRUE(HasKeyboard(Text(2)));
  EXPECT_EQ(TakeRequests().back(), "LOCK AR.X DATA 300 U");

  EnterKey("e");
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(TakeRequests().empty());
}

TEST_F(RecordCycleTest, CancelBringsBackWhatWas) {
  OpenCustomers();
  EnterKey("100");
  Enter(3, "Other");
  Enter(4, "x");
  Click(Screen().cmdCancel);
  EXPECT_EQ(BoxTexts(), Texts{"Entry must be numeric!"});  // a bad entry blocks this, too
  EXPECT_EQ(State(), "346SCD");
  EXPECT_TRUE(HasKeyboard(Text(4)));
  TakeRequests();
  Do([&] { Screen().mnuFileCancel.UserClick(); });
  EXPECT_EQ(State(), "2OE");
  EXPECT_EQ(TakeRequests(), Texts{"LOCK AR.X DATA 100 U"});
  EXPECT_EQ(Text(3).Text(), "");
  EXPECT_EQ(Session().EntryRecord, "");
  EnterKey("100");
  EXPECT_EQ(Text(3).Text(), "Acme");
}

TEST_F(RecordCycleTest, Deleting) {
  OpenCustomers();
  EnterKey("100");
  Click(Screen().cmdDelete);
  EXPECT_EQ(backend.messageBoxes,
            (std::vector<MessageBoxRequest>{
                {"An open balance still exists! Cannot Delete.", "Cannot Delete", 0}}));
  EXPECT_EQ(State(), "346SCD");
  Enter(4, "0");
  Enter(3, "Acme");
  backend.messageBoxes.clear();
  backend.onMessageBox = [](const MessageBoxRequest&) { return MessageBoxAnswer::No; };
  TakeRequests();
  Click(Screen().cmdDelete);
  EXPECT_EQ(backend.messageBoxes,
            (std::vector<MessageBoxRequest>{
                {"Are you sure you want to Delete this record?", "Delete Record?", 36}}));
  EXPECT_TRUE(TakeRequests().empty());
  backend.onMessageBox = nullptr;
  Click(Screen().cmdDelete);
  EXPECT_EQ(TakeRequests(), (Texts{"DELETE DATA 100 SYCRLOC", "LOCK AR.X DATA 100 U"}));
  EXPECT_EQ(State(), "2OE");

  EnterKey("100");  // a new one now: its balance does not count
  Enter(3, "Acme");
  Enter(4, "5");
  TakeRequests();
  Click(Screen().cmdDelete);
  EXPECT_EQ(TakeRequests().front(), "DELETE DATA 100 SYCRLOC");
}

TEST_F(RecordCycleTest, SaveChecksEveryOpenField) {
  OpenCustomers();
  EnterKey("100");
  Enter(4, "1");
  Text(3).Text = "";  // as the host may do
  TakeRequests();
  Click(Screen().cmdSave);
  EXPECT_EQ(BoxTexts(), Texts{"Entry is required!"});
  EXPECT_EQ(Text(3).Text(), "Acme");
  EXPECT_TRUE(HasKeyboard(Text(3)));
  EXPECT_TRUE(TakeRequests().empty());
  onRequest = [](const Texts& f) -> std::optional<std::string> {
    if (f[0] != "WRITE") return std::nullopt;
    return FrameOf({"~WRITERROR~", "Disk is full"});
  };
  Click(Screen().cmdSave);
  EXPECT_EQ(BoxTexts().back(), "Disk is full");
  EXPECT_EQ(State(), "2OE");  // a failed write is reported, and the round goes on
}

// --- hooks of the record

TEST_F(RecordCycleTest, HooksInTheirOrder) {
  OpenCustomers("CASE");
  const auto hooks = [this] {
    Texts seen;
    for (const std::string& request : TakeRequests()) {
      const std::string verb = request.substr(0, request.find(' '));
      seen.push_back(verb == "HOOK" ? request.substr(5) : verb);
    }
    return seen;
  };
  EXPECT_TRUE(hooks().empty());
  EnterKey("100");
  EXPECT_EQ(hooks(), (Texts{"LOCK", "READ", "AfterRead 0"}));
  Click(Screen().cmdSave);
  EXPECT_EQ(hooks(), (Texts{"BeforeWrite 0", "WRITE", "AfterWrite 0", "LOCK"}));
  EnterKey("200");
  EXPECT_EQ(hooks(), (Texts{"LOCK", "READ", "NewItem 0"}));
  Enter(3, "N");
  Click(Screen().cmdDelete);
  EXPECT_EQ(hooks(), (Texts{"BeforeDelete 0", "DELETE", "AfterDelete 0", "LOCK"}));
  EnterKey("100");
  hooks();
  Click(Screen().cmdCancel);
  EXPECT_EQ(hooks(), (Texts{"BeforeExitWoSave 0", "ExitWoSave 0", "LOCK"}));
}

TEST_F(RecordCycleTest, FieldsAreShownAheadOfAfterRead) {
  Open({{1,
         "2\xFD"
         "3\xFD"
         "4"},
        {2, DefinitionOf({{1, PlaceAt(10, 1, 8)}, {5, "X"}, {6, "CUST.ID"}})},
        {3, Stored(2, 1, 20, {{6, "NAME"}, {26, "NNNY"}})},
        {4, Stored(3, 2, 10, {{6, "BAL"}, {26, "---Y"}})}},
       "CASE");
  Put("DATA", "100", RecordOf({{1, "Acme"}, {2, "1250"}}));
  EnterKey("100");
  EXPECT_EQ(TakeRequests(), (Texts{"LOCK AR.X DATA 100 L", "READ DATA 100", "HOOK bo_NAME 3",
                                   "HOOK bo_BAL 4", "HOOK AfterRead 0"}));
}

// Behind the cancel the host is told of the record as it was found.
TEST_F(RecordCycleTest, ExitWoSaveHasTheRecordRestored) {
  OpenCustomers("CASE");
  std::map<std::string, std::string> names;  // hook: the name in its record
  onHook = [&](const Texts& f) {
    names[f[4]] = ExtractOf(f[5], 3, 0, 0);
    return HookReply(f, f[4], "");
  };
  EnterKey("100");
  Enter(3, "Changed");
  Click(Screen().cmdCancel);
  EXPECT_EQ(names["BeforeExitWoSave"], "Changed");
  EXPECT_EQ(names["ExitWoSave"], "Acme");
}

TEST_F(RecordCycleTest, WhatTheHostsAnswersDo) {
  const struct {
    std::string hook, word, data;
    std::string key;
    Button EntryControls::*click;
    std::string state;  // at the end
    std::string last;   // request
  } cases[] = {
      {"AfterRead", "", "Error", "100", nullptr, "2OE", "LOCK AR.X DATA 100 U"},
      {"NewItem", "", "Error", "200", nullptr, "2OE", "LOCK AR.X DATA 200 U"},
      {"BeforeWrite", "RETURN", "", "100", &EntryControls::cmdSave, "346SCD", "HOOK BeforeWrite 0"},
      {"BeforeWrite", "", "Error", "100", &EntryControls::cmdSave, "2OE", "LOCK AR.X DATA 100 U"},
      {"BeforeDelete", "", "Error", "100", &EntryControls::cmdDelete, "346SCD",
       "HOOK BeforeDelete 0"},
      {"BeforeExitWoSave", "", "Error", "100", &EntryControls::cmdCancel, "346SCD",
       "HOOK BeforeExitWoSave 0"},
      {"ExitWoSave", "", "Error", "100", &EntryControls::cmdCancel, "346SCD", "HOOK ExitWoSave 0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.hook);
    OpenCustomers("CASE");
    onHook = [&](const Texts& f) {
      return f[4] == c.hook ? HookReply(f, c.word, c.data) : HookReply(f, f[4], "");
    };
    EnterKey(c.key);
    if (c.click) Click(Screen().*c.click);
    EXPECT_EQ(State(), c.state);
    const Texts requests = TakeRequests();
    EXPECT_EQ(requests.empty() ? "" : requests.back(), c.last);
    onHook = nullptr;
    Screen().mnuFileExit.Enabled = true;
    Screen().Unload();
  }
  EXPECT_TRUE(BoxTexts().empty());
}

// Hooks of fields are called only for the field that is being entered when Save is clicked.
TEST_F(RecordCycleTest, SaveCallsHooksOfTheCurrentFieldOnly) {
  Open({{1,
         "2\xFD"
         "3\xFD"
         "4"},
        {2, PlaceAt(1, 1, 8)},
        {3, Stored(2, 1, 9, {{6, "A"}, {26, "NYY"}})},
        {4, Stored(3, 2, 9, {{6, "B"}, {26, "NYY"}})}},
       "CASE");
  Put("DATA", "1",
      "a\xFE"
      "b");
  EnterKey("1");
  Enter(4, "x");
  TakeRequests();
  Click(Screen().cmdSave);
  EXPECT_EQ(TakeRequests(),
            (Texts{"HOOK ai_B 4", "HOOK as_B 4", "HOOK BeforeWrite 0",
                   "WRITE DATA 1 a\xFEx SYCRLOC", "HOOK AfterWrite 0", "LOCK AR.X DATA 1 U"}));
}

// --- waits

// What is typed and clicked while the host is asked is served in order afterwards, where it can be.
TEST_F(RecordCycleTest, ClicksDuringAWait) {
  OpenCustomers();
  int waits = 0;
  onRequest = [&](const Texts& f) -> std::optional<std::string> {
    if (f[0] == "LOCK" && f[4] == "L") {
      ++waits;
      Screen().cmdOK.UserClick();  // no key is accepted twice, and the record that comes stays
      Screen().cmdExit.UserClick();
      user.Press(KeyCode::Tab);  // to the second field that the record opens
      user.Type("13");
    } else if (f[0] == "WRITE") {
      ++waits;
      for (Button* button : {&Screen().cmdSave, &Screen().cmdCancel, &Screen().cmdDelete}) {
        user.Click(*button);  // the screen is back at its key by then
      }
      Screen().mnuFileSave.UserClick();
      user.Type("100");  // the next key
    }
    return std::nullopt;
  };
  EnterKey("100");
  EXPECT_EQ(State(), "346SCD");
  EXPECT_EQ(Text(4).Text(), "13");
  Enter(3, "New name");
  Click(Screen().cmdSave);
  EXPECT_EQ(waits, 2);
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(files["DATA"]["100"].substr(0, 14),
            "New name\xFE"
            "1300\xFE");
  EXPECT_EQ(TakeRequests(),
            (Texts{"LOCK AR.X DATA 100 L", "READ DATA 100",
                   "WRITE DATA 100 " + files["DATA"]["100"] + " SYCRLOC", "LOCK AR.X DATA 100 U"}));
  EXPECT_TRUE(BoxTexts().empty());
  EXPECT_EQ(Text(2).Text(), "100");
}

class LostInARecord : public RecordCycleTest {
 protected:
  // The link is lost while a click on Cancel waits for a hook; then `act`, then the next session
  // connects.
  void Play(const std::function<void()>& act) {
    OpenCustomers("PROG");
    EnterKey("100");
    ASSERT_FALSE(Screen().cmdExit.Enabled());
    onRequest = [&](const Texts& f) -> std::optional<std::string> {
      if (f[0] == "CASELOGIC") Line().HangUp();
      return f[0] == "CASELOGIC" ? std::optional<std::string>("") : std::nullopt;
    };
    int idle = 0;
    backend.onIdle = [&, serve = backend.onIdle] {
      if (serve()) return true;
      if (++idle == 1) {
        act();
        desktop().Post(EventKind::User, [] { StartSession(); });
      } else if (idle == 2) {
        Line().Accept();
      }
      return idle <= 2;
    };
    Click(Screen().cmdCancel);
    EXPECT_FALSE(backend.stalled);
    EXPECT_EQ(Session().Connected, 1);
    EXPECT_EQ(Session().PendingOp, "Login");
    EXPECT_EQ(Line().TakeSent(), "");  // nothing of the last session reaches the next one
  }
};

// The screen may be left at once ...
TEST_F(LostInARecord, ItCanBeLeft) {
  Play([this] {
    user.Click(Screen().cmdExit);
    EXPECT_FALSE(IsOpen());
  });
}

// ... or goes, and the wait with it, when the next session connects.
TEST_F(LostInARecord, ItGoesWithTheNextSession) {
  Play([this] {
    EXPECT_TRUE(IsOpen());
    user.Click(Screen().cmdSave);  // answers, if only by doing nothing
    EXPECT_TRUE(IsOpen());
  });
  EXPECT_FALSE(IsOpen());
}

// A combo box that is the key clears the whole screen when it is entered again; a text box does
// not.
TEST_F(RecordCycleTest, EnteringTheKeyAgain) {
  Open({{1,
         "2\xFD"
         "3"},
        {2, DefinitionOf({{1, PlaceAt(1, 1, 8)},
                          {21,
                           "1\xFC"
                           "2"}})},
        {3, Stored(2, 1, 9, {})}});
  Put("DATA", "1", "a");
  Do([&] { Combo(2).UserPick(0); });
  Press(KeyCode::Return);
  EXPECT_EQ(Text(3).Text(), "a");
  Combo(2).Enabled = true;
  TakeRequests();
  Do([&] { Combo(2).UserFocus(); });
  EXPECT_EQ(TakeRequests(), Texts{"LOCK AR.X DATA 1 U"});
  EXPECT_EQ(Session().RecordKey, "");
  EXPECT_EQ(Text(3).Text(), "");
  Screen().mnuFileExit.Enabled = true;
  Screen().Unload();

  OpenCustomers();
  EnterKey("100");
  Text(2).Enabled = true;
  Do([&] { Text(2).UserFocus(); });
  EXPECT_EQ(TakeRequests().back(), "LOCK AR.X DATA 100 U");
  EXPECT_EQ(Text(3).Text(), "Acme");
}

}  // namespace
}  // namespace quorvel

// Lists that the host sends, and the locator that asks for one: windows, answers, requests.

#include "app/FarEndTest.h"
#include "entry/ListRequests.h"
#include "entry/frmList.h"
#include "entry/frmLocate.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

using Act = std::function<void()>;

class ListsTest : public FarEndTest {
 protected:
  ListsTest() { LogIn(); }

  // While a window waits, the host answers requests with `replies`, and the user does `acts`, one
  // whenever nothing else goes on. The requests are in asked.
  void Script(std::vector<Act> acts, Texts replies = {}) {
    asked.clear();
    acts_ = std::move(acts);
    replies_ = std::move(replies);
    backend.onIdle = [this] {
      if (!replies_.empty() && !Line().sent.empty()) {
        asked.push_back(Line().TakeSent());
        Line().Deliver(Taken(replies_));
        return true;
      }
      if (acts_.empty()) return false;
      Taken(acts_)();
      return true;
    };
  }
  // All that was scripted has happened, and no window is open.
  void ExpectDone() {
    EXPECT_TRUE(acts_.empty());
    EXPECT_TRUE(replies_.empty());
    EXPECT_FALSE(backend.stalled);
    EXPECT_EQ(LoadedForm<frmList>(), nullptr);
    EXPECT_EQ(LoadedForm<frmLocate>(), nullptr);
  }
  static frmList& List() { return *LoadedForm<frmList>(); }
  static frmLocate& Locate() { return *LoadedForm<frmLocate>(); }

  // Deliver() of a list; what the client has sent when it has been answered.
  std::string Show(const Texts& fields, std::vector<Act> acts) {
    Script(std::move(acts));
    std::string sent = Deliver(FrameOf(fields));
    ExpectDone();
    return sent;
  }
  Texts Pointers() const {
    Texts names;
    for (const MousePointer pointer : backend.pointers) {
      names.emplace_back(pointer == MousePointer::Hourglass ? "hourglass" : "arrow");
    }
    return names;
  }

 private:
  template <class T>
  static T Taken(std::vector<T>& items) {
    T first = std::move(items.front());
    items.erase(items.begin());
    return first;
  }

  std::vector<Act> acts_;
  Texts replies_;
};

const Texts kCities = {"~LISTBOX~", "Cities", "0,0,0,0", "  NY New York ", "LA\rhidden", ""};
// The same, answered by the whole line.
Texts Whole() {
  Texts fields = kCities;
  fields[0] = "~LISTBOXF~";
  return fields;
}

TEST_F(ListsTest, TheWindowShowsTheLines) {
  LoadedForm<frmTelnet>()->VT2201.Font = quorvel::Font{"Terminal", 11, true, true};
  Show(kCities, {[this] {
         EXPECT_EQ(List().Caption(), "Cities");
         EXPECT_EQ(List().lstItems.List.All(), (Texts{"  NY New York ", "LA", ""}));
         EXPECT_EQ(List().lstItems.ListIndex(), -1);
         EXPECT_EQ(List().lstItems.Font(), (quorvel::Font{"Terminal", 11, true, false}));
         EXPECT_TRUE(List().IsModal());
         EXPECT_TRUE(List().lstItems.HasFocus());
         EXPECT_EQ(Pointers(), Texts{"arrow"});
         user.Press(KeyCode::Escape);
       }});
  EXPECT_TRUE(LoadedForm<frmTelnet>()->VT2201.HasFocus());
}

TEST_F(ListsTest, WaysToAnswer) {
  const auto pick = [](int row) { return [row] { List().lstItems.UserPick(row); }; };
  const Act ok = [this] { user.Click(List().cmdOK); };
  const Act enter = [this] { user.Press(KeyCode::Return); };
  const struct {
    const char* what;
    Texts fields;
    std::vector<Act> acts;
    std::string sent;
  } cases[] = {
      {"the first word", kCities, {pick(0), ok}, "NY\r"},
      {"the whole line", Whole(), {pick(0), ok}, "  NY New York \r"},
      {"Enter", kCities, {pick(0), pick(1), enter}, "LA\r"},
      {"Alt and the letter",
       kCities,
       {pick(1), [this] { user.Press(static_cast<KeyCode>('O'), kAlt); }},
       "LA\r"},
      {"a double click", kCities, {pick(1), [this] { user.DoubleClick(List().lstItems); }}, "LA\r"},
      {"an empty line", kCities, {pick(2), ok}, "\r"},
      {"no line", kCities, {ok}, "\r"},
      {"no line, Enter", kCities, {enter}, "\r"},
      {"Cancel", kCities, {pick(0), [this] { user.Click(List().cmdExit); }}, "\r"},
      {"Escape", kCities, {pick(0), [this] { user.Press(KeyCode::Escape); }}, "\r"},
      {"the close box", kCities, {pick(0), [] { List().UserClose(); }}, "\r"},
      {"an empty list", {"~LISTBOX~", "None", "0,0,0,0"}, {ok}, "\r"},
      {"a bare message", {"~LISTBOXF~"}, {enter}, "\r"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(Show(c.fields, c.acts), c.sent);
    EXPECT_EQ(Session().ListAnswer, "");  // there is no screen
    EXPECT_EQ(Session().PendingOp, "");
  }
}

TEST_F(ListsTest, TheAnswerGoesToTheFieldThatAsked) {
  Texts fields;
  Ask().FocusField = [&](int field) {
    fields.push_back(std::to_string(field) + " " + Session().PendingOp + " " +
                     Session().ListAnswer);
  };
  Session().ScreenLoaded = kTrue;
  Session().CurrentField = 7;
  const Act pick = [] { List().lstItems.UserPick(0); };
  EXPECT_EQ(Show(kCities, {pick, [this] { user.Click(List().cmdOK); }}), "NY\r");
  EXPECT_EQ(fields, Texts{"7 ReturnAns NY"});
  Session().PendingOp.clear();
  // A list that is cancelled leaves nothing of the answer before it.
  EXPECT_EQ(Show(kCities, {pick, [this] { user.Press(KeyCode::Escape); }}), "\r");
  EXPECT_EQ(Session().ListAnswer, "");
  EXPECT_EQ(Session().PendingOp, "");
  EXPECT_EQ(fields.size(), 1u);
}

TEST_F(ListsTest, TheHostGivesTheWindowAPlace) {
  mdiMain& main = *LoadedForm<mdiMain>();
  main.Left = 300;
  main.Top = 450;
  main.UserResize(12000, 9000);
  struct Place {
    int top, left, width, height;
    bool operator==(const Place&) const = default;
  };
  const auto shown = [&](const std::string& geometry) {
    Place place{};
    Show({"~LISTBOX~", "List", geometry, "line"}, {[&] {
           place = {List().Top(), List().Left(), List().Width(), List().Height()};
           user.Press(KeyCode::Escape);
         }});
    return place;
  };
  const Place centred = shown("0,0,0,0");
  EXPECT_EQ(centred.left + centred.width / 2, 300 + 6000);
  EXPECT_EQ(centred.top + centred.height / 2, 450 + 4500);
  EXPECT_EQ(shown("0000,0000,0000,0000"), centred);
  EXPECT_EQ(shown("  0,0,0,0 "), centred);

  const int width = centred.width;
  const int height = centred.height;
  const struct {
    std::string geometry;
    Place place;
  } cases[] = {
      {"100,200,3000,4000", {100 + 450 + 610, 500, 3000, 4000}},
      {" 0100,0200,3000,4000 ", {1160, 500, 3000, 4000}},
      {"00,000,0,3000", {1060, 300, 12000, 3000}},
      {"0,200,000,0000", {1060, 500, 11800, 450 + 9000 - 1060}},
      {"1000,0,0,0", {2060, 300, 12000, 9450 - 2060}},
      {"-100,-200,3000,4000", {960, 100, 3000, 4000}},
      {"100.4,,3000,4000", {1160, 0, 3000, 4000}},
      {"x,200,y,z", {0, 500, width, height}},
      {"100,200", {1160, 500, width, height}},
      {"100,z,0,4000", {1160, 0, 12000, 4000}},
      {"1,234.5", {1061, 534, width, height}},
      {"0,0,-5,-5", {1060, 300, 0, 0}},
      {"9999999999999,1" + std::string(308, '0') + ",999999999,3000",
       {1000000, 1000000, 1000000, 3000}},
      {"0,,0,0,7", {1060, 0, 12000, 8390}},
  };
  for (const auto& c : cases) {
    const Place place = shown(c.geometry);
    EXPECT_EQ(place.top, c.place.top) << c.geometry;
    EXPECT_EQ(place.left, c.place.left) << c.geometry;
    EXPECT_EQ(place.width, c.place.width) << c.geometry;
    EXPECT_EQ(place.height, c.place.height) << c.geometry;
  }
}

TEST_F(ListsTest, AFieldsListIsAskedFor) {
  Run([] { RequestList(""); });
  EXPECT_EQ(Line().TakeSent(), "");
  EXPECT_EQ(Pointers(), Texts{});
  Run([] { RequestList("CITIES"); });
  EXPECT_EQ(Line().TakeSent(), RequestOf({"SYLIST", "CITIES"}));
  EXPECT_EQ(Session().PendingOp, "");
  Show(kCities, {[this] { user.Press(KeyCode::Escape); }});
  EXPECT_EQ(Pointers(), (Texts{"hourglass", "arrow"}));
  // The host may have no such list.
  Run([] { RequestList("NONE"); });
  Line().TakeSent();
  Deliver(FrameOf({"~ERRORMSG~", "No list NONE"}));
  EXPECT_EQ(BoxTexts(), Texts{"No list NONE"});
  EXPECT_EQ(Pointers().back(), "arrow");
}

// --- the locator

const std::string kIndexName = std::string("Customers") + AM + "CUST.INDEX";

// An index record of so many matches.
std::string Matches(int count) {
  std::string record = "C1";
  for (int i = 2; i <= count; ++i) record += VM + ("C" + std::to_string(i));
  return FrameOf({record + AM + "other"});
}

TEST_F(ListsTest, AWordWithFewMatchesGoesStraightOn) {
  Script({[this] {
           EXPECT_EQ(Locate().Caption(), "Locator");
           EXPECT_TRUE(Locate().txtLocWord.HasFocus());
           EXPECT_FALSE(Locate().txtLimiter.Visible());
           EXPECT_FALSE(Locate().cmdContinue.Visible());
           EXPECT_FALSE(Locate().lblFound.Visible());
           user.Type(" smith \r");
         }},
         {FrameOf({kIndexName}), Matches(8)});
  Run([] { RequestLocator("CUSTOMERS"); });
  ExpectDone();
  EXPECT_EQ(asked, (Texts{RequestOf({"READ", "LOCATOR", "CUSTOMERS"}),
                          RequestOf({"READ", "CUST.INDEX", "SMITH"})}));
  EXPECT_EQ(Line().TakeSent(), RequestOf({"SYLOCATR", "CUSTOMERS", "SMITH", ""}));
  EXPECT_EQ(Session().PendingOp, "");
  EXPECT_EQ(Pointers(), Texts{"hourglass"});
}

TEST_F(ListsTest, AWordWithManyMatchesAsksForAnother) {
  const struct {
    const char* what;
    std::vector<Act> acts;
    std::string sent;
  } cases[] = {
      {"a limiter", {[this] { user.Type(" boston \r"); }}, "BOSTON"},
      {"none", {[this] { user.Click(Locate().cmdContinue); }}, ""},
      {"Exit", {[this] { user.Type("x"), user.Press(KeyCode::Escape); }}, "nothing"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    std::vector<Act> acts = {[this] { user.Type("smith\r"); },
                             [] {
                               EXPECT_EQ(Locate().lblFound.Caption(), "9 records found");
                               EXPECT_TRUE(Locate().lblFound.Visible());
                               EXPECT_TRUE(Locate().lblLimiter.Visible());
                               EXPECT_TRUE(Locate().txtLimiter.HasFocus());
                               EXPECT_FALSE(Locate().txtLocWord.Enabled());
                               EXPECT_FALSE(Locate().cmdOK.Visible());
                               EXPECT_EQ(Session().LocatorWord, "SMITH");
                             }};
    acts.insert(acts.end(), c.acts.begin(), c.acts.end());
    Script(acts, {FrameOf({kIndexName}), Matches(9)});
    Run([] { RequestLocator("CUSTOMERS"); });
    ExpectDone();
    const bool goesOn = std::string(c.sent) != "nothing";
    EXPECT_EQ(Line().TakeSent(),
              goesOn ? RequestOf({"SYLOCATR", "CUSTOMERS", "SMITH", c.sent}) : "");
    EXPECT_EQ(Session().LocatorWord, goesOn ? "SMITH" : "");
  }
}

TEST_F(ListsTest, NothingIsFound) {
  const auto found = [](const std::string& text) {
    return [text] {
      EXPECT_EQ(Locate().lblFound.Caption(), text);
      EXPECT_TRUE(Locate().txtLocWord.Enabled());
      EXPECT_TRUE(Locate().cmdOK.Visible());
    };
  };
  const std::string none = FrameOf({"~ERRORMSG~", "not on file"});
  Script({[this] { user.Type("a\r"); }, found("Locator file CUSTOMERS is invalid!"),
          [this] { user.Type("\r"); }, found("No records found"), [this] { user.Type("\r"); }},
         {none, FrameOf({kIndexName}), none, FrameOf({kIndexName}), Matches(1)});
  Run([] { RequestLocator("CUSTOMERS"); });
  ExpectDone();
  EXPECT_EQ(Line().TakeSent(), RequestOf({"SYLOCATR", "CUSTOMERS", "A", ""}));
  EXPECT_TRUE(backend.messageBoxes.empty());
}

TEST_F(ListsTest, LeavingTheLocatorSearchesNothing) {
  Run([] { RequestLocator(""); });
  EXPECT_EQ(LoadedForm<frmLocate>(), nullptr);
  for (const Act& leave :
       {Act([this] { user.Press(KeyCode::Escape); }), Act([this] { user.Type("  \r"); }),
        Act([this] { user.Type("x"), user.Click(Locate().cmdExit); }),
        Act([this] { user.Type("x"), Locate().UserClose(); })}) {
    Session().LocatorWord = "OLD";
    Script({leave});
    Run([] { RequestLocator("CUSTOMERS"); });
    ExpectDone();
    EXPECT_EQ(Line().TakeSent(), "");
    EXPECT_EQ(Session().LocatorWord, "");
  }
  EXPECT_EQ(Pointers(), Texts{});
}

TEST_F(ListsTest, ImpatienceAndMarks) {
  // While the host is asked, what is typed is kept: a second Enter searches once more, Escape
  // leaves.
  const std::string reply = FrameOf({kIndexName});
  const std::string none = FrameOf({"~ERRORMSG~", "none"});
  Script({[this] { user.Type("a\r"); }, [this] { user.Type("\r"); },
          [this] { user.Press(KeyCode::Escape); }, [&] { Line().Deliver(reply); },
          [&] { Line().Deliver(none); }, [&] { Line().Deliver(reply); },
          [&] { Line().Deliver(none); }});
  Run([] { RequestLocator("CUSTOMERS"); });
  ExpectDone();
  const std::string search =
      RequestOf({"READ", "LOCATOR", "CUSTOMERS"}) + RequestOf({"READ", "CUST.INDEX", "A"});
  EXPECT_EQ(Line().TakeSent(), search + search);
  EXPECT_EQ(Session().LocatorWord, "");
  EXPECT_EQ(Session().PendingOp, "");

  // What is typed ends no field and no frame.
  Script({[this] {
           Locate().txtLocWord.UserEdit("m\xFAn\x7Fz");
           user.Press(KeyCode::Return);
         }},
         {reply, Matches(1)});
  Run([] { RequestLocator("CUSTOMERS"); });
  ExpectDone();
  EXPECT_EQ(Line().TakeSent(), RequestOf({"SYLOCATR", "CUSTOMERS", "M?N?Z", ""}));
}

// Word, limiter and list against the sample host.
TEST(LocatorStory, TheSampleHostFindsACustomer) {
  JoinedTest client;
  client.Start("[TELNET]\nHostName=host\n[LOGIN]\nUserId=demo\nPwd=demo\n");
  Texts found;
  std::vector<Act> acts = {[&] { client.user.Type("net30\r"); },
                           [&] { client.user.Type("ashf\r"); },
                           [&] {
                             found = LoadedForm<frmList>()->lstItems.List.All();
                             LoadedForm<frmList>()->lstItems.UserPick(0);
                             client.user.Press(KeyCode::Return);
                           }};
  client.backend.onIdle = [&acts, exchange = client.backend.onIdle] {
    if (exchange()) return true;
    if (acts.empty()) return false;
    const Act act = acts.front();
    acts.erase(acts.begin());
    act();
    return true;
  };
  desktop().Post(EventKind::User, [] { RequestLocator("CUSTOMERS"); });
  client.backend.RunUntilIdle();
  EXPECT_FALSE(client.backend.stalled);
  EXPECT_EQ(LoadedForm<frmList>(), nullptr);
  ASSERT_FALSE(found.empty());
  for (const std::string& line : found) EXPECT_NE(line.find("Ashford"), std::string::npos) << line;
  EXPECT_TRUE(client.backend.messageBoxes.empty());
}

}  // namespace
}  // namespace quorvel

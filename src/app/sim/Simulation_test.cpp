// The simulator itself: that it can fail, that it repeats itself, and that stories which failed
// once hold now.
#include "app/sim/Simulation.h"

#include <algorithm>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "app/sim/CommandLine.h"
#include "app/sim/Known.h"
#include "app/sim/Rules.h"
#include "app/sim/Shortening.h"
#include "link/SessionState.h"

namespace quorvel::sim {
namespace {

std::vector<std::string> TraceOf(Workplace& place, const Story& story) {
  std::vector<std::string> trace;
  Simulation(place, story, [&trace](const std::string& line) { trace.push_back(line); }).Run();
  return trace;
}

TEST(Simulation, TheSameSeedIsTheSameStory) {
  Workplace one;
  Workplace other;
  for (const KindRow& row : Kinds()) {
    if (row.kind == Kind::Sessions) continue;
    const Story story = MakeStory(row.kind, 11);
    const auto first = TraceOf(one, story);
    EXPECT_GT(first.size(), 10U) << row.name;
    TraceOf(one, MakeStory(row.kind, 12));  // what lies between leaves nothing behind
    EXPECT_EQ(first, TraceOf(one, story)) << row.name;
    EXPECT_EQ(first, TraceOf(other, story)) << row.name;
  }
}

TEST(Simulation, OtherSeedsAreOtherStories) {
  Workplace place;
  EXPECT_NE(TraceOf(place, MakeStory(Kind::Fast, 1)), TraceOf(place, MakeStory(Kind::Fast, 2)));
}

TEST(Simulation, APartOfAStoryPlaysItsActsAlone) {
  Workplace place;
  const Story story = MakeStory(Kind::Patient, 3);
  const auto acts = [](const std::vector<std::string>& trace) {
    return std::count_if(trace.begin(), trace.end(), [](const std::string& line) {
      return line.find(" ms, act ") != std::string::npos;
    });
  };
  EXPECT_EQ(acts(TraceOf(place, Part(story, {}))), 0);
  EXPECT_EQ(acts(TraceOf(place, Part(story, {2, 5}))), 2);
}

TEST(Simulation, OperatorsGetToWork) {
  Workplace place;
  std::map<std::string, int> seen;
  for (std::uint64_t seed = 1; seed <= 40; ++seed) {
    for (const std::string& line : TraceOf(place, MakeStory(Kind::Patient, seed))) {
      for (const char* sight : {"client: <7F>WRITE<FA>", "client: <7F>LOCK<FA>", "SYLIST<FA>",
                                "client: <7F>READHELP", "~CAPTURE-ON~", "operator: answers"}) {
        if (line.find(sight) != std::string::npos) ++seen[sight];
      }
    }
  }
  EXPECT_EQ(seen.size(), 6U);
  for (const auto& [sight, count] : seen) EXPECT_GT(count, 2) << sight;
}

TEST(Simulation, KnownStoriesHold) {
  Workplace place;
  for (const KnownStory& known : kKnownStories) {
    const auto acts = NumbersOf(known.acts);
    ASSERT_TRUE(acts) << known.acts;
    const Story story = Part(MakeStory(known.kind, known.seed), *acts);
    const auto failure = Simulation(place, story).Run();
    EXPECT_FALSE(failure) << RowOf(known.kind).name << ' ' << known.seed << ": " << failure->rule
                          << ": " << failure->seen;
  }
}

// --- the rules can fail

class RuleTest : public ::testing::Test {
 protected:
  std::string Failed() const { return verdict.failure() ? verdict.failure()->rule : ""; }
  Verdict verdict;
};

TEST_F(RuleTest, BoxesOutOfTheirOrderFail) {
  FramesRule rule(verdict);
  rule.OnFrame(
      "~MSGBOX~\xFA"
      "A\xFA"
      "one");
  rule.OnFrame(
      "~MSGBOX~\xFA"
      "A\xFA"
      "two");
  rule.OnBox({"the client's own", "A"});
  EXPECT_EQ(Failed(), "");
  rule.OnBox({"two", "A"});
  EXPECT_EQ(Failed(), "frames");
}

TEST_F(RuleTest, ABoxThatNeverOpensFails) {
  FramesRule rule(verdict);
  rule.OnFrame(
      "~MSGBOX~\xFA"
      "A\xFA"
      "one");
  rule.OnBox({"one", "A"});
  rule.CheckQuiet();
  EXPECT_EQ(Failed(), "");
  rule.OnFrame(
      "~MSGBOX~\xFA"
      "A\xFA"
      "one");
  rule.CheckQuiet();
  EXPECT_EQ(Failed(), "frames");
}

TEST_F(RuleTest, ALineAheadOfTheLoginFails) {
  LoginRule rule(verdict);
  rule.OnAccepted("host");
  rule.OnSent("\xFF\xFB\x18");
  rule.OnTyped("x");
  rule.OnSent("x");
  EXPECT_EQ(Failed(), "");
  rule.OnSent("E\r");
  EXPECT_EQ(Failed(), "login");
}

TEST_F(RuleTest, AfterTheFirstFrameEverythingMayBeSent) {
  LoginRule rule(verdict);
  rule.OnAccepted("host");
  rule.OnFrame();
  rule.OnSent("E\r");
  EXPECT_EQ(Failed(), "");
}

TEST_F(RuleTest, AUserOfAnotherHostFails) {
  LoginRule rule(verdict);
  Session().LoginUser = kOtherUser;
  rule.OnAccepted(kOtherHost);
  rule.OnSent(std::string(kOtherUser) + "\r");
  EXPECT_EQ(Failed(), "");
  rule.OnAccepted("host");
  rule.OnSent(std::string(kOtherUser) + "\r");
  EXPECT_EQ(Failed(), "login");
  Session() = SessionState{};
}

TEST_F(RuleTest, ACaptureOfTheLastSessionFails) {
  StreamRule rule(verdict);
  Session().PendingOp = "Capture";
  rule.OnAccepted();
  rule.OnFrame("~CAPTURE-ON~");
  rule.CheckQuiet(false);
  EXPECT_EQ(Failed(), "");
  rule.OnAccepted();
  rule.CheckQuiet(false);
  EXPECT_EQ(Failed(), "stream");
  Session() = SessionState{};
}

TEST_F(RuleTest, AnEndBehindAnAnswerOfNoFails) {
  ExitRule rule(verdict);
  rule.OnChosen();
  rule.OnBox({"Exit the system?", "Confirm Exit"});
  rule.OnAnswered("Confirm Exit", true);
  rule.CheckEnd();
  EXPECT_EQ(Failed(), "");
  rule.OnChosen();
  rule.OnBox({"Exit the system?", "Confirm Exit"});
  rule.OnAnswered("Confirm Exit", false);
  rule.CheckEnd();
  EXPECT_EQ(Failed(), "exit");
}

TEST_F(RuleTest, AFailedConnectionThatIsToldTwiceFails) {
  LinkRule rule(verdict);
  rule.OnRefused();
  rule.OnBox({"Could not connect to host:23\nrefused", "Quorvel GUI"});
  EXPECT_EQ(Failed(), "");
  rule.OnBox({"Could not connect to host:23\nrefused", "Quorvel GUI"});
  EXPECT_EQ(Failed(), "link");
}

TEST_F(RuleTest, AWriteWithoutItsLockFails) {
  Workplace place;
  place.Reset({});
  SavedRule rule(verdict, place);
  const auto record = place.Host().Data().Read("CUSTOMERS", "C1001");
  ASSERT_TRUE(record);
  const std::string write =
      "WRITE\xFA"
      "CUSTOMERS\xFA"
      "C1001\xFA" +
      *record + "\xFASYCRLOC";
  place.Host().RecordLocks().Take(1, "CUSTOMERS", "C1001");
  rule.OnRequest(write, 1);
  EXPECT_EQ(Failed(), "");
  rule.OnRequest(write, 2);
  EXPECT_EQ(Failed(), "saved");
  place.Host().RecordLocks().ReleaseAll(1);
}

TEST_F(RuleTest, AWriteWithTheFieldsOfAnotherRecordFails) {
  Workplace place;
  place.Reset({});
  SavedRule rule(verdict, place);
  const auto other = place.Host().Data().Read("CUSTOMERS", "C1002");
  ASSERT_TRUE(other);
  place.Host().RecordLocks().Take(1, "CUSTOMERS", "C1001");
  rule.OnRequest(
      "WRITE\xFA"
      "CUSTOMERS\xFA"
      "C1001\xFA" +
          *other + "\xFASYCRLOC",
      1);
  EXPECT_EQ(Failed(), "saved");
  place.Host().RecordLocks().ReleaseAll(1);
}

TEST_F(RuleTest, MemoryThatGrowsWithEverySessionFails) {
  Workplace place;
  std::int64_t blocks = 1000;
  place.blocksInUse = [&blocks] { return blocks += 5; };
  MemoryRule growing(verdict, place);
  for (int i = 0; i < 500; ++i) growing.OnSession();
  growing.CheckEnd();
  EXPECT_EQ(Failed(), "owners");
}

TEST_F(RuleTest, MemoryThatComesAndGoesHolds) {
  Workplace place;
  std::int64_t blocks = 1000;
  place.blocksInUse = [&blocks] { return blocks = 2000 + (blocks * 7) % 900; };
  MemoryRule flat(verdict, place);
  for (int i = 0; i < 500; ++i) flat.OnSession();
  flat.CheckEnd();
  EXPECT_EQ(Failed(), "");
}

// --- the line, the parts

TEST(Requests, AreFoundAtTheBeginningOfALine) {
  RequestReader reader;
  std::vector<std::string> found;
  for (const char byte : std::string("abc\r\x7FREAD\xFAX\x7F\r\x7FLOCK\x7F\r")) {
    if (const auto request = reader.Feed(byte)) found.push_back(*request);
  }
  EXPECT_EQ(found, (std::vector<std::string>{"READ\xFAX", "LOCK"}));
}

TEST(Requests, AreTextBehindTypedText) {
  RequestReader reader;
  for (const char byte : std::string("abc\x7FREAD\x7F")) EXPECT_FALSE(reader.Feed(byte));
  EXPECT_TRUE(reader.IsInText());
  EXPECT_FALSE(reader.Feed('\r'));
}

TEST(Requests, AreNoneBehindTheDeleteKey) {
  RequestReader reader;
  for (const char byte : std::string("\x7FHELP\r")) EXPECT_FALSE(reader.Feed(byte));
  EXPECT_FALSE(reader.IsInside());
  std::vector<std::string> found;
  for (const char byte : std::string("\x7F\r\x7F\x7FREAD\x7F\r")) {
    if (const auto request = reader.Feed(byte)) found.push_back(*request);
  }
  EXPECT_EQ(found, (std::vector<std::string>{"READ"}));
}

TEST(Shortening, KeepsWhatTheFailureNeeds) {
  const Story story = MakeStory(Kind::Fast, 1);
  ASSERT_GT(story.kept.size(), 9U);
  const auto needs = [](const Story& part) {
    const std::set<std::size_t> kept(part.kept.begin(), part.kept.end());
    return kept.count(2) != 0 && kept.count(9) != 0;
  };
  EXPECT_EQ(Shorten(story, needs, 1000).kept, (std::vector<std::size_t>{2, 9}));
}

TEST(CommandLine, ReadsSeedsKindAndActs) {
  const auto options = ReadCommandLine({"--seeds", "5-9", "--story", "fast", "--acts", "3 7"});
  ASSERT_TRUE(options);
  EXPECT_EQ(options->from, 5U);
  EXPECT_EQ(options->to, 9U);
  EXPECT_EQ(options->kind, Kind::Fast);
  EXPECT_EQ(options->acts, (std::vector<std::size_t>{3, 7}));
  EXPECT_FALSE(ReadCommandLine({"--seeds", "9-5"}));
  EXPECT_FALSE(ReadCommandLine({"--story", "nobody"}));
  EXPECT_FALSE(ReadCommandLine({"--acts", "3 x"}));
}

}  // namespace
}  // namespace quorvel::sim

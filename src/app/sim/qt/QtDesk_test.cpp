// The stories at the real desktop: that the hands reach the program, and that stories repeat
// themselves.
#include "app/sim/qt/QtDesk.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/sim/Simulation.h"
#include "app/sim/qt/Home.h"

namespace quorvel::sim {
namespace {

class QtDeskTest : public ::testing::Test {
 protected:
  // The application object must not live on behind main.
  static void SetUpTestSuite() {
    home_ = std::make_unique<Home>();
    backend_ = std::make_unique<SimQtBackend>();
  }
  static void TearDownTestSuite() {
    backend_.reset();
    home_.reset();
  }

  std::vector<std::string> TraceOf(const Story& story) {
    std::vector<std::string> trace;
    const auto tell = [&trace](const std::string& line) { trace.push_back(line); };
    const auto failure = Simulation(place_, story, tell, [](const DeskSetup& setup) {
                           return std::make_unique<QtDesk>(*backend_, setup);
                         }).Run();
    EXPECT_FALSE(failure) << story.seed << ": " << failure->rule << ": " << failure->seen;
    return trace;
  }

 private:
  static inline std::unique_ptr<Home> home_;
  static inline std::unique_ptr<SimQtBackend> backend_;
  Workplace place_;
};

TEST_F(QtDeskTest, TheSameSeedIsTheSameStory) {
  const auto first = TraceOf(MakeStory(Kind::Chaos, 11));
  EXPECT_GT(first.size(), 10U);
  TraceOf(MakeStory(Kind::Clumsy, 12));  // what lies between leaves nothing behind
  EXPECT_EQ(first, TraceOf(MakeStory(Kind::Chaos, 11)));
}

// Keys, clicks, rows, menus, boxes and closed windows show by what the client sends for them.
TEST_F(QtDeskTest, OperatorsGetToWork) {
  const char* const sights[] = {"client: <7F>WRITE<FA>", "client: <7F>LOCK<FA>",
                                "client: <7F>READHELP",  "~CAPTURE-ON~",
                                "operator: answers",     "line: the host has hung up"};
  std::map<std::string, int> seen;
  for (std::uint64_t seed = 1; seed <= 12; ++seed) {
    for (const std::string& line : TraceOf(MakeStory(Kind::Patient, seed))) {
      for (const char* sight : sights) {
        if (line.find(sight) != std::string::npos) ++seen[sight];
      }
    }
  }
  for (const char* sight : sights) EXPECT_GT(seen[sight], 1) << sight;
}

}  // namespace
}  // namespace quorvel::sim

#include "app/sim/Player.h"

#include <cstdio>
#include <utility>

#include "app/sim/Shortening.h"
#include "app/sim/Simulation.h"

namespace quorvel::sim {
namespace {

constexpr int kMostAttempts = 2000;
constexpr int kMostAttemptsOfSessions = 40;  // each takes seconds
constexpr std::size_t kLastLines = 40;
// Without the stories of sessions, each of which takes as long as a thousand others.
constexpr std::uint64_t kKindsInTurn = static_cast<std::uint64_t>(Kind::Sessions);

// The line for the table of known failures.
std::string LineOf(const Story& story) {
  std::string name(RowOf(story.kind).name);
  name[0] = static_cast<char>(name[0] - 'a' + 'A');
  return "{Kind::" + name + ", " + std::to_string(story.seed) + ", \"" + TextOf(story.kept) +
         "\"},";
}

}  // namespace

Player::Player(Options options, const PlayerSetup& setup, Print print)
    : options_(std::move(options)),
      makeDesk_(setup.makeDesk),
      print_(std::move(print)),
      watchdog_(setup.longest) {
  place_.blocksInUse = setup.blocksInUse;
}

std::optional<Failure> Player::PlayOne(const Story& story, const Teller& tell) {
  watchdog_.Begin(std::string(RowOf(story.kind).name) + " " + std::to_string(story.seed));
  Simulation simulation(place_, story, tell, makeDesk_);
  const auto failure = simulation.Run();
  excuse_ = simulation.Excuse();
  return failure;
}

Story Player::StoryOf(std::uint64_t seed) const {
  const auto turn = static_cast<Kind>(seed % kKindsInTurn);
  const Story story = MakeStory(options_.kind.value_or(turn), seed);
  return options_.acts ? Part(story, *options_.acts) : story;
}

bool Player::Play() {
  using Clock = std::chrono::steady_clock;
  const auto begin = Clock::now();
  bool held = true;
  for (std::uint64_t seed = options_.from; seed <= options_.to; ++seed) {
    if (!Take(StoryOf(seed))) held = false;
    if (!held && !options_.goOn) break;
  }
  ReportRate(std::chrono::duration<double>(Clock::now() - begin).count());
  return held;
}

bool Player::Take(const Story& story) {
  if (onStory) onStory(story.kind, story.seed);
  const std::string kind(RowOf(story.kind).name);
  ++played_[kind];
  const Teller tell = options_.trace ? Teller(print_) : Teller();
  const auto failure = PlayOne(story, tell);
  if (!excuse_.empty()) ++excuses_[excuse_];
  if (!failure) return true;
  const int before = failures_[kind + ", " + failure->rule + ": " + failure->seen]++;
  if (before == 0) Report(story, *failure);
  return false;
}

void Player::Report(const Story& story, const Failure& failure) {
  const Story shortest = Shorten(
      story,
      [&](const Story& part) {
        const auto again = PlayOne(part, {});
        return again && again->rule == failure.rule;
      },
      story.kind == Kind::Sessions ? kMostAttemptsOfSessions : kMostAttempts);
  std::deque<std::string> last;
  const auto shown = PlayOne(shortest, [&last](const std::string& line) {
    last.push_back(line);
    if (last.size() > kLastLines) last.pop_front();
  });
  print_("FAILED --story " + std::string(RowOf(story.kind).name) + " --seeds " +
         std::to_string(story.seed) + "  rule " + failure.rule);
  print_("  seen: " + failure.seen);
  if (shown) print_("  shortened: " + shown->seen);
  if (!options_.goOn) {
    for (const std::string& line : last) print_("    " + line);
  }
  print_("  " + LineOf(shortest));
}

void Player::ReportRate(double seconds) {
  int all = 0;
  std::string kinds;
  for (const auto& [kind, count] : played_) {
    all += count;
    kinds += ' ' + kind + ' ' + std::to_string(count);
  }
  char rate[32];
  std::snprintf(rate, sizeof rate, "%.0f", seconds > 0 ? all / seconds : 0.0);
  print_(std::to_string(all) + " stories, " + rate + " a second:" + kinds);
  for (const auto& [why, count] : excuses_) {
    print_(std::to_string(count) + " not told to the end: " + why);
  }
  for (const auto& [what, count] : failures_) print_(std::to_string(count) + " x " + what);
}

}  // namespace quorvel::sim

#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>

#include "app/sim/CommandLine.h"
#include "app/sim/Desk.h"
#include "app/sim/Failure.h"
#include "app/sim/Watchdog.h"
#include "app/sim/Workplace.h"

namespace quorvel::sim {

// What the programs that play stories differ in.
struct PlayerSetup {
  MakeDesk makeDesk;
  std::function<std::int64_t()> blocksInUse;  // the blocks of memory in use; none: not counted
  std::chrono::seconds longest{60};           // that a story may take before it stands still
};

// Plays many stories and reports.
class Player {
 public:
  using Print = std::function<void(const std::string& line)>;
  Player(Options options, const PlayerSetup& setup, Print print);

  std::function<void(Kind kind, std::uint64_t seed)> onStory;
  // False when a rule has failed.
  bool Play();

 private:
  std::optional<Failure> PlayOne(const Story& story, const Teller& tell);
  Story StoryOf(std::uint64_t seed) const;
  bool Take(const Story& story);
  void Report(const Story& story, const Failure& failure);
  void ReportRate(double seconds);

  const Options options_;
  const MakeDesk makeDesk_;
  const Print print_;
  Workplace place_;
  Watchdog watchdog_;
  std::string excuse_;                 // of the last story
  std::map<std::string, int> played_;  // by kind
  std::map<std::string, int> excuses_;
  std::map<std::string, int> failures_;  // by kind and rule
};

}  // namespace quorvel::sim

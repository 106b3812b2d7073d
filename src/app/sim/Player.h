#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>

#include "app/sim/CommandLine.h"
#include "app/sim/Failure.h"
#include "app/sim/Watchdog.h"
#include "app/sim/Workplace.h"

namespace quorvel::sim {

// Plays many stories and reports.
class Player {
 public:
  using Print = std::function<void(const std::string& line)>;
  Player(Options options, Print print) : options_(std::move(options)), print_(std::move(print)) {}

  std::function<void(Kind kind, std::uint64_t seed)> onStory;
  // Where the memory in use is counted.
  void CountBlocksBy(std::function<std::int64_t()> blocksInUse) {
    place_.blocksInUse = std::move(blocksInUse);
  }
  // False when a rule has failed.
  bool Play();

 private:
  std::optional<Failure> PlayOne(const Story& story, const Teller& tell);
  Story StoryOf(std::uint64_t seed) const;
  bool Take(const Story& story);
  void Report(const Story& story, const Failure& failure);
  void ReportRate(double seconds);

  const Options options_;
  const Print print_;
  Workplace place_;
  Watchdog watchdog_;
  std::string excuse_;                 // of the last story
  std::map<std::string, int> played_;  // by kind
  std::map<std::string, int> excuses_;
  std::map<std::string, int> failures_;  // by kind and rule
};

}  // namespace quorvel::sim

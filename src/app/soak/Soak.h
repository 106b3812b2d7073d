#pragma once

#include <QElapsedTimer>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "app/soak/ProcessFigures.h"
#include "app/soak/Stories.h"
#include "app/tour/StepPlayer.h"

namespace quorvel {

struct SoakOptions {
  qint64 seconds = 1800;
  qint64 warmUp = 60;      // seconds until the figures that those at the end are compared with
  qint64 interval = 60;    // seconds from one line of the table to the next
  std::uint32_t seed = 1;  // of the order of the stories
  std::string picture;   // file for a picture of the windows when a story gets stuck; may be empty
  bool verbose = false;  // tells every story as it begins
};

// An operator who works until the time is over. In every round he goes through all stories in
// another order. Figures are always taken in the same state: at the main menu of a fresh session.
// Ends the process with status 1 when a story does not reach its end or a figure has grown by more
// than 5 per cent; then the last lines of the output say which.
class Soak {
 public:
  Soak(const Workplace& place, const SoakOptions& options);
  void Start();
  int ExitStatus() const { return status_; }

 private:
  // Stories in the order in which they come, and how far they have been told.
  struct Deck {
    std::vector<const Story*> stories;
    std::size_t next = 0;
    int rounds = 0;  // complete ones
  };
  struct Line {
    qint64 second;
    std::vector<Figure> figures;
  };

  void Next();
  void Play(const Story& story);
  const Story& Draw(Deck& deck);
  void Measure();
  std::vector<Figure> TakeFigures() const;
  // False if a figure has grown too much.
  bool PrintVerdict(const Line& last) const;
  void TellStuck(std::size_t number);
  void End(int status);
  qint64 Seconds() const { return clock_.elapsed() / 1000; }

  const Workplace place_;
  const SoakOptions options_;
  const std::vector<Story> work_;
  const std::vector<Story> reconnects_;
  StepPlayer player_;
  std::mt19937 random_;
  Deck all_;
  Deck fresh_;
  const Story* story_ = nullptr;
  int told_ = 0;
  QElapsedTimer clock_;
  qint64 nextLine_;
  int roundsAtFirst_ = 0;
  std::optional<Line> first_;
  int status_ = 1;
};

}  // namespace quorvel

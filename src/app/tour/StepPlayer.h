#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <string>
#include <vector>

namespace quorvel {

// One step of a scripted user: once `ready` holds, `act` does what the user does next, with real
// key and mouse events. `act` may open a dialog and return only when a later step has closed it.
// The tour takes a picture under `name` before `act` (none if it is empty).
struct TourStep {
  std::string name;
  std::function<bool()> ready;
  std::function<void()> act;
};

// How fast the scripted user works; milliseconds.
struct Pace {
  int tick = 40;
  int ticksToSettle = 5;  // so long `ready` must hold
  qint64 longestWait = 20'000;
};

// Plays steps, one list after the other, against the running program.
class StepPlayer : public QObject {
 public:
  explicit StepPlayer(Pace pace) : pace_(pace) {}

  // Called for every step, before its `act`.
  std::function<void(const TourStep&)> onReady;
  // Called behind the last step of a list. May play the next.
  std::function<void()> onPlayed;
  // Called when a step, counted from 1, does not get ready in time. Nothing is played then.
  std::function<void(std::size_t number, const TourStep&)> onStuck;

  void Play(std::vector<TourStep> steps);
  // No step is begun any more.
  void Stop() { playing_ = false; }

 private:
  void Schedule();
  void Tick();

  const Pace pace_;
  std::vector<TourStep> steps_;
  std::size_t next_ = 0;
  int readyTicks_ = 0;
  bool playing_ = false;
  bool scheduled_ = false;
  QElapsedTimer waiting_;
};

}  // namespace quorvel

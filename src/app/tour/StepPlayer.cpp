#include "app/tour/StepPlayer.h"

#include <QTimer>

namespace quorvel {

void StepPlayer::Play(std::vector<TourStep> steps) {
  steps_ = std::move(steps);
  next_ = 0;
  readyTicks_ = 0;
  playing_ = true;
  waiting_.start();
  Schedule();
}

// A timer of its own for every tick: one that is being served does not fire again, but a step must
// go on in the loop of a dialog that the step before it has opened.
void StepPlayer::Schedule() {
  if (scheduled_) return;
  scheduled_ = true;
  QTimer::singleShot(pace_.tick, this, [this] {
    scheduled_ = false;
    Tick();
  });
}

void StepPlayer::Tick() {
  if (!playing_) return;
  if (next_ == steps_.size()) {
    playing_ = false;
    if (onPlayed) onPlayed();
    return;
  }
  Schedule();
  // A copy: while it acts, the list may come to its end and the next one take its place.
  const TourStep step = steps_[next_];
  readyTicks_ = step.ready() ? readyTicks_ + 1 : 0;
  if (readyTicks_ < pace_.ticksToSettle) {
    if (waiting_.elapsed() < pace_.longestWait) return;
    playing_ = false;
    if (onStuck) onStuck(next_ + 1, step);
    return;
  }
  if (onReady) onReady(step);
  if (!playing_) return;
  ++next_;
  readyTicks_ = 0;
  waiting_.restart();
  if (step.act) step.act();
  waiting_.restart();
}

}  // namespace quorvel

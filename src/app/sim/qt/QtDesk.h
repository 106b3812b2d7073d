#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <string>

#include "app/sim/Desk.h"
#include "app/sim/qt/QtHands.h"
#include "app/sim/qt/SimQtBackend.h"

namespace quorvel::sim {

// The real desktop. Its turns are timers of no length: the toolkit has served all else by then.
class QtDesk : public QObject, public Desk {
 public:
  QtDesk(SimQtBackend& backend, const DeskSetup& setup);
  ~QtDesk() override;

  Backend& backend() override { return backend_; }
  Hands& hands() override { return hands_; }
  void Play(std::function<bool()> next) override;
  bool HasEnded() const override { return backend_.HasQuit(); }
  bool HasOpenBoxes() const override;
  void ForgetThePast() override {}

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void Turn();
  bool ServeSomething();
  bool LeadBack();
  bool IsTurning() const;
  void End();

  SimQtBackend& backend_;
  const std::string folder_;
  Door door_;
  QtHands hands_;
  std::function<bool()> next_;
  QElapsedTimer sinceTurn_;  // of the user or the program to another window
  int timer_ = 0;            // of the next turn
  int idleTurns_ = 0;
};

}  // namespace quorvel::sim

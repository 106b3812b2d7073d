#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "app/sim/Agenda.h"
#include "app/sim/Desk.h"
#include "app/sim/Failure.h"
#include "app/sim/HeadlessDesk.h"
#include "app/sim/Network.h"
#include "app/sim/Operator.h"
#include "app/sim/Rules.h"
#include "app/sim/Story.h"
#include "app/sim/WatchedHands.h"
#include "app/sim/Workplace.h"
#include "platform/controls/Desktop.h"

namespace quorvel::sim {

// One story, told once. There is one at a time in a process, as there is one desktop.
class Simulation {
 public:
  Simulation(Workplace& place, const Story& story, Teller tell = {},
             const MakeDesk& makeDesk = MakeHeadlessDesk);

  // What went wrong; nothing when all rules held to the end.
  std::optional<Failure> Run();
  // Why it was not told to its end; empty when it was.
  const std::string& Excuse() const { return verdict_.excuse(); }

 private:
  bool Next();
  bool IsStill() const;
  void CheckIfQuiet();
  void ScheduleFirst(Track track);
  void Schedule(Track track, std::size_t from);
  void Perform(std::size_t place);
  void PerformInjection(const Act& act);
  void PerformFault(const Act& act);
  bool GoOnToTheEnd();
  bool LeaveWindow();
  bool LeaveProgram();
  bool IsLockedByHost() const;
  bool IsInWait() const;
  void Tell(const std::string& line) const;

  Workplace& place_;
  const Story& story_;
  const Teller tell_;
  Verdict verdict_;
  Agenda agenda_;
  Rules rules_;
  Network network_;
  const std::unique_ptr<Desk> desk_;
  WatchedHands hands_;
  Operator operator_;
  std::unique_ptr<Desktop> desktop_;
  std::uint64_t steps_ = 0;
  int injected_ = 0;
  int lastActs_ = 0;     // those of the way to the end
  int leavingActs_ = 0;  // those of them since all was quiet
  int programActs_ = 0;  // entries that are to end the host's program
};

}  // namespace quorvel::sim

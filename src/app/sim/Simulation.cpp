#include "app/sim/Simulation.h"

#include <algorithm>
#include <utility>

#include "app/Wiring.h"
#include "app/sim/Injections.h"
#include "entry/frmEntry.h"
#include "link/SessionState.h"
#include "link/StartUp.h"
#include "menus/mdiMain.h"
#include "terminal/frmTelnet.h"

namespace quorvel::sim {
namespace {

// A story that takes more steps goes round in circles.
constexpr std::uint64_t kMostSteps = 200'000;
constexpr std::uint64_t kMostStepsOfSessions = 5'000'000;
// Boxes and dialogs may be open in a pile when the acts are over.
constexpr int kMostLastActs = 120;
// From a quiet program to its end: leave a record and its screen, log off, close, and confirm both.
constexpr int kMostLeavingActs = 10;
constexpr int kMostProgramActs = 30;
// A patient operator looks again.
constexpr Milliseconds kPatience = 50;

}  // namespace

Simulation::Simulation(Workplace& place, const Story& story, Teller tell, const MakeDesk& makeDesk)
    : place_(place),
      story_(story),
      tell_(std::move(tell)),
      rules_(story, place, verdict_, tell_),
      network_(agenda_, place.Host(), story, rules_),
      desk_(makeDesk({network_, rules_, place, story.setting})),
      hands_(desk_->hands(), rules_, tell_),
      operator_(hands_, story, place.Configuration()) {}

std::optional<Failure> Simulation::Run() {
  place_.Reset(story_.setting);
  Session() = SessionState{};
  desktop_ = std::make_unique<Desktop>(desk_->backend());
  WireHandOvers();
  desktop_->Post(EventKind::Program, [] { Main(); });
  for (const Track track : {Track::Operator, Track::Host, Track::Line}) ScheduleFirst(track);
  desk_->Play([this] { return Next(); });
  if (!desk_->HasEnded() && !verdict_.IsOver() && !IsLockedByHost()) {
    verdict_.Fail("quiet", "the program has not ended");
  }
  desktop_.reset();
  rules_.CheckEnd();
  Session() = SessionState{};
  return verdict_.failure();
}

void Simulation::Tell(const std::string& line) const {
  if (tell_) tell_(line);
}

// --- the acts

void Simulation::ScheduleFirst(Track track) {
  Schedule(track, 0);
}

// The next act of the track, from this place in the list of those that are played.
void Simulation::Schedule(Track track, std::size_t from) {
  for (std::size_t i = from; i < story_.kept.size(); ++i) {
    const Act& act = story_.acts[story_.kept[i]];
    if (TrackOf(act.kind) != track) continue;
    agenda_.In(act.delay, track, [this, i] { Perform(i); });
    return;
  }
}

void Simulation::Perform(std::size_t place) {
  const std::size_t number = story_.kept[place];
  const Act& act = story_.acts[number];
  const Track track = TrackOf(act.kind);
  const bool patient = RowOf(story_.kind).person == OperatorKind::Patient;
  if (track == Track::Operator && patient && !agenda_.IsQuietOn(Track::Wire)) {
    return agenda_.In(kPatience, track, [this, place] { Perform(place); });
  }
  Tell(std::to_string(agenda_.Now()) + " ms, act " + std::to_string(number) + ": " +
       std::string(NameOf(act.kind)));
  // Ahead of the act, which may end in a wait: the next one comes inside of that.
  Schedule(track, place + 1);
  if (track == Track::Operator) return operator_.Do(act);
  if (track == Track::Host) return PerformInjection(act);
  PerformFault(act);
}

void Simulation::PerformInjection(const Act& act) {
  if (!Session().HasSentFrames) return;  // hosts ask for nothing ahead of the login
  Random dice(act.dice);
  network_.Inject(UnaskedFrame(dice, ++injected_));
}

void Simulation::PerformFault(const Act& act) {
  Random dice(act.dice);
  const std::size_t bytes = dice.Below(dice.Chance(50) ? 60 : 3000);
  if (act.kind == ActKind::LoseNow) network_.LoseNow();
  if (act.kind == ActKind::LoseDown) network_.LoseBehindDown(bytes);
  if (act.kind == ActKind::LoseUp) network_.LoseBehindUp(bytes / 8);
  if (act.kind == ActKind::Refuse) network_.RefuseNext();
}

// --- time

// Called whenever the program has nothing to serve, also inside its waits.
bool Simulation::Next() {
  if (network_.HasLostRequest()) verdict_.Excuse("a request behind a line half typed");
  if (verdict_.IsOver() || desk_->HasEnded()) return false;
  const bool sessions = story_.kind == Kind::Sessions;
  if (++steps_ > (sessions ? kMostStepsOfSessions : kMostSteps)) {
    verdict_.Fail("alive", "the story does not come to an end");
  }
  desk_->ForgetThePast();
  CheckIfQuiet();
  if (verdict_.failure()) return false;
  return agenda_.Step() || GoOnToTheEnd();
}

bool Simulation::IsInWait() const {
  return desktop_->IsHandling();
}

bool Simulation::IsStill() const {
  return agenda_.IsQuietOn(Track::Wire) && !IsInWait() && !desk_->HasOpenBoxes();
}

void Simulation::CheckIfQuiet() {
  if (IsStill()) rules_.CheckQuiet(network_.Session());
}

// --- the end: no more faults, and the operator leaves

bool Simulation::GoOnToTheEnd() {
  network_.NoMoreFaults();
  if (++lastActs_ > kMostLastActs) {
    verdict_.Fail("quiet", "boxes and windows without end");
    return false;
  }
  if (const auto box = hands_.BoxInFront()) {
    operator_.AnswerForTheEnd(*box);
    return true;
  }
  const auto windows = desktop_->LoadedWindows();
  // A report's viewer keeps the terminal locked; in a wait it stays.
  const auto above = std::find_if(windows.begin(), windows.end(), [](const Window* window) {
    const bool report = window->Name() == "frmReport" && !desktop().KeepsInput(*window);
    return (window->IsModal() || report) && window->TakesInput();
  });
  if (above != windows.end()) {
    hands_.CloseBox(**above);
    return true;
  }
  if (IsInWait() && network_.Session() && RowOf(story_.kind).host == HostKind::Sample) {
    verdict_.Fail("answered", "a wait that nothing ends, for " + Session().PendingOp);
    return false;
  }
  return LeaveWindow();
}

// A program can't be ended in a terminal that the rude host has locked by half a capture.
bool Simulation::IsLockedByHost() const {
  const auto* terminal = LoadedForm<frmTelnet>();
  return terminal && !terminal->Enabled() && RowOf(story_.kind).host == HostKind::Rude;
}

// A program of the host in the terminal is ended by its own words; it would take the line of the
// log-off for its input.
bool Simulation::LeaveProgram() {
  const demohost::HostSession* host = network_.Session();
  if (!host || !host->IsInProgram() || programActs_ >= kMostProgramActs) return false;
  --leavingActs_;
  operator_.EndProgram(programActs_++);
  return true;
}

// Nothing is open any more but the windows.
bool Simulation::LeaveWindow() {
  if (++leavingActs_ > kMostLeavingActs) {
    if (IsLockedByHost()) return false;
    verdict_.Fail("quiet", "no way to the end of the program");
    return false;
  }
  auto* screen = LoadedForm<frmEntry>();
  if (leavingActs_ <= 3 && screen && screen->TakesInput()) {
    hands_.Click(screen->cmdExit.Reachable() ? screen->cmdExit : screen->cmdCancel);
    return true;
  }
  if (LeaveProgram()) return true;
  auto* main = LoadedForm<mdiMain>();
  if (!main) {
    verdict_.Fail("quiet", "the main window is gone, and the program is not");
    return false;
  }
  hands_.CloseBox(*main);
  return true;
}

}  // namespace quorvel::sim

#pragma once

#include <functional>
#include <memory>

#include "app/sim/Hands.h"
#include "app/sim/Network.h"
#include "app/sim/Rules.h"
#include "app/sim/Story.h"
#include "app/sim/Workplace.h"
#include "platform/controls/Backend.h"

namespace quorvel::sim {

// The desktop that a story is played at, with somebody in front of it.
class Desk {
 public:
  virtual ~Desk() = default;
  virtual Backend& backend() = 0;
  virtual Hands& hands() = 0;
  // Serves the program until it ends, or until `next` returns false. `next` is asked whenever
  // nothing is left to serve, also inside waits, boxes and modal windows.
  virtual void Play(std::function<bool()> next) = 0;
  // Whether the program has ended.
  virtual bool HasEnded() const = 0;
  // Whether a box, a dialog of the platform or a menu is open.
  virtual bool HasOpenBoxes() const = 0;
  // Nobody asks for what has been; it would look like memory that the program holds.
  virtual void ForgetThePast() = 0;
};

// What a desk has to do with: the line it is on, the rules that see its boxes and windows.
struct DeskSetup {
  Network& network;
  Rules& rules;
  const Workplace& place;
  const Setting& setting;
};

// Makes the desk of one story.
using MakeDesk = std::function<std::unique_ptr<Desk>(const DeskSetup& setup)>;

}  // namespace quorvel::sim

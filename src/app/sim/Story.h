#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/sim/Agenda.h"

namespace quorvel::sim {

enum class Kind {
  Patient,
  Fast,
  Clumsy,
  Losses,
  Hasty,
  Storm,
  Errors,
  Rude,
  Chaos,
  Sessions,
};

enum class OperatorKind { Patient, Fast, Clumsy };
enum class HostKind { Sample, Errors, Rude };
enum class LineKind { Steady, Breaking };

// What the stories of a kind are made of.
struct KindRow {
  Kind kind;
  std::string_view name;
  OperatorKind person;
  HostKind host;
  LineKind line;
  std::string_view about;
};
const std::vector<KindRow>& Kinds();
const KindRow& RowOf(Kind kind);
const KindRow* FindKind(std::string_view name);

enum class ActKind {
  Work,     // the operator does what makes sense in the window in front
  Fumble,   // the operator does anything anywhere
  Connect,  // the operator sees to it that there is a session, or leaves the present one
  Inject,   // the host sends a frame that nobody asked for
  LoseNow,
  LoseDown,  // the line is lost after some more bytes from the host
  LoseUp,    // the same for bytes to the host
  Refuse,    // the next connection is refused
};

// One thing that somebody does. What it means is decided when its turn comes, by its dice and by
// what there is then; so a story without some of its acts is a story as well.
struct Act {
  Milliseconds delay;  // since the one before it on the same track
  ActKind kind;
  std::uint64_t dice;
};
Track TrackOf(ActKind kind);
std::string_view NameOf(ActKind kind);

// How the session is set up.
struct Setting {
  bool automaticLogin = true;
  bool quickExit = false;
  bool cutAtFrames = false;
  bool forceOff = false;
  Milliseconds answerDelay = 0;  // typical of the host
  bool badSendKeys = false;      // the configuration has a SendKeys that can't be sent
  bool printerFails = false;
};

struct Story {
  Kind kind = Kind::Patient;
  std::uint64_t seed = 0;
  Setting setting;
  std::vector<Act> acts;
  std::vector<std::size_t> kept;  // numbers of the acts that are played
};

Story MakeStory(Kind kind, std::uint64_t seed);
// The same story with these of its acts alone.
Story Part(const Story& story, std::vector<std::size_t> kept);

// "3 7 9"; nothing if it is no such list.
std::string TextOf(const std::vector<std::size_t>& numbers);
std::optional<std::vector<std::size_t>> NumbersOf(std::string_view text);

}  // namespace quorvel::sim

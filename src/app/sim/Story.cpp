#include "app/sim/Story.h"

#include <algorithm>
#include <charconv>
#include <numeric>

#include "app/sim/Random.h"

namespace quorvel::sim {
namespace {

constexpr std::size_t kSessionsActs = 6000;

// How many of a hundred acts of an operator are of which kind.
struct Habits {
  OperatorKind person;
  int fumbles;
  int connects;
  int atOnce;  // acts that follow the one before without a pause
};
constexpr Habits kHabits[] = {
    {OperatorKind::Patient, 0, 3, 0},
    {OperatorKind::Fast, 3, 3, 50},
    {OperatorKind::Clumsy, 60, 4, 30},
};

const Habits& HabitsOf(OperatorKind person) {
  return *std::find_if(std::begin(kHabits), std::end(kHabits),
                       [person](const Habits& habits) { return habits.person == person; });
}

// A quarter of the pauses is long enough for anything to be answered.
Milliseconds Pause(Random& random, int atOnce) {
  if (random.Chance(atOnce)) return 0;
  return random.Chance(25) ? random.Between(500, 6000) : random.Between(1, 300);
}

void AddOperator(Story& story, Random& random) {
  const Habits& habits = HabitsOf(RowOf(story.kind).person);
  const bool sessions = story.kind == Kind::Sessions;
  const std::size_t count =
      sessions ? kSessionsActs : static_cast<std::size_t>(random.Between(15, 40));
  for (std::size_t i = 0; i < count; ++i) {
    const int kind = random.Between(1, 100);
    ActKind act = ActKind::Work;
    if (kind <= habits.fumbles) {
      act = ActKind::Fumble;
    } else if (kind <= habits.fumbles + habits.connects || (sessions && i % 3 == 0)) {
      act = ActKind::Connect;
    }
    story.acts.push_back({Pause(random, habits.atOnce), act, random.Next()});
  }
}

void AddInjections(Story& story, Random& random) {
  const int count = random.Between(2, 12);
  for (int i = 0; i < count; ++i) {
    const Milliseconds delay = random.Chance(30) ? 0 : random.Between(1, 2500);
    story.acts.push_back({delay, ActKind::Inject, random.Next()});
  }
}

void AddFaults(Story& story, Random& random) {
  constexpr ActKind kFaults[] = {ActKind::LoseNow, ActKind::LoseDown, ActKind::LoseUp,
                                 ActKind::Refuse};
  const int count = random.Between(1, 4);
  for (int i = 0; i < count; ++i) {
    const ActKind fault = kFaults[random.Below(std::size(kFaults))];
    story.acts.push_back({random.Between(100, 9000), fault, random.Next()});
  }
}

Setting MakeSetting(Random& random) {
  constexpr Milliseconds kDelays[] = {0, 200, 1500};
  Setting setting;
  setting.automaticLogin = random.Chance(75);
  setting.quickExit = random.Chance(25);
  setting.cutAtFrames = random.Chance(30);
  setting.forceOff = random.Chance(20);
  setting.answerDelay =
      random.Chance(70) ? kDelays[random.Below(std::size(kDelays))] : random.Between(0, 5000);
  return setting;
}

// Drawn apart, so that the acts of a story do not depend on it.
void AddRareSettings(Story& story) {
  Random random(story.seed * 64 + static_cast<std::uint64_t>(story.kind) + 0x5E7714645EEDU);
  story.setting.badSendKeys = random.Chance(1);
  story.setting.printerFails = RowOf(story.kind).host == HostKind::Rude && random.Chance(25);
}

}  // namespace

const std::vector<KindRow>& Kinds() {
  using enum Kind;
  using O = OperatorKind;
  using H = HostKind;
  using L = LineKind;
  static const std::vector<KindRow> kinds{
      {Patient, "patient", O::Patient, H::Sample, L::Steady, "waits until the windows answer"},
      {Fast, "fast", O::Fast, H::Sample, L::Steady, "types and clicks ahead"},
      {Clumsy, "clumsy", O::Clumsy, H::Sample, L::Steady, "any key, click, menu entry anywhere"},
      {Losses, "losses", O::Patient, H::Sample, L::Breaking, "patient, and the line breaks"},
      {Hasty, "hasty", O::Fast, H::Sample, L::Breaking, "fast, and the line breaks"},
      {Storm, "storm", O::Clumsy, H::Sample, L::Breaking, "clumsy, and the line breaks"},
      {Errors, "errors", O::Fast, H::Errors, L::Steady, "fast; requests are refused"},
      {Rude, "rude", O::Fast, H::Rude, L::Steady, "fast; frames that nobody asked for"},
      {Chaos, "chaos", O::Clumsy, H::Rude, L::Breaking, "clumsy, rude host, breaking line"},
      {Sessions, "sessions", O::Patient, H::Sample, L::Steady,
       "a thousand sessions in one process; memory stays flat"},
  };
  return kinds;
}

const KindRow& RowOf(Kind kind) {
  return *std::find_if(Kinds().begin(), Kinds().end(),
                       [kind](const KindRow& row) { return row.kind == kind; });
}

const KindRow* FindKind(std::string_view name) {
  const auto found = std::find_if(Kinds().begin(), Kinds().end(),
                                  [name](const KindRow& row) { return row.name == name; });
  return found == Kinds().end() ? nullptr : &*found;
}

Track TrackOf(ActKind kind) {
  switch (kind) {
    case ActKind::Work:
    case ActKind::Fumble:
    case ActKind::Connect:
      return Track::Operator;
    case ActKind::Inject:
      return Track::Host;
    default:
      return Track::Line;
  }
}

std::string_view NameOf(ActKind kind) {
  switch (kind) {
    case ActKind::Work:
      return "work";
    case ActKind::Fumble:
      return "fumble";
    case ActKind::Connect:
      return "connect";
    case ActKind::Inject:
      return "inject";
    case ActKind::LoseNow:
      return "lose the line";
    case ActKind::LoseDown:
      return "lose the line behind bytes of the host";
    case ActKind::LoseUp:
      return "lose the line behind bytes of the client";
    case ActKind::Refuse:
      return "refuse the next connection";
  }
  return "";
}

Story MakeStory(Kind kind, std::uint64_t seed) {
  Story story;
  story.kind = kind;
  story.seed = seed;
  Random random(seed * 64 + static_cast<std::uint64_t>(kind));
  story.setting = MakeSetting(random);
  AddOperator(story, random);
  if (kind != Kind::Sessions) AddRareSettings(story);
  if (kind == Kind::Sessions) {
    story.setting.automaticLogin = true;
    story.setting.quickExit = false;
  }
  if (RowOf(kind).host == HostKind::Rude) AddInjections(story, random);
  if (RowOf(kind).line == LineKind::Breaking) AddFaults(story, random);
  story.kept.resize(story.acts.size());
  std::iota(story.kept.begin(), story.kept.end(), std::size_t{0});
  return story;
}

Story Part(const Story& story, std::vector<std::size_t> kept) {
  Story part = story;
  std::erase_if(kept, [&story](std::size_t number) { return number >= story.acts.size(); });
  part.kept = std::move(kept);
  return part;
}

std::string TextOf(const std::vector<std::size_t>& numbers) {
  std::string text;
  for (const std::size_t number : numbers) {
    if (!text.empty()) text += ' ';
    text += std::to_string(number);
  }
  return text;
}

std::optional<std::vector<std::size_t>> NumbersOf(std::string_view text) {
  std::vector<std::size_t> numbers;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (word.empty()) continue;
    std::size_t number = 0;
    const auto [behind, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc{} || behind != word.data() + word.size()) return std::nullopt;
    numbers.push_back(number);
  }
  return numbers;
}

}  // namespace quorvel::sim

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>

namespace quorvel::sim {

using Milliseconds = std::int64_t;

// What an event belongs to. Wire: bytes under way and the end of a link; while there is any, the
// story is not quiet.
enum class Track { Wire, Operator, Host, Line };

// The virtual time of a story and what is to come in it, in the order of time and, at the same
// time, of asking.
class Agenda {
 public:
  Milliseconds Now() const { return now_; }
  bool IsEmpty() const { return events_.empty(); }
  bool IsQuietOn(Track track) const {
    for (const auto& [when, event] : events_) {
      if (event.track == track) return false;
    }
    return true;
  }
  void At(Milliseconds when, Track track, std::function<void()> act) {
    events_.insert({{when < now_ ? now_ : when, ++count_}, {track, std::move(act)}});
  }
  void In(Milliseconds delay, Track track, std::function<void()> act) {
    At(now_ + delay, track, std::move(act));
  }
  // Goes on to the next event and runs it; false when there is none.
  bool Step() {
    if (events_.empty()) return false;
    const auto next = events_.begin();
    const auto act = std::move(next->second.act);
    now_ = next->first.first;
    events_.erase(next);
    act();
    return true;
  }
  void Drop(Track track) {
    std::erase_if(events_, [track](const auto& event) { return event.second.track == track; });
  }

 private:
  struct Event {
    Track track;
    std::function<void()> act;
  };
  Milliseconds now_ = 0;
  std::uint64_t count_ = 0;
  std::map<std::pair<Milliseconds, std::uint64_t>, Event> events_;
};

}  // namespace quorvel::sim

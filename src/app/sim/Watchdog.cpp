#include "app/sim/Watchdog.h"

#include <cstdio>
#include <cstdlib>

namespace quorvel::sim {

Watchdog::Watchdog(std::chrono::seconds longest)
    : longest_(longest), thread_([this] { Watch(); }) {}

Watchdog::~Watchdog() {
  {
    const std::lock_guard lock(mutex_);
    over_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void Watchdog::Begin(const std::string& name) {
  const std::lock_guard lock(mutex_);
  name_ = name;
  ++count_;
  changed_.notify_all();
}

void Watchdog::Watch() {
  std::unique_lock lock(mutex_);
  while (!over_) {
    const unsigned seen = count_;
    const bool goesOn = changed_.wait_for(lock, longest_, [&] { return over_ || count_ != seen; });
    if (goesOn || name_.empty()) continue;
    std::fprintf(stderr, "The story %s stands still\n", name_.c_str());
    std::abort();
  }
}

}  // namespace quorvel::sim

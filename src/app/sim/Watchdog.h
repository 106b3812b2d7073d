#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace quorvel::sim {

// Ends the process when a story stands still: a loop in the program takes no steps that could be
// counted.
class Watchdog {
 public:
  // `longest`: of real time, that a story may take.
  explicit Watchdog(std::chrono::seconds longest);
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // A story begins.
  void Begin(const std::string& name);

 private:
  void Watch();

  const std::chrono::seconds longest_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::string name_;
  unsigned count_ = 0;
  bool over_ = false;
  std::thread thread_;
};

}  // namespace quorvel::sim

#pragma once

#include <deque>
#include <functional>
#include <utility>

namespace quorvel::sim {

// What the user does comes in here, one input after another, as from a window system: what an input
// causes may wait for something, and then the next one comes in inside of that wait.
class Door {
 public:
  using Input = std::function<void()>;

  void Add(Input input) { inputs_.push_back(std::move(input)); }
  // Ahead of all that waits: the rest of what has just begun.
  void AddNext(Input input) { inputs_.push_front(std::move(input)); }
  // False when there was nothing.
  bool ServeOne() {
    if (inputs_.empty()) return false;
    const Input next = std::move(inputs_.front());
    inputs_.pop_front();
    next();
    return true;
  }

 private:
  std::deque<Input> inputs_;
};

}  // namespace quorvel::sim

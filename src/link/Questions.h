#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>

namespace quorvel {

// Questions of one kind that the host asks (lists, passwords, help texts). While one is open,
// further ones wait, each with its message, until that one has been answered.
class Questions {
 public:
  // Asks the question of HostMessage by `ask`, now or in its turn. A question is open while `ask`
  // runs, or, where a window goes on with it, until Answered.
  void Put(const std::function<void()>& ask);
  void Open() { open_ = true; }
  // The open question has been answered: the next one is asked, as an event of its own.
  void Answered();
  std::size_t Waiting() const { return waiting_.size(); }
  // Those that wait are forgotten.
  void Drop() { waiting_.clear(); }

 private:
  struct Question {
    std::string message;
    std::function<void()> ask;
  };
  void AskNext();

  bool open_ = false;
  std::deque<Question> waiting_;
};

}  // namespace quorvel

#pragma once

#include <functional>
#include <optional>
#include <string>

namespace quorvel::sim {

// The rule that did not hold, and what was seen.
struct Failure {
  std::string rule;
  std::string seen;
};

// Where a story is told, line by line; empty when nobody listens.
using Teller = std::function<void(const std::string& line)>;

// The first failure of a story; later ones are its consequences.
class Verdict {
 public:
  void Fail(const std::string& rule, const std::string& seen) {
    if (!failure_) failure_ = Failure{rule, seen};
  }
  const std::optional<Failure>& failure() const { return failure_; }
  // The story has met a known limit of the protocol and is not told to its end.
  void Excuse(const std::string& why) { excuse_ = why; }
  const std::string& excuse() const { return excuse_; }
  bool IsOver() const { return failure_ || !excuse_.empty(); }

 private:
  std::optional<Failure> failure_;
  std::string excuse_;
};

}  // namespace quorvel::sim

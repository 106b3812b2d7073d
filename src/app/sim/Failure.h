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

 private:
  std::optional<Failure> failure_;
};

}  // namespace quorvel::sim

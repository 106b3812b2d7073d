#pragma once

#include <optional>
#include <string>

namespace quorvel {

// One telnet command that the client answers with.
struct TelnetAnswer {
  int command = 0;
  int option = 0;
  std::string text;  // of a sub-negotiation; empty otherwise

  bool operator==(const TelnetAnswer&) const = default;
};

// The answer to a telnet command with its option (numbers as in RFC 854); nothing for a command
// that needs none.
std::optional<TelnetAnswer> NegotiationAnswer(int command, int option);

}  // namespace quorvel

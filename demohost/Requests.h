// The framed requests of the client: records, locks, help, screens' files.
#pragma once

#include <string>
#include <vector>

#include "demohost/CaseCall.h"

namespace quorvel::demohost {

struct Reply {
  std::string frame;
  /// Goes out ahead of the frame: what business rules show.
  std::vector<Step> before = {};
  /// READ with a mode: the option that the client is going to run next.
  std::string runOption = {};
  /// A help window opens (+1), or has been answered by a write (-1).
  int helpChange = 0;
  /// The frame is a list: the client's next line is the user's choice, or empty.
  bool list = false;
};

/// The session that asks.
struct Caller {
  Application& host;
  int port;  // owns the locks
  const std::string& user;
  CaseMemory& memory;
};

/// Answers one request; `text` is what stood between the marks.
Reply Answer(const Caller& caller, const std::string& text);

/// True for a call of business rules, whose answer may take several frames.
bool IsCaseLogic(const std::string& text);

/// The refusal of a request, in the message that its verb expects.
std::string Refusal(const std::string& text, const std::string& reason);

}  // namespace quorvel::demohost

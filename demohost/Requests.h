// The framed requests of the client: records, locks, help, screens' files.
#pragma once

#include <string>

namespace quorvel::demohost {

class Application;

struct Reply {
  std::string frame;
  /// READ with a mode: the option that the client is going to run next.
  std::string runOption = {};
  /// A help window opens (+1), or has been answered by a write (-1).
  int helpChange = 0;
};

/// Answers one request; `text` is what stood between the marks. `port` owns the locks.
Reply Answer(Application& application, int port, const std::string& text);

/// The refusal of a request, in the message that its verb expects.
std::string Refusal(const std::string& text, const std::string& reason);

}  // namespace quorvel::demohost

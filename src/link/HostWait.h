#pragma once

#include <functional>
#include <string>

namespace quorvel {

// The one place that waits for the host: serves events while `waiting` is true, without a time
// limit. Every wait belongs to its session and to the window whose event began it; when the window
// is gone, or the next session has connected, it ends by QuietEnd. The link's end alone ends none.
// Until the event is over, what the user does in the windows that are open is kept for its end.
// QuietEnd at once where nothing can come: without a link, or for a session that is over.
void WaitForHost(const std::function<bool()>& waiting);

// Whether the link is up.
bool IsLinkUp();

// A question of the host that a window shows: it is answered once, and in the session that asked.
class HostQuestion {
 public:
  // The host asks, now.
  void Ask();
  // Sends the text and CR; nothing where it has been answered, or its session is over.
  void Answer(const std::string& text);

 private:
  bool open_ = false;
  unsigned session_ = 0;
};

}  // namespace quorvel

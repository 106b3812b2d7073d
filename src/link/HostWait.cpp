#include "link/HostWait.h"

#include <utility>

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Requests.h"
#include "link/TelnetControl.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

bool IsLinkUp() {
  const TelnetControl* telnet = Ask().LoadedTelnet();
  return telnet && telnet->State() == TelnetControl::kConnected;
}

void WaitForHost(const std::function<bool()>& waiting) {
  Desktop& desk = desktop();
  if (!IsLinkUp() || desk.IsRunningStale()) throw QuietEnd{};
  const std::shared_ptr<Window> owner = desk.RunningWindow();
  const bool owned = owner && owner->IsLoaded();
  const unsigned session = desk.Generation();
  const auto over = [&] { return session != desk.Generation() || (owned && !owner->IsLoaded()); };
  desk.HoldInput();
  desk.WaitWhile([&] { return waiting() && !over(); });
  if (over()) throw QuietEnd{};
}

void HostQuestion::Ask() {
  open_ = true;
  session_ = desktop().Generation();
}

void HostQuestion::Answer(const std::string& text) {
  if (!std::exchange(open_, false) || session_ != desktop().Generation()) return;
  SendToHost(text + CR);
}

}  // namespace quorvel

#include "entry/ListRequests.h"

#include "entry/frmLocate.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

void SendAndShowHourglass(const std::string& request) {
  desktop().SetMousePointer(MousePointer::Hourglass);
  SendToHost(request);
}

}  // namespace

void RequestList(const std::string& listName) {
  if (!listName.empty()) SendAndShowHourglass(BuildRequest("SYLIST", {listName}));
}

void RequestLocator(const std::string& locatorKey) {
  SessionState& s = Session();
  s.LocatorFile = locatorKey;
  if (locatorKey.empty()) return;
  Form<frmLocate>()->ShowModal();
  if (s.LocatorWord.empty()) return;
  SendAndShowHourglass(BuildRequest("SYLOCATR", {s.LocatorFile, s.LocatorWord, s.LocatorLimiter}));
}

}  // namespace quorvel

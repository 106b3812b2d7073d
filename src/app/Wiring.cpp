#include "app/Wiring.h"

#include "entry/InstallEntry.h"
#include "entry/InstallLists.h"
#include "link/HandOvers.h"
#include "menus/InstallMenus.h"
#include "settings/InstallSettings.h"
#include "terminal/InstallTerminal.h"

namespace quorvel {

void WireHandOvers() {
  Ask() = HandOvers{};
  InstallSettings();
  InstallTerminal();
  InstallMenus();
  InstallEntry();
  InstallListWindows();
  // There is no report viewer yet: what its closing would enable again is enabled at once, so that
  // a host that captures a report leaves the session usable.
  Ask().ShowReport = [] { Ask().EnableSessionWindows(true); };
}

}  // namespace quorvel

#include "app/Wiring.h"

#include "entry/InstallEntry.h"
#include "link/HandOvers.h"
#include "menus/InstallMenus.h"
#include "output/InstallOutput.h"
#include "settings/InstallSettings.h"
#include "terminal/InstallTerminal.h"

namespace quorvel {

void WireHandOvers() {
  Ask() = HandOvers{};
  InstallSettings();
  InstallTerminal();
  InstallMenus();
  InstallEntry();
  InstallOutput();
}

}  // namespace quorvel

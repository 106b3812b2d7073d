#include "settings/InstallSettings.h"

#include "link/HandOvers.h"
#include "settings/ApplySettings.h"
#include "settings/Configuration.h"
#include "settings/WindowPlacing.h"

namespace quorvel {

void InstallSettings() {
  HandOvers& ask = Ask();
  ask.LoadConfiguration = LoadConfiguration;
  ask.ApplySettings = ApplySettings;
  ask.CenterOnParent = CenterOnParent;
  ask.CenterOnScreen = CenterOnScreen;
}

}  // namespace quorvel

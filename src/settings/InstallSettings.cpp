#include "settings/InstallSettings.h"

#include "link/HandOvers.h"
#include "platform/controls/Desktop.h"
#include "settings/ApplySettings.h"
#include "settings/Configuration.h"
#include "settings/WindowPlacing.h"
#include "settings/frmTerm.h"

namespace quorvel {

void InstallSettings() {
  HandOvers& ask = Ask();
  ask.LoadConfiguration = LoadConfiguration;
  ask.ApplySettings = ApplySettings;
  ask.CenterOnParent = CenterOnParent;
  ask.CenterOnScreen = CenterOnScreen;
  ask.ShowTerminalSettings = [] {
    if (Ask().TerminalControl()) Form<frmTerm>()->ShowModal();
  };
}

}  // namespace quorvel

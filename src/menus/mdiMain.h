#pragma once

#include "platform/controls/ControlArray.h"
#include "platform/controls/Elastic.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The one top-level window of the process: every other window lives inside or above it. It carries
// the panel of command buttons, start and exit, and the rules for leaving with a session up.
class mdiMain : public Window {
 public:
  static constexpr int kButtons = 16;

  mdiMain();

  Panel pnlButtons{*this, "pnlButtons"};
  Elastic VideoSoftElastic1{pnlButtons, "VideoSoftElastic1"};
  ControlArray<Button> cmdButton{VideoSoftElastic1, "cmdButton"};

  MenuItem mnuStart{*this, "mnuStart", "&Start"};
  MenuItem cmdStartTelnet{mnuStart, "cmdStartTelnet", "&Telnet Session"};
  MenuItem mnuExit{*this, "mnuExit", "&Exit"};

  // Places the panel, shows and enables it: a session is up.
  void ShowButtonPanel();

 protected:
  void Form_Load() override;
  void Form_Resize() override;
  void Form_Activate() override;
  void Form_QueryUnload(bool& cancel) override;
  void Form_Unload(bool& cancel) override;

 private:
  void BuildButtons();
  void PlacePanel();
  void KeepTerminalFocus();

  void cmdButton_Click(int index);
  void cmdStartTelnet_Click();
  void mnuExit_Click();
};

}  // namespace quorvel

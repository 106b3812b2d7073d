#pragma once

#include <string>

#include "link/HostWait.h"
#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/Window.h"

namespace quorvel {

// A list that the host sends, to pick a line of: HostMessage holds the caption, the place and the
// lines. The answer goes to the host, and into ListAnswer for the field that asked.
class frmList : public Window {
 public:
  frmList();

  ListBox lstItems{*this, "lstItems"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdExit{*this, "cmdExit"};

 protected:
  void Form_Load() override;
  void Form_Unload(bool& cancel) override;

 private:
  void TakeLines(const std::string& message);
  void Place(const std::string& geometry);
  void cmdOK_Click();

  HostQuestion question_;
  bool answered_ = false;
};

}  // namespace quorvel

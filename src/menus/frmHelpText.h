#pragma once

#include <string>

#include "link/HostWait.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// A help text of the host, to be read and edited. Leaving writes the text back or answers the host
// with a bare CR. Not modal: the user can reach the other windows meanwhile.
class frmHelpText : public Window {
 public:
  frmHelpText();

  Label lblTitle{*this, "lblTitle"};
  TextBox txtHelp{*this, "txtHelp"};
  Button cmdSave{*this, "cmdSave"};
  Button cmdExit{*this, "cmdExit"};

  MenuItem mnuFile{*this, "mnuFile", "&File"};
  MenuItem mnuFileSave{mnuFile, "mnuFileSave", "&Save"};
  MenuItem mnuFileExit{mnuFile, "mnuFileExit", "&Exit"};
  MenuItem mnuHelp{*this, "mnuHelp", "&Help"};
  MenuItem mnuHelpAbout{mnuHelp, "mnuHelpAbout", "&About"};

  // Whether the user is being asked what is to become of his changes.
  bool IsAsking() const { return asking_; }

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_QueryUnload(bool& cancel) override;
  void Form_Unload(bool& cancel) override;

 private:
  void TakeMessage();
  bool IsWaiting() const;
  void cmdSave_Click();
  void cmdExit_Click();
  bool Save();
  void AnswerHost();

  std::string helpKey_;  // HelpKey moves on when the user asks for another help text
  bool changed_ = false;
  bool written_ = false;  // the host has its answer in the text
  bool saving_ = false;   // it has not confirmed yet
  bool asking_ = false;
  HostQuestion question_;
};

}  // namespace quorvel

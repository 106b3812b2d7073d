#pragma once

#include <array>
#include <string>

#include "menus/MenuTables.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Elastic.h"
#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The menu window: the host's menu as tab pages of options, and the entry of an option by its id.
class frmSubMenu : public Window {
 public:
  static constexpr int kPages = 10;

  frmSubMenu();

  Elastic VideoSoftElastic1{*this, "VideoSoftElastic1"};
  TabStrip tabMenu{VideoSoftElastic1, "tabMenu"};
  ControlArray<ListView> lstOptions{tabMenu, "lstOptions"};
  Frame SSFrame1{VideoSoftElastic1, "SSFrame1"};
  Label Label1{SSFrame1, "Label1"};
  ComboBox cboExecute{SSFrame1, "cboExecute"};
  Button cmdDo{SSFrame1, "cmdDo"};
  Button cmdBack{VideoSoftElastic1, "cmdBack"};
  Button cmdTcl{VideoSoftElastic1, "cmdTcl"};
  Button cmdLogoff{VideoSoftElastic1, "cmdLogoff"};
  Button cmdHelp{VideoSoftElastic1, "cmdHelp"};
  Label lblWho{VideoSoftElastic1, "lblWho"};

  MenuItem mnuSession{*this, "mnuSession", "&Session"};
  MenuItem mnuSSaveSettings{mnuSession, "mnuSSaveSettings", "&Save Settings"};
  MenuItem mnuSSaveAs{mnuSession, "mnuSSaveAs", "S&ave Settings As..."};
  MenuItem mnuOptions{*this, "mnuOptions", "&Options"};
  MenuItem mnuOTerminal{mnuOptions, "mnuOTerminal", "&Terminal Settings"};
  MenuItem mnuOptPrinter{mnuOptions, "mnuOptPrinter", "&Printer Setup"};
  MenuItem mnuOptFax{mnuOptions, "mnuOptFax", "&Fax Settings"};
  MenuItem mnuSep{mnuOptions, "mnuSep", "-"};
  MenuItem mnuOButtons{mnuOptions, "mnuOButtons", "&Command Buttons"};
  MenuItem mnuSep2{mnuOptions, "mnuSep2", "-"};
  MenuItem mnuOptExport{mnuOptions, "mnuOptExport", "&Export Parameters"};
  MenuItem mnuOptCapOff{mnuOptions, "mnuOptCapOff", "&Force Capture OFF"};
  MenuItem mnuBookMark{*this, "mnuBookMark", "&Bookmarks"};
  MenuItem mnuLogoff{*this, "mnuLogoff", "&Logoff"};
  MenuItem mnuHelp{*this, "mnuHelp", "&Help"};
  MenuItem mnuHelpCurrent{mnuHelp, "mnuHelpCurrent", "&Current Selection"};
  MenuItem mnuHelpAbout{mnuHelp, "mnuHelpAbout", "&About"};

  // Rebuilds tabs, lists and tables from MenuText and MenuCommands.
  void BuildMenu();
  // Sizes the window, its tab strip and its lists to the client area of the main window.
  void FitMenuWindow();

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_GotFocus() override;
  void Form_Unload(bool& cancel) override;

 private:
  void DesignLayout();
  void BindEvents();
  void ClearTables();
  void ShowPages(int tabs);
  void FillPage(int page, const std::string& tabName, const MenuTables& menu);
  void FitLists();
  bool SelectedOption(std::string& optionId);

  void Run(const std::string& option);

  void lstOptions_DblClick(int page);
  void cmdDo_Click();
  void cmdBack_Click();
  void cmdTcl_Click();
  void cmdLogoff_Click();
  void cmdHelp_Click();
  void mnuOptCapOff_Click();
  void mnuBookMark_Click();

  // The option id of each row (from 0) of each page's list.
  std::array<std::vector<std::string>, kPages> optionGrid_;
};

// Shows the menu of the ~STARTMENU~ message in HostMessage, whose fields 2 to 4 have been stored.
void StartMenu();

}  // namespace quorvel

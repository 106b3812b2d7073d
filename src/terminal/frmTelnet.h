#pragma once

#include <string>

#include "link/TelnetControl.h"
#include "platform/controls/TerminalControl.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The window of one telnet session: the terminal, and the control that makes the link. It stays
// loaded for the whole session, also while menus or an entry screen cover it.
class frmTelnet : public Window {
 public:
  frmTelnet();

  Terminal VT2201{*this, "VT2201"};
  TelnetControl TELNET1{*this};

  MenuItem mnuConnect{*this, "mnuConnect", "&Session"};
  MenuItem mnuCRemoteSystem{mnuConnect, "mnuCRemoteSystem", "&Connect..."};
  MenuItem mnuCSep{mnuConnect, "mnuCSep", ""};
  MenuItem mnuSOpen{mnuConnect, "mnuSOpen", "&Open Session"};
  MenuItem mnuSSaveSettings{mnuConnect, "mnuSSaveSettings", "&Save Settings"};
  MenuItem mnuSSaveAs{mnuConnect, "mnuSSaveAs", "S&ave Settings As..."};
  MenuItem mnuCSep2{mnuConnect, "mnuCSep2", ""};
  MenuItem mnuCExit{mnuConnect, "mnuCExit", "E&xit"};
  MenuItem mnuEdit{*this, "mnuEdit", "&Edit"};
  MenuItem mnuECopy{mnuEdit, "mnuECopy", "&Copy"};
  MenuItem mnuEPaste{mnuEdit, "mnuEPaste", "&Paste"};
  MenuItem mnuOptions{*this, "mnuOptions", "&Options"};
  MenuItem mnuOTerminal{mnuOptions, "mnuOTerminal", "&Terminal Settings"};
  MenuItem mnuSep1{mnuOptions, "mnuSep1", ""};
  MenuItem mnuPrintScreen{mnuOptions, "mnuPrintScreen", "&Print Screen"};
  MenuItem mnuOptPrinter{mnuOptions, "mnuOptPrinter", "Printer &Setup"};
  MenuItem mnuOptFax{mnuOptions, "mnuOptFax", "&Fax Settings"};
  MenuItem mnuSep2{mnuOptions, "mnuSep2", ""};
  MenuItem mnuOButtons{mnuOptions, "mnuOButtons", "&Command Buttons"};
  MenuItem mnuSep3{mnuOptions, "mnuSep3", ""};
  MenuItem mnuOptExport{mnuOptions, "mnuOptExport", "&Export Parameters"};
  MenuItem mnuOptCapOff{mnuOptions, "mnuOptCapOff", "&Force Capture OFF"};
  MenuItem mnuBookMarks{*this, "mnuBookMarks", "&Bookmarks"};
  MenuItem mnuHelp{*this, "mnuHelp", "&Help"};
  MenuItem mnuHAbout{mnuHelp, "mnuHAbout", "&About..."};

  // Sizes the window to the client area of the main window, and the terminal to the window.
  void FitToMain();
  // While the user is asked whether to leave the program, and if he stays, QuickExit does not
  // count.
  void SetUserStays(bool stays) { userStays_ = stays; }

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_GotFocus() override;
  void Form_QueryUnload(bool& cancel) override;
  void Form_Unload(bool& cancel) override;

 private:
  void BindMenu();

  void TELNET1_Connect();
  void TELNET1_Fail(const std::string& where, const std::string& reason);
  void TELNET1_Receive(std::string& data);
  void TELNET1_Option(int command, int option);
  void CloseSession();
  void ShowNotConnected();

  void VT2201_KeyboardData(const std::string& text);
  void VT2201_Answer(const std::string& text);
  void VT2201_SelectionChange();

  void mnuCExit_Click();
  void mnuSOpen_Click();
  void mnuECopy_Click();
  void mnuEPaste_Click();
  void mnuPrintScreen_Click();
  void mnuOptCapOff_Click();
  void mnuBookMarks_Click();

  bool userStays_ = false;
};

}  // namespace quorvel

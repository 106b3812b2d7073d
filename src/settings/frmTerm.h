#pragma once

#include "platform/controls/ControlArray.h"
#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

class Terminal;

// The settings of the terminal. It shows what the terminal holds at the moment and writes back on
// OK only; until then the sample alone follows.
class frmTerm : public Window {
 public:
  frmTerm();

  TabStrip SSTab1{*this, "SSTab1"};
  Label lblTermTypes{SSTab1, "Label5"};
  ListBox lstTermTypes{SSTab1, "lstTermTypes"};
  Frame frmScreen{SSTab1, "frmScreen"};
  Label lblRows{frmScreen, "Label4"};
  TextBox txtRows{frmScreen, "txtRows"};
  Label lblCols{frmScreen, "Label3"};
  ComboBox cboCols{frmScreen, "cboCols", -1, ComboBox::Style::DropDownList};
  Label lblBufferRows{frmScreen, "Label2"};
  TextBox txtBufferRows{frmScreen, "txtBufferRows"};
  Label lblTitle{frmScreen, "Label1"};
  TextBox txtMdiCaption{frmScreen, "txtMdiCaption"};
  CheckBox chkEcho{SSTab1, "chkEcho"};
  CheckBox chkPrintPass{SSTab1, "chkPrintPass"};
  CheckBox chkAutoSize{SSTab1, "chkAutoSize"};
  Frame frmKeyPad{SSTab1, "frmKeyPad"};
  OptionButton optKPNum{frmKeyPad, "optKPNum"};
  OptionButton optKPApp{frmKeyPad, "optKPApp"};
  Frame frmCursor{SSTab1, "frmCursor"};
  OptionButton optCKNorm{frmCursor, "optCKNorm"};
  OptionButton optCKApp{frmCursor, "optCKApp"};
  Button cmdFunk{SSTab1, "cmdFunk"};
  Button cmdAdvanced{SSTab1, "cmdAdvanced"};

  ControlArray<Label> lblFontDesc{SSTab1, "lblFontDesc"};
  ControlArray<Label> lblFonts{SSTab1, "lblFonts"};  // name, size, bold, italic
  Button cmdSetFont{SSTab1, "cmdSetFont"};

  OptionButton optBack{SSTab1, "optBack"};
  OptionButton optNormal{SSTab1, "optNormal"};
  OptionButton optBold{SSTab1, "optBold"};
  Button cmdSetColor{SSTab1, "cmdSetColor"};

  Panel pnlSample{*this, "pnlSample"};
  Label lblNormal{pnlSample, "lblNormal"};
  Label lblBold{pnlSample, "lblBold"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

 protected:
  void Form_Load() override;

 private:
  void CaptionControls();
  void LayOutRows();
  void ShowFont(const quorvel::Font& font);
  bool HasValidEntries();
  bool IsFontChanged() const;
  void StoreTerminal(Terminal& terminal);
  void StoreTitle();
  void StoreFont(Terminal& terminal);
  void StoreColours(Terminal& terminal);

  void cmdSetFont_Click();
  void cmdSetColor_Click();
  void cmdOK_Click();

  quorvel::Font loadedFont_;
};

}  // namespace quorvel

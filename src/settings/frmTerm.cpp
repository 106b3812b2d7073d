#include "settings/frmTerm.h"

#include <cmath>

#include "link/HandOvers.h"
#include "link/SessionState.h"
#include "platform/NumberText.h"
#include "platform/Numbers.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/TerminalControl.h"
#include "settings/Configuration.h"
#include "settings/SettingFaults.h"
#include "settings/WindowPlacing.h"
#include "settings/frmAdvTerm.h"

namespace quorvel {
namespace {

// The setting TermType is the place in this list, from 1.
constexpr const char* kTypes[] = {"No Emulation", "VT52", "VT100", "VT220 7-bit", "VT220 8-bit"};
constexpr int kTypeCount = static_cast<int>(std::size(kTypes));
constexpr const char* kFontHeadings[] = {"Font Name", "Font Size", "Font Bold", "Font Italic"};

constexpr int kFontPage = 1;
constexpr int kColourPage = 2;

// In twips: the list with its five rows; the sample, which keeps its height whatever the font.
constexpr int kListWidth = 2100;
constexpr int kListHeight = 1650;
constexpr int kSampleHeight = 960;

constexpr double kMostRows = 100;

// What a terminal shows that has been given no colours.
constexpr int kBlack = 0;
constexpr int kWhite = 0xFFFFFF;

int ShownColour(int colour, int byDefault) {
  return colour < 0 ? byDefault : colour;
}

std::string BoolText(bool value) {
  return value ? "True" : "False";
}

// Tells the user, who has the keyboard in the box then.
bool Refuse(TextBox& box, const std::string& message) {
  desktop().MsgBox(message);
  box.SetFocus();
  return false;
}

// An empty box counts as 0.
bool HoldsNumber(TextBox& box, const std::string& message) {
  if (box.Text().empty()) box.Text = "0";
  return IsNumeric(box.Text()) || Refuse(box, message);
}

}  // namespace

frmTerm::frmTerm() : Window(Kind::Dialog, "frmTerm") {
  Caption = "Terminal Settings";
  CaptionControls();
  cmdSetFont.Page = kFontPage;
  for (int i = 0; i < 4; ++i) {
    lblFontDesc.Load(i).Page = kFontPage;
    lblFontDesc(i).Caption = kFontHeadings[i];
    lblFonts.Load(i).Page = kFontPage;
  }
  for (Control* control : std::vector<Control*>{&optBack, &optNormal, &optBold, &cmdSetColor}) {
    control->Page = kColourPage;
  }
  LayOutRows();

  cmdFunk.Click = [] { Ask().ShowFunctionKeys(); };
  cmdAdvanced.Click = [] { Form<frmAdvTerm>()->ShowModal(); };
  cmdSetFont.Click = [this] { cmdSetFont_Click(); };
  cmdSetColor.Click = [this] { cmdSetColor_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { Unload(); };
}

void frmTerm::CaptionControls() {
  SSTab1.SetTabCaption(0, "Terminal");
  SSTab1.SetTabCaption(kFontPage, "Font");
  SSTab1.SetTabCaption(kColourPage, "Colors");
  const std::pair<Control*, const char*> captions[] = {
      {&lblTermTypes, "Terminal Type"},
      {&frmScreen, "Screen"},
      {&lblRows, "Rows"},
      {&lblCols, "Columns"},
      {&lblBufferRows, "Buffer Rows"},
      {&lblTitle, "Title"},
      {&chkEcho, "Local Echo"},
      {&chkPrintPass, "Pass-Through Print"},
      {&chkAutoSize, "Auto Size"},
      {&frmKeyPad, "Keypad"},
      {&optKPNum, "Numeric"},
      {&optKPApp, "Application"},
      {&frmCursor, "Cursor Keys"},
      {&optCKNorm, "Normal"},
      {&optCKApp, "Application"},
      {&cmdFunk, "&Function Keys"},
      {&cmdAdvanced, "&Advanced"},
      {&cmdSetFont, "&Set Font"},
      {&optBack, "&Background"},
      {&optNormal, "&Normal Text"},
      {&optBold, "&Bold Text"},
      {&cmdSetColor, "&Set Color"},
      {&lblNormal, "NORMAL Text"},
      {&lblBold, "BOLD Text"},
      {&cmdOK, "&OK"},
      {&cmdCancel, "&Cancel"},
  };
  for (const auto& [control, caption] : captions) control->Caption = caption;
  cmdOK.Default = true;
  cmdCancel.Cancel = true;
  lblTermTypes.StandsFor(lstTermTypes);
  lstTermTypes.Width = kListWidth;
  lstTermTypes.Height = kListHeight;
  pnlSample.Height = kSampleHeight;
}

void frmTerm::LayOutRows() {
  const Layout terminal{Beside({Column({Wide(lblTermTypes), Stretch(lstTermTypes)}),
                                Group(frmScreen, {Field(lblRows, txtRows), Field(lblCols, cboCols),
                                                  Field(lblBufferRows, txtBufferRows),
                                                  Field(lblTitle, txtMdiCaption)})}),
                        Beside({Group(frmKeyPad, {Wide(optKPNum), Wide(optKPApp)}),
                                Group(frmCursor, {Wide(optCKNorm), Wide(optCKApp)}),
                                Column({Wide(chkEcho), Wide(chkPrintPass), Wide(chkAutoSize)})}),
                        Bar({&cmdFunk, &cmdAdvanced})};
  Layout font;
  for (int i = 0; i < 4; ++i) font.push_back(Field(lblFontDesc(i), lblFonts(i)));
  font.push_back(Bar({&cmdSetFont}));
  const Layout colours{Wide(optBack), Wide(optNormal), Wide(optBold), Bar({&cmdSetColor})};
  SetLayout({Pages(SSTab1, {terminal, font, colours}),
             Group(pnlSample, {Beside({Wide(lblNormal), Wide(lblBold)})}),
             Buttons({&cmdOK, &cmdCancel})});
}

void frmTerm::Form_Load() {
  CenterOverMain(*this);
  const Terminal* terminal = Ask().TerminalControl();
  if (!terminal) return;
  SessionState& s = Session();
  const int type = std::clamp(terminal->TermType(), 1, kTypeCount);
  s.TermType = std::to_string(type);
  for (const char* name : kTypes) lstTermTypes.List.Add(name);
  lstTermTypes.ListIndex = type - 1;
  cboCols.List.Add("80");
  cboCols.List.Add("132");
  s.Columns = terminal->Columns() == 1 ? 1 : 0;
  cboCols.ListIndex = s.Columns;
  s.Rows = CheckedInt16(terminal->Rows());
  txtRows.Text = std::to_string(s.Rows);
  chkEcho.Value = s.LocalEcho == 1;
  chkPrintPass.Value = s.PassThrough == 1;
  chkAutoSize.Value = s.AutoSize == 1;
  txtBufferRows.Text = std::to_string(s.BufferRows);
  (terminal->KeyPad() == 0 ? optKPNum : optKPApp).Value = true;
  (terminal->CursorKeys() == 0 ? optCKNorm : optCKApp).Value = true;
  txtMdiCaption.Text = s.Caption;
  loadedFont_ = terminal->Font();
  ShowFont(loadedFont_);
  pnlSample.BackColor = ShownColour(terminal->BackColor(), kBlack);
  lblNormal.ForeColor = ShownColour(terminal->ForeColor(), kWhite);
  lblBold.ForeColor = terminal->BoldColor();
  optBack.Value = true;
}

// --- font and colours

void frmTerm::ShowFont(const quorvel::Font& font) {
  lblNormal.Font = font;
  lblBold.Font = font;
  lblFonts(0).Caption = font.name;
  lblFonts(1).Caption = ShortNumber(font.size);
  lblFonts(2).Caption = BoolText(font.bold);
  lblFonts(3).Caption = BoolText(font.italic);
}

void frmTerm::cmdSetFont_Click() {
  if (const auto chosen = desktop().ChooseFont(lblNormal.Font())) ShowFont(*chosen);
}

void frmTerm::cmdSetColor_Click() {
  Property<int>& sample = optBack.Value()     ? pnlSample.BackColor
                          : optNormal.Value() ? lblNormal.ForeColor
                                              : lblBold.ForeColor;
  const auto chosen = desktop().ChooseColour(static_cast<std::uint32_t>(sample()));
  if (chosen) sample = static_cast<int>(*chosen);
}

bool frmTerm::IsFontChanged() const {
  const quorvel::Font& font = lblNormal.Font();
  return font.name != loadedFont_.name || font.bold != loadedFont_.bold ||
         font.italic != loadedFont_.italic ||
         std::nearbyint(font.size) != std::nearbyint(loadedFont_.size);
}

// --- taking it over

// All that can be refused is looked at before anything is stored.
bool frmTerm::HasValidEntries() {
  if (!HoldsNumber(txtBufferRows, "Buffer Rows must be numeric!")) return false;
  if (!HoldsNumber(txtRows, "Screen Rows must be numeric!")) return false;
  const double rows = NumberOf(txtRows.Text());
  if (rows <= 0 || rows > kMostRows) {
    return Refuse(txtRows, "Screen Rows must be between 1 and 100!");
  }
  constexpr double kMostBufferRows = 32767;  // what the setting holds
  if (std::abs(NumberOf(txtBufferRows.Text())) > kMostBufferRows) {
    return Refuse(txtBufferRows, "Buffer Rows must be at most 32767!");
  }
  if (!IsKeepable(txtMdiCaption, SettingFault(txtMdiCaption.Text()))) return false;
  const std::string fault = SettingFault(lblNormal.Font().name);
  if (!fault.empty()) desktop().MsgBox("The font's name " + fault);
  return fault.empty();
}

void frmTerm::StoreTerminal(Terminal& terminal) {
  SessionState& s = Session();
  s.Rows = RoundToInt16(NumberOf(txtRows.Text()));
  terminal.Rows = s.Rows;
  s.Columns = static_cast<std::int16_t>(cboCols.ListIndex());
  terminal.Columns = s.Columns;
  const int type = lstTermTypes.ListIndex() + 1;
  s.TermType = std::to_string(type);
  terminal.TermType = type;
  s.LocalEcho = chkEcho.Value() ? 1 : 0;
  s.PassThrough = chkPrintPass.Value() ? 1 : 0;
  terminal.PassThrough = s.PassThrough == 1;
  s.AutoSize = chkAutoSize.Value() ? 1 : 0;
  Ask().ScaleMenu(s.AutoSize == 1 && s.MenuLoaded == 1);
  s.BufferRows = RoundToInt16(NumberOf(txtBufferRows.Text()));
  terminal.BufferRows = s.BufferRows;
  s.KeyPad = optKPNum.Value() ? 0 : 1;
  terminal.KeyPad = s.KeyPad;
  s.CursorKeys = optCKNorm.Value() ? 0 : 1;
  terminal.CursorKeys = s.CursorKeys;
}

// What stands behind the title in the main window's caption remains.
void frmTerm::StoreTitle() {
  SessionState& s = Session();
  Window* main = Ask().MainWindow();
  const std::string shown = main ? main->Caption() : std::string();
  const std::string rest = shown.substr(std::min(s.Caption.size(), shown.size()));
  s.Caption = txtMdiCaption.Text();
  if (main) main->Caption = s.Caption + rest;
}

void frmTerm::StoreFont(Terminal& terminal) {
  if (!IsFontChanged()) return;
  const quorvel::Font& font = lblNormal.Font();
  SessionState& s = Session();
  s.FontName = font.name;
  s.FontSize = ShortNumber(font.size);
  s.FontBold = BoolText(font.bold);
  s.FontItalic = BoolText(font.italic);
  terminal.Font = font;
}

void frmTerm::StoreColours(Terminal& terminal) {
  SessionState& s = Session();
  s.BackColor = std::to_string(pnlSample.BackColor());
  terminal.BackColor = pnlSample.BackColor();
  s.ForeColor = std::to_string(lblNormal.ForeColor());
  terminal.ForeColor = lblNormal.ForeColor();
  s.BoldColor = std::to_string(lblBold.ForeColor());
  terminal.BoldColor = lblBold.ForeColor();
}

void frmTerm::cmdOK_Click() {
  if (!HasValidEntries()) return;
  // The session, and the terminal with it, may have ended while the window was open.
  Terminal* terminal = Ask().TerminalControl();
  if (terminal) {
    StoreTerminal(*terminal);
    StoreTitle();
    StoreFont(*terminal);
    StoreColours(*terminal);
    AskToSaveSettings();
  }
  Unload();
}

}  // namespace quorvel

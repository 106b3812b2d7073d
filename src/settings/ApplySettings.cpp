#include "settings/ApplySettings.h"

#include "link/HandOvers.h"
#include "link/SessionState.h"
#include "platform/Numbers.h"
#include "platform/PlainText.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/TerminalControl.h"

namespace quorvel {
namespace {

// "True" and "False" in any case, or a number.
bool ToBool(const std::string& text) {
  const std::string lower = LowerCase(text);
  if (lower == "true") return true;
  if (lower == "false") return false;
  return ToNumber(text) != 0;
}

int ToColour(const std::string& text) {
  constexpr double kWhite = 0xFFFFFF;
  const double number = ToNumber(text);
  if (!(number >= 0 && number <= kWhite)) throw RuntimeError(Failure::Overflow);
  return static_cast<int>(number);
}

double ToPoints(const std::string& text) {
  constexpr double kSmallest = 1;
  constexpr double kLargest = 200;  // larger than any screen can use; guards the painter
  return std::clamp(ToNumber(text), kSmallest, kLargest);
}

void ApplyFont(Terminal& terminal) {
  const SessionState& s = Session();
  Font font = terminal.Font();
  if (!s.FontSize.empty()) font.size = ToPoints(s.FontSize);
  if (!s.FontBold.empty()) font.bold = ToBool(s.FontBold);
  if (!s.FontItalic.empty()) font.italic = ToBool(s.FontItalic);
  if (!s.FontName.empty()) font.name = s.FontName;
  terminal.Font = font;
}

void ApplyColours(Terminal& terminal) {
  const SessionState& s = Session();
  if (!s.BackColor.empty()) terminal.BackColor = ToColour(s.BackColor);
  if (!s.ForeColor.empty()) terminal.ForeColor = ToColour(s.ForeColor);
  if (!s.BoldColor.empty()) terminal.BoldColor = ToColour(s.BoldColor);
}

}  // namespace

void ApplySettings() {
  const SessionState& s = Session();
  Terminal* terminal = Ask().TerminalControl();
  if (!terminal) return;
  terminal->Enabled = true;
  terminal->TermType = ToInt16(s.TermType);
  terminal->Columns = s.Columns;
  terminal->Rows = s.Rows;
  terminal->BufferRows = s.BufferRows;
  terminal->KeyPad = s.KeyPad;
  terminal->CursorKeys = s.CursorKeys;
  ApplyFont(*terminal);
  ApplyColours(*terminal);
  Ask().FitTelnetWindow();
  terminal->PassThrough = s.PassThrough == 1;
  terminal->KeepScrolledView = true;
}

}  // namespace quorvel

#include <string>

#include "platform/vt/Functions.h"

namespace quorvel::vt::functions {

// A VT220 with 132 columns, printer, selective erase, user-defined keys and national sets. It
// leaves out "7" (soft character sets), which this terminal receives but can't show. A VT100 has
// the advanced video option.
void DeviceAttributes(Machine& m, Arguments a) {
  if (a.ValueAt(0) != 0) return;
  m.AnswerCsi(m.type >= TerminalType::VT220_7 ? "?62;1;2;6;8;9c" : "?1;2c");
}

// VT220, firmware 1.0, no options.
void SecondaryAttributes(Machine& m, Arguments a) {
  if (a.ValueAt(0) == 0) m.AnswerCsi(">1;10;0c");
}

void StatusReport(Machine& m, Arguments a) {
  if (a.ValueAt(0) == 5) m.AnswerCsi("0n");  // no malfunction
  if (a.ValueAt(0) == 6) {
    const int row = m.screen.cursorRow - (m.modes.origin ? m.top : 0) + 1;
    m.AnswerCsi(std::to_string(row) + ";" + std::to_string(m.screen.cursorColumn + 1) + "R");
  }
}

void PrivateStatusReport(Machine& m, Arguments a) {
  switch (a.ValueAt(0)) {
    case 15:  // printer: ready, or none there
      return m.AnswerCsi(m.printer.allowed ? "?10n" : "?13n");
    case 25:  // user-defined keys: locked or not
      if (m.level == Level::Vt220) m.AnswerCsi(m.userKeys.Locked() ? "?21n" : "?20n");
      return;
    case 26:  // keyboard: North American
      if (m.level == Level::Vt220) m.AnswerCsi("?27;1n");
      return;
    default:
      return;
  }
}

// Of the VT100: no parity, 8 bits, 19200 bits a second both ways, clock multiplier 1.
void TerminalParameters(Machine& m, Arguments a) {
  const int request = a.ValueAt(0);
  if (m.level != Level::Vt100 || request > 1) return;
  m.AnswerCsi(std::to_string(request + 2) + ";1;1;120;120;1;0x");
}

void MediaCopy(Machine& m, Arguments a) {
  if (a.ValueAt(0) == 0) m.PrintScreen();
  if (a.ValueAt(0) == 5) m.printer.StartController(false);
}

// The line that is printed alone stays with the job that is open: others will follow.
void PrivateMediaCopy(Machine& m, Arguments a) {
  switch (a.ValueAt(0)) {
    case 1:
      return m.PrintLine(m.screen.cursorRow);
    case 4:
      if (m.printer.autoPrint) m.printer.End();
      m.printer.autoPrint = false;
      return;
    case 5:
      m.printer.autoPrint = true;
      return;
    default:
      return;
  }
}

}  // namespace quorvel::vt::functions

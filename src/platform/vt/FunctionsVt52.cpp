#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/vt/Functions.h"

namespace quorvel::vt::functions {
namespace {

struct Vt52Row {
  char final;
  std::string_view name;
  void (*handler)(Machine& m);
};

template <void (*kFunction)(Machine&, Arguments)>
void Plain(Machine& m) {
  kFunction(m, Sequence{});
}

void Graphics(Machine& m) {
  m.SetVt52Graphics(true);
}
void NoGraphics(Machine& m) {
  m.SetVt52Graphics(false);
}
void CursorHome(Machine& m) {
  m.MoveTo(0, 0);
}
void IdentifyVt52(Machine& m) {
  m.Answer("\x1B/Z");
}
// A VT220 goes into VT100 mode by it, whatever mode it came from.
void EnterAnsi(Machine& m) {
  m.EnterLevel(Level::Vt100);
}

void AutoPrintOn(Machine& m) {
  m.printer.autoPrint = true;
}
void AutoPrintOff(Machine& m) {
  if (m.printer.autoPrint) m.printer.End();
  m.printer.autoPrint = false;
}
void ControllerOn(Machine& m) {
  m.printer.StartController(true);
}
void PrintTheScreen(Machine& m) {
  m.PrintScreen();
}
void PrintTheLine(Machine& m) {
  m.PrintLine(m.screen.cursorRow);
}

// VT220 programmer reference, VT52 mode control codes.
constexpr Vt52Row kRows[] = {
    {'A', "cursor up", Plain<CursorUp>},
    {'B', "cursor down", Plain<CursorDown>},
    {'C', "cursor right", Plain<CursorForward>},
    {'D', "cursor left", Plain<CursorBackward>},
    {'F', "enter graphics mode", Graphics},
    {'G', "exit graphics mode", NoGraphics},
    {'H', "cursor to home", CursorHome},
    {'I', "reverse line feed", ReverseIndex},
    {'J', "erase to end of screen", Plain<EraseInDisplay>},
    {'K', "erase to end of line", Plain<EraseInLine>},
    {'V', "print cursor line", PrintTheLine},
    {'W', "enter printer controller mode", ControllerOn},
    {'Z', "identify", IdentifyVt52},
    {']', "print screen", PrintTheScreen},
    {'^', "enter autoprint mode", AutoPrintOn},
    {'_', "exit autoprint mode", AutoPrintOff},
    {'<', "enter ANSI mode", EnterAnsi},
    {'=', "alternate keypad mode", Plain<ApplicationKeypad>},
    {'>', "exit alternate keypad mode", Plain<NumericKeypad>},
};

}  // namespace

void Vt52(Machine& m, char final, int row, int column) {
  if (final == 'Y') {
    // A line beyond the screen leaves the cursor in its line; a column beyond it is the last one.
    m.MoveTo(row < m.screen.Rows() ? row : m.screen.cursorRow, column);
    return;
  }
  const auto* const found = std::ranges::find(kRows, final, &Vt52Row::final);
  if (found != std::end(kRows)) found->handler(m);
}

}  // namespace quorvel::vt::functions

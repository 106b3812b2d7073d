#include "platform/vt/Functions.h"

namespace quorvel::vt::functions {

void Bell(Machine& m) {
  constexpr int kMany = 1000000;  // nobody listens to more of them
  if (m.bells < kMany) ++m.bells;
}

void Backspace(Machine& m) {
  m.MoveTo(m.screen.cursorRow, m.screen.cursorColumn - 1);
}

// To the next tab stop or, without one, the last column. As on a real VT220 this ends a pending
// wrap.
void Tab(Machine& m) {
  int column = m.screen.cursorColumn;
  const int last = m.LastColumn();
  do {
    ++column;
  } while (column < last && !m.tabs[static_cast<std::size_t>(column)]);
  m.MoveTo(m.screen.cursorRow, column);
}

void LineFeed(Machine& m) {
  m.LineFeed();
}

// A VT takes it for a line feed. Without emulation it is what it is on a teletype's screen: a new
// page.
void FormFeed(Machine& m) {
  if (m.level != Level::Plain) return m.LineFeed();
  for (int row = 0; row < m.screen.Rows(); ++row) m.screen.ClearRow(row);
  m.MoveTo(0, 0);
}

void CarriageReturn(Machine& m) {
  m.MoveTo(m.screen.cursorRow, 0);
}

void ShiftOut(Machine& m) {
  m.sets.LockLeft(1);
}
void ShiftIn(Machine& m) {
  m.sets.LockLeft(0);
}

void Substitute(Machine& m) {
  m.PutGlyph(kErrorGlyph);
}

void Index(Machine& m) {
  m.Index();
}

void NextLine(Machine& m) {
  m.Index();
  m.MoveTo(m.screen.cursorRow, 0);
}

void SetTab(Machine& m) {
  m.tabs[static_cast<std::size_t>(m.screen.cursorColumn)] = true;
}

void ReverseIndex(Machine& m) {
  m.ReverseIndex();
}

void SingleShift2(Machine& m) {
  m.sets.ShiftOnce(2);
}
void SingleShift3(Machine& m) {
  m.sets.ShiftOnce(3);
}

void Identify(Machine& m) {
  DeviceAttributes(m, Sequence{});
}

}  // namespace quorvel::vt::functions

#include <algorithm>

#include "platform/vt/Functions.h"

namespace quorvel::vt::functions {
namespace {

// To a row and column as the host counts them, from 1; in origin mode from the top margin and not
// beyond the margins.
void MoveToAddress(Machine& m, int row, int column) {
  if (m.modes.origin) {
    m.MoveTo(std::min(m.top + row - 1, m.bottom), column - 1);
  } else {
    m.MoveTo(row - 1, column - 1);
  }
}

}  // namespace

// The cursor stops at the top margin when it comes from below it (CUU), and likewise at the bottom
// margin (CUD).
void CursorUp(Machine& m, Arguments a) {
  const int stop = m.screen.cursorRow >= m.top ? m.top : 0;
  m.MoveTo(std::max(m.screen.cursorRow - a.CountAt(0), stop), m.screen.cursorColumn);
}

void CursorDown(Machine& m, Arguments a) {
  const int stop = m.screen.cursorRow <= m.bottom ? m.bottom : m.screen.Rows() - 1;
  m.MoveTo(std::min(m.screen.cursorRow + a.CountAt(0), stop), m.screen.cursorColumn);
}

void CursorForward(Machine& m, Arguments a) {
  m.MoveTo(m.screen.cursorRow, m.screen.cursorColumn + a.CountAt(0));
}

void CursorBackward(Machine& m, Arguments a) {
  m.MoveTo(m.screen.cursorRow, m.screen.cursorColumn - a.CountAt(0));
}

void CursorNextLine(Machine& m, Arguments a) {
  CursorDown(m, a);
  m.MoveTo(m.screen.cursorRow, 0);
}

void CursorPreviousLine(Machine& m, Arguments a) {
  CursorUp(m, a);
  m.MoveTo(m.screen.cursorRow, 0);
}

void CursorColumn(Machine& m, Arguments a) {
  m.MoveTo(m.screen.cursorRow, a.CountAt(0) - 1);
}

void CursorRow(Machine& m, Arguments a) {
  MoveToAddress(m, a.CountAt(0), m.screen.cursorColumn + 1);
}

void CursorPosition(Machine& m, Arguments a) {
  MoveToAddress(m, a.CountAt(0), a.CountAt(1));
}

void TabForward(Machine& m, Arguments a) {
  for (int i = std::min(a.CountAt(0), m.screen.Columns()); i > 0; --i) Tab(m);
}

void TabBackward(Machine& m, Arguments a) {
  int column = m.screen.cursorColumn;
  for (int i = std::min(a.CountAt(0), m.screen.Columns()); i > 0 && column > 0; --i) {
    do {
      --column;
    } while (column > 0 && !m.tabs[static_cast<std::size_t>(column)]);
  }
  m.MoveTo(m.screen.cursorRow, column);
}

void ClearTabs(Machine& m, Arguments a) {
  if (a.ValueAt(0) == 0) m.tabs[static_cast<std::size_t>(m.screen.cursorColumn)] = false;
  if (a.ValueAt(0) == 3) m.tabs.reset();
}

// A region has at least two lines; anything else is ignored.
void SetMargins(Machine& m, Arguments a) {
  const int rows = m.screen.Rows();
  const int top = a.CountAt(0);
  const int bottom = a.ValueAt(1) == 0 ? rows : std::min(a.ValueAt(1), rows);
  if (top >= bottom) return;
  m.top = top - 1;
  m.bottom = bottom - 1;
  m.Home();
}

void SaveCursor(Machine& m, Arguments) {
  m.saved = {m.screen.cursorRow, m.screen.cursorColumn, m.screen.lastColumn,
             m.modes.origin,     m.ink.attributes,      m.sets};
}

// The pending wrap comes back with the cursor (DEC STD 070); autowrap mode itself is not saved.
void RestoreCursor(Machine& m, Arguments) {
  m.modes.origin = m.saved.origin;
  m.ink.attributes = m.saved.pen;
  m.sets = m.saved.sets;
  m.MoveTo(m.saved.row, m.saved.column);
  if (m.modes.origin) {
    m.MoveTo(std::clamp(m.saved.row, m.top, m.bottom), m.saved.column);
  }
  m.screen.lastColumn = m.saved.lastColumn && m.screen.cursorColumn == m.LastColumn();
}

}  // namespace quorvel::vt::functions

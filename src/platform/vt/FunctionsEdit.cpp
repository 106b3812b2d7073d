#include <algorithm>

#include "platform/vt/Functions.h"

namespace quorvel::vt::functions {
namespace {

// All of these end a pending wrap although the cursor stays (DEC STD 070; so does a real VT220).
void EndWrap(Machine& m) {
  m.screen.lastColumn = false;
}

// What ED and EL cover, by their parameter: [from, to) of the cursor's line, and whole rows.
struct Extent {
  int from, to;            // columns of the cursor's line
  int firstRow, afterRow;  // other rows, all of them
};

Extent LineExtent(const Machine& m, int what) {
  const Screen& s = m.screen;
  switch (what) {
    case 0:
      return {s.cursorColumn, s.Columns(), 0, 0};
    case 1:
      return {0, s.cursorColumn + 1, 0, 0};
    case 2:
      return {0, s.Columns(), 0, 0};
    default:
      return {0, 0, 0, 0};
  }
}

Extent DisplayExtent(const Machine& m, int what) {
  Extent extent = LineExtent(m, what);
  const Screen& s = m.screen;
  if (what == 0) extent.firstRow = s.cursorRow + 1;
  if (what == 0 || what == 2) extent.afterRow = s.Rows();
  if (what == 1) extent.afterRow = s.cursorRow;
  // From the first column on, the cursor's line is erased as a whole.
  if (what == 0 && s.cursorColumn == 0) extent.firstRow = s.cursorRow;
  return extent;
}

void SetLine(Machine& m, LineAttribute attribute) {
  m.screen.SetLineAttribute(m.screen.cursorRow, attribute);
  if (m.screen.cursorColumn > m.LastColumn()) m.MoveTo(m.screen.cursorRow, m.LastColumn());
}

}  // namespace

void InsertCharacters(Machine& m, Arguments a) {
  EndWrap(m);
  m.screen.InsertCells(m.screen.cursorRow, m.screen.cursorColumn, a.CountAt(0));
}

void DeleteCharacters(Machine& m, Arguments a) {
  EndWrap(m);
  m.screen.DeleteCells(m.screen.cursorRow, m.screen.cursorColumn, a.CountAt(0));
}

void EraseCharacters(Machine& m, Arguments a) {
  EndWrap(m);
  const int column = m.screen.cursorColumn;
  m.screen.Erase(m.screen.cursorRow, column, column + a.CountAt(0));
}

// Outside the margins nothing is inserted or deleted; within them the cursor goes to the line's
// beginning (ECMA-48, 8.3.67 and 8.3.32).
void InsertLines(Machine& m, Arguments a) {
  if (!m.InMargins()) return;
  m.screen.ScrollDown(m.screen.cursorRow, m.bottom, a.CountAt(0));
  m.MoveTo(m.screen.cursorRow, 0);
}

void DeleteLines(Machine& m, Arguments a) {
  if (!m.InMargins()) return;
  m.screen.ScrollUp(m.screen.cursorRow, m.bottom, a.CountAt(0));
  m.MoveTo(m.screen.cursorRow, 0);
}

// Lines that are erased as a whole become single-width.
void EraseInDisplay(Machine& m, Arguments a) {
  EndWrap(m);
  const Extent extent = DisplayExtent(m, a.ValueAt(0));
  m.screen.Erase(m.screen.cursorRow, extent.from, extent.to);
  for (int row = extent.firstRow; row < extent.afterRow; ++row) m.screen.ClearRow(row);
}

void EraseInLine(Machine& m, Arguments a) {
  EndWrap(m);
  const Extent extent = LineExtent(m, a.ValueAt(0));
  m.screen.Erase(m.screen.cursorRow, extent.from, extent.to);
}

void SelectiveEraseInDisplay(Machine& m, Arguments a) {
  EndWrap(m);
  const Extent extent = DisplayExtent(m, a.ValueAt(0));
  m.screen.EraseErasable(m.screen.cursorRow, extent.from, extent.to);
  for (int row = extent.firstRow; row < extent.afterRow; ++row) {
    m.screen.EraseErasable(row, 0, m.screen.Columns());
  }
}

void SelectiveEraseInLine(Machine& m, Arguments a) {
  EndWrap(m);
  const Extent extent = LineExtent(m, a.ValueAt(0));
  m.screen.EraseErasable(m.screen.cursorRow, extent.from, extent.to);
}

void ScrollUp(Machine& m, Arguments a) {
  m.ScrollRegionUp(a.CountAt(0));
}
void ScrollDown(Machine& m, Arguments a) {
  m.screen.ScrollDown(m.top, m.bottom, a.CountAt(0));
}

void DoubleHeightTop(Machine& m, Arguments) {
  SetLine(m, LineAttribute::DoubleHeightTop);
}
void DoubleHeightBottom(Machine& m, Arguments) {
  SetLine(m, LineAttribute::DoubleHeightBottom);
}
void SingleWidth(Machine& m, Arguments) {
  SetLine(m, LineAttribute::SingleWidth);
}
void DoubleWidth(Machine& m, Arguments) {
  SetLine(m, LineAttribute::DoubleWidth);
}

// Fills the screen with "E" for adjusting the picture; margins go to the extremes.
void AlignmentPattern(Machine& m, Arguments) {
  m.top = 0;
  m.bottom = m.screen.Rows() - 1;
  for (int row = 0; row < m.screen.Rows(); ++row) {
    m.screen.ClearRow(row);
    std::fill_n(m.screen.Overwrite(row, 0, m.screen.Columns()), m.screen.Columns(),
                Cell{'E', Attributes{}});
  }
  m.MoveTo(0, 0);
}

}  // namespace quorvel::vt::functions

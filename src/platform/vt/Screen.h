#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "platform/vt/Cell.h"

namespace quorvel::vt {

// Sizes beyond these are cut back: the settings end at 132 columns and 100 rows, and a bound keeps
// what one control function can cost small.
constexpr int kMinColumns = 2;  // half of it must still be a column on double-width lines
constexpr int kMaxColumns = 255;
constexpr int kMinRows = 1;
constexpr int kMaxRows = 128;

// What has changed since it was last asked for.
struct DirtyRows {
  std::array<std::uint64_t, kMaxRows / 64> bits{};  // one a screen row
  std::int64_t scrolledOff = 0;                     // lines that went into the scroll-back
  std::int64_t dropped = 0;  // oldest scroll-back lines that are gone: indices moved down by it
  bool resized = false;      // columns, rows or the count of scroll-back lines by a setting

  bool Has(int row) const {
    return (bits[static_cast<unsigned>(row) / 64] >> (static_cast<unsigned>(row) % 64) & 1) != 0;
  }
  bool Any() const {
    return bits != decltype(bits){} || scrolledOff != 0 || dropped != 0 || resized;
  }
};

// What the terminal shows: a grid of cells, an attribute a line, the cursor. A value: two screens
// are equal when they show the same and the next character would do the same to both. Rows and
// columns count from 0. Rows are moved by their index only, so scrolling copies no cells.
class Screen {
 public:
  Screen(int columns, int rows);  // clamped to the limits above

  int Columns() const { return columns_; }
  int Rows() const { return static_cast<int>(rows_.size()); }
  std::span<const Cell> Row(int row) const;
  const Cell& CellAt(int row, int column) const { return CellsOf(row)[column]; }
  LineAttribute LineAttributeAt(int row) const { return StateOf(row).attribute; }
  // Whether the line goes on in the next one because the text ran over its end.
  bool Wrapped(int row) const { return StateOf(row).wrapped; }
  // Columns that the line can show: half as many on double-width lines.
  int Width(int row) const {
    return LineAttributeAt(row) == LineAttribute::SingleWidth ? columns_ : columns_ / 2;
  }
  int CursorRow() const { return cursorRow; }
  int CursorColumn() const { return cursorColumn; }
  bool CursorVisible() const { return cursorVisible; }
  bool ReverseScreen() const { return reverseScreen_; }
  bool operator==(const Screen& other) const;

  // --- for the control functions; arguments are within the screen unless told otherwise
  int cursorRow = 0;
  int cursorColumn = 0;
  // The last-column flag: the cursor stands on the last column and the next character wraps first.
  bool lastColumn = false;
  bool cursorVisible = true;

  void SetReverseScreen(bool on);
  // `count` cells from `column` on, to be overwritten.
  Cell* Overwrite(int row, int column, int count) {
    RowState& state = StateOf(row);
    state.used = static_cast<std::uint8_t>(std::max<int>(state.used, column + count));
    state.dirty = true;
    return cells_.data() + state.first + column;
  }
  // Cells before this column may be other than blank; those behind are blank.
  int UsedColumns(int row) const { return StateOf(row).used; }
  bool IsBlank(int row) const;
  void Erase(int row, int from, int to);          // [from, to), any order or size
  void EraseErasable(int row, int from, int to);  // spares protected cells, keeps attributes
  void InsertCells(int row, int column, int count);
  void DeleteCells(int row, int column, int count);
  void ScrollUp(int top, int bottom, int count);    // blank lines come in at the bottom
  void ScrollDown(int top, int bottom, int count);  // blank lines come in at the top
  void ClearRow(int row);                           // blank and of single width
  void SetLineAttribute(int row, LineAttribute attribute);
  void SetWrapped(int row, bool wrapped) { StateOf(row).wrapped = wrapped; }
  // Takes `dropTop` rows away at the top, then cuts or extends at the bottom and on the right.
  void Resize(int columns, int rows, int dropTop);
  void MarkAll();
  std::array<std::uint64_t, kMaxRows / 64> TakeDirtyBits();

 private:
  // Without defaults: std::rotate moves only plain data at once.
  struct RowState {
    std::uint32_t first;  // where in cells_ the row begins
    std::uint8_t used;
    LineAttribute attribute;
    bool wrapped;
    bool dirty;
  };
  static_assert(kMaxColumns <= std::numeric_limits<std::uint8_t>::max());

  const RowState& StateOf(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  RowState& StateOf(int row) { return rows_[static_cast<std::size_t>(row)]; }
  const Cell* CellsOf(int row) const { return cells_.data() + StateOf(row).first; }
  Cell* CellsOf(int row) { return cells_.data() + StateOf(row).first; }
  void Mark(int row) { StateOf(row).dirty = true; }
  void MarkRange(int first, int last);
  void Blank(RowState& state);

  int columns_;
  std::vector<RowState> rows_;
  std::vector<Cell> cells_;
  bool reverseScreen_ = false;
  // Rows that were changed many at once, as by scrolling; those changed alone are marked in their
  // state. (Measured: one place for both costs a fifth of either.)
  std::array<std::uint64_t, kMaxRows / 64> dirtyRanges_{};
};

}  // namespace quorvel::vt

#include "platform/vt/Screen.h"

#include <algorithm>

namespace quorvel::vt {
namespace {

// To be copied from: quicker than a loop over cells of several members.
constexpr std::array<Cell, kMaxColumns> kBlankRow{};

}  // namespace

Screen::Screen(int columns, int rows) : columns_(std::clamp(columns, kMinColumns, kMaxColumns)) {
  const auto count = static_cast<std::size_t>(std::clamp(rows, kMinRows, kMaxRows));
  cells_.resize(count * static_cast<std::size_t>(columns_));
  for (std::size_t row = 0; row < count; ++row) {
    const auto first = static_cast<std::uint32_t>(row * static_cast<std::size_t>(columns_));
    rows_.push_back({first, 0, LineAttribute::SingleWidth, false, true});
  }
}

std::span<const Cell> Screen::Row(int row) const {
  return {CellsOf(row), static_cast<std::size_t>(columns_)};
}

bool Screen::operator==(const Screen& other) const {
  if (columns_ != other.columns_ || Rows() != other.Rows() || cursorRow != other.cursorRow ||
      cursorColumn != other.cursorColumn || lastColumn != other.lastColumn ||
      cursorVisible != other.cursorVisible || reverseScreen_ != other.reverseScreen_) {
    return false;
  }
  for (int row = 0; row < Rows(); ++row) {
    if (LineAttributeAt(row) != other.LineAttributeAt(row) || Wrapped(row) != other.Wrapped(row) ||
        !std::ranges::equal(Row(row), other.Row(row))) {
      return false;
    }
  }
  return true;
}

void Screen::SetReverseScreen(bool on) {
  if (on == reverseScreen_) return;
  reverseScreen_ = on;
  MarkAll();
}

bool Screen::IsBlank(int row) const {
  const Cell* cells = CellsOf(row);
  return std::all_of(cells, cells + UsedColumns(row),
                     [](const Cell& cell) { return cell == kBlankCell; });
}

void Screen::Erase(int row, int from, int to) {
  RowState& state = StateOf(row);
  const int end = std::min<int>(to, state.used);
  from = std::max(from, 0);
  state.wrapped = state.wrapped && to < columns_;
  if (from >= end) return;
  std::copy_n(kBlankRow.begin(), end - from, CellsOf(row) + from);
  if (end == state.used) state.used = static_cast<std::uint8_t>(from);
  Mark(row);
}

void Screen::EraseErasable(int row, int from, int to) {
  Cell* cells = CellsOf(row);
  const int end = std::min<int>(to, UsedColumns(row));
  for (int column = std::max(from, 0); column < end; ++column) {
    if (!cells[column].attributes.isProtected()) cells[column].glyph = ' ';
  }
  Mark(row);
}

void Screen::InsertCells(int row, int column, int count) {
  const int width = Width(row);
  count = std::min(count, width - column);
  RowState& state = StateOf(row);
  if (count <= 0 || state.used <= column) return;
  Cell* cells = CellsOf(row);
  std::move_backward(cells + column, cells + width - count, cells + width);
  std::fill(cells + column, cells + column + count, kBlankCell);
  state.used = static_cast<std::uint8_t>(std::min(width, state.used + count));
  Mark(row);
}

void Screen::DeleteCells(int row, int column, int count) {
  const int width = Width(row);
  count = std::min(count, width - column);
  if (count <= 0 || UsedColumns(row) <= column) return;
  Cell* cells = CellsOf(row);
  std::move(cells + column + count, cells + width, cells + column);
  std::fill(cells + width - count, cells + width, kBlankCell);
  Mark(row);
}

void Screen::Blank(RowState& state) {
  std::copy_n(kBlankRow.begin(), state.used, cells_.data() + state.first);
  state.used = 0;
  state.attribute = LineAttribute::SingleWidth;
  state.wrapped = false;
}

void Screen::ScrollUp(int top, int bottom, int count) {
  count = std::min(count, bottom - top + 1);
  if (count <= 0) return;
  std::rotate(rows_.begin() + top, rows_.begin() + top + count, rows_.begin() + bottom + 1);
  for (int row = bottom - count + 1; row <= bottom; ++row) Blank(StateOf(row));
  MarkRange(top, bottom);
}

void Screen::ScrollDown(int top, int bottom, int count) {
  count = std::min(count, bottom - top + 1);
  if (count <= 0) return;
  std::rotate(rows_.begin() + top, rows_.begin() + bottom + 1 - count, rows_.begin() + bottom + 1);
  for (int row = top; row < top + count; ++row) Blank(StateOf(row));
  MarkRange(top, bottom);
}

void Screen::ClearRow(int row) {
  Blank(StateOf(row));
  Mark(row);
}

void Screen::SetLineAttribute(int row, LineAttribute attribute) {
  if (LineAttributeAt(row) == attribute) return;
  // What stood right of the middle is lost when a line becomes wide (VT220 manual, DECDWL).
  if (attribute != LineAttribute::SingleWidth) Erase(row, columns_ / 2, columns_);
  StateOf(row).attribute = attribute;
  Mark(row);
}

void Screen::Resize(int columns, int rows, int dropTop) {
  Screen fresh(columns, rows);
  const int keptColumns = std::min(columns_, fresh.columns_);
  const int keptRows = std::min(Rows() - dropTop, fresh.Rows());
  for (int row = 0; row < keptRows; ++row) {
    const RowState& from = StateOf(row + dropTop);
    RowState& to = fresh.StateOf(row);
    to.used = static_cast<std::uint8_t>(std::min<int>(from.used, keptColumns));
    to.attribute = from.attribute;
    to.wrapped = from.wrapped && fresh.columns_ == columns_;
    std::copy_n(CellsOf(row + dropTop), keptColumns, fresh.CellsOf(row));
    if (to.attribute != LineAttribute::SingleWidth) {
      fresh.Erase(row, fresh.columns_ / 2, fresh.columns_);
    }
  }
  fresh.cursorRow = std::clamp(cursorRow - dropTop, 0, fresh.Rows() - 1);
  fresh.cursorColumn = std::min(cursorColumn, fresh.Width(fresh.cursorRow) - 1);
  fresh.cursorVisible = cursorVisible;
  fresh.reverseScreen_ = reverseScreen_;
  *this = std::move(fresh);
}

void Screen::MarkAll() {
  MarkRange(0, Rows() - 1);
}

void Screen::MarkRange(int first, int last) {
  for (unsigned word = 0; word < dirtyRanges_.size(); ++word) {
    const int low = std::max(first - static_cast<int>(word) * 64, 0);
    const int high = std::min(last - static_cast<int>(word) * 64, 63);
    if (low > high) continue;
    dirtyRanges_[word] |= (~std::uint64_t{0} >> (63 - (high - low))) << low;
  }
}

std::array<std::uint64_t, kMaxRows / 64> Screen::TakeDirtyBits() {
  auto bits = std::exchange(dirtyRanges_, {});
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    bits[row / 64] |= std::uint64_t{std::exchange(rows_[row].dirty, false)} << row % 64;
  }
  return bits;
}

}  // namespace quorvel::vt

#include "platform/qt/TerminalSelection.h"

#include <algorithm>

namespace quorvel {

bool TerminalSelection::Contains(int line, int column) const {
  if (unit_ == Unit::Rectangle) {
    return line >= from_.line && line <= to_.line && column >= from_.column && column < to_.column;
  }
  const Place cell{line, column};
  return cell >= from_ && cell < to_;
}

void TerminalSelection::Begin(Place place, Unit unit) {
  unit_ = unit;
  anchor_ = place;
  Extend(place);
}

void TerminalSelection::Extend(Place place) {
  if (!anchor_) return;
  if (unit_ == Unit::Rectangle) {
    from_ = {std::min(anchor_->line, place.line), std::min(anchor_->column, place.column)};
    to_ = {std::max(anchor_->line, place.line), std::max(anchor_->column, place.column)};
    return;
  }
  from_ = UnitStart(std::min(*anchor_, place));
  to_ = UnitEnd(std::max(*anchor_, place));
}

void TerminalSelection::Set(Place from, Place to) {
  unit_ = Unit::Character;
  anchor_ = from;
  from_ = std::min(from, to);
  to_ = std::max(from, to);
}

void TerminalSelection::Clear() {
  anchor_.reset();
  from_ = to_ = Place{};
  reported_.clear();
}

void TerminalSelection::LinesDropped(int count) {
  const bool gone = from_.line < count;
  from_.line -= count;
  to_.line -= count;
  if (anchor_) anchor_->line -= count;
  if (gone) Clear();
}

TerminalSelection::Place TerminalSelection::UnitStart(Place place) const {
  if (unit_ == Unit::Line) return {place.line, 0};
  if (unit_ == Unit::Character) return place;
  const std::string text = emulation_.LineText(place.line);
  auto column = static_cast<std::size_t>(std::max(0, place.column));
  while (column > 0 && column <= text.size() && text[column - 1] != ' ') --column;
  return {place.line, static_cast<int>(column)};
}

TerminalSelection::Place TerminalSelection::UnitEnd(Place place) const {
  if (unit_ == Unit::Line) return {place.line, emulation_.screen().Columns()};
  if (unit_ == Unit::Character) return place;
  const std::string text = emulation_.LineText(place.line);
  auto column = static_cast<std::size_t>(std::max(0, place.column));
  while (column < text.size() && text[column] != ' ') ++column;
  return {place.line, static_cast<int>(column)};
}

std::string TerminalSelection::Lines() const {
  std::string text;
  for (int line = from_.line; line <= to_.line; ++line) {
    if (line > from_.line) text += "\r\n";
    const std::string whole = emulation_.LineText(line);
    if (unit_ == Unit::Rectangle) {
      const auto left = std::min(static_cast<std::size_t>(from_.column), whole.size());
      text += whole.substr(left, static_cast<std::size_t>(to_.column - from_.column));
    } else {
      text += whole;
    }
  }
  return text;
}

bool TerminalSelection::StillShown() const {
  return IsEmpty() || Lines() == reported_;
}

Terminal::Selection TerminalSelection::Report() {
  if (IsEmpty()) {
    reported_.clear();
    return {};
  }
  constexpr int kLineEnd = 2;  // CR LF
  const int whole = emulation_.screen().Columns() + kLineEnd;
  reported_ = Lines();
  if (unit_ == Unit::Rectangle) return {1, static_cast<int>(reported_.size()), reported_};
  return {from_.column + 1, (to_.line - from_.line) * whole + to_.column - from_.column, reported_};
}

}  // namespace quorvel

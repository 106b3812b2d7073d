#include "platform/qt/TerminalSelection.h"

#include <algorithm>

namespace quorvel {

bool TerminalSelection::Contains(int line, int column) const {
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
    text += emulation_.LineText(line);
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
  return {from_.column + 1, (to_.line - from_.line) * whole + to_.column - from_.column, reported_};
}

}  // namespace quorvel

#pragma once

#include <optional>

#include "platform/controls/TerminalControl.h"

namespace quorvel {

// What the user has selected in a terminal: everything between two places, in reading order, or the
// rectangle that they span. Lines are absolute (0 is the oldest line of the scroll-back). Columns
// count characters of the line.
class TerminalSelection {
 public:
  // A place between characters: column 0 is ahead of the first one.
  struct Place {
    int line = 0;
    int column = 0;
    auto operator<=>(const Place&) const = default;
  };
  enum class Unit { Character, Word, Line, Rectangle };

  explicit TerminalSelection(const vt::Emulator& emulation) : emulation_(emulation) {}

  bool IsEmpty() const {
    return unit_ == Unit::Rectangle ? from_.column >= to_.column : !(from_ < to_);
  }
  bool Contains(int line, int column) const;
  Place From() const { return from_; }
  Place To() const { return to_; }

  // Selects the unit at `place`, from which Extend goes on; of characters and rectangles nothing at
  // first.
  void Begin(Place place, Unit unit);
  // Selects from where it began to `place`, whole units. Nothing before the first Begin.
  void Extend(Place place);
  void Set(Place from, Place to);
  void Clear();

  // The scroll-back has lost its oldest lines, so that indices have moved down.
  void LinesDropped(int count);
  // Whether the lines still read as they did when they were selected.
  bool StillShown() const;

  // What a terminal control reports: the lines touched, whole, and the part that is selected; of a
  // rectangle just what is in it, a line for each row.
  // Remembers the lines for StillShown.
  Terminal::Selection Report();

 private:
  Place UnitStart(Place place) const;
  Place UnitEnd(Place place) const;
  std::string Lines() const;

  const vt::Emulator& emulation_;
  Unit unit_ = Unit::Character;
  std::optional<Place> anchor_;
  Place from_;
  Place to_;
  std::string reported_;
};

}  // namespace quorvel

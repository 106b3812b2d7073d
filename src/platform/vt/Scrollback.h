#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/vt/Cell.h"

namespace quorvel::vt {

// A line of cells outside the screen.
struct Line {
  std::vector<Cell> cells;
  LineAttribute attribute = LineAttribute::SingleWidth;
  bool wrapped = false;  // its text goes on in the next line
};

// The lines that have left the screen at the top, oldest first, up to a limit. A line is stored
// without its trailing blanks, as runs of equal attributes (8 bytes each, none when all are
// default) and a byte a character (two where one is outside Latin-1). With the allocator's share an
// 80-column line in one attribute takes at most 48 bytes beyond its text.
class Scrollback {
 public:
  static constexpr int kMaxLines = 32767;

  // Clamped to 0 .. kMaxLines; the oldest lines go.
  void SetLimit(int lines);
  int Limit() const { return limit_; }
  int Count() const { return static_cast<int>(lines_.size()); }
  // Returns whether the oldest line had to go for it.
  bool Push(std::span<const Cell> cells, LineAttribute attribute, bool wrapped);
  // Line `index` from the oldest, 0 .. Count() - 1, cut or padded with blanks to `columns`.
  void Read(int index, int columns, Line& line) const;
  void Clear();

 private:
  struct Stored {
    std::unique_ptr<std::byte[]> bytes;  // runs, then glyphs; none for a blank line
    std::uint16_t length = 0;            // in cells
    std::uint16_t runs = 0;
    LineAttribute attribute = LineAttribute::SingleWidth;
    bool wide = false;  // two bytes a glyph
    bool wrapped = false;
  };

  static Stored Pack(std::span<const Cell> cells);

  int limit_ = 0;
  std::size_t oldest_ = 0;  // in lines_, once the limit is reached
  std::vector<Stored> lines_;
};

}  // namespace quorvel::vt

#include "platform/vt/Scrollback.h"

#include <algorithm>
#include <cstring>

namespace quorvel::vt {
namespace {

struct Run {
  std::uint16_t end;  // column behind the run
  Attributes attributes;
};
static_assert(sizeof(Run) == 8);

std::size_t TrimmedLength(std::span<const Cell> cells) {
  std::size_t length = cells.size();
  while (length > 0 && Bits(cells[length - 1]) == Bits(kBlankCell)) --length;
  return length;
}

// Which bits any two cells differ in, and which glyph bits are in use: decides the packing in one
// pass that the compiler can vectorise.
struct Survey {
  bool oneAttribute;
  bool wide;
};

Survey Look(std::span<const Cell> cells) {
  const std::uint64_t first = Bits(cells[0]);
  std::uint64_t differ = 0;
  std::uint64_t all = 0;
  for (const Cell& cell : cells) {
    differ |= Bits(cell) ^ first;
    all |= Bits(cell);
  }
  return {(differ & ~kGlyphBits) == 0, ((all >> kGlyphShift) & 0xFF00) != 0};
}

std::size_t CountRuns(std::span<const Cell> cells) {
  std::size_t runs = 1;
  for (std::size_t i = 1; i < cells.size(); ++i) {
    if (cells[i].attributes != cells[i - 1].attributes) ++runs;
  }
  return runs;
}

void WriteRuns(std::span<const Cell> cells, std::byte* out) {
  for (std::size_t i = 1; i <= cells.size(); ++i) {
    if (i < cells.size() && cells[i].attributes == cells[i - 1].attributes) continue;
    const Run run{static_cast<std::uint16_t>(i), cells[i - 1].attributes};
    std::memcpy(out, &run, sizeof run);
    out += sizeof run;
  }
}

void WriteGlyphs(std::span<const Cell> cells, bool wide, std::byte* out) {
  if (wide) {
    for (const Cell& cell : cells) {
      std::memcpy(out, &cell.glyph, sizeof cell.glyph);
      out += sizeof cell.glyph;
    }
    return;
  }
  for (const Cell& cell : cells) *out++ = static_cast<std::byte>(cell.glyph);
}

}  // namespace

Scrollback::Stored Scrollback::Pack(std::span<const Cell> cells) {
  Stored stored;
  cells = cells.first(TrimmedLength(cells));
  if (cells.empty()) return stored;
  const Survey survey = Look(cells);
  stored.length = static_cast<std::uint16_t>(cells.size());
  stored.wide = survey.wide;
  if (!survey.oneAttribute) {
    stored.runs = static_cast<std::uint16_t>(CountRuns(cells));
  } else if (cells[0].attributes != Attributes{}) {
    stored.runs = 1;
  }
  const std::size_t runBytes = stored.runs * sizeof(Run);
  stored.bytes.reset(new std::byte[runBytes + cells.size() * (survey.wide ? 2 : 1)]);
  if (stored.runs > 0) WriteRuns(cells, stored.bytes.get());
  WriteGlyphs(cells, survey.wide, stored.bytes.get() + runBytes);
  return stored;
}

void Scrollback::SetLimit(int lines) {
  limit_ = std::clamp(lines, 0, kMaxLines);
  std::rotate(lines_.begin(), lines_.begin() + static_cast<std::ptrdiff_t>(oldest_), lines_.end());
  oldest_ = 0;
  if (Count() > limit_) lines_.erase(lines_.begin(), lines_.end() - limit_);
  lines_.shrink_to_fit();
}

bool Scrollback::Push(std::span<const Cell> cells, LineAttribute attribute, bool wrapped) {
  if (limit_ == 0) return false;
  Stored stored = Pack(cells);
  stored.attribute = attribute;
  stored.wrapped = wrapped;
  if (Count() < limit_) {
    lines_.push_back(std::move(stored));
    return false;
  }
  lines_[oldest_] = std::move(stored);
  if (++oldest_ == lines_.size()) oldest_ = 0;
  return true;
}

void Scrollback::Read(int index, int columns, Line& line) const {
  line.cells.assign(static_cast<std::size_t>(columns), kBlankCell);
  const Stored& stored = lines_[(oldest_ + static_cast<std::size_t>(index)) % lines_.size()];
  line.attribute = stored.attribute;
  line.wrapped = stored.wrapped;
  const std::byte* runs = stored.bytes.get();
  const std::byte* glyphs = runs + stored.runs * sizeof(Run);
  const std::size_t count = std::min<std::size_t>(stored.length, line.cells.size());
  Run run{stored.length, {}};
  if (stored.runs > 0) std::memcpy(&run, runs, sizeof run);
  for (std::size_t i = 0; i < count; ++i) {
    if (i == run.end) std::memcpy(&run, runs += sizeof run, sizeof run);
    Cell& cell = line.cells[i];
    cell.attributes = run.attributes;
    if (stored.wide) {
      std::memcpy(&cell.glyph, glyphs + i * 2, sizeof cell.glyph);
    } else {
      cell.glyph = std::to_integer<std::uint16_t>(glyphs[i]);
    }
  }
}

void Scrollback::Clear() {
  lines_.clear();
  oldest_ = 0;
}

}  // namespace quorvel::vt

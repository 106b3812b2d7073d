#include "platform/qt/TerminalPainter.h"

#include "platform/qt/WidgetPeers.h"

namespace quorvel {
namespace {

constexpr int kWhite = 0xFFFFFF;
constexpr int kBlack = 0;

QColor PaletteColour(int index) {
  static constexpr QRgb kFirst[16] = {0x000000, 0xcd0000, 0x00cd00, 0xcdcd00, 0x3465c8, 0xcd00cd,
                                      0x00cdcd, 0xe5e5e5, 0x7f7f7f, 0xff0000, 0x00ff00, 0xffff00,
                                      0x5c8cff, 0xff00ff, 0x00ffff, 0xffffff};
  if (index < 16) return QColor(kFirst[index]);
  if (index >= 232) {
    const int grey = 8 + (index - 232) * 10;
    return QColor(grey, grey, grey);
  }
  const auto level = [](int step) { return step == 0 ? 0 : 55 + 40 * step; };
  const int cube = index - 16;
  return QColor(level(cube / 36), level(cube / 6 % 6), level(cube % 6));
}

QColor ColourOf(const vt::Colour& colour, const QColor& own) {
  switch (colour.kind()) {
    case vt::Colour::Kind::Palette:
      return PaletteColour(colour.index());
    case vt::Colour::Kind::Direct:
      return QColor(colour.red(), colour.green(), colour.blue());
    case vt::Colour::Kind::Default:
      break;
  }
  return own;
}

// The arms of a box-drawing character that reach from the middle of the cell to its edges.
enum Arm { kLeft = 1, kRight = 2, kUp = 4, kDown = 8 };

struct Box {
  char16_t glyph;
  int arms;
};
// The line drawing of the DEC special graphics set (VT220 Programmer Reference, table 2-4).
constexpr Box kBoxes[] = {
    {0x2518, kLeft | kUp},
    {0x2510, kLeft | kDown},
    {0x250C, kRight | kDown},
    {0x2514, kRight | kUp},
    {0x253C, kLeft | kRight | kUp | kDown},
    {0x2500, kLeft | kRight},
    {0x251C, kUp | kDown | kRight},
    {0x2524, kUp | kDown | kLeft},
    {0x2534, kLeft | kRight | kUp},
    {0x252C, kLeft | kRight | kDown},
    {0x2502, kUp | kDown},
};

}  // namespace

TerminalColours::TerminalColours(const Terminal& terminal)
    : fore_(ToQColor(terminal.ForeColor() < 0 ? kWhite : terminal.ForeColor())),
      back_(ToQColor(terminal.BackColor() < 0 ? kBlack : terminal.BackColor())),
      bold_(ToQColor(terminal.BoldColor())),
      reversed_(terminal.emulation().screen().ReverseScreen()) {}

TerminalColours::Pair TerminalColours::Of(const vt::Attributes& attributes) const {
  Pair pair{ColourOf(attributes.fore, attributes.bold() ? bold_ : fore_),
            ColourOf(attributes.back, back_)};
  if (attributes.reverse() != reversed_) std::swap(pair.fore, pair.back);
  return pair;
}

bool TerminalPainter::PaintLine(const QPoint& corner, const vt::Line& line,
                                const std::function<bool(int column)>& selected) const {
  bool blinks = false;
  const bool wide = line.attribute != vt::LineAttribute::SingleWidth;
  const int columns = static_cast<int>(line.cells.size()) / (wide ? 2 : 1);
  for (int from = 0; from < columns;) {
    const vt::Attributes& attributes = line.cells[static_cast<std::size_t>(from)].attributes;
    const bool chosen = selected(wide ? from * 2 : from);
    int to = from + 1;
    while (to < columns && line.cells[static_cast<std::size_t>(to)].attributes == attributes &&
           selected(wide ? to * 2 : to) == chosen) {
      ++to;
    }
    PaintRun(corner, line, from, to, chosen);
    blinks |= attributes.blink();
    from = to;
  }
  return blinks;
}

void TerminalPainter::PaintRun(const QPoint& corner, const vt::Line& line, int from, int to,
                               bool selected) const {
  const vt::Attributes& attributes = line.cells[static_cast<std::size_t>(from)].attributes;
  TerminalColours::Pair pair = colours_.Of(attributes);
  if (selected) std::swap(pair.fore, pair.back);
  painter_.save();
  painter_.translate(corner);
  if (line.attribute != vt::LineAttribute::SingleWidth) {
    painter_.setClipRect(QRect(0, 0, static_cast<int>(line.cells.size()) * width_, height_));
    const bool high = line.attribute != vt::LineAttribute::DoubleWidth;
    painter_.scale(2, high ? 2 : 1);
    if (line.attribute == vt::LineAttribute::DoubleHeightBottom)
      painter_.translate(0, -height_ / 2.0);
  }
  const QRect area(from * width_, 0, (to - from) * width_, height_);
  painter_.fillRect(area, pair.back);
  if (!attributes.invisible() && !(attributes.blink() && blinkOff_)) {
    painter_.setPen(pair.fore);
    PaintGlyphs(line, from, to);
    if (attributes.underline()) {
      const int y = std::min(ascent_ + 1, height_ - 1);
      painter_.fillRect(QRect(area.left(), y, area.width(), 1), pair.fore);
    }
  }
  painter_.restore();
}

void TerminalPainter::PaintGlyphs(const vt::Line& line, int from, int to) const {
  QString text;
  int start = from;
  const auto flush = [&](int column) {
    if (!text.isEmpty()) painter_.drawText(start * width_, ascent_, text);
    text.clear();
    start = column;
  };
  for (int column = from; column < to; ++column) {
    const char16_t glyph = line.cells[static_cast<std::size_t>(column)].glyph;
    if (glyph == ' ') {
      flush(column + 1);
      continue;
    }
    if (glyph >= 0x23BA && glyph <= 0x25FF) {
      flush(column + 1);
      if (DrawBox(glyph, QRect(column * width_, 0, width_, height_))) continue;
    }
    if (text.isEmpty()) start = column;
    text += QChar(glyph);
    if (glyph > 0x7E) flush(column + 1);  // its width in the font may differ
  }
  flush(to);
}

bool TerminalPainter::DrawBox(char16_t glyph, const QRect& cell) const {
  const QColor ink = painter_.pen().color();
  const int thick = std::max(1, height_ / 16);
  const int x = cell.left() + (cell.width() - thick) / 2;
  const int y = cell.top() + (cell.height() - thick) / 2;
  // Horizontal scan lines 1, 3, 7 and 9 of the set lie at ninths of the cell's height.
  if (glyph >= 0x23BA && glyph <= 0x23BD) {
    static constexpr int kNinths[] = {0, 2, 6, 8};
    const int top = cell.top() + kNinths[glyph - 0x23BA] * (height_ - thick) / 8;
    painter_.fillRect(QRect(cell.left(), top, cell.width(), thick), ink);
    return true;
  }
  for (const Box& box : kBoxes) {
    if (box.glyph != glyph) continue;
    const int right = cell.left() + cell.width();
    const int bottom = cell.top() + cell.height();
    if (box.arms & kLeft)
      painter_.fillRect(QRect(cell.left(), y, x + thick - cell.left(), thick), ink);
    if (box.arms & kRight) painter_.fillRect(QRect(x, y, right - x, thick), ink);
    if (box.arms & kUp) painter_.fillRect(QRect(x, cell.top(), thick, y + thick - cell.top()), ink);
    if (box.arms & kDown) painter_.fillRect(QRect(x, y, thick, bottom - y), ink);
    return true;
  }
  return false;
}

}  // namespace quorvel

#include "platform/qt/TerminalPainter.h"

#include <algorithm>
#include <vector>

#include "platform/qt/Looks.h"

namespace quorvel {
namespace {

constexpr int kWhite = 0xFFFFFF;
constexpr int kBlack = 0;

constexpr int kFirstBright = 8;  // the bright half of the 16 ANSI colours
constexpr int kFirstOfCube = 16;
constexpr int kFirstGrey = 232;

QColor PaletteColour(int index) {
  static constexpr QRgb kFirst[16] = {0x000000, 0xcd0000, 0x00cd00, 0xcdcd00, 0x3465c8, 0xcd00cd,
                                      0x00cdcd, 0xe5e5e5, 0x7f7f7f, 0xff0000, 0x00ff00, 0xffff00,
                                      0x5c8cff, 0xff00ff, 0x00ffff, 0xffffff};
  if (index < kFirstOfCube) return QColor(kFirst[index]);
  if (index >= kFirstGrey) {
    const int grey = 8 + (index - kFirstGrey) * 10;
    return QColor(grey, grey, grey);
  }
  const auto level = [](int step) { return step == 0 ? 0 : 55 + 40 * step; };
  const int cube = index - kFirstOfCube;
  return QColor(level(cube / 36), level(cube / 6 % 6), level(cube % 6));
}

QColor ColourOf(const vt::Colour& colour, const QColor& own, bool bright = false) {
  switch (colour.kind()) {
    case vt::Colour::Kind::Palette:
      return PaletteColour(bright && colour.index() < kFirstBright ? colour.index() + kFirstBright
                                                                   : colour.index());
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
constexpr char16_t kFirstDrawn = 0x2000;  // nothing below is drawn
constexpr char16_t kCheckerboard = 0x2592;
constexpr char16_t kFirstScanLine = 0x23BA;
constexpr char16_t kLastScanLine = 0x23BD;

// The pictures of control characters in the same set, which few fonts have: two letters each.
struct ControlPicture {
  char16_t glyph;
  const char* letters;
};
constexpr ControlPicture kControls[] = {{0x2409, "HT"}, {0x240A, "LF"}, {0x240B, "VT"},
                                        {0x240C, "FF"}, {0x240D, "CR"}, {0x2424, "NL"}};

const vt::Cell& CellOf(const vt::Line& line, int column) {
  return line.cells[static_cast<std::size_t>(column)];
}

}  // namespace

int ShownColumns(const vt::Line& line) {
  const int columns = static_cast<int>(line.cells.size());
  return line.attribute == vt::LineAttribute::SingleWidth ? columns : columns / 2;
}

TerminalColours::TerminalColours(const Terminal& terminal)
    : fore_(ToQColor(terminal.ForeColor() < 0 ? kWhite : terminal.ForeColor())),
      back_(ToQColor(terminal.BackColor() < 0 ? kBlack : terminal.BackColor())),
      bold_(ToQColor(terminal.BoldColor())),
      reversed_(terminal.emulation().screen().ReverseScreen()) {}

TerminalColours::Pair TerminalColours::Of(const vt::Attributes& attributes) const {
  Pair pair{ColourOf(attributes.fore, attributes.bold() ? bold_ : fore_, attributes.bold()),
            ColourOf(attributes.back, back_)};
  if (attributes.reverse() != reversed_) std::swap(pair.fore, pair.back);
  return pair;
}

bool TerminalColours::BoldByWeight(const vt::Attributes& attributes) const {
  return attributes.bold() && (!attributes.fore.IsDefault() || bold_ == fore_);
}

bool TerminalPainter::PaintLine(const QPoint& corner, const vt::Line& line,
                                const std::function<bool(int column)>& selected) const {
  bool blinks = false;
  const int columns = ShownColumns(line);
  for (int from = 0; from < columns;) {
    const vt::Attributes& attributes = CellOf(line, from).attributes;
    const bool chosen = selected(from);
    int to = from + 1;
    while (to < columns && CellOf(line, to).attributes == attributes && selected(to) == chosen) {
      ++to;
    }
    TerminalColours::Pair pair = colours_.Of(attributes);
    if (chosen) std::swap(pair.fore, pair.back);
    PaintRun(corner, line, from, to, pair, Ground::Bare);
    blinks |= attributes.blink();
    from = to;
  }
  return blinks;
}

void TerminalPainter::PaintCursor(const QPoint& corner, const vt::Line& line, int column,
                                  CursorShape shape) const {
  if (shape == CursorShape::None || column >= ShownColumns(line)) return;
  const int wide = line.attribute == vt::LineAttribute::SingleWidth ? 1 : 2;
  const QRect cell(corner.x() + column * wide * font_.CellWidth(), corner.y(),
                   wide * font_.CellWidth(), font_.CellHeight());
  TerminalColours::Pair pair = colours_.Of(CellOf(line, column).attributes);
  if (shape == CursorShape::Outline) {
    painter_.setPen(pair.fore);
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(cell.adjusted(0, 0, -1, -1));
    return;
  }
  std::swap(pair.fore, pair.back);
  PaintRun(corner, line, column, column + 1, pair, Ground::Painted);
}

// Coordinates inside are those of a line of single width; double sizes scale them.
void TerminalPainter::PaintRun(const QPoint& corner, const vt::Line& line, int from, int to,
                               const TerminalColours::Pair& pair, Ground ground) const {
  const vt::Attributes& attributes = CellOf(line, from).attributes;
  const int height = font_.CellHeight();
  const QRect area(0, 0, (to - from) * font_.CellWidth(), height);
  painter_.save();
  if (line.attribute == vt::LineAttribute::SingleWidth) {
    painter_.translate(corner.x() + from * font_.CellWidth(), corner.y());
  } else {
    painter_.translate(corner.x() + 2 * from * font_.CellWidth(), corner.y());
    painter_.setClipRect(QRect(0, 0, 2 * area.width(), height));
    painter_.scale(2, line.attribute == vt::LineAttribute::DoubleWidth ? 1 : 2);
    if (line.attribute == vt::LineAttribute::DoubleHeightBottom) {
      painter_.translate(0, -height / 2.0);
    }
  }
  if (ground != Ground::Bare || pair.back != colours_.Back()) painter_.fillRect(area, pair.back);
  if (!attributes.invisible() && !(attributes.blink() && blinkOff_)) {
    painter_.setPen(pair.fore);
    PaintText(line, from, to, colours_.BoldByWeight(attributes));
    if (attributes.underline()) {
      painter_.fillRect(QRect(0, std::min(font_.Ascent() + 1, height - 1), area.width(), 1),
                        pair.fore);
    }
  }
  painter_.restore();
}

void TerminalPainter::PaintText(const vt::Line& line, int from, int to, bool bold) const {
  std::vector<vt::Cell> cells(line.cells.begin() + from, line.cells.begin() + to);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const QRect cell(static_cast<int>(i) * font_.CellWidth(), 0, font_.CellWidth(),
                     font_.CellHeight());
    if (cells[i].glyph >= kFirstDrawn && DrawBox(cells[i].glyph, cell)) cells[i].glyph = ' ';
  }
  font_.Draw(painter_, cells, bold);
}

// Two letters in one cell, the first above and left of the second.
void TerminalPainter::DrawSmall(const char* letters, const QRect& cell) const {
  QFont font = painter_.font();
  font.setPixelSize(std::max(5, cell.height() / 2));
  painter_.setFont(font);
  const QSize half(cell.width(), cell.height() / 2);
  painter_.drawText(QRect(cell.topLeft(), half), Qt::AlignLeft | Qt::AlignVCenter,
                    QString(QLatin1Char(letters[0])));
  painter_.drawText(QRect(QPoint(cell.left(), cell.top() + half.height()), half),
                    Qt::AlignRight | Qt::AlignVCenter, QString(QLatin1Char(letters[1])));
}

bool TerminalPainter::DrawBox(char16_t glyph, const QRect& cell) const {
  constexpr int kCellsOfALine = 16;  // a line is as thick as this part of the cell's height
  const QColor ink = painter_.pen().color();
  const int thick = std::max(1, cell.height() / kCellsOfALine);
  const int x = cell.left() + (cell.width() - thick) / 2;
  const int y = cell.top() + (cell.height() - thick) / 2;
  if (glyph == kCheckerboard) {
    painter_.fillRect(cell, QBrush(ink, Qt::Dense4Pattern));
    return true;
  }
  // The horizontal scan lines 1, 3, 7 and 9 of the set lie at ninths of the cell's height.
  if (glyph >= kFirstScanLine && glyph <= kLastScanLine) {
    static constexpr int kEighths[] = {0, 2, 6, 8};
    const int top = cell.top() + kEighths[glyph - kFirstScanLine] * (cell.height() - thick) / 8;
    painter_.fillRect(QRect(cell.left(), top, cell.width(), thick), ink);
    return true;
  }
  for (const ControlPicture& control : kControls) {
    if (control.glyph != glyph) continue;
    DrawSmall(control.letters, cell);
    return true;
  }
  for (const Box& box : kBoxes) {
    if (box.glyph != glyph) continue;
    const int right = cell.left() + cell.width();
    const int bottom = cell.top() + cell.height();
    const auto fill = [&](int left, int top, int width, int height) {
      painter_.fillRect(QRect(left, top, width, height), ink);
    };
    if (box.arms & kLeft) fill(cell.left(), y, x + thick - cell.left(), thick);
    if (box.arms & kRight) fill(x, y, right - x, thick);
    if (box.arms & kUp) fill(x, cell.top(), thick, y + thick - cell.top());
    if (box.arms & kDown) fill(x, y, thick, bottom - y);
    return true;
  }
  return false;
}

}  // namespace quorvel

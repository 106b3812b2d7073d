#include "platform/qt/TerminalFont.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QVector>
#include <algorithm>
#include <cmath>

#include "platform/qt/Looks.h"

namespace quorvel {
namespace {

constexpr double kUsualPoints = 12;
constexpr double kSmallestPoints = 1;  // smaller can't be asked of a font
constexpr double kStep = 0.5;

QSize CellOf(const QFont& font) {
  const QFontMetricsF metrics(font);
  // The widest of what a terminal shows most: in a font that is not of fixed pitch, no character
  // may run into the next cell.
  const double width =
      std::max(metrics.horizontalAdvance(QLatin1Char('M')), metrics.horizontalAdvance('W'));
  return {std::max(1, static_cast<int>(std::ceil(width))),
          std::max(1, static_cast<int>(std::ceil(metrics.height())))};
}

// The terminal's own name and size stand for those that are not given.
Font Completed(Font wanted) {
  if (wanted.name.empty()) wanted.name = "VT220_ascii";
  if (wanted.size <= 0) wanted.size = kUsualPoints;
  return wanted;
}

}  // namespace

TerminalFont::TerminalFont(const Font& font) {
  plain_.font = ToQFont(font);
  plain_.raw = QRawFont::fromFont(plain_.font);
  bold_.font = plain_.font;
  bold_.font.setBold(true);
  bold_.raw = QRawFont::fromFont(bold_.font);
  cell_ = CellOf(plain_.font);
  ascent_ = static_cast<int>(std::ceil(QFontMetricsF(plain_.font).ascent()));
}

TerminalFont TerminalFont::At(Font wanted) {
  return TerminalFont(Completed(std::move(wanted)));
}

TerminalFont TerminalFont::Fit(Font wanted, QSize area, int columns, int rows) {
  wanted = Completed(std::move(wanted));
  const auto fits = [&](double points) {
    Font tried = wanted;
    tried.size = points;
    const QSize cell = CellOf(ToQFont(tried));
    return cell.width() * columns <= area.width() && cell.height() * rows <= area.height();
  };
  if (area.width() > 0 && area.height() > 0 && !fits(wanted.size)) {
    // Cells grow with the size, so the edge is found by halving, in steps of half a point.
    int low = static_cast<int>(kSmallestPoints / kStep);
    int high = std::max(low + 1, static_cast<int>(std::ceil(wanted.size / kStep)));
    while (high - low > 1) {
      const int middle = (low + high) / 2;
      (fits(middle * kStep) ? low : high) = middle;
    }
    wanted.size = low * kStep;
  }
  return TerminalFont(wanted);
}

quint32 TerminalFont::Face::GlyphOf(char16_t character) const {
  const auto look = [&] {
    const QChar one(character);
    quint32 glyph = 0;
    int count = 1;
    return raw.glyphIndexesForChars(&one, 1, &glyph, &count) && count == 1 ? glyph : 0;
  };
  if (character < usual.size()) {
    quint32& glyph = usual[character];
    if (glyph == 0) glyph = look();
    return glyph;
  }
  const auto found = rare.find(character);
  if (found != rare.end()) return found->second;
  return rare[character] = look();
}

void TerminalFont::Draw(QPainter& painter, std::span<const vt::Cell> cells, bool bold) const {
  const Face& face = bold ? bold_ : plain_;
  QVector<quint32> glyphs;
  QVector<QPointF> places;
  glyphs.reserve(static_cast<qsizetype>(cells.size()));
  places.reserve(static_cast<qsizetype>(cells.size()));
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const char16_t character = cells[i].glyph;
    if (character == u' ') continue;
    const double x = static_cast<double>(i) * CellWidth();
    const quint32 glyph = face.GlyphOf(character);
    if (glyph != 0) {
      glyphs << glyph;
      places << QPointF(x, ascent_);
    } else {
      // Not in this font: the toolkit finds another one that has it.
      painter.setFont(face.font);
      painter.drawText(QPointF(x, ascent_), QString(QChar(character)));
    }
  }
  if (glyphs.isEmpty()) return;
  QGlyphRun run;
  run.setRawFont(face.raw);
  run.setGlyphIndexes(glyphs);
  run.setPositions(places);
  painter.drawGlyphRun(QPointF(), run);
}

}  // namespace quorvel

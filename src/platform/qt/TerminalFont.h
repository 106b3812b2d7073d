#pragma once

#include <QFont>
#include <QPainter>
#include <QRawFont>
#include <QSize>
#include <array>
#include <span>
#include <unordered_map>

#include "platform/CommonDialogs.h"
#include "platform/vt/Cell.h"

namespace quorvel {

// A font laid on a grid: every character takes one cell, whatever its width in the font. Sizes are
// logical pixels.
class TerminalFont {
 public:
  // The biggest size, in half points and up to the one asked for, at which `columns` x `rows`
  // cells fit into `area`; the smallest there is when nothing fits.
  static TerminalFont Fit(Font wanted, QSize area, int columns, int rows);

  // At its own size.
  static TerminalFont At(Font wanted);

  int CellWidth() const { return cell_.width(); }
  int CellHeight() const { return cell_.height(); }
  int Ascent() const { return ascent_; }

  // Draws the cells of one run, the first at the painter's origin, in the painter's pen. Blanks
  // cost nothing.
  void Draw(QPainter& painter, std::span<const vt::Cell> cells, bool bold) const;

 private:
  // One weight of the font, with the glyph of each character once it has been looked up.
  struct Face {
    QFont font;
    QRawFont raw;
    mutable std::array<quint32, 0x180> usual{};  // most text; 0: not looked up yet, or not there
    mutable std::unordered_map<char16_t, quint32> rare;
    quint32 GlyphOf(char16_t character) const;
  };

  explicit TerminalFont(const Font& font);

  Face plain_;
  Face bold_;
  QSize cell_;
  int ascent_ = 0;
};

}  // namespace quorvel

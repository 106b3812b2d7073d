#pragma once

#include <QColor>
#include <QPainter>
#include <functional>

#include "platform/controls/TerminalControl.h"
#include "platform/vt/Scrollback.h"

namespace quorvel {

// The colours of a terminal control: its three own ones, and the 256 numbered ones of xterm's
// table, which programs that use SGR 38 and 48 expect.
class TerminalColours {
 public:
  explicit TerminalColours(const Terminal& terminal);

  QColor Back() const { return reversed_ ? fore_ : back_; }
  QColor Fore() const { return reversed_ ? back_ : fore_; }
  struct Pair {
    QColor fore;
    QColor back;
  };
  Pair Of(const vt::Attributes& attributes) const;

 private:
  QColor fore_;
  QColor back_;
  QColor bold_;
  bool reversed_;  // DECSCNM
};

// Paints one line of cells. Line drawing and double-size characters are drawn, not taken from the
// font, so that they join.
class TerminalPainter {
 public:
  TerminalPainter(QPainter& painter, const TerminalColours& colours, int cellWidth, int cellHeight,
                  int ascent, bool blinkOff)
      : painter_(painter),
        colours_(colours),
        width_(cellWidth),
        height_(cellHeight),
        ascent_(ascent),
        blinkOff_(blinkOff) {}

  // True when some of it blinks.
  bool PaintLine(const QPoint& corner, const vt::Line& line,
                 const std::function<bool(int column)>& selected) const;

 private:
  void PaintRun(const QPoint& corner, const vt::Line& line, int from, int to, bool selected) const;
  void PaintGlyphs(const vt::Line& line, int from, int to) const;
  bool DrawBox(char16_t glyph, const QRect& cell) const;

  QPainter& painter_;
  const TerminalColours& colours_;
  const int width_;
  const int height_;
  const int ascent_;
  const bool blinkOff_;
};

}  // namespace quorvel

#pragma once

#include <QColor>
#include <QPainter>
#include <functional>

#include "platform/controls/TerminalControl.h"
#include "platform/qt/TerminalFont.h"
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
  // Whether bold text has no colour of its own here, so that only the weight can show it.
  bool BoldByWeight(const vt::Attributes& attributes) const;

 private:
  QColor fore_;
  QColor back_;
  QColor bold_;
  bool reversed_;  // DECSCNM
};

// Paints lines of cells. Line drawing and double-size characters are drawn, not taken from the
// font, so that they join.
class TerminalPainter {
 public:
  enum class CursorShape { None, Outline, Block };

  TerminalPainter(QPainter& painter, const TerminalColours& colours, const TerminalFont& font,
                  bool blinkOff)
      : painter_(painter), colours_(colours), font_(font), blinkOff_(blinkOff) {}

  // A line with its upper left corner at `corner`, over the bare background. True when some of it
  // blinks.
  bool PaintLine(const QPoint& corner, const vt::Line& line,
                 const std::function<bool(int column)>& selected) const;
  // The cursor over a cell of the same line; a block shows the character in the ground's colour.
  void PaintCursor(const QPoint& corner, const vt::Line& line, int column, CursorShape shape) const;

 private:
  // What is there already: the terminal's background alone, or a character to paint over.
  enum class Ground { Bare, Painted };
  void PaintRun(const QPoint& corner, const vt::Line& line, int from, int to,
                const TerminalColours::Pair& pair, Ground ground) const;
  void PaintText(const vt::Line& line, int from, int to, bool bold) const;
  // A character that is drawn rather than taken from the font; false for any other.
  bool DrawBox(char16_t glyph, const QRect& cell) const;
  void DrawSmall(const char* letters, const QRect& cell) const;

  QPainter& painter_;
  const TerminalColours& colours_;
  const TerminalFont& font_;
  const bool blinkOff_;
};

// Columns of a line that are shown: half as many on double-width lines.
int ShownColumns(const vt::Line& line);

}  // namespace quorvel

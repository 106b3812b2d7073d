#pragma once

#include <QBasicTimer>
#include <QFont>
#include <QScrollBar>
#include <QWidget>
#include <optional>

#include "platform/controls/TerminalControl.h"

namespace quorvel {

// Shows the screen of a terminal control and reports what the user does there: keys, the selection,
// scrolling back. The grid of cells takes the biggest size, up to the setting's, at which all of it
// is seen; only rows that have changed are painted again, at most once a frame.
class TerminalWidget : public QWidget {
 public:
  TerminalWidget(Terminal& terminal, QWidget* parent);

  void TakeChange(Prop prop);

  Terminal& terminal() { return terminal_; }
  // The cell rectangle of a row of what is shown (0 is the uppermost), in widget coordinates.
  QRect CellRect(int row, int column, int columns = 1) const;
  // The cell at a place, row and column kept inside the screen.
  QPoint CellAt(const QPoint& place) const;
  int FirstLine() const;  // absolute line that is shown uppermost

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  bool focusNextPrevChild(bool) override { return false; }  // Tab is the host's

 private:
  // A place between cells: absolute line and column.
  struct Place {
    int line = 0;
    int column = 0;
    bool operator<(const Place& other) const {
      return line != other.line ? line < other.line : column < other.column;
    }
    bool operator==(const Place&) const = default;
  };

  void FitFont();
  void FitScrollBar();
  void TakeOutput();
  void UpdateRow(int row);
  void PaintRow(QPainter& painter, int row);
  void PaintCursor(QPainter& painter);
  Place PlaceAt(const QPoint& point) const;
  void SelectTo(Place from, Place to);
  void SelectWord(Place at);
  void ReportSelection();
  bool IsSelected(int line, int column) const;

  Terminal& terminal_;
  QScrollBar bar_;
  QFont font_;
  int cellWidth_ = 8;
  int cellHeight_ = 16;
  int ascent_ = 12;
  int back_ = 0;   // lines scrolled back
  QPoint cursor_;  // where it was painted: column and row
  bool blinkOff_ = false;
  QBasicTimer blink_;
  std::optional<Place> anchor_;
  Place selectionFrom_;
  Place selectionTo_;
  QPoint lastPress_;
  qint64 lastDoubleClick_ = 0;
};

}  // namespace quorvel

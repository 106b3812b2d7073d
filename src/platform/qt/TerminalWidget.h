#pragma once

#include <QBasicTimer>
#include <QScrollBar>
#include <QWidget>
#include <bitset>

#include "platform/controls/TerminalControl.h"
#include "platform/qt/OwnWidget.h"
#include "platform/qt/TerminalFont.h"
#include "platform/qt/TerminalPainter.h"
#include "platform/qt/TerminalSelection.h"

namespace quorvel {

// Shows the screen of a terminal control and reports what the user does there: keys, the selection,
// scrolling back. The grid of cells takes the biggest size, up to the setting's, at which all of it
// is seen; only rows that have changed are painted again, at most once a frame.
class TerminalWidget : public QWidget, public OwnWidget {
 public:
  TerminalWidget(Terminal& terminal, QWidget* parent);

  // A property of the control has changed, or (Prop::Screen) the host has written.
  void TakeChange(Prop prop);

  void Forget() override;

  // nullptr when the control has gone; nothing of what follows may be asked then.
  Terminal* terminal() const { return terminal_; }
  // Absolute line (0 is the oldest of the scroll-back) that is shown uppermost.
  int FirstLine() const { return terminal_->emulation().ScrollbackCount() - back_; }
  // Where a column of a line is, in widget coordinates; rows count from the uppermost one shown.
  QRect CellRect(int row, int column) const;
  // Column (x) and row (y) at a place, kept inside the grid.
  QPoint CellAt(const QPoint& place) const;
  TerminalSelection& selection() { return selection_; }
  // Tells the control what is selected now, and shows it.
  void ReportSelection();

 protected:
  bool event(QEvent* event) override;
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

 private:
  const vt::Screen& Screen() const { return terminal_->emulation().screen(); }
  vt::LineAttribute AttributeOf(int row) const;
  int CursorRow() const;  // among the rows shown
  TerminalPainter::CursorShape ShapeOfCursor() const;

  void FitFont();
  void FitScrollBar();
  void ScrollTo(int firstLine);
  void TakeOutputThisFrame();
  void TakeOutput();
  void TakeWaitingOutput();
  void FollowScrolling(const vt::DirtyRows& dirty);
  void DropChangedSelection(const vt::DirtyRows& dirty);
  void TellAssistiveTools();
  void UpdateRow(int row);
  void PaintRow(QPainter& painter, const TerminalColours& colours, int row);
  void PaintComposed(QPainter& painter, const TerminalColours& colours);
  TerminalSelection::Place PlaceAt(const QPoint& point) const;
  void StartSelection(const QPoint& point, TerminalSelection::Unit unit);
  void ShowSelection();
  void PastePrimarySelection();

  Terminal* terminal_;
  QScrollBar bar_;
  TerminalFont font_;
  TerminalSelection selection_;
  int back_ = 0;                        // lines scrolled back
  int cursorRow_ = 0;                   // where the cursor was shown last
  bool reverseScreen_ = false;          // as painted last
  std::bitset<vt::kMaxRows> blinking_;  // rows that have blinking text
  bool blinkOff_ = false;
  QBasicTimer blink_;
  QBasicTimer dragScroll_;     // runs while a selection is drawn beyond the edge
  QBasicTimer news_;           // for assistive tools, at most once a frame
  QBasicTimer frame_;          // runs for one frame's time after output has been taken
  bool outputWaits_ = false;   // for the end of the frame
  int paintMilliseconds_ = 0;  // what the last paint has cost
  bool selecting_ = false;
  int wheel_ = 0;  // turned, not yet a whole step
  QPoint pointer_;
  QString composed_;  // by the input method, not yet typed
  QPoint lastDoubleClick_;
  qint64 lastDoubleClickTime_ = 0;
};

}  // namespace quorvel

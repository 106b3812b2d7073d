#pragma once

#include <QAbstractScrollArea>
#include <QPointer>
#include <optional>

#include "platform/controls/ReportView.h"
#include "platform/controls/TextSearch.h"
#include "platform/qt/OwnWidget.h"
#include "platform/qt/TerminalFont.h"

namespace quorvel {

// Paints the lines of a report: only those that can be seen, and of these only the columns that can
// be seen, so that neither a million lines nor a line of a million characters costs anything.
// Scrolls by pixels.
class ReportWidget : public QAbstractScrollArea, public OwnWidget {
 public:
  ReportWidget(ReportView& view, QWidget* parent);

  // Something of the control has changed.
  void TakeChange(Prop prop);
  // The line that the keyboard is on, for screen readers.
  QString CurrentLine() const;
  void Forget() override { view_ = nullptr; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int, int) override { viewport()->update(); }
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  int RowHeight() const { return font_.CellHeight(); }
  int HeadingHeight() const;
  qint64 LineCount() const { return static_cast<qint64>(view_->Lines().Count()); }
  std::size_t LineUnder(const QPoint& place) const;
  std::size_t RowsOfPage() const;
  void FitScrollBars();
  void BringIntoView(std::size_t line);
  void BringIntoView(const ReportView::Mark& mark);
  void PaintLine(QPainter& painter, std::size_t line, int top);
  void PaintBehind(QPainter& painter, std::size_t line, std::string_view text, int top);
  void FillColumns(QPainter& painter, std::size_t from, std::size_t count, int top, QColor colour);
  std::optional<std::size_t> Target(const QKeyEvent& key) const;
  bool ScrollSideways(int key);

  ReportView* view_;
  TerminalFont font_;
  TextSearch tinted_{""};
};

}  // namespace quorvel

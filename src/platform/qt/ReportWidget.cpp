#include "platform/qt/ReportWidget.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <limits>
#include <vector>

#include "platform/qt/ControlPeers.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {
namespace {

constexpr int kMargin = 4;       // pixels left of the first column
constexpr int kWheelLines = 3;   // a notch of the wheel
constexpr int kNotch = 120;      // eighths of a degree
constexpr int kSideColumns = 8;  // a press of Left or Right

const QColor kTint(255, 236, 160);
const QColor kMark(255, 170, 60);
const QColor kInMark(0, 0, 0);

// Pixels as scroll bars count them.
int Clamped(qint64 pixels) {
  return static_cast<int>(std::clamp<qint64>(pixels, 0, std::numeric_limits<int>::max()));
}

// What stands for a byte on the screen: control characters are blanks.
std::uint16_t GlyphOf(char c) {
  const auto byte = static_cast<unsigned char>(c);
  const char16_t code = ToUnicode(byte);
  return code < 0x20 || (code >= 0x7F && code < 0xA0) ? u' ' : code;
}

}  // namespace

ReportWidget::ReportWidget(ReportView& view, QWidget* parent)
    : QAbstractScrollArea(parent), view_(&view), font_(TerminalFont::At(view.Font())) {
  viewport()->setBackgroundRole(QPalette::Base);
  viewport()->setCursor(Qt::ArrowCursor);
  setFocusPolicy(Qt::StrongFocus);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void ReportWidget::TakeChange(Prop prop) {
  if (!view_) return;
  switch (prop) {
    case Prop::Font:
      font_ = TerminalFont::At(view_->Font());
      FitScrollBars();
      break;
    case Prop::Items:
      FitScrollBars();
      break;
    case Prop::ListIndex:
      BringIntoView(view_->Current());
      if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent changed(this, CurrentLine());
        QAccessible::updateAccessibility(&changed);
      }
      break;
    case Prop::Selection:
      if (view_->Marked().length > 0) BringIntoView(view_->Marked());
      break;
    case Prop::Text:
      tinted_ = TextSearch(view_->Tinted());
      break;
    case Prop::Value:
      FitScrollBars();
      break;
    default:
      return;
  }
  viewport()->update();
}

QString ReportWidget::CurrentLine() const {
  if (!view_ || LineCount() == 0) return {};
  return ToCaption(view_->Lines().At(view_->Current()));
}

int ReportWidget::HeadingHeight() const {
  return view_ && view_->FirstLineStays() && LineCount() > 0 ? RowHeight() + 1 : 0;
}

void ReportWidget::FitScrollBars() {
  if (!view_) return;
  const QSize room = viewport()->size();
  const int heading = HeadingHeight();
  const qint64 height = LineCount() * RowHeight();
  verticalScrollBar()->setRange(0, Clamped(height + (heading > 0 ? 1 : 0) - room.height()));
  verticalScrollBar()->setPageStep(std::max(RowHeight(), room.height() - heading));
  verticalScrollBar()->setSingleStep(RowHeight());
  const qint64 width =
      static_cast<qint64>(view_->Lines().Longest()) * font_.CellWidth() + 2LL * kMargin;
  horizontalScrollBar()->setRange(0, Clamped(width - room.width()));
  horizontalScrollBar()->setPageStep(room.width());
  horizontalScrollBar()->setSingleStep(font_.CellWidth());
}

void ReportWidget::resizeEvent(QResizeEvent*) {
  FitScrollBars();
}

void ReportWidget::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange) {
    viewport()->update();
  }
  QAbstractScrollArea::changeEvent(event);
}

// --- painting

void ReportWidget::paintEvent(QPaintEvent*) {
  if (!view_) return;
  QPainter painter(viewport());
  const int heading = HeadingHeight();
  const int top = verticalScrollBar()->value();
  // Without a heading the first line is line 0; with one, line 0 has a place of its own above.
  const auto first = static_cast<qint64>((top + heading) / RowHeight());
  for (qint64 line = first; line < LineCount(); ++line) {
    const qint64 y = line * RowHeight() - top + (heading > 0 ? 1 : 0);
    if (y >= viewport()->height()) break;
    PaintLine(painter, static_cast<std::size_t>(line), static_cast<int>(y));
  }
  if (heading == 0) return;
  painter.fillRect(0, 0, viewport()->width(), heading, palette().color(QPalette::Base));
  PaintLine(painter, 0, 0);
  painter.fillRect(0, heading - 1, viewport()->width(), 1, palette().color(QPalette::Mid));
}

void ReportWidget::PaintLine(QPainter& painter, std::size_t line, int top) {
  const std::string_view text = view_->Lines().At(line);
  PaintBehind(painter, line, text, top);
  const int left = horizontalScrollBar()->value();
  const auto from = static_cast<std::size_t>(std::max(0, left - kMargin) / font_.CellWidth());
  if (from < text.size()) {
    const auto columns = static_cast<std::size_t>(viewport()->width() / font_.CellWidth()) + 2;
    std::vector<vt::Cell> cells;
    for (const char c : text.substr(from, columns)) cells.push_back({GlyphOf(c), {}});
    const bool selected = view_->IsSelected(line);
    painter.setPen(palette().color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter.save();
    painter.translate(kMargin + static_cast<double>(from) * font_.CellWidth() - left, top);
    font_.Draw(painter, cells, view_->Font().bold);
    painter.restore();
  }
  const ReportView::Mark& mark = view_->Marked();
  if (mark.length == 0 || mark.line != line) return;
  FillColumns(painter, mark.column, mark.length, top, kMark);
  painter.save();
  painter.setPen(kInMark);
  painter.translate(kMargin + static_cast<double>(mark.column) * font_.CellWidth() - left, top);
  std::vector<vt::Cell> cells;
  for (const char c : text.substr(std::min(mark.column, text.size()), mark.length)) {
    cells.push_back({GlyphOf(c), {}});
  }
  font_.Draw(painter, cells, view_->Font().bold);
  painter.restore();
}

// Selection and tints, behind the text.
void ReportWidget::PaintBehind(QPainter& painter, std::size_t line, std::string_view text,
                               int top) {
  if (view_->IsSelected(line)) {
    const auto group = hasFocus() ? QPalette::Active : QPalette::Inactive;
    painter.fillRect(0, top, viewport()->width(), RowHeight(),
                     palette().color(group, QPalette::Highlight));
  } else if (!tinted_.IsEmpty()) {
    // Of a very long line only what can be seen is looked at.
    const auto left = static_cast<std::size_t>(horizontalScrollBar()->value() / font_.CellWidth());
    const std::size_t from = left > tinted_.Length() ? left - tinted_.Length() : 0;
    const auto room = static_cast<std::size_t>(viewport()->width() / font_.CellWidth());
    const std::string_view seen = text.substr(0, left + room + tinted_.Length());
    for (std::size_t at = tinted_.Find(seen, from); at != TextSearch::kNone;
         at = tinted_.Find(seen, at + tinted_.Length())) {
      FillColumns(painter, at, tinted_.Length(), top, kTint);
    }
  }
}

void ReportWidget::FillColumns(QPainter& painter, std::size_t from, std::size_t count, int top,
                               QColor colour) {
  const int width = font_.CellWidth();
  const qint64 left = static_cast<qint64>(from) * width + kMargin - horizontalScrollBar()->value();
  const qint64 right =
      std::min<qint64>(left + static_cast<qint64>(count) * width, viewport()->width());
  if (right <= 0 || left >= viewport()->width()) return;
  const int start = static_cast<int>(std::max<qint64>(left, 0));
  painter.fillRect(start, top, static_cast<int>(right) - start, RowHeight(), colour);
}

// --- places

std::size_t ReportWidget::LineUnder(const QPoint& place) const {
  const int heading = HeadingHeight();
  if (heading > 0 && place.y() >= 0 && place.y() < heading) return 0;
  const qint64 y = qint64{verticalScrollBar()->value()} + place.y() - (heading > 0 ? 1 : 0);
  return static_cast<std::size_t>(
      std::clamp<qint64>(y / RowHeight(), 0, std::max<qint64>(0, LineCount() - 1)));
}

std::size_t ReportWidget::RowsOfPage() const {
  return static_cast<std::size_t>(
      std::max(1, (viewport()->height() - HeadingHeight()) / RowHeight() - 1));
}

void ReportWidget::BringIntoView(std::size_t line) {
  const int heading = HeadingHeight();
  const qint64 top = static_cast<qint64>(line) * RowHeight();
  const qint64 bottom = top + RowHeight() + (heading > 0 ? 1 : 0);
  QScrollBar& bar = *verticalScrollBar();
  if (bar.value() + heading > top) bar.setValue(Clamped(top - heading));
  if (bar.value() + viewport()->height() < bottom) {
    bar.setValue(Clamped(bottom - viewport()->height()));
  }
}

void ReportWidget::BringIntoView(const ReportView::Mark& mark) {
  BringIntoView(mark.line);
  QScrollBar& bar = *horizontalScrollBar();
  const qint64 left = static_cast<qint64>(mark.column) * font_.CellWidth();
  const qint64 right = left + static_cast<qint64>(mark.length) * font_.CellWidth() + 2LL * kMargin;
  if (bar.value() + viewport()->width() < right) bar.setValue(Clamped(right - viewport()->width()));
  if (bar.value() > left) bar.setValue(Clamped(left));
}

// --- the user

// The line that a key leads to.
std::optional<std::size_t> ReportWidget::Target(const QKeyEvent& key) const {
  const std::size_t at = view_->Current();
  const auto last = static_cast<std::size_t>(std::max<qint64>(0, LineCount() - 1));
  const bool control = (key.modifiers() & Qt::ControlModifier) != 0;
  switch (key.key()) {
    case Qt::Key_Up:
      return at > 0 ? at - 1 : 0;
    case Qt::Key_Down:
      return at + 1;
    case Qt::Key_PageUp:
      return at > RowsOfPage() ? at - RowsOfPage() : 0;
    case Qt::Key_PageDown:
      return at + RowsOfPage();
    case Qt::Key_Home:
      if (control) return 0;
      break;
    case Qt::Key_End:
      if (control) return last;
      break;
    default:
      break;
  }
  return std::nullopt;
}

bool ReportWidget::ScrollSideways(int key) {
  QScrollBar& bar = *horizontalScrollBar();
  switch (key) {
    case Qt::Key_Left:
      bar.setValue(bar.value() - kSideColumns * font_.CellWidth());
      return true;
    case Qt::Key_Right:
      bar.setValue(bar.value() + kSideColumns * font_.CellWidth());
      return true;
    case Qt::Key_Home:
      bar.setValue(0);
      return true;
    case Qt::Key_End:
      bar.setValue(bar.maximum());
      return true;
    default:
      return false;
  }
}

void ReportWidget::keyPressEvent(QKeyEvent* event) {
  if (!view_) return;
  if (const auto target = Target(*event)) {
    view_->UserMoveTo(*target, (event->modifiers() & Qt::ShiftModifier) != 0);
  } else if (event->matches(QKeySequence::SelectAll)) {
    view_->UserSelectAll();
  } else if (!ScrollSideways(event->key())) {
    event->ignore();
  }
}

void ReportWidget::mousePressEvent(QMouseEvent* event) {
  if (!view_ || event->button() != Qt::LeftButton || LineCount() == 0) return;
  view_->UserMoveTo(LineUnder(event->position().toPoint()),
                    (event->modifiers() & Qt::ShiftModifier) != 0);
}

// Dragging beyond an edge scrolls: the line under the pointer is then outside what is shown.
void ReportWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!view_ || (event->buttons() & Qt::LeftButton) == 0 || LineCount() == 0) return;
  const std::size_t line = LineUnder(event->position().toPoint());
  if (line != view_->Current()) view_->UserMoveTo(line, true);
}

void ReportWidget::wheelEvent(QWheelEvent* event) {
  if (!view_) return;
  const QPoint pixels = event->pixelDelta();
  const QPoint notches = event->angleDelta();
  const bool sideways = (event->modifiers() & Qt::ShiftModifier) != 0 ||
                        std::abs(notches.x()) > std::abs(notches.y());
  const int angle = std::abs(notches.x()) > std::abs(notches.y()) ? notches.x() : notches.y();
  const int unit = sideways ? kSideColumns * font_.CellWidth() : kWheelLines * RowHeight();
  int by = angle * unit / kNotch;
  if (!pixels.isNull()) by = sideways ? pixels.x() : pixels.y();
  QScrollBar& bar = sideways ? *horizontalScrollBar() : *verticalScrollBar();
  bar.setValue(bar.value() - by);
  event->accept();
}

// --- the peer

namespace {

class ReportPeer : public WidgetPeer {
 public:
  ReportPeer(ReportView& view, QWidget* parent) : WidgetPeer(view, new ReportWidget(view, parent)) {
    UpdateAll();
  }
  void Apply(Prop prop) override { Own().TakeChange(prop); }

 private:
  ReportWidget& Own() { return *static_cast<ReportWidget*>(Widget()); }
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeReportView(ReportView& view, QWidget* parent) {
  return std::make_unique<ReportPeer>(view, parent);
}

}  // namespace quorvel

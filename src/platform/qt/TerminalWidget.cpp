#include "platform/qt/TerminalWidget.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QFontMetrics>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QPaintEvent>

#include "platform/controls/Desktop.h"
#include "platform/qt/Keyboard.h"
#include "platform/qt/TerminalPainter.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeers.h"

namespace quorvel {
namespace {

constexpr int kMargin = 2;           // pixels around the grid
constexpr double kSmallestFont = 5;  // points
constexpr int kBlinkMilliseconds = 500;
constexpr int kLinesAWheelStep = 3;

}  // namespace

TerminalWidget::TerminalWidget(Terminal& terminal, QWidget* parent)
    : QWidget(parent), terminal_(terminal), bar_(Qt::Vertical, this) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_InputMethodEnabled);
  setCursor(Qt::IBeamCursor);
  bar_.setCursor(Qt::ArrowCursor);
  bar_.setFocusPolicy(Qt::NoFocus);
  bar_.setObjectName("scrollBack");
  bar_.setAccessibleName("Scroll-back");
  connect(&bar_, &QScrollBar::valueChanged, this, [this](int value) {
    back_ = terminal_.emulation().ScrollbackCount() - value;
    update();
  });
  FitFont();
}

// --- size

void TerminalWidget::FitFont() {
  const vt::Screen& screen = terminal_.emulation().screen();
  const int width = this->width() - bar_.sizeHint().width() - 2 * kMargin;
  const int height = this->height() - 2 * kMargin;
  Font wanted = terminal_.Font();
  if (wanted.name.empty()) wanted.name = "VT220_ascii";
  double size = wanted.size > 0 ? wanted.size : 12;
  while (true) {
    wanted.size = size;
    font_ = ToQFont(wanted);
    const QFontMetrics metrics(font_);
    cellWidth_ = std::max(1, metrics.horizontalAdvance(QLatin1Char('M')));
    cellHeight_ = std::max(1, metrics.height());
    ascent_ = metrics.ascent();
    const bool fits =
        cellWidth_ * screen.Columns() <= width && cellHeight_ * screen.Rows() <= height;
    if (fits || size <= kSmallestFont || width <= 0 || height <= 0) break;
    size -= 0.5;
  }
  update();
}

void TerminalWidget::resizeEvent(QResizeEvent*) {
  const int barWidth = bar_.sizeHint().width();
  bar_.setGeometry(width() - barWidth, 0, barWidth, height());
  FitFont();
  FitScrollBar();
}

void TerminalWidget::FitScrollBar() {
  const int lines = terminal_.emulation().ScrollbackCount();
  back_ = std::clamp(back_, 0, lines);
  const QSignalBlocker quiet(bar_);
  bar_.setRange(0, lines);
  bar_.setPageStep(terminal_.emulation().screen().Rows());
  bar_.setValue(lines - back_);
}

QRect TerminalWidget::CellRect(int row, int column, int columns) const {
  return QRect(kMargin + column * cellWidth_, kMargin + row * cellHeight_, columns * cellWidth_,
               cellHeight_);
}

QPoint TerminalWidget::CellAt(const QPoint& place) const {
  const vt::Screen& screen = terminal_.emulation().screen();
  return {std::clamp((place.x() - kMargin) / cellWidth_, 0, screen.Columns() - 1),
          std::clamp((place.y() - kMargin) / cellHeight_, 0, screen.Rows() - 1)};
}

int TerminalWidget::FirstLine() const {
  return terminal_.emulation().ScrollbackCount() - back_;
}

// --- what the control tells

void TerminalWidget::TakeChange(Prop prop) {
  switch (prop) {
    case Prop::Screen:
      TakeOutput();
      break;
    case Prop::Font:
    case Prop::ScreenSize:
      FitFont();
      FitScrollBar();
      break;
    case Prop::BufferRows:
      FitScrollBar();
      update();
      break;
    case Prop::BackColor:
    case Prop::ForeColor:
    case Prop::Selection:
    case Prop::Cursor:
      update();
      break;
    default:
      break;
  }
}

void TerminalWidget::UpdateRow(int row) {
  update(0, CellRect(row, 0).top(), width(), cellHeight_);
}

void TerminalWidget::TakeOutput() {
  const vt::DirtyRows dirty = terminal_.emulation().TakeDirty();
  const vt::Screen& screen = terminal_.emulation().screen();
  if (dirty.resized) FitFont();
  if (dirty.scrolledOff != 0 || dirty.dropped != 0 || dirty.resized) {
    // A view of the scroll-back stays where it is while new lines go in below.
    if (back_ > 0) back_ += static_cast<int>(std::min<std::int64_t>(dirty.scrolledOff, 1 << 20));
    FitScrollBar();
  }
  if (back_ == 0) {
    for (int row = 0; row < screen.Rows(); ++row) {
      if (dirty.Has(row)) UpdateRow(row);
    }
    const QPoint cursor(screen.CursorColumn(), screen.CursorRow());
    if (cursor != cursor_) {
      UpdateRow(cursor_.y());
      UpdateRow(cursor.y());
      cursor_ = cursor;
    }
  }
  if (QAccessible::isActive() && dirty.Any()) {
    QAccessibleEvent changed(this, QAccessible::VisibleDataChanged);
    QAccessible::updateAccessibility(&changed);
  }
}

// --- painting

void TerminalWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setFont(font_);
  const TerminalColours colours(terminal_);
  painter.fillRect(event->rect(), colours.Back());
  const int first = std::max(0, (event->rect().top() - kMargin) / cellHeight_);
  const int last = std::min(terminal_.emulation().screen().Rows() - 1,
                            (event->rect().bottom() - kMargin) / cellHeight_);
  bool blinks = false;
  vt::Line line;
  for (int row = first; row <= last; ++row) {
    const int absolute = FirstLine() + row;
    terminal_.emulation().ReadLine(absolute, line);
    const TerminalPainter rowPainter(painter, colours, cellWidth_, cellHeight_, ascent_, blinkOff_);
    blinks |= rowPainter.PaintLine(CellRect(row, 0).topLeft(), line,
                                   [&](int column) { return IsSelected(absolute, column); });
  }
  if (back_ == 0) PaintCursor(painter);
  if (blinks && !blink_.isActive()) blink_.start(kBlinkMilliseconds, this);
}

void TerminalWidget::PaintCursor(QPainter& painter) {
  const vt::Screen& screen = terminal_.emulation().screen();
  if (!screen.CursorVisible()) return;
  cursor_ = {screen.CursorColumn(), screen.CursorRow()};
  const bool wide = screen.LineAttributeAt(cursor_.y()) != vt::LineAttribute::SingleWidth;
  const QRect cell = CellRect(cursor_.y(), cursor_.x() * (wide ? 2 : 1), wide ? 2 : 1);
  if (hasFocus()) {
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    painter.fillRect(cell, Qt::white);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  } else {
    painter.setPen(TerminalColours(terminal_).Fore());
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(cell.adjusted(0, 0, -1, -1));
  }
}

void TerminalWidget::timerEvent(QTimerEvent* event) {
  if (event->timerId() != blink_.timerId()) return;
  blinkOff_ = !blinkOff_;
  blink_.stop();  // the next painting of blinking text starts it again
  update();
}

// --- keys

void TerminalWidget::keyPressEvent(QKeyEvent* event) {
  const bool shift = (event->modifiers() & Qt::ShiftModifier) != 0;
  if (shift && (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown)) {
    const int page = terminal_.emulation().screen().Rows() - 1;
    bar_.setValue(bar_.value() + (event->key() == Qt::Key_PageUp ? -page : page));
    return;
  }
  bar_.setValue(bar_.maximum());  // what is typed is seen
  if (const auto key = ToTerminalKey(*event)) {
    terminal_.UserKey(key->key, key->modifiers);
  } else if (!event->text().isEmpty()) {
    terminal_.UserText(ToBytes(event->text()));
  } else {
    QWidget::keyPressEvent(event);
  }
}

void TerminalWidget::inputMethodEvent(QInputMethodEvent* event) {
  if (!event->commitString().isEmpty()) terminal_.UserText(ToBytes(event->commitString()));
  event->accept();
}

QVariant TerminalWidget::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImCursorRectangle) return CellRect(cursor_.y(), cursor_.x());
  return QWidget::inputMethodQuery(query);
}

void TerminalWidget::focusInEvent(QFocusEvent*) {
  update();
}
void TerminalWidget::focusOutEvent(QFocusEvent*) {
  update();
}

// --- selection

TerminalWidget::Place TerminalWidget::PlaceAt(const QPoint& point) const {
  const QPoint cell = CellAt(point);
  const bool rightHalf = point.x() - CellRect(cell.y(), cell.x()).left() >= cellWidth_ / 2;
  return {FirstLine() + cell.y(), cell.x() + (rightHalf ? 1 : 0)};
}

bool TerminalWidget::IsSelected(int line, int column) const {
  const Place cell{line, column};
  return !(cell < selectionFrom_) && cell < selectionTo_;
}

void TerminalWidget::SelectTo(Place from, Place to) {
  if (to < from) std::swap(from, to);
  selectionFrom_ = from;
  selectionTo_ = to;
  update();
}

void TerminalWidget::SelectWord(Place at) {
  const std::string text = terminal_.emulation().LineText(at.line);
  const auto isWord = [&](int column) {
    return column >= 0 && column < static_cast<int>(text.size()) &&
           text[static_cast<std::size_t>(column)] != ' ';
  };
  int first = at.column, last = at.column;
  while (isWord(first - 1)) --first;
  while (isWord(last)) ++last;
  SelectTo({at.line, first}, {at.line, last});
}

// The lines that the selection touches, joined by CR LF, and the part of them that is selected.
void TerminalWidget::ReportSelection() {
  Terminal::Selection selection;
  if (selectionFrom_ < selectionTo_) {
    const int width = terminal_.emulation().screen().Columns() + 2;
    for (int line = selectionFrom_.line; line <= selectionTo_.line; ++line) {
      if (line > selectionFrom_.line) selection.text += "\r\n";
      selection.text += terminal_.emulation().LineText(line);
    }
    selection.start = selectionFrom_.column + 1;
    selection.length = (selectionTo_.line - selectionFrom_.line) * width + selectionTo_.column -
                       selectionFrom_.column;
  }
  terminal_.UserSelect(std::move(selection));
}

void TerminalWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) {
    const QString text = QApplication::clipboard()->text(QClipboard::Selection);
    if (!text.isEmpty()) terminal_.UserText(ToBytes(text));
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  terminal_.UserClick();
  const Place place = PlaceAt(event->position().toPoint());
  const bool triple = QDateTime::currentMSecsSinceEpoch() - lastDoubleClick_ <
                          QApplication::doubleClickInterval() &&
                      (event->position().toPoint() - lastPress_).manhattanLength() < 8;
  lastPress_ = event->position().toPoint();
  if (triple) {
    SelectTo({place.line, 0}, {place.line, terminal_.emulation().screen().Columns()});
    ReportSelection();
    return;
  }
  if ((event->modifiers() & Qt::ShiftModifier) && anchor_) {
    SelectTo(*anchor_, place);
    ReportSelection();
    return;
  }
  anchor_ = place;
  SelectTo(place, place);
}

void TerminalWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!(event->buttons() & Qt::LeftButton) || !anchor_) return;
  if (event->position().y() < 0) bar_.setValue(bar_.value() - 1);
  if (event->position().y() > height()) bar_.setValue(bar_.value() + 1);
  SelectTo(*anchor_, PlaceAt(event->position().toPoint()));
}

void TerminalWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) ReportSelection();
}

void TerminalWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  lastDoubleClick_ = QDateTime::currentMSecsSinceEpoch();
  const QPoint cell = CellAt(event->position().toPoint());
  SelectWord({FirstLine() + cell.y(), cell.x()});
  anchor_ = selectionFrom_;
  ReportSelection();
}

void TerminalWidget::wheelEvent(QWheelEvent* event) {
  const int steps = event->angleDelta().y() / 120;
  bar_.setValue(bar_.value() - steps * kLinesAWheelStep);
  event->accept();
}

}  // namespace quorvel

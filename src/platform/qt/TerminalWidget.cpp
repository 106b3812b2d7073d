#include "platform/qt/TerminalWidget.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPointer>
#include <algorithm>
#include <climits>

#include "platform/controls/Desktop.h"
#include "platform/qt/Keyboard.h"
#include "platform/qt/TerminalAccessible.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {
namespace {

constexpr int kMargin = 2;  // pixels around the grid
constexpr int kBlinkMilliseconds = 500;
constexpr int kDragScrollMilliseconds = 50;
constexpr int kNewsMilliseconds = 40;  // a frame, for somebody who listens
constexpr int kFrameMilliseconds = 16;
// Under a flood of output painting takes at most one part of so many of the time, down to a rate
// that still reads as motion.
constexpr int kPaintShare = 5;
constexpr int kLongestFrameMilliseconds = 80;
constexpr int kLinesOfAWheelStep = 3;
constexpr int kWheelStep = 120;  // eighths of a degree, the unit of QWheelEvent
constexpr int kThirdClickDistance = 8;

using Unit = TerminalSelection::Unit;

// What is shown, and what the user does there.
bool NeedsTerminal(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::InputMethodQuery:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::Resize:
    case QEvent::Paint:
    case QEvent::Timer:
      return true;
    default:
      return false;
  }
}

bool IsOfUser(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::Resize:
      return true;
    default:
      return false;
  }
}

}  // namespace

TerminalWidget::TerminalWidget(Terminal& terminal, QWidget* parent)
    : QWidget(parent),
      terminal_(&terminal),
      bar_(Qt::Vertical, this),
      font_(TerminalFont::Fit(terminal.Font(), {}, 1, 1)),
      selection_(terminal.emulation()) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_InputMethodEnabled);
  setCursor(Qt::IBeamCursor);
  bar_.setCursor(Qt::ArrowCursor);
  bar_.setFocusPolicy(Qt::NoFocus);
  bar_.setObjectName(QStringLiteral("scrollBack"));
  bar_.setAccessibleName(QStringLiteral("Scroll-back"));
  connect(&bar_, &QScrollBar::valueChanged, this, [this](int value) { ScrollTo(value); });
  terminal_->emulation().TakeDirty();
}

void TerminalWidget::Forget() {
  for (QBasicTimer* timer : {&blink_, &dragScroll_, &news_, &frame_}) timer->stop();
  bar_.disconnect(this);
  outputWaits_ = false;
  terminal_ = nullptr;
}

// --- places

vt::LineAttribute TerminalWidget::AttributeOf(int row) const {
  const int screenRow = row - back_;
  if (screenRow >= 0 && screenRow < Screen().Rows()) return Screen().LineAttributeAt(screenRow);
  return terminal_->emulation().LineAt(FirstLine() + row).attribute;
}

QRect TerminalWidget::CellRect(int row, int column) const {
  const int wide = AttributeOf(row) == vt::LineAttribute::SingleWidth ? 1 : 2;
  return QRect(kMargin + column * wide * font_.CellWidth(), kMargin + row * font_.CellHeight(),
               wide * font_.CellWidth(), font_.CellHeight());
}

QPoint TerminalWidget::CellAt(const QPoint& place) const {
  const int row = std::clamp((place.y() - kMargin) / font_.CellHeight(), 0, Screen().Rows() - 1);
  const bool wide = AttributeOf(row) != vt::LineAttribute::SingleWidth;
  const int columns = wide ? Screen().Columns() / 2 : Screen().Columns();
  const int width = font_.CellWidth() * (wide ? 2 : 1);
  return {std::clamp((place.x() - kMargin) / width, 0, columns - 1), row};
}

TerminalSelection::Place TerminalWidget::PlaceAt(const QPoint& point) const {
  const QPoint cell = CellAt(point);
  const bool rightHalf = point.x() >= CellRect(cell.y(), cell.x()).center().x();
  return {FirstLine() + cell.y(), cell.x() + (rightHalf ? 1 : 0)};
}

int TerminalWidget::CursorRow() const {
  return Screen().CursorRow() + back_;
}

// --- size

void TerminalWidget::FitFont() {
  const QSize area(width() - bar_.sizeHint().width() - 2 * kMargin, height() - 2 * kMargin);
  font_ = TerminalFont::Fit(terminal_->Font(), area, Screen().Columns(), Screen().Rows());
  update();
}

void TerminalWidget::resizeEvent(QResizeEvent*) {
  const int barWidth = bar_.sizeHint().width();
  bar_.setGeometry(width() - barWidth, 0, barWidth, height());
  FitFont();
  FitScrollBar();
}

void TerminalWidget::FitScrollBar() {
  const int lines = terminal_->emulation().ScrollbackCount();
  back_ = std::clamp(back_, 0, lines);
  const QSignalBlocker quiet(bar_);
  bar_.setRange(0, lines);
  bar_.setPageStep(Screen().Rows());
  bar_.setValue(lines - back_);
}

void TerminalWidget::ScrollTo(int firstLine) {
  const int lines = terminal_->emulation().ScrollbackCount();
  const int back = std::clamp(lines - firstLine, 0, lines);
  if (back == back_) return;
  back_ = back;
  FitScrollBar();
  update();
  TellAssistiveTools();
}

// --- what the control tells

void TerminalWidget::TakeChange(Prop prop) {
  switch (prop) {
    case Prop::Screen:
      TakeOutputThisFrame();
      break;
    case Prop::Font:
    case Prop::ScreenSize:
    case Prop::TermType:
    case Prop::BufferRows:
      TakeOutput();
      FitFont();
      FitScrollBar();
      break;
    case Prop::BackColor:
    case Prop::ForeColor:
    case Prop::Selection:
      update();
      break;
    case Prop::Cursor:
    case Prop::Enabled:
      UpdateRow(CursorRow());
      break;
    default:
      break;
  }
}

void TerminalWidget::UpdateRow(int row) {
  update(0, kMargin + row * font_.CellHeight(), width(), font_.CellHeight());
}

// The first output is shown at once, what follows it at the end of the frame.
void TerminalWidget::TakeOutputThisFrame() {
  if (frame_.isActive()) {
    outputWaits_ = true;
    return;
  }
  TakeOutput();
  frame_.start(
      std::clamp(paintMilliseconds_ * kPaintShare, kFrameMilliseconds, kLongestFrameMilliseconds),
      Qt::PreciseTimer, this);
}

// To be called ahead of whatever looks at places of lines: output moves them.
void TerminalWidget::TakeWaitingOutput() {
  if (outputWaits_) TakeOutput();
}

void TerminalWidget::TakeOutput() {
  outputWaits_ = false;
  const vt::DirtyRows dirty = terminal_->emulation().TakeDirty();
  FollowScrolling(dirty);
  DropChangedSelection(dirty);
  if (dirty.resized) FitFont();
  if (Screen().ReverseScreen() != reverseScreen_) {
    reverseScreen_ = Screen().ReverseScreen();
    update();
  }
  for (int row = 0; row + back_ < Screen().Rows(); ++row) {
    if (dirty.Has(row)) UpdateRow(row + back_);
  }
  if (CursorRow() != cursorRow_) UpdateRow(cursorRow_);
  cursorRow_ = CursorRow();
  UpdateRow(cursorRow_);
  if (QAccessible::isActive() && !news_.isActive()) news_.start(kNewsMilliseconds, this);
}

// New lines go in below a view of the scroll-back, which stays where it is unless the control wants
// the newest lines seen.
void TerminalWidget::FollowScrolling(const vt::DirtyRows& dirty) {
  if (dirty.scrolledOff == 0 && dirty.dropped == 0 && !dirty.resized) return;
  const std::int64_t lines = terminal_->emulation().ScrollbackCount();
  if (dirty.dropped > 0) {
    selection_.LinesDropped(static_cast<int>(std::min<std::int64_t>(dirty.dropped, INT_MAX / 2)));
  }
  if (back_ > 0) {
    const std::int64_t linesBefore = lines - dirty.scrolledOff + dirty.dropped;
    const std::int64_t first = linesBefore - back_ - dirty.dropped;
    back_ = terminal_->KeepScrolledView()
                ? static_cast<int>(std::clamp<std::int64_t>(lines - first, 0, lines))
                : 0;
    if (lines - back_ != first) update();
  }
  FitScrollBar();
}

// What has been selected is what reads selected: if the host writes over it, it is no more.
void TerminalWidget::DropChangedSelection(const vt::DirtyRows& dirty) {
  if (selection_.IsEmpty()) return;
  const int first = terminal_->emulation().ScrollbackCount();
  bool touched = dirty.resized;
  for (int line = std::max(first, selection_.From().line); line <= selection_.To().line; ++line) {
    const int row = line - first;
    touched = touched || (row < Screen().Rows() && dirty.Has(row));
  }
  if (!touched || (!dirty.resized && selection_.StillShown())) return;
  selection_.Clear();
  update();
  // In the middle of the host's output nobody is told; the user's side of things comes after it.
  desktop().Post(EventKind::User, [self = QPointer<TerminalWidget>(this)] {
    if (self && self->terminal_ && self->selection_.IsEmpty()) self->terminal_->UserSelect({});
  });
}

void TerminalWidget::TellAssistiveTools() {
  if (QAccessible::isActive()) AnnounceTerminal(*this);
}

// --- painting

TerminalPainter::CursorShape TerminalWidget::ShapeOfCursor() const {
  if (!Screen().CursorVisible()) return TerminalPainter::CursorShape::None;
  return hasFocus() && terminal_->SessionUp() ? TerminalPainter::CursorShape::Block
                                              : TerminalPainter::CursorShape::Outline;
}

void TerminalWidget::paintEvent(QPaintEvent* event) {
  // A view of the scroll-back lies where the output that waits has not yet moved it. Otherwise
  // what is there now is painted; taking it here would ask for the next paint at once.
  if (back_ > 0) TakeWaitingOutput();
  QElapsedTimer clock;
  clock.start();
  QPainter painter(this);
  const TerminalColours colours(*terminal_);
  const QRegion& region = event->region();
  for (const QRect& part : region) painter.fillRect(part, colours.Back());
  for (int row = 0; row < Screen().Rows(); ++row) {
    const int top = kMargin + row * font_.CellHeight();
    if (region.intersects(QRect(0, top, width(), font_.CellHeight()))) {
      PaintRow(painter, colours, row);
    }
  }
  if (blinking_.any() && !blink_.isActive()) blink_.start(kBlinkMilliseconds, this);
  paintMilliseconds_ =
      static_cast<int>(std::min<qint64>(clock.elapsed(), kLongestFrameMilliseconds));
}

void TerminalWidget::PaintRow(QPainter& painter, const TerminalColours& colours, int row) {
  const int absolute = FirstLine() + row;
  const vt::Line line = terminal_->emulation().LineAt(absolute);
  const QPoint corner(kMargin, kMargin + row * font_.CellHeight());
  const TerminalPainter rowPainter(painter, colours, font_, blinkOff_);
  const bool blinks = rowPainter.PaintLine(
      corner, line, [&](int column) { return selection_.Contains(absolute, column); });
  blinking_.set(static_cast<std::size_t>(row), blinks);
  if (row == CursorRow()) {
    rowPainter.PaintCursor(corner, line, Screen().CursorColumn(), ShapeOfCursor());
    PaintComposed(painter, colours);
  }
}

// What a dead key or an input method has so far, underlined at the cursor.
void TerminalWidget::PaintComposed(QPainter& painter, const TerminalColours& colours) {
  if (composed_.isEmpty()) return;
  vt::Line line;
  vt::Attributes underlined;
  underlined.Set(vt::Attributes::kUnderline, true);
  for (const QChar character : composed_) line.cells.push_back({character.unicode(), underlined});
  const QRect cursor = CellRect(CursorRow(), Screen().CursorColumn());
  const auto count = static_cast<int>(line.cells.size());
  painter.fillRect(QRect(cursor.topLeft(), QSize(count * font_.CellWidth(), cursor.height())),
                   colours.Back());
  TerminalPainter(painter, colours, font_, false).PaintLine(cursor.topLeft(), line, [](int) {
    return false;
  });
}

void TerminalWidget::timerEvent(QTimerEvent* event) {
  if (event->timerId() == blink_.timerId()) {
    blinkOff_ = !blinkOff_;
    for (std::size_t row = 0; row < blinking_.size(); ++row) {
      if (blinking_.test(row)) UpdateRow(static_cast<int>(row));
    }
    if (blinking_.none()) blink_.stop();
  } else if (event->timerId() == frame_.timerId()) {
    frame_.stop();
    if (outputWaits_) TakeOutputThisFrame();
  } else if (event->timerId() == news_.timerId()) {
    news_.stop();
    TellAssistiveTools();
  } else if (event->timerId() == dragScroll_.timerId()) {
    ScrollTo(FirstLine() + (pointer_.y() < 0 ? -1 : 1));
    selection_.Extend(PlaceAt(pointer_));
    update();
  }
}

// --- keys

bool TerminalWidget::event(QEvent* event) {
  if (!terminal_) return !NeedsTerminal(event->type()) && QWidget::event(event);
  if (IsOfUser(event->type())) TakeWaitingOutput();
  if (event->type() == QEvent::ShortcutOverride) {
    // All keys are the host's, but those that open the menus.
    const auto* key = static_cast<QKeyEvent*>(event);
    if (!(key->modifiers() & Qt::AltModifier)) event->accept();
    return true;
  }
  return QWidget::event(event);
}

void TerminalWidget::keyPressEvent(QKeyEvent* event) {
  if (event->isAutoRepeat() && !terminal_->emulation().AutoRepeat()) return;
  const bool shift = (event->modifiers() & Qt::ShiftModifier) != 0;
  if (shift && (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown)) {
    const int page = std::max(1, Screen().Rows() - 1);
    ScrollTo(FirstLine() + (event->key() == Qt::Key_PageUp ? -page : page));
    return;
  }
  const auto key = ToTerminalKey(*event);
  const std::string text = key ? std::string() : ToTerminalText(*event);
  if (!key && text.empty()) return QWidget::keyPressEvent(event);
  ScrollTo(terminal_->emulation().ScrollbackCount());  // what is typed is seen
  if (key) {
    terminal_->UserKey(key->key, key->modifiers);
  } else {
    terminal_->UserText(text);
  }
}

void TerminalWidget::inputMethodEvent(QInputMethodEvent* event) {
  composed_ = event->preeditString();
  UpdateRow(CursorRow());
  const std::string text = ToTypedBytes(event->commitString());
  if (!text.empty()) terminal_->UserText(text);
  event->accept();
}

QVariant TerminalWidget::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (terminal_ && query == Qt::ImCursorRectangle)
    return CellRect(CursorRow(), Screen().CursorColumn());
  return QWidget::inputMethodQuery(query);
}

void TerminalWidget::focusInEvent(QFocusEvent*) {
  UpdateRow(CursorRow());
}
void TerminalWidget::focusOutEvent(QFocusEvent*) {
  UpdateRow(CursorRow());
}

// --- selection

void TerminalWidget::ShowSelection() {
  update();
  ReportSelection();
}

void TerminalWidget::ReportSelection() {
  const Terminal::Selection selected = selection_.Report();
  QClipboard* const clipboard = QGuiApplication::clipboard();
  if (clipboard->supportsSelection() && selected.length > 0) {
    const auto start = static_cast<std::size_t>(selected.start - 1);
    const auto length = static_cast<std::size_t>(selected.length);
    clipboard->setText(ToUnicode(selected.text.substr(start, length)), QClipboard::Selection);
  }
  terminal_->UserSelect(selected);
}

void TerminalWidget::StartSelection(const QPoint& point, Unit unit) {
  const QPoint cell = CellAt(point);
  selecting_ = true;
  if (unit == Unit::Character || unit == Unit::Rectangle) {
    selection_.Begin(PlaceAt(point), unit);
  } else {
    selection_.Begin({FirstLine() + cell.y(), cell.x()}, unit);
  }
  update();
}

// What was selected last in any window of an X11 desktop.
void TerminalWidget::PastePrimarySelection() {
  const QClipboard* const clipboard = QGuiApplication::clipboard();
  if (!clipboard->supportsSelection()) return;
  ScrollTo(terminal_->emulation().ScrollbackCount());
  terminal_->UserPaste(ToTypedBytes(clipboard->text(QClipboard::Selection)));
}

void TerminalWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) return PastePrimarySelection();
  if (event->button() != Qt::LeftButton) return;
  if (WidgetPeer* peer = WidgetPeer::Around(this)) {
    peer->BehindPress([peer] { peer->control().UserRelease(); });
  }
  pointer_ = event->position().toPoint();
  const bool third = QDateTime::currentMSecsSinceEpoch() - lastDoubleClickTime_ <
                         QApplication::doubleClickInterval() &&
                     (pointer_ - lastDoubleClick_).manhattanLength() < kThirdClickDistance;
  if (third) {
    StartSelection(pointer_, Unit::Line);
  } else if (event->modifiers() & Qt::ShiftModifier) {
    selecting_ = true;
    selection_.Extend(PlaceAt(pointer_));
    update();
  } else {
    const bool alt = (event->modifiers() & Qt::AltModifier) != 0;
    StartSelection(pointer_, alt ? Unit::Rectangle : Unit::Character);
  }
}

void TerminalWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  lastDoubleClickTime_ = QDateTime::currentMSecsSinceEpoch();
  lastDoubleClick_ = pointer_ = event->position().toPoint();
  StartSelection(pointer_, Unit::Word);
}

void TerminalWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!selecting_ || !(event->buttons() & Qt::LeftButton)) return;
  pointer_ = event->position().toPoint();
  const bool beyond = pointer_.y() < 0 || pointer_.y() >= height();
  if (beyond && !dragScroll_.isActive()) dragScroll_.start(kDragScrollMilliseconds, this);
  if (!beyond) dragScroll_.stop();
  selection_.Extend(PlaceAt(pointer_));
  update();
}

void TerminalWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !selecting_) return;
  selecting_ = false;
  dragScroll_.stop();
  // A click that selects nothing where nothing was selected is no news.
  if (!selection_.IsEmpty() || terminal_->selection().length > 0) ShowSelection();
}

void TerminalWidget::wheelEvent(QWheelEvent* event) {
  wheel_ += event->angleDelta().y();
  const int steps = wheel_ / kWheelStep;
  wheel_ -= steps * kWheelStep;
  if (steps != 0) ScrollTo(FirstLine() - steps * kLinesOfAWheelStep);
  event->accept();
}

}  // namespace quorvel

#include "app/sim/qt/Mouse.h"

#include <QCursor>
#include <QGuiApplication>
#include <QStyleHints>
#include <QTest>

namespace quorvel::sim {
namespace {

// Between the presses of a double click and of two single ones, on the clock of the events. The
// interval of the toolkit lies between; it is short because a list that has dropped down takes no
// click for so long, in real time.
constexpr int kWithin = 1;
constexpr int kInterval = 5;
constexpr int kApart = 1000;

}  // namespace

Mouse::Mouse(Door& door) : door_(door) {
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(kInterval);
}

void Mouse::Click(Where where, Qt::MouseButton button) {
  door_.Add([this, where = std::move(where), button] { Begin(where, button, 1); });
}

void Mouse::DoubleClick(Where where) {
  door_.Add([this, where = std::move(where)] { Begin(where, Qt::LeftButton, 2); });
}

// The pointer goes there as well: it is where a menu opens.
void Mouse::Begin(const Where& where, Qt::MouseButton button, int presses) {
  const auto spot = where();
  if (!spot || !spot->window) return;
  window_ = spot->window;
  at_ = window_->mapToGlobal(spot->at);
  if (button == Qt::RightButton) QCursor::setPos(at_);
  clock_ += kApart;
  Press(button, presses - 1);
}

// What the press causes may wait: the release comes in inside of that.
void Mouse::Press(Qt::MouseButton button, int pressesLeft) {
  door_.AddNext([this, button, pressesLeft] { Release(button, pressesLeft); });
  Send(QEvent::MouseButtonPress, button);
}

void Mouse::Release(Qt::MouseButton button, int pressesLeft) {
  clock_ += kWithin;
  if (pressesLeft > 0) {
    door_.AddNext([this, button, pressesLeft] { Press(button, pressesLeft - 1); });
  }
  Send(QEvent::MouseButtonRelease, button);
}

// The window that was pressed, or what is there now that it has gone.
QWindow* Mouse::Target() const {
  if (window_ && window_->isVisible()) return window_;
  QWindow* const there = QGuiApplication::topLevelAt(at_);
  return there ? there : QGuiApplication::focusWindow();
}

void Mouse::Send(QEvent::Type type, Qt::MouseButton button) {
  QWindow* const window = Target();
  if (!window) return;
  const Qt::MouseButtons down = type == QEvent::MouseButtonPress ? button : Qt::NoButton;
  qt_handleMouseEvent(window, window->mapFromGlobal(at_), at_, down, button, type, Qt::NoModifier,
                      clock_);
}

}  // namespace quorvel::sim

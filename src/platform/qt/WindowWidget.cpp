#include "platform/qt/WindowWidget.h"

#include <QCloseEvent>
#include <QEvent>
#include <QTimer>

#include "platform/controls/Desktop.h"
#include "platform/qt/WindowPeer.h"

namespace quorvel {

WindowWidget::WindowWidget(Window& window, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), window_(&window) {}

bool WindowWidget::event(QEvent* event) {
  // When a box or a dialog closes, the window system may choose a window by itself, and the program
  // puts that right at once; so only what lasts counts as the user's turning to a window.
  constexpr int kLasts = 50;  // milliseconds
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && isWindow()) {
    QTimer::singleShot(kLasts, this, [this] { NoticeTurn(); });
  }
  return QWidget::event(event);
}

void WindowWidget::NoticeTurn() {
  if (!window_ || !HasDesktop() || !isActiveWindow() || !window_->IsLoaded()) return;
  Window* met = Met();
  if (desktop().IsBlocked(met ? *met : *window_)) return KeepBlockedBehind(*window_);
  if (met && desktop().focus().Front() != met) met->UserActivate();
}

void WindowWidget::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (window_ && HasDesktop() && !desktop().IsEnding()) window_->UserClose();
}

}  // namespace quorvel

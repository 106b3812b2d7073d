#include "platform/qt/MainShell.h"

#include <QTimer>
#include <algorithm>

#include "platform/controls/Desktop.h"
#include "platform/controls/SimpleControls.h"
#include "platform/qt/Looks.h"
#include "platform/qt/WidgetPeer.h"
#include "platform/qt/WindowPeer.h"

namespace quorvel {
namespace {

constexpr QSize kSmallest(320, 200);  // pixels; less is of no use to anybody

std::vector<Panel*> BottomPanels(const Window& window) {
  std::vector<Panel*> panels;
  for (Control* child : window.Children()) {
    if (child->kind() != ControlKind::Panel) continue;
    auto* panel = static_cast<Panel*>(child);
    if (panel->AlignBottom) panels.push_back(panel);
  }
  return panels;
}

// The children of the shell that are shown, front to back.
std::vector<Window*> ShownChildren() {
  const auto& order = desktop().focus().Order();
  std::vector<Window*> children;
  for (auto at = order.rbegin(); at != order.rend(); ++at) {
    const bool shown = (*at)->kind() == Window::Kind::Child && (*at)->IsLoaded() &&
                       (*at)->IsVisible() && WidgetOf(**at);
    if (shown) children.push_back(*at);
  }
  return children;
}

}  // namespace

MainShell::MainShell(Window& window)
    : WindowWidget(window, nullptr, Qt::Window),
      bar_(new QMenuBar(this)),
      client_(new QWidget(this)),
      panels_(new QWidget(this)) {
  setMinimumSize(kSmallest);
  bar_->setNativeMenuBar(false);
  client_->setBackgroundRole(QPalette::Dark);
  client_->setAutoFillBackground(true);
}

// --- size

void MainShell::TakePlace() {
  if (!window_) return;
  const QPoint place(ToPixels(window_->Left()), ToPixels(window_->Top()));
  if (pos() != place) move(place);
}

void MainShell::TakeSize() {
  if (!window_) return;
  const QSize frame = frameGeometry().size() - size();
  const QSize wanted(ToPixels(window_->Width()), ToPixels(window_->Height()));
  const QPointer<MainShell> self(this);  // sizing is told to the program, which may close all
  if (frameGeometry().size() != wanted && !isMaximized() && !isFullScreen()) resize(wanted - frame);
  if (!self) return;
  Arrange();
  TellSize();
}

void MainShell::Arrange() {
  if (!window_) return;
  const int barHeight = bar_->actions().isEmpty() ? 0 : std::max(0, bar_->heightForWidth(width()));
  bar_->setGeometry(0, 0, width(), barHeight);
  int panelHeight = 0;
  for (Panel* panel : BottomPanels(*window_)) {
    const int height = panel->Visible() ? ToPixels(panel->Height()) : 0;
    if (QWidget* widget = WidgetOf(*panel)) {
      widget->setGeometry(0, panelHeight, width(), ToPixels(panel->Height()));
    }
    panelHeight += height;
  }
  const int clientHeight = std::max(0, height() - barHeight - panelHeight);
  client_->setGeometry(0, barHeight, width(), clientHeight);
  panels_->setGeometry(0, barHeight + clientHeight, width(), panelHeight);
}

void MainShell::TellSize() {
  if (!window_ || !window_->peer()) return;
  const QSize whole = frameGeometry().size();
  const QSize frame = whole - size();
  const QPointer<MainShell> self(this);
  window_->AdoptFrame(ToTwips(frame.width()), ToTwips(frame.height() + bar_->height()));
  if (!self || !window_) return;  // its new size has closed it
  // The size that the window has asked for, give or take its rounding to pixels, is no news.
  const bool asked =
      ToPixels(window_->Width()) == whole.width() && ToPixels(window_->Height()) == whole.height();
  if (!asked) window_->UserResize(ToTwips(whole.width()), ToTwips(whole.height()));
}

bool MainShell::event(QEvent* event) {
  // The window system puts the frame on behind our back.
  if (event->type() == QEvent::Show) QTimer::singleShot(0, this, [this] { TellSize(); });
  return WindowWidget::event(event);
}

void MainShell::resizeEvent(QResizeEvent*) {
  Arrange();
  TellSize();
}

void MainShell::moveEvent(QMoveEvent*) {
  const QPointer<MainShell> self(this);
  TellSize();
  if (!self || !window_) return;
  if (ToPixels(window_->Left()) == x() && ToPixels(window_->Top()) == y()) return;
  window_->UserMove(ToTwips(x()), ToTwips(y()));
}

// --- children

void MainShell::Restack() {
  if (!window_ || !HasDesktop()) return;
  const std::vector<Window*> shown = ShownChildren();
  std::vector<QWidget*> covers;
  for (Window* child : shown) {
    QWidget* widget = WidgetOf(*child);
    const QRect seen = widget->geometry() & client_->rect();
    const bool isCovered = std::any_of(covers.begin(), covers.end(), [&](const QWidget* other) {
      return other->geometry().contains(seen);
    });
    if (!isCovered) covers.push_back(widget);
  }
  for (auto at = shown.rbegin(); at != shown.rend(); ++at) {
    QWidget* widget = WidgetOf(**at);
    const bool seen = std::find(covers.begin(), covers.end(), widget) != covers.end();
    widget->raise();
    if (seen) widget->show();
  }
  // Hiding comes last, so that the toolkit never has to look for another widget to focus.
  for (Window* child : shown) {
    QWidget* widget = WidgetOf(*child);
    if (std::find(covers.begin(), covers.end(), widget) == covers.end()) widget->hide();
  }
  ShowMenuOf(shown.empty() ? *window_ : *shown.front());
}

// In the shell the user meets the child in front.
Window* MainShell::Met() {
  const std::vector<Window*> shown = ShownChildren();
  return shown.empty() ? nullptr : shown.front();
}

void MainShell::ShowMenuOf(const Window& owner) {
  if (!owner.peer()) return;
  const QList<QAction*>& entries = QtWindowPeer::Of(owner).menus().BarEntries();
  const QList<QAction*> shown = bar_->actions();
  if (std::equal(shown.begin(), shown.end(), entries.begin(), entries.end())) return;
  bar_->clear();
  bar_->addActions(entries);
  Arrange();
  TellSize();
}

}  // namespace quorvel

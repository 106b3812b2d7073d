#include "platform/qt/MainShell.h"

#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include "platform/controls/Desktop.h"
#include "platform/controls/SimpleControls.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeers.h"
#include "platform/qt/WindowPeers.h"

namespace quorvel {
namespace {

void Apply(const MenuItem& item, QAction& action) {
  action.setText(ToCaption(item.Caption()));
  action.setEnabled(item.Enabled());
  action.setVisible(item.Visible());
  action.setCheckable(item.Checked());
  action.setChecked(item.Checked());
}

QAction* MakeAction(MenuItem& item, std::map<const MenuItem*, QAction*>& actions, QWidget* parent) {
  auto* action = new QAction(parent);
  action->setObjectName(ToUnicode(item.Name()));
  // The text of an entry is its accessible name; tools find it by its code name in the tip.
  action->setToolTip(AccessibleDescription(QString(), item.Name()));
  Apply(item, *action);
  // Roles of other platforms' menus are not guessed from captions.
  action->setMenuRole(QAction::NoRole);
  QObject::connect(action, &QAction::triggered, action, [&item] { item.UserClick(); });
  actions[&item] = action;
  return action;
}

}  // namespace

QMenu* MakeMenu(MenuItem& menu, std::map<const MenuItem*, QAction*>& actions, QWidget* parent) {
  auto* out = new QMenu(ToCaption(menu.Caption()), parent);
  out->setObjectName(ToUnicode(menu.Name()));
  out->setAccessibleDescription(AccessibleDescription(QString(), menu.Name()));
  for (MenuItem* item : menu.Items()) {
    if (item->IsSeparator()) {
      out->addSeparator();
    } else if (!item->Items().empty()) {
      QMenu* inner = MakeMenu(*item, actions, out);
      out->addMenu(inner);
    } else {
      out->addAction(MakeAction(*item, actions, out));
    }
  }
  actions[&menu] = out->menuAction();
  Apply(menu, *out->menuAction());
  return out;
}

MainShell::MainShell(Window& window)
    : window_(window),
      centre_(new QWidget(this)),
      client_(new QWidget(centre_)),
      panels_(new QWidget(centre_)) {
  setCentralWidget(centre_);
  setWindowIcon(PictureIcon("app"));
  client_->setBackgroundRole(QPalette::Dark);
  client_->setAutoFillBackground(true);
  // The menu bar takes its height from the centre without the shell itself changing.
  centre_->installEventFilter(this);
}

bool MainShell::eventFilter(QObject* watched, QEvent* event) {
  if (watched == centre_ && event->type() == QEvent::Resize) {
    Arrange();
    TellFrame();
  }
  return QMainWindow::eventFilter(watched, event);
}

void MainShell::TakeSize() {
  const QSize frame = frameGeometry().size() - size();
  const QSize wanted(ToPixels(window_.Width()), ToPixels(window_.Height()));
  if (frameGeometry().size() != wanted) resize(wanted - frame);
  Arrange();
}

void MainShell::Arrange() {
  int panelHeight = 0;
  for (const Control* child : window_.Children()) {
    if (child->kind() != ControlKind::Panel || !child->Visible()) continue;
    if (static_cast<const Panel*>(child)->AlignBottom) panelHeight += ToPixels(child->Height());
  }
  const int clientHeight = std::max(0, centre_->height() - panelHeight);
  client_->setGeometry(0, 0, centre_->width(), clientHeight);
  panels_->setGeometry(0, clientHeight, centre_->width(), panelHeight);
  int top = 0;
  for (const Control* child : window_.Children()) {
    QWidget* widget = WidgetOf(*child);
    if (!widget || child->kind() != ControlKind::Panel) continue;
    if (!static_cast<const Panel*>(child)->AlignBottom) continue;
    widget->setGeometry(0, top, centre_->width(), ToPixels(child->Height()));
    if (child->Visible()) top += ToPixels(child->Height());
  }
}

void MainShell::TellFrame() {
  const QSize frame = frameGeometry().size() - centre_->size();
  window_.AdoptFrame(ToTwips(frame.width()), ToTwips(frame.height()));
}

void MainShell::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  const QSize whole = frameGeometry().size();
  // The size that the window has asked for, give or take its rounding to pixels, is no news.
  if (ToPixels(window_.Width()) == whole.width() && ToPixels(window_.Height()) == whole.height()) {
    return;
  }
  window_.UserResize(ToTwips(whole.width()), ToTwips(whole.height()));
}

void MainShell::moveEvent(QMoveEvent*) {
  if (ToPixels(window_.Left()) == x() && ToPixels(window_.Top()) == y()) return;
  window_.UserMove(ToTwips(x()), ToTwips(y()));
}

void MainShell::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange) NoticeTurn(*this, window_);
}

void MainShell::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!desktop().IsEnding()) window_.UserClose();
}

// --- the menu bar

void MainShell::RefreshMenu() {
  Window* owner = &window_;
  const auto& order = desktop().focus().Order();
  for (auto at = order.rbegin(); at != order.rend(); ++at) {
    if ((*at)->kind() == Window::Kind::Child && (*at)->IsVisible() && (*at)->IsLoaded()) {
      owner = *at;
      break;
    }
  }
  if (owner != menuOwner_) BuildMenu(*owner);
}

void MainShell::BuildMenu(Window& owner) {
  menuOwner_ = &owner;
  actions_.clear();
  // An entry of the old menu may be in its own click.
  for (QMenu* old : menuBar()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
    old->deleteLater();
  }
  for (QAction* old : menuBar()->actions()) {
    menuBar()->removeAction(old);
    if (!old->menu()) old->deleteLater();
  }
  for (MenuItem* item : owner.MenuBar()) {
    if (item->PopUpOnly) continue;
    if (item->Items().empty()) {
      menuBar()->addAction(MakeAction(*item, actions_, menuBar()));
    } else {
      menuBar()->addMenu(MakeMenu(*item, actions_, menuBar()));
    }
  }
}

void MainShell::UpdateMenu(MenuItem& item) {
  if (QAction* action = ActionOf(item)) Apply(item, *action);
}

QAction* MainShell::ActionOf(const MenuItem& item) const {
  const auto found = actions_.find(&item);
  return found == actions_.end() ? nullptr : found->second;
}

}  // namespace quorvel

#include "platform/qt/MenuSet.h"

#include "platform/controls/Control.h"
#include "platform/controls/Window.h"
#include "platform/qt/Accessibility.h"
#include "platform/qt/Discarded.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {

MenuSet::MenuSet(const Window& window, QWidget* parent) : holder_(new QWidget(parent)) {
  holder_->hide();
  for (MenuItem* item : window.MenuBar()) {
    QAction* action = Make(*item);
    if (!item->PopUpOnly) bar_ << action;
  }
}

// An entry may be in its own click.
MenuSet::~MenuSet() {
  for (const auto& [item, action] : actions_) action->disconnect(action);
  if (!holder_) return;
  for (QAction* action : bar_) action->setVisible(false);
  Discard(holder_);
}

QAction* MenuSet::Make(MenuItem& item) {
  QAction* action = nullptr;
  if (item.Items().empty()) {
    action = new QAction(holder_);
    QObject::connect(action, &QAction::triggered, action, [&item] { item.UserClick(); });
  } else {
    auto* menu = new QMenu(holder_);
    menu->setObjectName(ToUnicode(item.Name()));
    menu->setAccessibleDescription(AccessibleDescription(QString(), item.Name()));
    for (MenuItem* inner : item.Items()) menu->addAction(Make(*inner));
    action = menu->menuAction();
  }
  action->setObjectName(ToUnicode(item.Name()));
  action->setMenuRole(QAction::NoRole);  // no platform guesses roles from captions
  actions_[&item] = action;
  Update(item);
  return action;
}

QAction* MenuSet::ActionOf(const MenuItem& item) const {
  const auto found = actions_.find(&item);
  return found == actions_.end() ? nullptr : found->second;
}

void MenuSet::Update(const MenuItem& item) {
  QAction* action = ActionOf(item);
  if (!action) return;  // made after the window was loaded
  action->setSeparator(item.IsSeparator());
  // With a text the toolkit draws a separator as a heading.
  action->setText(item.IsSeparator() ? QString() : ToMnemonic(item.Caption()));
  if (action->menu()) action->menu()->setAccessibleName(ToCaption(WithoutMnemonic(item.Caption())));
  action->setEnabled(item.Enabled());
  action->setVisible(item.Visible());
  action->setCheckable(item.Checked());
  action->setChecked(item.Checked());
}

}  // namespace quorvel

#include "app/sim/qt/Menus.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <optional>
#include <vector>

#include "platform/controls/Desktop.h"
#include "platform/qt/WindowPeer.h"

namespace quorvel::sim {
namespace {

using Path = std::vector<MenuItem*>;

// From an entry of the menu bar down to this one; empty when it is not below any of these.
Path PathTo(const MenuItem& entry, const std::vector<MenuItem*>& items) {
  for (MenuItem* item : items) {
    if (item == &entry) return {item};
    Path rest = PathTo(entry, item->Items());
    if (rest.empty()) continue;
    rest.insert(rest.begin(), item);
    return rest;
  }
  return {};
}

QAction* ActionOf(const MenuItem& item) {
  return item.window().peer() ? QtWindowPeer::Of(item.window()).menus().ActionOf(item) : nullptr;
}

MenuItem* OwnerOf(const QMenu* menu, const std::vector<MenuItem*>& items) {
  for (MenuItem* item : items) {
    const QAction* action = ActionOf(*item);
    if (action && action->menu() == menu) return item;
    if (MenuItem* inner = OwnerOf(menu, item->Items())) return inner;
  }
  return nullptr;
}

QMenu* ShownMenu() {
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

// Where the title shows; nowhere while its window's menus are not in the bar.
std::optional<Spot> SpotOnTitle(const MenuItem& title) {
  QAction* action = ActionOf(title);
  QWidget* widget = WidgetOf(title.window());
  if (!action || !widget) return std::nullopt;
  for (QMenuBar* bar : widget->window()->findChildren<QMenuBar*>()) {
    if (!bar->actions().contains(action)) continue;
    return SpotOn(bar, bar->actionGeometry(action).center());
  }
  return std::nullopt;
}

std::optional<Spot> SpotInMenu(const MenuItem& entry) {
  QMenu* menu = ShownMenu();
  QAction* action = ActionOf(entry);
  if (!menu || !action || !menu->actions().contains(action)) return std::nullopt;
  return SpotOn(menu, menu->actionGeometry(action).center());
}

}  // namespace

MenuItem* PoppedUp() {
  const QMenu* menu = ShownMenu();
  if (!menu) return nullptr;
  for (Window* window : desktop().LoadedWindows()) {
    if (MenuItem* owner = OwnerOf(menu, window->MenuBar())) return owner;
  }
  return nullptr;
}

void ClickInPopUp(Mouse& mouse, MenuItem& entry) {
  const MeantWindow window(entry.window());
  mouse.Click([window, &entry] { return window.Get() ? SpotInMenu(entry) : std::nullopt; });
}

void ChooseFromBar(Door& door, Mouse& mouse, Keys& keys, MenuItem& entry) {
  const Path path = PathTo(entry, entry.window().MenuBar());
  if (path.empty()) return;
  const MeantWindow window(entry.window());
  mouse.Click(
      [window, title = path.front()] { return window.Get() ? SpotOnTitle(*title) : std::nullopt; });
  for (std::size_t i = 1; i < path.size(); ++i) ClickInPopUp(mouse, *path[i]);
  // A grey entry leaves its menu open.
  for (std::size_t i = 0; i < path.size(); ++i) {
    door.Add([window, &keys, title = path.front()] {
      const QMenu* menu = ShownMenu();
      if (menu && window.Get() && OwnerOf(menu, {title})) keys.Press(KeyCode::Escape);
    });
  }
}

bool IsAstray() {
  if (QApplication::activePopupWidget()) return !PoppedUp();
  return qobject_cast<QMenuBar*>(QApplication::focusWidget()) != nullptr;
}

}  // namespace quorvel::sim

#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

#include "platform/controls/Window.h"
#include "platform/qt/MenuSet.h"

class QAction;

namespace quorvel {

class MainShell;

// What the widgets of all windows have in common.
class QtWindowPeer : public WindowPeer {
 public:
  QtWindowPeer(Window& window, QWidget* widget);
  ~QtWindowPeer() override;

  static QtWindowPeer& Of(const Window& window) {
    return *static_cast<QtWindowPeer*>(window.peer());
  }

  QWidget* Widget() const { return widget_; }
  MenuSet& menus() { return *menus_; }
  // The name of a control has changed, and with it maybe those of others. They are all brought up
  // to date soon, once for many changes.
  void NamesChanged();

  std::unique_ptr<ControlPeer> MakePeer(Control& control) override;
  void Built() override;
  void Update(Prop prop) override;
  void UpdateMenu(MenuItem& item) override { menus_->Update(item); }
  void ShowNoFocus() override;

 protected:
  // The widget that controls of the window lie on.
  virtual QWidget* InsideFor(const Control& control) = 0;
  // The window has been enabled again: the toolkit's focus goes back to where the keyboard is.
  void FollowFocus();

  Window& window_;

 private:
  void RefreshNames();

  QPointer<QWidget> widget_;
  std::unique_ptr<MenuSet> menus_;
  bool built_ = false;
  bool namesDue_ = false;
};

// The peer of a window. `shell` is the main window's widget, where there is one: children lie in
// its client area, dialogs above it. The main window's own peer sets it.
std::unique_ptr<WindowPeer> MakeWindowPeer(Window& window, QPointer<MainShell>& shell);

// A window that a box or a modal window blocks has been shown or raised: it is not to cover that.
void KeepBlockedBehind(const Window& window);

// The widget of a loaded window; nullptr otherwise.
QWidget* WidgetOf(const Window& window);

}  // namespace quorvel

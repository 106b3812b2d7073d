#pragma once

#include <QMainWindow>
#include <map>

#include "platform/controls/Window.h"

namespace quorvel {

// The main window: a client area for frameless children, below it the panels aligned to the
// bottom, above it the menu bar of the child in front (its own when there is none).
class MainShell : public QMainWindow {
 public:
  explicit MainShell(Window& window);

  QWidget* ClientArea() { return client_; }
  QWidget* PanelArea() { return panels_; }
  // Takes over the window's size and the heights of its panels.
  void TakeSize();
  // Tells the window how much its frame, title and menu bar take.
  void TellFrame();
  // Builds the menu bar anew if another window is in front.
  void RefreshMenu();
  void UpdateMenu(MenuItem& item);
  QAction* ActionOf(const MenuItem& item) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Arrange();
  void BuildMenu(Window& owner);

  Window& window_;
  QWidget* centre_;
  QWidget* client_;
  QWidget* panels_;
  Window* menuOwner_ = nullptr;
  std::map<const MenuItem*, QAction*> actions_;
};

// A pop-up menu of an entry's items; to be deleted by the caller.
QMenu* MakeMenu(MenuItem& menu, std::map<const MenuItem*, QAction*>& actions, QWidget* parent);

}  // namespace quorvel

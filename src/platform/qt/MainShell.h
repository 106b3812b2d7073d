#pragma once

#include <QMenuBar>
#include <QWidget>

#include "platform/controls/Window.h"
#include "platform/qt/WindowWidget.h"

namespace quorvel {

// The main window's widget: a client area for frameless children, below it the panels aligned to
// the bottom, above it the menu bar of the child in front (its own when there is none).
class MainShell : public WindowWidget {
 public:
  explicit MainShell(Window& window);

  QWidget* ClientArea() { return client_; }
  QWidget* PanelArea() { return panels_; }
  QMenuBar* Bar() { return bar_; }

  // Takes over the window's place, or its size and the heights of its panels.
  void TakePlace();
  void TakeSize();
  // Puts children in the order of the windows, front to back; those that are covered are hidden.
  // The menu bar becomes that of the one in front.
  void Restack();

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  Window* Met() override;

 private:
  void Arrange();
  // Tells the window how much its frame, title and menu bar take, and its outer size if that is
  // not what it asked for.
  void TellSize();
  void ShowMenuOf(const Window& owner);

  QMenuBar* bar_;
  QWidget* client_;
  QWidget* panels_;
};

}  // namespace quorvel

#pragma once

#include <QWidget>

#include "platform/controls/Window.h"
#include "platform/qt/InputGate.h"
#include "platform/qt/OwnWidget.h"

namespace quorvel {

// A top-level widget of a window of the program. Closing it is the window's own business, and so is
// every travel of the keyboard: the toolkit moves its focus for the mouse only.
class WindowWidget : public QWidget, public OwnWindow, public OwnWidget {
 public:
  WindowWidget(Window& window, QWidget* parent, Qt::WindowFlags flags);

  Window* Owner() const override { return window_; }
  void Forget() override { window_ = nullptr; }

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool focusNextPrevChild(bool) override { return false; }

  // The window that the user meets here; nullptr for none.
  virtual Window* Met() { return window_; }

  Window* window_;

 private:
  void NoticeTurn();
};

}  // namespace quorvel

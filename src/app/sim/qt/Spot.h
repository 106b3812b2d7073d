#pragma once

#include <QPoint>
#include <QPointer>
#include <QWindow>
#include <memory>
#include <optional>

#include "platform/controls/Control.h"
#include "platform/controls/Window.h"

class QWidget;

namespace quorvel::sim {

// A place in a window of the window system.
struct Spot {
  QPointer<QWindow> window;
  QPoint at;
};

// The place of a point of a widget; nothing where it can't be seen, or something else of its window
// lies above it.
std::optional<Spot> SpotOn(QWidget* widget, QPoint at);
// A place that belongs to the widget of the control and not to a control inside of it.
std::optional<Spot> SpotOn(Control& control);

// A control that an input still under way means; it may be gone when that comes in.
class MeantControl {
 public:
  explicit MeantControl(Control& control)
      : control_(&control), window_(control.window().weak_from_this()) {}
  // Its widget; nullptr when the control or its window has gone.
  QWidget* Widget() const;
  Control& control() const { return *control_; }

 private:
  Control* control_;
  std::weak_ptr<Window> window_;
};

// The same of a window.
class MeantWindow {
 public:
  explicit MeantWindow(Window& window) : window_(window.weak_from_this()) {}
  // nullptr when it has gone.
  std::shared_ptr<Window> Get() const;

 private:
  std::weak_ptr<Window> window_;
};

}  // namespace quorvel::sim

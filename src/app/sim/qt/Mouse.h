#pragma once

#include <QPoint>
#include <QPointer>
#include <QWindow>
#include <functional>
#include <optional>

#include "app/sim/qt/Door.h"
#include "app/sim/qt/Spot.h"

namespace quorvel::sim {

// A mouse at the door. Where it is to go is looked up when its turn comes.
class Mouse {
 public:
  using Where = std::function<std::optional<Spot>()>;

  explicit Mouse(Door& door);
  void Click(Where where, Qt::MouseButton button = Qt::LeftButton);
  void DoubleClick(Where where);

 private:
  void Begin(const Where& where, Qt::MouseButton button, int presses);
  void Press(Qt::MouseButton button, int pressesLeft);
  void Release(Qt::MouseButton button, int pressesLeft);
  QWindow* Target() const;
  void Send(QEvent::Type type, Qt::MouseButton button);

  Door& door_;
  QPointer<QWindow> window_;
  QPoint at_;      // on the screen
  int clock_ = 0;  // of the events, in ms
};

}  // namespace quorvel::sim

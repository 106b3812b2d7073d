#pragma once

#include <QString>
#include <Qt>
#include <string>

#include "app/sim/qt/Door.h"
#include "platform/controls/Keys.h"

namespace quorvel::sim {

// A keyboard at the door. Each key goes to the window that has the focus when its turn comes.
class Keys {
 public:
  explicit Keys(Door& door) : door_(door) {}
  void Press(KeyCode key, int shift = kNoShift);
  // Line ends are Enter.
  void Type(const std::string& text);

 private:
  void Stroke(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text);

  Door& door_;
};

}  // namespace quorvel::sim

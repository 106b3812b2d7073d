#pragma once

#include <QEvent>
#include <Qt>

#include "app/tour/Sights.h"
#include "platform/controls/Lists.h"
#include "platform/qt/QtBackend.h"

class QWidget;

namespace quorvel {

// The user's hands: real mouse and key events into the real windows.
class Hands {
 public:
  explicit Hands(QtBackend& backend) : backend_(backend) {}

  void Click(Control& control) const;
  void RightClick(Control& control) const;
  // One step of a drag: press, move or release of the left button in the middle of a row.
  void MouseOnRow(ListBox& list, QEvent::Type type, int row) const;
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
  // Latin-1 text into what has the keyboard; CR is Enter.
  void Type(const char* text) const;
  // Types an option's id into the entry of the menu window and presses Enter.
  void Open(const char* option) const;
  // Takes the default button of the open box.
  void AnswerBox() const;

 private:
  QtBackend& backend_;
};

}  // namespace quorvel

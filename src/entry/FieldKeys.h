#pragma once

#include <functional>
#include <string>

#include "entry/ScreenParts.h"

namespace quorvel {

// How fields are entered and left. Leaving one by Tab or mouse is seen when the next one gets the
// keyboard: that validates the field being left. Enter validates at once and walks the field order.
class FieldKeys {
 public:
  // `acceptKey` is the user's click on cmdOK.
  FieldKeys(const ScreenParts& parts, std::function<void()> acceptKey)
      : p_(parts), acceptKey_(std::move(acceptKey)) {}

  void EnterText(int number);   // GotFocus of a text box
  void EnterCombo(int number);  // GotFocus of a combo box
  void PressEnter(int number);
  // The second mouse button: the menu of help, locator and list.
  void PopUp(int number);
  // The box is disabled meanwhile, so that no menu of its own can appear.
  static void PopContextMenu(Control& box, MenuItem& menu);
  // Moves on to the next field of the field order that can be entered.
  void Next(int number);

  // The answer of a pick list, for the field that asked.
  void TakeListAnswer(int number);

 private:
  bool IsHeldUp() const;
  bool Arrive(const FieldDefinition& field, const Control& box);
  void ReleaseRecord(bool clear);

  const ScreenParts p_;
  std::function<void()> acceptKey_;
  int arriving_ = 0;  // fields being entered, one because of the other
};

}  // namespace quorvel

#pragma once

#include <string>

#include "platform/controls/Control.h"

namespace quorvel {

// A box to type text in. MaxLength limits typing only, never what the program sets. Change is
// raised by the user and by the program.
class TextBox : public Control {
 public:
  TextBox(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::TextBox; }

  Property<std::string> Text{*this, Prop::Text};
  Property<int> MaxLength{*this, Prop::MaxLength, 0};  // characters; 0: no limit
  Property<char> PasswordChar{*this, Prop::PasswordChar, '\0'};
  Property<bool> Locked{*this, Prop::Locked, false};
  Property<int> SelStart{*this, Prop::SelStart, 0};  // from 0
  Property<int> SelLength{*this, Prop::SelLength, 0};
  bool MultiLine = false;  // set once, where the window is declared

  Event Change;

  // Selects the text; not where the user has just entered the box at a place of it.
  void SelectAll();
  // Puts `text` in place of the selection as if it were typed: MaxLength holds, Change is raised.
  void Insert(const std::string& text);

  // The user changed the text; cut to MaxLength.
  void UserEdit(std::string text);
  void UserSelect(int start, int length);
  void PropertyChanged(Prop prop) override;

 private:
  void KeepSelectionInside();
};

}  // namespace quorvel

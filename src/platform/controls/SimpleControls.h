#pragma once

#include <string>

#include "platform/controls/Control.h"

namespace quorvel {

// A line of text. It stands for another control when it is that control's buddy: its mnemonic
// leads there, and screen readers read it as that control's name.
class Label : public Control {
 public:
  Label(Container& parent, std::string name, int index = -1);
  ~Label() override;
  ControlKind kind() const override { return ControlKind::Label; }
  bool TakesFocus() const override { return false; }

  void StandsFor(Control& control);
  Control* Buddy() const { return buddy_; }

  Event Change;
  void PropertyChanged(Prop prop) override;

 private:
  friend class Control;
  Control* buddy_ = nullptr;
};

// A push button. In a dialog the default button answers Enter, the cancel button Escape and the
// window's close box.
class Button : public Control {
 public:
  Button(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::Button; }

  Property<bool> Default{*this, Prop::Default, false};
  Property<bool> Cancel{*this, Prop::Cancel, false};
  // Name of a built-in picture shown instead of an empty caption ("run", "terminal", ...).
  Property<std::string> Picture{*this, Prop::Picture};
};

class CheckBox : public Control {
 public:
  CheckBox(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::CheckBox; }

  Property<bool> Value{*this, Prop::Value, false};
  // The user turned it over; Click follows.
  void UserToggle(bool value);
  void UserClick() override { UserToggle(!Value()); }
};

// One of a group: choosing it clears the other option buttons of the same parent.
class OptionButton : public Control {
 public:
  OptionButton(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::OptionButton; }

  Property<bool> Value{*this, Prop::Value, false};
  void UserClick() override;
  void PropertyChanged(Prop prop) override;
};

// A titled group of controls.
class Frame : public Control {
 public:
  Frame(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::Frame; }
  bool TakesFocus() const override { return false; }
};

// A plain holder of controls. On the main window, a panel aligned to the bottom takes its height
// from the client area while it is visible.
class Panel : public Control {
 public:
  Panel(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::Panel; }
  bool TakesFocus() const override { return false; }

  // Set once, where the window is declared.
  bool AlignBottom = false;
};

// A picture, by the name of a built-in one.
class PictureBox : public Control {
 public:
  PictureBox(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::PictureBox; }
  bool TakesFocus() const override { return false; }

  Property<std::string> Picture{*this, Prop::Picture};
};

}  // namespace quorvel

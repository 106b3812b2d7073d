#include "platform/controls/SimpleControls.h"

#include "platform/controls/Desktop.h"

namespace quorvel {

Label::Label(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

Label::~Label() {
  if (buddy_) buddy_->label_ = nullptr;
}

void Label::StandsFor(Control& control) {
  buddy_ = &control;
  control.label_ = this;
}

void Label::PropertyChanged(Prop prop) {
  Control::PropertyChanged(prop);
  if (prop != Prop::Caption) return;
  if (buddy_ && buddy_->peer()) buddy_->peer()->Update(Prop::AccessibleText);
  Raise(Change);
}

Button::Button(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

CheckBox::CheckBox(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

void CheckBox::UserToggle(bool value) {
  if (!window().TakesInput() || !Reachable()) {
    TellPeer(Prop::Value);  // the toolkit has turned it over already
    return;
  }
  Value = value;
  Control::UserClick();
}

OptionButton::OptionButton(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

void OptionButton::UserClick() {
  if (window().TakesInput() && Reachable()) Value = true;
  Control::UserClick();
}

void OptionButton::PropertyChanged(Prop prop) {
  Control::PropertyChanged(prop);
  if (prop != Prop::Value || !Value()) return;
  for (Control* other : parent().Children()) {
    if (other != this && other->kind() == ControlKind::OptionButton) {
      static_cast<OptionButton*>(other)->Value = false;
    }
  }
}

Frame::Frame(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

Panel::Panel(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

PictureBox::PictureBox(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

}  // namespace quorvel

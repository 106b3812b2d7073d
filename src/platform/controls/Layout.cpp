#include "platform/controls/Layout.h"

#include "platform/controls/SimpleControls.h"

namespace quorvel {

LayoutRow Field(Label& label, Control& control) {
  label.StandsFor(control);
  return {LayoutRow::Kind::Field, &label, {&control}};
}

LayoutRow Wide(Control& control) {
  return {LayoutRow::Kind::Wide, nullptr, {&control}};
}

LayoutRow Stretch(Control& control) {
  return {LayoutRow::Kind::Stretch, nullptr, {&control}};
}

LayoutRow Buttons(std::vector<Control*> buttons) {
  return {LayoutRow::Kind::Buttons, nullptr, std::move(buttons)};
}

}  // namespace quorvel

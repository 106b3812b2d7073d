#include "platform/controls/Layout.h"

#include <algorithm>

#include "platform/controls/SimpleControls.h"

namespace quorvel {

bool LayoutRow::Holds(const Control& control) const {
  return label == &control ||
         std::find(controls.begin(), controls.end(), &control) != controls.end() ||
         std::any_of(rows.begin(), rows.end(),
                     [&control](const LayoutRow& row) { return row.Holds(control); });
}

LayoutRow Field(Label& label, Control& control, std::vector<Control*> buttons) {
  label.StandsFor(control);
  buttons.insert(buttons.begin(), &control);
  return {LayoutRow::Kind::Field, &label, std::move(buttons), {}};
}

LayoutRow Wide(Control& control) {
  return {LayoutRow::Kind::Wide, nullptr, {&control}, {}};
}

LayoutRow Stretch(Control& control) {
  return {LayoutRow::Kind::Stretch, nullptr, {&control}, {}};
}

LayoutRow Bar(std::vector<Control*> controls) {
  return {LayoutRow::Kind::Bar, nullptr, std::move(controls), {}};
}

LayoutRow Group(Frame& frame, Layout rows) {
  return {LayoutRow::Kind::Group, nullptr, {&frame}, std::move(rows)};
}

LayoutRow Beside(Layout rows) {
  return {LayoutRow::Kind::Beside, nullptr, {}, std::move(rows)};
}

LayoutRow Buttons(std::vector<Control*> buttons) {
  return {LayoutRow::Kind::Buttons, nullptr, std::move(buttons), {}};
}

}  // namespace quorvel

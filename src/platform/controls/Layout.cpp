#include "platform/controls/Layout.h"

#include <algorithm>

#include "platform/controls/SimpleControls.h"
#include "platform/controls/TabStrip.h"

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
  return {LayoutRow::Kind::Field, &label, std::move(buttons), {}, 0};
}

LayoutRow Wide(Control& control) {
  return {LayoutRow::Kind::Wide, nullptr, {&control}, {}, 0};
}

LayoutRow Stretch(Control& control) {
  return {LayoutRow::Kind::Stretch, nullptr, {&control}, {}, 0};
}

LayoutRow Bar(std::vector<Control*> controls) {
  return {LayoutRow::Kind::Bar, nullptr, std::move(controls), {}, 0};
}

LayoutRow Group(Frame& frame, Layout rows) {
  return {LayoutRow::Kind::Group, nullptr, {&frame}, std::move(rows), 0};
}

LayoutRow Group(Panel& panel, Layout rows) {
  return {LayoutRow::Kind::Group, nullptr, {&panel}, std::move(rows), 0};
}

LayoutRow Column(Layout rows) {
  return {LayoutRow::Kind::Column, nullptr, {}, std::move(rows), 0};
}

LayoutRow Pages(TabStrip& strip, std::vector<Layout> pages) {
  LayoutRow row{LayoutRow::Kind::Pages, nullptr, {&strip}, {}, 0};
  for (Layout& page : pages) row.rows.push_back(Column(std::move(page)));
  return row;
}

LayoutRow Grid(int columns, std::vector<Control*> cells) {
  return {LayoutRow::Kind::Grid, nullptr, std::move(cells), {}, columns};
}

LayoutRow Beside(Layout rows) {
  return {LayoutRow::Kind::Beside, nullptr, {}, std::move(rows), 0};
}

LayoutRow Buttons(std::vector<Control*> buttons) {
  return {LayoutRow::Kind::Buttons, nullptr, std::move(buttons), {}, 0};
}

}  // namespace quorvel

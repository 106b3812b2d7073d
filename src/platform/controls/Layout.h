#pragma once

#include <vector>

namespace quorvel {

class Control;
class Frame;
class Label;
class Panel;
class TabStrip;
struct LayoutRow;

// The rows of a dialog from top to bottom; empty for a window whose geometry is in twips.
using Layout = std::vector<LayoutRow>;

// What one row of a dialog holds. The backend lays the rows out by the rules of its desktop.
struct LayoutRow {
  enum class Kind {
    Field,    // a label and the control it stands for
    Wide,     // one control over the whole width
    Bar,      // several side by side, each as wide as it needs; boxes of text a usual width
    Buttons,  // the dialog's buttons, last row
    Stretch,  // as Wide, and it takes the height that is left over
    Group,    // a frame with rows of its own inside
    Beside,   // rows beside each other, all of one width
    Column,   // rows below each other, as one of those beside each other
    Pages,    // a strip of tabs with a column of rows on each page; as high as the highest
    Grid,     // cells in straight columns; boxes share the width in proportion to their Width
  };
  Kind kind = Kind::Wide;
  Label* label = nullptr;
  std::vector<Control*> controls;
  Layout rows;      // of a group; those beside each other; the pages
  int columns = 0;  // of a grid, whose controls stand row by row; nullptr leaves a cell empty

  // Whether the row, or one inside it, places the control.
  bool Holds(const Control& control) const;
};

// Makes `label` stand for `control`. Buttons may follow the control.
LayoutRow Field(Label& label, Control& control, std::vector<Control*> buttons = {});
LayoutRow Wide(Control& control);
LayoutRow Stretch(Control& control);
LayoutRow Bar(std::vector<Control*> controls);
LayoutRow Group(Frame& frame, Layout rows);
// As a group, on a panel without a title, as high as the panel's Height.
LayoutRow Group(Panel& panel, Layout rows);
LayoutRow Beside(Layout rows);
LayoutRow Column(Layout rows);
LayoutRow Pages(TabStrip& strip, std::vector<Layout> pages);
LayoutRow Grid(int columns, std::vector<Control*> cells);
LayoutRow Buttons(std::vector<Control*> buttons);

}  // namespace quorvel

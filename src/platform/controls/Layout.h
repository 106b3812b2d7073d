#pragma once

#include <vector>

namespace quorvel {

class Control;
class Label;

// What one row of a dialog holds. The backend lays the rows out by the rules of its desktop.
struct LayoutRow {
  enum class Kind {
    Field,    // a label and the control it stands for
    Wide,     // one control over the whole width
    Buttons,  // the dialog's buttons, last row
    Stretch,  // as Wide, and it takes the height that is left over
  };
  Kind kind = Kind::Wide;
  Label* label = nullptr;
  std::vector<Control*> controls;
};

// The rows of a dialog from top to bottom; empty for a window whose geometry is in twips.
using Layout = std::vector<LayoutRow>;

// Makes `label` stand for `control`.
LayoutRow Field(Label& label, Control& control);
LayoutRow Wide(Control& control);
LayoutRow Stretch(Control& control);
LayoutRow Buttons(std::vector<Control*> buttons);

}  // namespace quorvel

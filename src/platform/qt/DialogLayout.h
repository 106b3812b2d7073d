#pragma once

class QWidget;

namespace quorvel {

class Window;

// Lays the rows of a dialog out on `inside`, by the rules of the desktop: fields as a form, buttons
// at the end of the last row. The controls have their widgets.
void LayOut(const Window& window, QWidget& inside);

}  // namespace quorvel

#pragma once

namespace quorvel {

class Window;

// Places `child` over `parent`: in the middle, frmConnect lower. A child that would stick out on
// the right goes to the screen's left edge; one that would stick out below is moved up. Over a
// child window the middle is that of the place it has on the screen.
void CenterOnParent(Window& parent, Window& child);

// Places `window` over the main window, if that is there.
void CenterOverMain(Window& window);

// Places `window` in the middle of the screen, its corner never off the screen.
void CenterOnScreen(Window& window);

// One pixel of the screen in twips.
int OnePixel();

}  // namespace quorvel

#include "settings/WindowPlacing.h"

#include <cmath>

#include "link/HandOvers.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// Halves to even, as everywhere.
int Rounded(double length) {
  return static_cast<int>(std::nearbyint(length));
}

struct Place {
  int left;
  int top;
};

// A child's own place counts from the inside of the main window.
Place PlaceOnScreen(const Window& window) {
  const Window* main = desktop().Main();
  if (window.kind() != Window::Kind::Child || !main) return {window.Left(), window.Top()};
  return {main->Left() + main->FrameWidth() / 2 + window.Left(),
          main->Top() + main->FrameHeight() + window.Top()};
}

}  // namespace

void CenterOnParent(Window& parent, Window& child) {
  const ScreenMetrics screen = desktop().backend().Screen();
  const Place place = PlaceOnScreen(parent);
  double left = place.left + (parent.Width() - child.Width()) / 2.0;
  // Not flush with the right edge, as the rule for the height might suggest: at the left one, and
  // one twip off it when the widths are equal.
  if (left + child.Width() > screen.width) left = screen.width == child.Width() ? -1 : 0;
  const double divisor = child.Name() == "frmConnect" ? 1.2 : 2.0;
  double top = place.top + (parent.Height() - child.Height()) / divisor;
  if (top + child.Height() > screen.height) top = screen.height - child.Height();
  child.Left = Rounded(left);
  child.Top = Rounded(top);
}

void CenterOverMain(Window& window) {
  if (Window* main = Ask().MainWindow()) CenterOnParent(*main, window);
}

void CenterOnScreen(Window& window) {
  const ScreenMetrics screen = desktop().backend().Screen();
  int left = Rounded((screen.width - window.Width()) / 2.0);
  int top = Rounded((screen.height - window.Height()) / 2.0);
  if (left + window.Width() > screen.width || left < 0) left = 0;
  if (top + window.Height() > screen.height || top < 0) top = 0;
  window.Top = top;
  window.Left = left;
}

int OnePixel() {
  return desktop().backend().Screen().twipsPerPixel;
}

}  // namespace quorvel

#include "platform/controls/Menu.h"

#include "platform/controls/Desktop.h"
#include "platform/controls/Window.h"

namespace quorvel {

MenuItem::MenuItem(Window& window, std::string name, const std::string& caption)
    : window_(window), name_(std::move(name)) {
  Caption.Adopt(caption);
  window.menuBar_.push_back(this);
}

MenuItem::MenuItem(MenuItem& parent, std::string name, const std::string& caption)
    : window_(parent.window_), name_(std::move(name)) {
  Caption.Adopt(caption);
  parent.items_.push_back(this);
}

void MenuItem::UserClick() {
  // A disabled window takes no keys or clicks, but its menu bar still works.
  const auto takesClicks = [this] {
    return window_.IsLoaded() && Enabled() && Visible() && !IsSeparator() &&
           !desktop().IsBlocked(window_);
  };
  if (!takesClicks()) return;
  const auto serve = [this, takesClicks] {
    if (!takesClicks()) return;
    const auto click = Click;  // a copy: the handler may end the window
    if (click) click();
  };
  return IsWayOut ? window_.AsUserEventAtOnce(serve) : window_.AsUserEvent(serve);
}

void MenuItem::PropertyChanged(Prop) {
  if (window_.peer()) window_.peer()->UpdateMenu(*this);
}

}  // namespace quorvel

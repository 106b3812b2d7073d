#include "platform/controls/Focus.h"

#include <algorithm>

#include "platform/controls/Control.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/Window.h"

namespace quorvel {

Window* Focus::Front() const {
  return order_.empty() ? nullptr : order_.back();
}

Control* Focus::KeyTarget() const {
  const Window* front = Front();
  return front && front->TakesInput() ? front->active_ : nullptr;
}

bool Focus::IsBlocked(const Window& window) const {
  const auto first = std::find_if(order_.rbegin(), order_.rend(), [&](const Window* other) {
    return other == &window || other->IsModal();
  });
  return first != order_.rend() && *first != &window;
}

void Focus::SetFocus(Control& control) {
  Window& window = control.window();
  if (window.kind() == Window::Kind::Main || !control.TakesFocus() || !control.Reachable()) return;
  if (!window.IsLoaded() || !window.Enabled()) return;
  if (window.stage_ == Window::Stage::Loading) {
    window.active_ = &control;  // GotFocus follows when the window is shown
    return;
  }
  if (!window.IsVisible()) return;
  const bool settled = !window.lost_ && !window.returns_ && !window.activationDue_;
  if (Front() == &window && settled && window.active_ == &control) return;
  if (IsBlocked(window)) {
    window.active_ = &control;  // it has the keyboard when the modal window is gone
    window.lost_ = nullptr;
    return;
  }
  if (Front() != &window || window.activationDue_) {
    BringToFront(window);
    window.active_ = &control;
    window.lost_ = nullptr;
    const unsigned before = changes_;
    Activate(window);
    if (Front() != &window || !control.Reachable()) return;
    if (window.active_ == &control && changes_ != before) return;  // Activate gave it already
  }
  Enter(window, control);
}

void Focus::SetFocus(Window& window) {
  if (!window.IsLoaded() || !window.IsVisible() || window.kind() == Window::Kind::Main) return;
  if (window.stage_ == Window::Stage::Loading) return;
  if (Front() == &window && !window.activationDue_) {
    if (window.returns_) EnterAgain(window);
    return;
  }
  if (IsBlocked(window)) return PutBehindModal(window);
  Shown(window);
}

void Focus::Shown(Window& window) {
  if (window.kind() == Window::Kind::Main) {
    window.Form_Activate();
    return;
  }
  // Dialogs that are no longer in the order come above everything; a child shown while a modal
  // window is up stays behind it.
  const bool isNew = std::find(order_.begin(), order_.end(), &window) == order_.end();
  if (isNew && window.kind() == Window::Kind::Child) order_.insert(order_.begin(), &window);
  if (!window.IsModal() && IsBlocked(window)) return PutBehindModal(window);
  if (window.IsModal() && Front() && Front() != &window) Front()->returns_ = true;
  BringToFront(window);
  const unsigned before = changes_;
  Activate(window);
  if (changes_ == before && Front() == &window) EnterAgain(window);
}

// Behind the modal windows it becomes the first; its events come when they are gone.
void Focus::PutBehindModal(Window& window) {
  std::erase(order_, &window);
  const auto place = std::find_if(order_.begin(), order_.end(),
                                  [](const Window* other) { return other->IsModal(); });
  order_.insert(place, &window);
  window.activationDue_ = true;
  if (window.peer_) window.peer_->Raise();
}

void Focus::BringToFront(Window& window) {
  if (Front() != &window) {
    Window* old = Front();
    std::erase(order_, &window);
    order_.push_back(&window);
    if (old && old->active_ && old->active_->LostFocus)
      old->active_->Raise(old->active_->LostFocus);
  }
  if (window.peer_) window.peer_->Raise();
}

void Focus::Activate(Window& window) {
  window.activationDue_ = false;
  desktop().RunWithin([&window] { window.Form_Activate(); });
}

// GotFocus of the window's active control, else of its first, else of the window itself.
void Focus::EnterAgain(Window& window) {
  if (window.lost_ && window.lost_->Reachable()) window.active_ = window.lost_;
  Control* control = window.active_;
  if (!control || !control->Reachable()) control = window.NextInTabOrder(window.lost_);
  if (control) return Enter(window, *control);
  window.returns_ = false;
  window.lost_ = nullptr;
  ++changes_;
  desktop().RunWithin([&window] { window.Form_GotFocus(); });
}

void Focus::Enter(Window& window, Control& control) {
  Control* const old = window.active_;
  window.active_ = &control;
  window.lost_ = nullptr;
  window.returns_ = false;
  ++changes_;
  if (old && old != &control && old->LostFocus) old->Raise(old->LostFocus);
  if (window.active_ != &control) return;  // the handler moved on
  if (control.peer()) control.peer()->ShowFocus();
  control.Raise(control.GotFocus);
}

void Focus::Hidden(Window& window) {
  const bool wasFront = Front() == &window;
  std::erase(order_, &window);
  window.active_ = window.stage_ == Window::Stage::Unloaded ? nullptr : window.active_;
  Window* front = Front();
  if (!wasFront || !front) return;
  if (window.IsModal()) {
    front->returns_ = true;
  } else {
    front->activationDue_ = true;
  }
  if (front->peer_) front->peer_->Raise();
}

void Focus::Check(Window& window) {
  Control* control = window.active_;
  if (!control || control->Reachable()) return;
  window.lost_ = control;
  window.active_ = nullptr;
  if (window.peer_) window.peer_->ShowNoFocus();
}

void Focus::Removed(Control& control) {
  Window& window = control.window();
  if (window.active_ != &control) return;
  // The next in tab order can't be found from a control that is gone: start from the first.
  window.active_ = nullptr;
  window.returns_ = window.IsVisible();
}

bool Focus::Settle(bool outermost) {
  Window* front = Front();
  if (!front || front->stage_ != Window::Stage::Loaded) return false;
  if (front->activationDue_) {
    const unsigned before = changes_;
    Activate(*front);
    if (changes_ == before && Front() == front) EnterAgain(*front);
    return true;
  }
  if (!outermost || !(front->returns_ || front->lost_)) return false;
  Control* const lost = front->lost_;
  if (!front->returns_ && lost && lost->Reachable()) {
    front->lost_ = nullptr;
    front->active_ = lost;
    if (lost->peer()) lost->peer()->ShowFocus();
    return false;
  }
  EnterAgain(*front);
  return true;
}

}  // namespace quorvel

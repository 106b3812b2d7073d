#include "platform/controls/Control.h"

#include <cctype>

#include "platform/controls/Desktop.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/Window.h"

namespace quorvel {
namespace {

// By value: the handler may replace itself, or end the control.
void Call(const Control::Event event) {  // NOLINT(performance-unnecessary-value-param)
  if (event) event();
}

}  // namespace

Control::Control(Container& parent, std::string name, int index)
    : parent_(parent), window_(parent.window()), name_(std::move(name)), index_(index) {
  parent_.children_.push_back(this);
  window_.AddControl(*this);
}

Control::~Control() {
  peer_.reset();
  if (label_) label_->buddy_ = nullptr;
  std::erase(parent_.children_, this);
  window_.RemoveControl(*this);
}

void Control::Created() {
  if (window_.peer()) peer_ = window_.peer()->MakePeer(*this);
}

std::string Control::CodeName() const {
  return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

std::string WithoutMnemonic(const std::string& caption) {
  std::string out;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;
    if (caption[i] != '&' || (i > 0 && caption[i - 1] == '&')) out += caption[i];
  }
  return out;
}

int MnemonicOf(const std::string& caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return std::toupper(static_cast<unsigned char>(caption[i + 1]));
    ++i;
  }
  return 0;
}

std::string Control::BareAccessibleName() const {
  std::string name;
  if (label_) name = WithoutMnemonic(label_->Caption());
  if (name.empty()) name = WithoutMnemonic(Caption());
  if (name.empty()) name = AccessibleText();
  if (name.empty()) name = ToolTipText();
  while (!name.empty() && (name.back() == ':' || name.back() == ' ')) name.pop_back();
  return name.empty() ? CodeName() : name;
}

std::string Control::AccessibleName() const {
  const std::string name = BareAccessibleName();
  int same = 1;
  for (const Control* other : window_.Controls()) {
    if (other == this) break;
    if (kind() != ControlKind::Label && other->kind() == ControlKind::Label) continue;
    if (other->BareAccessibleName() == name) ++same;
  }
  return same == 1 ? name : name + " (" + std::to_string(same) + ")";
}

void Control::Move(int left, int top, int width, int height) {
  Left = left;
  Top = top;
  Width = width;
  Height = height;
}

void Control::SetFocus() {
  if (HasDesktop()) desktop().focus().SetFocus(*this);
}

bool Control::HasFocus() const {
  return HasDesktop() && desktop().focus().KeyTarget() == this;
}

bool Control::Reachable() const {
  const Control* control = this;
  while (true) {
    if (!control->Visible() || !control->Enabled()) return false;
    const Control* outer = control->parent_.AsControl();
    if (!outer) return true;
    if (outer->kind() == ControlKind::TabStrip &&
        static_cast<const TabStrip*>(outer)->Tab() != control->Page()) {
      return false;
    }
    control = outer;
  }
}

void Control::UserFocus() {
  if (!window_.TakesInput() || !TakesFocus() || !Reachable()) return;
  window_.AsUserEvent([this] { desktop().focus().SetFocus(*this); });
}

void Control::UserPress() {
  if (!window_.TakesInput() || !TakesFocus() || !Reachable()) return;
  window_.AsUserEvent([this] {
    pressed_ = true;
    desktop().focus().SetFocus(*this);
    pressed_ = false;
  });
}

void Control::UserClick() {
  if (!window_.TakesInput() || !Reachable()) return;
  const auto click = [this] {
    if (TakesFocus() && FocusOnClick) SetFocus();
    if (Reachable()) Call(Click);
  };
  return IsWayOut ? window_.AsUserEventAtOnce(click) : window_.AsUserEvent(click);
}

void Control::UserRelease() {
  if (!window_.TakesInput() || !Reachable()) return;
  window_.AsUserEvent([this] {
    if (Reachable()) Call(Click);
  });
}

void Control::UserDblClick() {
  if (!window_.TakesInput() || !Reachable()) return;
  window_.AsUserEvent([this] {
    if (Reachable()) Call(DblClick);
  });
}

void Control::UserMouseDown(MouseButton button) {
  if (!window_.TakesInput() || !Reachable()) return;
  window_.AsUserEvent([this, button] {
    if (TakesFocus() && FocusOnClick) SetFocus();
    // The keyboard may have been refused: then the press is not for here either.
    if (!MouseDown || !Reachable() || (TakesFocus() && !HasFocus())) return;
    const auto handler = MouseDown;
    handler(button);
  });
}

void Control::UserMouseUp(MouseButton button) {
  if (!MouseUp || !window().TakesInput() || !Reachable()) return;
  window_.AsUserEvent([this, button] {
    const auto handler = MouseUp;
    handler(button);
  });
}

void Control::PropertyChanged(Prop prop) {
  if (prop == Prop::TabIndex) window_.ShiftTabIndex(*this);
  TellPeer(prop);
  const bool reach = prop == Prop::Visible || prop == Prop::Enabled || prop == Prop::Page;
  if (reach && HasDesktop()) desktop().focus().Check(window_);
  if ((prop == Prop::Visible || prop == Prop::Height) && kind() == ControlKind::Panel) {
    window_.PanelChanged(static_cast<Panel&>(*this));
  }
}

void Control::TellPeer(Prop prop) {
  if (peer_) peer_->Update(prop);
}

void Control::Raise(const Event& event) {
  if (!event) return;
  if (HasDesktop()) {
    desktop().RunWithin([&event] { Call(event); });
  } else {
    Call(event);
  }
}

}  // namespace quorvel

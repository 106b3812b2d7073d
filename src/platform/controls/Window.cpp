#include "platform/controls/Window.h"

#include <cctype>

#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/SimpleControls.h"

namespace quorvel {
namespace {

// Largest width or height of a window, in twips; guards the arithmetic, not any screen.
constexpr int kLargestSize = 1'000'000;

}  // namespace

Window::Window(Kind kind, std::string name) : kind_(kind), name_(std::move(name)) {}

Window::~Window() {
  if (HasDesktop()) desktop().focus().Hidden(*this);
}

int Window::ClientWidth() const {
  return std::max(0, Width() - frameWidth_);
}

int Window::ClientHeight() const {
  int height = Height() - frameHeight_;
  for (const Control* child : Children()) {
    if (child->kind() != ControlKind::Panel || !child->Visible()) continue;
    if (static_cast<const Panel*>(child)->AlignBottom) height -= child->Height();
  }
  return std::max(0, height);
}

void Window::AdoptFrame(int horizontal, int vertical) {
  if (horizontal == frameWidth_ && vertical == frameHeight_) return;
  frameWidth_ = horizontal;
  frameHeight_ = vertical;
  if (visible_ && resized_) {
    desktop().Handle(EventKind::Program, [this] { ResizeIfVisible(); });
  }
}

// --- life

void Window::Load() {
  if (stage_ != Stage::Unloaded) return;
  const auto keep = shared_from_this();
  stage_ = Stage::Loading;
  peer_ = desktop().backend().MakePeer(*this);
  for (Control* control : controls_) {
    if (!control->peer()) control->SetPeer(peer_->MakePeer(*control));
  }
  peer_->Built();
  try {
    Form_Load();
  } catch (...) {
    if (stage_ == Stage::Loading) stage_ = Stage::Loaded;
    throw;
  }
  if (stage_ == Stage::Loading) stage_ = Stage::Loaded;
}

void Window::Show() {
  const auto keep = shared_from_this();
  Load();
  if (!IsLoaded()) return;  // its own load sent it away
  const bool appears = !visible_;
  visible_ = true;
  if (appears) {
    openedAt_ = desktop().NextMoment();
    if (kind_ == Kind::Dialog) desktop().DropKeptInput();
  }
  if (appears && peer_) peer_->Show(modal_);
  if (!resized_) {
    resized_ = true;
    Form_Resize();
  }
  if (IsLoaded() && visible_) desktop().focus().Shown(*this);
}

void Window::ShowModal() {
  const auto keep = shared_from_this();
  Load();
  if (!IsLoaded()) return;
  struct Modal {
    explicit Modal(Window& owner) : window(owner), before(owner.modal_) {
      desktop().EnterModal(window);
      window.modal_ = true;
    }
    ~Modal() {
      window.modal_ = before;
      desktop().LeaveModal();
    }
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;
    Window& window;
    const bool before;
  } const modal(*this);
  visible_ = false;  // a second showing while it is up still begins with Resize, Activate, GotFocus
  try {
    Show();
  } catch (const RuntimeError&) {
    // Nobody would wait for it any more.
    Try([this] { Unload(); });
    Hide();
    throw;
  }
  desktop().WaitWhile([this] { return IsLoaded() && visible_; });
}

void Window::Hide() {
  if (!visible_) return;
  const auto keep = shared_from_this();
  visible_ = false;
  if (peer_) peer_->Hide();
  desktop().focus().Hidden(*this);
}

bool Window::Unload() {
  const auto keep = shared_from_this();
  if (stage_ == Stage::Unloaded) return true;
  if (stage_ == Stage::Unloading) return false;
  if (stage_ == Stage::Asking) return FinishUnload();  // the question runs once a closing
  stage_ = Stage::Asking;
  bool cancel = false;
  try {
    Form_QueryUnload(cancel);
  } catch (...) {
    if (stage_ == Stage::Asking) stage_ = Stage::Loaded;
    throw;
  }
  if (stage_ == Stage::Unloaded) return true;
  if (!cancel) return FinishUnload();
  stage_ = Stage::Loaded;
  return false;
}

bool Window::FinishUnload() {
  stage_ = Stage::Unloading;
  bool cancel = false;
  try {
    Form_Unload(cancel);
  } catch (...) {
    stage_ = Stage::Loaded;
    throw;
  }
  if (cancel) {
    stage_ = Stage::Loaded;
    return false;
  }
  Close();
  return true;
}

void Window::Close() {
  stage_ = Stage::Unloaded;
  if (visible_) {
    visible_ = false;
    if (peer_) peer_->Hide();
  }
  desktop().focus().Hidden(*this);
  for (Control* control : controls_) control->SetPeer(nullptr);
  peer_.reset();
  resized_ = false;
  desktop().Forget(*this);
}

void Window::SetFocus() {
  desktop().focus().SetFocus(*this);
}

bool Window::TakesInput() const {
  return IsLoaded() && visible_ && Enabled() && HasDesktop() && !desktop().IsEnding() &&
         !desktop().IsBlocked(*this);
}

// --- properties

void Window::PropertyChanged(Prop prop) {
  if (prop == Prop::Width) Width.Adopt(std::clamp(Width(), 0, kLargestSize));
  if (prop == Prop::Height) Height.Adopt(std::clamp(Height(), 0, kLargestSize));
  if (peer_) peer_->Update(prop);
  if (prop == Prop::Width || prop == Prop::Height) ResizeIfVisible();
  // A toolkit takes its own focus from a window that is disabled.
  Control* const target = prop == Prop::Enabled && peer_ ? desktop().focus().KeyTarget() : nullptr;
  if (target && &target->window() == this && target->peer()) target->peer()->ShowFocus();
}

void Window::ResizeIfVisible() {
  if (visible_ && resized_ && IsLoaded()) desktop().RunWithin([this] { Form_Resize(); });
}

void Window::PanelChanged(const Panel& panel) {
  if (!panel.AlignBottom) return;
  if (peer_) peer_->Update(Prop::Height);
  ResizeIfVisible();
}

// --- controls

void Window::AddControl(Control& control) {
  int next = 0;
  for (const Control* other : controls_) next = std::max(next, other->TabIndex() + 1);
  control.TabIndex.Adopt(next);
  controls_.push_back(&control);
}

void Window::RemoveControl(Control& control) {
  std::erase(controls_, &control);
  if (HasDesktop()) desktop().focus().Removed(control);
  if (active_ == &control) active_ = nullptr;
  if (lost_ == &control) lost_ = nullptr;
}

void Window::ShiftTabIndex(Control& control) {
  std::vector<Control*> order;
  for (Control* other : controls_) {
    if (other != &control) order.push_back(other);
  }
  std::stable_sort(order.begin(), order.end(), [](const Control* a, const Control* b) {
    return a->TabIndex() < b->TabIndex();
  });
  const auto place =
      std::clamp<std::ptrdiff_t>(control.TabIndex(), 0, static_cast<std::ptrdiff_t>(order.size()));
  order.insert(order.begin() + place, &control);
  for (std::size_t i = 0; i < order.size(); ++i) order[i]->TabIndex.Adopt(static_cast<int>(i));
}

Control* Window::NextInTabOrder(const Control* control, bool backward) const {
  std::vector<Control*> order;
  for (Control* other : controls_) {
    const bool stop = other->TakesFocus() && other->TabStop() && other->Reachable();
    if (stop || other == control) order.push_back(other);
  }
  std::stable_sort(order.begin(), order.end(), [](const Control* a, const Control* b) {
    return a->TabIndex() < b->TabIndex();
  });
  if (backward) std::reverse(order.begin(), order.end());
  const auto here = std::find(order.begin(), order.end(), control);
  if (here != order.end()) {
    std::rotate(order.begin(), here + 1, order.end());  // the present one comes last
  }
  for (Control* next : order) {
    if (next->TakesFocus() && next->TabStop() && next->Reachable()) return next;
  }
  return nullptr;
}

// --- what the user did

void Window::AsUserEvent(const std::function<void()>& body) {
  if (!desktop().KeepsInput(*this)) return AsUserEventAtOnce(body);
  desktop().KeepInput(*this, [body, window = weak_from_this()] {
    const auto alive = window.lock();
    if (alive && alive->IsLoaded() && !desktop().IsBlocked(*alive)) alive->AsUserEventAtOnce(body);
  });
}

void Window::AsUserEventAtOnce(const std::function<void()>& body) {
  const auto keep = weak_from_this().lock();
  desktop().Handle(EventKind::User, body, this);
}

void Window::UserClose() {
  if (!IsLoaded() || !visible_ || desktop().IsBlocked(*this)) return;
  if (kind_ == Kind::Dialog && ClickButton([](const Button& b) { return b.Cancel(); })) return;
  const auto close = [this] { Unload(); };
  return kind_ == Kind::Main ? AsUserEventAtOnce(close) : AsUserEvent(close);
}

void Window::UserActivate() {
  if (!TakesInput()) return;
  AsUserEvent([this] {
    if (kind_ == Kind::Main) {
      Form_Activate();
    } else {
      SetFocus();
    }
  });
}

void Window::UserMove(int left, int top) {
  Left.Adopt(left);
  Top.Adopt(top);
}

void Window::UserResize(int width, int height) {
  if (width == Width() && height == Height()) return;
  Width.Adopt(std::clamp(width, 0, kLargestSize));
  Height.Adopt(std::clamp(height, 0, kLargestSize));
  const auto keep = weak_from_this().lock();
  desktop().Handle(EventKind::Program, [this] { ResizeIfVisible(); });
}

bool Window::UserKeyDown(KeyEvent key) {
  if (!TakesInput() || !desktop().focus().KeyTarget() || desktop().focus().Front() != this) {
    return true;
  }
  const auto keep = weak_from_this().lock();
  bool used = true;  // also by a handler that fails: its box was the answer to the key
  AsUserEvent([&] {
    UseKey(key);
    used = key.code == 0;
  });
  // A handler may have sent the keyboard elsewhere or the window away: the key was meant for here.
  return used || desktop().focus().Front() != this || !desktop().focus().KeyTarget();
}

void Window::UseKey(KeyEvent& key) {
  Control* const target = active_;
  Form_KeyDown(key);
  if (key.code != 0 && active_ == target && target && target->KeyDown) {
    std::function<void(KeyEvent&)>(target->KeyDown)(key);
  }
  if (key.code == 0 || active_ != target || !target) return;
  const bool terminal = target->kind() == ControlKind::Terminal;  // all keys are the host's
  if (terminal) return;
  if (key.shift == kAlt && PressMnemonic(key.code)) {
    key.code = 0;
    return;
  }
  const auto code = static_cast<KeyCode>(key.code);
  const bool asksForMenu = code == KeyCode::Menu || (code == KeyCode::F10 && key.shift == kShift);
  if (asksForMenu && target->MouseDown) {
    key.code = 0;
    target->UserMouseDown(MouseButton::Right);
    return;
  }
  const bool plain = (key.shift & (kControl | kAlt)) == 0;
  if (code == KeyCode::Tab && plain) {
    key.code = 0;
    TravelTo(NextInTabOrder(target, (key.shift & kShift) != 0));
  } else if (code == KeyCode::Escape && key.shift == kNoShift) {
    if (ClickButton([](const Button& b) { return b.Cancel(); })) key.code = 0;
  } else if (code == KeyCode::Return && key.shift == kNoShift) {
    if (target->kind() == ControlKind::Button) {
      key.code = 0;
      target->UserClick();
    } else if (ClickButton([](const Button& b) { return b.Default(); })) {
      key.code = 0;
    }
  }
}

// The control that the mnemonic of a caption leads to; nullptr for none.
Control* Window::FindMnemonic(int code) const {
  for (Control* control : controls_) {
    if (!control->Reachable() || MnemonicOf(control->Caption()) != std::toupper(code)) continue;
    switch (control->kind()) {
      case ControlKind::Button:
      case ControlKind::CheckBox:
      case ControlKind::OptionButton:
        return control;
      case ControlKind::Label: {
        Control* buddy = static_cast<Label*>(control)->Buddy();
        if (buddy && buddy->Reachable()) return buddy;
        break;
      }
      default:
        break;
    }
  }
  return nullptr;
}

bool Window::PressMnemonic(int code) {
  Control* control = FindMnemonic(code);
  if (!control) return false;
  const bool clicks = control->kind() == ControlKind::Button ||
                      control->kind() == ControlKind::CheckBox ||
                      control->kind() == ControlKind::OptionButton;
  if (clicks) {
    control->UserClick();
  } else {
    TravelTo(control);
  }
  return true;
}

void Window::TravelTo(Control* control) {
  if (!control) return;
  control->SetFocus();
  // Arriving by the keyboard in a line of text selects it, as everywhere on a desktop.
  if (control->kind() == ControlKind::TextBox && active_ == control) {
    control->PropertyChanged(Prop::Selection);
  }
}

int Window::UserKeyPress(int code) {
  if (!TakesInput() || !desktop().focus().KeyTarget() || desktop().focus().Front() != this)
    return 0;
  Control* const target = active_;
  if (!target || !target->KeyPress) return code;
  const auto keep = weak_from_this().lock();
  AsUserEvent([&] { std::function<void(int&)>(target->KeyPress)(code); });
  return IsLoaded() && active_ == target ? code : 0;
}

bool Window::ClickButton(bool (*test)(const Button&)) {
  for (Control* control : controls_) {
    if (control->kind() != ControlKind::Button) continue;
    auto& button = static_cast<Button&>(*control);
    if (test(button) && button.Reachable()) {
      button.UserClick();
      return true;
    }
  }
  return false;
}

}  // namespace quorvel

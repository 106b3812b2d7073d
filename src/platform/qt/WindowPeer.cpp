#include "platform/qt/WindowPeer.h"

#include <QApplication>
#include <QTimer>

#include "platform/controls/Desktop.h"
#include "platform/controls/SimpleControls.h"
#include "platform/qt/Accessibility.h"
#include "platform/qt/ControlPeers.h"
#include "platform/qt/DialogPeer.h"
#include "platform/qt/Discarded.h"
#include "platform/qt/Looks.h"
#include "platform/qt/MainShell.h"
#include "platform/qt/OwnWidget.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {

// --- what all windows have in common

QtWindowPeer::QtWindowPeer(Window& window, QWidget* widget)
    : window_(window),
      widget_(widget),
      menus_(std::make_unique<MenuSet>(window, widget->window())) {
  widget->setObjectName(ToUnicode(window.Name()));
  widget->setAccessibleDescription(AccessibleDescription(QString(), window.Name()));
}

QtWindowPeer::~QtWindowPeer() {
  menus_.reset();
  if (!widget_) return;
  if (auto* own = dynamic_cast<OwnWidget*>(widget_.data())) own->Forget();
  widget_->hide();
  widget_->setObjectName(QString());
  Discard(widget_);
}

void KeepBlockedBehind(const Window& window) {
  QWidget* modal = desktop().IsBlocked(window) ? QApplication::activeModalWidget() : nullptr;
  if (!modal || modal == WidgetOf(window)) return;
  modal->raise();
  modal->activateWindow();
}

QWidget* WidgetOf(const Window& window) {
  return window.peer() ? QtWindowPeer::Of(window).Widget() : nullptr;
}

std::unique_ptr<ControlPeer> QtWindowPeer::MakePeer(Control& control) {
  return MakeControlPeer(control, InsideFor(control));
}

void QtWindowPeer::Built() {
  built_ = true;
  // Labels have been made ahead of what they stand for.
  for (Control* control : window_.Controls()) {
    if (control->kind() == ControlKind::Label) control->peer()->Update(Prop::AccessibleText);
  }
  RefreshNames();
}

void QtWindowPeer::NamesChanged() {
  if (!built_ || namesDue_) return;
  namesDue_ = true;
  QTimer::singleShot(0, widget_, [window = window_.weak_from_this()] {
    const auto alive = window.lock();
    if (alive && alive->peer()) Of(*alive).RefreshNames();
  });
}

void QtWindowPeer::RefreshNames() {
  namesDue_ = false;
  for (Control* control : window_.Controls()) {
    if (control->peer()) static_cast<WidgetPeer*>(control->peer())->Describe();
  }
}

void QtWindowPeer::Update(Prop prop) {
  if (!widget_) return;
  if (prop == Prop::Caption) {
    widget_->setWindowTitle(ToCaption(window_.Caption()));
    widget_->setAccessibleName(widget_->windowTitle());
  } else if (prop == Prop::Enabled) {
    widget_->setEnabled(window_.Enabled());
    if (window_.Enabled()) FollowFocus();
  }
}

void QtWindowPeer::FollowFocus() {
  Control* target = desktop().focus().KeyTarget();
  if (target && &target->window() == &window_ && target->peer()) target->peer()->ShowFocus();
}

void QtWindowPeer::ShowNoFocus() {
  QWidget* focus = widget_ ? widget_->window()->focusWidget() : nullptr;
  if (focus && widget_->isAncestorOf(focus)) focus->clearFocus();
}

namespace {

// --- the main window

class MainPeer : public QtWindowPeer {
 public:
  explicit MainPeer(Window& window) : QtWindowPeer(window, new MainShell(window)) {
    Update(Prop::Caption);
    Update(Prop::Enabled);
    Shell().TakeSize();
    Shell().TakePlace();
  }
  MainShell& Shell() { return *static_cast<MainShell*>(Widget()); }

  void Built() override {
    QtWindowPeer::Built();
    if (!Widget()) return;
    const QPointer<MainShell> shell(&Shell());
    shell->Restack();
    if (shell) shell->TakeSize();
  }
  void Update(Prop prop) override {
    if (!Widget()) return;
    switch (prop) {
      case Prop::Left:
      case Prop::Top:
        return Shell().TakePlace();
      case Prop::Width:
      case Prop::Height: {
        const QPointer<MainShell> shell(&Shell());
        shell->TakeSize();  // the window may be gone behind it
        if (shell) shell->Restack();
        return;
      }
      case Prop::Enabled: {
        // Its children are windows of their own.
        Shell().PanelArea()->setEnabled(window_.Enabled());
        return;
      }
      default:
        return QtWindowPeer::Update(prop);
    }
  }
  void Show(bool) override {
    if (!Widget()) return;
    const QPointer<MainShell> shell(&Shell());
    shell->show();
    if (shell) shell->Restack();
  }
  void Hide() override {
    if (Widget()) Shell().hide();
  }
  void Raise() override {
    if (!Widget()) return;
    Shell().raise();
    KeepBlockedBehind(window_);
  }

 protected:
  QWidget* InsideFor(const Control& control) override {
    const bool panel =
        control.kind() == ControlKind::Panel && static_cast<const Panel&>(control).AlignBottom;
    return panel ? Shell().PanelArea() : Shell().ClientArea();
  }
};

// --- children

// A frameless window in the client area. Where there is no main window it stands by itself.
class ChildWidget : public WindowWidget {
 public:
  ChildWidget(Window& window, QWidget* parent)
      : WindowWidget(window, parent, parent ? Qt::Widget : Qt::Window) {
    setBackgroundRole(QPalette::Window);  // not the empty client area's
    setAutoFillBackground(true);
    setFocusPolicy(Qt::NoFocus);
  }

 protected:
  void mousePressEvent(QMouseEvent*) override {
    if (window_) window_->UserActivate();
  }
};

class ChildPeer : public QtWindowPeer {
 public:
  ChildPeer(Window& window, MainShell* shell)
      : QtWindowPeer(window, new ChildWidget(window, shell ? shell->ClientArea() : nullptr)),
        shell_(shell) {
    Widget()->hide();
    for (const Prop prop : {Prop::Caption, Prop::Width, Prop::Enabled}) Update(prop);
  }
  ~ChildPeer() override {
    if (Widget()) Widget()->hide();
    Restack();
  }
  ChildPeer(const ChildPeer&) = delete;
  ChildPeer& operator=(const ChildPeer&) = delete;

  void Update(Prop prop) override {
    if (!Widget()) return;
    switch (prop) {
      case Prop::Left:
      case Prop::Top:
      case Prop::Width:
      case Prop::Height:
        Widget()->setGeometry(ToPixels(window_.Left()), ToPixels(window_.Top()),
                              ToPixels(window_.Width()), ToPixels(window_.Height()));
        return Restack();
      default:
        return QtWindowPeer::Update(prop);
    }
  }
  void Show(bool) override {
    if (shell_) return Restack();
    if (Widget()) Widget()->show();
  }
  void Hide() override {
    if (Widget()) Widget()->hide();
    Restack();
  }
  void Raise() override {
    if (shell_) return Restack();
    if (!Widget()) return;
    Widget()->raise();
    KeepBlockedBehind(window_);
  }

 protected:
  QWidget* InsideFor(const Control&) override { return Widget(); }

 private:
  void Restack() {
    if (shell_) shell_->Restack();
  }
  QPointer<MainShell> shell_;
};

}  // namespace

std::unique_ptr<WindowPeer> MakeWindowPeer(Window& window, QPointer<MainShell>& shell) {
  switch (window.kind()) {
    case Window::Kind::Main: {
      auto peer = std::make_unique<MainPeer>(window);
      shell = &peer->Shell();
      return peer;
    }
    case Window::Kind::Child:
      return std::make_unique<ChildPeer>(window, shell);
    case Window::Kind::Dialog:
      return MakeDialogPeer(window, shell);
  }
  return nullptr;
}

}  // namespace quorvel

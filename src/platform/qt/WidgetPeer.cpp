#include "platform/qt/WidgetPeer.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMouseEvent>
#include <unordered_map>
#include <utility>

#include "platform/controls/Desktop.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TabStrip.h"
#include "platform/qt/Accessibility.h"
#include "platform/qt/Discarded.h"
#include "platform/qt/GridBoxes.h"
#include "platform/qt/Looks.h"
#include "platform/qt/OwnWidget.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowPeer.h"

namespace quorvel {
namespace {

// Whether a row of its dialog's layout holds the control, so that the layout places it.
bool IsLaidOut(Control& control) {
  const Layout& rows = control.window().layout();
  return std::any_of(rows.begin(), rows.end(),
                     [&control](const LayoutRow& row) { return row.Holds(control); });
}

bool IsOnHiddenPage(Control& control) {
  const Control* outer = control.parent().AsControl();
  return outer && outer->kind() == ControlKind::TabStrip &&
         static_cast<const TabStrip*>(outer)->Tab() != control.Page();
}

// Panels at the bottom of the main window are placed by it.
bool IsPlacedByShell(Control& control) {
  return control.kind() == ControlKind::Panel && static_cast<Panel&>(control).AlignBottom &&
         control.window().kind() == Window::Kind::Main;
}

std::unordered_map<const QWidget*, WidgetPeer*>& Peers() {
  static std::unordered_map<const QWidget*, WidgetPeer*> peers;
  return peers;
}

// Kinds whose widgets tell nothing of clicks themselves.
bool NeedsClicks(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
    case ControlKind::TextBox:
    case ControlKind::Panel:
    case ControlKind::PictureBox:
    case ControlKind::Elastic:
      return true;
    default:
      return false;
  }
}

bool IsRight(const QEvent& event) {
  return static_cast<const QMouseEvent&>(event).button() == Qt::RightButton;
}

}  // namespace

QWidget* WidgetOf(const Control& control) {
  return control.peer() ? static_cast<WidgetPeer*>(control.peer())->Widget() : nullptr;
}

WidgetPeer* WidgetPeer::Around(const QWidget* widget) {
  for (const QWidget* at = widget; at; at = at->parentWidget()) {
    const auto found = Peers().find(at);
    if (found != Peers().end()) return found->second;
    if (at->isWindow()) break;
  }
  return nullptr;
}

std::vector<std::function<void()>> WidgetPeer::EndPress() {
  --presses_;
  return std::exchange(causes_, {});
}

void WidgetPeer::BehindPress(std::function<void()> cause) {
  if (presses_ == 0) return cause();
  causes_.push_back(std::move(cause));
}

WidgetPeer::WidgetPeer(Control& control, QWidget* widget)
    : control_(control), widget_(widget), key_(widget) {
  Peers()[widget] = this;
  widget->setObjectName(ToUnicode(control.CodeName()));
  widget->installEventFilter(this);
  if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) {
    area->viewport()->installEventFilter(this);  // that is where the mouse is
  }
  // Boxes of text keep the toolkit's menu of cut, copy and paste.
  if (control.kind() != ControlKind::TextBox) widget->setContextMenuPolicy(Qt::PreventContextMenu);
}

// The widget may be in one of its own events. Only what is heard here is disconnected: the toolkit
// hears of the widget's end by a signal, and else keeps its accessible object for good.
WidgetPeer::~WidgetPeer() {
  const auto known = Peers().find(key_);
  if (known != Peers().end() && known->second == this) Peers().erase(known);
  if (!widget_) return;
  widget_->removeEventFilter(this);
  widget_->disconnect(this);
  if (auto* own = dynamic_cast<OwnWidget*>(widget_.data())) own->Forget();
  widget_->hide();
  widget_->setObjectName(QString());
  Discard(widget_);
  widget_->setParent(nullptr);
}

void WidgetPeer::UpdateAll() {
  for (const Prop prop :
       {Prop::Left, Prop::Font, Prop::BackColor, Prop::Caption, Prop::ToolTipText, Prop::Text,
        Prop::MaxLength, Prop::PasswordChar, Prop::Locked, Prop::Items, Prop::Tabs, Prop::Tab,
        Prop::Value, Prop::Default, Prop::Picture, Prop::Look, Prop::Enabled, Prop::Visible}) {
    Update(prop);
  }
}

void WidgetPeer::Update(Prop prop) {
  if (!widget_) return;
  const Mirror mirror(*this);
  switch (prop) {
    case Prop::Left:
    case Prop::Top:
    case Prop::Width:
    case Prop::Height:
    case Prop::Look:
      Place();
      break;
    case Prop::Visible:
    case Prop::Page:
      widget_->setVisible(control_.Visible() && !IsOnHiddenPage(control_));
      break;
    case Prop::Enabled:
      widget_->setEnabled(control_.Enabled());
      break;
    case Prop::Font:
      widget_->setFont(control_.Font() == Font{} ? QFont() : ToQFont(control_.Font()));
      break;
    case Prop::BackColor:
    case Prop::ForeColor:
      Colour();
      break;
    case Prop::ToolTipText:
    case Prop::Caption:
    case Prop::AccessibleText:
      // Tips are plain text; the toolkit would take some for markup.
      widget_->setToolTip(ToCaption(control_.ToolTipText()).toHtmlEscaped());
      QtWindowPeer::Of(control_.window()).NamesChanged();
      break;
    default:
      break;
  }
  Apply(prop);
}

void WidgetPeer::Place() {
  if (IsLaidOut(control_) || IsPlacedByShell(control_)) return;
  const int inset = GridInset(control_);
  widget_->setGeometry(ToPixels(control_.Left()), ToPixels(GridTop(control_)) + ToPixels(inset),
                       ToPixels(control_.Width()), ToPixels(control_.Height() - 2 * inset));
}

void WidgetPeer::Colour() {
  if (control_.kind() == ControlKind::Terminal) return;  // paints its own
  QPalette palette;
  const auto set = [&palette](int colour, std::initializer_list<QPalette::ColorRole> roles) {
    if (colour < 0) return;
    for (const auto role : roles) palette.setColor(role, ToQColor(colour));
  };
  set(control_.BackColor(), {QPalette::Window, QPalette::Base, QPalette::Button});
  set(control_.ForeColor(), {QPalette::WindowText, QPalette::Text, QPalette::ButtonText});
  widget_->setAutoFillBackground(control_.BackColor() >= 0);
  widget_->setPalette(palette);
}

void WidgetPeer::Describe() {
  if (!widget_) return;
  widget_->setAccessibleName(ToCaption(control_.AccessibleName()));
  widget_->setAccessibleDescription(
      AccessibleDescription(ToCaption(control_.ToolTipText()), control_.CodeName()));
}

void WidgetPeer::ShowFocus() {
  if (!widget_) return;
  const Mirror mirror(*this);
  QWidget* window = widget_->window();
  const QWidget* active = QApplication::activeWindow();
  const QWidget* modal = QApplication::activeModalWidget();
  // From one of our windows to another; never out of another program, and not past a box.
  if (active && active != window && (!modal || modal == window)) window->activateWindow();
  widget_->setFocus(Qt::OtherFocusReason);
}

bool WidgetPeer::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ContextMenu:
      return control_.MouseDown != nullptr;  // the press has been served
    case QEvent::MouseButtonPress:
      if (!control_.MouseDown || !IsRight(*event)) return false;
      control_.UserMouseDown(MouseButton::Right);
      return true;
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
      return NeedsClicks(control_.kind()) && TakeMouse(*event);
    default:
      return QObject::eventFilter(watched, event);
  }
}

// Nothing of this object may be used behind the calls: a handler may close the window.
bool WidgetPeer::TakeMouse(QEvent& event) {
  const auto& mouse = static_cast<QMouseEvent&>(event);
  if (mouse.button() != Qt::LeftButton) return false;
  if (event.type() == QEvent::MouseButtonDblClick) {
    control_.UserDblClick();
  } else if (widget_->rect().contains(mouse.position().toPoint())) {
    control_.UserRelease();  // the press has given it the keyboard
  }
  return false;
}

}  // namespace quorvel

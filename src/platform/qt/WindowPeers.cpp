#include "platform/qt/WindowPeers.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include "platform/controls/Desktop.h"
#include "platform/controls/SimpleControls.h"
#include "platform/qt/MainShell.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeers.h"

namespace quorvel {
namespace {

// What all windows have in common.
class QtWindowPeer : public WindowPeer {
 public:
  virtual QWidget* Widget() = 0;
  virtual QWidget* Inside() { return Widget(); }

  std::unique_ptr<ControlPeer> MakePeer(Control& control) override {
    return MakeControlPeer(control, Inside());
  }
  void ShowNoFocus() override {
    QWidget* focus = Widget()->focusWidget();
    if (focus) focus->clearFocus();
  }

 protected:
  static void Name(QWidget& widget, const Window& window) {
    widget.setObjectName(ToUnicode(window.Name()));
    widget.setAccessibleName(ToCaption(window.Caption()));
    widget.setAccessibleDescription(AccessibleDescription(QString(), window.Name()));
  }
};

class MainPeer : public QtWindowPeer {
 public:
  MainPeer(Window& window, MainShell*& shell)
      : window_(window), shell_(new MainShell(window)), slot_(shell) {
    slot_ = shell_;
    Name(*shell_, window);
    Update(Prop::Caption);
    Update(Prop::Width);
    Update(Prop::Left);
  }
  ~MainPeer() override {
    slot_ = nullptr;
    shell_->hide();
    shell_->deleteLater();
  }
  MainPeer(const MainPeer&) = delete;
  MainPeer& operator=(const MainPeer&) = delete;
  QWidget* Widget() override { return shell_; }
  QWidget* Inside() override { return shell_->PanelArea(); }
  void Update(Prop prop) override {
    switch (prop) {
      case Prop::Caption:
        shell_->setWindowTitle(ToCaption(window_.Caption()));
        shell_->setAccessibleName(shell_->windowTitle());
        return;
      case Prop::Left:
      case Prop::Top:
        shell_->move(ToPixels(window_.Left()), ToPixels(window_.Top()));
        return;
      case Prop::Width:
      case Prop::Height:
        shell_->TakeSize();
        return;
      case Prop::Enabled:
        shell_->setEnabled(window_.Enabled());
        return;
      default:
        return;
    }
  }
  void UpdateMenu(MenuItem& item) override { shell_->UpdateMenu(item); }
  void Show(bool) override {
    shell_->show();
    shell_->RefreshMenu();
    shell_->TellFrame();
  }
  void Hide() override { shell_->hide(); }
  void Raise() override { shell_->raise(); }

 private:
  Window& window_;
  MainShell* shell_;
  MainShell*& slot_;
};

class ChildPeer : public QtWindowPeer {
 public:
  ChildPeer(Window& window, MainShell* shell)
      : window_(window),
        shell_(shell),
        widget_(new QWidget(shell ? shell->ClientArea() : nullptr)) {
    widget_->setBackgroundRole(QPalette::Window);  // not the empty client area's
    widget_->setAutoFillBackground(true);
    widget_->hide();
    Name(*widget_, window);
    Update(Prop::Width);
  }
  ~ChildPeer() override {
    if (!widget_) return;
    widget_->hide();
    widget_->setParent(nullptr);
    widget_->deleteLater();
    if (shell_) shell_->RefreshMenu();
  }
  ChildPeer(const ChildPeer&) = delete;
  ChildPeer& operator=(const ChildPeer&) = delete;
  QWidget* Widget() override { return widget_; }
  void Update(Prop prop) override {
    if (!widget_) return;
    switch (prop) {
      case Prop::Left:
      case Prop::Top:
      case Prop::Width:
      case Prop::Height:
        widget_->setGeometry(ToPixels(window_.Left()), ToPixels(window_.Top()),
                             ToPixels(window_.Width()), ToPixels(window_.Height()));
        return;
      case Prop::Enabled:
        widget_->setEnabled(window_.Enabled());
        return;
      case Prop::Caption:
        widget_->setAccessibleName(ToCaption(window_.Caption()));
        return;
      default:
        return;
    }
  }
  void UpdateMenu(MenuItem& item) override {
    if (shell_) shell_->UpdateMenu(item);
  }
  void Show(bool) override {
    if (widget_) widget_->show();
  }
  void Hide() override {
    if (widget_) widget_->hide();
    if (shell_) shell_->RefreshMenu();
  }
  void Raise() override {
    if (widget_) widget_->raise();
    if (shell_) shell_->RefreshMenu();
  }

 private:
  Window& window_;
  QPointer<MainShell> shell_;
  QPointer<QWidget> widget_;
};

// Closing and escaping are the window's own business.
class Dialog : public QDialog {
 public:
  Dialog(Window& window, QWidget* parent) : QDialog(parent), window_(window) {}
  // Escape is the window's own business; only the close box closes.
  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    window_.UserClose();
  }
  void moveEvent(QMoveEvent*) override { window_.UserMove(ToTwips(x()), ToTwips(y())); }
  void changeEvent(QEvent* event) override {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) NoticeTurn(*this, window_);
  }

 private:
  Window& window_;
};

class DialogPeer : public QtWindowPeer {
 public:
  DialogPeer(Window& window, QWidget* parent)
      : window_(window), dialog_(new Dialog(window, parent)) {
    Name(*dialog_, window);
    dialog_->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    Update(Prop::Caption);
    if (window.layout().empty()) Update(Prop::Width);
  }
  ~DialogPeer() override {
    if (!dialog_) return;
    dialog_->hide();
    dialog_->setParent(nullptr);
    dialog_->deleteLater();
  }
  DialogPeer(const DialogPeer&) = delete;
  DialogPeer& operator=(const DialogPeer&) = delete;
  QWidget* Widget() override { return dialog_; }

  void Built() override {
    if (window_.layout().empty()) return;
    auto* column = new QVBoxLayout(dialog_);
    column->setContentsMargins(16, 16, 16, 14);
    column->setSpacing(12);
    QFormLayout* form = nullptr;
    for (const LayoutRow& row : window_.layout()) {
      if (row.kind == LayoutRow::Kind::Field) {
        if (!form) {
          form = new QFormLayout;
          form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
          form->setHorizontalSpacing(14);
          form->setVerticalSpacing(8);
          column->addLayout(form);
        }
        AddField(*form, row);
      } else {
        form = nullptr;
        AddRow(*column, row);
      }
    }
    dialog_->adjustSize();
    if (!window_.Resizable) dialog_->setFixedSize(dialog_->sizeHint());
    const QSize frame = dialog_->frameGeometry().size() - dialog_->size();
    window_.AdoptFrame(ToTwips(frame.width()), ToTwips(frame.height()));
    window_.Width.Adopt(ToTwips(dialog_->sizeHint().width() + frame.width()));
    window_.Height.Adopt(ToTwips(dialog_->sizeHint().height() + frame.height()));
  }
  void Update(Prop prop) override {
    switch (prop) {
      case Prop::Caption:
        dialog_->setWindowTitle(ToCaption(window_.Caption()));
        dialog_->setAccessibleName(dialog_->windowTitle());
        return;
      case Prop::Left:
      case Prop::Top:
        dialog_->move(ToPixels(window_.Left()), ToPixels(window_.Top()));
        return;
      case Prop::Width:
      case Prop::Height:
        dialog_->resize(ToPixels(window_.Width()), ToPixels(window_.Height()));
        return;
      case Prop::Enabled:
        dialog_->setEnabled(window_.Enabled());
        return;
      default:
        return;
    }
  }
  void UpdateMenu(MenuItem&) override {}
  void Show(bool modal) override {
    dialog_->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    dialog_->show();
  }
  void Hide() override { dialog_->hide(); }
  void Raise() override {
    dialog_->raise();
    dialog_->activateWindow();
  }

 private:
  void AddField(QFormLayout& form, const LayoutRow& row) {
    auto* label = static_cast<QLabel*>(WidgetOf(*row.label));
    Control& control = *row.controls.front();
    QWidget* field = WidgetOf(control);
    if (control.kind() != ControlKind::Label) {
      field->setMinimumWidth(260);
      label->setBuddy(field);
    }
    form.addRow(label, field);
  }
  static void AddRow(QVBoxLayout& column, const LayoutRow& row) {
    if (row.kind != LayoutRow::Kind::Buttons) {
      column.addWidget(WidgetOf(*row.controls.front()),
                       row.kind == LayoutRow::Kind::Stretch ? 1 : 0);
      return;
    }
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    for (Control* button : row.controls) {
      QWidget* widget = WidgetOf(*button);
      widget->setMinimumWidth(92);
      buttons->addWidget(widget);
    }
    column.addSpacing(4);
    column.addLayout(buttons);
  }

  Window& window_;
  QPointer<Dialog> dialog_;
};

}  // namespace

std::unique_ptr<WindowPeer> MakeWindowPeer(Window& window, MainShell*& shell) {
  switch (window.kind()) {
    case Window::Kind::Main:
      return std::make_unique<MainPeer>(window, shell);
    case Window::Kind::Child:
      return std::make_unique<ChildPeer>(window, shell);
    case Window::Kind::Dialog:
      return std::make_unique<DialogPeer>(window, shell);
  }
  return nullptr;
}

namespace {

// The window that the user meets in a window of the toolkit: in the shell, the child in front.
Window* MetIn(Window& window) {
  if (window.kind() != Window::Kind::Main) return &window;
  const auto& order = desktop().focus().Order();
  const auto child = std::find_if(order.rbegin(), order.rend(), [](const Window* other) {
    return other->kind() == Window::Kind::Child && other->IsVisible();
  });
  return child == order.rend() ? nullptr : *child;
}

constexpr int kLasts = 50;  // ms

}  // namespace

void NoticeTurn(QWidget& widget, Window& window) {
  if (!widget.isActiveWindow()) return;
  QTimer::singleShot(kLasts, &widget, [&widget, &window] {
    if (!HasDesktop() || !widget.isActiveWindow() || !window.IsLoaded()) return;
    Window* met = MetIn(window);
    if (met && desktop().focus().Front() != met) met->UserActivate();
  });
}

void PlaceAbove(QWidget* window, QDialog& box) {
  if (!window || !window->isVisible()) return;
  box.winId();  // makes its native half
  box.windowHandle()->setTransientParent(window->window()->windowHandle());
  box.move(window->mapToGlobal(window->rect().center()) - QRect({}, box.sizeHint()).center());
}

void GiveKeyboardBack() {
  const Window* front = desktop().focus().Front();
  if (!front || desktop().IsEnding()) return;
  const QWidget* modal = QApplication::activeModalWidget();
  if (modal && modal != WidgetOf(*front)) return;  // another box is open below
  const Control* control = front->ActiveControl();
  if (control && control->peer()) control->peer()->ShowFocus();
}

QWidget* WidgetOf(const Window& window) {
  return window.peer() ? static_cast<QtWindowPeer*>(window.peer())->Widget() : nullptr;
}

}  // namespace quorvel

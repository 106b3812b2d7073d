#include "platform/qt/DialogPeer.h"

#include <QApplication>
#include <QLayout>
#include <QMenuBar>
#include <QResizeEvent>
#include <QTimer>
#include <QWindow>
#include <utility>

#include "platform/controls/Desktop.h"
#include "platform/qt/DialogLayout.h"
#include "platform/qt/Looks.h"
#include "platform/qt/WindowPeer.h"
#include "platform/qt/WindowWidget.h"

namespace quorvel {
namespace {

class DialogWidget : public WindowWidget {
 public:
  DialogWidget(Window& window, QWidget* parent)
      : WindowWidget(window, parent,
                     Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
        inside(new QWidget(this)) {
    inside->installEventFilter(this);
  }

  void AddMenuBar(const QList<QAction*>& entries) {
    bar_ = new QMenuBar(this);
    bar_->setNativeMenuBar(false);
    bar_->addActions(entries);
  }
  // Makes the inside as large as the window asks, or as its rows need.
  void TakeSize() {
    if (!window_) return;
    const QSize wanted(ToPixels(window_->Width()), ToPixels(window_->Height()));
    if (!isVisible()) wantedAtShow_ = wanted;
    SetSizeWithFrame(wanted);
  }
  void TakeSizeOfRows() {
    wantedAtShow_ = QSize();
    inside->layout()->activate();
    const QSize hint = inside->sizeHint();
    const QSize whole(hint.width(), hint.height() + BarHeight(hint.width()));
    if (!isVisible() || whole != size()) SetSize(whole);
  }
  void TakePlace() {
    if (!window_) return;
    const QPoint place(ToPixels(window_->Left()), ToPixels(window_->Top()));
    if (pos() != place) move(place);
    placed_ = true;
  }
  // A dialog that nobody has placed comes up over the middle of the one below.
  void PlaceIfNobodyHas() {
    if (placed_ || !parentWidget()) return;
    move(parentWidget()->frameGeometry().center() - rect().center());
    if (window_) window_->UserMove(ToTwips(x()), ToTwips(y()));
  }
  void TellSize() {
    if (!window_) return;
    const QSize whole = frameGeometry().size();
    const QSize frame = whole - size();
    const QPointer<DialogWidget> self(this);
    window_->AdoptFrame(ToTwips(frame.width()), ToTwips(frame.height() + BarHeight(width())));
    if (!self || !window_) return;  // its new size has closed it
    const bool known = ToPixels(window_->Width()) == whole.width() &&
                       ToPixels(window_->Height()) == whole.height();
    if (known) return;
    if (window_->Resizable && isVisible()) {
      window_->UserResize(ToTwips(whole.width()), ToTwips(whole.height()));
    } else {
      window_->Width.Adopt(ToTwips(whole.width()));
      window_->Height.Adopt(ToTwips(whole.height()));
    }
  }

  QWidget* const inside;

 protected:
  bool event(QEvent* event) override {
    // The window system puts the frame on behind our back.
    if (event->type() == QEvent::Show) {
      QTimer::singleShot(0, this, [this] {
        const QPointer<DialogWidget> self(this);
        if (!window_) return;
        if (wantedAtShow_.isValid()) SetSizeWithFrame(std::exchange(wantedAtShow_, QSize()));
        if (self) TellSize();
      });
    }
    return WindowWidget::event(event);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    // The rows need more or less room than before: a label has another text, for example.
    const bool fixed = window_ && !window_->Resizable && inside->layout();
    if (event->type() == QEvent::LayoutRequest && fixed && isVisible()) TakeSizeOfRows();
    return WindowWidget::eventFilter(watched, event);
  }
  void resizeEvent(QResizeEvent*) override {
    const int barHeight = BarHeight(width());
    if (bar_) bar_->setGeometry(0, 0, width(), barHeight);
    inside->setGeometry(0, barHeight, width(), std::max(0, height() - barHeight));
    TellSize();
  }
  void moveEvent(QMoveEvent*) override {
    if (!window_ || !isVisible()) return;
    if (ToPixels(window_->Left()) == x() && ToPixels(window_->Top()) == y()) return;
    window_->UserMove(ToTwips(x()), ToTwips(y()));
  }

 private:
  int BarHeight(int width) const { return bar_ ? std::max(0, bar_->heightForWidth(width)) : 0; }
  void SetSizeWithFrame(const QSize& wanted) {
    SetSize(wanted - (frameGeometry().size() - size()));
  }
  void SetSize(const QSize& wanted) {
    const QPointer<DialogWidget> self(this);
    if (window_ && !window_->Resizable) {
      setFixedSize(wanted.expandedTo(QSize(1, 1)));
    } else {
      resize(wanted);
    }
    if (!self || !window_) return;  // its new size has closed it
    const int barHeight = BarHeight(width());
    inside->setGeometry(0, barHeight, width(), std::max(0, height() - barHeight));
    if (bar_) bar_->setGeometry(0, 0, width(), barHeight);
  }

  QMenuBar* bar_ = nullptr;
  bool placed_ = false;
  QSize wantedAtShow_;  // with the frame, which isn't known before
};

class DialogPeer : public QtWindowPeer {
 public:
  DialogPeer(Window& window, QWidget* parent)
      : QtWindowPeer(window, new DialogWidget(window, parent)) {
    if (!menus().BarEntries().isEmpty()) Own().AddMenuBar(menus().BarEntries());
    for (const Prop prop : {Prop::Caption, Prop::Enabled}) Update(prop);
    if (window.layout().empty()) Own().TakeSize();
    if (window.Left() != 0 || window.Top() != 0) Own().TakePlace();
  }

  void Built() override {
    if (!Widget()) return;
    if (!window_.layout().empty()) {
      LayOut(window_, *Own().inside);
      Own().TakeSizeOfRows();
    }
    Own().TellSize();
    QtWindowPeer::Built();
  }
  void Update(Prop prop) override {
    if (!Widget()) return;
    switch (prop) {
      case Prop::Left:
      case Prop::Top:
        return Own().TakePlace();
      case Prop::Width:
      case Prop::Height:
        return Own().TakeSize();
      default:
        return QtWindowPeer::Update(prop);
    }
  }
  void Show(bool modal) override {
    if (!Widget()) return;
    const QPointer<DialogWidget> own(&Own());
    const auto modality = modal ? Qt::ApplicationModal : Qt::NonModal;
    if (own->isVisible() && own->windowModality() != modality) own->hide();  // it counts when shown
    own->setWindowModality(modality);
    own->PlaceIfNobodyHas();
    StandAbove(modal ? QApplication::activeModalWidget() : nullptr);
    own->show();
    if (!own || !own->Owner()) return;
    if (modal) own->raise();
    KeepBlockedBehind(window_);
  }
  void Hide() override {
    if (!Widget()) return;
    auto* below = dynamic_cast<WindowWidget*>(Widget()->parentWidget());
    const bool wasActive = Widget()->isActiveWindow();
    Widget()->hide();
    QWidget* modal = QApplication::activeModalWidget();
    if (wasActive && modal) modal->activateWindow();
    if (wasActive && below && !modal) below->activateWindow();
  }
  void Raise() override {
    if (!Widget()) return;
    Own().raise();
    if (!desktop().IsBlocked(window_)) Own().activateWindow();
    KeepBlockedBehind(window_);
  }

 protected:
  QWidget* InsideFor(const Control&) override { return Own().inside; }

 private:
  // For the window system: above what is modal already, a box for one, else above its parent.
  void StandAbove(const QWidget* modal) {
    const QWidget* below = modal && modal != Widget() ? modal : Widget()->parentWidget();
    if (modal) Own().winId();  // makes its native half
    if (!below || !Own().windowHandle()) return;
    Own().windowHandle()->setTransientParent(below->window()->windowHandle());
  }
  DialogWidget& Own() { return *static_cast<DialogWidget*>(Widget()); }
};

}  // namespace

std::unique_ptr<WindowPeer> MakeDialogPeer(Window& window, QWidget* parent) {
  return std::make_unique<DialogPeer>(window, parent);
}

}  // namespace quorvel

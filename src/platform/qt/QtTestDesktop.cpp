// The user of the real desktop: mouse and keys come in at the toolkit's own door, as a window
// system would send them, so that its modality, focus and queue have their say.

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <gtest/gtest.h>

#include "platform/headless/BehaviourTestDesktop.h"
#include "platform/qt/Looks.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

constexpr int kPatience = 5000;  // ms without any event until a wait counts as stalled
constexpr int kTurned = 150;  // ms until the program has noticed that the user turned to a window

// The command line of the program. The tests need no display, unless one is asked for.
char** Arguments() {
  static char programName[] = "test";
  static char* arguments[] = {programName, nullptr};
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  return arguments;
}

// Serves what is there; false when there was nothing.
bool ServeOnce() {
  return QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
}

// The real backend, which tells when it is about to sleep or to show something of its own. Input
// that comes early waits at its door: the toolkit's public test events can't be queued.
class WatchedBackend : public QtBackend {
 public:
  WatchedBackend() : QtBackend(1, Arguments()) {}

  bool ServeDoor() {
    if (waiting.empty()) return false;
    const std::function<void()> input = std::move(waiting.front());
    waiting.pop_front();
    input();
    return true;
  }
  void ServeToolkit(Serve serve) override {
    if (serve != Serve::WithoutInput && ServeDoor()) return;
    if (serve == Serve::Waiting) {
      if (ServeOnce()) return;
      if (onIdle) onIdle();
    }
    QtBackend::ServeToolkit(serve);
  }
  MessageBoxAnswer ShowMessageBox(const MessageBoxRequest& request) override {
    QTimer::singleShot(0, qApp, [this] { onBox(); });
    return QtBackend::ShowMessageBox(request);
  }
  void PopUp(MenuItem& menu) override {
    QTimer::singleShot(0, qApp, [this] { onPopUp(); });
    QtBackend::PopUp(menu);
  }

  std::function<void()> onIdle, onBox, onPopUp;
  std::deque<std::function<void()>> waiting;
};

// What a message box shows, as the program asked for it.
MessageBoxRequest Shown(const QMessageBox& box) {
  int style = box.button(QMessageBox::Cancel) ? MessageBoxStyle::kYesNoCancel
              : box.button(QMessageBox::Yes)  ? MessageBoxStyle::kYesNo
                                              : MessageBoxStyle::kOkOnly;
  switch (box.icon()) {
    case QMessageBox::Critical:
      style += MessageBoxStyle::kCritical;
      break;
    case QMessageBox::Question:
      style += MessageBoxStyle::kQuestion;
      break;
    case QMessageBox::Warning:
      style += MessageBoxStyle::kExclamation;
      break;
    case QMessageBox::Information:
      style += MessageBoxStyle::kInformation;
      break;
    case QMessageBox::NoIcon:
      break;
  }
  return {ToBytes(box.text()), ToBytes(box.windowTitle()), style};
}

struct KeyRow {
  KeyCode code;
  Qt::Key key;
};
constexpr KeyRow kKeys[] = {
    {KeyCode::Tab, Qt::Key_Tab},       {KeyCode::Return, Qt::Key_Return},
    {KeyCode::Escape, Qt::Key_Escape}, {KeyCode::Backspace, Qt::Key_Backspace},
    {KeyCode::Home, Qt::Key_Home},     {KeyCode::End, Qt::Key_End},
    {KeyCode::Down, Qt::Key_Down},     {KeyCode::F12, Qt::Key_F12},
};

class QtTestDesktop : public BehaviourTestDesktop {
 public:
  QtTestDesktop() : desktop_(backend_) {
    backend_.onIdle = [this] { ArmNextAct(); };
    backend_.onBox = [this] { AnswerShownBox(); };
    backend_.onPopUp = [this] { ClickInPopUp(); };
  }

  void Click(Control& control) override {
    QWidget* widget = backend_.WidgetOf(control);
    const bool mark =
        control.kind() == ControlKind::CheckBox || control.kind() == ControlKind::OptionButton;
    ClickAt(widget, mark && widget ? QPoint(8, widget->height() / 2) : QPoint());
  }
  void DoubleClick(Control& control) override {
    auto* list = qobject_cast<QAbstractItemView*>(backend_.WidgetOf(control));
    ASSERT_TRUE(list) << control.CodeName() << " is no list";
    const QPoint at = list->visualRect(list->currentIndex()).center();
    QWidget* top = list->window();
    QTest::mouseDClick(top->windowHandle(), Qt::LeftButton, {}, list->viewport()->mapTo(top, at));
  }
  void Type(const std::string& text) override {
    for (const char c : text) {
      if (QWindow* window = KeyWindow()) QTest::keyClick(window, c);
    }
  }
  void Press(KeyCode key, int shift) override {
    const int code = static_cast<int>(key);
    if (code >= 'A' && code <= 'Z') {
      ASSERT_EQ(shift, kAlt) << "letters are for Type";
      return PressKey(static_cast<Qt::Key>(code), Qt::AltModifier);
    }
    const auto row = std::find_if(std::begin(kKeys), std::end(kKeys),
                                  [key](const KeyRow& known) { return known.code == key; });
    ASSERT_NE(row, std::end(kKeys)) << "no such key here: " << code;
    PressKey(row->key, (shift & kShift) ? Qt::ShiftModifier : Qt::NoModifier);
  }
  void TypeAhead(const std::string& text) override {
    backend_.waiting.push_back([this, text] { Type(text); });
  }
  void ClickMenu(MenuItem& entry) override {
    MenuItem* bar = nullptr;
    for (MenuItem* top : entry.window().MenuBar()) {
      const auto& items = top->Items();
      if (std::find(items.begin(), items.end(), &entry) != items.end()) bar = top;
    }
    ASSERT_TRUE(bar) << entry.Name();
    QAction* title = backend_.ActionOf(*bar);
    ASSERT_TRUE(title) << entry.Name() << " is not in the menu bar";
    auto* menuBar = backend_.WidgetOf(*desktop_.Main())->findChild<QMenuBar*>();
    ClickAt(menuBar, menuBar->actionGeometry(title).center());
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu) return;  // something modal is above
    ClickAt(menu, menu->actionGeometry(backend_.ActionOf(entry)).center());
    // A grey entry leaves the menu open: Escape leads to the menu bar, and again out of it.
    for (int i = 0; i < 2 && InMenus(*menuBar); ++i) {
      PressKey(Qt::Key_Escape);
      ActivateAnother();
    }
  }
  void CloseBox(Window& window) override {
    if (window.kind() == Window::Kind::Child) return window.UserClose();  // it has no frame
    backend_.WidgetOf(window)->close();
  }
  void TurnTo(Window& window) override {
    backend_.WidgetOf(window)->window()->activateWindow();
    QTest::qWait(kTurned);
  }
  void PickItem(ComboBox& box, int row) override {
    QWidget* widget = backend_.WidgetOf(box);
    ClickAt(widget, QPoint(widget->width() - 8, widget->height() / 2));
    PressKey(Qt::Key_Home);
    for (int i = 0; i < row; ++i) PressKey(Qt::Key_Down);
    PressKey(Qt::Key_Return);
  }
  void PickRow(ListBox& list, int row) override { ClickRow(list, row); }
  void PickRow(ListView& list, int row) override { ClickRow(list, row - 1); }
  void TurnTo(TabStrip& strip, int page) override {
    auto* row = backend_.WidgetOf(strip)->findChild<QTabBar*>();
    ASSERT_TRUE(row);
    if (row->isTabVisible(page)) ClickAt(row, row->tabRect(page).center());
  }

  void ClickInText(TextBox& box, int place) override {
    auto* line = qobject_cast<QLineEdit*>(backend_.WidgetOf(box));
    ASSERT_TRUE(line) << box.CodeName() << " is no line of text";
    QPoint at(1, line->height() / 2);
    while (at.x() < line->width() && line->cursorPositionAt(at) < place) ++at.rx();
    ClickAt(line, at);
  }
  void Size(Window& window, int width, int height) override {
    backend_.WidgetOf(window)->resize(ToPixels(width), ToPixels(height));
  }

  void ServeUntilIdle() override {
    QElapsedTimer clock;
    clock.start();
    for (int quiet = 0; quiet < 2 && clock.elapsed() < kPatience; ++quiet) {
      if (ServeOnce() || backend_.ServeDoor() || ActivateAnother()) quiet = 0;
    }
    if (desktop_.IsHandling() || desktop_.IsEnding()) return;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    CheckMirror();
  }
  bool Stalled() const override { return stalled_; }

 private:
  // What a window manager does when the active window goes: another one of the program, a modal one
  // first, is active. The offscreen platform has none. False when there is nothing to do.
  static bool ActivateAnother() {
    if (QApplication::activePopupWidget() || QApplication::activeWindow()) return false;
    QWidget* next = QApplication::activeModalWidget();
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (!next && top->isVisible() && !top->parentWidget()) next = top;
    }
    if (next) next->activateWindow();
    return next != nullptr;
  }
  static bool InMenus(const QMenuBar& bar) {
    return QApplication::activePopupWidget() || bar.hasFocus();
  }
  static QWindow* KeyWindow() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup->windowHandle();
    return QGuiApplication::focusWindow();
  }
  static void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    if (QWindow* window = KeyWindow()) QTest::keyClick(window, key, modifiers);
  }
  // Where the widget shows; nothing on what the user can't see.
  static void ClickAt(QWidget* widget, QPoint at) {
    if (!widget || !widget->isVisible()) return;
    if (at.isNull()) at = widget->rect().center();
    QWidget* top = widget->window();
    QTest::mouseClick(top->windowHandle(), Qt::LeftButton, {}, widget->mapTo(top, at));
  }
  void ClickRow(Control& control, int row) {
    auto* list = qobject_cast<QAbstractItemView*>(backend_.WidgetOf(control));
    ASSERT_TRUE(list) << control.CodeName() << " is no list";
    const QModelIndex index = list->model()->index(row, 0);
    list->scrollTo(index);
    ClickAt(list->viewport(), list->visualRect(index).center());
  }

  void ArmNextAct() {
    ActivateAnother();
    QTimer::singleShot(NextActIn(), qApp, [this] {
      if (ActOnce() || desktop_.IsEnding()) return;
      QTimer::singleShot(kPatience, &life_, [this] {
        stalled_ = true;
        desktop_.Handle(EventKind::Program, [this] { desktop_.EndProcess(); });
      });
    });
  }
  // The box in front, or one below it where two have opened before the user could answer.
  QMessageBox* NextBox() {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      auto* box = qobject_cast<QMessageBox*>(top);
      const bool seen = std::find(seen_.begin(), seen_.end(), box) != seen_.end();
      if (box && box->isVisible() && !seen) return box;
    }
    return nullptr;
  }
  void AnswerShownBox() {
    const QPointer<QMessageBox> box = NextBox();
    ASSERT_TRUE(box) << "no message box shows";
    seen_.push_back(box);
    const BoxAnswer next = NextAnswer(Shown(*box));
    if (next.whileOpen) next.whileOpen();
    const auto button = next.answer == MessageBoxAnswer::Yes      ? QMessageBox::Yes
                        : next.answer == MessageBoxAnswer::No     ? QMessageBox::No
                        : next.answer == MessageBoxAnswer::Cancel ? QMessageBox::Cancel
                                                                  : QMessageBox::Ok;
    PressButton(box, button);
  }
  // Again and again while another box is above it.
  void PressButton(const QPointer<QMessageBox>& box, QMessageBox::StandardButton button) {
    if (!box || !box->isVisible()) return;
    ASSERT_TRUE(box->button(button)) << "the box has no such button";
    ClickAt(box->button(button), QPoint());
    if (box && box->isVisible()) {
      QTimer::singleShot(1, &life_, [this, box, button] { PressButton(box, button); });
    }
  }
  void ClickInPopUp() {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu) << "no menu shows";
    const MenuItem* entry = TakePopUpChoice();
    for (QAction* action : menu->actions()) {
      if (entry && action->objectName() == ToUnicode(entry->Name())) {
        return ClickAt(menu, menu->actionGeometry(action).center());
      }
    }
    PressKey(Qt::Key_Escape);
  }

  // The widgets show what the objects hold, and the toolkit's focus is where the keyboard is.
  void CheckMirror() {
    for (const Window* window : desktop_.LoadedWindows()) {
      if (!window->IsVisible()) continue;
      QWidget* top = backend_.WidgetOf(*window);
      ASSERT_TRUE(top) << window->Name();
      // A child that others cover is hidden, so that nobody finds there what can't be seen.
      const bool front = desktop_.focus().Front() == window;
      EXPECT_TRUE(top->isVisible() || (window->kind() == Window::Kind::Child && !front))
          << window->Name();
      for (Control* control : window->Controls()) CheckMirror(*control, *top);
    }
    Control* target = desktop_.focus().KeyTarget();
    if (!target) return;
    const QWidget* widget = backend_.WidgetOf(*target);
    const QWidget* focus = QApplication::focusWidget();
    const bool there = focus && (focus == widget || widget->isAncestorOf(focus));
    EXPECT_TRUE(there) << "the keyboard is at " << target->CodeName() << ", the toolkit's focus at "
                       << (focus ? std::string(focus->metaObject()->className()) +
                                       focus->objectName().toStdString()
                                 : "nothing");
  }
  void CheckMirror(Control& control, const QWidget& top) {
    const QWidget* widget = backend_.WidgetOf(control);
    ASSERT_TRUE(widget) << control.CodeName();
    if (control.Reachable()) {
      EXPECT_TRUE(widget->isVisibleTo(&top) && widget->isEnabledTo(&top)) << control.CodeName();
    }
    EXPECT_EQ(ToBytes(widget->objectName()), control.CodeName());
    EXPECT_EQ(ToBytes(widget->accessibleName()), control.AccessibleName()) << control.CodeName();
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
      EXPECT_EQ(ToBytes(line->text()), static_cast<TextBox&>(control).Text());
    } else if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
      EXPECT_EQ(ToBytes(combo->currentText()), static_cast<ComboBox&>(control).Text());
      EXPECT_EQ(combo->currentIndex(), static_cast<ComboBox&>(control).ListIndex());
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
      if (control.kind() == ControlKind::CheckBox) {
        EXPECT_EQ(button->isChecked(), static_cast<CheckBox&>(control).Value());
      } else if (control.kind() == ControlKind::OptionButton) {
        EXPECT_EQ(button->isChecked(), static_cast<OptionButton&>(control).Value());
      }
    } else if (const auto* list = qobject_cast<const QListView*>(widget)) {
      const QModelIndexList rows = list->selectionModel()->selectedIndexes();
      const int row = rows.isEmpty() ? -1 : rows.first().row();
      const bool view = control.kind() == ControlKind::ListView;
      const int selected = view ? static_cast<ListView&>(control).SelectedIndex()
                                : static_cast<ListBox&>(control).ListIndex() + 1;
      EXPECT_EQ(row + 1, std::max(selected, 0)) << control.CodeName();
    }
  }

  WatchedBackend backend_;
  Desktop desktop_;
  QObject life_;  // what is still to happen when the desktop goes does not
  std::vector<QPointer<QMessageBox>> seen_;
  bool stalled_ = false;
};

}  // namespace

std::unique_ptr<BehaviourTestDesktop> MakeTestDesktop() {
  return std::make_unique<QtTestDesktop>();
}

}  // namespace quorvel

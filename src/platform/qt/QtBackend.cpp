#include "platform/qt/QtBackend.h"

#include <QDateTime>
#include <QDialog>
#include <QMenu>
#include <QPixmapCache>
#include <QScreen>
#include <QStyleFactory>

#include "platform/controls/Desktop.h"
#include "platform/qt/Accessibility.h"
#include "platform/qt/BoxAbove.h"
#include "platform/qt/Looks.h"
#include "platform/qt/MainShell.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/QtApplication.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtFax.h"
#include "platform/qt/QtMessageBox.h"
#include "platform/qt/QtPictures.h"
#include "platform/qt/QtPrinter.h"
#include "platform/qt/QtPrograms.h"
#include "platform/qt/QtTransport.h"
#include "platform/qt/Screenshot.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeer.h"
#include "platform/qt/WindowPeer.h"

namespace quorvel {
namespace {

constexpr qint64 kBetweenBeeps = 250;  // milliseconds: a host that rings without end stays bearable

}  // namespace

// Brings the program's queue into the toolkit's: one toolkit event serves what may be served.
class QtBackend::Waker : public QObject {
 public:
  void Wake() {
    if (posted_) return;
    posted_ = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User) return QObject::event(event);
    posted_ = false;
    // One event a turn, so that painting and input get theirs; more follow by another turn.
    if (HasDesktop() && desktop().ServeOne()) Wake();
    return true;
  }

 private:
  bool posted_ = false;
};

struct QtBackend::Services {
  explicit Services(const QStringList& arguments) : application(arguments), dialogs(printer) {}
  QtApplication application;
  QtPrinter printer;
  QtDialogs dialogs;
  QtClipboard clipboard;
  QtPrograms programs;
  QtPictures pictures;
  QtFax fax;
};

QtBackend::QtBackend(int argc, char** argv) : argc_(argc), app_(argc_, argv) {
  QApplication::setApplicationName(QStringLiteral("quorvel"));
  // The desktop entry's name: by it a desktop finds the windows' icon and puts them together.
  QGuiApplication::setDesktopFileName(QStringLiteral("quorvel"));
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(PictureIcon("app"));
  if (QStyle* style = QStyleFactory::create(QStringLiteral("Fusion")))
    QApplication::setStyle(style);
  // The toolkit names what it caches after the icons and palettes of single widgets, and keeps the
  // names for good: about 2 KiB for each dialog of files or screen with combo boxes that is opened.
  // Without the cache a full paint of a dialog takes some 2 ms more.
  QPixmapCache::setCacheLimit(0);
  InstallAccessibility();
  services_ = std::make_unique<Services>(QApplication::arguments());
  waker_ = std::make_unique<Waker>();
}

QtBackend::~QtBackend() {
  // What was to be deleted later: there is no later.
  app_.discarded().DeleteAll();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  RemoveAccessibility();
}

int QtBackend::Run() {
  if (desktop().IsEnding()) return status_;
  running_ = true;
  const int status = QApplication::exec();
  running_ = false;
  return status;
}

// --- windows

std::unique_ptr<WindowPeer> QtBackend::MakePeer(Window& window) {
  auto peer = MakeWindowPeer(window, shell_);
  if (window.kind() == Window::Kind::Main) services_->application.SetMainWindow(shell_);
  return peer;
}

QWidget* QtBackend::WidgetOf(const Control& control) const {
  return quorvel::WidgetOf(control);
}

QWidget* QtBackend::WidgetOf(const Window& window) const {
  return quorvel::WidgetOf(window);
}

QAction* QtBackend::ActionOf(const MenuItem& item) const {
  if (!item.window().peer()) return nullptr;
  return QtWindowPeer::Of(item.window()).menus().ActionOf(item);
}

bool QtBackend::SaveScreenshot(const std::string& path) {
  return shell_ && PictureOfAll(*shell_).save(PathToUnicode(path), "PNG");
}

// --- events

void QtBackend::Wake() {
  waker_->Wake();
}

void QtBackend::ServeToolkit(Serve serve) {
  switch (serve) {
    case Serve::Waiting:
      QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
      break;
    case Serve::All:
      QCoreApplication::processEvents(QEventLoop::AllEvents);
      break;
    case Serve::WithoutInput:
      QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                      QEventLoop::ExcludeSocketNotifiers);
      break;
  }
}

void QtBackend::Quit(int status) {
  status_ = status;
  // Boxes and menus first, whose loops run inside the main one.
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (auto* dialog = qobject_cast<QDialog*>(widget)) dialog->done(QDialog::Rejected);
    if (auto* menu = qobject_cast<QMenu*>(widget)) menu->close();
  }
  waker_->Wake();  // a wait that sleeps has to look around
  if (running_) QCoreApplication::exit(status);
}

MessageBoxAnswer QtBackend::ShowMessageBox(const MessageBoxRequest& request) {
  return ExecMessageBox(request, shell_);
}

void QtBackend::PopUp(MenuItem& menu) {
  QAction* action = ActionOf(menu);
  if (!action || !action->menu()) return;
  // At the mouse; for somebody who works by the keys it may be far away.
  QPoint place = QCursor::pos();
  const QWidget* active = QApplication::activeWindow();
  const QWidget* focus = QApplication::focusWidget();
  if (active && focus && !active->frameGeometry().contains(place)) {
    place = focus->mapToGlobal(focus->rect().bottomLeft());
  }
  const BoxAbove menuAbove(nullptr, shell_);
  action->menu()->exec(place);
}

void QtBackend::Beep() {
  const qint64 now = QDateTime::currentMSecsSinceEpoch();
  if (now >= lastBeep_ && now - lastBeep_ < kBetweenBeeps) return;
  lastBeep_ = now;
  QApplication::beep();
}

void QtBackend::SetMousePointer(MousePointer pointer) {
  while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
  if (pointer == MousePointer::Hourglass) QApplication::setOverrideCursor(Qt::WaitCursor);
}

// --- services

ScreenMetrics QtBackend::Screen() {
  constexpr QSize kWithout(1024, 768);
  const QScreen* screen = QApplication::primaryScreen();
  const QSize size = screen ? screen->availableGeometry().size() : kWithout;
  return {ToTwips(size.width()), ToTwips(size.height()), TwipsPerPixel()};
}

Application& QtBackend::application() {
  return services_->application;
}
CommonDialogs& QtBackend::dialogs() {
  return services_->dialogs;
}
Clipboard& QtBackend::clipboard() {
  return services_->clipboard;
}
Printer& QtBackend::printer() {
  return services_->printer;
}
Programs& QtBackend::programs() {
  return services_->programs;
}
PictureReader& QtBackend::pictures() {
  return services_->pictures;
}
FaxService& QtBackend::fax() {
  return services_->fax;
}
std::unique_ptr<Transport> QtBackend::MakeTransport() {
  return std::make_unique<QtTransport>();
}

}  // namespace quorvel

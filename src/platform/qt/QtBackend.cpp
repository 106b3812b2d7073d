#include "platform/qt/QtBackend.h"

#include <QAbstractEventDispatcher>
#include <QDateTime>
#include <QDir>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QScreen>
#include <QStyleFactory>
#include <QTimer>

#include "platform/controls/Desktop.h"
#include "platform/qt/MainShell.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/QtServices.h"
#include "platform/qt/QtTransport.h"
#include "platform/qt/TerminalAccessible.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeers.h"
#include "platform/qt/WindowPeers.h"

namespace quorvel {
namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kMostBeepsASecond = 4;

QMessageBox::Icon IconOf(int style) {
  switch (style & MessageBoxStyle::kIconMask) {
    case MessageBoxStyle::kQuestion:
      return QMessageBox::Question;
    case MessageBoxStyle::kExclamation:
      return QMessageBox::Warning;
    case MessageBoxStyle::kInformation:
      return QMessageBox::Information;
    case 0:
      return QMessageBox::NoIcon;
    default:
      return QMessageBox::Critical;  // alone, or with the bit of another one
  }
}

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
    if (!HasDesktop()) return true;
    // One event a turn, so that painting and input get theirs; more follow by another turn.
    if (desktop().ServeOne()) Wake();
    return true;
  }

 private:
  bool posted_ = false;
};

struct QtBackend::Services {
  explicit Services(const QStringList& arguments) : application(arguments) {}
  QtApplication application;
  QtDialogs dialogs;
  QtClipboard clipboard;
  QtPrinter printer;
  QtPrograms programs;
};

QtBackend::QtBackend(int argc, char** argv) : argc_(argc), app_(argc_, argv) {
  QApplication::setApplicationName("quorvel");
  QApplication::setApplicationDisplayName(QString());
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(PictureIcon("app"));
  if (QStyle* style = QStyleFactory::create("Fusion")) QApplication::setStyle(style);
  if (const QScreen* screen = QApplication::primaryScreen()) {
    twipsPerPixel_ = std::max(1, qRound(kTwipsPerInch / screen->logicalDotsPerInch()));
  }
  InstallTerminalAccessibility();
  services_ = std::make_unique<Services>(QApplication::arguments());
  waker_ = std::make_unique<Waker>();
}

// The widgets of windows that have just gone are deleted by events; there will be no more turns.
QtBackend::~QtBackend() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int QtBackend::Run() {
  return desktop().IsEnding() ? 0 : QApplication::exec();
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
  return shell_ ? shell_->ActionOf(item) : nullptr;
}

bool QtBackend::SaveScreenshot(const std::string& path) {
  if (!shell_) return false;
  QPixmap picture = shell_->grab();
  QPainter painter(&picture);
  const QPoint corner = shell_->mapToGlobal(QPoint(0, 0));
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window == shell_ || !window->isVisible() || window->size().isEmpty()) continue;
    const QRect place(window->mapToGlobal(QPoint(0, 0)) - corner, window->size());
    painter.drawPixmap(place.topLeft(), window->grab());
    if (window->windowType() != Qt::Popup) {
      // No window manager draws a frame here; without one the parts can't be told apart.
      painter.fillRect(place.adjusted(0, -22, 0, 0)
                           .intersected(QRect(place.left(), place.top() - 22, place.width(), 22)),
                       QColor(0x45, 0x5a, 0x64));
      painter.setPen(Qt::white);
      painter.drawText(QRect(place.left() + 8, place.top() - 22, place.width() - 16, 22),
                       Qt::AlignVCenter | Qt::AlignLeft, window->windowTitle());
      painter.setPen(QColor(0x45, 0x5a, 0x64));
      painter.drawRect(place.adjusted(-1, -22, 0, 0));
    }
  }
  painter.end();
  return picture.save(PathToUnicode(path), "PNG");
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

void QtBackend::Quit() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (auto* dialog = qobject_cast<QMessageBox*>(window)) dialog->done(0);
    if (auto* menu = qobject_cast<QMenu*>(window)) menu->close();
  }
  services_->dialogs.CloseOpen();
  QCoreApplication::exit(0);
}

MessageBoxAnswer QtBackend::ShowMessageBox(const MessageBoxRequest& request) {
  const bool yesNo = (request.style & MessageBoxStyle::kButtonMask) == MessageBoxStyle::kYesNo;
  QMessageBox box;
  box.setObjectName("MessageBox");
  box.setAccessibleDescription(AccessibleDescription(QString(), "MessageBox"));
  box.setWindowTitle(ToCaption(request.title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToCaption(request.text));
  box.setIcon(IconOf(request.style));
  box.setStandardButtons(yesNo ? QMessageBox::Yes | QMessageBox::No
                               : QMessageBox::StandardButtons(QMessageBox::Ok));
  box.setDefaultButton(yesNo ? QMessageBox::Yes : QMessageBox::Ok);
  box.setEscapeButton(yesNo ? QMessageBox::No : QMessageBox::Ok);
  box.setWindowModality(Qt::ApplicationModal);
  QWidget* below = QApplication::activeModalWidget();
  PlaceAbove(below ? below : shell_, box);
  const int answer = box.exec();
  GiveKeyboardBack();
  if (!yesNo) return MessageBoxAnswer::Ok;
  return answer == QMessageBox::Yes ? MessageBoxAnswer::Yes : MessageBoxAnswer::No;
}

void QtBackend::PopUp(MenuItem& menu) {
  std::map<const MenuItem*, QAction*> actions;
  const std::unique_ptr<QMenu> popup(MakeMenu(menu, actions, shell_));
  popup->exec(QCursor::pos());
}

// A host that rings without end is heard a few times a second.
void QtBackend::Beep() {
  const qint64 now = QDateTime::currentMSecsSinceEpoch();
  if (now - lastBeep_ < 1000 / kMostBeepsASecond) return;
  lastBeep_ = now;
  QApplication::beep();
}

void QtBackend::SetMousePointer(MousePointer pointer) {
  while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
  if (pointer == MousePointer::Hourglass) QApplication::setOverrideCursor(Qt::WaitCursor);
}

// --- services

ScreenMetrics QtBackend::Screen() {
  const QScreen* screen = QApplication::primaryScreen();
  const QSize size = screen ? screen->availableGeometry().size() : QSize(1024, 768);
  return {size.width() * twipsPerPixel_, size.height() * twipsPerPixel_, twipsPerPixel_};
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
std::unique_ptr<Transport> QtBackend::MakeTransport() {
  return std::make_unique<QtTransport>();
}

}  // namespace quorvel

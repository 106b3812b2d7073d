#include "app/sim/qt/QtDesk.h"

#include <QApplication>
#include <QImage>
#include <QThread>
#include <QTimerEvent>
#include <QWidget>

#include "app/sim/qt/Boxes.h"
#include "app/sim/qt/Menus.h"
#include "platform/controls/Desktop.h"
#include "platform/qt/InputGate.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowPeer.h"

namespace quorvel::sim {
namespace {

// Turns without anything to do until everything has been served: what one turn of the toolkit
// begins the next one may end.
constexpr int kIdleTurns = 2;
// Real time in which the program notices that another window is active, and a little more.
constexpr int kNoticed = 70;

// What the sample host asks for by this name.
void WritePicture(const std::string& folder) {
  QImage picture(320, 200, QImage::Format_RGB32);
  picture.fill(Qt::darkCyan);
  picture.save(PathToUnicode(folder) + "/picture.bmp", "BMP");
}

// What a window manager does when the active window goes: another one of the program, a modal one
// first, is active. The offscreen platform has none. False when there is nothing to do.
bool ActivateAnother() {
  if (QApplication::activePopupWidget()) return false;
  if (QApplication::activeWindow() && QGuiApplication::focusWindow()) return false;
  QWidget* next = QApplication::activeModalWidget();
  if (!next) next = QApplication::activeWindow();
  for (QWidget* top : QApplication::topLevelWidgets()) {
    if (!next && top->isVisible() && !top->parentWidget()) next = top;
  }
  if (next) next->activateWindow();
  return next != nullptr;
}

}  // namespace

QtDesk::QtDesk(SimQtBackend& backend, const DeskSetup& setup)
    : backend_(backend), folder_(setup.place.Folder()), hands_(door_) {
  backend_.BeginStory(setup);
  connect(qApp, &QGuiApplication::focusWindowChanged, this, [this] { sinceTurn_.start(); });
  sinceTurn_.start();
}

QtDesk::~QtDesk() {
  backend_.EndStory();
}

bool QtDesk::HasOpenBoxes() const {
  return IsBoxOpen();
}

void QtDesk::Play(std::function<bool()> next) {
  next_ = std::move(next);
  WritePicture(folder_);
  timer_ = startTimer(0);
  backend_.Run();
  killTimer(timer_);
}

// A timer is not fired inside its own event, but a new one is: that is how a turn may be part of
// a wait that an earlier one has begun.
void QtDesk::timerEvent(QTimerEvent* event) {
  killTimer(event->timerId());
  timer_ = startTimer(0);
  if (HasDesktop() && !desktop().IsEnding()) Turn();
}

void QtDesk::Turn() {
  if (backend_.Serving() == Serve::WithoutInput) return;
  // In the midst of an event that lets others have their turn and goes on, time does not.
  const bool yields = backend_.Serving() == Serve::All && !IsBoxOpen();
  if (ServeSomething() || yields) {
    idleTurns_ = 0;
  } else if (++idleTurns_ >= kIdleTurns) {
    idleTurns_ = 0;
    if (!next_()) End();
  }
}

bool QtDesk::ServeSomething() {
  return door_.ServeOne() || desktop().ServeOne() || LeadBack() || IsTurning();
}

// Out of what the operator knows nothing of: a text box's own menu, a list that has dropped down.
bool QtDesk::LeadBack() {
  if (ActivateAnother()) return true;
  if (!IsAstray()) return false;
  hands_.Press(KeyCode::Escape, kNoShift);
  return true;
}

// Whether the program is about to notice that the active window is not the one in front.
bool QtDesk::IsTurning() const {
  const QWidget* active = QApplication::activeWindow();
  const Window* front = desktop().focus().Front();
  const bool own = active && dynamic_cast<const OwnWindow*>(active);
  if (!own || !front || !WidgetOf(*front) || WidgetOf(*front)->window() == active) return false;
  if (sinceTurn_.elapsed() > kNoticed) return false;
  QThread::msleep(1);
  return true;
}

void QtDesk::End() {
  desktop().Handle(EventKind::Program, [] { desktop().EndProcess(); });
}

}  // namespace quorvel::sim

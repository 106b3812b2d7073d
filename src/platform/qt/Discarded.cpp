#include "platform/qt/Discarded.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>

#include "platform/qt/InputGate.h"

namespace quorvel {
namespace {

// Events of the window system come in at a window's native half, which goes with its widget.
const QObject* WidgetBehind(const QObject* receiver) {
  const auto* native = qobject_cast<const QWindow*>(receiver);
  if (!native) return receiver;
  for (const QWidget* top : QApplication::topLevelWidgets()) {
    if (top->windowHandle() == native) return top;
  }
  return receiver;
}

}  // namespace

Discarded::Delivery::Delivery(Discarded& owner, QObject* receiver) : owner_(owner) {
  owner_.running_.push_back({receiver});
}

Discarded::Delivery::~Delivery() {
  const bool kept = owner_.running_.back().keeps;
  owner_.running_.pop_back();
  if (kept) owner_.DeleteSoon();
}

bool Discarded::IsInside(const Running& running, const QObject& object) {
  const auto& around = running.around;
  if (std::find(around.begin(), around.end(), &object) != around.end()) return true;
  for (const QObject* at = WidgetBehind(running.receiver); at; at = at->parent()) {
    if (at == &object) return true;
  }
  return false;
}

void Discarded::Take(QWidget* widget) {
  // It may be taken out of what it is inside of: whoever runs in it runs in that, too.
  for (Running& running : running_) {
    if (!IsInside(running, *widget)) continue;
    for (const QObject* at = widget->parent(); at; at = at->parent()) running.around.push_back(at);
  }
  left_.emplace_back(widget);
  DeleteSoon();
}

void Discarded::DeleteSoon() {
  if (posted_ || left_.empty()) return;
  posted_ = true;
  QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool Discarded::event(QEvent* event) {
  if (event->type() != QEvent::User) return QObject::event(event);
  posted_ = false;
  DeleteFree();
  return true;
}

void Discarded::DeleteFree() {
  std::vector<QPointer<QWidget>> free;
  const auto isFree = [this](const QPointer<QWidget>& widget) {
    if (!widget) return true;
    bool runs = false;
    for (Running& running : running_) {
      if (!IsInside(running, *widget)) continue;
      running.keeps = true;
      runs = true;
    }
    return !runs;
  };
  const auto kept = std::stable_partition(left_.begin(), left_.end(), isFree);
  free.assign(left_.begin(), kept);
  left_.erase(left_.begin(), kept);
  for (const auto& widget : free) delete widget.data();
}

void Discarded::DeleteAll() {
  while (!left_.empty()) {
    const QPointer<QWidget> widget = left_.back();
    left_.pop_back();
    delete widget.data();
  }
}

void Discard(QWidget* widget) {
  auto* gate = dynamic_cast<InputGate*>(QCoreApplication::instance());
  if (gate) {
    gate->discarded().Take(widget);
  } else {
    widget->deleteLater();
  }
}

}  // namespace quorvel

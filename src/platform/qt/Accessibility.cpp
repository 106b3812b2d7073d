#include "platform/qt/Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "platform/qt/TerminalAccessible.h"
#include "platform/qt/TerminalWidget.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowWidget.h"

namespace quorvel {
namespace {

QAccessible::Role RoleOf(const WindowWidget& window) {
  if (!window.isWindow()) return QAccessible::Pane;
  return window.windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window;
}

QAccessibleInterface* Make(const QString&, QObject* object) {
  if (auto* terminal = dynamic_cast<TerminalWidget*>(object)) return MakeAccessible(terminal);
  if (auto* window = dynamic_cast<WindowWidget*>(object)) {
    return new QAccessibleWidget(window, RoleOf(*window));
  }
  return nullptr;
}

}  // namespace

void InstallAccessibility() {
  QAccessible::installFactory(Make);
}

void RemoveAccessibility() {
  QAccessible::removeFactory(Make);
}

QString AccessibleDescription(const QString& text, const std::string& codeName) {
  const bool ids = qEnvironmentVariable("QUORVEL_A11Y_IDS") == QLatin1String("1");
  return ids ? text + " [id:" + ToUnicode(codeName) + "]" : text;
}

}  // namespace quorvel

#include "platform/qt/Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "platform/qt/ReportWidget.h"
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

// Tells the line that the keyboard is on; all lines of a report at once are no help.
class ReportAccessible : public QAccessibleWidget {
 public:
  explicit ReportAccessible(ReportWidget* report)
      : QAccessibleWidget(report, QAccessible::Document), report_(report) {}
  QString text(QAccessible::Text what) const override {
    return what == QAccessible::Value ? report_->CurrentLine() : QAccessibleWidget::text(what);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    return state;
  }

 private:
  ReportWidget* report_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
  if (auto* terminal = dynamic_cast<TerminalWidget*>(object)) return MakeAccessible(terminal);
  if (auto* report = dynamic_cast<ReportWidget*>(object)) return new ReportAccessible(report);
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

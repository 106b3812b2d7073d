#include "platform/qt/TerminalAccessible.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "platform/qt/TerminalPainter.h"
#include "platform/qt/TerminalWidget.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

class TerminalAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit TerminalAccessible(TerminalWidget* widget)
      : QAccessibleWidget(widget, QAccessible::Terminal) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QString text(QAccessible::Text what) const override {
    return what == QAccessible::Value ? All() : QAccessibleWidget::text(what);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    state.selectableText = true;
    return state;
  }

  // --- text
  void selection(int, int* start, int* end) const override { *start = *end = 0; }
  int selectionCount() const override { return 0; }
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  int cursorPosition() const override {
    const vt::Screen& screen = Emulation().screen();
    return screen.CursorRow() * LineLength() + screen.CursorColumn();
  }
  void setCursorPosition(int) override {}  // the host's
  QString text(int start, int end) const override { return All().mid(start, end - start); }
  int characterCount() const override { return Emulation().screen().Rows() * LineLength() - 1; }
  QRect characterRect(int offset) const override {
    const QRect cell = Own().CellRect(offset / LineLength(), offset % LineLength());
    return QRect(Own().mapToGlobal(cell.topLeft()), cell.size());
  }
  int offsetAtPoint(const QPoint& point) const override {
    const QPoint cell = Own().CellAt(Own().mapFromGlobal(point));
    return cell.y() * LineLength() + cell.x();
  }
  void scrollToSubstring(int, int) override {}

  // The run of equal attributes around `offset`, as IAccessible2's text attributes.
  QString attributes(int offset, int* start, int* end) const override {
    const vt::Screen& screen = Emulation().screen();
    const int row = std::clamp(offset / LineLength(), 0, screen.Rows() - 1);
    const int column = std::clamp(offset % LineLength(), 0, screen.Columns() - 1);
    const vt::Attributes attributes = screen.CellAt(row, column).attributes;
    int first = column, last = column + 1;
    while (first > 0 && screen.CellAt(row, first - 1).attributes == attributes) --first;
    while (last < screen.Columns() && screen.CellAt(row, last).attributes == attributes) ++last;
    *start = row * LineLength() + first;
    *end = row * LineLength() + last;
    const auto pair = TerminalColours(Own().terminal()).Of(attributes);
    const auto rgb = [](const QColor& colour) {
      return QString("rgb(%1,%2,%3)").arg(colour.red()).arg(colour.green()).arg(colour.blue());
    };
    return QString("color:%1;background-color:%2;font-weight:%3;text-underline-style:%4;")
        .arg(rgb(pair.fore), rgb(pair.back), attributes.bold() ? "bold" : "normal",
             attributes.underline() ? "solid" : "none");
  }

 private:
  TerminalWidget& Own() const { return *static_cast<TerminalWidget*>(widget()); }
  const vt::Emulator& Emulation() const { return Own().terminal().emulation(); }
  int LineLength() const { return Emulation().screen().Columns() + 1; }
  QString All() const {
    QStringList lines;
    const int first = Own().FirstLine();
    for (int row = 0; row < Emulation().screen().Rows(); ++row) {
      lines << ToUnicode(Emulation().LineText(first + row));
    }
    return lines.join('\n');
  }
};

QAccessibleInterface* Make(const QString&, QObject* object) {
  auto* terminal = dynamic_cast<TerminalWidget*>(object);
  return terminal ? new TerminalAccessible(terminal) : nullptr;
}

}  // namespace

void InstallTerminalAccessibility() {
  QAccessible::installFactory(Make);
}

}  // namespace quorvel

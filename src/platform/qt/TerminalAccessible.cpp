#include "platform/qt/TerminalAccessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>

#include "platform/qt/TerminalPainter.h"
#include "platform/qt/TerminalWidget.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

// Offsets count the characters of all rows that are shown, each followed by LF but the last.
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
  int characterCount() const override { return IsGone() ? 0 : Rows() * LineLength() - 1; }
  QString text(int start, int end) const override {
    const int count = characterCount();
    const int from = std::clamp(start, 0, count);
    return All().mid(from, std::clamp(end, from, count) - from);
  }
  int cursorPosition() const override {
    if (IsGone()) return 0;
    const vt::Screen& screen = Emulation().screen();
    const int row = screen.CursorRow() + Emulation().ScrollbackCount() - Own().FirstLine();
    return std::min(row * LineLength() + screen.CursorColumn(), characterCount());
  }
  void setCursorPosition(int) override {}  // the host's
  QRect characterRect(int offset) const override {
    if (IsGone() || offset < 0 || offset > characterCount()) return {};
    const QRect cell = Own().CellRect(offset / LineLength(), offset % LineLength());
    return QRect(Own().mapToGlobal(cell.topLeft()), cell.size());
  }
  int offsetAtPoint(const QPoint& point) const override {
    if (IsGone()) return -1;
    const QPoint place = Own().mapFromGlobal(point);
    if (!Own().rect().contains(place)) return -1;
    const QPoint cell = Own().CellAt(place);
    return cell.y() * LineLength() + cell.x();
  }
  void scrollToSubstring(int, int) override {}
  QString attributes(int offset, int* start, int* end) const override;

  // --- selection
  int selectionCount() const override { return IsGone() || Own().selection().IsEmpty() ? 0 : 1; }
  void selection(int index, int* start, int* end) const override {
    *start = *end = 0;
    if (index != 0 || selectionCount() == 0) return;
    *start = OffsetOf(Own().selection().From());
    *end = OffsetOf(Own().selection().To());
  }
  void addSelection(int start, int end) override { setSelection(0, start, end); }
  void removeSelection(int index) override {
    if (IsGone() || index != 0) return;
    Own().selection().Clear();
    Own().ReportSelection();
  }
  void setSelection(int index, int start, int end) override {
    if (IsGone() || index != 0) return;
    Own().selection().Set(PlaceOf(start), PlaceOf(end));
    Own().ReportSelection();
  }

  QString All() const {
    QString all;
    if (IsGone()) return all;
    all.reserve(qsizetype{Rows()} * LineLength());
    for (int row = 0; row < Rows(); ++row) {
      if (row > 0) all += u'\n';
      // Never a character that would shift the offsets of what follows.
      all += ToUnicode(Emulation().LineText(Own().FirstLine() + row)).replace(u'\n', u' ');
    }
    return all;
  }
  // What was announced last.
  QString announced;

 private:
  // The control has gone, and its widget lives a little longer.
  bool IsGone() const { return !Own().terminal(); }
  TerminalWidget& Own() const { return *static_cast<TerminalWidget*>(widget()); }
  const vt::Emulator& Emulation() const { return Own().terminal()->emulation(); }
  int Rows() const { return Emulation().screen().Rows(); }
  int LineLength() const { return Emulation().screen().Columns() + 1; }
  int OffsetOf(TerminalSelection::Place place) const {
    const int row = place.line - Own().FirstLine();
    if (row < 0) return 0;
    return std::min(row * LineLength() + place.column, characterCount());
  }
  TerminalSelection::Place PlaceOf(int offset) const {
    const int inside = std::clamp(offset, 0, characterCount());
    return {Own().FirstLine() + inside / LineLength(), inside % LineLength()};
  }
};

// The run of equal attributes around `offset`, in the notation of IAccessible2's text attributes.
QString TerminalAccessible::attributes(int offset, int* start, int* end) const {
  *start = *end = 0;
  if (IsGone() || offset < 0 || offset > characterCount()) return {};
  const int row = offset / LineLength();
  const vt::Line line = Emulation().LineAt(Own().FirstLine() + row);
  const int columns = static_cast<int>(line.cells.size());
  const int column = std::min(offset % LineLength(), columns - 1);
  const auto at = [&](int place) { return line.cells[static_cast<std::size_t>(place)].attributes; };
  int first = column;
  int last = column + 1;
  while (first > 0 && at(first - 1) == at(column)) --first;
  while (last < columns && at(last) == at(column)) ++last;
  *start = row * LineLength() + first;
  *end = row * LineLength() + last;
  const auto pair = TerminalColours(*Own().terminal()).Of(at(column));
  const auto rgb = [](const QColor& colour) {
    return QString("rgb(%1,%2,%3)").arg(colour.red()).arg(colour.green()).arg(colour.blue());
  };
  return QString("color:%1;background-color:%2;font-weight:%3;text-underline-style:%4;")
      .arg(rgb(pair.fore), rgb(pair.back), at(column).bold() ? "bold" : "normal",
           at(column).underline() ? "solid" : "none");
}

// The part of a row in which it differs from what it was.
struct Change {
  int offset;  // in the row
  QString before;
  QString after;
};

Change ChangeOf(QStringView before, QStringView after) {
  qsizetype same = 0;
  while (same < before.size() && same < after.size() && before[same] == after[same]) ++same;
  qsizetype tail = 0;
  while (tail < before.size() - same && tail < after.size() - same &&
         before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) {
    ++tail;
  }
  return {static_cast<int>(same), before.mid(same, before.size() - same - tail).toString(),
          after.mid(same, after.size() - same - tail).toString()};
}

}  // namespace

QAccessibleInterface* MakeAccessible(TerminalWidget* widget) {
  return new TerminalAccessible(widget);
}

void AnnounceTerminal(TerminalWidget& widget) {
  auto* accessible =
      dynamic_cast<TerminalAccessible*>(QAccessible::queryAccessibleInterface(&widget));
  if (!accessible) return;
  const QString before = accessible->announced;
  const QString after = accessible->All();
  accessible->announced = after;
  const auto rowsBefore = QStringView(before).split(u'\n');
  const auto rowsAfter = QStringView(after).split(u'\n');
  if (rowsBefore.size() != rowsAfter.size()) {
    QAccessibleTextUpdateEvent whole(&widget, 0, before, after);
    QAccessible::updateAccessibility(&whole);
  } else {
    int offset = 0;
    for (qsizetype row = 0; row < rowsAfter.size(); ++row) {
      const Change change = ChangeOf(rowsBefore[row], rowsAfter[row]);
      if (!change.before.isEmpty() || !change.after.isEmpty()) {
        QAccessibleTextUpdateEvent changed(&widget, offset + change.offset, change.before,
                                           change.after);
        QAccessible::updateAccessibility(&changed);
      }
      offset += static_cast<int>(rowsAfter[row].size()) + 1;
    }
  }
  QAccessibleTextCursorEvent caret(&widget, accessible->cursorPosition());
  QAccessible::updateAccessibility(&caret);
}

}  // namespace quorvel

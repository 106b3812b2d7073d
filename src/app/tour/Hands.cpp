#include "app/tour/Hands.h"

#include <QApplication>
#include <QListView>
#include <QMouseEvent>
#include <QTest>

#include "menus/frmSubMenu.h"

namespace quorvel {
namespace {

// Where the toolkit sends a key now.
QWidget* KeyTarget() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  QWidget* focus = QApplication::focusWidget();
  QWidget* modal = QApplication::activeModalWidget();
  if (modal && (!focus || focus->window() != modal)) {
    return modal->focusWidget() ? modal->focusWidget() : modal;
  }
  if (focus) return focus;
  return QApplication::activeWindow();
}

}  // namespace

void Hands::Click(Control& control) const {
  QTest::mouseClick(backend_.WidgetOf(control), Qt::LeftButton);
}

// The pointer goes there as well: it is where the menu opens.
void Hands::RightClick(Control& control) const {
  QWidget* const widget = backend_.WidgetOf(control);
  QCursor::setPos(widget->mapToGlobal(widget->rect().center()));
  QTest::mouseClick(widget, Qt::RightButton);
}

void Hands::MouseOnRow(ListBox& list, QEvent::Type type, int row) const {
  auto* view = qobject_cast<QListView*>(backend_.WidgetOf(list));
  const QRect place = view->visualRect(view->model()->index(row, 0));
  const bool up = type == QEvent::MouseButtonRelease;
  QMouseEvent event(type, place.center(), view->viewport()->mapToGlobal(place.center()),
                    type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                    up ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(view->viewport(), &event);
}

void Hands::Key(int key, Qt::KeyboardModifiers modifiers) const {
  if (QWidget* target = KeyTarget()) QTest::keyClick(target, static_cast<Qt::Key>(key), modifiers);
}

void Hands::Type(const char* text) const {
  for (const char* c = text; *c != '\0'; ++c) {
    if (*c == '\r') {
      Key(Qt::Key_Return);
    } else if (QWidget* target = KeyTarget()) {
      QTest::keyClick(target, *c);
    }
  }
}

void Hands::Open(const char* option) const {
  Click(Form<frmSubMenu>()->cboExecute);
  Type(option);
  Key(Qt::Key_Return);
}

void Hands::AnswerBox() const {
  Key(Qt::Key_Return);
}

}  // namespace quorvel

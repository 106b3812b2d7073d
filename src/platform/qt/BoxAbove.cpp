#include "platform/qt/BoxAbove.h"

#include <QApplication>
#include <QDialog>
#include <QWindow>

#include "platform/controls/Desktop.h"
#include "platform/qt/WindowPeer.h"

namespace quorvel {

BoxAbove::BoxAbove(QDialog* box, QWidget* shell)
    : below_(QApplication::activeModalWidget() ? QApplication::activeModalWidget()
                                               : QApplication::activeWindow()) {
  if (!below_) below_ = shell;
  if (!box || !below_ || !below_->isVisible()) return;
  box->winId();  // makes its native half
  box->windowHandle()->setTransientParent(below_->window()->windowHandle());
  box->move(below_->mapToGlobal(below_->rect().center()) - QRect({}, box->sizeHint()).center());
}

BoxAbove::~BoxAbove() {
  const bool ends = !HasDesktop() || desktop().IsEnding();
  const Window* front = ends ? nullptr : desktop().focus().Front();
  // Meanwhile another window may have come to the front, behind the box.
  QWidget* next = QApplication::activeModalWidget();
  if (!next && front && WidgetOf(*front)) next = WidgetOf(*front)->window();
  if (!next) next = below_;
  const QWidget* now = QApplication::activeWindow();
  if (next && next->isVisible() && (!now || !now->isVisible())) next->activateWindow();
  if (ends) return;
  const Control* control = front ? front->ActiveControl() : nullptr;
  if (control && control->peer()) control->peer()->ShowFocus();
}

}  // namespace quorvel

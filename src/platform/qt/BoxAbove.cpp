#include "platform/qt/BoxAbove.h"

#include <QApplication>
#include <QDialog>
#include <QWindow>

#include "platform/controls/Desktop.h"

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
  const QWidget* now = QApplication::activeWindow();
  if (below_ && below_->isVisible() && (!now || !now->isVisible())) below_->activateWindow();
  if (!HasDesktop() || desktop().IsEnding()) return;
  const Window* front = desktop().focus().Front();
  const Control* control = front ? front->ActiveControl() : nullptr;
  if (control && control->peer()) control->peer()->ShowFocus();
}

}  // namespace quorvel

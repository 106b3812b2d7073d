#include "app/sim/qt/Boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <algorithm>

#include "app/sim/qt/Menus.h"
#include "platform/qt/Text.h"

namespace quorvel::sim {
namespace {

// The box that takes the input; nullptr while a window of the program does.
QDialog* DialogInFront() {
  return qobject_cast<QDialog*>(QApplication::activeModalWidget());
}

QAbstractButton* ButtonOf(const QMessageBox& box, bool yes) {
  if (!box.button(QMessageBox::Yes)) return box.button(QMessageBox::Ok);
  return box.button(yes ? QMessageBox::Yes : QMessageBox::No);
}

QAbstractButton* ButtonOf(const QDialog& dialog, bool yes) {
  if (const auto* box = qobject_cast<const QMessageBox*>(&dialog)) return ButtonOf(*box, yes);
  for (const QDialogButtonBox* box : dialog.findChildren<QDialogButtonBox*>()) {
    for (QAbstractButton* button : box->buttons()) {
      const auto wanted = yes ? QDialogButtonBox::AcceptRole : QDialogButtonBox::RejectRole;
      if (box->buttonRole(button) == wanted && button->isVisible()) return button;
    }
  }
  return nullptr;
}

void EnterFile(QDialog& dialog, const std::string& file) {
  if (auto* line = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
    line->setText(PathToUnicode(file));
  }
}

}  // namespace

bool IsBoxOpen() {
  if (QApplication::activePopupWidget()) return true;
  const auto all = QApplication::topLevelWidgets();
  return std::any_of(all.begin(), all.end(), [](const QWidget* widget) {
    return widget->isVisible() && qobject_cast<const QDialog*>(widget);
  });
}

std::optional<OpenBox> ShownBox() {
  OpenBox seen;
  if (MenuItem* menu = PoppedUp()) {
    seen.kind = OpenBox::Kind::PopUp;
    seen.menu = menu;
    return seen;
  }
  const QDialog* dialog = DialogInFront();
  if (!dialog) return std::nullopt;
  seen.title = ToBytes(dialog->windowTitle());
  seen.kind = OpenBox::Kind::Other;
  if (const auto* box = qobject_cast<const QMessageBox*>(dialog)) {
    seen.kind = OpenBox::Kind::Message;
    seen.text = ToBytes(box->text());
    seen.asks = box->button(QMessageBox::Yes) != nullptr;
  } else if (const auto* files = qobject_cast<const QFileDialog*>(dialog)) {
    seen.kind = OpenBox::Kind::File;
    seen.saves = files->acceptMode() == QFileDialog::AcceptSave;
  }
  return seen;
}

void AnswerShownBox(Mouse& mouse, Keys& keys, const BoxReply& reply) {
  if (PoppedUp()) {
    if (reply.entry) return ClickInPopUp(mouse, *reply.entry);
    return keys.Press(KeyCode::Escape);
  }
  const QPointer<QDialog> dialog = DialogInFront();
  if (!dialog) return;
  bool yes = reply.yes;
  if (qobject_cast<const QFileDialog*>(dialog)) {
    yes = !reply.file.empty();
    if (yes) EnterFile(*dialog, reply.file);
  }
  mouse.Click([dialog, yes]() -> std::optional<Spot> {
    QAbstractButton* button = dialog ? ButtonOf(*dialog, yes) : nullptr;
    return button ? SpotOn(button, button->rect().center()) : std::nullopt;
  });
}

}  // namespace quorvel::sim

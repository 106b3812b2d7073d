#include "platform/qt/QtMessageBox.h"

#include <QMessageBox>
#include <algorithm>
#include <vector>

#include "platform/controls/Desktop.h"
#include "platform/qt/Accessibility.h"
#include "platform/qt/BoxAbove.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

// More could not be read, and would push the buttons off the screen.
constexpr qsizetype kMostCharacters = 2000;
constexpr qsizetype kMostLines = 25;
// The toolkit breaks lines at blanks only: in longer words it is shown where it may.
constexpr qsizetype kLongestWord = 60;

QString BoxText(const std::string& bytes) {
  QString text = ToUnicode(std::string_view(bytes).substr(0, kMostCharacters + 1));
  text.replace("\r\n", "\n").replace('\r', '\n').replace(QChar(0), ' ');
  const QStringList lines = text.split('\n');
  const bool cut = text.size() > kMostCharacters || lines.size() > kMostLines;
  text = lines.mid(0, kMostLines).join('\n').left(kMostCharacters);
  QString out;
  qsizetype word = 0;
  for (const QChar c : text) {
    word = c.isSpace() ? 0 : word + 1;
    if (word > kLongestWord) {
      out += QChar(0x200B);  // zero width space
      word = 1;
    }
    out += c;
  }
  return cut ? out + "..." : out;
}

// A style with the bits of several icons shows the gravest one.
QMessageBox::Icon IconOf(int style) {
  switch (style & MessageBoxStyle::kIconMask) {
    case 0:
      return QMessageBox::NoIcon;
    case MessageBoxStyle::kQuestion:
      return QMessageBox::Question;
    case MessageBoxStyle::kExclamation:
      return QMessageBox::Warning;
    case MessageBoxStyle::kInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::Critical;
  }
}

// The buttons of a style, the default first, the one of Escape last.
std::vector<QMessageBox::StandardButton> ButtonsOf(int style) {
  switch (style & MessageBoxStyle::kButtonMask) {
    case MessageBoxStyle::kYesNo:
      return {QMessageBox::Yes, QMessageBox::No};
    case MessageBoxStyle::kYesNoCancel:
      return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
    default:
      return {QMessageBox::Ok};
  }
}

MessageBoxAnswer AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Yes:
      return MessageBoxAnswer::Yes;
    case QMessageBox::No:
      return MessageBoxAnswer::No;
    case QMessageBox::Cancel:
      return MessageBoxAnswer::Cancel;
    default:
      return MessageBoxAnswer::Ok;
  }
}

}  // namespace

MessageBoxAnswer ExecMessageBox(const MessageBoxRequest& request, QWidget* shell) {
  const auto buttons = ButtonsOf(request.style);
  QMessageBox box;
  box.setObjectName(QStringLiteral("MessageBox"));
  box.setWindowTitle(ToCaption(request.title));
  box.setAccessibleName(box.windowTitle());
  box.setAccessibleDescription(AccessibleDescription(QString(), "MessageBox"));
  box.setTextFormat(Qt::PlainText);
  box.setText(BoxText(request.text));
  box.setIcon(IconOf(request.style));
  for (const auto button : buttons) box.addButton(button);
  box.setDefaultButton(buttons.front());
  box.setEscapeButton(buttons.back());
  box.setWindowModality(Qt::ApplicationModal);
  const BoxAbove above(&box, shell);
  QObject::connect(&box, &QDialog::finished, &box, [] { desktop().BoxHasClosed(); });
  const int pressed = box.exec();
  // The program's end closes the box with no button of its own.
  const bool own = std::find(buttons.begin(), buttons.end(), pressed) != buttons.end();
  return AnswerOf(own ? pressed : buttons.back());
}

}  // namespace quorvel

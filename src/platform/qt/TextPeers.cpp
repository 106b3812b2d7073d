// The peers of text boxes, of one line and of several.

#include <QLineEdit>
#include <QPlainTextEdit>

#include "platform/controls/TextBox.h"
#include "platform/qt/ControlPeers.h"
#include "platform/qt/GridBoxes.h"
#include "platform/qt/LineLimit.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {
namespace {

class LinePeer : public WidgetPeer {
 public:
  LinePeer(TextBox& box, QWidget* parent) : WidgetPeer(box, new GridLineEdit(parent)), box_(box) {
    connect(Own(), &QLineEdit::textEdited, this, [this](const QString& text) { Edit(text); });
    connect(Own(), &QLineEdit::selectionChanged, this, [this] { TellSelection(); });
    connect(Own(), &QLineEdit::cursorPositionChanged, this, [this] { TellSelection(); });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    switch (prop) {
      case Prop::Text:
        return ShowText();
      case Prop::MaxLength:
        return LimitLine(*Own(), box_.MaxLength(), box_.Text());
      case Prop::PasswordChar:
        Own()->setEchoMode(box_.PasswordChar() ? QLineEdit::Password : QLineEdit::Normal);
        if (box_.PasswordChar()) {
          Own()->setStyleSheet(QString("lineedit-password-character: %1")
                                   .arg(int{static_cast<unsigned char>(box_.PasswordChar())}));
        }
        return;
      case Prop::Locked:
        Own()->setReadOnly(box_.Locked());
        return;
      case Prop::Look:
        return static_cast<GridLineEdit*>(Widget())->SetLook(box_.Look());
      case Prop::SelStart:
      case Prop::SelLength:
        return ShowSelection();
      case Prop::Selection:
        Own()->selectAll();
        box_.UserSelect(0, static_cast<int>(box_.Text().size()));
        return;
      default:
        return;
    }
  }
  void ShowFocus() override {
    WidgetPeer::ShowFocus();
    Update(Prop::SelStart);  // without the keyboard nothing shows selected
  }

 private:
  QLineEdit* Own() { return static_cast<QLineEdit*>(Widget()); }

  void Edit(const QString& text) {
    const QPointer<LinePeer> self(this);
    editing_ = true;
    box_.UserEdit(ToBytes(text));
    if (!self) return;  // the change has closed the window
    editing_ = false;
    LimitLine(*Own(), box_.MaxLength(), box_.Text());
    TellSelection();
  }
  void ShowText() {
    const QString text = ToUnicode(box_.Text());
    LimitLine(*Own(), box_.MaxLength(), box_.Text());
    if (Own()->text() != text) {
      const int cursor = Own()->cursorPosition();
      Own()->setText(text);
      // What the user has typed and was refused leaves the cursor where it was; a text of the
      // program's begins at its front.
      Own()->setCursorPosition(editing_ ? std::min(cursor, static_cast<int>(text.size())) : 0);
    }
    if (!editing_) ShowSelection();
  }
  void ShowSelection() {
    if (box_.SelLength() > 0) {
      Own()->setSelection(box_.SelStart(), box_.SelLength());
    } else {
      Own()->setCursorPosition(box_.SelStart());
    }
  }
  void TellSelection() {
    if (Mirroring() || editing_ || !Own()->hasFocus()) return;
    const bool selected = Own()->hasSelectedText();
    box_.UserSelect(selected ? Own()->selectionStart() : Own()->cursorPosition(),
                    selected ? static_cast<int>(Own()->selectedText().size()) : 0);
  }

  TextBox& box_;
  bool editing_ = false;
};

// Lines end with CR LF in the control, and the selection counts both; the widget counts one.
class PagePeer : public WidgetPeer {
 public:
  PagePeer(TextBox& box, QWidget* parent) : WidgetPeer(box, new QPlainTextEdit(parent)), box_(box) {
    connect(Own(), &QPlainTextEdit::textChanged, this, [this] { Edit(); });
    connect(Own(), &QPlainTextEdit::selectionChanged, this, [this] { TellSelection(); });
    connect(Own(), &QPlainTextEdit::cursorPositionChanged, this, [this] { TellSelection(); });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    switch (prop) {
      case Prop::Text: {
        if (Text() == box_.Text()) return;
        const int place = Own()->textCursor().position();
        BreakLongWords();
        Own()->setPlainText(ToUnicode(box_.Text()));
        if (editing_) Select(place, place);
        return;
      }
      case Prop::Locked:
        Own()->setReadOnly(box_.Locked());
        return;
      case Prop::SelStart:
      case Prop::SelLength:
        return Select(WidgetPlace(box_.SelStart()),
                      WidgetPlace(box_.SelStart() + box_.SelLength()));
      case Prop::Selection:
        Own()->selectAll();
        box_.UserSelect(0, static_cast<int>(box_.Text().size()));
        return;
      default:
        return;
    }
  }

 private:
  QPlainTextEdit* Own() { return static_cast<QPlainTextEdit*>(Widget()); }
  // The toolkit looks for the end of a word once for each line that the word takes: a long one
  // without a blank would hold the window for minutes.
  void BreakLongWords() {
    constexpr std::size_t kLongestWord = 1000;
    const std::string& text = box_.Text();
    std::size_t longest = 0;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = std::min(text.find_first_of(" \t\r\n", at), text.size());
      longest = std::max(longest, end - at);
      at = end + 1;
    }
    Own()->setWordWrapMode(longest > kLongestWord ? QTextOption::WrapAnywhere
                                                  : QTextOption::WrapAtWordBoundaryOrAnywhere);
  }
  std::string Text() { return ToBytes(Own()->toPlainText().replace("\n", "\r\n")); }

  void Edit() {
    if (Mirroring()) return;
    const QPointer<PagePeer> self(this);
    editing_ = true;
    box_.UserEdit(Text());
    if (self) editing_ = false;
  }
  void Select(int from, int to) {
    const int last = static_cast<int>(Own()->toPlainText().size());
    QTextCursor cursor = Own()->textCursor();
    cursor.setPosition(std::clamp(from, 0, last));
    cursor.setPosition(std::clamp(to, 0, last), QTextCursor::KeepAnchor);
    Own()->setTextCursor(cursor);
  }
  // The widget's place for a place in the control's text, which counts CR LF as two.
  int WidgetPlace(int place) const {
    const std::string& text = box_.Text();
    int out = 0;
    for (int i = 0; i < place && i < static_cast<int>(text.size()); ++i) {
      const auto at = static_cast<std::size_t>(i);
      const bool second = text[at] == '\n' && i > 0 && text[at - 1] == '\r';
      if (!second) ++out;
    }
    return out;
  }
  int ControlPlace(int place) {
    const QString text = Own()->toPlainText().left(place);
    return place + static_cast<int>(text.count('\n'));
  }
  void TellSelection() {
    if (Mirroring() || editing_ || !Own()->hasFocus()) return;
    const QTextCursor cursor = Own()->textCursor();
    const int from = ControlPlace(cursor.selectionStart());
    box_.UserSelect(from, ControlPlace(cursor.selectionEnd()) - from);
  }

  TextBox& box_;
  bool editing_ = false;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeTextBox(TextBox& box, QWidget* parent) {
  if (box.MultiLine) return std::make_unique<PagePeer>(box, parent);
  return std::make_unique<LinePeer>(box, parent);
}

}  // namespace quorvel

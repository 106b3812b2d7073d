#include "platform/qt/WidgetPeers.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

#include "platform/controls/Desktop.h"
#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TerminalControl.h"
#include "platform/controls/TextBox.h"
#include "platform/qt/Keyboard.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/TerminalWidget.h"
#include "platform/qt/Text.h"

namespace quorvel {

int ToPixels(int twips) {
  const int perPixel = desktop().backend().Screen().twipsPerPixel;
  return (twips >= 0 ? twips + perPixel / 2 : twips - perPixel / 2) / perPixel;
}

int ToTwips(int pixels) {
  return pixels * desktop().backend().Screen().twipsPerPixel;
}

QColor ToQColor(int colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

QFont ToQFont(const Font& font) {
  static const QStringList families = QFontDatabase::families();
  const QString name = ToCaption(font.name);
  QFont out = QApplication::font();
  if (families.contains(name)) {
    out = QFont(name);
  } else if (name.contains("VT220") || name == "Fixedsys" || name.contains("Courier")) {
    out = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (families.contains("DejaVu Sans Mono")) out.setFamily("DejaVu Sans Mono");
    out.setStyleHint(QFont::Monospace);
  }
  if (font.size > 0) out.setPointSizeF(font.size);
  out.setBold(font.bold);
  out.setItalic(font.italic);
  return out;
}

QString AccessibleDescription(const QString& text, const std::string& codeName) {
  static const bool ids = qEnvironmentVariable("QUORVEL_A11Y_IDS") == "1";
  return ids ? text + " [id:" + ToUnicode(codeName) + "]" : text;
}

// --- what all kinds have in common

WidgetPeer::WidgetPeer(Control& control, QWidget* widget) : control_(control), widget_(widget) {
  widget->setObjectName(ToUnicode(control.CodeName()));
  widget->installEventFilter(this);
  widget->setContextMenuPolicy(Qt::PreventContextMenu);
}

// The widget may be in one of its own events.
WidgetPeer::~WidgetPeer() {
  if (!widget_) return;
  widget_->removeEventFilter(this);
  widget_->disconnect();
  widget_->hide();
  widget_->setParent(nullptr);
  widget_->deleteLater();
}

QWidget* WidgetPeer::Inside(const Control&) {
  return widget_;
}

void WidgetPeer::UpdateAll() {
  for (const Prop prop :
       {Prop::Left, Prop::Font, Prop::BackColor, Prop::Caption, Prop::ToolTipText, Prop::Text,
        Prop::MaxLength, Prop::PasswordChar, Prop::Locked, Prop::Items, Prop::Tabs, Prop::Tab,
        Prop::Value, Prop::Picture, Prop::Enabled, Prop::Visible}) {
    Update(prop);
  }
}

void WidgetPeer::Update(Prop prop) {
  if (!widget_) return;
  const Mirror mirror(*this);
  ApplyCommon(prop);
  Apply(prop);
}

void WidgetPeer::ApplyCommon(Prop prop) {
  switch (prop) {
    case Prop::Left:
    case Prop::Top:
    case Prop::Width:
    case Prop::Height: {
      if (!control_.window().layout().empty()) return;  // laid out in rows
      int top = control_.Top();
      Control* outer = control_.parent().AsControl();
      if (outer && outer->peer()) top -= static_cast<WidgetPeer*>(outer->peer())->InsideTop();
      widget_->setGeometry(ToPixels(control_.Left()), ToPixels(top), ToPixels(control_.Width()),
                           ToPixels(control_.Height()));
      return;
    }
    case Prop::Visible:
      widget_->setVisible(control_.Visible());
      return;
    case Prop::Enabled:
      widget_->setEnabled(control_.Enabled());
      return;
    case Prop::Font: {
      const Font& font = control_.Font();
      if (font == Font{}) return;
      widget_->setFont(ToQFont(font));
      return;
    }
    case Prop::BackColor:
    case Prop::ForeColor: {
      if (control_.kind() == ControlKind::Terminal) return;
      QPalette palette = widget_->palette();
      if (control_.BackColor() >= 0) {
        palette.setColor(widget_->backgroundRole(), ToQColor(control_.BackColor()));
        widget_->setAutoFillBackground(true);
      }
      if (control_.ForeColor() >= 0) {
        palette.setColor(widget_->foregroundRole(), ToQColor(control_.ForeColor()));
      }
      widget_->setPalette(palette);
      return;
    }
    case Prop::ToolTipText:
    case Prop::Caption:
    case Prop::AccessibleText:
      widget_->setToolTip(ToCaption(control_.ToolTipText()).toHtmlEscaped());
      widget_->setAccessibleName(ToCaption(control_.AccessibleName()));
      widget_->setAccessibleDescription(
          AccessibleDescription(ToCaption(control_.ToolTipText()), control_.CodeName()));
      return;
    default:
      return;
  }
}

void WidgetPeer::ShowFocus() {
  if (!widget_) return;
  const Mirror mirror(*this);
  widget_->window()->activateWindow();
  widget_->setFocus(Qt::OtherFocusReason);
}

bool WidgetPeer::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn && !Mirroring()) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    // Tab is travelled by the windows; the toolkit gives that reason too when it moves the focus
    // away from something hidden.
    if (reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason) {
      control_.UserFocus();
    }
    return false;
  }
  if (event->type() == QEvent::ShortcutOverride) {
    // A letter that leads to a control of the window goes before the same one in the menu bar.
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() == Qt::AltModifier && control_.window().HasMnemonic(key->key())) {
      event->accept();
    }
    return false;
  }
  // A key that a widget did not use comes by its parents too; it is taken where the focus is.
  if (event->type() == QEvent::KeyPress && watched == QApplication::focusWidget()) {
    return TakeKey(control_, *static_cast<QKeyEvent*>(event));
  }
  return QObject::eventFilter(watched, event);
}

QWidget* WidgetOf(const Control& control) {
  return control.peer() ? static_cast<WidgetPeer*>(control.peer())->Widget() : nullptr;
}

namespace {

// A caption whose "&" marks nothing.
QString Literal(const std::string& text) {
  return ToCaption(text).replace("&", "&&");
}

class LabelPeer : public WidgetPeer {
 public:
  LabelPeer(Label& label, QWidget* parent) : WidgetPeer(label, new QLabel(parent)), label_(label) {
    Own()->setTextFormat(Qt::PlainText);
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop != Prop::Caption) return;
    Control* buddy = label_.Buddy();
    if (buddy && WidgetOf(*buddy)) Own()->setBuddy(WidgetOf(*buddy));
    Own()->setText(ToCaption(label_.Caption()));
  }

 private:
  QLabel* Own() { return static_cast<QLabel*>(Widget()); }
  Label& label_;
};

class LinePeer : public WidgetPeer {
 public:
  LinePeer(TextBox& box, QWidget* parent) : WidgetPeer(box, new QLineEdit(parent)), box_(box) {
    connect(Own(), &QLineEdit::textEdited, this,
            [this](const QString& text) { box_.UserEdit(ToBytes(text)); });
    connect(Own(), &QLineEdit::selectionChanged, this, [this] { TellSelection(); });
    connect(Own(), &QLineEdit::cursorPositionChanged, this, [this] { TellSelection(); });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    switch (prop) {
      case Prop::Text: {
        const QString text = ToUnicode(box_.Text());
        if (Own()->text() == text) return;
        const int cursor = Own()->cursorPosition();
        Own()->setText(text);
        Own()->setCursorPosition(std::min(cursor, static_cast<int>(text.size())));
        return;
      }
      // The core cuts what is typed; the box would cut what the program sets as well.
      case Prop::PasswordChar:
        Own()->setEchoMode(box_.PasswordChar() ? QLineEdit::Password : QLineEdit::Normal);
        if (box_.PasswordChar()) {
          Own()->setStyleSheet(
              QString("lineedit-password-character: %1").arg(int{box_.PasswordChar()}));
        }
        return;
      case Prop::Locked:
        Own()->setReadOnly(box_.Locked());
        return;
      case Prop::SelStart:
      case Prop::SelLength:
        Own()->setSelection(box_.SelStart(), box_.SelLength());
        if (box_.SelLength() == 0) Own()->setCursorPosition(box_.SelStart());
        return;
      case Prop::Selection:
        Own()->selectAll();
        return;
      default:
        return;
    }
  }

 private:
  QLineEdit* Own() { return static_cast<QLineEdit*>(Widget()); }
  void TellSelection() {
    if (Mirroring()) return;
    const bool selected = Own()->hasSelectedText();
    box_.UserSelect(selected ? Own()->selectionStart() : Own()->cursorPosition(),
                    selected ? static_cast<int>(Own()->selectedText().size()) : 0);
  }
  TextBox& box_;
};

class PagePeer : public WidgetPeer {
 public:
  PagePeer(TextBox& box, QWidget* parent) : WidgetPeer(box, new QPlainTextEdit(parent)), box_(box) {
    Own()->setTabChangesFocus(true);
    connect(Own(), &QPlainTextEdit::textChanged, this, [this] {
      if (!Mirroring()) box_.UserEdit(ToBytes(Own()->toPlainText()));
    });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Text) {
      const QString text = ToUnicode(box_.Text());
      if (Own()->toPlainText() != text) Own()->setPlainText(text);
    } else if (prop == Prop::Locked) {
      Own()->setReadOnly(box_.Locked());
    }
  }

 private:
  QPlainTextEdit* Own() { return static_cast<QPlainTextEdit*>(Widget()); }
  TextBox& box_;
};

class ComboPeer : public WidgetPeer {
 public:
  ComboPeer(ComboBox& combo, QWidget* parent)
      : WidgetPeer(combo, new QComboBox(parent)), combo_(combo) {
    Own()->setInsertPolicy(QComboBox::NoInsert);
    Own()->setEditable(combo.style == ComboBox::Style::DropDown);
    if (QLineEdit* line = Own()->lineEdit()) {
      Own()->setCompleter(nullptr);
      line->setContextMenuPolicy(Qt::PreventContextMenu);
      connect(line, &QLineEdit::textEdited, this,
              [this](const QString& text) { combo_.UserEdit(ToBytes(text)); });
    }
    connect(Own(), &QComboBox::activated, this, [this](int index) { combo_.UserPick(index); });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Items) {
      Own()->clear();
      for (const std::string& row : combo_.List.All()) Own()->addItem(ToCaption(row));
    }
    if (prop == Prop::MaxLength && Own()->lineEdit() && combo_.MaxLength() > 0) {
      Own()->lineEdit()->setMaxLength(combo_.MaxLength());
    }
    if (prop != Prop::Items && prop != Prop::Text && prop != Prop::ListIndex) return;
    Own()->setCurrentIndex(combo_.ListIndex());
    if (Own()->lineEdit()) Own()->setEditText(ToUnicode(combo_.Text()));
  }

 private:
  QComboBox* Own() { return static_cast<QComboBox*>(Widget()); }
  ComboBox& combo_;
};

class ListBoxPeer : public WidgetPeer {
 public:
  ListBoxPeer(ListBox& list, QWidget* parent)
      : WidgetPeer(list, new QListWidget(parent)), list_(list) {
    connect(Own(), &QListWidget::itemSelectionChanged, this, [this] {
      if (!Mirroring() && !Own()->selectedItems().isEmpty()) list_.UserPick(Own()->currentRow());
    });
    connect(Own(), &QListWidget::itemDoubleClicked, this, [this] { list_.UserDblClick(); });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Items) {
      Own()->clear();
      for (const std::string& row : list_.List.All()) Own()->addItem(ToCaption(row));
    }
    if (prop == Prop::Items || prop == Prop::ListIndex) Own()->setCurrentRow(list_.ListIndex());
  }

 private:
  QListWidget* Own() { return static_cast<QListWidget*>(Widget()); }
  ListBox& list_;
};

// Reads the control itself: a row costs nothing until it is painted.
class RowsModel : public QAbstractListModel {
 public:
  RowsModel(ListView& list, QObject* parent) : QAbstractListModel(parent), list_(list) {}
  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count_; }
  QVariant data(const QModelIndex& index, int role) const override {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= list_.Items().size()) return {};
    const ListView::Item& item = list_.Items()[row];
    if (role == Qt::DisplayRole) return ToCaption(item.text);
    if (role == Qt::DecorationRole) return PictureIcon(item.icon);
    return {};
  }
  void Refresh() {
    beginResetModel();
    count_ = static_cast<int>(list_.Items().size());
    endResetModel();
  }

 private:
  ListView& list_;
  int count_ = 0;
};

class ListViewPeer : public WidgetPeer {
 public:
  ListViewPeer(ListView& list, QWidget* parent)
      : WidgetPeer(list, new QListView(parent)), list_(list), model_(list, this) {
    Own()->setModel(&model_);
    Own()->setUniformItemSizes(true);
    Own()->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(Own()->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
      const QModelIndexList rows = Own()->selectionModel()->selectedIndexes();
      if (!Mirroring() && !rows.isEmpty()) list_.UserPick(rows.first().row() + 1);
    });
    connect(Own(), &QListView::doubleClicked, this, [this] { list_.UserDblClick(); });
    refresh_.setSingleShot(true);
    connect(&refresh_, &QTimer::timeout, this, [this] { Refresh(); });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Items && !refresh_.isActive()) refresh_.start(0);
    if (prop == Prop::ListIndex && !refresh_.isActive()) ShowSelection();
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && list_.SelectedIndex() < 0 && !list_.Items().empty()) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Down || key == Qt::Key_Up) {
        list_.UserPick(key == Qt::Key_Down ? 1 : static_cast<int>(list_.Items().size()));
        return true;
      }
    }
    return WidgetPeer::eventFilter(watched, event);
  }

 private:
  QListView* Own() { return static_cast<QListView*>(Widget()); }
  void Refresh() {
    const Mirror mirror(*this);
    model_.Refresh();
    ShowSelection();
  }
  void ShowSelection() {
    const int row = list_.SelectedIndex() - 1;
    if (row < 0) {
      Own()->clearSelection();
    } else {
      Own()->setCurrentIndex(model_.index(row));
    }
  }
  ListView& list_;
  RowsModel model_;
  QTimer refresh_;
};

class ButtonPeer : public WidgetPeer {
 public:
  ButtonPeer(Button& button, QWidget* parent)
      : WidgetPeer(button, new QPushButton(parent)), button_(button) {
    Own()->setAutoDefault(false);
    if (!button.FocusOnClick) Own()->setFocusPolicy(Qt::NoFocus);
    connect(Own(), &QPushButton::clicked, this, [this] { button_.UserClick(); });
    UpdateAll();
    Own()->setDefault(button.Default());
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Caption) Own()->setText(ToCaption(button_.Caption()));
    if (prop == Prop::Picture) Own()->setIcon(PictureIcon(button_.Picture()));
    if (prop == Prop::Default) Own()->setDefault(button_.Default());
  }

 private:
  QPushButton* Own() { return static_cast<QPushButton*>(Widget()); }
  Button& button_;
};

class CheckPeer : public WidgetPeer {
 public:
  CheckPeer(CheckBox& box, QWidget* parent) : WidgetPeer(box, new QCheckBox(parent)), box_(box) {
    connect(Own(), &QCheckBox::clicked, this, [this](bool value) { box_.UserToggle(value); });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Caption) Own()->setText(ToCaption(box_.Caption()));
    if (prop == Prop::Value) Own()->setChecked(box_.Value());
  }

 private:
  QCheckBox* Own() { return static_cast<QCheckBox*>(Widget()); }
  CheckBox& box_;
};

class OptionPeer : public WidgetPeer {
 public:
  OptionPeer(OptionButton& option, QWidget* parent)
      : WidgetPeer(option, new QRadioButton(parent)), option_(option) {
    Own()->setAutoExclusive(false);  // the core knows the groups
    connect(Own(), &QRadioButton::clicked, this, [this] {
      option_.UserClick();
      Update(Prop::Value);
    });
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Caption) Own()->setText(ToCaption(option_.Caption()));
    if (prop == Prop::Value) Own()->setChecked(option_.Value());
  }

 private:
  QRadioButton* Own() { return static_cast<QRadioButton*>(Widget()); }
  OptionButton& option_;
};

class FramePeer : public WidgetPeer {
 public:
  FramePeer(Control& frame, QWidget* parent) : WidgetPeer(frame, new QGroupBox(parent)) {
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop == Prop::Caption) {
      static_cast<QGroupBox*>(Widget())->setTitle(ToCaption(control().Caption()));
    }
  }
};

// Panels and elastic containers: they hold, and show nothing themselves.
class HolderPeer : public WidgetPeer {
 public:
  HolderPeer(Control& holder, QWidget* parent) : WidgetPeer(holder, new QWidget(parent)) {
    UpdateAll();
  }
  void Apply(Prop) override {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress) control().UserClick();
    return WidgetPeer::eventFilter(watched, event);
  }
};

class PicturePeer : public WidgetPeer {
 public:
  PicturePeer(PictureBox& box, QWidget* parent) : WidgetPeer(box, new QLabel(parent)), box_(box) {
    UpdateAll();
  }
  void Apply(Prop prop) override {
    if (prop != Prop::Picture) return;
    auto* label = static_cast<QLabel*>(Widget());
    label->setPixmap(PictureIcon(box_.Picture()).pixmap(QSize(64, 64), label->devicePixelRatio()));
  }

 private:
  PictureBox& box_;
};

class TabPeer : public WidgetPeer {
 public:
  TabPeer(TabStrip& strip, QWidget* parent)
      : WidgetPeer(strip, new QTabWidget(parent)), strip_(strip) {
    Own()->setUsesScrollButtons(true);
    Own()->setFocusProxy(Own()->tabBar());
    Own()->tabBar()->installEventFilter(this);
    connect(Own(), &QTabWidget::currentChanged, this, [this](int page) {
      if (!Mirroring()) strip_.UserTab(page);
    });
    UpdateAll();
    TellHeight();
  }
  QWidget* Inside(const Control& child) override {
    while (Own()->count() <= child.Page()) Own()->addTab(new QWidget, QString());
    return Own()->widget(child.Page());
  }
  int InsideTop() const override { return strip_.TabHeight(); }
  void Apply(Prop prop) override {
    if (prop == Prop::Tabs) {
      while (Own()->count() < strip_.Tabs()) Own()->addTab(new QWidget, QString());
      for (int page = 0; page < strip_.Tabs(); ++page) {
        Own()->setTabText(page, Literal(strip_.TabCaption(page)));
        Own()->setTabVisible(page, strip_.TabVisible(page));
      }
    }
    if (prop == Prop::Tab || prop == Prop::Tabs) Own()->setCurrentIndex(strip_.Tab());
    if (prop == Prop::Font) TellHeight();
  }

 private:
  QTabWidget* Own() const { return static_cast<QTabWidget*>(Widget()); }
  void TellHeight() { strip_.TabHeight.Adopt(ToTwips(Own()->tabBar()->sizeHint().height())); }
  TabStrip& strip_;
};

class TerminalPeer : public WidgetPeer {
 public:
  TerminalPeer(Terminal& terminal, QWidget* parent)
      : WidgetPeer(terminal, new TerminalWidget(terminal, parent)) {
    UpdateAll();
  }
  void Apply(Prop prop) override { static_cast<TerminalWidget*>(Widget())->TakeChange(prop); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::ShortcutOverride) {
      event->accept();  // Tab, Escape and Ctrl keys are the host's
      return false;
    }
    return WidgetPeer::eventFilter(watched, event);
  }
};

QWidget* ParentWidget(Control& control, QWidget* windowInside) {
  Control* outer = control.parent().AsControl();
  if (!outer || !outer->peer()) return windowInside;
  return static_cast<WidgetPeer*>(outer->peer())->Inside(control);
}

}  // namespace

std::unique_ptr<ControlPeer> MakeControlPeer(Control& control, QWidget* windowInside) {
  QWidget* parent = ParentWidget(control, windowInside);
  switch (control.kind()) {
    case ControlKind::Label:
      return std::make_unique<LabelPeer>(static_cast<Label&>(control), parent);
    case ControlKind::TextBox: {
      auto& box = static_cast<TextBox&>(control);
      if (box.MultiLine) return std::make_unique<PagePeer>(box, parent);
      return std::make_unique<LinePeer>(box, parent);
    }
    case ControlKind::ComboBox:
      return std::make_unique<ComboPeer>(static_cast<ComboBox&>(control), parent);
    case ControlKind::ListBox:
      return std::make_unique<ListBoxPeer>(static_cast<ListBox&>(control), parent);
    case ControlKind::ListView:
      return std::make_unique<ListViewPeer>(static_cast<ListView&>(control), parent);
    case ControlKind::Button:
      return std::make_unique<ButtonPeer>(static_cast<Button&>(control), parent);
    case ControlKind::CheckBox:
      return std::make_unique<CheckPeer>(static_cast<CheckBox&>(control), parent);
    case ControlKind::OptionButton:
      return std::make_unique<OptionPeer>(static_cast<OptionButton&>(control), parent);
    case ControlKind::Frame:
      return std::make_unique<FramePeer>(control, parent);
    case ControlKind::Panel:
    case ControlKind::Elastic:
      return std::make_unique<HolderPeer>(control, parent);
    case ControlKind::PictureBox:
      return std::make_unique<PicturePeer>(static_cast<PictureBox&>(control), parent);
    case ControlKind::TabStrip:
      return std::make_unique<TabPeer>(static_cast<TabStrip&>(control), parent);
    case ControlKind::Terminal:
      return std::make_unique<TerminalPeer>(static_cast<Terminal&>(control), parent);
  }
  return nullptr;
}

}  // namespace quorvel

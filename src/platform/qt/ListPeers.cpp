// The peers of combo boxes, list boxes and list views. Their rows are read from the control when
// they are shown: adding many costs nothing but a flag.

#include <QAbstractListModel>
#include <QComboBox>
#include <QFrame>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QStyledItemDelegate>
#include <QTimer>

#include "platform/controls/Lists.h"
#include "platform/qt/ControlPeers.h"
#include "platform/qt/GridBoxes.h"
#include "platform/qt/LineLimit.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {
namespace {

// The rows of a control as the toolkit reads them.
class RowsModel : public QAbstractListModel {
 public:
  struct Row {
    QString text;
    QIcon icon;
  };
  RowsModel(std::function<std::size_t()> count, std::function<Row(std::size_t)> row)
      : count_(std::move(count)), row_(std::move(row)) {}

  // The control goes; the view may live a little longer, with nothing to show.
  void Forget() {
    count_ = [] { return std::size_t{0}; };
    Refresh();
  }

  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : known_; }
  QVariant data(const QModelIndex& index, int role) const override {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= count_()) return {};  // taken away since the last refresh
    if (role == Qt::DisplayRole || role == Qt::EditRole) return row_(row).text;
    if (role == Qt::DecorationRole) return row_(row).icon;
    return {};
  }
  void Refresh() {
    beginResetModel();
    known_ = static_cast<int>(count_());
    endResetModel();
  }

 private:
  std::function<std::size_t()> count_;
  std::function<Row(std::size_t)> row_;
  int known_ = 0;
};

// What lists have in common: rows that are refreshed late, once for many changes, but ahead of
// anything that the user sees or does.
class ListPeer : public WidgetPeer {
 public:
  ListPeer(Control& control, QWidget* widget, std::unique_ptr<RowsModel> model)
      : WidgetPeer(control, widget), model_(model.release()) {
    model_->setParent(widget);
    refresh_.setSingleShot(true);
    connect(&refresh_, &QTimer::timeout, this, [this] { RefreshNow(); });
  }
  ~ListPeer() override {
    if (!model_) return;
    const Mirror mirror(*this);
    model_->Forget();
  }
  ListPeer(const ListPeer&) = delete;
  ListPeer& operator=(const ListPeer&) = delete;

 protected:
  RowsModel& model() { return *model_; }
  void RowsChanged() {
    due_ = true;
    refresh_.start(0);
  }
  bool RefreshIsDue() const { return due_; }
  void RefreshNow() {
    if (!due_ || !model_) return;
    due_ = false;
    const Mirror mirror(*this);
    model_->Refresh();
    ShowState();
  }
  // Shows selection and text; called with the rows up to date.
  virtual void ShowState() = 0;

  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Paint:
      case QEvent::KeyPress:
      case QEvent::MouseButtonPress:
        RefreshNow();
        break;
      default:
        break;
    }
    return WidgetPeer::eventFilter(watched, event);
  }

 private:
  const QPointer<RowsModel> model_;
  QTimer refresh_;
  bool due_ = false;
};

std::unique_ptr<RowsModel> ModelOf(const ListRows& rows) {
  return std::make_unique<RowsModel>([&rows] { return rows.All().size(); },
                                     [&rows](std::size_t row) {
                                       return RowsModel::Row{ToCaption(rows.All()[row]), QIcon()};
                                     });
}

class ComboPeer : public ListPeer {
 public:
  ComboPeer(ComboBox& combo, QWidget* parent)
      : ListPeer(combo, new GridComboBox(parent), ModelOf(combo.List)), combo_(combo) {
    constexpr int kNarrowest = 12;  // characters; measuring all rows would cost too much
    Own()->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Own()->setMinimumContentsLength(kNarrowest);
    Own()->setInsertPolicy(QComboBox::NoInsert);
    Own()->setEditable(combo.style == ComboBox::Style::DropDown);
    Own()->setModel(&model());
    if (auto* view = qobject_cast<QListView*>(Own()->view())) view->setUniformItemSizes(true);
    if (QLineEdit* line = Own()->lineEdit()) {
      Own()->setCompleter(nullptr);
      connect(line, &QLineEdit::textEdited, this, [this](const QString& text) { Edit(text); });
    }
    connect(Own(), &QComboBox::activated, this, [this](int index) {
      const QPointer<ComboPeer> self(this);
      combo_.UserPick(index);
      if (self) self->Update(Prop::ListIndex);
    });
    UpdateAll();
  }
  ~ComboPeer() override {
    QLineEdit* line = Widget() ? Own()->lineEdit() : nullptr;
    if (line) line->disconnect(this);
    if (Widget()) Own()->disconnect(this);
  }
  ComboPeer(const ComboPeer&) = delete;
  ComboPeer& operator=(const ComboPeer&) = delete;
  void Apply(Prop prop) override {
    switch (prop) {
      case Prop::Items:
        return RowsChanged();
      case Prop::Look:
        return static_cast<GridComboBox*>(Widget())->SetLook(combo_.Look());
      case Prop::Text:
      case Prop::ListIndex:
      case Prop::MaxLength:
        if (!RefreshIsDue()) ShowState();
        return;
      default:
        return;
    }
  }

 protected:
  void ShowState() override {
    Own()->setCurrentIndex(combo_.ListIndex());
    QLineEdit* line = Own()->lineEdit();
    if (!line) return;
    LimitLine(*line, combo_.MaxLength(), combo_.Text());
    const QString text = ToUnicode(combo_.Text());
    if (line->text() == text) return;
    const int cursor = line->cursorPosition();
    line->setText(text);
    if (editing_) line->setCursorPosition(std::min(cursor, static_cast<int>(text.size())));
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    // The wheel turns pages; it changes a choice only where the keyboard is.
    if (event->type() == QEvent::Wheel && !Own()->hasFocus()) {
      event->ignore();
      return true;
    }
    return ListPeer::eventFilter(watched, event);
  }

 private:
  QComboBox* Own() { return static_cast<QComboBox*>(Widget()); }
  void Edit(const QString& text) {
    const QPointer<ComboPeer> self(this);
    editing_ = true;
    combo_.UserEdit(ToBytes(text));
    if (!self) return;  // the change has closed the window
    editing_ = false;
    const Mirror mirror(*this);
    ShowState();
  }

  ComboBox& combo_;
  bool editing_ = false;
};

// The toolkit sets rows without a picture as close as lines of text; these are to be told apart,
// hit and dragged.
class SpacedRows : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    constexpr int kSpace = 4;  // pixels
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kSpace);
  }
};

// One row is selected, and stays so until another is: a row that looked taken back would still be
// the one that OK runs.
class RowsView : public QListView {
 public:
  using QListView::QListView;

 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override {
    const auto command = QListView::selectionCommand(index, event);
    const bool takesBack = command & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle);
    return takesBack ? QItemSelectionModel::NoUpdate : command;
  }
};

// List boxes and list views; rows count from 0 here, -1 is none.
class RowsPeer : public ListPeer {
 public:
  struct Doings {
    std::function<int()> selected;
    std::function<void(int row)> pick;
  };
  RowsPeer(Control& control, QWidget* parent, std::unique_ptr<RowsModel> model, Doings doings)
      : ListPeer(control, new RowsView(parent), std::move(model)), doings_(std::move(doings)) {
    Own()->setModel(&this->model());
    Own()->setUniformItemSizes(true);
    Own()->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(Own()->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
      const QModelIndexList rows = Own()->selectionModel()->selectedIndexes();
      if (!Mirroring() && !rows.isEmpty()) PickBehindPress(rows.first().row());
    });
    landing_ = new QFrame(Own()->viewport());
    landing_->setFrameStyle(QFrame::HLine | QFrame::Plain);
    landing_->setLineWidth(kLandingLine);
    landing_->setForegroundRole(QPalette::Text);
    landing_->setAttribute(Qt::WA_TransparentForMouseEvents);
    landing_->hide();
    connect(Own(), &QListView::doubleClicked, this,
            [this] { BehindPress([this] { this->control().UserDblClick(); }); });
    UpdateAll();
  }
  ~RowsPeer() override {
    if (!Widget()) return;
    Own()->selectionModel()->disconnect(this);
    Own()->disconnect(this);
  }
  RowsPeer(const RowsPeer&) = delete;
  RowsPeer& operator=(const RowsPeer&) = delete;
  void Apply(Prop prop) override {
    if (prop == Prop::Items) RowsChanged();
    if (prop == Prop::ListIndex && !RefreshIsDue()) ShowState();
  }

 protected:
  void ShowState() override {
    const int row = doings_.selected();
    if (row < 0) {
      Own()->selectionModel()->clear();
    } else {
      Own()->setCurrentIndex(model().index(row));
    }
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == Own()->viewport() && MovesRows()) {
      const QPointer<RowsPeer> self(this);
      FollowDrag(*event);
      if (!self) return true;
    }
    // With the keyboard the toolkit makes the first row its current one, and draws it much like a
    // selected one.
    if (event->type() == QEvent::FocusIn) {
      QTimer::singleShot(0, this, [this] {
        const Mirror mirror(*this);
        if (Widget() && doings_.selected() < 0) Own()->selectionModel()->clearCurrentIndex();
      });
    }
    if (event->type() == QEvent::KeyPress) {
      RefreshNow();
      const int key = static_cast<QKeyEvent*>(event)->key();
      const int rows = model().rowCount({});
      // The toolkit would count from its invisible current row when none is selected.
      if (doings_.selected() < 0 && rows > 0 && (key == Qt::Key_Down || key == Qt::Key_Up)) {
        Own()->setCurrentIndex(model().index(key == Qt::Key_Down ? 0 : rows - 1));
        return true;
      }
    }
    return ListPeer::eventFilter(watched, event);
  }

 private:
  static constexpr int kLandingLine = 3;  // pixels

  QListView* Own() { return static_cast<QListView*>(Widget()); }
  bool MovesRows() const {
    const Control& list = control();
    return list.kind() == ControlKind::ListBox && static_cast<const ListBox&>(list).RowsMove;
  }
  // The press selects its row ahead of the toolkit, so that MouseDown finds it selected. Handlers
  // may close the window: nothing of this object is used behind them.
  void FollowDrag(const QEvent& event) {
    const auto left = [&event] {
      return static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
    };
    if (event.type() == QEvent::MouseMove && pressed_ >= 0) {
      ShowLanding(RowAt(event));
    } else if (event.type() == QEvent::MouseButtonPress && left()) {
      const QPointer<RowsPeer> self(this);
      RefreshNow();
      const int row = RowAt(event);
      if (row < 0) return;
      Own()->setCurrentIndex(model().index(row));
      if (!self) return;
      pressed_ = row;
      BehindPress([this] { control().UserMouseDown(MouseButton::Left); });
    } else if (event.type() == QEvent::MouseButtonRelease && left() && pressed_ >= 0) {
      pressed_ = -1;
      landing_->hide();
      control().UserMouseUp(MouseButton::Left);
    }
  }
  // What the selection causes comes behind the press; the rows may have changed by then.
  void PickBehindPress(int row) {
    BehindPress([this, row] {
      const bool stays = Widget() && Own()->selectionModel()->isRowSelected(row, {});
      if (stays) doings_.pick(row);
    });
  }
  int RowAt(const QEvent& event) {
    return Own()->indexAt(static_cast<const QMouseEvent&>(event).position().toPoint()).row();
  }
  // A row that moves down lands below the one under the pointer, one that moves up above it.
  void ShowLanding(int row) {
    landing_->setVisible(row >= 0 && row != pressed_);
    if (row < 0) return;
    const QRect place = Own()->visualRect(model().index(row));
    const int edge = row > pressed_ ? place.bottom() + 1 : place.top();
    landing_->setGeometry(0, std::max(0, edge - kLandingLine / 2), Own()->viewport()->width(),
                          kLandingLine);
    landing_->raise();
  }

  Doings doings_;
  QFrame* landing_ = nullptr;  // where the dragged row would land
  int pressed_ = -1;           // row under the button that is down
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeComboBox(ComboBox& combo, QWidget* parent) {
  return std::make_unique<ComboPeer>(combo, parent);
}

std::unique_ptr<WidgetPeer> MakeListBox(ListBox& list, QWidget* parent) {
  auto peer =
      std::make_unique<RowsPeer>(list, parent, ModelOf(list.List),
                                 RowsPeer::Doings{[&list] { return list.ListIndex(); },
                                                  [&list](int row) { list.UserPick(row); }});
  auto* view = static_cast<QListView*>(peer->Widget());
  view->setItemDelegate(new SpacedRows(view));
  return peer;
}

std::unique_ptr<WidgetPeer> MakeListView(ListView& list, QWidget* parent) {
  auto model = std::make_unique<RowsModel>(
      [&list] { return list.Items().size(); },
      [&list](std::size_t row) {
        const ListView::Item& item = list.Items()[row];
        return RowsModel::Row{ToCaption(item.text), PictureIcon(item.icon)};
      });
  auto peer =
      std::make_unique<RowsPeer>(list, parent, std::move(model),
                                 RowsPeer::Doings{[&list] { return list.SelectedIndex() - 1; },
                                                  [&list](int row) { list.UserPick(row + 1); }});
  // One column without a heading: what does not fit ends in dots.
  static_cast<QListView*>(peer->Widget())->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  return peer;
}

}  // namespace quorvel

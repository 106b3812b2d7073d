// The peer of a tab strip. The controls on its pages lie on one holder, so that their places count
// from the corner of the strip; those of other pages are hidden.

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QStackedWidget>
#include <QStyleOptionTabWidgetFrame>
#include <QTabBar>

#include "platform/controls/TabStrip.h"
#include "platform/qt/ControlPeers.h"
#include "platform/qt/Looks.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {
namespace {

class TabRow : public QTabBar {
 public:
  using QTabBar::QTabBar;
  void SetWidest(int pixels) {
    if (widest_ == pixels) return;
    widest_ = pixels;
    updateGeometry();
  }

 protected:
  QSize tabSizeHint(int index) const override {
    QSize size = QTabBar::tabSizeHint(index);
    if (widest_ > 0) size.setWidth(std::min(size.width(), widest_));
    return size;
  }

 private:
  int widest_ = 0;  // 0: as wide as its caption
};

class TabHolder : public QWidget {
 public:
  explicit TabHolder(QWidget* parent) : QWidget(parent), row(new TabRow(this)) {
    row->setUsesScrollButtons(true);
    row->setElideMode(Qt::ElideRight);
    row->setExpanding(false);
    setFocusProxy(row);
    setFocusPolicy(Qt::StrongFocus);
  }
  void PlaceRow() { row->setGeometry(0, 0, width(), row->sizeHint().height()); }

  TabRow* const row;

 protected:
  void resizeEvent(QResizeEvent*) override { PlaceRow(); }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    QStyleOptionTabWidgetFrame frame;
    frame.initFrom(this);
    const int overlap = style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, this);
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    frame.rect = rect().adjusted(0, row->height() - overlap, 0, 0);
    frame.shape = QTabBar::RoundedNorth;
    frame.tabBarSize = row->sizeHint();
    if (row->currentIndex() >= 0) frame.selectedTabRect = row->tabRect(row->currentIndex());
    frame.tabBarRect = row->geometry();
    style()->drawPrimitive(QStyle::PE_FrameTabWidget, &frame, &painter, this);
  }
};

class TabPeer : public WidgetPeer {
 public:
  TabPeer(TabStrip& strip, QWidget* parent)
      : WidgetPeer(strip, new TabHolder(parent)), strip_(strip) {
    Row().installEventFilter(this);
    connect(&Row(), &QTabBar::currentChanged, this, [this](int page) {
      if (!Mirroring()) BehindPress([this, page] { strip_.UserTab(page); });
    });
    UpdateAll();
  }
  ~TabPeer() override {
    if (Widget()) Row().disconnect(this);
  }
  TabPeer(const TabPeer&) = delete;
  TabPeer& operator=(const TabPeer&) = delete;
  void Apply(Prop prop) override {
    if (prop == Prop::Tabs) {
      ShowTabs();
    } else if (prop == Prop::Tab) {
      Row().setCurrentIndex(strip_.Tab());
      if (auto* pages =
              Widget()->findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        pages->setCurrentIndex(strip_.Tab());
      }
      for (Control* child : strip_.Children()) {
        if (child->peer()) child->peer()->Update(Prop::Page);
      }
      Widget()->update();
    } else if (prop == Prop::Font) {
      Row().SetWidest(WidestTab());
      TellHeight();
    }
  }

 private:
  TabHolder* Own() const { return static_cast<TabHolder*>(Widget()); }
  TabRow& Row() const { return *Own()->row; }

  void ShowTabs() {
    while (Row().count() > strip_.Tabs()) Row().removeTab(Row().count() - 1);
    while (Row().count() < strip_.Tabs()) Row().addTab(QString());
    Row().SetWidest(WidestTab());
    for (int page = 0; page < strip_.Tabs(); ++page) {
      const QString caption = ToMnemonic(strip_.TabCaption(page));
      if (Row().tabText(page) != caption) Row().setTabText(page, caption);
      if (Row().isTabVisible(page) != strip_.TabVisible(page)) {
        Row().setTabVisible(page, strip_.TabVisible(page));
      }
    }
    Row().setCurrentIndex(strip_.Tab());
    TellHeight();
  }
  // Pixels. The limit is meant for captions of the usual size: it grows with them.
  int WidestTab() const {
    const double scale = static_cast<double>(Row().fontMetrics().height()) /
                         QFontMetrics(QApplication::font()).height();
    return static_cast<int>(ToPixels(strip_.TabMaxWidth()) * std::max(1.0, scale));
  }
  // A strip whose captions are all empty still has a row.
  void TellHeight() {
    Own()->PlaceRow();
    strip_.TabHeight.Adopt(ToTwips(Row().sizeHint().height()));
    Widget()->update();
  }

  TabStrip& strip_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeTabStrip(TabStrip& strip, QWidget* parent) {
  return std::make_unique<TabPeer>(strip, parent);
}

}  // namespace quorvel

#include "app/sim/qt/QtHands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QTabBar>
#include <QThread>
#include <QToolButton>
#include <utility>

#include "app/sim/qt/Boxes.h"
#include "app/sim/qt/Menus.h"
#include "platform/qt/Looks.h"
#include "platform/qt/WindowPeer.h"

namespace quorvel::sim {
namespace {

constexpr int kArrow = 8;       // pixels from a combo box's right edge to the middle of its arrow
constexpr int kListOpens = 10;  // ms of real time until its list takes clicks, by then
constexpr int kMostPicks = 3;

std::optional<Spot> SpotOnRow(QAbstractItemView& view, const QModelIndex& index) {
  if (!index.isValid()) return std::nullopt;
  view.scrollTo(index);
  const QRect place = view.visualRect(index) & view.viewport()->rect();
  if (place.isEmpty()) return std::nullopt;
  return SpotOn(view.viewport(), place.center());
}

// In a list on this row, or if there is none, on the one that is chosen: what else there is belongs
// to nobody's plan.
std::optional<Spot> SpotOnMeant(const MeantControl& meant, std::optional<int> row) {
  QWidget* const widget = meant.Widget();
  if (!widget) return std::nullopt;
  auto* view = qobject_cast<QAbstractItemView*>(widget);
  if (!view || view->model()->rowCount() == 0) return SpotOn(meant.control());
  return SpotOnRow(*view, row ? view->model()->index(*row, 0) : view->currentIndex());
}

std::optional<Spot> SpotInOpenList(const MeantControl& combo, int row) {
  const auto* box = qobject_cast<QComboBox*>(combo.Widget());
  if (!box || !box->view()->isVisible()) return std::nullopt;
  return SpotOnRow(*box->view(), box->model()->index(row, 0));
}

QTabBar* TabsOf(const MeantControl& strip) {
  const QWidget* widget = strip.Widget();
  return widget ? widget->findChild<QTabBar*>() : nullptr;
}

// The arrow that brings a tab into view; nothing when it can be clicked already.
std::optional<Spot> SpotOnArrowTo(QTabBar* tabs, int page) {
  if (!tabs || SpotOn(tabs, tabs->tabRect(page).center())) return std::nullopt;
  const bool left = tabs->tabRect(page).center().x() < tabs->width() / 2;
  auto* arrow =
      tabs->findChild<QToolButton*>(QLatin1String(left ? "ScrollLeftButton" : "ScrollRightButton"));
  if (!arrow || !arrow->isEnabled()) return std::nullopt;
  return SpotOn(arrow, arrow->rect().center());
}

// A window that something modal is above hears nothing from the window system.
bool IsCovered(const QWidget& top) {
  const QWidget* modal = QApplication::activeModalWidget();
  return modal && modal != &top;
}

void CloseByFrame(Window& window) {
  QWidget* const widget = WidgetOf(window);
  // Children have no frame; nothing that the user could do closes them.
  if (!widget || !widget->isWindow() || !widget->isVisible() || IsCovered(*widget)) return;
  QCloseEvent event;
  QCoreApplication::sendEvent(widget->windowHandle(), &event);
}

void TurnByFrame(Window& window) {
  const QPointer<QWidget> widget = WidgetOf(window);
  if (!widget || !window.IsVisible() || IsCovered(*widget->window())) return;
  widget->window()->activateWindow();
  // A child that others cover can't be clicked; entries of menus lead to it, which do no more.
  if (window.kind() == Window::Kind::Child) window.UserActivate();
}

void ResizeByFrame(const Window& window, int width, int height) {
  QWidget* const widget = WidgetOf(window);
  if (widget && widget->isWindow()) widget->resize(ToPixels(width), ToPixels(height));
}

}  // namespace

Mouse::Where QtHands::On(Control& control) {
  const bool picked = std::exchange(pickedIn_, nullptr) == &control;
  const auto row = picked ? std::optional(picked_) : std::nullopt;
  return [meant = MeantControl(control), row] { return SpotOnMeant(meant, row); };
}

void QtHands::Click(Control& control) {
  mouse_.Click(On(control));
}

void QtHands::DoubleClick(Control& control) {
  mouse_.DoubleClick(On(control));
}

void QtHands::RightClick(Control& control) {
  mouse_.Click(On(control), Qt::RightButton);
}

void QtHands::ChooseMenu(MenuItem& entry) {
  ChooseFromBar(door_, mouse_, keys_, entry);
}

void QtHands::CloseBox(Window& window) {
  door_.Add([meant = MeantWindow(window)] {
    if (const auto alive = meant.Get()) CloseByFrame(*alive);
  });
}

void QtHands::TurnTo(Window& window) {
  door_.Add([meant = MeantWindow(window)] {
    if (const auto alive = meant.Get()) TurnByFrame(*alive);
  });
}

void QtHands::Resize(Window& window, int width, int height) {
  door_.Add([meant = MeantWindow(window), width, height] {
    if (const auto alive = meant.Get()) ResizeByFrame(*alive, width, height);
  });
}

void QtHands::PickRow(Control& list, int row) {
  if (list.kind() == ControlKind::ComboBox) return PickInCombo(list, row);
  pickedIn_ = &list;
  picked_ = row;
  mouse_.Click([meant = MeantControl(list), row]() -> std::optional<Spot> {
    auto* view = qobject_cast<QAbstractItemView*>(meant.Widget());
    return view ? SpotOnRow(*view, view->model()->index(row, 0)) : std::nullopt;
  });
}

void QtHands::PickInCombo(Control& combo, int row) {
  const MeantControl meant(combo);
  mouse_.Click([meant]() -> std::optional<Spot> {
    const auto* box = qobject_cast<QComboBox*>(meant.Widget());
    if (!box || box->view()->isVisible()) return std::nullopt;
    return SpotOn(meant.Widget(), QPoint(box->width() - kArrow, box->height() / 2));
  });
  for (int i = 0; i < kMostPicks; ++i) {
    door_.Add([meant, row] {
      if (SpotInOpenList(meant, row)) QThread::msleep(kListOpens);
    });
    mouse_.Click([meant, row] { return SpotInOpenList(meant, row); });
  }
}

void QtHands::TurnToPage(TabStrip& strip, int page) {
  const MeantControl meant(strip);
  for (int i = 0; i < strip.Tabs(); ++i) {
    mouse_.Click([meant, page] { return SpotOnArrowTo(TabsOf(meant), page); });
  }
  mouse_.Click([meant, page]() -> std::optional<Spot> {
    QTabBar* const tabs = TabsOf(meant);
    if (!tabs || !tabs->isTabVisible(page)) return std::nullopt;
    return SpotOn(tabs, tabs->tabRect(page).center());
  });
}

std::optional<OpenBox> QtHands::BoxInFront() {
  return ShownBox();
}

void QtHands::AnswerBox(const BoxReply& reply) {
  AnswerShownBox(mouse_, keys_, reply);
}

}  // namespace quorvel::sim

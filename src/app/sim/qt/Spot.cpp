#include "app/sim/qt/Spot.h"

#include <QWidget>
#include <algorithm>

#include "platform/qt/WidgetPeer.h"

namespace quorvel::sim {
namespace {

constexpr int kMark = 8;  // pixels from the edge of a check box or an option to its mark
constexpr int kEdge = 3;  // pixels from an edge that still belong to what is inside

bool HasMark(const Control& control) {
  return control.kind() == ControlKind::CheckBox || control.kind() == ControlKind::OptionButton;
}

}  // namespace

std::optional<Spot> SpotOn(QWidget* widget, QPoint at) {
  if (!widget || !widget->isVisible()) return std::nullopt;
  QWidget* const top = widget->window();
  const QPoint place = widget->mapTo(top, at);
  if (!top->windowHandle() || !top->rect().contains(place)) return std::nullopt;
  QWidget* const hit = top->childAt(place) ? top->childAt(place) : top;
  if (hit != widget && !widget->isAncestorOf(hit)) return std::nullopt;
  return Spot{top->windowHandle(), place};
}

std::optional<Spot> SpotOn(Control& control) {
  QWidget* const widget = WidgetOf(control);
  if (!widget) return std::nullopt;
  const QRect inside = widget->rect().adjusted(kEdge, kEdge, -kEdge, -kEdge);
  const QPoint first =
      HasMark(control) ? QPoint(kMark, inside.center().y()) : widget->rect().center();
  for (const QPoint at :
       {first, inside.topLeft(), inside.topRight(), inside.bottomLeft(), inside.bottomRight()}) {
    const auto spot = SpotOn(widget, at);
    if (!spot) continue;
    QWidget* const top = widget->window();
    const WidgetPeer* peer = WidgetPeer::Around(top->childAt(spot->at));
    if (peer && &peer->control() == &control) return spot;
  }
  return std::nullopt;
}

QWidget* MeantControl::Widget() const {
  const auto window = window_.lock();
  if (!window || !window->IsLoaded()) return nullptr;
  const auto& all = window->Controls();
  return std::find(all.begin(), all.end(), control_) == all.end() ? nullptr : WidgetOf(*control_);
}

std::shared_ptr<Window> MeantWindow::Get() const {
  const auto window = window_.lock();
  return window && window->IsLoaded() ? window : nullptr;
}

}  // namespace quorvel::sim

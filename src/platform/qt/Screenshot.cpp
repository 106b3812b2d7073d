#include "platform/qt/Screenshot.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>
#include <algorithm>

namespace quorvel {
namespace {

constexpr int kTitleHeight = 24;  // pixels
constexpr QRgb kFrame = 0xff455a64;
constexpr QRgb kDesk = 0xffb0bec5;

bool IsMenu(const QWidget& window) {
  return window.windowType() == Qt::Popup || window.windowType() == Qt::ToolTip;
}

// Modal dialogs above others, the last of them above the rest, menus above everything.
int Height(const QWidget& window) {
  if (IsMenu(window)) return 4;
  if (&window == QApplication::activeModalWidget()) return 3;
  return window.isModal() ? 2 : 1;
}

void DrawFrame(QPainter& painter, const QRect& place, const QString& title) {
  const QRect bar(place.left() - 1, place.top() - kTitleHeight, place.width() + 2, kTitleHeight);
  painter.fillRect(bar, QColor(kFrame));
  painter.setPen(Qt::white);
  painter.drawText(bar.adjusted(10, 0, -10, 0), Qt::AlignVCenter | Qt::AlignLeft, title);
  painter.setPen(QColor(kFrame));
  painter.drawRect(place.adjusted(-1, 0, 0, 0));
}

}  // namespace

QPixmap PictureOfAll(QWidget& shell) {
  const QPoint corner = shell.mapToGlobal(QPoint(0, 0));
  const auto placeOf = [&corner](const QWidget& window) {
    return QRect(window.mapToGlobal(QPoint(0, 0)) - corner, window.size());
  };
  QWidgetList above;
  QRect whole = shell.rect();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window == &shell || !window->isVisible() || window->size().isEmpty()) continue;
    above << window;
    whole |= placeOf(*window).adjusted(-1, -kTitleHeight, 1, 1);
  }
  std::stable_sort(above.begin(), above.end(),
                   [](const QWidget* a, const QWidget* b) { return Height(*a) < Height(*b); });
  const QPixmap first = shell.grab();
  const double ratio = first.devicePixelRatio();
  QPixmap picture(whole.size() * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(QColor(kDesk));
  QPainter painter(&picture);
  painter.translate(-whole.topLeft());
  painter.setFont(QApplication::font());
  painter.drawPixmap(QPoint(0, 0), first);
  for (QWidget* window : above) {
    const QRect place = placeOf(*window);
    painter.drawPixmap(place.topLeft(), window->grab());
    if (!IsMenu(*window)) DrawFrame(painter, place, window->windowTitle());
  }
  return picture;
}

}  // namespace quorvel

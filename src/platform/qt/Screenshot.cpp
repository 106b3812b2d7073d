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
  const QRect room = bar.adjusted(10, 0, -10, 0);
  const QString shown = painter.fontMetrics().elidedText(title, Qt::ElideMiddle, room.width());
  painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, shown);
  painter.setPen(QColor(kFrame));
  painter.drawRect(place.adjusted(-1, 0, 0, 0));
}

QRect WithFrame(const QRect& place) {
  return place.adjusted(-1, -kTitleHeight, 1, 1);
}

QString Geometry(const QRect& place, double ratio) {
  const QRect pixels(place.topLeft() * ratio, place.size() * ratio);
  return QStringLiteral("%1x%2+%3+%4")
      .arg(pixels.width())
      .arg(pixels.height())
      .arg(pixels.left())
      .arg(pixels.top());
}

}  // namespace

QImage PictureOfAll(QWidget& shell) {
  const QPoint corner = shell.mapToGlobal(QPoint(0, 0));
  const auto placeOf = [&corner](const QWidget& window) {
    return QRect(window.mapToGlobal(QPoint(0, 0)) - corner, window.size());
  };
  QWidgetList above;
  QRect whole = shell.rect();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window == &shell || !window->isVisible() || window->size().isEmpty()) continue;
    above << window;
    whole |= WithFrame(placeOf(*window));
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
  QRect front;
  for (QWidget* window : above) {
    const QRect place = placeOf(*window);
    painter.drawPixmap(place.topLeft(), window->grab());
    if (IsMenu(*window)) continue;
    DrawFrame(painter, place, window->windowTitle());
    front = WithFrame(place).translated(-whole.topLeft());
  }
  painter.end();
  QImage image = picture.toImage();
  if (!front.isNull()) image.setText(QStringLiteral("front"), Geometry(front, ratio));
  return image;
}

}  // namespace quorvel

#include "platform/qt/Pictures.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace quorvel {
namespace {

// All are drawn on a field of 16 by 16 units.
using Draw = void (*)(QPainter&);

const QColor kInk(0x37, 0x47, 0x4f);
const QColor kBlue(0x1e, 0x6f, 0xb8);
const QColor kPaper(0xff, 0xff, 0xff);
const QColor kFolder(0xe8, 0xb4, 0x4a);

void DrawReport(QPainter& p) {
  p.setPen(QPen(kInk, 1));
  p.setBrush(kPaper);
  p.drawPolygon(QPolygonF({{3.5, 1.5}, {9.5, 1.5}, {12.5, 4.5}, {12.5, 14.5}, {3.5, 14.5}}));
  p.setPen(QPen(kBlue, 1));
  for (const double y : {6.5, 8.5, 10.5, 12.5}) p.drawLine(QPointF(5.5, y), QPointF(10.5, y));
}

void DrawMenu(QPainter& p) {
  p.setPen(QPen(QColor(0x9a, 0x72, 0x1e), 1));
  p.setBrush(kFolder);
  p.drawPolygon(
      QPolygonF({{1.5, 3.5}, {6.5, 3.5}, {8, 5.5}, {14.5, 5.5}, {14.5, 13.5}, {1.5, 13.5}}));
  p.drawLine(QPointF(1.5, 7.5), QPointF(14.5, 7.5));
}

void DrawProgram(QPainter& p) {
  p.setPen(QPen(kInk, 1));
  p.setBrush(kPaper);
  p.drawRect(QRectF(1.5, 2.5, 13, 11));
  p.fillRect(QRectF(2, 3, 12, 3), kBlue);
  p.setPen(QPen(kInk, 1));
  for (const double y : {8.5, 10.5}) p.drawLine(QPointF(4, y), QPointF(11, y));
}

void DrawRun(QPainter& p) {
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0x2e, 0x7d, 0x32));
  p.drawPolygon(QPolygonF({{4, 2}, {14, 8}, {4, 14}}));
}

void DrawTerminal(QPainter& p) {
  p.setPen(QPen(kInk, 1));
  p.setBrush(QColor(0x26, 0x32, 0x38));
  p.drawRoundedRect(QRectF(1.5, 2.5, 13, 11), 1.5, 1.5);
  p.setPen(QPen(QColor(0x9c, 0xe5, 0x9c), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.drawPolyline(QPolygonF({{4, 5.5}, {6.5, 8}, {4, 10.5}}));
  p.drawLine(QPointF(8, 10.5), QPointF(11.5, 10.5));
}

void DrawApp(QPainter& p) {
  p.setPen(Qt::NoPen);
  p.setBrush(kBlue);
  p.drawRoundedRect(QRectF(1, 1, 14, 14), 3, 3);
  p.setPen(QPen(kPaper, 1.8));
  p.setBrush(Qt::NoBrush);
  p.drawEllipse(QPointF(7.7, 7.5), 3.8, 3.8);
  p.drawLine(QPointF(9, 9), QPointF(12.2, 12.4));
}

struct Row {
  const char* name;
  Draw draw;
};
constexpr Row kPictures[] = {{"Report", DrawReport},     {"Menu", DrawMenu},
                             {"Program", DrawProgram},   {"run", DrawRun},
                             {"terminal", DrawTerminal}, {"app", DrawApp}};

// Drawn anew for every size, so that it is crisp at any scale.
class PictureEngine : public QIconEngine {
 public:
  explicit PictureEngine(Draw draw) : draw_(draw) {}
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / 16.0, rect.height() / 16.0);
    if (mode == QIcon::Disabled) painter->setOpacity(0.4);
    draw_(*painter);
    painter->restore();
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new PictureEngine(draw_); }

 private:
  Draw draw_;
};

}  // namespace

QIcon PictureIcon(const std::string& name) {
  for (const Row& row : kPictures) {
    if (name == row.name) return QIcon(new PictureEngine(row.draw));
  }
  return QIcon();
}

}  // namespace quorvel

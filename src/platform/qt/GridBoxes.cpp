#include "platform/qt/GridBoxes.h"

#include <QPainter>
#include <QStyleOption>

namespace quorvel {
namespace {

constexpr int kTextMargin = 2;  // pixels between frame and text
constexpr int kMark = 6;        // pixels, side of the mark of a missing entry
const QColor kMarkColour(176, 32, 32);

struct State {
  bool focus;
  bool enabled;
  bool missing;  // a required entry
};

QColor Blend(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](int x, int y) { return qRound(x * share + y * (1 - share)); };
  return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

// What can't be changed now is read all the same: its text keeps most of its contrast.
void SetGridPalette(QWidget& widget, const Look& look) {
  QPalette palette = widget.palette();
  const QColor text = palette.color(QPalette::Active, QPalette::Text);
  const QColor window = palette.color(QPalette::Active, QPalette::Window);
  const QColor dimmed = look.displayOnly ? text : Blend(text, window, 0.75);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, dimmed);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, window);
  if (look.displayOnly) palette.setColor(QPalette::Base, window);
  widget.setPalette(palette);
}

void DrawFrame(QPainter& painter, const QWidget& widget, const Look& look, const State& state) {
  const QPalette& palette = widget.palette();
  const QRect box = widget.rect().adjusted(0, 0, -1, -1);
  const QColor line = Blend(palette.color(QPalette::Active, QPalette::WindowText),
                            palette.color(QPalette::Active, QPalette::Window), 0.45);
  if (look.displayOnly) {
    painter.setPen(line);
    painter.drawLine(box.bottomLeft(), box.bottomRight());
  } else if (!state.enabled) {
    painter.setPen(QPen(line, 1, Qt::DotLine));
    painter.drawRect(box);
  } else if (state.focus) {
    painter.setPen(palette.color(QPalette::Active, QPalette::Highlight));
    painter.drawRect(box);
    painter.drawRect(box.adjusted(1, 1, -1, -1));
  } else {
    painter.setPen(line);
    painter.drawRect(box);
  }
  if (!state.missing) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kMarkColour);
  const QPointF corner = QRectF(widget.rect()).topRight();
  painter.drawPolygon(QPolygonF({corner, corner - QPointF(kMark, 0), corner + QPointF(0, kMark)}));
}

}  // namespace

int GridInset(const Control& control) {
  constexpr int kShare = 10;  // of the height: rows are 255 twips apart where boxes are 300 high
  return control.Look().onGrid ? control.Height() / kShare : 0;
}

int GridTop(const Control& control) {
  constexpr double kShare = 255.0 / 260;  // a row of boxes to a row of text, in twips
  const bool line = control.Look().onGrid && control.kind() == ControlKind::Label;
  return line ? qRound(control.Top() * kShare) : control.Top();
}

void GridLineEdit::SetLook(const Look& look) {
  if (look == look_) return;
  look_ = look;
  setFrame(!look.onGrid);
  setTextMargins(look.onGrid ? kTextMargin : 0, 0, look.onGrid ? kTextMargin : 0, 0);
  if (look.onGrid) SetGridPalette(*this, look);
  update();
}

void GridLineEdit::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  if (!look_.onGrid) return;
  QPainter painter(this);
  const bool missing = look_.required && isEnabled() && text().isEmpty();
  DrawFrame(painter, *this, look_, {hasFocus(), isEnabled(), missing});
}

void GridComboBox::SetLook(const Look& look) {
  if (look == look_) return;
  look_ = look;
  if (look.onGrid) SetGridPalette(*this, look);
  update();
}

void GridComboBox::paintEvent(QPaintEvent* event) {
  if (!look_.onGrid) return QComboBox::paintEvent(event);
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  const bool missing = look_.required && isEnabled() && currentText().isEmpty();
  DrawFrame(painter, *this, look_, {hasFocus(), isEnabled(), missing});
  const int arrow = height();
  QStyleOption option;
  option.initFrom(this);
  option.rect = QRect(width() - arrow, 1, arrow - 2, height() - 2);
  style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &painter, this);
  painter.setPen(palette().color(QPalette::Text));
  const QRect text = rect().adjusted(2 * kTextMargin, 0, -arrow, 0);
  painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, currentText());
}

}  // namespace quorvel

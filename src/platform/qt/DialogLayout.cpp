#include "platform/qt/DialogLayout.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/controls/SimpleControls.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/Window.h"
#include "platform/qt/Looks.h"
#include "platform/qt/WidgetPeer.h"

namespace quorvel {
namespace {

// In characters of usual width, so that they follow the font.
constexpr int kFieldWidth = 36;
constexpr int kBarFieldWidth = 24;
constexpr int kWidestText = 70;
constexpr int kButtonWidth = 12;

constexpr int kMargin = 16;  // pixels
constexpr int kGroupMargin = 10;
constexpr int kSpacing = 8;
constexpr int kFieldSpacing = 14;

int Characters(const QWidget& widget, int count) {
  return widget.fontMetrics().averageCharWidth() * count;
}

bool HoldsPlaces(ControlKind kind) {
  switch (kind) {
    case ControlKind::Frame:
    case ControlKind::Panel:
    case ControlKind::TabStrip:
    case ControlKind::Elastic:
    case ControlKind::ListBox:
    case ControlKind::ListView:
    case ControlKind::Terminal:
      return true;
    default:
      return false;
  }
}

// The widget of a control in a row, with the sizes that a row gives it.
QWidget* Prepared(const Control& control) {
  QWidget* widget = WidgetOf(control);
  if (control.kind() == ControlKind::Label) {
    widget->setMinimumWidth(Characters(*widget, kFieldWidth));
    widget->setMaximumWidth(Characters(*widget, kWidestText));
  } else if (HoldsPlaces(control.kind()) && control.Width() > 0 && control.Height() > 0) {
    // What lies on it has its places in twips.
    widget->setMinimumSize(ToPixels(control.Width()), ToPixels(control.Height()));
  }
  return widget;
}

void AddField(QFormLayout& form, const LayoutRow& row) {
  QWidget* label = WidgetOf(*row.label);
  auto* line = new QHBoxLayout;
  line->setSpacing(kSpacing);
  for (const Control* control : row.controls) {
    QWidget* field = Prepared(*control);
    if (control->kind() != ControlKind::Button) {
      field->setMinimumWidth(Characters(*field, kFieldWidth));
    }
    line->addWidget(field);
  }
  static_cast<QLabel*>(label)->setWordWrap(false);
  form.addRow(label, line);
}

void AddButtons(QVBoxLayout& column, const LayoutRow& row) {
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kSpacing);
  buttons->addStretch(1);
  for (const Control* button : row.controls) {
    QWidget* widget = WidgetOf(*button);
    widget->setMinimumWidth(Characters(*widget, kButtonWidth));
    buttons->addWidget(widget);
  }
  column.addStretch(0);  // takes what no row stretches into
  column.addSpacing(kSpacing / 2);
  column.addLayout(buttons);
}

// A label that stands for nothing tells something: it takes the room that is left over. Without
// one, what is there stands at the left.
void AddBar(QVBoxLayout& column, const LayoutRow& row) {
  auto* bar = new QHBoxLayout;
  bar->setSpacing(kSpacing);
  bool filled = false;
  for (const Control* control : row.controls) {
    QWidget* widget = WidgetOf(*control);
    int stretch = 0;
    if (control->kind() == ControlKind::Label) {
      static_cast<QLabel*>(widget)->setWordWrap(false);
      stretch = static_cast<const Label*>(control)->Buddy() ? 0 : 1;
    } else if (control->kind() == ControlKind::TextBox) {
      widget->setMinimumWidth(Characters(*widget, kBarFieldWidth));
    } else if (control->kind() == ControlKind::Button) {
      widget->setMinimumWidth(Characters(*widget, kButtonWidth));
    }
    filled = filled || stretch > 0;
    bar->addWidget(widget, stretch);
  }
  if (!filled) bar->addStretch(1);
  column.addLayout(bar);
}

QFormLayout* NewForm(QVBoxLayout& column) {
  auto* form = new QFormLayout;
  form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->setHorizontalSpacing(kFieldSpacing);
  form->setVerticalSpacing(kSpacing);
  column.addLayout(form);
  return form;
}

bool Stretches(const Layout& rows) {
  return std::any_of(rows.begin(), rows.end(), [](const LayoutRow& row) {
    return row.kind == LayoutRow::Kind::Stretch || Stretches(row.rows);
  });
}

void AddRows(QVBoxLayout& column, const Layout& rows);

QWidget* PreparedGroup(const LayoutRow& row) {
  QWidget* frame = WidgetOf(*row.controls.front());
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(kGroupMargin, kGroupMargin, kGroupMargin, kGroupMargin);
  column->setSpacing(kSpacing);
  AddRows(*column, row.rows);
  const Control& holder = *row.controls.front();
  if (holder.kind() == ControlKind::Panel) {
    frame->setFixedHeight(ToPixels(holder.Height()));
  } else if (!Stretches(row.rows)) {
    column->addStretch(1);
  }
  return frame;
}

// The pages lie in a stack below the tabs, so that the dialog keeps its size when one turns them.
QWidget* PreparedPages(const LayoutRow& row) {
  const auto& strip = static_cast<const TabStrip&>(*row.controls.front());
  QWidget* holder = WidgetOf(strip);
  auto* stack = new QStackedWidget(holder);
  auto* whole = new QVBoxLayout(holder);
  whole->setContentsMargins(kMargin, ToPixels(strip.TabHeight()) + kGroupMargin, kMargin,
                            kGroupMargin);
  whole->addWidget(stack);
  for (const LayoutRow& rows : row.rows) {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kSpacing);
    AddRows(*column, rows.rows);
    if (!Stretches(rows.rows)) column->addStretch(1);
    for (QWidget* widget : page->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      QSizePolicy policy = widget->sizePolicy();
      policy.setRetainSizeWhenHidden(true);
      widget->setSizePolicy(policy);
    }
    stack->addWidget(page);
  }
  stack->setCurrentIndex(strip.Tab());
  stack->show();
  return holder;
}

void AddGrid(QVBoxLayout& column, const LayoutRow& row) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kSpacing);
  grid->setVerticalSpacing(kSpacing / 2);
  for (int i = 0; i < static_cast<int>(row.controls.size()); ++i) {
    const Control* cell = row.controls[static_cast<std::size_t>(i)];
    const int place = i % row.columns;
    if (!cell) {
      grid->setColumnMinimumWidth(place, kMargin);
      continue;
    }
    QWidget* widget = WidgetOf(*cell);
    if (cell->kind() == ControlKind::Label) {
      static_cast<QLabel*>(widget)->setWordWrap(false);
    } else if (cell->Width() > 0) {
      widget->setMinimumWidth(ToPixels(cell->Width()));
      grid->setColumnStretch(place, cell->Width());
    }
    grid->addWidget(widget, i / row.columns, place);
  }
  column.addLayout(grid);
}

void AddBeside(QVBoxLayout& column, const LayoutRow& row) {
  auto* line = new QHBoxLayout;
  line->setSpacing(kMargin);
  for (const LayoutRow& part : row.rows) {
    auto* inner = new QVBoxLayout;
    inner->setSpacing(kSpacing);
    AddRows(*inner, {part});
    line->addLayout(inner, 1);
  }
  column.addLayout(line, Stretches(row.rows) ? 1 : 0);
}

void AddRows(QVBoxLayout& column, const Layout& rows) {
  QFormLayout* form = nullptr;
  for (const LayoutRow& row : rows) {
    switch (row.kind) {
      case LayoutRow::Kind::Field:
        if (!form) form = NewForm(column);
        AddField(*form, row);
        continue;
      case LayoutRow::Kind::Bar:
        AddBar(column, row);
        break;
      case LayoutRow::Kind::Buttons:
        AddButtons(column, row);
        break;
      case LayoutRow::Kind::Group:
        column.addWidget(PreparedGroup(row), Stretches(row.rows) ? 1 : 0);
        break;
      case LayoutRow::Kind::Beside:
        AddBeside(column, row);
        break;
      case LayoutRow::Kind::Column:
        AddRows(column, row.rows);
        break;
      case LayoutRow::Kind::Pages:
        column.addWidget(PreparedPages(row), 1);
        break;
      case LayoutRow::Kind::Grid:
        AddGrid(column, row);
        break;
      case LayoutRow::Kind::Wide:
      case LayoutRow::Kind::Stretch:
        column.addWidget(Prepared(*row.controls.front()),
                         row.kind == LayoutRow::Kind::Stretch ? 1 : 0);
        break;
    }
    form = nullptr;
  }
}

}  // namespace

void LayOut(const Window& window, QWidget& inside) {
  auto* column = new QVBoxLayout(&inside);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kSpacing);
  AddRows(*column, window.layout());
}

}  // namespace quorvel

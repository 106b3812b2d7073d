#pragma once

#include <QComboBox>
#include <QLineEdit>

#include "platform/controls/Control.h"

namespace quorvel {

// Boxes that can stand on a character grid (see Look), where rows lie closer than the toolkit's own
// frames allow. There they draw a thin frame of their own, whose shape tells their state without
// colour: double where the keyboard is, dotted while disabled, only a base line where nothing can
// be entered, and a corner mark while a required entry is missing.

class GridLineEdit : public QLineEdit {
 public:
  explicit GridLineEdit(QWidget* parent) : QLineEdit(parent) {}
  void SetLook(const Look& look);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Look look_;
};

class GridComboBox : public QComboBox {
 public:
  explicit GridComboBox(QWidget* parent) : QComboBox(parent) {}
  void SetLook(const Look& look);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Look look_;
};

// What a box on the grid leaves free of its place above and below, in twips: its neighbours' frames
// begin there.
int GridInset(const Control& control);

// Where a control is drawn, in twips. Lines of text are placed on rows a little farther apart than
// those of the boxes; on the grid they are drawn on the line of the boxes they belong to.
int GridTop(const Control& control);

}  // namespace quorvel

#pragma once

#include <QPointer>
#include <QWidget>

class QDialog;

namespace quorvel {

// Around a box that opens above the program's windows and closes again. The box stands in the
// middle of the window below it without being a part of it, for that window may be unloaded while
// the box is open. Afterwards the toolkit's focus is where the keyboard is, whichever window the
// window system chooses, or where it chooses none.
class BoxAbove {
 public:
  // `box` is nullptr for what places itself, as menus do. `shell` is below where nothing is active.
  explicit BoxAbove(QDialog* box, QWidget* shell = nullptr);
  ~BoxAbove();
  BoxAbove(const BoxAbove&) = delete;
  BoxAbove& operator=(const BoxAbove&) = delete;

 private:
  QPointer<QWidget> below_;
};

}  // namespace quorvel

#pragma once

#include <QAction>
#include <QList>
#include <QMenu>
#include <QPointer>
#include <map>

#include "platform/controls/Menu.h"

namespace quorvel {

// The menus of one window as the toolkit has them, made once and kept while the window is loaded.
class MenuSet {
 public:
  // `parent` is the widget that the menus pop up over.
  MenuSet(const Window& window, QWidget* parent);
  ~MenuSet();
  MenuSet(const MenuSet&) = delete;
  MenuSet& operator=(const MenuSet&) = delete;

  // The entries of the menu bar, in order.
  const QList<QAction*>& BarEntries() const { return bar_; }
  QAction* ActionOf(const MenuItem& item) const;
  // An entry has changed.
  void Update(const MenuItem& item);

 private:
  QAction* Make(MenuItem& item);

  QPointer<QWidget> holder_;
  std::map<const MenuItem*, QAction*> actions_;
  QList<QAction*> bar_;
};

}  // namespace quorvel

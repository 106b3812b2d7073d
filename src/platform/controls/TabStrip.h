#pragma once

#include <string>
#include <vector>

#include "platform/controls/Control.h"

namespace quorvel {

// A strip of tab pages, numbered from 0. Controls whose parent it is lie on the page that their
// Page tells; their places count from the corner of the strip, the row of tabs included.
class TabStrip : public Control {
 public:
  TabStrip(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::TabStrip; }

  Property<int> Tab{*this, Prop::Tab, 0};                // the current page
  Property<int> TabHeight{*this, Prop::TabHeight, 330};  // of the row of tabs; a peer tells its own
  Property<int> TabMaxWidth{*this, Prop::Tabs, 0};
  Property<int> TabsPerRow{*this, Prop::Tabs, 3};

  int Tabs() const { return static_cast<int>(pages_.size()); }
  void SetTabs(int count);
  // RuntimeError 9 for a page that is not there.
  const std::string& TabCaption(int page) const { return At(page).caption; }
  void SetTabCaption(int page, std::string caption);
  bool TabVisible(int page) const { return At(page).visible; }
  void SetTabVisible(int page, bool visible);

  // The user turned to a page; Click follows.
  void UserTab(int page);
  void PropertyChanged(Prop prop) override;

 private:
  struct PageState {
    std::string caption;
    bool visible = true;
  };
  const PageState& At(int page) const;

  std::vector<PageState> pages_{3};
};

}  // namespace quorvel

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Property.h"

namespace quorvel {

class Window;

// An entry of a window's menu bar, or of a menu in it. An entry with the caption "-" or without
// one is a separator line.
class MenuItem final : public Observed {
 public:
  // An entry of the menu bar.
  MenuItem(Window& window, std::string name, const std::string& caption);
  // An entry of another entry's menu.
  MenuItem(MenuItem& parent, std::string name, const std::string& caption);
  MenuItem(const MenuItem&) = delete;
  MenuItem& operator=(const MenuItem&) = delete;

  const std::string& Name() const { return name_; }
  Window& window() const { return window_; }
  const std::vector<MenuItem*>& Items() const { return items_; }
  bool IsSeparator() const { return Caption().empty() || Caption() == "-"; }

  Property<std::string> Caption{*this, Prop::Caption};
  Property<bool> Enabled{*this, Prop::Enabled, true};
  Property<bool> Visible{*this, Prop::Visible, true};
  Property<bool> Checked{*this, Prop::Checked, false};
  // Left out of the menu bar: a menu that only pops up.
  bool PopUpOnly = false;
  // Served at once where others are kept for the end of a wait: a way out.
  bool IsWayOut = false;

  std::function<void()> Click;

  void UserClick();
  void PropertyChanged(Prop prop) override;

 private:
  Window& window_;
  const std::string name_;
  std::vector<MenuItem*> items_;
};

}  // namespace quorvel

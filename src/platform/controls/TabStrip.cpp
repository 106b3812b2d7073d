#include "platform/controls/TabStrip.h"

#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

TabStrip::TabStrip(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

const TabStrip::PageState& TabStrip::At(int page) const {
  if (page < 0 || page >= Tabs()) throw RuntimeError(Failure::SubscriptOutOfRange);
  return pages_[static_cast<std::size_t>(page)];
}

void TabStrip::SetTabs(int count) {
  if (count < 1) throw RuntimeError(Failure::InvalidCall);
  pages_.resize(static_cast<std::size_t>(count));
  if (Tab() >= count) Tab = count - 1;
  PropertyChanged(Prop::Tabs);
}

void TabStrip::SetTabCaption(int page, std::string caption) {
  if (At(page).caption == caption) return;
  pages_[static_cast<std::size_t>(page)].caption = std::move(caption);
  PropertyChanged(Prop::Tabs);
}

void TabStrip::SetTabVisible(int page, bool visible) {
  if (At(page).visible == visible) return;
  pages_[static_cast<std::size_t>(page)].visible = visible;
  PropertyChanged(Prop::Tabs);
}

void TabStrip::UserTab(int page) {
  if (!window().TakesInput() || !Reachable() || page < 0 || page >= Tabs() || !TabVisible(page)) {
    TellPeer(Prop::Tab);
    return;
  }
  window().AsUserEvent([this, page] {
    Tab = page;
    Raise(Click);
  });
}

void TabStrip::PropertyChanged(Prop prop) {
  if (prop == Prop::Tab && (Tab() < 0 || Tab() >= Tabs())) {
    Tab.Adopt(0);
    throw RuntimeError(Failure::SubscriptOutOfRange);
  }
  Control::PropertyChanged(prop);
  if (prop == Prop::Tab && HasDesktop()) desktop().focus().Check(window());
}

}  // namespace quorvel

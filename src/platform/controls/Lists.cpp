#include "platform/controls/Lists.h"

#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

const std::string& ListRows::At(int index) const {
  if (index < 0 || index >= Count()) throw RuntimeError(Failure::InvalidCall);
  return rows_[static_cast<std::size_t>(index)];
}

int ListRows::Find(const std::string& text) const {
  const auto found = std::find(rows_.begin(), rows_.end(), text);
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

void ListRows::Insert(int index, std::string text) {
  if (index < 0 || index > Count()) throw RuntimeError(Failure::InvalidCall);
  rows_.insert(rows_.begin() + index, std::move(text));
  owner_.PropertyChanged(Prop::Items);
}

void ListRows::Remove(int index) {
  At(index);
  rows_.erase(rows_.begin() + index);
  owner_.PropertyChanged(Prop::Items);
}

void ListRows::Clear() {
  rows_.clear();
  owner_.PropertyChanged(Prop::Items);
}

ComboBox::ComboBox(Container& parent, std::string name, int index, Style look)
    : Control(parent, std::move(name), index), style(look) {
  Created();
}

void ComboBox::UserEdit(std::string text) {
  if (!window().TakesInput() || !Reachable() || style == Style::DropDownList) {
    TellPeer(Prop::Text);
    return;
  }
  if (MaxLength() > 0) text.resize(std::min(text.size(), static_cast<std::size_t>(MaxLength())));
  if (text == Text()) return;
  Text.Adopt(std::move(text));
  ListIndex.Adopt(-1);
  window().AsUserEvent([this] { Raise(Change); });
}

void ComboBox::UserPick(int index) {
  if (!window().TakesInput() || !Reachable() || index < 0 || index >= List.Count()) {
    TellPeer(Prop::ListIndex);
    return;
  }
  ListIndex.Adopt(index);
  Text.Adopt(List.At(index));
  window().AsUserEvent([this] { Raise(Click); });
}

void ComboBox::PropertyChanged(Prop prop) {
  if (prop == Prop::ListIndex) FollowListIndex();
  if (prop == Prop::Text) FollowText();
  if (prop == Prop::Items && ListIndex() >= 0) {
    // The selected row may have moved or gone; the text tells where it is now.
    ListIndex.Adopt(List.Find(Text()));
    if (ListIndex() < 0 && style == Style::DropDownList) Text.Adopt({});
  }
  Control::PropertyChanged(prop);
  if (prop == Prop::Text && style == Style::DropDown) Raise(Change);
}

void ComboBox::FollowListIndex() {
  const int index = ListIndex();
  if (index < -1 || index >= List.Count()) {
    ListIndex.Adopt(List.Find(Text()));
    throw RuntimeError(Failure::InvalidCall);
  }
  Text.Adopt(index < 0 ? std::string() : List.At(index));
}

void ComboBox::FollowText() {
  const int index = List.Find(Text());
  ListIndex.Adopt(index);
  if (index < 0 && style == Style::DropDownList) Text.Adopt({});
}

ListBox::ListBox(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

void ListBox::UserPick(int index) {
  if (!window().TakesInput() || !Reachable() || index < 0 || index >= List.Count()) {
    TellPeer(Prop::ListIndex);
    return;
  }
  ListIndex.Adopt(index);
  valid_ = index;
  window().AsUserEvent([this] { Raise(Click); });
}

void ListBox::PropertyChanged(Prop prop) {
  if (prop == Prop::ListIndex && (ListIndex() < -1 || ListIndex() >= List.Count())) {
    ListIndex.Adopt(valid_);
    throw RuntimeError(Failure::InvalidCall);
  }
  if (prop == Prop::Items && ListIndex() >= List.Count()) ListIndex.Adopt(-1);
  valid_ = ListIndex();
  Control::PropertyChanged(prop);
}

ListView::ListView(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

void ListView::Add(std::string text, std::string icon) {
  items_.push_back({std::move(text), std::move(icon)});
  TellPeer(Prop::Items);
}

void ListView::Clear() {
  items_.clear();
  selected_ = -1;
  TellPeer(Prop::Items);
}

void ListView::Select(int index) {
  if (index != -1 && (index < 1 || index > static_cast<int>(items_.size()))) {
    throw RuntimeError(Failure::InvalidCall);
  }
  selected_ = index;
  TellPeer(Prop::ListIndex);
}

void ListView::UserPick(int index) {
  const bool there = index >= 1 && index <= static_cast<int>(items_.size());
  if (!window().TakesInput() || !Reachable() || !there) {
    TellPeer(Prop::ListIndex);
    return;
  }
  selected_ = index;
  TellPeer(Prop::ListIndex);
  window().AsUserEvent([this] { Raise(Click); });
}

}  // namespace quorvel

#pragma once

#include <utility>

namespace quorvel {

// What a peer or an owner is told has changed.
enum class Prop {
  // Controls and windows
  Left,
  Top,
  Width,
  Height,
  Visible,
  Enabled,
  Caption,
  Font,
  BackColor,
  ForeColor,
  ToolTipText,
  TabIndex,
  TabStop,
  Page,
  Picture,
  AccessibleText,
  Look,
  // Text
  Text,
  MaxLength,
  PasswordChar,
  SelStart,
  SelLength,
  Locked,
  // Lists
  Items,
  ListIndex,
  Columns,
  // Buttons
  Value,
  Default,
  Cancel,
  // Tab strips
  Tab,
  Tabs,
  TabHeight,
  // Menus
  Checked,
  // Elastic containers
  Mode,
  // Terminal
  Screen,
  Selection,
  Cursor,
  TermType,
  ScreenSize,
  BufferRows,
  KeyPad,
  CursorKeys,
  PassThrough,
  KeepScrolledView,
};

// Somebody who is told when one of their properties has got another value.
class Observed {
 public:
  virtual void PropertyChanged(Prop prop) = 0;

 protected:
  ~Observed() = default;
};

// A value that tells its owner when it changes: `cmdOK.Enabled = false;`. Read it with
// `cmdOK.Text()`. Setting the value that it has already tells nobody.
template <class T>
class Property {
 public:
  Property(Observed& owner, Prop prop, T initial = {})
      : owner_(owner), prop_(prop), value_(std::move(initial)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;

  Property& operator=(T value) {
    if (value == value_) return *this;
    value_ = std::move(value);
    owner_.PropertyChanged(prop_);
    return *this;
  }

  const T& operator()() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT: reads like the plain value it is

  // Takes over what the user or the toolkit has done already; tells nobody.
  void Adopt(T value) { value_ = std::move(value); }

 private:
  Observed& owner_;
  const Prop prop_;
  T value_;
};

}  // namespace quorvel

#pragma once

#include <string>
#include <vector>

#include "platform/controls/Control.h"

namespace quorvel {

// The rows of a combo box or list box, from index 0.
class ListRows {
 public:
  explicit ListRows(Control& owner) : owner_(owner) {}
  int Count() const { return static_cast<int>(rows_.size()); }
  // RuntimeError 5 outside 0 to Count() - 1.
  const std::string& At(int index) const;
  int Find(const std::string& text) const;  // -1 if there is none
  void Add(std::string text) { Insert(Count(), std::move(text)); }
  void Insert(int index, std::string text);
  void Remove(int index);
  void Clear();
  const std::vector<std::string>& All() const { return rows_; }

 private:
  Control& owner_;
  std::vector<std::string> rows_;
};

// A combo box, of one of two styles. DropDown: text that can be typed, with a list. DropDownList:
// one of the list only; ListIndex -1 is no selection and empty text, setting Text selects the
// equal item or none. Setting ListIndex raises no Click.
class ComboBox : public Control {
 public:
  enum class Style { DropDown, DropDownList };

  ComboBox(Container& parent, std::string name, int index = -1, Style = Style::DropDown);
  ControlKind kind() const override { return ControlKind::ComboBox; }

  Style style;  // set once, where the window is declared
  Property<std::string> Text{*this, Prop::Text};
  Property<int> ListIndex{*this, Prop::ListIndex, -1};
  Property<int> MaxLength{*this, Prop::MaxLength, 0};  // of typing; 0: no limit
  ListRows List{*this};

  Event Change;

  void UserEdit(std::string text);
  // The user picked a row; Click follows.
  void UserPick(int index);
  void PropertyChanged(Prop prop) override;

 private:
  void FollowListIndex();
  void FollowText();
};

// A combo box that is made a drop-down list, for control arrays.
class DropDownListBox : public ComboBox {
 public:
  DropDownListBox(Container& parent, std::string name, int index = -1)
      : ComboBox(parent, std::move(name), index, Style::DropDownList) {}
};

// A list of rows of which one may be selected.
class ListBox : public Control {
 public:
  ListBox(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::ListBox; }

  Property<int> ListIndex{*this, Prop::ListIndex, -1};
  ListRows List{*this};
  // Whether rows can be dragged: the selection follows the pointer while the button is down, and a
  // line shows where the row would land. Moving it is the form's affair, between MouseDown (the row
  // under the pointer is selected already) and MouseUp. Set once, where the window is declared.
  bool RowsMove = false;
  std::string Text() const { return ListIndex() < 0 ? std::string() : List.At(ListIndex()); }

  void UserPick(int index);
  void PropertyChanged(Prop prop) override;

 private:
  int valid_ = -1;  // the ListIndex that a refused one leaves in force
};

// A list in report view: one column without a heading, each row with a small icon.
class ListView : public Control {
 public:
  struct Item {
    std::string text;
    std::string icon;  // name of a built-in picture; empty for none
    bool operator==(const Item&) const = default;
  };

  ListView(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::ListView; }

  const std::vector<Item>& Items() const { return items_; }
  void Add(std::string text, std::string icon);
  void Clear();
  // One-based row that is selected; -1 for none.
  int SelectedIndex() const { return selected_; }
  void Select(int index);
  Property<int> ColumnWidth{*this, Prop::Columns, 0};  // twips

  // The user moved the selection to a one-based row; Click follows.
  void UserPick(int index);

 private:
  std::vector<Item> items_;
  int selected_ = -1;
};

}  // namespace quorvel

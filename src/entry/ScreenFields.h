#pragma once

#include <string>
#include <vector>

#include "entry/EntryControls.h"
#include "entry/FieldDefinition.h"

namespace quorvel {

enum class FieldKind { Text, Combo };
enum class FieldFlag { Ordinary, Key, Display };

struct PlacedField {
  int number = 0;
  FieldKind kind = FieldKind::Text;
  FieldFlag flag = FieldFlag::Ordinary;
};

// The fields that have been placed on the screen, in placing order, and the boxes that stand for
// them: what can be done with a field whichever kind of box it has. A field that is not placed, or
// whose box could not be made, has no box; nothing happens then.
class ScreenFields {
 public:
  explicit ScreenFields(EntryControls& controls) : controls_(controls) {}

  // Forgets all; the session's lists too.
  void Clear();
  // Enters a field in the lists.
  void Add(const PlacedField& field);
  const std::vector<PlacedField>& Placed() const { return placed_; }
  const PlacedField* Find(int number) const;  // nullptr if it is not placed

  Control* BoxOf(int number);  // nullptr if it has none
  TextBox* TextBoxOf(int number);
  ComboBox* ComboBoxOf(int number);
  bool IsEnabled(int number);
  void Enable(int number, bool enabled);

  // What EntryRecord holds for a field, in stored form.
  static std::string Stored(int number);
  // What stands in the box; of a combo box the selected item, or nothing.
  std::string Entry(int number);
  // Shows a text in display form; a combo box selects the first equal item, or none.
  void Show(int number, const std::string& text);

 private:
  EntryControls& controls_;
  std::vector<PlacedField> placed_;
};

}  // namespace quorvel

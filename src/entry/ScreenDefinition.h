#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "entry/FieldDefinition.h"

namespace quorvel {

// A line of text on the screen, in columns and rows of the character grid.
struct DisplayLine {
  int number = 0;  // of its attribute
  std::int16_t column = 0;
  std::int16_t row = 0;  // the row it is drawn in: one below the one defined
  std::string text;      // may begin with blanks, in the place of a number that is not shown
};

// What the host's two records say of a screen: its display lines, its fields and their order.
class ScreenDefinition {
 public:
  ScreenDefinition() = default;
  // From the prompts record (an attribute a display line) and the parameter record (the field
  // order, then an attribute a field).
  ScreenDefinition(const std::string& prompts, const std::string& parms);

  // Display lines, drawn or not. RuntimeError 6 for more than 16 bits count.
  int LineCount() const;
  // Line `number` from 1; nothing for one that is not drawn (empty, or a rule of "=" or "-").
  // RuntimeError 13 or 6 for a place that is none.
  std::optional<DisplayLine> Line(int number) const;

  // The definition of a field, parsed at its first use; one that does not exist for any other
  // number. RuntimeErrors of ParseFieldDefinition.
  const FieldDefinition& Field(int number) const;

  // The field order, as the host wrote it.
  const std::vector<std::string>& Order() const { return order_; }

 private:
  std::vector<std::string> lines_;
  std::vector<std::string> order_;
  std::vector<std::string> attributes_;  // of the parameter record, up to the last field
  mutable std::map<int, FieldDefinition> fields_;
};

}  // namespace quorvel

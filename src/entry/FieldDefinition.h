#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

// Field numbers of a screen: the numbers of the attributes that define them.
inline constexpr int kFirstFieldNumber = 2;
inline constexpr int kLastFieldNumber = 80;

enum class DataType { Text, Numeric, Date };

// Where a field stands on the character grid, all three as two-digit numbers of the definition.
struct Placement {
  std::int16_t column = 0;
  std::int16_t row = 0;
  std::int16_t width = 0;  // in characters; kNoWidthLimit: any length
};
inline constexpr std::int16_t kNoWidthLimit = 99;

// When a field can be entered.
enum FieldClass : std::int16_t {
  kOrdinary = 1,
  kEntryOnly = 2,  // while a record is added
  kMaintOnly = 3,  // while a record is changed
  kDisplayOnly = 4,
  kOffScreen = 5,
};

// Where the value of a stored field stands in the record of the file.
struct StoredAt {
  std::int16_t attribute = 0;  // 1 to 999
  bool everyValue = false;     // the field holds a piece of each value
  std::int16_t value = 0;      // 0: the attribute as a whole
  std::int16_t start = 1;      // first column of the piece; with a delimiter its number
  std::int16_t width = 0;      // columns of the piece, where there is no delimiter
  std::string delimiter;       // separates sub-fields; empty: fixed columns
};

// Moments at which a screen's host program may be called for a field.
enum class FieldHook { BeforeInput, AfterInput, AfterStore, BeforeOutput };

struct Justification {
  bool left = false;
  bool right = false;
  char fill = ' ';
};

// One field of a screen, as the host defines it: the only place that knows at which position of the
// definition what stands. Numbers are checked here, once.
struct FieldDefinition {
  int number = 0;
  bool exists = false;
  std::optional<Placement> placement;  // nothing if it is no three numbers
  DataType type = DataType::Text;
  bool neverShown = false;  // values of the host are never displayed on it
  bool passedBy = false;    // the loops over all fields leave it out
  std::string tip;
  std::string conversion;  // code, see Conversions.h; empty for none
  std::string name;        // key of its dictionary record, its help and its hooks
  std::string listName;
  std::string locator;
  Justification justification;
  bool required = false;

  bool isKeyPart = false;  // while no field that is none has come before
  std::int16_t fieldClass = kOrdinary;
  std::optional<StoredAt> stored;
  bool balance = false;  // its value blocks a delete
  bool cleared = false;  // blanked together with the record

  std::string lookupFile;
  std::optional<std::int16_t> lookupAttribute;
  std::optional<std::int16_t> displayField;  // shows it; of a key field also its companion

  std::vector<std::string> items;  // of a combo box, in stored form; none: a text box
  std::int16_t shownWidth = 0;     // in characters
  std::string defaultValue;        // in stored form
  std::array<bool, 4> hooks{};     // by FieldHook

  bool IsCombo() const { return !items.empty(); }
  bool Calls(FieldHook hook) const { return hooks[static_cast<std::size_t>(hook)]; }
  bool IsOffScreen() const { return fieldClass == kOffScreen; }
  // Whether its entry must be found in the lookup file, and what is shown of it.
  bool HasLookup() const { return !lookupFile.empty() && lookupAttribute && displayField; }
};

// The definition of field `number` in its attribute of the screen's parameter record. RuntimeError
// 13, 6 or 5 for a number that is none, too large or has no meaning where the field needs it; a bad
// placement is left to whoever places the field.
FieldDefinition ParseFieldDefinition(int number, std::string_view attribute);

}  // namespace quorvel

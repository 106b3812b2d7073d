#include "entry/FieldDefinition.h"

#include "link/Marks.h"
#include "link/Records.h"
#include "platform/NumberText.h"
#include "platform/Numbers.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

constexpr std::int16_t kWidestPiece = 999;    // columns of a piece without limit
constexpr std::int16_t kLastAttribute = 999;  // of a stored field
constexpr std::int16_t kLastStoredClass = 4;
constexpr std::int16_t kLastBalanceClass = 5;
constexpr int kLastFixedField = 6;  // up to here stand key fields, which keep their text

// The parts of a text between a mark, by their one-based positions.
class Parts {
 public:
  Parts(std::string_view text, const char& mark, std::size_t most) {
    for (const std::string_view part : Fields(text, mark)) {
      parts_.push_back(part);
      if (parts_.size() == most) break;
    }
  }
  std::string_view operator[](std::size_t position) const {
    return position <= parts_.size() ? parts_[position - 1] : std::string_view();
  }

 private:
  std::vector<std::string_view> parts_;
};

// Positions of the definition's values and of the mapping's subvalues.
enum Value : std::size_t {
  kPlacement = 1,
  kMapping = 2,
  kTip = 3,
  kConversion = 4,
  kClearMark = 5,
  kName = 6,
  kListName = 7,
  kJustification = 10,
  kLocator = 13,
  kRequired = 15,
  kLookupFile = 16,
  kLookupAttribute = 17,
  kDisplayField = 18,
  kItems = 21,
  kDisplayWidth = 22,
  kDefault = 24,
  kHookFlags = 26,
};
enum Subvalue : std::size_t {
  kAttribute = 2,
  kValueNumber = 3,
  kStart = 5,
  kClass = 6,
  kBalance = 7,
  kDelimiter = 8,
};

std::string_view Characters(std::string_view text, std::size_t from, std::size_t count) {
  return from < text.size() ? text.substr(from, count) : std::string_view();
}

// Nothing for what is no number. RuntimeError 6 for one that does not fit 16 bits.
std::optional<std::int16_t> NumberIn(std::string_view text) {
  const auto number = ParseNumber(text);
  if (!number) return std::nullopt;
  return RoundToInt16(*number);
}

std::int16_t NumberOr(std::string_view text, std::int16_t ifEmpty) {
  return text.empty() ? ifEmpty : ToInt16(text);
}

std::optional<Placement> ParsePlacement(std::string_view text) {
  Placement place;
  std::int16_t* const numbers[] = {&place.column, &place.row, &place.width};
  for (std::size_t i = 0; i < std::size(numbers); ++i) {
    const std::string_view digits = Characters(text, 2 * i, 2);
    if (!IsNumber(digits)) return std::nullopt;
    *numbers[i] = ToInt16(digits);
  }
  return place;
}

DataType ParseType(std::string_view placement) {
  const std::string_view type = Characters(placement, 6, 1);
  if (type == "2") return DataType::Numeric;
  if (type == "3") return DataType::Date;
  return DataType::Text;
}

StoredAt ParseStoredAt(std::int16_t attribute, const Parts& mapping,
                       const std::optional<Placement>& place) {
  StoredAt at;
  at.attribute = attribute;
  at.everyValue = mapping[kValueNumber] == "*";
  if (!at.everyValue) at.value = NumberOr(mapping[kValueNumber], 0);
  at.start = NumberOr(mapping[kStart], 1);
  at.delimiter = mapping[kDelimiter];
  at.width = place ? place->width : std::int16_t{0};
  if (at.width == kNoWidthLimit) at.width = kWidestPiece;
  // -1 appends, as it does in any record; there is no value or column below.
  if (at.value < -1 || at.start < 1 || at.width < 0) throw RuntimeError(Failure::InvalidCall);
  return at;
}

void ParseMapping(FieldDefinition& field, std::string_view text, bool clearMark) {
  const Parts mapping(text, SVM, kDelimiter);
  const std::string_view attribute = mapping[kAttribute];
  const auto number = ParseNumber(attribute);
  field.isKeyPart = !number || *number == 0;
  field.fieldClass = NumberOr(mapping[kClass], kOrdinary);
  if (number && *number >= 1 && *number <= kLastAttribute) {
    if (field.fieldClass <= kLastStoredClass) {
      field.stored = ParseStoredAt(RoundToInt16(*number), mapping, field.placement);
    }
    field.balance = mapping[kBalance] == "Y" && field.fieldClass <= kLastBalanceClass;
  }
  const bool unmapped = attribute.empty() && field.number > kLastFixedField;
  field.cleared = clearMark && ((number && *number >= 1) || unmapped);
}

Justification ParseJustification(std::string_view text) {
  if (text.empty()) return {};
  return {text.front() == 'L', text.front() == 'R', text.back()};
}

// Width in characters on the screen: the field's own, or for one without limit what it says.
std::int16_t ParseShownWidth(const FieldDefinition& field, std::string_view displayWidth) {
  if (!field.placement) return 0;
  const std::int16_t width = field.placement->width;
  return width == kNoWidthLimit ? NumberIn(displayWidth).value_or(width) : width;
}

}  // namespace

FieldDefinition ParseFieldDefinition(int number, std::string_view attribute) {
  FieldDefinition field;
  field.number = number;
  const Parts values(attribute, VM, kHookFlags);
  const std::string_view placement = values[kPlacement];
  field.exists = !placement.empty();
  if (!field.exists) return field;

  field.placement = ParsePlacement(placement);
  field.type = ParseType(placement);
  field.neverShown = Characters(placement, 0, 2) == "99";
  field.passedBy = Characters(placement, 2, 2) == "99";
  field.tip = values[kTip];
  field.conversion = values[kConversion];
  field.name = values[kName];
  field.listName = values[kListName];
  field.locator = values[kLocator];
  field.justification = ParseJustification(values[kJustification]);
  field.required = values[kRequired] == "Y";
  ParseMapping(field, values[kMapping], !values[kClearMark].empty());
  field.lookupFile = values[kLookupFile];
  field.lookupAttribute = NumberIn(values[kLookupAttribute]);
  field.displayField = NumberIn(values[kDisplayField]);
  if (!values[kItems].empty()) {
    for (const std::string_view item : Fields(values[kItems], SVM)) field.items.emplace_back(item);
  }
  field.shownWidth = ParseShownWidth(field, values[kDisplayWidth]);
  field.defaultValue = values[kDefault];
  for (std::size_t i = 0; i < field.hooks.size(); ++i) {
    field.hooks[i] = Characters(values[kHookFlags], i, 1) == "Y";
  }
  return field;
}

}  // namespace quorvel

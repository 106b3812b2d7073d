#include "entry/FieldDisplay.h"

#include "entry/Conversions.h"
#include "link/Records.h"
#include "link/SessionState.h"

namespace quorvel {
namespace {

// Positions in a field's dictionary record, and of a text in the record PROMPTS of the file PARM.
constexpr std::int16_t kKeyPrefix = 14;
constexpr std::int16_t kKeySuffix = 15;
constexpr std::int16_t kMissingItemAttribute = 6;
constexpr std::int16_t kMissingItemValue = 3;

}  // namespace

// A description may be a code that is looked up itself. Each field is shown once at most: a circle
// in the definition would ask the host for ever.
void FieldDisplay::Show(const std::string& value, int number) const {
  std::string shown = value;
  for (int i = kFirstFieldNumber; i <= kLastFieldNumber; ++i) {
    const FieldDefinition& field = definition_.Field(number);
    if (!ShowOne(field, shown)) return;
    if (shown.empty() || !field.HasLookup()) return;
    const auto found = LookUp(field, shown);
    shown = found ? *found : TextOfMissingItem();
    number = *field.displayField;
  }
}

bool FieldDisplay::ShowOne(const FieldDefinition& field, const std::string& value) const {
  if (!field.exists || field.neverShown || !fields_.Find(field.number)) return false;
  fields_.Show(field.number,
               field.conversion.empty() ? value : OutputConv(value, field.conversion));
  return true;
}

std::optional<std::string> FieldDisplay::LookUp(const FieldDefinition& field,
                                                const std::string& code) const {
  const SessionState& s = Session();
  screen_.Read("DICTIONARY", field.name);
  const std::string key = ExtractOf(s.ReplyRecord, kKeyPrefix, 0, 0) + code +
                          ExtractOf(s.ReplyRecord, kKeySuffix, 0, 0);
  screen_.Read(field.lookupFile, key);
  if (s.ReadFailed == kTrue) return std::nullopt;
  return ExtractOf(s.ReplyRecord, *field.lookupAttribute, 0, 0);
}

std::string FieldDisplay::TextOfMissingItem() const {
  screen_.Read("PARM", "PROMPTS");
  return ExtractOf(Session().ReplyRecord, kMissingItemAttribute, kMissingItemValue, 0);
}

void FieldDisplay::Clear() const {
  for (int i = kFirstFieldNumber; i <= kLastFieldNumber; ++i) {
    const FieldDefinition& field = definition_.Field(i);
    if (!field.exists || field.passedBy || field.IsOffScreen()) continue;
    if (field.cleared) Show("", i);
  }
  Session().EntryRecord.clear();
  Session().OriginalRecord.clear();
}

void FieldDisplay::ShowAll() const {
  SessionState& s = Session();
  for (std::int16_t i = kFirstFieldNumber; i <= kLastFieldNumber; ++i) {
    const FieldDefinition& field = definition_.Field(i);
    if (!field.exists || field.passedBy || field.IsOffScreen()) continue;
    std::string value = ExtractOf(s.EntryRecord, i, 0, 0);
    if (hooks_.CallField(FieldHook::BeforeOutput, field, value)) value = s.CaseData;
    if (!value.empty()) Show(value, i);
  }
}

}  // namespace quorvel

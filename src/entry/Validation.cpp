#include "entry/Validation.h"

#include "entry/Conversions.h"
#include "entry/DateText.h"
#include "link/Records.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "platform/NumberText.h"
#include "platform/Numbers.h"

namespace quorvel {
namespace {

const std::string kInvalidEntry = "Invalid Entry";

void SetText(ScreenFields& fields, int number, const std::string& text) {
  if (TextBox* box = fields.TextBoxOf(number)) box->Text = text;
  if (ComboBox* combo = fields.ComboBoxOf(number)) combo->Text = text;
}

}  // namespace

void Validation::ValidateAndStore(int number) const {
  SessionState& s = Session();
  const FieldDefinition& field = definition_.Field(number);
  s.FieldRejected = kFalse;
  if (field.exists && fields_.BoxOf(number)) {
    Judge(field);
    if (s.FieldRejected != kTrue) Store(field);
  }
  s.FieldEvent.clear();
}

// --- the judgement

void Validation::Judge(const FieldDefinition& field) const {
  const std::string& conversion = field.conversion;
  const std::string stored = Session().FieldOldValue;
  const std::string old = conversion.empty() ? stored : OutputConv(stored, conversion);
  if (!IsAcceptable(field, old)) Refuse(field, old);
}

bool Validation::IsAcceptable(const FieldDefinition& field, const std::string& old) const {
  const std::string typed = fields_.Entry(field.number);
  // What ends a field of a request would cut the record off there. The host's own text stays.
  const bool isHosts = typed == old || fields_.ComboBoxOf(field.number);
  std::string entry = isHosts ? typed : AsField(typed);
  if (entry.find_first_not_of(' ') == std::string::npos) entry.clear();
  if (entry != typed) SetText(fields_, field.number, entry);
  if (!JudgeType(field, entry)) return false;
  Justify(field, entry);
  if (entry.empty() && field.required) {
    screen_.MsgBox("Entry is required!", MessageBoxStyle::kExclamation, "Required Field");
    return false;
  }
  if (entry == old) return true;
  return JudgeLookup(field, entry);
}

// An empty date is today's.
bool Validation::JudgeType(const FieldDefinition& field, std::string& entry) const {
  switch (field.type) {
    case DataType::Text:
      return true;
    case DataType::Numeric:
      if (entry.empty() || IsNumeric(entry)) return true;
      screen_.MsgBox("Entry must be numeric!", MessageBoxStyle::kExclamation, kInvalidEntry);
      return false;
    case DataType::Date:
      if (entry.empty()) {
        entry = TodayText();
        SetText(fields_, field.number, entry);
      }
      if (ParseDate(entry)) return true;
      screen_.MsgBox("Invalid Date!", MessageBoxStyle::kExclamation, kInvalidEntry);
      return false;
  }
  return true;
}

void Validation::Justify(const FieldDefinition& field, std::string& entry) const {
  const Justification& just = field.justification;
  const int width = field.placement ? field.placement->width : 0;
  const int missing = width - static_cast<int>(entry.size());
  if (entry.empty() || missing <= 0 || !(just.left || just.right)) return;
  const std::string fill(static_cast<std::size_t>(missing), just.fill);
  const std::string padded = just.left ? entry + fill : fill + entry;
  // A list takes nothing but its items: padding would undo the choice and store nothing.
  const ComboBox* combo = fields_.ComboBoxOf(field.number);
  if (combo && combo->List.Find(padded) < 0) return;
  entry = padded;
  SetText(fields_, field.number, entry);
}

bool Validation::JudgeLookup(const FieldDefinition& field, const std::string& entry) const {
  if (entry.empty() || !field.HasLookup()) return true;
  const auto found = display_.LookUp(field, entry);
  if (!found) {
    screen_.MsgBox("Item " + entry + " not on file!");
    return false;
  }
  display_.Show(*found, *field.displayField);
  return true;
}

void Validation::Refuse(const FieldDefinition& field, const std::string& old) const {
  fields_.Show(field.number, old);
  Session().FieldRejected = kTrue;
  screen_.Focus(fields_.BoxOf(field.number));
}

// --- storing

void Validation::Store(const FieldDefinition& field) const {
  SessionState& s = Session();
  const bool callsHost = s.FieldEvent != "NoCase";
  std::string entry = Convert(field);
  if (callsHost && hooks_.CallField(FieldHook::AfterInput, field, entry)) {
    if (s.CaseHook == "RETURN") return;
    if (s.CaseData == "Error") {
      s.FieldRejected = kTrue;
      return SendBack(field.number);
    }
    if (s.CaseHook == "CHGKEY") entry = s.CaseData;
  }
  s.EntryRecord = ReplaceOf(s.EntryRecord, static_cast<std::int16_t>(field.number), 0, 0, entry);
  if (callsHost && hooks_.CallField(FieldHook::AfterStore, field, entry)) {
    // The value is stored already: only the keyboard goes back.
    if (s.CaseData == "Error") SendBack(field.number);
  }
}

// The entry in stored form. The box shows it as it will be shown later.
std::string Validation::Convert(const FieldDefinition& field) const {
  std::string entry = fields_.Entry(field.number);
  if (!field.conversion.empty()) {
    entry = InputConv(entry, field.conversion);
    if (TextBox* box = fields_.TextBoxOf(field.number)) {
      box->Text = OutputConv(entry, field.conversion);
    }
  }
  Session().FieldOldValue = entry;
  return entry;
}

void Validation::SendBack(int number) const {
  Session().CurrentField = static_cast<std::int16_t>(number);
  screen_.Focus(fields_.BoxOf(number));
}

// --- all of them

void Validation::ValidateEnabled() const {
  SessionState& s = Session();
  const std::string currentOld = s.FieldOldValue;
  const std::int16_t current = s.CurrentField;
  s.CurrentField = 0;
  s.FieldRejected = kFalse;
  const std::vector<PlacedField> placed = fields_.Placed();
  for (const PlacedField& field : placed) {
    if (!fields_.IsEnabled(field.number)) continue;
    s.CurrentField = 0;
    if (field.number == current) {
      s.FieldOldValue = currentOld;
    } else {
      s.FieldEvent = "NoCase";
      s.FieldOldValue = ScreenFields::Stored(field.number);
    }
    ValidateAndStore(field.number);
    if (s.FieldRejected == kTrue) return;
  }
  // Also where the host has sent the keyboard back to a field: what follows enters the first field
  // without validating this one.
  s.CurrentField = 0;
}

}  // namespace quorvel

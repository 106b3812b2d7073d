#include "entry/ScreenFields.h"

#include "link/Marks.h"
#include "link/Records.h"
#include "link/SessionState.h"
#include "platform/Numbers.h"

namespace quorvel {

void ScreenFields::Clear() {
  placed_.clear();
  SessionState& s = Session();
  s.FieldList.clear();
  s.FieldKinds.clear();
  s.FieldFlags.clear();
  s.FieldCount = 0;
  s.FirstField = 0;
}

void ScreenFields::Add(const PlacedField& field) {
  SessionState& s = Session();
  if (!placed_.empty()) {
    s.FieldList += VM;
    s.FieldKinds += VM;
    s.FieldFlags += VM;
  }
  s.FieldList += std::to_string(field.number);
  s.FieldKinds += field.kind == FieldKind::Combo ? "C" : "T";
  if (field.flag == FieldFlag::Key) s.FieldFlags += "K";
  if (field.flag == FieldFlag::Display) s.FieldFlags += "D";
  placed_.push_back(field);
  s.FieldCount = CheckedInt16(static_cast<std::int64_t>(placed_.size()));
}

const PlacedField* ScreenFields::Find(int number) const {
  for (const PlacedField& field : placed_) {
    if (field.number == number) return &field;
  }
  return nullptr;
}

TextBox* ScreenFields::TextBoxOf(int number) {
  return controls_.txtEntry.Has(number) ? &controls_.txtEntry(number) : nullptr;
}

ComboBox* ScreenFields::ComboBoxOf(int number) {
  return controls_.cboEntry.Has(number) ? &controls_.cboEntry(number) : nullptr;
}

Control* ScreenFields::BoxOf(int number) {
  if (TextBox* box = TextBoxOf(number)) return box;
  return ComboBoxOf(number);
}

bool ScreenFields::IsEnabled(int number) {
  const Control* box = BoxOf(number);
  return box && box->Enabled();
}

void ScreenFields::Enable(int number, bool enabled) {
  if (Control* box = BoxOf(number)) box->Enabled = enabled;
}

std::string ScreenFields::Stored(int number) {
  return ExtractOf(Session().EntryRecord, CheckedInt16(number), 0, 0);
}

std::string ScreenFields::Entry(int number) {
  if (const TextBox* box = TextBoxOf(number)) return box->Text();
  const ComboBox* combo = ComboBoxOf(number);
  return combo && combo->ListIndex() >= 0 ? combo->List.At(combo->ListIndex()) : std::string();
}

void ScreenFields::Show(int number, const std::string& text) {
  if (TextBox* box = TextBoxOf(number)) box->Text = text;
  if (ComboBox* combo = ComboBoxOf(number)) combo->ListIndex = combo->List.Find(text);
}

}  // namespace quorvel

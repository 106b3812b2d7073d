#include "entry/RecordCycle.h"

#include <algorithm>

#include "entry/RecordMapping.h"
#include "link/Records.h"
#include "link/SessionState.h"
#include "platform/PlainText.h"
#include "platform/Scoped.h"

namespace quorvel {
namespace {

constexpr int kQuestion = MessageBoxStyle::kYesNo | MessageBoxStyle::kQuestion;

// A key of this letter leaves the screen, as it does on the host's terminals.
const std::string kLeaveKey = "E";

// How the host begins the refusal of a read where the file itself is missing.
const std::string kNoFile = "UNABLE TO OPEN FILE";

}  // namespace

// --- key entry

void RecordCycle::AcceptKey() const {
  if (!IsAtKey()) return;
  SessionState& s = Session();
  s.EntryRecord.clear();
  s.OriginalRecord.clear();
  s.FileRecord.clear();
  if (s.CurrentField != 0) {
    p_.validation.ValidateAndStore(s.CurrentField);
    if (s.FieldRejected == kTrue) return;
  }
  int firstOther = 0;
  if (!TakeKey(firstOther)) return;
  const ScopedFlag opening(opening_);
  p_.screen.Lock(s.RecordKey);
  p_.screen.ReadData(s.RecordKey);
  const bool open = s.ReadFailed == kFalse ? ShowFoundRecord() : StartNewRecord(firstOther);
  if (open) OpenForKey(false);
}

// A log-off may have broken off the way to a record: then there is no key to accept.
bool RecordCycle::IsAtKey() const {
  const auto& placed = p_.fields.Placed();
  const auto isKey = [](const PlacedField& field) { return field.flag == FieldFlag::Key; };
  const bool keyed = std::any_of(placed.begin(), placed.end(), isKey);
  return !keyed || std::any_of(placed.begin(), placed.end(), [&](const PlacedField& field) {
    return isKey(field) && p_.fields.IsEnabled(field.number);
  });
}

// Puts RecordKey together and opens the other fields. False when the key leaves the screen.
bool RecordCycle::TakeKey(int& firstOther) const {
  SessionState& s = Session();
  s.RecordKey.clear();
  for (const PlacedField& field : p_.fields.Placed()) {
    if (field.flag == FieldFlag::Display) continue;
    const bool key = field.flag == FieldFlag::Key;
    if (key) s.RecordKey += ScreenFields::Stored(field.number);
    if (!key && firstOther == 0) firstOther = field.number;
    p_.fields.Enable(field.number, !key);
  }
  if (UpperCase(s.RecordKey) != kLeaveKey) return true;
  p_.controls.cmdExit.Enabled = true;
  p_.controls.mnuFileExit.Enabled = true;
  Leave();
  return false;
}

bool RecordCycle::ShowFoundRecord() const {
  SessionState& s = Session();
  s.NewRecord.clear();
  ApplyMode("MAINT");
  s.FileRecord = s.ReplyRecord;
  s.EntryRecord = LoadEntryRecord(p_.definition, s.EntryRecord, s.FileRecord);
  s.OriginalRecord = s.EntryRecord;
  p_.display.ShowAll();
  if (!p_.hooks.RecordFails("AfterRead")) return true;
  Cancel();
  return false;
}

bool RecordCycle::StartNewRecord(int firstOther) const {
  SessionState& s = Session();
  if (UpperCase(s.ReadMessage).starts_with(kNoFile)) {
    p_.screen.MsgBox(s.ReadMessage);
    ResetToKeyEntry();
    return false;
  }
  if (p_.hooks.RecordFails("NewItem") ||
      p_.screen.MsgBox("Do you want to add this record?", kQuestion, "New Record") ==
          MessageBoxAnswer::No) {
    Cancel();
    return false;
  }
  s.NewRecord = "Y";
  ApplyMode("ENTRY");
  if (p_.fields.IsEnabled(firstOther)) p_.screen.Focus(p_.fields.BoxOf(firstOther));
  return true;
}

// --- with a record on screen

void RecordCycle::Save() const {
  p_.validation.ValidateEnabled();
  if (Session().FieldRejected == kTrue) return;
  if (p_.hooks.AskRecord("BeforeWrite") == "RETURN") return;
  WriteBack();
  BackToFirstField();
}

void RecordCycle::WriteBack() const {
  SessionState& s = Session();
  s.FileRecord = PackEntryRecord(p_.definition, s.EntryRecord, s.FileRecord);
  p_.screen.Write(s.RecordKey, s.FileRecord);
  p_.hooks.AskRecord("AfterWrite");
}

void RecordCycle::Delete() const {
  SessionState& s = Session();
  if (p_.hooks.RecordFails("BeforeDelete")) return;
  if (s.NewRecord != "Y" && HasOpenBalance(p_.definition, s.EntryRecord)) {
    p_.screen.MsgBox("An open balance still exists! Cannot Delete.", MessageBoxStyle::kOkOnly,
                     "Cannot Delete");
    return;
  }
  if (p_.screen.MsgBox("Are you sure you want to Delete this record?", kQuestion,
                       "Delete Record?") == MessageBoxAnswer::No) {
    return;
  }
  s.CurrentField = 0;
  p_.screen.Delete(s.RecordKey);
  p_.hooks.AskRecord("AfterDelete");
  BackToFirstField();
}

// A field that holds a bad entry blocks this, too.
void RecordCycle::Cancel() const {
  SessionState& s = Session();
  const int current = s.CurrentField;
  if (current != 0 && p_.fields.Find(current) && p_.fields.IsEnabled(current)) {
    s.FieldEvent = "NoCase";
    s.FieldOldValue = ScreenFields::Stored(current);
    p_.validation.ValidateAndStore(current);
    if (s.FieldRejected == kTrue) return;
  }
  if (p_.hooks.RecordFails("BeforeExitWoSave")) return;
  s.EntryRecord = s.OriginalRecord;
  if (p_.hooks.RecordFails("ExitWoSave")) return;
  s.CurrentField = 0;
  BackToFirstField();
}

void RecordCycle::Leave() const {
  Session().CurrentField = 0;
  leave_();
}

// --- the states

void RecordCycle::BackToFirstField() const {
  p_.display.Clear();
  ResetToKeyEntry();
  const int first = Session().FirstField;
  if (p_.fields.Find(first)) p_.screen.Focus(p_.fields.BoxOf(first));
}

void RecordCycle::ResetToKeyEntry() const {
  for (const PlacedField& field : p_.fields.Placed()) {
    p_.fields.Enable(field.number, field.flag == FieldFlag::Key);
  }
  OpenForKey(true);
}

// What can be clicked during key entry, and with a record on screen.
void RecordCycle::OpenForKey(bool key) const {
  EntryControls& c = p_.controls;
  c.mnuFileExit.Enabled = key;
  c.cmdExit.Enabled = key;
  c.cmdOK.Enabled = key;
  for (MenuItem* item : {&c.mnuFileCancel, &c.mnuFileSave, &c.mnuFileDelete}) item->Enabled = !key;
  for (Button* button : {&c.cmdCancel, &c.cmdSave, &c.cmdDelete}) button->Enabled = !key;
}

void RecordCycle::ApplyMode(const std::string& mode) const {
  const std::int16_t closed = mode == "ENTRY" ? kMaintOnly : kEntryOnly;
  if (mode != "ENTRY" && mode != "MAINT") return;
  for (const PlacedField& field : p_.fields.Placed()) {
    if (field.flag == FieldFlag::Key) continue;
    if (p_.definition.Field(field.number).fieldClass == closed) {
      p_.fields.Enable(field.number, false);
    }
  }
}

}  // namespace quorvel

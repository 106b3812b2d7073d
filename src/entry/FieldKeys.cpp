#include "entry/FieldKeys.h"

#include "entry/Conversions.h"
#include "link/HostWait.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/SessionState.h"
#include "platform/NumberText.h"
#include "platform/Numbers.h"
#include "platform/Scoped.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// A host that answers "skip this field" for each one would send the keyboard round for ever.
constexpr int kMostArrivals = kLastFieldNumber;

std::string ShownDefault(const FieldDefinition& field) {
  if (field.conversion.empty()) return field.defaultValue;
  return OutputConv(field.defaultValue, field.conversion);
}

}  // namespace

// --- arriving

// A window that was open in a wait has closed and gives the keyboard back: that enters no field.
bool FieldKeys::IsHeldUp() const {
  return arriving_ >= kMostArrivals || p_.screen.IsInWait();
}

void FieldKeys::EnterText(int number) {
  SessionState& s = Session();
  const FieldDefinition& field = p_.definition.Field(number);
  TextBox* box = p_.fields.TextBoxOf(number);
  if (!box || IsHeldUp()) return;
  const ScopedCount arriving(arriving_);
  if (s.PendingOp == "ReturnAns") {
    ResumeAwaiting();
    box->Text = s.ListAnswer;
    PressEnter(number);
    s.CurrentField = static_cast<std::int16_t>(number);
    s.FieldOldValue = ScreenFields::Stored(number);
    return;
  }
  // Typing replaces what stands there. Ahead of any wait: what is typed in it is not selected.
  box->SelectAll();
  if (!Arrive(field, *box)) return;
  if (s.FieldOldValue.empty() && !field.defaultValue.empty()) {
    box->Text = ShownDefault(field);
    box->SelectAll();
  }
  if (number == s.FirstField) ReleaseRecord(false);
}

// Differs from a text box on purpose: no list answers here, and only a field with a stored value
// lets the record go, the whole screen with it.
void FieldKeys::EnterCombo(int number) {
  SessionState& s = Session();
  const FieldDefinition& field = p_.definition.Field(number);
  ComboBox* combo = p_.fields.ComboBoxOf(number);
  if (!combo || IsHeldUp()) return;
  const ScopedCount arriving(arriving_);
  if (!Arrive(field, *combo)) return;
  if (!s.FieldOldValue.empty()) {
    if (number == s.FirstField) ReleaseRecord(true);
    return;
  }
  if (field.defaultValue.empty()) return;
  const int item = combo->List.Find(ShownDefault(field));
  if (item >= 0) combo->ListIndex = item;
}

// Validates the field being left and asks the host whether this one is to be entered. False when
// the keyboard has gone elsewhere meanwhile: by a refusal, the host, or the user.
bool FieldKeys::Arrive(const FieldDefinition& field, const Control& box) {
  SessionState& s = Session();
  if (s.FieldEvent == "KeyDown") {
    s.FieldEvent.clear();
  } else if (s.CurrentField != 0 && s.CurrentField != field.number) {
    p_.validation.ValidateAndStore(s.CurrentField);
    if (s.FieldRejected == kTrue || !p_.screen.HasKeyboard(box)) return false;
  }
  s.FieldOldValue = ScreenFields::Stored(field.number);
  if (p_.hooks.CallField(FieldHook::BeforeInput, field, std::nullopt)) {
    if (!p_.screen.HasKeyboard(box)) return false;
    if (s.CaseHook == "RETURN") {
      Next(field.number);
      return false;
    }
  }
  s.CurrentField = static_cast<std::int16_t>(field.number);
  return true;
}

void FieldKeys::ReleaseRecord(bool clear) {
  SessionState& s = Session();
  if (s.RecordKey.empty()) return;
  p_.screen.Unlock(s.RecordKey);
  s.RecordKey.clear();
  if (clear) p_.display.Clear();
}

// --- leaving

void FieldKeys::PressEnter(int number) {
  SessionState& s = Session();
  p_.validation.ValidateAndStore(number);
  if (s.FieldRejected == kTrue) return;
  if (number != s.FirstField) {
    s.FieldEvent = "KeyDown";
    Next(number);
  } else if (p_.controls.cmdOK.Enabled()) {
    acceptKey_();
  }
}

void FieldKeys::Next(int number) {
  const std::vector<std::string>& order = p_.definition.Order();
  const auto here = std::find(order.begin(), order.end(), std::to_string(number));
  // From the last field, and from one that is not in the order, it goes on at the top.
  auto next = here == order.end() || here + 1 == order.end() ? order.begin() : here + 1;
  for (; next != order.end(); ++next) {
    const auto candidate = ParseNumber(*next);
    if (!candidate || *candidate < kFirstFieldNumber || *candidate > kLastFieldNumber) continue;
    const int field = RoundToInt16(*candidate);
    if (p_.fields.IsEnabled(field)) return p_.screen.Focus(p_.fields.BoxOf(field));
  }
}

// --- the pop-up menu

void FieldKeys::PopUp(int number) {
  Control* box = p_.fields.TextBoxOf(number);
  if (!box) return;
  const FieldDefinition& field = p_.definition.Field(number);
  EntryControls& c = p_.controls;
  c.mnuOptions.Enabled = true;
  c.mnuOptions.Visible = true;
  c.mnuOptHelp.Enabled = !field.name.empty();
  c.mnuOptLocate.Enabled = !field.locator.empty();
  c.mnuOptList.Enabled = !field.listName.empty();
  p_.screen.Focus(&c.cmdHelp);
  Session().CurrentField = static_cast<std::int16_t>(number);
  PopContextMenu(*box, c.mnuOptions);
  c.mnuOptions.Enabled = false;
  c.mnuOptions.Visible = false;
}

void FieldKeys::PopContextMenu(Control& box, MenuItem& menu) {
  box.Enabled = false;
  desktop().PopupMenu(menu);
  box.Enabled = true;
}

// --- a pick list's answer

void FieldKeys::TakeListAnswer(int number) {
  SessionState& s = Session();
  if (p_.fields.TextBoxOf(number)) {
    p_.screen.Focus(p_.fields.BoxOf(number));
  } else if (ComboBox* combo = p_.fields.ComboBoxOf(number)) {
    ResumeAwaiting();
    const int item = combo->List.Find(s.ListAnswer);
    if (item >= 0) combo->ListIndex = item;
    p_.screen.Focus(combo);
  }
  // A box that can't take the keyboard takes no answer; no later one is to take it.
  if (s.PendingOp == "ReturnAns") ResumeAwaiting();
}

}  // namespace quorvel

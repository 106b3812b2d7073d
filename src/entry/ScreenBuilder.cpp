#include "entry/ScreenBuilder.h"

#include <cstdlib>

#include "entry/Conversions.h"
#include "link/Marks.h"
#include "link/SessionState.h"
#include "platform/Numbers.h"
#include "platform/PlainText.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// The character grid in twips. Lines and boxes differ on purpose: the screens of the hosts are
// drawn with it.
constexpr int kColumn = 130;
constexpr int kLineRow = 260;
constexpr int kLineCharacter = 135;
constexpr int kFieldRow = 255;
constexpr int kFieldCharacter = 120;
constexpr int kFieldFrame = 255;  // width of a box of one character
constexpr int kComboButton = 255;
constexpr int kBoxHeight = 300;
constexpr int kBesideKey = 80;  // from the last key field to cmdOK

// Display lines that are drawn. No screen has a tenth of this; every one is a widget.
constexpr int kMostLines = 1000;

class Builder {
 public:
  Builder(const ScreenDefinition& definition, EntryControls& controls, ScreenFields& fields)
      : definition_(definition), controls_(controls), fields_(fields) {}

  void Build() {
    PlaceLines();
    const int firstOther = PlaceKeyFields();
    PlaceOkButton();
    PlaceOtherFields(firstOther);
  }
  // The display line or field being worked on.
  int Pass() const { return pass_; }

 private:
  void PlaceLines() {
    for (pass_ = 1; pass_ <= definition_.LineCount(); ++pass_) {
      const auto line = definition_.Line(pass_);
      if (!line) continue;
      if (controls_.lblDisp.Count() == kMostLines) throw RuntimeError(Failure::OutOfMemory);
      Label& label = controls_.lblDisp.Load(pass_);
      label.Font = kEntryFont;
      label.Look = Look{.onGrid = true};
      label.Height = kBoxHeight;
      label.Top = CheckedInt16(std::int64_t{line->row} * kLineRow);
      label.Left = CheckedInt16(std::int64_t{line->column} * kColumn);
      label.Width = CheckedInt16(static_cast<std::int64_t>(line->text.size()) * kLineCharacter);
      label.Caption = line->text;
      lines_.push_back(*line);
    }
  }

  // The field that the other fields begin with.
  int PlaceKeyFields() {
    for (pass_ = kFirstFieldNumber; pass_ <= kLastFieldNumber; ++pass_) {
      const FieldDefinition& field = definition_.Field(pass_);
      if (!field.exists || field.IsOffScreen()) continue;
      if (!field.isKeyPart) return pass_;
      if (Session().FirstField == 0) Session().FirstField = static_cast<std::int16_t>(pass_);
      Place(field, FieldFlag::Key, field.IsCombo() ? FieldKind::Combo : FieldKind::Text);
      if (field.displayField) PlaceCompanion(*field.displayField);
    }
    return pass_;
  }

  void PlaceCompanion(int number) {
    Place(definition_.Field(number), FieldFlag::Display, FieldKind::Text, number);
  }

  void PlaceOkButton() {
    keyPhase_ = false;
    controls_.cmdOK.Look = Look{.onGrid = true};
    if (!last_) return;
    controls_.cmdOK.Top = last_->Top();
    controls_.cmdOK.Left = last_->Left() + last_->Width() + kBesideKey;
  }

  void PlaceOtherFields(int first) {
    for (pass_ = first; pass_ <= kLastFieldNumber; ++pass_) {
      const FieldDefinition& field = definition_.Field(pass_);
      if (!field.exists || field.IsOffScreen()) continue;
      const bool shows = field.fieldClass == kDisplayOnly;
      Place(field, shows ? FieldFlag::Display : FieldFlag::Ordinary,
            field.IsCombo() ? FieldKind::Combo : FieldKind::Text);
    }
  }

  void Place(const FieldDefinition& field, FieldFlag flag, FieldKind kind) {
    Place(field, flag, kind, field.number);
  }
  void Place(const FieldDefinition& field, FieldFlag flag, FieldKind kind, int number) {
    fields_.Add({number, kind, flag});
    if (!field.placement) throw RuntimeError(Failure::TypeMismatch);
    const bool combo = kind == FieldKind::Combo;
    // One number never has a box of both kinds.
    if (fields_.BoxOf(number)) throw RuntimeError(Failure::ElementExists);
    Control& box = combo ? static_cast<Control&>(controls_.cboEntry.Load(number))
                         : controls_.txtEntry.Load(number);
    last_ = &box;
    box.Visible = false;
    box.Enabled = keyPhase_;
    box.Font = kEntryFont;
    box.Look = Look{true, field.required, flag == FieldFlag::Display};
    PutOnGrid(box, *field.placement, field.shownWidth, combo);
    if (combo) {
      FillItems(static_cast<ComboBox&>(box), field);
    } else {
      LimitLength(static_cast<TextBox&>(box), field.placement->width);
    }
    box.Visible = true;
    box.TabStop = flag != FieldFlag::Display;
    if (box.TabStop()) box.TabIndex = ++tabs_;
    box.AccessibleText = PromptOf(*field.placement);
    box.ToolTipText = field.tip;
  }

  static void PutOnGrid(Control& box, const Placement& place, std::int16_t characters, bool combo) {
    const std::int64_t width = (std::int64_t{characters} - 1) * kFieldCharacter + kFieldFrame;
    const std::int16_t left = CheckedInt16(std::int64_t{place.column} * kColumn);
    const std::int16_t top = CheckedInt16((std::int64_t{place.row} + 1) * kFieldRow);
    const std::int16_t wide = CheckedInt16(width + (combo ? kComboButton : 0));
    if (wide < 0) throw RuntimeError(Failure::InvalidProperty);
    box.Move(left, top, wide, kBoxHeight);
  }

  static void FillItems(ComboBox& combo, const FieldDefinition& field) {
    for (const std::string& item : field.items) {
      combo.List.Add(field.conversion.empty() ? item : OutputConv(item, field.conversion));
    }
  }

  static void LimitLength(TextBox& box, std::int16_t width) {
    if (width < 0) throw RuntimeError(Failure::InvalidProperty);
    box.MaxLength = width == kNoWidthLimit ? 0 : width;
  }

  // The display line that tells what is to be entered: the last one ahead of the field in its row,
  // else the nearest of all.
  std::string PromptOf(const Placement& place) const {
    const DisplayLine* best = nullptr;
    int bestDistance = 0;
    for (const DisplayLine& line : lines_) {
      constexpr int kOtherRow = 1000;  // any line of the row is nearer than one of another
      constexpr int kBehind = 500;
      const int row = std::abs(line.row - (place.row + 1));
      const int column = place.column - line.column;
      const int distance = row * kOtherRow + (column < 0 ? kBehind - column : column);
      if (best && distance >= bestDistance) continue;
      best = &line;
      bestDistance = distance;
    }
    if (!best) return {};
    return std::string(WithoutLeadingBlanks(best->text));
  }

  const ScreenDefinition& definition_;
  EntryControls& controls_;
  ScreenFields& fields_;
  std::vector<DisplayLine> lines_;
  int pass_ = 0;
  int tabs_ = -1;
  bool keyPhase_ = true;
  Control* last_ = nullptr;  // the box made last
};

}  // namespace

bool BuildScreen(const ScreenDefinition& definition, EntryControls& controls,
                 ScreenFields& fields) {
  Builder builder(definition, controls, fields);
  try {
    builder.Build();
    return true;
  } catch (const RuntimeError& failure) {
    desktop().MsgBox("Error# " + std::to_string(failure.number()) + LF + failure.what() + LF +
                     "Z = " + std::to_string(builder.Pass()));
  }
  return false;
}

}  // namespace quorvel

#pragma once

#include <string>

#include "entry/CaseHooks.h"
#include "entry/FieldDisplay.h"
#include "entry/ScreenDefinition.h"
#include "entry/ScreenFields.h"

namespace quorvel {

// Where every entry passes before it reaches EntryRecord. FieldRejected tells how it went.
//
// FieldOldValue is what the entry is compared with and what a refusal brings back. FieldEvent is
// "NoCase" while no hooks are to be called; it is empty behind each validation.
class Validation {
 public:
  Validation(OpenScreen& screen, const ScreenDefinition& definition, ScreenFields& fields,
             const CaseHooks& hooks, const FieldDisplay& display)
      : screen_(screen),
        definition_(definition),
        fields_(fields),
        hooks_(hooks),
        display_(display) {}

  // Judges the entry, converts it, and stores it if host and definition agree. A field without a
  // box is not judged.
  void ValidateAndStore(int number) const;
  // The same for all enabled fields up to the first refusal; hooks are called only for the one that
  // is being entered.
  void ValidateEnabled() const;

 private:
  void Judge(const FieldDefinition& field) const;
  bool IsAcceptable(const FieldDefinition& field, const std::string& old) const;
  bool JudgeType(const FieldDefinition& field, std::string& entry) const;
  void Justify(const FieldDefinition& field, std::string& entry) const;
  bool JudgeLookup(const FieldDefinition& field, const std::string& entry) const;
  void Refuse(const FieldDefinition& field, const std::string& old) const;
  void Store(const FieldDefinition& field) const;
  std::string Convert(const FieldDefinition& field) const;
  void SendBack(int number) const;

  OpenScreen& screen_;
  const ScreenDefinition& definition_;
  ScreenFields& fields_;
  const CaseHooks& hooks_;
  const FieldDisplay& display_;
};

}  // namespace quorvel

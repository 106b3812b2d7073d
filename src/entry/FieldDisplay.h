#pragma once

#include <optional>
#include <string>

#include "entry/CaseHooks.h"
#include "entry/ScreenDefinition.h"
#include "entry/ScreenFields.h"

namespace quorvel {

// The road from a stored value to the screen, with the look-up that shows a description beside a
// code.
class FieldDisplay {
 public:
  FieldDisplay(OpenScreen& screen, const ScreenDefinition& definition, ScreenFields& fields,
               const CaseHooks& hooks)
      : screen_(screen), definition_(definition), fields_(fields), hooks_(hooks) {}

  // Shows a stored value on a field and what its look-up finds on the next one, and so on.
  void Show(const std::string& value, int number) const;
  // Blanks the fields that go with the record, and forgets the record.
  void Clear() const;
  // Shows all of EntryRecord; the host may rewrite each value first.
  void ShowAll() const;

  // What the look-up of a field finds for a code: the attribute to show; nothing if the code is not
  // on file.
  std::optional<std::string> LookUp(const FieldDefinition& field, const std::string& code) const;

 private:
  bool ShowOne(const FieldDefinition& field, const std::string& value) const;
  std::string TextOfMissingItem() const;

  OpenScreen& screen_;
  const ScreenDefinition& definition_;
  ScreenFields& fields_;
  const CaseHooks& hooks_;
};

}  // namespace quorvel

#pragma once

#include <optional>
#include <string>

#include "entry/FieldDefinition.h"
#include "entry/OpenScreen.h"

namespace quorvel {

// The calls of the screen's host program at fixed points of the field and record cycle. A screen
// without a program calls nothing. CaseHook and CaseData hold the reply, and the host may have
// changed EntryRecord and OriginalRecord.
class CaseHooks {
 public:
  explicit CaseHooks(OpenScreen& screen) : screen_(screen) {}

  // A hook of the record ("AfterRead", ...). True when the host says "Error".
  bool RecordFails(const std::string& hook) const;
  // The same, where only the reply word counts: what CaseHook says, empty without a program.
  std::string AskRecord(const std::string& hook) const;

  // A hook of a field that asks for it; CaseData goes out as `data`, or as the last hook left it.
  // True when the host was called.
  bool CallField(FieldHook hook, const FieldDefinition& field,
                 const std::optional<std::string>& data) const;

 private:
  bool CallRecord(const std::string& hook) const;

  OpenScreen& screen_;
};

}  // namespace quorvel

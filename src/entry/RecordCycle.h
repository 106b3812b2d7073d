#pragma once

#include <functional>
#include <string>

#include "entry/ScreenParts.h"

namespace quorvel {

// The round that a screen goes: a key is entered, the record is locked, read, shown and changed,
// then saved, deleted or left, and the screen is back at key entry. Entering the first field again
// is what unlocks the record (FieldKeys).
class RecordCycle {
 public:
  // `leave` closes the screen.
  RecordCycle(const ScreenParts& parts, std::function<void()> leave)
      : p_(parts), leave_(std::move(leave)) {}

  void AcceptKey() const;
  // Whether a record has been locked and is on its way to the screen.
  bool IsOpening() const { return opening_; }
  void Save() const;
  void Delete() const;
  void Cancel() const;
  void Leave() const;

  // Only key fields can be entered, and cmdOK and the exit used.
  void ResetToKeyEntry() const;
  // Closes the fields that are not open in mode "ENTRY" or "MAINT".
  void ApplyMode(const std::string& mode) const;

 private:
  bool IsAtKey() const;
  bool TakeKey(int& firstOther) const;
  bool ShowFoundRecord() const;
  bool StartNewRecord(int firstOther) const;
  void WriteBack() const;
  void BackToFirstField() const;
  void OpenForKey(bool key) const;

  const ScreenParts p_;
  std::function<void()> leave_;
  mutable bool opening_ = false;
};

}  // namespace quorvel

#include "link/OptionRun.h"

#include "link/SessionState.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

// Others may have taken the place of a request that the host has not answered. Once the option's id
// has been sent the host has all it needs.
bool OptionRun::IsUnderWay() const {
  const std::string& pending = Session().PendingOp;
  if (stage_ == Stage::Requested) return pending == "RunOption" || pending == "Capture";
  return stage_ == Stage::LookUp;
}

bool OptionRun::DropsAnother() const {
  if (IsUnderWay()) return true;
  return desktop().WasGivenBefore(endedAt_) && Session().MenuText == menu_;
}

void OptionRun::Begin() {
  End();  // of one whose answer has been lost to another
  stage_ = Stage::LookUp;
  menu_ = Session().MenuText;
}

void OptionRun::Request() {
  stage_ = Stage::Requested;
  desktop().DeferKeptInput(true);
}

void OptionRun::SendOption() {
  if (stage_ == Stage::Requested) stage_ = Stage::Sent;
}

void OptionRun::End() {
  if (stage_ == Stage::None) return;
  stage_ = Stage::None;
  endedAt_ = desktop().NextMoment();
  desktop().DeferKeptInput(false);
}

}  // namespace quorvel

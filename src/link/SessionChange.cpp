#include "link/SessionChange.h"

#include "link/HandOvers.h"
#include "link/SessionState.h"
#include "link/frmPassword.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

void ForgetStream() {
  SessionState& s = Session();
  s.FrameBuffer.clear();
  s.FrameStart = 0;
  s.FrameEnd = 0;
  s.HasSentFrames = false;
  s.PendingOp.clear();
  s.GivenUp.clear();
  s.CaptureCommand.clear();
  s.CaptureStrip.clear();
}

void ForgetPrinting() {
  if (Session().PassThroughPrint == kFalse) return;
  Session().PassThroughPrint = kFalse;
  Try([] { desktop().backend().printer().EndDocument(); });
}

void ForgetMenu() {
  Session().ShownMenuText.clear();
  Session().ShownMenuCommands.clear();
}

void ForgetPassword() {
  if (frmPassword* window = LoadedForm<frmPassword>()) window->Unload();
}

void ForgetQuestions() {
  SessionState& s = Session();
  for (Questions* questions : {&s.Lists, &s.Passwords, &s.HelpTexts}) questions->Drop();
}

}  // namespace

void DropHourglass() {
  if (desktop().Pointer() != MousePointer::Default)
    desktop().SetMousePointer(MousePointer::Default);
}

void EndOfLink() {
  desktop().ReleaseInput();
  DropHourglass();
  Session().Run.End();
  ForgetQuestions();
  Ask().FreeEntryScreen();
}

void BeginSession() {
  desktop().StartGeneration();
  EndOfLink();
  ForgetStream();
  ForgetPrinting();
  ForgetMenu();
  ForgetPassword();
  Ask().DropEntryWindows();
}

}  // namespace quorvel

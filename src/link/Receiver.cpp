#include "link/Receiver.h"

#include <exception>
#include <utility>

#include "link/CaptureMessages.h"
#include "link/Dispatcher.h"
#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "platform/Numbers.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// One-based position of `mark` in `data` at or behind the one-based `start`; 0 if there is none.
std::int16_t PositionOf(char mark, const std::string& data, std::size_t start) {
  const auto found = data.find(mark, start - 1);
  return found == std::string::npos ? std::int16_t{0}
                                    : CheckedInt16(static_cast<std::int64_t>(found) + 1);
}

bool Holds(const std::string& data, const std::string& prompt) {
  return data.find(prompt) != std::string::npos;
}

std::string AfterLogin() {
  return Session().SendKeys.empty() ? "" : "SendKeys";
}

// The steps below say whether they have used the block up.

bool AnswerLogin(std::string& data) {
  SessionState& s = Session();
  if (!Holds(data, s.LoginString)) return false;
  SendToHost(s.LoginUser + CR);
  s.PendingOp = s.PwdString == "NONE" ? AfterLogin() : "Password";
  return true;
}

bool AnswerPassword(std::string& data) {
  SessionState& s = Session();
  if (!Holds(data, s.PwdString)) return false;
  SendToHost(s.LoginPassword + CR);
  s.PendingOp = AfterLogin();
  return true;
}

bool SendLoginKeys(std::string&) {
  SessionState& s = Session();
  if (s.SendKeys.empty()) return false;
  const std::string keys = ExpandCommandString(s.SendKeys);
  if (keys.empty()) {
    s.PendingOp.clear();
    return true;
  }
  for (const char key : keys) SendToHost(std::string(1, key));
  if (keys.substr(0, 6) != "SY.DOS") Ask().FocusTelnetWindow();
  s.PendingOp.clear();
  return true;
}

bool Capture(std::string& data) {
  const SessionState& s = Session();
  if (!s.CaptureStrip.empty()) SwapAll(s.CaptureStrip, "", data);
  AppendToCapture(data);
  return true;
}

struct PendingStep {
  std::string_view pendingOp;
  bool (*step)(std::string& data);
};

// What becomes of a block without a mark, by what the link is waiting for.
constexpr PendingStep kPendingSteps[] = {
    {"Login", AnswerLogin},
    {"Password", AnswerPassword},
    {"SendKeys", SendLoginKeys},
    {"Capture", Capture},
};

// A printer that fails would fail for every block of what the host prints: one box is enough, until
// it has printed again or another printing begins.
void PrintThrough(const std::string& data) {
  bool& told = Session().PrintFailureTold;
  try {
    desktop().backend().printer().PrintText(data);
    told = false;
  } catch (const RuntimeError&) {
    if (!std::exchange(told, true)) throw;
  }
}

// Does something that other steps must not fail with; what it failed with.
template <class Step>
std::exception_ptr FailureOf(const Step& step) {
  try {
    step();
    return nullptr;
  } catch (const RuntimeError&) {
    return std::current_exception();
  }
}

void TakePlainBlock(std::string& data) {
  for (const PendingStep& row : kPendingSteps) {
    if (row.pendingOp == Session().PendingOp && row.step(data)) return;
    if (row.pendingOp == Session().PendingOp) break;
  }
  if (Session().PassThroughPrint == kTrue) {
    PrintThrough(data);
  } else {
    Ask().WriteTerminal(data);
  }
}

void TakeBlock(std::string& data) {
  SessionState& s = Session();
  const char mark = FrameMark();
  bool opened = false;
  if (s.FrameStart == 0) {
    s.FrameBuffer.clear();
    s.FrameStart = PositionOf(mark, data, 1);
    opened = true;
  }
  if (s.FrameStart == 0) return TakePlainBlock(data);

  const std::size_t opening = opened ? static_cast<std::size_t>(s.FrameStart) : 0;
  const std::size_t start = opening + 1;
  s.FrameEnd = PositionOf(mark, data, start);
  const auto writeHead = [&] {
    if (opened) Ask().WriteTerminal(std::string_view(data).substr(0, opening - 1));
  };
  if (s.FrameEnd == 0) {
    s.FrameBuffer.append(data, start - 1);
    return writeHead();
  }
  s.FrameBuffer.append(data, start - 1, static_cast<std::size_t>(s.FrameEnd) - start);
  s.FrameStart = 0;
  s.FrameEnd = 0;
  // A terminal whose printer fails costs the text, not the frame behind it.
  const std::string frame = s.FrameBuffer;
  const std::exception_ptr failure = FailureOf(writeHead);
  s.HostMessage = frame;
  DispatchHostMessage();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace

char FrameMark() {
  const std::int16_t code = Session().Magic;
  if (code < 0 || code > 255) throw RuntimeError(Failure::InvalidCall);
  return static_cast<char>(code);
}

void ReceiveHostData(std::string& data) {
  // What an option opens comes behind the block that let it run.
  const struct Opening {
    bool awaited = Session().Run.AwaitsWindow();
    ~Opening() {
      if (awaited) Session().Run.End();
    }
  } opening;
  TakeBlock(data);
}

}  // namespace quorvel

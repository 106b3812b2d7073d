#include "app/sim/Rules.h"

#include <algorithm>

#include "demohost/Marks.h"
#include "entry/frmList.h"
#include "link/SessionState.h"
#include "link/frmPassword.h"
#include "menus/frmHelpText.h"
#include "output/frmReport.h"
#include "platform/controls/Desktop.h"
#include "settings/frmTerm.h"

namespace quorvel::sim {
namespace {

constexpr std::string_view kFailureBox = "Run-time error";
constexpr std::string_view kStrayBox = "REGULAR DATA";

// Sessions until everything has been used once, and how many are compared at either end.
constexpr std::ptrdiff_t kWarmUp = 100;
constexpr std::ptrdiff_t kCompared = 100;
// Blocks by which the least of them may differ: what windows of other sizes hold.
constexpr std::int64_t kMostGrowth = 200;

}  // namespace

Rules::Rules(const Story& story, Workplace& place, Verdict& verdict, const Teller& tell)
    : story_(story),
      verdict_(verdict),
      tell_(tell),
      login_(verdict),
      saved_(verdict, place),
      answered_(verdict),
      boxes_(verdict),
      owners_(verdict),
      memory_(verdict, place),
      stream_(verdict),
      menu_(verdict),
      exit_(verdict),
      help_(verdict),
      link_(verdict) {}

// --- the line

void Rules::OnAccepted(const std::string& host) {
  if (tell_) tell_("line: connected");
  data_ = {};
  frames_ = {};
  login_.OnAccepted(host);
  saved_.OnAccepted();
  answered_.OnAccepted();
  boxes_.Forget();
  stream_.OnAccepted();
  menu_.OnAccepted();
  exit_.OnAccepted();
  help_.OnLink(true);
  link_.OnAccepted();
  memory_.OnSession();
}

void Rules::OnRefused() {
  if (tell_) tell_("line: refused");
  link_.OnRefused();
}

void Rules::OnSent(std::string_view bytes) {
  if (tell_) tell_("  client: " + Readable(bytes));
  login_.OnSent(bytes);
  saved_.OnSent(bytes, HostIsSample());
  if (HostIsSample()) answered_.OnSent(bytes);
}

void Rules::OnDelivered(std::string_view bytes) {
  if (tell_) tell_("  host: " + Readable(bytes));
  for (const char byte : bytes) {
    const auto data = data_.Feed(byte);
    if (!data) continue;
    if (const auto frame = frames_.Feed(*data)) OnFrame(*frame);
  }
}

void Rules::OnFrame(const std::string& frame) {
  login_.OnFrame();
  boxes_.OnFrame(frame);
  const std::vector<std::string> fields = FieldsOf(frame);
  stream_.OnFrame(fields[0]);
  menu_.OnFrame(fields);
}

void Rules::OnLost() {
  if (tell_) tell_("line: lost");
  saved_.OnLinkGone();
  help_.OnLink(false);
  link_.OnGone();
}

void Rules::OnHungUp() {
  if (tell_) tell_("line: the host has hung up");
  saved_.OnLinkGone();
  help_.OnLink(false);
  link_.OnGone();
}

void Rules::OnClosedByClient() {
  if (tell_) tell_("line: the client has closed");
  saved_.OnLinkGone();
  help_.OnLink(false);
  link_.OnGone();
  boxes_.Forget();
}

void Rules::OnRequest(const std::string& text, int port) {
  if (HostIsSample()) saved_.OnRequest(text, port);
}

// --- the desktop

void Rules::OnTyped(const std::string& text) {
  login_.OnTyped(text);
  answered_.OnTyped(text);
}

// A printer that fails is told, and so is a configuration when it is read.
bool Rules::IsExpected(const std::string& failure) const {
  if (failure.find("Printer error") != std::string::npos) return story_.setting.printerFails;
  return story_.setting.badSendKeys && failure.find("[LOGIN] SendKeys in ") != std::string::npos;
}

void Rules::OnBox(const MessageBoxRequest& box) {
  if (tell_) tell_("  box: " + Readable(box.title) + ": " + Readable(box.text));
  if (box.text.starts_with(kFailureBox) && !IsExpected(box.text))
    verdict_.Fail("alive", Readable(box.text));
  if (box.title == kStrayBox && HostIsSample()) {
    verdict_.Fail("answered", "a reply that nobody waits for: " + Readable(box.text));
  }
  boxes_.OnBox(box);
  saved_.OnBox(box);
  exit_.OnBox(box);
  link_.OnBox(box);
}

// The terminal's settings replace the title in the caption by its length, whatever stands there.
void Rules::OnAct() {
  saved_.OnAct();
  if (LoadedForm<frmTerm>()) link_.OnFileChosen();
}

void Rules::OnAnswered(const std::string& title, bool yes) {
  exit_.OnAnswered(title, yes);
  help_.OnAnswered(title, yes);
}

void Rules::OnDropped(const std::string& text) {
  verdict_.Fail("answered", "typed in a wait and dropped: " + Readable(text));
}

// --- quiet

void Rules::CheckQuiet(const demohost::HostSession* host) {
  owners_.CheckQuiet();
  boxes_.CheckQuiet();
  help_.CheckQuiet();
  if (!host) link_.CheckQuiet();
  if (host) stream_.CheckQuiet(frames_.IsInside());
  if (!host || !login_.IsDone()) return;
  saved_.CheckPromise();
  CheckState();
  CheckKeyboard();
  if (!HostIsSample()) return;
  answered_.CheckQuiet(*host);
  menu_.CheckQuiet();
  if (!host->IsInProgram()) saved_.CheckLocks(host->Port());
}

void Rules::CheckState() {
  const SessionState& s = Session();
  const bool rude = RowOf(story_.kind).host == HostKind::Rude;
  // A capture that the rude host does not end goes on, and a hook's reply that no hook has asked
  // for stays until one is called.
  const bool left = rude && (s.PendingOp == "Capture" || s.PendingOp == "ReturnCase");
  const bool allowed = s.PendingOp.empty() || s.PendingOp == "RunOption" || left;
  if (!allowed) verdict_.Fail("quiet", "PendingOp is " + s.PendingOp);
  if (s.FrameStart != 0) verdict_.Fail("quiet", "a frame is open");
  if (desktop().Pointer() != MousePointer::Default) verdict_.Fail("quiet", "the pointer waits");
  if (desktop().HasKeptInput()) verdict_.Fail("quiet", "input is kept that nobody serves");
}

void Rules::CheckKeyboard() {
  if (Session().PendingOp == "Capture") return;  // the terminal is locked meanwhile
  const Window* front = desktop().focus().Front();
  if (!front) return verdict_.Fail("quiet", "no window is in front");
  // Behind a report that is looked at, the terminal stays locked until the viewer is closed; behind
  // a capture that the rude host has broken by a frame, until that host ends it.
  const bool rude = RowOf(story_.kind).host == HostKind::Rude;
  if ((rude || LoadedForm<frmReport>()) && front->Name() == "frmTelnet" && !front->Enabled())
    return;
  if (!front->TakesInput()) {
    return verdict_.Fail("quiet", front->Name() + " is in front and takes no input");
  }
  const Control* target = desktop().focus().KeyTarget();
  if (!target && !front->NextInTabOrder(nullptr)) return;  // it has nothing for the keyboard
  if (!target) return verdict_.Fail("quiet", "nothing in " + front->Name() + " has the keyboard");
  if (!target->Reachable()) {
    verdict_.Fail("quiet", front->Name() + "." + target->CodeName() +
                               " has the keyboard and can't be reached");
  }
}

void Rules::CheckEnd() {
  if (!verdict_.IsOver()) exit_.CheckEnd();
  owners_.CheckEnd();
  memory_.CheckEnd();
}

// --- questions and answers

void AnsweredRule::OnAccepted() {
  data_ = {};
  requests_ = {};
  typedReturns_ = 0;
  hasEndedText_ = false;
}

// Returns in the program's windows are not sent as such.
void AnsweredRule::OnTyped(const std::string& text) {
  const Window* front = desktop().focus().Front();
  if (!front || front->Name() != "frmTelnet") return;
  typedReturns_ += std::count(text.begin(), text.end(), demohost::kCr);
}

// The answer to a help text is a return. Behind half a line it ends that line, and the host can't
// see that it was an answer.
void AnsweredRule::OnSent(std::string_view bytes) {
  for (const char byte : bytes) {
    const auto data = data_.Feed(byte);
    if (!data) continue;
    const bool endsText = requests_.IsInText() && *data == demohost::kCr;
    requests_.Feed(*data);
    if (!endsText) continue;
    if (typedReturns_ == 0) hasEndedText_ = true;
    typedReturns_ = std::max<std::ptrdiff_t>(0, typedReturns_ - 1);
  }
}

// What the host waits for must be there for the user to answer.
void AnsweredRule::CheckQuiet(const demohost::HostSession& host) {
  const auto owed = host.StillOwed();
  if (owed.boxes > 0) {
    verdict_.Fail("answered", std::to_string(owed.boxes) + " boxes of the host have no answer");
  }
  // The host takes an empty line for either, so the two are counted together.
  const int shown = (LoadedForm<frmList>() ? 1 : 0) + (LoadedForm<frmHelpText>() ? 1 : 0);
  const std::size_t waiting = Session().Lists.Waiting() + Session().HelpTexts.Waiting();
  if (owed.lists + owed.helps <= shown + static_cast<int>(waiting)) return;
  if (hasEndedText_) return verdict_.Excuse("an answer behind a line half typed");
  verdict_.Fail("answered", "a list or help window of the host has no answer");
}

// --- boxes in their order

void FramesRule::OnFrame(const std::string& frame) {
  const std::vector<std::string> fields = FieldsOf(frame);
  if (fields.size() < 3 || fields[0] != "~MSGBOX~" || fields[1].empty()) return;
  due_.push_back({fields[1], fields[2]});
}

void FramesRule::OnBox(const MessageBoxRequest& box) {
  const auto found = std::find_if(due_.begin(), due_.end(), [&box](const Due& due) {
    return due.title == box.title && due.text == box.text;
  });
  if (found == due_.end()) return;  // the client's own
  if (found != due_.begin()) {
    verdict_.Fail("frames", "the box " + Readable(box.text) + " goes before the older " +
                                Readable(due_.front().text));
  }
  due_.erase(found);
}

void FramesRule::CheckQuiet() {
  if (due_.empty()) return;
  verdict_.Fail("frames", "a box of the host never opened: " + Readable(due_.front().text));
}

// --- owners

void OwnersRule::OnLoad(Window& window) {
  std::erase_if(seen_, [](const Seen& seen) { return seen.window.expired(); });
  const auto shared = window.weak_from_this();
  const bool known = std::any_of(seen_.begin(), seen_.end(), [&shared](const Seen& seen) {
    return !seen.window.owner_before(shared) && !shared.owner_before(seen.window);
  });
  if (!known) seen_.push_back({shared, window.Name()});
}

void OwnersRule::CheckQuiet() {
  for (const Seen& seen : seen_) {
    const auto window = seen.window.lock();
    if (window && !window->IsLoaded()) {
      verdict_.Fail("owners", seen.name + " has been unloaded, and something still holds it");
    }
  }
}

void OwnersRule::CheckEnd() {
  for (const Seen& seen : seen_) {
    if (!seen.window.expired()) verdict_.Fail("owners", seen.name + " outlives the desktop");
  }
}

// --- memory

void MemoryRule::OnSession() {
  if (place_.blocksInUse) blocks_.push_back(place_.blocksInUse());
}

void MemoryRule::CheckEnd() {
  if (static_cast<std::ptrdiff_t>(blocks_.size()) < kWarmUp + 2 * kCompared) return;
  const auto first = blocks_.begin() + kWarmUp;
  const std::int64_t before = *std::min_element(first, first + kCompared);
  const std::int64_t after = *std::min_element(blocks_.end() - kCompared, blocks_.end());
  if (after <= before + kMostGrowth) return;
  verdict_.Fail("owners", std::to_string(blocks_.size()) +
                              " sessions took the blocks in use from " + std::to_string(before) +
                              " to " + std::to_string(after));
}

}  // namespace quorvel::sim

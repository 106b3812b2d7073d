#include "platform/controls/Desktop.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "platform/Scoped.h"
#include "platform/controls/Menu.h"

namespace quorvel {
namespace {

Desktop* theDesktop = nullptr;

// How many receive events may be nested (in boxes and waits). A host that sends boxes without end
// must not exhaust the stack; what is above waits in the queue.
constexpr int kMostNestedReceives = 24;

// Keys and clicks that are kept for the end of a wait. More is no typing ahead but a key that lies
// on the keyboard.
constexpr std::size_t kMostKept = 1000;

// The generation of an event that has been ended.
constexpr unsigned kEnded = std::numeric_limits<unsigned>::max();

// How often the keyboard may be settled after one event, should each GotFocus lose it again.
constexpr int kMostSettlings = 16;

template <class T>
class Pushed {
 public:
  Pushed(std::vector<T>& stack, T value) : stack_(stack) { stack_.push_back(value); }
  ~Pushed() { stack_.pop_back(); }
  Pushed(const Pushed&) = delete;
  Pushed& operator=(const Pushed&) = delete;

 private:
  std::vector<T>& stack_;
};

}  // namespace

Desktop& desktop() {
  return *theDesktop;
}
bool HasDesktop() {
  return theDesktop != nullptr;
}

Desktop::Desktop(Backend& backend) : backend_(backend) {
  theDesktop = this;
}

Desktop::~Desktop() {
  queue_.clear();
  // The main window last: the others lie in it.
  std::erase_if(forms_, [this](const auto& form) { return form.second.get() != main_; });
  forms_.clear();
  theDesktop = nullptr;
}

// --- events

void Desktop::Post(EventKind kind, std::function<void()> event) {
  if (ending_) return;
  queue_.push_back({kind, std::move(event)});
  backend_.Wake();
}

void Desktop::Handle(EventKind kind, const std::function<void()>& body, Window* window) {
  if (ending_) return;
  const Context context = kind == EventKind::Receive ? Context::Receive
                          : kind == EventKind::User  ? Context::User
                                                     : Context::Program;
  {
    const Pushed<Running> in(
        running_,
        {context, generation_, window ? window->weak_from_this() : std::weak_ptr<Window>()});
    const auto level = levels_.size() - 1;
    ++levels_[level].running;
    Guard(body);
    --levels_[level].running;
    Guard([this] { Settle(); });
  }
  if (!queue_.empty() || !kept_.empty()) backend_.Wake();  // what was held back may run now
}

void Desktop::Guard(const std::function<void()>& body) {
  try {
    body();
  } catch (const QuietEnd&) {
    return;
  } catch (const RuntimeError& failure) {
    ReportFailure(failure);
  } catch (const std::bad_alloc&) {
    ReportFailure(RuntimeError(Failure::OutOfMemory));
  } catch (const std::exception& unexpected) {
    ReportFailure(RuntimeError(Failure::InvalidCall, unexpected.what()));
  }
}

void Desktop::ReportFailure(const RuntimeError& failure) {
  try {
    MsgBox("Run-time error '" + std::to_string(failure.number()) + "':\n\n" + failure.what(),
           MessageBoxStyle::kCritical);
  } catch (const QuietEnd&) {
    return;
  }
}

void Desktop::Settle() {
  for (int i = 0; i < kMostSettlings && !ending_; ++i) {
    const Level& level = levels_.back();
    const auto& order = focus_.Order();
    // A modal window that has just gone leaves the window below to the handler that opened it.
    const bool gone =
        level.modal && std::find(order.begin(), order.end(), level.modal) == order.end();
    if (gone || !focus_.Settle(level.running == 0)) return;
  }
}

void Desktop::RunWithin(const std::function<void()>& body) {
  if (IsHandling()) {
    body();
  } else {
    Handle(EventKind::Program, body);
  }
}

// While this lives, others are served in the midst of the running event.
class Desktop::Serving {
 public:
  Serving(Desktop& owner, Context context)
      : in_(owner.running_, {context, owner.generation_}), owner_(owner), given_(owner.given_) {
    owner_.given_ = 0;
  }
  ~Serving() { owner_.given_ = given_; }
  Serving(const Serving&) = delete;
  Serving& operator=(const Serving&) = delete;

 private:
  const Pushed<Running> in_;
  Desktop& owner_;
  const unsigned given_;
};

bool Desktop::InputHeld() const {
  const auto inner = std::find_if(running_.rbegin(), running_.rend(), [](const Running& running) {
    return running.context != Context::Program && running.context != Context::Yield;
  });
  return inner != running_.rend() && inner->context == Context::Receive;
}

int Desktop::RunningReceives() const {
  return static_cast<int>(
      std::count_if(running_.begin(), running_.end(),
                    [](const Running& running) { return running.context == Context::Receive; }));
}

bool Desktop::IsServing() const {
  return running_.empty() || running_.back().context == Context::Yield ||
         running_.back().context == Context::Wait;
}

bool Desktop::MayRun(EventKind kind) const {
  if (painting_ > 0) return false;
  if (kind == EventKind::Program) return true;
  if (InputHeld()) return false;
  return kind != EventKind::Receive || RunningReceives() < kMostNestedReceives;
}

bool Desktop::ServeOne() {
  const auto next = std::find_if(queue_.begin(), queue_.end(),
                                 [this](const Queued& queued) { return MayRun(queued.kind); });
  if (ending_) return false;
  if (next == queue_.end()) return ServeKept();
  const Queued event = std::move(*next);
  queue_.erase(next);
  Handle(event.kind, event.event);
  return true;
}

bool Desktop::ServeQueue() {
  bool served = false;
  // Only what is there now, so that an event that posts itself again can't hold the caller.
  for (auto left = queue_.size() + kept_.size(); left > 0 && ServeOne(); --left) served = true;
  return served;
}

void Desktop::Yield() {
  CheckEnding();
  {
    const Serving others(*this, Context::Yield);
    ServeQueue();
    backend_.ServeToolkit(InputHeld() ? Serve::WithoutInput : Serve::All);
  }
  CheckEnding();
}

void Desktop::Paint() {
  {
    const ScopedCount painting(painting_);
    backend_.ServeToolkit(Serve::WithoutInput);
  }
  if (!queue_.empty()) backend_.Wake();
}

void Desktop::WaitWhile(const std::function<bool()>& condition) {
  const Serving others(*this, Context::Wait);
  while (condition()) {
    CheckEnding();
    if (!ServeOne()) backend_.ServeToolkit(Serve::Waiting);
  }
  CheckEnding();
}

void Desktop::CheckEnding() const {
  if (ending_) throw QuietEnd{};
}

void Desktop::EndProcess(int status) {
  if (!ending_) {
    ending_ = true;
    queue_.clear();
    backend_.Quit(status);
  }
  if (IsHandling()) throw QuietEnd{};
}

// --- typing ahead

Desktop::Running* Desktop::RunningEvent() {
  const auto event = std::find_if(running_.rbegin(), running_.rend(), [](const Running& running) {
    return running.context != Context::Yield && running.context != Context::Wait;
  });
  return event == running_.rend() ? nullptr : &*event;
}

void Desktop::HoldInput() {
  Running* event = RunningEvent();
  if (event && event->holdsSince == 0) event->holdsSince = NextMoment();
}

void Desktop::ReleaseInput() {
  for (Running& running : running_) running.holdsSince = 0;
  keptDeferred_ = false;
  kept_.clear();
}

void Desktop::DeferKeptInput(bool deferred) {
  keptDeferred_ = deferred;
  if (!kept_.empty()) backend_.Wake();
}

bool Desktop::HoldsInput(const Window& window) const {
  return std::any_of(running_.begin(), running_.end(), [&window](const Running& running) {
    return running.holdsSince > window.OpenedAt();
  });
}

bool Desktop::KeepsInput(const Window& window) const {
  return IsServing() && given_ == 0 && HoldsInput(window);
}

void Desktop::TakeInput(Window& window, std::function<void()> act) {
  if (ending_) return;
  const bool behind =
      IsServing() && given_ == 0 && !kept_.empty() && (keptDeferred_ || KeptIsDue());
  if (!behind && !KeepsInput(window)) return act();
  KeepInput(window, std::move(act));
}

void Desktop::KeepInput(Window& window, std::function<void()> act) {
  if (kept_.size() >= kMostKept) return backend_.Beep();
  kept_.push_back({window.weak_from_this(), NextMoment(), std::move(act)});
  backend_.Wake();
}

// Whether the wait that the oldest kept input was kept for is over.
bool Desktop::KeptIsDue() const {
  if (keptDeferred_) return false;
  const auto meant = kept_.front().window.lock();
  const Window* window = meant && meant->IsLoaded() ? meant.get() : focus_.Front();
  return !window || !HoldsInput(*window);
}

bool Desktop::ServeKept() {
  if (kept_.empty() || !MayRun(EventKind::User) || !KeptIsDue()) return false;
  const Kept next = std::move(kept_.front());
  kept_.pop_front();
  const unsigned before = std::exchange(given_, next.given);
  next.act();
  given_ = before;
  if (!kept_.empty()) backend_.Wake();
  return true;
}

// --- whose waits these are

std::shared_ptr<Window> Desktop::RunningWindow() {
  const Running* event = RunningEvent();
  return event ? event->window.lock() : nullptr;
}

void Desktop::StartGeneration() {
  ++generation_;
  if (Running* event = RunningEvent()) event->generation = generation_;
}

void Desktop::EndRunningBelow() {
  const Running* event = RunningEvent();
  for (Running& running : running_) {
    if (&running != event) running.generation = kEnded;
  }
}

bool Desktop::IsRunningStale() {
  const Running* event = RunningEvent();
  return event && event->generation != generation_;
}

PartOf::PartOf(Window& window) : place_(desktop().running_.size()) {
  if (place_ == 0) return;
  auto& running = desktop().running_.back();
  before_ = std::exchange(running.window, window.weak_from_this());
}

PartOf::~PartOf() {
  if (place_ != 0) desktop().running_[place_ - 1].window = before_;
}

// --- boxes and pop-ups

const Desktop::Above* Desktop::InFront() const {
  const auto top = std::find_if(above_.rbegin(), above_.rend(), [](const Above& above) {
    return above.window ? above.window->IsVisible() : !above.closed;
  });
  return top == above_.rend() ? nullptr : &*top;
}

bool Desktop::IsBlocked(const Window& window) const {
  const Above* top = InFront();
  return top && top->window != &window;
}

void Desktop::BoxHasClosed() {
  const auto top = std::find_if(above_.rbegin(), above_.rend(),
                                [](const Above& above) { return !above.window && !above.closed; });
  if (top != above_.rend()) top->closed = true;
}

bool Desktop::IsBoxInFront() const {
  const Above* top = InFront();
  return top && !top->window;
}

// Runs a box or dialog of the platform, which serves events until the user has answered.
template <class Ask>
auto Desktop::AskInBox(const Ask& ask) {
  CheckEnding();
  kept_.clear();
  if (!queue_.empty()) backend_.Wake();  // what was held back is served while the box is open
  auto answer = [&] {
    const Serving others(*this, Context::Wait);
    const Pushed<Above> open(above_, {nullptr});
    return ask();
  }();
  CheckEnding();
  return answer;
}

MessageBoxAnswer Desktop::MsgBox(const std::string& text, int style, const std::string& title) {
  return AskInBox([&] {
    return backend_.ShowMessageBox(
        {text, title.empty() ? backend_.application().Title() : title, style});
  });
}

void Desktop::SetMousePointer(MousePointer pointer) {
  pointer_ = pointer;
  backend_.SetMousePointer(pointer);
}

void Desktop::PopupMenu(MenuItem& menu) {
  CheckEnding();
  if (!queue_.empty()) backend_.Wake();
  {
    const Serving others(*this, Context::Wait);
    backend_.PopUp(menu);
  }
  CheckEnding();
}

std::optional<std::string> Desktop::ChooseFile(const FileDialog& dialog) {
  return AskInBox([&] { return backend_.dialogs().ChooseFile(dialog); });
}

std::optional<std::uint32_t> Desktop::ChooseColour(std::uint32_t present) {
  return AskInBox([&] { return backend_.dialogs().ChooseColour(present); });
}

std::optional<Font> Desktop::ChooseFont(const Font& present) {
  return AskInBox([&] { return backend_.dialogs().ChooseFont(present); });
}

bool Desktop::ChoosePrinter() {
  return AskInBox([&] { return backend_.dialogs().ChoosePrinter(); });
}

// --- windows

void Desktop::Forget(Window& window) {
  for (auto& [type, form] : forms_) {
    if (form.get() == &window) {
      forms_.erase(type);  // whoever is in one of its methods holds it alive
      return;
    }
  }
}

std::vector<Window*> Desktop::LoadedWindows() const {
  std::vector<Window*> windows;
  for (const auto& [type, form] : forms_) {
    if (form && form->IsLoaded()) windows.push_back(form.get());
  }
  return windows;
}

void Desktop::EnterModal(const Window& window) {
  kept_.clear();
  levels_.push_back({&window, 0});
  above_.push_back({&window});
}

void Desktop::LeaveModal() {
  levels_.pop_back();
  above_.pop_back();
}

}  // namespace quorvel

#include "platform/controls/Desktop.h"

#include <algorithm>
#include <new>

#include "platform/Scoped.h"
#include "platform/controls/Menu.h"

namespace quorvel {
namespace {

Desktop* theDesktop = nullptr;

// How many receive events may be nested (in boxes and waits). A host that sends boxes without end
// must not exhaust the stack; what is above waits in the queue.
constexpr int kMostNestedReceives = 24;

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

void Desktop::Handle(EventKind kind, const std::function<void()>& body) {
  if (ending_) return;
  const Context context = kind == EventKind::Receive ? Context::Receive
                          : kind == EventKind::User  ? Context::User
                                                     : Context::Program;
  const Pushed<Context> in(contexts_, context);
  const auto level = levels_.size() - 1;
  ++levels_[level].running;
  Guard(body);
  --levels_[level].running;
  Guard([this] { Settle(); });
  if (!queue_.empty()) backend_.Wake();  // what was held back may run now
}

void Desktop::Guard(const std::function<void()>& body) {
  try {
    body();
  } catch (const ProcessEnding&) {
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
  } catch (const ProcessEnding&) {
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

bool Desktop::InputHeld() const {
  const auto inner = std::find_if(contexts_.rbegin(), contexts_.rend(),
                                  [](Context context) { return context != Context::Program; });
  return inner != contexts_.rend() && *inner == Context::Receive;
}

int Desktop::RunningReceives() const {
  return static_cast<int>(std::count(contexts_.begin(), contexts_.end(), Context::Receive));
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
  if (ending_ || next == queue_.end()) return false;
  const Queued event = std::move(*next);
  queue_.erase(next);
  Handle(event.kind, event.event);
  return true;
}

bool Desktop::ServeQueue() {
  bool served = false;
  // Only what is there now, so that an event that posts itself again can't hold the caller.
  for (auto left = queue_.size(); left > 0 && ServeOne(); --left) served = true;
  return served;
}

void Desktop::Yield() {
  CheckEnding();
  ServeQueue();
  backend_.ServeToolkit(InputHeld() ? Serve::WithoutInput : Serve::All);
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
  const Pushed<Context> waiting(contexts_, Context::Wait);
  while (condition()) {
    CheckEnding();
    if (!ServeOne()) backend_.ServeToolkit(Serve::Waiting);
  }
  CheckEnding();
}

void Desktop::CheckEnding() const {
  if (ending_) throw ProcessEnding{};
}

void Desktop::EndProcess() {
  if (!ending_) {
    ending_ = true;
    queue_.clear();
    backend_.Quit();
  }
  if (IsHandling()) throw ProcessEnding{};
}

// --- boxes and pop-ups

// Runs a box or dialog of the platform, which serves events until the user has answered.
template <class Ask>
auto Desktop::AskInBox(const Ask& ask) {
  CheckEnding();
  if (!queue_.empty()) backend_.Wake();  // what was held back is served while the box is open
  const Pushed<Context> waiting(contexts_, Context::Wait);
  auto answer = [&] {
    const ScopedCount open(boxes_);
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

void Desktop::PopupMenu(MenuItem& menu) {
  CheckEnding();
  if (!queue_.empty()) backend_.Wake();
  const Pushed<Context> waiting(contexts_, Context::Wait);
  backend_.PopUp(menu);
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
  levels_.push_back({&window, 0});
}

void Desktop::LeaveModal() {
  levels_.pop_back();
}

}  // namespace quorvel

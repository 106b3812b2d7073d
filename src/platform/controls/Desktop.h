#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <typeindex>
#include <vector>

#include "platform/RuntimeError.h"
#include "platform/controls/Backend.h"
#include "platform/controls/Focus.h"

namespace quorvel {

// Where an event comes from. Receive: the network. User: keys and mouse. Program: the program
// itself.
enum class EventKind { Program, Receive, User };

// Thrown where something is waited for that will not come any more: the process ends, the window
// that waited is gone, or the link that it waited on. Ends the event quietly, at its edge.
struct QuietEnd {};

// The desktop that the program runs on: the queue of events, the windows, the keyboard, and the
// services of the backend. There is one in a process, reached by desktop().
//
// One thread. Every event runs inside Handle, the edge at which run-time failures end in a message
// box. A plain Yield inside a Receive event serves only what the program posted; a WaitWhile, a
// message box or a modal window inside it serves everything.
//
// Typing ahead: while an event holds input (a wait for the host), and until it is over, what the
// user does in windows that were open by then is kept; it is served in order afterwards, to
// whatever has the keyboard then. Windows and boxes that open meanwhile answer at once, and drop
// what was kept: nobody answers what he has not seen.
//
// What opened last answers first: of all boxes and modal windows that are open, the last one takes
// the input of the user, and no other window does.
class Desktop {
 public:
  explicit Desktop(Backend& backend);
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  // --- events
  void Post(EventKind kind, std::function<void()> event);
  // Runs `body` as one event, here and now, of a window if one is given. No exception leaves it.
  void Handle(EventKind kind, const std::function<void()>& body, Window* window = nullptr);
  // Inside an event, runs `body` as part of it; else as an event of its own.
  void RunWithin(const std::function<void()>& body);
  // Serves what is queued and returns.
  void Yield();
  // Serves events until the condition is false, and sleeps in between.
  void WaitWhile(const std::function<bool()>& condition);
  // Paints what has changed, and serves nothing else: no event of the program, user or host.
  void Paint();
  // For backends: runs queued events; those that must wait stay. False when there was none to run.
  bool ServeQueue();
  bool ServeOne();
  bool IsHandling() const { return !running_.empty(); }

  // --- typing ahead
  // From now to the end of the running event, input for windows that are open by now is kept.
  void HoldInput();
  // Nothing holds input any more, and what was kept is dropped: the far end is gone.
  void ReleaseInput();
  // For backends and users: something that the user does in a window. Done now, or kept.
  void TakeInput(Window& window, std::function<void()> act);
  // Whether events that are not done yet hold the input for this window; and whether what the user
  // does there now is to be kept: it is not served by itself, out of what was kept.
  bool HoldsInput(const Window& window) const;
  bool KeepsInput(const Window& window) const;
  void KeepInput(Window& window, std::function<void()> act);
  // While it is deferred, what was kept stays kept, and what comes behind it waits for its turn.
  void DeferKeptInput(bool deferred);
  bool HasKeptInput() const { return !kept_.empty(); }
  void DropKeptInput() { kept_.clear(); }
  // Whether what the running event serves was given by the user before this moment.
  bool WasGivenBefore(unsigned moment) const { return given_ != 0 && given_ < moment; }
  // Moments count on with whatever opens, waits and is given.
  unsigned NextMoment() { return ++moment_; }

  // --- whose waits these are
  // The window whose event is running, or whose part of it (see PartOf); nullptr for none.
  std::shared_ptr<Window> RunningWindow();
  // A new generation begins: what events of an older one still wait for will not come.
  void StartGeneration();
  unsigned Generation() const { return generation_; }
  // The same for the events on the stack below the running one alone: the user has turned away from
  // what they are about.
  void EndRunningBelow();
  // Whether the running event began in an older generation, or has been ended.
  bool IsRunningStale();

  // Ends the process with this status: every wait unwinds. Does not return while an event is being
  // handled.
  void EndProcess(int status = 0);
  bool IsEnding() const { return ending_; }

  // --- boxes and pop-ups
  // `title` empty: the application's title.
  MessageBoxAnswer MsgBox(const std::string& text, int style = MessageBoxStyle::kOkOnly,
                          const std::string& title = {});
  void PopupMenu(MenuItem& menu);
  void SetMousePointer(MousePointer pointer);
  MousePointer Pointer() const { return pointer_; }
  std::optional<std::string> ChooseFile(const FileDialog& dialog);
  std::optional<std::uint32_t> ChooseColour(std::uint32_t present);
  std::optional<Font> ChooseFont(const Font& present);
  // False when the user cancels.
  bool ChoosePrinter();
  // Whether a box or a modal window keeps the user from this window.
  bool IsBlocked(const Window& window) const;
  // Whether a box, not a window, takes the input of the user.
  bool IsBoxInFront() const;
  // For backends: the box in front has been answered and is gone from the screen. Its call may
  // return later, when what began above it on the stack is over.
  void BoxHasClosed();

  // --- windows
  Focus& focus() { return focus_; }
  Window* Main() const { return main_; }
  void SetMain(Window* window) { main_ = window; }
  // The window of this class, created when it is not there; not loaded yet.
  template <class F>
  std::shared_ptr<F> FormObject() {
    auto& slot = forms_[typeid(F)];
    if (!slot) slot = std::make_shared<F>();
    return std::static_pointer_cast<F>(slot);
  }
  template <class F>
  F* FindForm() const {
    const auto found = forms_.find(typeid(F));
    return found == forms_.end() ? nullptr : static_cast<F*>(found->second.get());
  }
  // After its unload the name stands for a fresh window.
  void Forget(Window& window);
  std::vector<Window*> LoadedWindows() const;

  Backend& backend() { return backend_; }

  // Used by Window::ShowModal: handlers inside it are outermost again.
  void EnterModal(const Window& window);
  void LeaveModal();
  // Throws QuietEnd when the process ends.
  void CheckEnding() const;

 private:
  friend class PartOf;
  enum class Context { Program, Receive, User, Yield, Wait };
  struct Queued {
    EventKind kind;
    std::function<void()> event;
  };
  // What is on the stack: an event that is being handled, or a place in it that serves others.
  struct Running {
    Context context;
    unsigned generation;
    std::weak_ptr<Window> window{};
    unsigned holdsSince = 0;  // the moment of its first wait for the host; 0: none
  };
  // Something the user did that has yet to be served.
  struct Kept {
    std::weak_ptr<Window> window;
    unsigned given;
    std::function<void()> act;
  };
  // A box, or a modal window, that is open.
  struct Above {
    const Window* window;  // nullptr: a box
    bool closed = false;   // a box that has been answered; what it was asked by goes on later
  };
  class Serving;

  // The handlers running above one modal window (at first: above none).
  struct Level {
    const Window* modal = nullptr;
    int running = 0;
  };

  bool InputHeld() const;
  int RunningReceives() const;
  bool MayRun(EventKind kind) const;
  void Settle();
  void ReportFailure(const RuntimeError& failure);
  template <class Ask>
  auto AskInBox(const Ask& ask);
  void Guard(const std::function<void()>& body);
  bool IsServing() const;
  bool ServeKept();
  bool KeptIsDue() const;
  Running* RunningEvent();
  const Above* InFront() const;

  Backend& backend_;
  std::deque<Queued> queue_;
  std::deque<Kept> kept_;
  std::vector<Running> running_;
  std::vector<Level> levels_{1};
  std::vector<Above> above_;  // in the order of opening
  unsigned moment_ = 0;
  bool keptDeferred_ = false;
  unsigned given_ = 0;  // when the user gave what is being served; 0: just now
  unsigned generation_ = 0;
  int painting_ = 0;
  bool ending_ = false;
  MousePointer pointer_ = MousePointer::Default;
  Focus focus_;
  Window* main_ = nullptr;
  std::map<std::type_index, std::shared_ptr<Window>> forms_;
};

// The desktop of the process. It must have been made.
Desktop& desktop();
bool HasDesktop();

// While this lives, what the running event does is this window's part of it.
class PartOf {
 public:
  explicit PartOf(Window& window);
  ~PartOf();
  PartOf(const PartOf&) = delete;
  PartOf& operator=(const PartOf&) = delete;

 private:
  std::size_t place_;
  std::weak_ptr<Window> before_;
};

// The window of this class, created and loaded (hidden) when it is not there. Who goes on with it
// behind something that serves events holds it by this.
template <class F>
std::shared_ptr<F> Form() {
  std::shared_ptr<F> form = desktop().FormObject<F>();
  form->Load();
  return form;
}

// The window of this class if it is loaded, else nullptr; never loads one.
template <class F>
F* LoadedForm() {
  F* form = desktop().FindForm<F>();
  return form && form->IsLoaded() ? form : nullptr;
}

}  // namespace quorvel

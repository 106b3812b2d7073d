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

// Thrown where code waits when the process ends; unwinds quietly to the edge of every event.
struct ProcessEnding {};

// The desktop that the program runs on: the queue of events, the windows, the keyboard, and the
// services of the backend. There is one in a process, reached by desktop().
//
// One thread. Every event runs inside Handle, the edge at which run-time failures end in a message
// box. A plain Yield inside a Receive event serves only what the program posted; a WaitWhile, a
// message box or a modal window inside it serves everything.
class Desktop {
 public:
  explicit Desktop(Backend& backend);
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  // --- events
  void Post(EventKind kind, std::function<void()> event);
  // Runs `body` as one event, here and now. No exception leaves it.
  void Handle(EventKind kind, const std::function<void()>& body);
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
  bool IsHandling() const { return !contexts_.empty(); }

  // Ends the process: every wait unwinds. Does not return while an event is being handled.
  void EndProcess();
  bool IsEnding() const { return ending_; }

  // --- boxes and pop-ups
  // `title` empty: the application's title.
  MessageBoxAnswer MsgBox(const std::string& text, int style = MessageBoxStyle::kOkOnly,
                          const std::string& title = {});
  void PopupMenu(MenuItem& menu);
  std::optional<std::string> ChooseFile(const FileDialog& dialog);
  std::optional<std::uint32_t> ChooseColour(std::uint32_t present);
  std::optional<Font> ChooseFont(const Font& present);
  // False when the user cancels.
  bool ChoosePrinter();
  bool IsBoxOpen() const { return boxes_ > 0; }

  // --- windows
  Focus& focus() { return focus_; }
  Window* Main() const { return main_; }
  void SetMain(Window* window) { main_ = window; }
  // The window of this class, created when it is not there; not loaded yet.
  template <class F>
  F& FormObject() {
    auto& slot = forms_[typeid(F)];
    if (!slot) slot = std::make_shared<F>();
    return static_cast<F&>(*slot);
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
  // Throws ProcessEnding when the process ends.
  void CheckEnding() const;

 private:
  enum class Context { Program, Receive, User, Wait };
  struct Queued {
    EventKind kind;
    std::function<void()> event;
  };

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

  Backend& backend_;
  std::deque<Queued> queue_;
  std::vector<Context> contexts_;
  std::vector<Level> levels_{1};
  int boxes_ = 0;
  int painting_ = 0;
  bool ending_ = false;
  Focus focus_;
  Window* main_ = nullptr;
  std::map<std::type_index, std::shared_ptr<Window>> forms_;
};

// The desktop of the process. It must have been made.
Desktop& desktop();
bool HasDesktop();

// The window of this class, created and loaded (hidden) when it is not there.
template <class F>
F& Form() {
  F& form = desktop().FormObject<F>();
  form.Load();
  return form;
}

// The window of this class if it is loaded, else nullptr; never loads one.
template <class F>
F* LoadedForm() {
  F* form = desktop().FindForm<F>();
  return form && form->IsLoaded() ? form : nullptr;
}

}  // namespace quorvel

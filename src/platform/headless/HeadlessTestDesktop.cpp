// The user of the headless desktop.

#include "platform/headless/BehaviourTestDesktop.h"
#include "platform/headless/HeadlessBackend.h"
#include "platform/headless/HeadlessUser.h"

namespace quorvel {
namespace {

// A headless desktop at whose door input can wait, as it does in the queue of a real one.
class BackendWithDoor : public HeadlessBackend {
 public:
  void ServeToolkit(Serve serve) override {
    if (serve != Serve::WithoutInput && ServeDoor()) return;
    HeadlessBackend::ServeToolkit(serve);
  }
  bool ServeDoor() {
    if (waiting.empty()) return false;
    const std::function<void()> input = std::move(waiting.front());
    waiting.pop_front();
    input();
    return true;
  }
  std::deque<std::function<void()>> waiting;
};

class HeadlessTestDesktop : public BehaviourTestDesktop {
 public:
  HeadlessTestDesktop() : desktop_(backend_) {
    backend_.onIdle = [this] { return backend_.ServeDoor() || ActInWait(); };
    backend_.onMessageBox = [this](const MessageBoxRequest& shown) {
      const BoxAnswer next = NextAnswer(shown);
      if (next.whileOpen) next.whileOpen();
      return next.answer;
    };
    backend_.onPopUp = [this](MenuItem&) {
      if (MenuItem* entry = TakePopUpChoice()) entry->UserClick();
    };
  }

  void Click(Control& control) override { user_.Click(control); }
  void DoubleClick(Control& control) override { user_.DoubleClick(control); }
  void Type(const std::string& text) override { user_.Type(text); }
  void Press(KeyCode key, int shift) override { user_.Press(key, shift); }
  void TypeAhead(const std::string& text) override {
    backend_.waiting.push_back([this, text] { user_.Type(text); });
  }
  void ClickMenu(MenuItem& entry) override { entry.UserClick(); }
  void CloseBox(Window& window) override { window.UserClose(); }
  void TurnTo(Window& window) override { window.UserActivate(); }
  void PickItem(ComboBox& box, int row) override {
    box.UserPress();
    if (box.HasFocus()) box.UserPick(row);
  }
  void PickRow(ListBox& list, int row) override { list.UserPick(row); }
  void PickRow(ListView& list, int row) override { list.UserPick(row); }
  void TurnTo(TabStrip& strip, int page) override { strip.UserTab(page); }

  void ClickInText(TextBox& box, int place) override {
    box.UserSelect(place, 0);
    box.UserPress();
    box.UserRelease();
  }
  void Size(Window& window, int width, int height) override { window.UserResize(width, height); }

  void ServeUntilIdle() override { backend_.RunUntilIdle(); }
  bool Stalled() const override { return backend_.stalled; }

 private:
  bool ActInWait() { return desktop_.IsHandling() && ActOnce(); }

  BackendWithDoor backend_;
  Desktop desktop_;
  HeadlessUser user_;
};

}  // namespace

std::unique_ptr<BehaviourTestDesktop> MakeTestDesktop() {
  return std::make_unique<HeadlessTestDesktop>();
}

}  // namespace quorvel

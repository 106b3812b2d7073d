#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/controls/Layout.h"
#include "platform/controls/Menu.h"

namespace quorvel {

// The toolkit's half of a window.
class WindowPeer {
 public:
  virtual ~WindowPeer() = default;
  // Makes the toolkit's half of a control that has been created in the window.
  virtual std::unique_ptr<ControlPeer> MakePeer(Control& control) = 0;
  // All controls that the window was declared with have their peers: time to lay them out, and to
  // adopt the size that results.
  virtual void Built() {}
  virtual void Update(Prop prop) = 0;
  // An entry of the window's menus has changed.
  virtual void UpdateMenu(MenuItem& item) = 0;
  virtual void Show(bool modal) = 0;
  virtual void Hide() = 0;
  // Puts it in front of the program's other windows.
  virtual void Raise() = 0;
  // Takes the keyboard away from every control of the window.
  virtual void ShowNoFocus() = 0;
};

// A window: the main window (an MDI shell), a child that fills the shell's client area, or a
// dialog above it. One class per window derives from this; its events are the virtual functions.
// Lengths are twips. A child's place is relative to the client area, others' to the screen.
//
// Life: created hidden and not loaded; Load makes the toolkit's half and raises Form_Load; Show,
// ShowModal and Hide; Unload asks Form_QueryUnload and Form_Unload, each of which may refuse.
class Window : public Container, public Observed, public std::enable_shared_from_this<Window> {
 public:
  enum class Kind { Main, Child, Dialog };

  ~Window() override;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  Window& window() override { return *this; }
  Kind kind() const { return kind_; }
  const std::string& Name() const { return name_; }

  Property<int> Left{*this, Prop::Left, 0};
  Property<int> Top{*this, Prop::Top, 0};
  Property<int> Width{*this, Prop::Width, 6000};
  Property<int> Height{*this, Prop::Height, 4000};
  Property<std::string> Caption{*this, Prop::Caption};
  Property<bool> Enabled{*this, Prop::Enabled, true};
  bool Resizable = false;  // dialogs only; set once, where the window is declared

  // Size of its inside. The main window's is the area for children: its inside less the menu bar
  // and less the panels aligned to its bottom that are visible.
  int ClientWidth() const;
  int ClientHeight() const;

  bool IsLoaded() const { return stage_ != Stage::Unloaded; }
  bool IsVisible() const { return visible_; }
  bool IsModal() const { return modal_; }
  // The moment (Desktop::NextMoment) at which it was last brought onto the screen; 0: never.
  unsigned OpenedAt() const { return openedAt_; }

  void Load();
  void Show();
  // Shows it above all others and serves events until it is hidden or unloaded.
  void ShowModal();
  void Hide();
  // True when the window is unloaded at the end.
  bool Unload();
  // Brings it to the front and gives it the keyboard; nothing if it is hidden or in front.
  void SetFocus();

  // The control that has the keyboard while the window is in front; nullptr for none.
  Control* ActiveControl() const { return active_; }
  // Whether the user can reach it: visible, enabled, no modal window or message box above it.
  bool TakesInput() const;

  const Layout& layout() const { return layout_; }
  // All its controls in order of creation, those of inner containers included.
  const std::vector<Control*>& Controls() const { return controls_; }
  const std::vector<MenuItem*>& MenuBar() const { return menuBar_; }
  // The control behind `control` in the tab order (ahead of it, going backward), wrapping; with
  // nullptr the first (last). nullptr when none can take the keyboard.
  Control* NextInTabOrder(const Control* control, bool backward = false) const;

  // What the user did.
  void UserClose();
  void UserActivate();
  void UserMove(int left, int top);
  void UserResize(int width, int height);
  // A key went down in the window. True when it is used up: the toolkit is not to act on it.
  bool UserKeyDown(KeyEvent key);
  // Whether Alt with this key (code of its upper-case letter) leads to a control of the window. It
  // goes before the same letter in the menu bar.
  bool HasMnemonic(int code) const { return FindMnemonic(code) != nullptr; }
  // A character is about to be typed into the active control. The character that is to be typed
  // instead; 0 when it is used up.
  int UserKeyPress(int code);

  // Runs `body` as one event of the user; the window lives until it has returned. While the
  // window's input is held, the body is kept until then.
  void AsUserEvent(const std::function<void()>& body);
  // The same for one of the ways out (closing, logging off), which are served at once.
  void AsUserEventAtOnce(const std::function<void()>& body);
  // A panel of the main window was shown, hidden or sized.
  void PanelChanged(const class Panel& panel);

  // The frame around the inside (title bar, menu bar, borders), as the backend measures it.
  void AdoptFrame(int horizontal, int vertical);
  int FrameWidth() const { return frameWidth_; }    // both sides
  int FrameHeight() const { return frameHeight_; }  // title, menu bar and the lower border
  WindowPeer* peer() const { return peer_.get(); }
  void PropertyChanged(Prop prop) override;

 protected:
  Window(Kind kind, std::string name);
  void SetLayout(Layout layout) { layout_ = std::move(layout); }

  virtual void Form_Load() {}
  virtual void Form_Resize() {}
  virtual void Form_Activate() {}
  virtual void Form_GotFocus() {}
  virtual void Form_QueryUnload(bool& /*cancel*/) {}
  virtual void Form_Unload(bool& /*cancel*/) {}
  virtual void Form_KeyDown(KeyEvent& /*key*/) {}

 private:
  friend class Control;
  friend class Focus;
  friend class MenuItem;
  enum class Stage { Unloaded, Loading, Loaded, Asking, Unloading };

  void AddControl(Control& control);
  void RemoveControl(Control& control);
  void ShiftTabIndex(Control& control);
  bool FinishUnload();
  void Close();
  void ResizeIfVisible();
  void UseKey(KeyEvent& key);
  Control* FindMnemonic(int code) const;
  bool PressMnemonic(int code);
  void TravelTo(Control* control);
  bool ClickButton(bool (*test)(const class Button&));

  const Kind kind_;
  const std::string name_;
  Stage stage_ = Stage::Unloaded;
  bool visible_ = false;
  bool modal_ = false;
  unsigned openedAt_ = 0;
  bool resized_ = false;  // Form_Resize has been raised once
  int frameWidth_ = 0;
  int frameHeight_ = 0;
  Layout layout_;
  std::vector<Control*> controls_;
  std::vector<MenuItem*> menuBar_;
  std::unique_ptr<WindowPeer> peer_;

  // Kept by Focus.
  Control* active_ = nullptr;
  Control* lost_ = nullptr;     // had the keyboard until it was disabled or hidden
  bool returns_ = false;        // a modal window above it is gone; GotFocus is due
  bool activationDue_ = false;  // came to the front by another window's going
};

}  // namespace quorvel

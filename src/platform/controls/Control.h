#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/CommonDialogs.h"
#include "platform/controls/Keys.h"
#include "platform/controls/Property.h"

namespace quorvel {

class Control;
class Label;
class Window;

// Anything that holds controls: a window, a frame, a panel, a tab strip.
class Container {
 public:
  virtual ~Container() = default;
  virtual Window& window() = 0;
  const Window& window() const { return const_cast<Container*>(this)->window(); }
  // The control that this container is; nullptr for a window.
  virtual Control* AsControl() { return nullptr; }
  const std::vector<Control*>& Children() const { return children_; }

 private:
  friend class Control;
  std::vector<Control*> children_;
};

// The toolkit's half of a control. The control owns it; it mirrors changes into the toolkit.
class ControlPeer {
 public:
  virtual ~ControlPeer() = default;
  virtual void Update(Prop prop) = 0;
  // Shows the keyboard focus here. Not to be reported back.
  virtual void ShowFocus() = 0;
};

enum class ControlKind {
  Label,
  TextBox,
  ComboBox,
  ListBox,
  ListView,
  ReportView,
  Button,
  CheckBox,
  OptionButton,
  Frame,
  Panel,
  PictureBox,
  ImageBox,
  TabStrip,
  Elastic,
  Terminal,
};

// How a label or box stands among others. On the grid, rows lie closer than boxes are high: what
// is drawn keeps inside its row.
struct Look {
  bool onGrid = false;
  bool required = false;     // to be marked while it is empty
  bool displayOnly = false;  // shows, and never takes, a value
  bool operator==(const Look&) const = default;
};

// Numbers of the mouse buttons.
enum class MouseButton : int { Left = 1, Right = 2 };

// A control of a window: a plain object that holds its own state and works with no toolkit behind
// it. Lengths are twips (1/1440 inch; 15 to a pixel at 96 dpi), places are relative to the parent.
class Control : public Container, public Observed {
 public:
  using Event = std::function<void()>;

  ~Control() override;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Window& window() override { return window_; }
  Control* AsControl() override { return this; }
  Container& parent() { return parent_; }
  virtual ControlKind kind() const = 0;
  // Whether controls of this kind take the keyboard at all.
  virtual bool TakesFocus() const { return true; }

  const std::string& Name() const { return name_; }
  int Index() const { return index_; }  // -1 outside a control array
  std::string CodeName() const;         // "txtEntry(5)", "cmdOK"
  // The text of the label that stands for it, else its own caption, AccessibleText or tip, made
  // unique in its window; never empty.
  std::string AccessibleName() const;

  Property<int> Left{*this, Prop::Left};
  Property<int> Top{*this, Prop::Top};
  Property<int> Width{*this, Prop::Width};
  Property<int> Height{*this, Prop::Height};
  Property<bool> Visible{*this, Prop::Visible, true};
  Property<bool> Enabled{*this, Prop::Enabled, true};
  Property<bool> TabStop{*this, Prop::TabStop, true};
  // Place in the window's tab order, from 0. Setting it shifts the others.
  Property<int> TabIndex{*this, Prop::TabIndex, 0};
  Property<std::string> Caption{*this, Prop::Caption};
  Property<std::string> ToolTipText{*this, Prop::ToolTipText};
  // Stands in for the caption in AccessibleName, where a control shows none.
  Property<std::string> AccessibleText{*this, Prop::AccessibleText};
  Property<quorvel::Font> Font{*this, Prop::Font};
  Property<int> BackColor{*this, Prop::BackColor, -1};  // blue in the high byte; -1: the desktop's
  Property<int> ForeColor{*this, Prop::ForeColor, -1};
  Property<quorvel::Look> Look{*this, Prop::Look};
  // The page of the tab strip it lies on, if its parent is one.
  Property<int> Page{*this, Prop::Page, 0};
  // Whether a click gives it the keyboard. Off for buttons that work like a tool bar's.
  bool FocusOnClick = true;
  // Whether a click is served at once where others are kept for the end of a wait: a way out.
  bool IsWayOut = false;

  Event GotFocus;
  Event LostFocus;
  Event Click;
  Event DblClick;
  std::function<void(KeyEvent&)> KeyDown;
  // A mouse button went down on it, after the click has given it the keyboard. With a handler the
  // toolkit's own menu does not appear; the menu key of the keyboard counts as the right button.
  std::function<void(MouseButton)> MouseDown;
  // The button that went down on it has been released, wherever the pointer is now.
  std::function<void(MouseButton)> MouseUp;
  // A character is about to be typed; a handler that sets the code to 0 swallows it.
  std::function<void(int& code)> KeyPress;

  void Move(int left, int top, int width, int height);
  // Gives it the keyboard; see Focus.h. Nothing on a control that can't take it.
  void SetFocus();
  bool HasFocus() const;
  // Visible and enabled, with all that it lies on, and on the current page of its tab strip.
  bool Reachable() const;

  // What the user did, told by a peer (or a test). Each is one event; ignored while the window
  // takes no input.
  void UserFocus();
  // The same by a press of the mouse that has placed caret and selection already: entering it
  // leaves them.
  void UserPress();
  virtual void UserClick();
  // The end of a click whose press has given it the keyboard already.
  void UserRelease();
  void UserDblClick();
  void UserMouseDown(MouseButton button);
  void UserMouseUp(MouseButton button);

  void PropertyChanged(Prop prop) override;

  void SetPeer(std::unique_ptr<ControlPeer> peer) { peer_ = std::move(peer); }
  ControlPeer* peer() const { return peer_.get(); }

 protected:
  Control(Container& parent, std::string name, int index = -1);
  // To be called at the end of the constructor of every concrete kind.
  void Created();
  // True once, while a press of the mouse that has placed the selection gives it the keyboard.
  bool TakePressed() { return std::exchange(pressed_, false); }
  // Calls `event`, if anybody listens, as part of what is being handled or as an event of its own.
  void Raise(const Event& event);
  void TellPeer(Prop prop);

 private:
  friend class Focus;
  friend class Label;
  std::string BareAccessibleName() const;

  Container& parent_;
  Window& window_;
  const std::string name_;
  const int index_;
  Label* label_ = nullptr;  // the label that stands for it
  bool pressed_ = false;
  std::unique_ptr<ControlPeer> peer_;
};

// A label's or button's text without the "&" that marks its mnemonic ("&&" is one "&").
std::string WithoutMnemonic(const std::string& caption);

// The upper-case letter behind the "&" of a caption; 0 if there is none.
int MnemonicOf(const std::string& caption);

}  // namespace quorvel

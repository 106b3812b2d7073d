#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/vt/Emulator.h"

namespace quorvel {

// The terminal: an emulation with its settings, selection and keys, as the form code sees it. A
// peer paints emulation().screen() and reports keys.
class Terminal : public Control {
 public:
  Terminal(Container& parent, std::string name, int index = -1);
  ~Terminal() override;
  ControlKind kind() const override { return ControlKind::Terminal; }

  // --- settings; the host changes size, keypad and cursor keys too, and then they tell that
  Property<int> TermType{*this, Prop::TermType, 4};   // index of vt::TerminalType
  Property<int> Columns{*this, Prop::ScreenSize, 0};  // 0: 80, 1: 132
  Property<int> Rows{*this, Prop::ScreenSize, 24};
  Property<int> BufferRows{*this, Prop::BufferRows, 500};  // of scroll-back
  Property<int> KeyPad{*this, Prop::KeyPad, 0};            // 0 numeric, 1 application
  Property<int> CursorKeys{*this, Prop::CursorKeys, 0};    // 0 normal, 1 application
  Property<int> BoldColor{*this, Prop::ForeColor, 0xFFFF00};
  Property<bool> PassThrough{*this, Prop::PassThrough, true};
  // True while a session is up; the peer shows a resting cursor otherwise.
  Property<bool> SessionUp{*this, Prop::Cursor, false};
  // Whether new output leaves a view of the scroll-back where it is.
  Property<bool> KeepScrolledView{*this, Prop::KeepScrolledView, true};

  // --- output
  void Write(std::string_view bytes);
  // Prints what the terminal shows, and returns the path of the file where there is no printer;
  // RuntimeError 482 when it can't be printed.
  std::string PrintScreen();
  std::vector<std::string> ScreenLines() const;

  // --- selection: lines joined by CR LF, and the part of them that is selected
  struct Selection {
    int start = 0;   // one-based position in text
    int length = 0;  // 0: nothing is selected
    std::string text;
    bool operator==(const Selection&) const = default;
  };
  const Selection& selection() const { return selection_; }

  // --- events
  std::function<void(const std::string&)> KeyboardData;  // text of a key that is to go out
  std::function<void(const std::string&)> Answer;        // what the terminal itself answers
  std::function<void(const std::string&)> Paste;         // text dropped in by the pointer alone
  Event SelectionChange;

  // --- what the user did
  void UserText(const std::string& bytes);
  void UserKey(vt::Key key, vt::Modifiers modifiers);
  void UserPaste(const std::string& bytes);
  void UserSelect(Selection selection);

  vt::Emulator& emulation() { return emulation_; }
  const vt::Emulator& emulation() const { return emulation_; }
  void PropertyChanged(Prop prop) override;

 private:
  void Apply(Prop mode);
  void AdoptModes();
  void PrintCollected();

  vt::Emulator emulation_;
  Selection selection_;
  // Media copy of one Write: printed after it, so that a printer's failure can't cut the output.
  std::string toPrint_;
  bool endPrint_ = false;
  bool printFailureTold_ = false;  // of what is being printed
};

}  // namespace quorvel

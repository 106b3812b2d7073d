#include "platform/headless/HeadlessUser.h"

#include <cctype>

#include "platform/controls/Desktop.h"
#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TerminalControl.h"
#include "platform/controls/TextBox.h"

namespace quorvel {
namespace {

void MoveInList(ListView& list, int by) {
  const int count = static_cast<int>(list.Items().size());
  if (count == 0) return;
  const int from = list.SelectedIndex() < 0 ? (by > 0 ? 0 : count + 1) : list.SelectedIndex();
  list.UserPick(std::clamp(from + by, 1, count));
}

// The text without what is selected, which a key is about to replace.
std::string TakeSelected(TextBox& box) {
  std::string text = box.Text();
  text.erase(static_cast<std::size_t>(box.SelStart()), static_cast<std::size_t>(box.SelLength()));
  box.UserSelect(box.SelStart(), 0);
  return text;
}

void EraseBefore(TextBox& box) {
  const bool selected = box.SelLength() > 0;
  std::string text = TakeSelected(box);
  if (!selected && !text.empty()) text.pop_back();
  box.UserEdit(text);
}

void InsertInto(TextBox& box, char c) {
  box.UserEdit(TakeSelected(box) + c);
}

}  // namespace

// Now, or kept for the end of a wait.
void HeadlessUser::Do(Control& control, const std::function<void(Control&)>& act) {
  if (control.IsWayOut) return act(control);
  desktop().TakeInput(control.window(),
                      [act, &control, window = control.window().weak_from_this()] {
                        const auto alive = window.lock();
                        if (alive && alive->IsLoaded()) act(control);
                      });
}

void HeadlessUser::Click(Control& control) {
  Do(control, [](Control& meant) { meant.UserClick(); });
}

void HeadlessUser::DoubleClick(Control& control) {
  Do(control, [](Control& meant) { meant.UserDblClick(); });
}

void HeadlessUser::RightClick(Control& control) {
  Do(control, [](Control& meant) { meant.UserMouseDown(MouseButton::Right); });
}

void HeadlessUser::Type(const std::string& text) {
  for (const char c : text) {
    if (Window* front = desktop().focus().Front())
      desktop().TakeInput(*front, [this, c] { TypeOne(c); });
  }
}

bool HeadlessUser::KeyDown(KeyEvent key) {
  Window* front = desktop().focus().Front();
  return front && !front->UserKeyDown(key);
}

void HeadlessUser::Drag(ListBox& list, int from, int to) {
  list.UserPick(from);
  list.UserMouseDown(MouseButton::Left);
  list.UserPick(to);
  list.UserMouseUp(MouseButton::Left);
}

void HeadlessUser::TypeOne(char c) {
  const auto byte = static_cast<unsigned char>(c);
  if (!KeyDown({std::toupper(byte), kNoShift})) return;
  Window& front = *desktop().focus().Front();
  const int code = front.UserKeyPress(byte);
  Control* target = desktop().focus().KeyTarget();
  if (code == 0 || !target) return;
  const char typed = static_cast<char>(code);
  switch (target->kind()) {
    case ControlKind::TextBox:
      if (code >= 32) InsertInto(static_cast<TextBox&>(*target), typed);
      break;
    case ControlKind::ComboBox: {
      auto& combo = static_cast<ComboBox&>(*target);
      if (code >= 32) combo.UserEdit(combo.Text() + typed);
      break;
    }
    case ControlKind::Terminal:
      static_cast<Terminal&>(*target).UserText(std::string(1, typed));
      break;
    case ControlKind::Button:
    case ControlKind::CheckBox:
      if (typed == ' ') target->UserClick();
      break;
    default:
      break;
  }
}

void HeadlessUser::Press(KeyCode key, int shift) {
  Window* front = desktop().focus().Front();
  if (!front) return;
  desktop().TakeInput(*front, [this, key, shift] {
    if (key == KeyCode::Return && shift == kNoShift) return TypeOne('\r');
    PressOne(key, shift);
  });
}

void HeadlessUser::PressOne(KeyCode key, int shift) {
  if (!KeyDown({static_cast<int>(key), shift})) return;
  Control* target = desktop().focus().KeyTarget();
  if (!target) return;
  if (target->kind() == ControlKind::ListView) {
    if (key == KeyCode::Down) MoveInList(static_cast<ListView&>(*target), 1);
    if (key == KeyCode::Up) MoveInList(static_cast<ListView&>(*target), -1);
  } else if (target->kind() == ControlKind::TextBox && key == KeyCode::Backspace) {
    EraseBefore(static_cast<TextBox&>(*target));
  }
}

}  // namespace quorvel

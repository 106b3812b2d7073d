#include "app/sim/HeadlessHands.h"

#include <algorithm>

#include "platform/controls/Desktop.h"

namespace quorvel::sim {

// Now, or kept for the end of a wait.
void HeadlessHands::In(Window& window, std::function<void()> act) {
  desktop().TakeInput(window, [act = std::move(act), meant = window.weak_from_this()] {
    const auto alive = meant.lock();
    if (alive && alive->IsLoaded()) act();
  });
}

// Nobody types on in the next session what he has begun in this one.
void HeadlessHands::Type(const std::string& text) {
  const unsigned session = desktop().Generation();
  for (const char c : text) {
    if (desktop().Generation() == session) user_.Type(std::string(1, c));
  }
}

void HeadlessHands::PickRow(Control& list, int row) {
  In(list.window(), [&list, row] {
    if (list.kind() == ControlKind::ListBox) static_cast<ListBox&>(list).UserPick(row);
    if (list.kind() == ControlKind::ComboBox) static_cast<ComboBox&>(list).UserPick(row);
    if (list.kind() == ControlKind::ListView) static_cast<ListView&>(list).UserPick(row + 1);
  });
}

void HeadlessHands::TurnToPage(TabStrip& strip, int page) {
  In(strip.window(), [&strip, page] { strip.UserTab(page); });
}

// A menu that has popped up takes the input until it closes, or until a box opens above it.
HeadlessBox* HeadlessHands::Front() const {
  if (backend_.openBoxes.empty()) return nullptr;
  HeadlessBox* last = backend_.openBoxes.back();
  return last->kind == HeadlessBox::Kind::PopUp ? last : backend_.BoxInFront();
}

std::optional<OpenBox> HeadlessHands::BoxInFront() {
  const HeadlessBox* box = Front();
  if (!box || box->answered) return std::nullopt;
  OpenBox seen;
  seen.title = box->message.title;
  seen.text = box->message.text;
  seen.menu = box->menu;
  switch (box->kind) {
    case HeadlessBox::Kind::Message:
      seen.asks = (box->message.style & MessageBoxStyle::kButtonMask) != MessageBoxStyle::kOkOnly;
      break;
    case HeadlessBox::Kind::File:
      seen.kind = OpenBox::Kind::File;
      seen.saves = backend_.fileDialogs.back().purpose == FileDialog::Purpose::Save;
      break;
    case HeadlessBox::Kind::PopUp:
      seen.kind = OpenBox::Kind::PopUp;
      break;
    default:
      seen.kind = OpenBox::Kind::Other;
      break;
  }
  return seen;
}

void HeadlessHands::AnswerBox(const BoxReply& reply) {
  HeadlessBox* box = Front();
  if (!box || box->answered) return;
  const bool asks = (box->message.style & MessageBoxStyle::kButtonMask) != MessageBoxStyle::kOkOnly;
  box->Close();
  if (asks) {
    box->answer = reply.yes ? MessageBoxAnswer::Yes : MessageBoxAnswer::No;
  }
  if (!reply.file.empty()) box->file = reply.file;
  box->printer = reply.yes;
  if (reply.yes) box->font = Font{"Courier New", 11};
  if (reply.yes) box->colour = 0x404040U;
  if (box->kind == HeadlessBox::Kind::PopUp && reply.entry) reply.entry->UserClick();
}

}  // namespace quorvel::sim

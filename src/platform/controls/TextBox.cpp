#include "platform/controls/TextBox.h"

#include "platform/controls/Desktop.h"

namespace quorvel {

TextBox::TextBox(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

void TextBox::SelectAll() {
  if (TakePressed()) return;  // the user has pointed at a place in it
  SelStart = 0;
  SelLength = static_cast<int>(Text().size());
}

void TextBox::Insert(const std::string& text) {
  const std::string& old = Text();
  const auto start = static_cast<std::size_t>(SelStart());
  const auto length = static_cast<std::size_t>(SelLength());
  std::string piece = text;
  if (MaxLength() > 0) {
    const std::size_t kept = old.size() - length;
    const auto limit = static_cast<std::size_t>(MaxLength());
    piece.resize(std::min(piece.size(), limit > kept ? limit - kept : 0));
  }
  const std::string changed = old.substr(0, start) + piece + old.substr(start + length);
  const int caret = static_cast<int>(start + piece.size());
  Text = changed;
  SelStart = caret;
  SelLength = 0;
}

void TextBox::UserEdit(std::string text) {
  if (!window().TakesInput() || !Reachable() || Locked()) {
    TellPeer(Prop::Text);
    return;
  }
  const auto limit = static_cast<std::size_t>(MaxLength());
  if (MaxLength() > 0 && text.size() > limit && text.size() > Text().size()) {
    text.resize(std::max(limit, Text().size()));
    if (Text().size() > limit) text = Text();  // set by the program; typing can only shorten it
  }
  if (text == Text()) {
    TellPeer(Prop::Text);
    return;
  }
  Text.Adopt(std::move(text));
  TellPeer(Prop::Text);
  window().AsUserEvent([this] { Raise(Change); });
}

void TextBox::UserSelect(int start, int length) {
  SelStart.Adopt(start);
  SelLength.Adopt(length);
  KeepSelectionInside();
}

void TextBox::PropertyChanged(Prop prop) {
  if (prop == Prop::Text) {
    SelStart.Adopt(0);
    SelLength.Adopt(0);
  }
  if (prop == Prop::SelStart || prop == Prop::SelLength) KeepSelectionInside();
  Control::PropertyChanged(prop);
  if (prop == Prop::Text) Raise(Change);
}

void TextBox::KeepSelectionInside() {
  const int size = static_cast<int>(Text().size());
  const int start = std::clamp(SelStart(), 0, size);
  SelStart.Adopt(start);
  SelLength.Adopt(std::clamp(SelLength(), 0, size - start));
}

}  // namespace quorvel

#include "platform/controls/ReportView.h"

#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

ReportView::ReportView(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

// The peer goes first: its widget looks at the lines once more when it loses the keyboard.
ReportView::~ReportView() {
  SetPeer(nullptr);
}

void ReportView::Clear() {
  lines_.Clear();
  current_ = anchor_ = 0;
  Marked = Mark{};
  Changed();
}

void ReportView::PaintNow() {
  Changed();
  desktop().Paint();
}

bool ReportView::IsSelected(std::size_t line) const {
  return line >= std::min(anchor_, current_) && line <= std::max(anchor_, current_);
}

void ReportView::MoveTo(std::size_t line, bool extend) {
  if (lines_.Count() == 0) return;
  current_ = std::min(line, lines_.Count() - 1);
  if (!extend) anchor_ = current_;
  TellPeer(Prop::ListIndex);
}

std::string ReportView::SelectedText(std::string_view lineEnd) const {
  std::string text;
  if (lines_.Count() == 0) return text;
  for (std::size_t i = std::min(anchor_, current_); i <= std::max(anchor_, current_); ++i) {
    text.append(lines_.At(i)).append(lineEnd);
    if (text.size() > kMostCopied) throw RuntimeError(Failure::OutOfMemory);
  }
  return text;
}

void ReportView::UserMoveTo(std::size_t line, bool extend) {
  window().AsUserEvent([this, line, extend] {
    MoveTo(line, extend);
    Raise(Click);
  });
}

void ReportView::UserSelectAll() {
  window().AsUserEvent([this] {
    if (lines_.Count() == 0) return;
    anchor_ = 0;
    current_ = lines_.Count() - 1;
    TellPeer(Prop::Value);
    Raise(Click);
  });
}

}  // namespace quorvel

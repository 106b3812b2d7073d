#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/controls/Control.h"
#include "platform/controls/ReportLines.h"

namespace quorvel {

// A list in report view for very many lines, which can't be edited: one column without a heading,
// as wide as the longest line. Whole lines are selected. Lines count from 0.
class ReportView : public Control {
 public:
  ReportView(Container& parent, std::string name, int index = -1);
  ~ReportView() override;
  ControlKind kind() const override { return ControlKind::ReportView; }

  // --- the lines
  const ReportLines& Lines() const { return lines_; }
  // To fill it: what is changed there is shown after Changed.
  ReportLines& Fill() { return lines_; }
  void Changed() { TellPeer(Prop::Items); }
  void Clear();
  // Paints what there is now, without serving any event of the program, the user or the host.
  void PaintNow();

  // --- the selection: the line the keyboard is on, and where the selection began
  std::size_t Current() const { return current_; }
  std::size_t Anchor() const { return anchor_; }
  bool IsSelected(std::size_t line) const;
  // Moves to a line (the last one if there are fewer) and brings it into view; with `extend` the
  // selection reaches from its beginning to there.
  void MoveTo(std::size_t line, bool extend = false);
  // The selected lines, each ended by `lineEnd`. RuntimeError 7 beyond kMostCopied characters.
  std::string SelectedText(std::string_view lineEnd) const;
  static constexpr std::size_t kMostCopied = std::size_t{1} << 25;

  // --- what is marked
  struct Mark {
    std::size_t line = 0;
    std::size_t column = 0;
    std::size_t length = 0;  // 0: nothing
    bool operator==(const Mark&) const = default;
  };
  // One place that stands out, brought into view.
  Property<Mark> Marked{*this, Prop::Selection};
  // Every place of this text is tinted, letters of either case; empty for none.
  Property<std::string> Tinted{*this, Prop::Text};
  // Whether the first line stays above the others when they scroll.
  Property<bool> FirstLineStays{*this, Prop::Value, false};

  // --- what the user did
  void UserMoveTo(std::size_t line, bool extend);
  void UserSelectAll();

 private:
  ReportLines lines_;
  std::size_t current_ = 0;
  std::size_t anchor_ = 0;
};

}  // namespace quorvel

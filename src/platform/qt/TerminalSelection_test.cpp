#include "platform/qt/TerminalSelection.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Unit = TerminalSelection::Unit;

class TerminalSelectionTest : public ::testing::Test {
 protected:
  TerminalSelectionTest() : emulator(8, 3) { emulator.Feed("abcdef\r\nghijkl\r\nmnopqr"); }

  vt::Emulator emulator;
  TerminalSelection selection{emulator};
};

// Start and length index the text, one-based.
std::string SelectedOf(const Terminal::Selection& report) {
  return report.text.substr(static_cast<std::size_t>(report.start - 1),
                            static_cast<std::size_t>(report.length));
}

TEST_F(TerminalSelectionTest, RunsInReadingOrder) {
  selection.Begin({2, 2}, Unit::Character);
  EXPECT_TRUE(selection.IsEmpty());
  selection.Extend({0, 4});  // upwards
  EXPECT_EQ(SelectedOf(selection.Report()), "ef  \r\nghijkl  \r\nmn");
  EXPECT_TRUE(selection.Contains(1, 7));
  EXPECT_FALSE(selection.Contains(2, 2));
}

TEST_F(TerminalSelectionTest, RectangleTakesTheSameColumnsOfEachRow) {
  for (const auto& [from, to] :
       {std::pair(TerminalSelection::Place{0, 1}, TerminalSelection::Place{2, 3}),
        std::pair(TerminalSelection::Place{2, 1}, TerminalSelection::Place{0, 3}),
        std::pair(TerminalSelection::Place{0, 3}, TerminalSelection::Place{2, 1})}) {
    selection.Begin(from, Unit::Rectangle);
    EXPECT_TRUE(selection.IsEmpty());
    selection.Extend(to);
    EXPECT_EQ(SelectedOf(selection.Report()), "bc\r\nhi\r\nno");
    EXPECT_TRUE(selection.Contains(1, 1));
    EXPECT_FALSE(selection.Contains(1, 0));
    EXPECT_FALSE(selection.Contains(1, 3));
    EXPECT_TRUE(selection.StillShown());
  }
  selection.Extend({2, 3});  // no wider than a line between columns
  EXPECT_TRUE(selection.IsEmpty());
  EXPECT_EQ(selection.Report().length, 0);
}

TEST_F(TerminalSelectionTest, FollowsTheScrollBack) {
  emulator.SetScrollbackRows(2);
  selection.Begin({0, 0}, Unit::Rectangle);
  selection.Extend({1, 2});
  EXPECT_EQ(SelectedOf(selection.Report()), "ab\r\ngh");
  emulator.Feed("\r\nnew");
  EXPECT_TRUE(selection.StillShown()) << "the lines are in the scroll-back under the same index";
  emulator.Feed("\r\n\r\n");
  selection.LinesDropped(static_cast<int>(emulator.TakeDirty().dropped));
  EXPECT_TRUE(selection.IsEmpty()) << "its first line is gone";
}

}  // namespace
}  // namespace quorvel

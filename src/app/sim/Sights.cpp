#include "app/sim/Sights.h"

#include <algorithm>

#include "platform/controls/Desktop.h"
#include "platform/controls/FolderLists.h"
#include "platform/controls/Lists.h"

namespace quorvel::sim {
namespace {

// As the sample host's menu names its long reports.
bool IsLongReport(const std::string& row) {
  return row.find(",000 Lines") != std::string::npos;
}

void AddEntries(const std::vector<MenuItem*>& items, std::vector<MenuItem*>& entries) {
  for (MenuItem* item : items) {
    if (!item->Enabled() || !item->Visible() || item->PopUpOnly) continue;
    if (item->Click && !item->IsSeparator()) entries.push_back(item);
    AddEntries(item->Items(), entries);
  }
}

}  // namespace

std::vector<Window*> VisibleWindows() {
  std::vector<Window*> windows = desktop().LoadedWindows();
  std::erase_if(windows, [](const Window* window) { return !window->IsVisible(); });
  std::sort(windows.begin(), windows.end(),
            [](const Window* a, const Window* b) { return a->Name() < b->Name(); });
  return windows;
}

std::vector<Control*> ReachableOf(Window& window, ControlKind kind) {
  std::vector<Control*> controls = ReachableOf(window);
  std::erase_if(controls, [kind](const Control* control) { return control->kind() != kind; });
  return controls;
}

std::vector<Control*> ReachableOf(Window& window) {
  std::vector<Control*> controls = window.Controls();
  std::erase_if(controls, [](const Control* control) { return !control->Reachable(); });
  return controls;
}

std::vector<int> RowsOf(Control& list) {
  std::vector<int> rows;
  const auto add = [&rows](int row, const std::string& text) {
    if (!IsLongReport(text)) rows.push_back(row);
  };
  if (dynamic_cast<DirectoryListBox*>(&list) || dynamic_cast<DriveListBox*>(&list)) return rows;
  if (list.kind() == ControlKind::ListView) {
    int row = 0;
    for (const ListView::Item& item : static_cast<ListView&>(list).Items()) add(row++, item.text);
  } else if (list.kind() == ControlKind::ListBox || list.kind() == ControlKind::ComboBox) {
    const ListRows& all = list.kind() == ControlKind::ListBox ? static_cast<ListBox&>(list).List
                                                              : static_cast<ComboBox&>(list).List;
    for (int row = 0; row < all.Count(); ++row) add(row, all.At(row));
  }
  return rows;
}

std::vector<MenuItem*> EntriesOf(Window& window) {
  std::vector<MenuItem*> entries;
  AddEntries(window.MenuBar(), entries);
  return entries;
}

std::string LastLineOf(const Terminal& terminal) {
  const std::vector<std::string> lines = terminal.ScreenLines();
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    const auto end = line->find_last_not_of(' ');
    if (end != std::string::npos) return line->substr(0, end + 1);
  }
  return {};
}

}  // namespace quorvel::sim

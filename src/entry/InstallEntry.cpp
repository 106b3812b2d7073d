#include "entry/InstallEntry.h"

#include "entry/frmEntry.h"
#include "entry/frmList.h"
#include "link/HandOvers.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// Does something with the screen, if it is there.
template <class Action>
void WithScreen(const Action& action) {
  if (frmEntry* screen = LoadedForm<frmEntry>()) {
    const auto keep = screen->shared_from_this();
    action(*screen);
  }
}

void UnloadEntryScreen() {
  WithScreen([](frmEntry& screen) { screen.Unload(); });
}

void ShowEntryScreen() {
  // One whose building failed does not count as loaded, yet its window is in the way.
  if (Session().ScreenLoaded == kFalse) UnloadEntryScreen();
  frmEntry& screen = desktop().FormObject<frmEntry>();
  const auto keep = screen.shared_from_this();
  // One with a record open has refused to make way: it goes on.
  if (screen.IsLoaded()) {
    screen.Resume();
    desktop().backend().SetMousePointer(MousePointer::Default);
  }
  screen.Show();
}

void ShowList() {
  frmList& list = desktop().FormObject<frmList>();
  const auto keep = list.shared_from_this();
  try {
    list.ShowModal();
  } catch (const RuntimeError&) {
    list.Unload();  // not loaded whole: the host is answered all the same
    throw;
  }
}

}  // namespace

void InstallEntry() {
  HandOvers& ask = Ask();
  ask.ShowList = ShowList;
  ask.ShowEntryScreen = ShowEntryScreen;
  ask.UnloadEntryScreen = UnloadEntryScreen;
  ask.EntryWindow = []() -> Window* { return LoadedForm<frmEntry>(); };
  ask.ApplyScreenMode = [](const std::string& mode) {
    WithScreen([&](frmEntry& screen) { screen.ApplyScreenMode(mode); });
  };
  ask.SelectComboItem = [](int number, const std::string& text) {
    WithScreen([&](frmEntry& screen) { screen.SelectItem(number, text); });
  };
  ask.SetFieldText = [](int number, const std::string& text) {
    WithScreen([&](frmEntry& screen) { screen.ShowText(number, text); });
  };
  ask.FocusField = [](int number) {
    // Without the field, nobody is to take the answer later.
    if (!LoadedForm<frmEntry>()) Session().PendingOp.clear();
    WithScreen([&](frmEntry& screen) { screen.TakeListAnswer(number); });
  };
}

}  // namespace quorvel

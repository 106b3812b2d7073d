#include "entry/InstallEntry.h"

#include "entry/frmEntry.h"
#include "entry/frmList.h"
#include "entry/frmLocate.h"
#include "link/HandOvers.h"
#include "link/HostWait.h"
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
  const auto screen = desktop().FormObject<frmEntry>();
  // One with a record open has refused to make way: it goes on.
  if (screen->IsLoaded()) {
    screen->Resume();
    desktop().SetMousePointer(MousePointer::Default);
  }
  screen->Show();
}

bool KeepsOpenRecord() {
  const auto screen = LoadedForm<frmEntry>();
  if (!screen || (!screen->HasOpenRecord() && !screen->IsOpeningRecord())) return false;
  screen->SetFocus();
  desktop().MsgBox("The record on the open screen is to be saved or cancelled first.",
                   MessageBoxStyle::kExclamation);
  return true;
}

void ShowList() {
  const auto list = desktop().FormObject<frmList>();
  try {
    list->ShowModal();
  } catch (const RuntimeError&) {
    list->Unload();  // not loaded whole: the host is answered all the same
    throw;
  }
}

void DropEntryWindows() {
  if (frmList* list = LoadedForm<frmList>()) list->Unload();
  if (frmLocate* locator = LoadedForm<frmLocate>()) locator->Unload();
  UnloadEntryScreen();
}

}  // namespace

void InstallEntry() {
  HandOvers& ask = Ask();
  ask.ShowList = ShowList;
  ask.ShowEntryScreen = ShowEntryScreen;
  ask.UnloadEntryScreen = UnloadEntryScreen;
  ask.FreeEntryScreen = [] { WithScreen([](frmEntry& screen) { screen.Free(); }); };
  ask.DropEntryWindows = DropEntryWindows;
  ask.KeepsOpenRecord = KeepsOpenRecord;
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
    if (!LoadedForm<frmEntry>()) ResumeAwaiting();
    WithScreen([&](frmEntry& screen) { screen.TakeListAnswer(number); });
  };
}

}  // namespace quorvel

#include "menus/InstallMenus.h"

#include "link/HandOvers.h"
#include "menus/frmAbout.h"
#include "menus/frmBookMark.h"
#include "menus/frmHelpText.h"
#include "menus/frmSubMenu.h"
#include "menus/mdiMain.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

void InstallMenus() {
  HandOvers& ask = Ask();
  ask.ShowMainWindow = [] {
    const auto main = desktop().FormObject<mdiMain>();
    desktop().SetMain(main.get());
    main->Show();
  };
  ask.MainWindow = []() -> Window* { return LoadedForm<mdiMain>(); };
  ask.ButtonPanel = []() -> Panel* {
    mdiMain* main = LoadedForm<mdiMain>();
    return main ? &main->pnlButtons : nullptr;
  };
  ask.ShowButtonPanel = [] {
    if (mdiMain* main = LoadedForm<mdiMain>()) main->ShowButtonPanel();
  };
  ask.SetButtonCaption = [](int index, const std::string& caption) {
    if (mdiMain* main = LoadedForm<mdiMain>()) main->cmdButton(index).Caption = caption;
  };
  ask.ButtonCaption = [](int index) {
    mdiMain* main = LoadedForm<mdiMain>();
    return main ? main->cmdButton(index).Caption() : std::string();
  };
  ask.ShowAbout = [] { Form<frmAbout>()->ShowModal(); };
  ask.StartMenu = StartMenu;
  ask.HideMenu = [] {
    if (frmSubMenu* menu = LoadedForm<frmSubMenu>()) menu->Hide();
  };
  ask.UnloadMenu = [] {
    if (frmSubMenu* menu = LoadedForm<frmSubMenu>()) menu->Unload();
  };
  ask.ScaleMenu = [](bool scales) {
    frmSubMenu* menu = LoadedForm<frmSubMenu>();
    if (menu) menu->VideoSoftElastic1.Mode = scales ? Elastic::kScaleAll : Elastic::kOff;
  };
  ask.ShowBookmarks = ShowBookmarks;
  ask.ShowHelpText = [] {
    const auto help = Form<frmHelpText>();
    help->Show();
    help->SetFocus();
  };
  ask.UnloadHelpText = [] {
    frmHelpText* help = LoadedForm<frmHelpText>();
    if (help && !help->IsAsking()) help->Unload();
  };
}

}  // namespace quorvel

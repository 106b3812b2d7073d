#include "menus/frmSubMenu.h"

#include "link/CaptureMessages.h"
#include "link/HandOvers.h"
#include "link/HostWait.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"
#include "settings/Configuration.h"
#include "settings/WindowPlacing.h"
#include "terminal/frmTelnet.h"

namespace quorvel {
namespace {

constexpr int kWidestTab = 2000;       // twips
constexpr int kColumnMargin = 350;     // twips of a list that its column leaves free
constexpr int kSmallestClient = 1000;  // twips; a lower main window leaves the menu as it is

}  // namespace

frmSubMenu::frmSubMenu() : Window(Kind::Child, "frmSubMenu") {
  Caption = "Menu";
  tabMenu.SetTabs(kPages);
  for (int page = 0; page < kPages; ++page) lstOptions.Load(page).Page = page;
  DesignLayout();
  BindEvents();
}

// The window as designed, in twips; the elastic container fits it to the main window.
void frmSubMenu::DesignLayout() {
  constexpr double kPoints = 8;
  Width.Adopt(9600);
  Height.Adopt(6600);
  VideoSoftElastic1.Move(0, 0, 9600, 6600);
  tabMenu.Move(120, 120, 9360, 5400);
  tabMenu.Font = {"MS Sans Serif", kPoints};
  for (auto& [page, list] : lstOptions) {
    list->Move(120, 450, 9120, 4500);
    list->Font = {"Fixedsys", kPoints + 1};
    list->AccessibleText = "Options of page " + std::to_string(page + 1);
  }
  tabMenu.AccessibleText = "Pages of the menu";
  SSFrame1.AccessibleText = "Direct entry";
  SSFrame1.Move(120, 5610, 4080, 810);
  Label1.Caption = "Open:";
  Label1.Move(120, 300, 600, 300);
  Label1.StandsFor(cboExecute);
  cboExecute.Move(720, 270, 2640, 345);
  cmdDo.Picture = "run";
  cmdDo.ToolTipText = "Run the option";
  cmdDo.Move(3450, 255, 510, 375);
  const int top = 5715;
  cmdBack.Caption = "&Back";
  cmdBack.Move(4380, top, 1200, 390);
  cmdTcl.Picture = "terminal";
  cmdTcl.ToolTipText = "Terminal";
  cmdTcl.Move(5680, top, 1200, 390);
  cmdLogoff.Caption = "&Logoff";
  cmdLogoff.Move(6980, top, 1200, 390);
  cmdHelp.Caption = "&Help";
  cmdHelp.Move(8280, top, 1200, 390);
  lblWho.Move(4380, 6165, 5100, 255);
  lblWho.AccessibleText = "Session";
  const quorvel::Font font{"MS Sans Serif", kPoints};
  for (Control* control : Controls()) {
    if (control->Font().size == 0 && control->kind() != ControlKind::Elastic) control->Font = font;
  }
}

void frmSubMenu::BindEvents() {
  for (auto& [page, list] : lstOptions) {
    list->DblClick = [this, page = page] { lstOptions_DblClick(page); };
    list->KeyPress = [this, page = page](int& code) {
      if (code == CR) lstOptions_DblClick(page);
    };
  }
  cboExecute.KeyPress = [this](int& code) {
    if (code != CR) return;
    code = 0;
    cmdDo_Click();
  };
  cmdDo.Click = [this] { cmdDo_Click(); };
  cmdBack.Click = [this] { cmdBack_Click(); };
  cmdTcl.Click = [this] { cmdTcl_Click(); };
  cmdLogoff.Click = [this] { cmdLogoff_Click(); };
  cmdHelp.Click = [this] { cmdHelp_Click(); };
  mnuSSaveSettings.Click = [] { SaveSettings(); };
  mnuSSaveAs.Click = [] { SaveSettingsUnderNewName(); };
  mnuOTerminal.Click = [] { Ask().ShowTerminalSettings(); };
  mnuOptPrinter.Click = [] { Ask().ChoosePrinter(); };
  mnuOptFax.Click = [] { Ask().ShowFaxSettings(); };
  mnuOButtons.Click = [] { Ask().ShowCommandButtons(); };
  mnuOptExport.Click = [] { Ask().ShowExportParameters(); };
  mnuOptCapOff.Click = [this] { mnuOptCapOff_Click(); };
  mnuBookMark.Click = [this] { mnuBookMark_Click(); };
  mnuLogoff.Click = [this] { cmdLogoff_Click(); };
  mnuHelpCurrent.Click = [this] { cmdHelp_Click(); };
  cmdLogoff.IsWayOut = true;
  for (MenuItem* wayOut : {&mnuLogoff, &mnuOptCapOff}) wayOut->IsWayOut = true;
  mnuHelpAbout.Click = [] { Ask().ShowAbout(); };
}

// --- the window

void frmSubMenu::Form_Load() {
  VideoSoftElastic1.Mode = Session().AutoSize == 1 ? Elastic::kScaleAll : Elastic::kOff;
  Left = 0;
  Top = 0;
  tabMenu.TabsPerRow = tabMenu.Tabs();
  tabMenu.TabMaxWidth = kWidestTab;
  Session().MenuLoaded = 1;
  for (auto& [page, list] : lstOptions) list->ColumnWidth = list->Width() - kColumnMargin;
  BuildMenu();
}

void frmSubMenu::Form_Activate() {
  Session().ActiveContext = "MENU";
  if (tabMenu.Visible()) lstOptions(tabMenu.Tab()).SetFocus();
}

void frmSubMenu::Form_GotFocus() {
  Session().ActiveContext = "MENU";
}

void frmSubMenu::Form_Unload(bool&) {
  Session().MenuLoaded = 0;
  // The next window shows what it is opened for, and may come to this menu behind that.
  Session().ShownMenuText.clear();
  Session().ShownMenuCommands.clear();
}

// --- building

void frmSubMenu::BuildMenu() {
  const auto keep = shared_from_this();
  desktop().Yield();
  if (!IsLoaded()) return;
  tabMenu.Tab = 0;
  ClearTables();
  MenuTables menu = ReadMenu(Session().MenuText, Session().MenuCommands);
  Window* main = Ask().MainWindow();
  if (menu.hasTitle && main) {
    main->Caption = Session().Caption + " - " + menu.title + " - " + Session().HostName;
  }
  if (menu.TabNames.empty()) menu.TabNames.emplace_back();
  const int tabs = static_cast<int>(menu.TabNames.size());
  const bool hidden = tabMenu.Visible();
  if (hidden) tabMenu.Visible = false;
  try {
    tabMenu.TabsPerRow = tabs;
    ShowPages(tabs);
    for (int page = 0; page < tabs; ++page) {
      FillPage(page, menu.TabNames[static_cast<std::size_t>(page)], menu);
    }
  } catch (const RuntimeError&) {
    if (hidden) tabMenu.Visible = true;  // more tabs than pages: the next menu must be seen
    throw;
  }
  if (hidden) tabMenu.Visible = true;
  tabMenu.Tab = 0;
}

void frmSubMenu::ClearTables() {
  for (auto& [page, list] : lstOptions) list->Clear();
  for (auto& rows : optionGrid_) rows.clear();
}

void frmSubMenu::ShowPages(int tabs) {
  for (int page = 0; page < tabMenu.Tabs(); ++page) {
    const bool used = page < tabs;
    tabMenu.SetTabVisible(page, used);
    lstOptions(page).Visible = used;
    lstOptions(page).TabStop = used;
  }
}

void frmSubMenu::FillPage(int page, const std::string& tabName, const MenuTables& menu) {
  ListView& list = lstOptions(page);
  if (page > 0) {
    const ListView& first = lstOptions(0);
    list.Move(first.Left(), first.Top(), first.Width(), first.Height());
  }
  tabMenu.SetTabCaption(page, tabName);
  list.AccessibleText = tabName.empty() ? "Options" : tabName;
  for (std::size_t j = 0; j < menu.OptionTexts.size(); ++j) {
    if (menu.OptionTabs[j] != tabName) continue;
    const std::string id = menu.IdOf(j);
    list.Add(menu.OptionTexts[j] + "  ", OptionIcon(id));
    optionGrid_[static_cast<std::size_t>(page)].push_back(id);
  }
}

// --- fitting

void frmSubMenu::FitMenuWindow() {
  const auto keep = shared_from_this();
  const Window* main = Ask().MainWindow();
  if (!main || main->ClientHeight() < kSmallestClient) return;
  const int height = main->ClientHeight() + OnePixel();
  const int width = main->ClientWidth() + OnePixel();
  if (Height() == height && Width() == width) return;
  Height = height;
  Width = width;
  if (Session().AutoSize == 1) {
    const int elasticHeight = ClientHeight() + OnePixel();
    const int elasticWidth = ClientWidth() + OnePixel();
    if (VideoSoftElastic1.Height() != elasticHeight) VideoSoftElastic1.Height = elasticHeight;
    // One twip less than what is compared, and so written anew each time.
    if (VideoSoftElastic1.Width() != elasticWidth) VideoSoftElastic1.Width = elasticWidth - 1;
  }
  if (tabMenu.Visible()) {
    tabMenu.Visible = false;
    desktop().Yield();
    if (!IsLoaded()) return;
  }
  FitLists();
  tabMenu.Visible = true;
  Window* entry = Ask().EntryWindow();
  if (Session().ScreenLoaded == kTrue && entry) {
    entry->Top = Top();
    entry->Left = Left();
    entry->Width = Width();
    entry->Height = Height();
  }
}

void frmSubMenu::FitLists() {
  ListView& first = lstOptions(0);
  const ListView& current = lstOptions(tabMenu.Tab());
  first.Top = tabMenu.TabHeight() + (current.Left() - tabMenu.Left()) + tabMenu.Top();
  const int width = tabMenu.Width() - 2 * current.Left();
  if (width > 0) first.Width = width;
  const int height = tabMenu.Height() - tabMenu.TabHeight() - first.Top();
  if (height > 0) first.Height = height;
  for (int page = 1; page < tabMenu.Tabs(); ++page) {
    if (!tabMenu.TabVisible(page)) continue;
    ListView& list = lstOptions(page);
    list.Top = first.Top();
    list.Width = first.Width();
    list.Height = first.Height();
  }
}

// --- what the user does

// The option of the selected row on the current page; false if there is none.
bool frmSubMenu::SelectedOption(std::string& optionId) {
  const int page = tabMenu.Tab();
  const int index = lstOptions(page).SelectedIndex();
  const auto& rows = optionGrid_[static_cast<std::size_t>(page)];
  if (index < 1 || static_cast<std::size_t>(index) > rows.size()) return false;
  optionId = rows[static_cast<std::size_t>(index) - 1];
  return true;
}

void frmSubMenu::lstOptions_DblClick(int page) {
  std::string option;
  if (page != tabMenu.Tab() || !SelectedOption(option)) return;
  Run(option);
}

void frmSubMenu::cmdDo_Click() {
  if (cboExecute.Text().empty()) return lstOptions_DblClick(tabMenu.Tab());
  if (Session().Run.DropsAnother()) return;
  if (cboExecute.Text().size() == 2) cboExecute.Text = cboExecute.Text() + ".MENU";
  const std::string text = cboExecute.Text();
  const int old = cboExecute.List.Find(text);
  if (old >= 0) cboExecute.List.Remove(old);
  cboExecute.List.Insert(0, text);
  cboExecute.Text = "";
  Run(text);
}

void frmSubMenu::Run(const std::string& option) {
  if (Session().Run.DropsAnother()) return;
  Session().OptionId = option;
  RunOption();
}

void frmSubMenu::cmdBack_Click() {
  SendToHost(std::string("E") + CR);
}

void frmSubMenu::cmdTcl_Click() {
  SendToHost(std::string("T") + CR);
  Ask().FocusTelnetWindow();
  Hide();
}

void frmSubMenu::cmdLogoff_Click() {
  const auto answer =
      desktop().MsgBox("Are you sure you want to log off?",
                       MessageBoxStyle::kYesNo | MessageBoxStyle::kQuestion, "Quorvel Menus");
  if (answer != MessageBoxAnswer::Yes) return;
  if (Session().Connected == 1) SendLogOff();
  Unload();
}

void frmSubMenu::cmdHelp_Click() {
  SessionState& s = Session();
  if (!SelectedOption(s.HelpKey)) s.HelpKey = s.MenuId;
  SendToHost(BuildRequest("READHELP", {s.HelpKey, s.MenuId}));
}

void frmSubMenu::mnuOptCapOff_Click() {
  if (Session().PendingOp == kCapture) EndCapture();
}

void frmSubMenu::mnuBookMark_Click() {
  Session().BookmarkContext = "MENU";
  Ask().ShowBookmarks();
}

// --- the host's message

void StartMenu() {
  SessionState& s = Session();
  const std::string who = FieldOf(s.HostMessage, FS, 5);
  desktop().Yield();
  const auto owner = desktop().FormObject<frmSubMenu>();
  frmSubMenu& window = *owner;
  if (s.MenuLoaded == 0) {
    try {
      window.Show();
    } catch (const RuntimeError&) {
      window.Unload();  // half built: the next menu begins anew
      throw;
    }
    window.lblWho.Caption = who;
    desktop().Yield();
    window.FitMenuWindow();
    return;
  }
  if (s.MenuText != s.ShownMenuText || s.MenuCommands != s.ShownMenuCommands) {
    s.ShownMenuText = s.MenuText;
    s.ShownMenuCommands = s.MenuCommands;
    window.BuildMenu();
  }
  window.Show();
  window.lblWho.Caption = who;
  window.SetFocus();
}

}  // namespace quorvel

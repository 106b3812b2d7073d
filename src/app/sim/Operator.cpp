#include "app/sim/Operator.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "app/sim/Sights.h"
#include "app/sim/Workplace.h"
#include "entry/frmEntry.h"
#include "link/SessionState.h"
#include "link/frmConnect.h"
#include "menus/frmSubMenu.h"
#include "menus/mdiMain.h"
#include "output/frmReport.h"
#include "platform/controls/Desktop.h"
#include "terminal/frmTelnet.h"

namespace quorvel::sim {
namespace {

constexpr const char* kUser = "demo";

// Words that end a program of the host.
constexpr std::size_t kEndings = 5;

}  // namespace

void Operator::Do(const Act& act) {
  Random dice(act.dice);
  // What he clicks may end a window that his next move in this act goes to.
  std::vector<std::shared_ptr<Window>> kept;
  for (Window* window : desktop().LoadedWindows()) kept.push_back(window->shared_from_this());
  if (const auto box = hands_.BoxInFront()) return Answer(*box, dice);
  if (act.kind == ActKind::Fumble) return Fumble(dice);
  if (act.kind == ActKind::Connect) return Connect(dice);
  Work(dice);
}

void Operator::Work(Random& dice) {
  const struct {
    const char* window;
    void (Operator::*work)(Random&);
  } rows[] = {
      {"frmSubMenu", &Operator::WorkInMenu},    {"frmEntry", &Operator::WorkInScreen},
      {"frmTelnet", &Operator::WorkInTerminal}, {"frmList", &Operator::WorkInList},
      {"frmConnect", &Operator::WorkInConnect}, {"frmPassword", &Operator::WorkInPassword},
      {"frmLocate", &Operator::WorkInLocator},  {"frmHelpText", &Operator::WorkInHelp},
  };
  const Window* front = desktop().focus().Front();
  if (!front) return StartSession();
  auto* report = LoadedForm<frmReport>();
  if (report && !front->TakesInput())
    return hands_.CloseBox(*report);  // it keeps the terminal locked
  for (const auto& row : rows) {
    if (front->Name() == row.window) return (this->*row.work)(dice);
  }
  WorkInDialog(dice);
}

// --- sessions

void Operator::StartSession() {
  if (auto* main = LoadedForm<mdiMain>()) hands_.ChooseMenu(main->cmdStartTelnet);
}

void Operator::Connect(Random& dice) {
  auto* terminal = LoadedForm<frmTelnet>();
  if (!terminal) return StartSession();
  if (terminal->TELNET1.IsIdle()) return hands_.ChooseMenu(terminal->mnuSOpen);
  auto* menu = LoadedForm<frmSubMenu>();
  if (menu && menu->IsVisible() && dice.Chance(70)) return hands_.Click(menu->cmdLogoff);
  // A program of the host takes the line of a log-off for its input.
  if (dice.Chance(50)) return EndProgram(static_cast<int>(dice.Below(kEndings)));
  hands_.ChooseMenu(terminal->mnuCExit);
}

void Operator::WorkInConnect(Random& dice) {
  auto* dialog = LoadedForm<frmConnect>();
  if (!dialog) return;
  if (dice.Chance(8)) return hands_.Click(dialog->cmdCancel);
  if (dice.Chance(5)) return hands_.Click(dialog->cmdBrowse);
  hands_.Click(dialog->txtUserId);
  if (dice.Chance(80)) {  // else he logs in at the prompts
    hands_.Type(kUser);
    hands_.Press(KeyCode::Return);
    hands_.Type(kUser);
  }
  hands_.Click(dialog->cmdConnect);
}

// --- boxes

void Operator::Answer(const OpenBox& box, Random& dice) {
  BoxReply reply;
  const bool logsOff = box.text.find("log off") != std::string::npos;
  const bool exits = box.title == "Confirm Exit";  // the end of the story
  reply.yes = dice.Chance(logsOff ? 85 : exits ? 15 : 60);
  if (box.kind == OpenBox::Kind::File && reply.yes) {
    const auto other = std::filesystem::path(configuration_).replace_filename(kOtherConfiguration);
    const std::string opened = dice.Chance(15) ? other.string() : configuration_;
    reply.file = box.saves ? configuration_ + ".txt" : opened;
  }
  if (box.kind == OpenBox::Kind::PopUp && dice.Chance(80)) {
    std::vector<MenuItem*> entries;
    for (MenuItem* item : box.menu->Items()) {
      if (item->Enabled() && item->Visible() && !item->IsSeparator()) entries.push_back(item);
    }
    if (!entries.empty()) reply.entry = entries[dice.Below(entries.size())];
  }
  hands_.AnswerBox(reply);
}

void Operator::AnswerForTheEnd(const OpenBox& box) {
  BoxReply reply;
  reply.yes = box.title == "Confirm Exit" || box.text.find("log off") != std::string::npos;
  hands_.AnswerBox(reply);
}

void Operator::EndProgram(int turn) {
  static constexpr const char* kEntries[kEndings] = {".", "Q", "", "1", "OFF"};
  auto* menu = LoadedForm<frmSubMenu>();
  auto* terminal = LoadedForm<frmTelnet>();
  if (menu && menu->TakesInput() && desktop().focus().Front() == menu) {
    return hands_.Click(menu->cmdTcl);
  }
  if (terminal && desktop().focus().Front() != terminal) hands_.TurnTo(*terminal);
  hands_.Type(kEntries[static_cast<std::size_t>(turn) % kEndings]);
  hands_.Press(KeyCode::Return);
}

// --- the menu

void Operator::WorkInMenu(Random& dice) {
  auto* menu = LoadedForm<frmSubMenu>();
  if (!menu) return;
  const int what = dice.Between(1, 100);
  if (what <= 55) return RunOption(*menu, dice);
  if (what <= 78) {
    ListView& list = menu->lstOptions(menu->tabMenu.Tab());
    PickRowOf(list, dice);
    return dice.Chance(50) ? hands_.DoubleClick(list) : hands_.Press(KeyCode::Return);
  }
  if (what <= 86) {
    const auto pages = static_cast<std::size_t>(menu->tabMenu.Tabs());
    return hands_.TurnToPage(menu->tabMenu, static_cast<int>(dice.Below(pages)));
  }
  if (what <= 91) return hands_.Click(menu->cmdBack);
  if (what <= 94) return hands_.Click(menu->cmdTcl);
  if (what <= 97) return hands_.Click(menu->cmdHelp);
  hands_.ChooseMenu(menu->mnuBookMark);
}

void Operator::RunOption(frmSubMenu& menu, Random& dice) {
  static constexpr const char* kOptions[] = {
      "AR.CUSTOMER", "AR.CUSTOMER",  "AR.CUSTOMER", "AR.CUSTOMER",  "IC.ITEM",    "IC.ITEM",
      "SO.ORDER",    "AR.PRICE",     "AR.CUST.INQ", "AR.CITY",      "UT.MSGBOX",  "UT.CLOSE",
      "UT.WHO",      "RP*CUSTOMERS", "RP*VENDORS",  "RP.LABELS",    "UT.PICTURE", "UT.DESKTOP",
      "AR",          "NO.SUCH",      "AR.PHONE",    "UT.BROADCAST", "RP*PRICES",  "SO.ENTER",
  };
  hands_.Click(menu.cboExecute);
  hands_.Type(kOptions[dice.Below(std::size(kOptions))]);
  hands_.Press(KeyCode::Return);
  // What opens is known: its first lines are typed ahead.
  if (person_ == OperatorKind::Fast && dice.Chance(35)) EnterKey(dice);
}

void Operator::PickRowOf(Control& list, Random& dice) {
  const auto rows = RowsOf(list);
  if (!rows.empty()) hands_.PickRow(list, rows[dice.Below(rows.size())]);
}

// --- screens

void Operator::WorkInScreen(Random& dice) {
  auto* screen = LoadedForm<frmEntry>();
  if (!screen) return;
  if (screen->cmdExit.Enabled()) {
    WorkAtKey(*screen, dice);
  } else {
    WorkInRecord(*screen, dice);
  }
}

void Operator::WorkAtKey(frmEntry& screen, Random& dice) {
  const int what = dice.Between(1, 100);
  const int first = Session().FirstField;
  TextBox* box = screen.txtEntry.Has(first) ? &screen.txtEntry(first) : nullptr;
  if (what <= 70) {
    if (box && dice.Chance(50)) hands_.Click(*box);
    EnterKey(dice);
    if (person_ == OperatorKind::Fast && dice.Chance(50)) {
      hands_.Type("K ahead");
      hands_.Press(dice.Chance(50) ? KeyCode::Return : KeyCode::Tab);
    }
    return;
  }
  if (what <= 80) return hands_.Click(screen.cmdExit);
  if (what <= 88 && box) return hands_.RightClick(*box);
  if (what <= 92) return hands_.Click(screen.cmdHelp);
  if (what <= 96) return hands_.Click(screen.cmdOK);
  hands_.Type("E");
  hands_.Press(KeyCode::Return);
}

// Keys that are there, keys that are not, and one that leaves the screen or asks for a number.
void Operator::EnterKey(Random& dice) {
  const std::string& file = Session().DataFile;
  const std::string item = "I" + std::to_string(101 + dice.Below(34));
  const std::string customer = "C" + std::to_string(1001 + dice.Below(30));
  if (file == "PRICES") {
    hands_.Type(item);
    hands_.Press(KeyCode::Return);
  }
  if (file == "ITEMS") {
    hands_.Type(item);
  } else if (file == "ORDERS") {
    hands_.Type(std::to_string(5001 + dice.Below(90)));
  } else {
    hands_.Type(dice.Chance(10) ? "NEW" : customer);
  }
  hands_.Press(KeyCode::Return);
}

void Operator::WorkInRecord(frmEntry& screen, Random& dice) {
  const int what = dice.Between(1, 100);
  if (what <= 50) return EditField(screen, dice);
  if (what <= 63) return hands_.Click(screen.cmdSave);
  if (what <= 68) return SaveFromLastField(screen);
  if (what <= 75) return hands_.Click(screen.cmdCancel);
  if (what <= 80) return hands_.Click(screen.cmdDelete);
  if (what <= 84) return hands_.Click(screen.cmdHelp);
  if (what <= 88) return hands_.Press(KeyCode::Tab, dice.Chance(30) ? kShift : kNoShift);
  if (what <= 90) return hands_.Click(screen.cmdExit);
  const auto boxes = ReachableOf(screen, ControlKind::TextBox);
  if (!boxes.empty()) hands_.RightClick(*boxes[dice.Below(boxes.size())]);
}

void Operator::SaveFromLastField(frmEntry& screen) {
  const auto boxes = ReachableOf(screen, ControlKind::TextBox);
  if (!boxes.empty()) hands_.Click(*boxes.back());
  hands_.Click(screen.cmdSave);
}

// What is typed tells whose it is.
void Operator::EditField(frmEntry& screen, Random& dice) {
  const std::string number = std::to_string(dice.Below(1000));
  const bool combo = dice.Chance(15);
  const auto boxes = ReachableOf(screen, combo ? ControlKind::ComboBox : ControlKind::TextBox);
  if (boxes.empty()) return;
  Control& box = *boxes[dice.Below(boxes.size())];
  hands_.Click(box);
  if (combo) return PickRowOf(box, dice);
  const int what = dice.Between(1, 100);
  hands_.Type(what <= 60 ? "K" + Session().RecordKey + "-" + number : number);
  if (what % 10 != 0) hands_.Press(dice.Chance(50) ? KeyCode::Return : KeyCode::Tab);
}

void Operator::WorkInLocator(Random& dice) {
  static constexpr const char* kWords[] = {"KELHAM", "NET30", "ashford", "HAMMER", "COD", "nobody"};
  hands_.Type(kWords[dice.Below(std::size(kWords))]);
  hands_.Press(dice.Chance(85) ? KeyCode::Return : KeyCode::Escape);
}

void Operator::WorkInList(Random& dice) {
  Window* front = desktop().focus().Front();
  const auto lists = ReachableOf(*front, ControlKind::ListBox);
  if (lists.empty() || dice.Chance(15)) return hands_.Press(KeyCode::Escape);
  PickRowOf(*lists[0], dice);
  if (dice.Chance(50)) return hands_.DoubleClick(*lists[0]);
  hands_.Press(KeyCode::Return);
}

void Operator::WorkInPassword(Random& dice) {
  hands_.Type(dice.Chance(80) ? kUser : "wrong");
  hands_.Press(dice.Chance(80) ? KeyCode::Return : KeyCode::Escape);
}

void Operator::WorkInHelp(Random& dice) {
  Window* front = desktop().focus().Front();
  if (dice.Chance(40)) hands_.Type("more about it ");
  if (dice.Chance(30)) return hands_.CloseBox(*front);
  const auto buttons = ReachableOf(*front, ControlKind::Button);
  if (!buttons.empty()) hands_.Click(*buttons[dice.Below(buttons.size())]);
}

void Operator::WorkInDialog(Random& dice) {
  Window* front = desktop().focus().Front();
  if (dice.Chance(50)) return hands_.CloseBox(*front);
  FumbleControl(*front, dice);
}

// --- the terminal

void Operator::WorkInTerminal(Random& dice) {
  auto* window = LoadedForm<frmTelnet>();
  if (!window) return;
  if (window->TELNET1.IsIdle()) return hands_.ChooseMenu(window->mnuSOpen);
  const std::string prompt = LastLineOf(window->VT2201);
  if (prompt.ends_with("login:") || prompt.ends_with("Password:")) {
    hands_.Type(dice.Chance(95) ? kUser : "who");
  } else {
    static constexpr const char* kEntries[] = {".", ".", "",  "",    "C1001", "I105", "5",
                                               "Y", "E", "Q", "NEW", "T",     "OFF"};
    hands_.Type(kEntries[dice.Below(std::size(kEntries))]);
  }
  hands_.Press(KeyCode::Return);
}

}  // namespace quorvel::sim

#include "entry/frmEntry.h"

#include <algorithm>

#include "entry/ListRequests.h"
#include "entry/ScreenBuilder.h"
#include "link/HostWait.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "menus/frmSubMenu.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

constexpr int kDesignWidth = 9600;  // twips
constexpr int kDesignHeight = 6600;
constexpr int kMargin = 120;  // twips beside what stands outermost

void TellNotConnected() {
  desktop().MsgBox("Not connected", MessageBoxStyle::kExclamation);
}

}  // namespace

frmEntry::frmEntry()
    : Window(Kind::Child, "frmEntry"),
      EntryControls(static_cast<Window&>(*this)),
      cycle_({screen_, *this, definition_, fields_, hooks_, display_, validation_},
             [this] { Unload(); }),
      keys_({screen_, *this, definition_, fields_, hooks_, display_, validation_},
            [this] { cycle_.AcceptKey(); }) {
  Width.Adopt(kDesignWidth);
  Height.Adopt(kDesignHeight);
  BindButtons();
}

// --- binding

void frmEntry::BindButtons() {
  const struct {
    Button& button;
    MenuItem* item;
    void (RecordCycle::*action)() const;
  } rows[] = {
      {cmdOK, nullptr, &RecordCycle::AcceptKey},
      {cmdSave, &mnuFileSave, &RecordCycle::Save},
      {cmdCancel, &mnuFileCancel, &RecordCycle::Cancel},
      {cmdDelete, &mnuFileDelete, &RecordCycle::Delete},
      {cmdExit, &mnuFileExit, &RecordCycle::Leave},
  };
  for (const auto& row : rows) {
    const auto click = [this, action = row.action] {
      screen_.Run([this, action] {
        const bool asksHost = action != &RecordCycle::Leave;
        if (asksHost && !IsLinkUp()) return TellNotConnected();
        (cycle_.*action)();
      });
    };
    row.button.Click = click;
    if (row.item) row.item->Click = click;
  }
  cmdHelp.Click = [this] { cmdHelp_Click(); };
  mnuOptHelp.Click = [this] { cmdHelp_Click(); };
  mnuOptLocate.Click = [this] { SYLocatr(); };
  mnuOptList.Click = [this] { SYList(); };
}

void frmEntry::BindFields() {
  const auto bind = [this](Control& box, int number, void (FieldKeys::*enter)(int)) {
    box.GotFocus = [this, number, enter] {
      screen_.Run([this, number, enter] { (keys_.*enter)(number); });
    };
    box.KeyDown = [this, number](KeyEvent& key) {
      if (key.code != static_cast<int>(KeyCode::Return)) return;
      key.code = 0;  // nothing beeps, and no other control gets it
      screen_.Run([this, number] { keys_.PressEnter(number); });
    };
  };
  for (auto& [number, box] : txtEntry) {
    bind(*box, number, &FieldKeys::EnterText);
    box->MouseDown = [this, number = number](MouseButton button) {
      if (button != MouseButton::Right) return;
      screen_.Run([this, number] { keys_.PopUp(number); });
    };
  }
  for (auto& [number, box] : cboEntry) bind(*box, number, &FieldKeys::EnterCombo);
}

// --- the window

void frmEntry::Form_Load() {
  desktop().SetMousePointer(MousePointer::Hourglass);
  TakePlaceOfMenu();
  ForgetLastScreen();
  screen_.Opened();
  definition_ = ScreenDefinition(Session().ScreenPrompts, Session().ScreenParms);
  const bool built = BuildScreen(definition_, *this, fields_);
  BindFields();
  FitToWindow();
  if (!built) return;
  Session().ScreenLoaded = kTrue;
  for (MenuItem* item : {&mnuFileCancel, &mnuFileSave, &mnuFileDelete}) item->Enabled = false;
  for (Button* button : {&cmdCancel, &cmdSave, &cmdDelete}) button->Enabled = false;
  desktop().SetMousePointer(MousePointer::Default);
}

void frmEntry::TakePlaceOfMenu() {
  const frmSubMenu* menu = desktop().FindForm<frmSubMenu>();
  if (!menu) return;
  Left = menu->Left();
  Top = menu->Top();
  Width = menu->Width();
  Height = menu->Height();
}

// A screen that was closed from outside leaves its record behind.
void frmEntry::ForgetLastScreen() {
  SessionState& s = Session();
  fields_.Clear();
  s.CurrentField = 0;
  s.FieldRejected = kFalse;
  for (std::string* text : {&s.FieldOldValue, &s.FieldEvent, &s.EntryRecord, &s.OriginalRecord,
                            &s.FileRecord, &s.RecordKey, &s.NewRecord}) {
    text->clear();
  }
}

// The screen is built at its own size. It is scaled down at once where the window is smaller, and
// follows the window's size from then on.
void frmEntry::FitToWindow() {
  const bool scales = Session().AutoSize == 1;
  int right = ClientWidth();
  int bottom = ClientHeight();
  if (scales && right > 0 && bottom > 0) {
    // Half the size is the least that can be read.
    const int widest = 2 * right;
    const int highest = 2 * bottom;
    for (const Control* control : VideoSoftElastic1.Children()) {
      right = std::max(right, control->Left() + control->Width() + kMargin);
      bottom = std::max(bottom, control->Top() + control->Height() + kMargin);
    }
    right = std::min(right, widest);
    bottom = std::min(bottom, highest);
  }
  VideoSoftElastic1.Mode = Elastic::kOff;
  VideoSoftElastic1.Move(0, 0, right, bottom);
  VideoSoftElastic1.Mode = scales ? Elastic::kScaleAll : Elastic::kOff;
  Form_Resize();
}

void frmEntry::Form_Resize() {
  if (ClientWidth() > 0) VideoSoftElastic1.Width = ClientWidth();
  if (ClientHeight() > 0) VideoSoftElastic1.Height = ClientHeight();
}

void frmEntry::Form_Activate() {
  Session().ActiveContext = "ENTRY";
}

bool frmEntry::HasOpenRecord() const {
  return !mnuFileExit.Enabled() && screen_.IsOfThisSession();
}

bool frmEntry::IsOpeningRecord() const {
  return cycle_.IsOpening() && screen_.IsOfThisSession();
}

void frmEntry::Form_QueryUnload(bool& cancel) {
  cancel = HasOpenRecord();
}

void frmEntry::Form_Unload(bool&) {
  Session().ScreenLoaded = kFalse;
  // What another window waits for is not the screen's to end.
  const HostWaits& waits = Session().Waits;
  const bool others = std::any_of(waits.begin(), waits.end(),
                                  [this](const HostWait* wait) { return !wait->IsOf(*this); });
  if (!others) ClearPendingOp();
}

// Without a link the record can't be saved any more; that must not keep the user from leaving.
void frmEntry::Free() {
  mnuFileExit.Enabled = true;
  cmdExit.Enabled = true;
}

void frmEntry::CreateNewObject() {
  const auto instance = std::make_shared<frmEntry>();
  Session().InstanceCount = static_cast<std::int16_t>(Session().InstanceCount + 1);
  instance->Caption = "Instance " + std::to_string(Session().InstanceCount);
  instance->ShowModal();
}

// --- what is asked of it

void frmEntry::SaveRecord() {
  screen_.Run([this] { cycle_.Save(); });
}

void frmEntry::ApplyScreenMode(const std::string& mode) {
  cycle_.ApplyMode(mode);
}

void frmEntry::cmdHelp_Click() {
  const SessionState& s = Session();
  if (s.CurrentField == 0) return;
  screen_.Run([this, &s] {
    SendToHost(BuildRequest("READHELP", {definition_.Field(s.CurrentField).name, s.ScreenId}));
  });
}

void frmEntry::SYList() {
  screen_.Run([this] { RequestList(definition_.Field(Session().CurrentField).listName); });
}

void frmEntry::SYLocatr() {
  screen_.Run([this] { RequestLocator(definition_.Field(Session().CurrentField).locator); });
}

void frmEntry::ShowText(int number, const std::string& text) {
  if (TextBox* box = fields_.TextBoxOf(number)) box->Text = text;
}

void frmEntry::SelectItem(int number, const std::string& text) {
  if (ComboBox* combo = fields_.ComboBoxOf(number)) combo->ListIndex = combo->List.Find(text);
}

void frmEntry::TakeListAnswer(int number) {
  screen_.Run([this, number] { keys_.TakeListAnswer(number); });
}

}  // namespace quorvel

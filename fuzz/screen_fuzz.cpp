// A data-entry screen of any definition and any record: prompts, parameters and what the host
// answers come from the input, separated by the byte 255. The screen is built, a user goes through
// it, and the host answers every wait. Nothing may crash or go on for ever.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/Wiring.h"
#include "entry/RecordMapping.h"
#include "entry/ScreenDefinition.h"
#include "entry/frmEntry.h"
#include "link/Dispatcher.h"
#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/SessionState.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "platform/headless/HeadlessBackend.h"
#include "platform/headless/HeadlessUser.h"

namespace quorvel {
namespace {

constexpr std::size_t kLongestInput = 1 << 14;
constexpr int kMostAnswers = 200;  // then the screen is closed from outside

struct Input {
  std::string prompts;
  std::string parms;
  std::string record;
};

Input Cut(std::string_view bytes) {
  Input input;
  std::string* const parts[] = {&input.prompts, &input.parms, &input.record};
  for (std::string* part : parts) {
    const auto end = bytes.find('\xFF');
    *part = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  }
  return input;
}

// Both directions of the mapping, by themselves.
void CarryRecord(const Input& input) {
  try {
    const ScreenDefinition definition(input.prompts, input.parms);
    const std::string entry = LoadEntryRecord(definition, {}, input.record);
    PackEntryRecord(definition, entry, input.record);
    HasOpenBalance(definition, entry);
  } catch (const RuntimeError&) {
    return;  // as a malformed definition ends
  }
}

class Play {
 public:
  explicit Play(const Input& input) : input_(input), desktop_(backend_) {
    Session() = SessionState{};
    WireHandOvers();
    backend_.onIdle = [this] { return Answer(); };
    SessionState& s = Session();
    s.ScreenPrompts = input.prompts;
    s.ScreenParms = input.parms;
    s.ScreenId = "AR.X";
    s.CaseProgram = "CASE";
  }

  void Run() {
    Do([] { Ask().ShowEntryScreen(); });
    for (int round = 0; round < 2; ++round) {
      user_.Type("1\r");
      for (int i = 0; i < 4; ++i) {
        user_.Type("2");
        user_.Press(i % 2 == 0 ? KeyCode::Tab : KeyCode::Return);
      }
      ForEachField([this](Control& box) { user_.RightClick(box); });
      ForEachField([](Control& box) { box.UserFocus(); });
      for (Button EntryControls::*button : {&EntryControls::cmdSave, &EntryControls::cmdDelete,
                                            &EntryControls::cmdCancel, &EntryControls::cmdOK}) {
        if (frmEntry* screen = LoadedForm<frmEntry>()) (screen->*button).UserClick();
      }
    }
    CloseScreen();
    if (LoadedForm<frmEntry>() || backend_.stalled) std::abort();
  }

 private:
  void Do(const std::function<void()>& body) { desktop_.Handle(EventKind::User, body); }

  template <class Action>
  void ForEachField(const Action& action) {
    for (int i = kFirstFieldNumber; i <= kLastFieldNumber; ++i) {
      frmEntry* screen = LoadedForm<frmEntry>();
      if (screen && screen->txtEntry.Has(i)) action(screen->txtEntry(i));
      if (screen && screen->cboEntry.Has(i)) action(screen->cboEntry(i));
    }
  }

  void CloseScreen() {
    Do([] {
      if (frmEntry* screen = LoadedForm<frmEntry>()) {
        screen->mnuFileExit.Enabled = true;
        screen->Unload();
      }
    });
  }

  // Somebody waits: for a reply, or for what a hook gives back.
  bool Answer() {
    if (++answers_ > kMostAnswers) {
      if (!LoadedForm<frmEntry>()) return false;
      CloseScreen();
      return true;
    }
    SessionState& s = Session();
    if (s.PendingOp.empty()) {
      s.HostMessage = std::string("~CASELOGIC~") + FS + (answers_ % 5 == 0 ? "RETURN" : "") + FS +
                      input_.record + FS + FS + (answers_ % 7 == 0 ? "Error" : "v");
    } else {
      s.HostMessage = answers_ % 11 == 0 ? std::string("~ERRORMSG~") + FS + "no" : input_.record;
    }
    desktop_.Handle(EventKind::Receive, DispatchHostMessage);
    return true;
  }

  const Input& input_;
  HeadlessBackend backend_;
  HeadlessUser user_;
  Desktop desktop_;
  int answers_ = 0;
};

}  // namespace
}  // namespace quorvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > quorvel::kLongestInput) return 0;
  const quorvel::Input input = quorvel::Cut({reinterpret_cast<const char*>(data), size});
  quorvel::CarryRecord(input);
  quorvel::Play(input).Run();
  return 0;
}

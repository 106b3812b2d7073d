#include "app/sim/WatchedHands.h"

#include "link/Records.h"
#include "link/SessionState.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel::sim {
namespace {

std::string NameOf(Control& control) {
  return control.window().Name() + "." + control.CodeName();
}

// What a key sends from a terminal, where it is sent as it is; the others send sequences.
std::string TextOf(KeyCode key, int shift) {
  if (key == KeyCode::Return) return "\r";
  if (key == KeyCode::Tab) return "\t";
  if (key != KeyCode::Backspace) return {};
  return (shift & kControl) != 0 ? "\b" : "\x7F";
}

// What a command button is going to send.
std::string CommandOf(const Control& button) {
  std::string text;
  Try([&] {
    text =
        ExpandCommandString(Session().ButtonCommands.at(static_cast<std::size_t>(button.Index())));
  });
  return text;
}

}  // namespace

void WatchedHands::Tell(const std::string& what) {
  rules_.OnAct();
  if (tell_) tell_("operator: " + what);
}

void WatchedHands::Click(Control& control) {
  Tell("clicks " + NameOf(control));
  if (NameOf(control) == "frmEntry.cmdSave") rules_.OnSaveClicked();
  if (NameOf(control) == "frmHelpText.cmdExit") rules_.OnHelpLeft();
  if (control.Name() == "cmdButton") rules_.OnTyped(CommandOf(control));
  hands_.Click(control);
}

void WatchedHands::DoubleClick(Control& control) {
  Tell("double-clicks " + NameOf(control));
  if (control.Name() == "cmdButton") rules_.OnTyped(CommandOf(control) + CommandOf(control));
  hands_.DoubleClick(control);
}

void WatchedHands::RightClick(Control& control) {
  Tell("right-clicks " + NameOf(control));
  hands_.RightClick(control);
}

void WatchedHands::Press(KeyCode key, int shift) {
  Tell("presses key " + std::to_string(static_cast<int>(key)) +
       (shift == kNoShift ? "" : " with shift state " + std::to_string(shift)));
  rules_.OnTyped(TextOf(key, shift));
  hands_.Press(key, shift);
}

void WatchedHands::Type(const std::string& text) {
  Tell("types \"" + Readable(text) + "\"");
  rules_.OnTyped(text);
  Window* front = desktop().focus().Front();
  const bool keeps = front && front->TakesInput() && desktop().KeepsInput(*front) && !text.empty();
  hands_.Type(text);
  if (keeps && hands_.AreAtOnce() && !desktop().HasKeptInput()) rules_.OnDropped(text);
}

void WatchedHands::ChooseMenu(MenuItem& entry) {
  Tell("chooses " + entry.window().Name() + "." + entry.Name());
  if (entry.Name() == "mnuEPaste") rules_.OnTyped(desktop().backend().clipboard().Text());
  const std::string name = entry.window().Name() + "." + entry.Name();
  if (name == "mdiMain.mnuExit" && entry.window().TakesInput()) rules_.OnExitChosen();
  if (name == "frmHelpText.mnuFileExit") rules_.OnHelpLeft();
  hands_.ChooseMenu(entry);
}

void WatchedHands::CloseBox(Window& window) {
  Tell("closes " + window.Name());
  if (window.Name() == "frmHelpText") rules_.OnHelpLeft();
  hands_.CloseBox(window);
}

void WatchedHands::TurnTo(Window& window) {
  Tell("turns to " + window.Name());
  hands_.TurnTo(window);
}

void WatchedHands::Resize(Window& window, int width, int height) {
  Tell("makes " + window.Name() + " " + std::to_string(width) + " by " + std::to_string(height));
  hands_.Resize(window, width, height);
}

void WatchedHands::PickRow(Control& list, int row) {
  Tell("picks row " + std::to_string(row) + " of " + NameOf(list));
  hands_.PickRow(list, row);
}

void WatchedHands::TurnToPage(TabStrip& strip, int page) {
  Tell("turns to page " + std::to_string(page) + " of " + NameOf(strip));
  hands_.TurnToPage(strip, page);
}

void WatchedHands::AnswerBox(const BoxReply& reply) {
  const auto box = hands_.BoxInFront();
  std::string how = reply.yes ? "yes" : "no";
  if (!reply.file.empty()) how = "a file";
  if (reply.entry) how = reply.entry->Name();
  if (box) Tell("answers \"" + Readable(box->title + ": " + box->text, 60) + "\" by " + how);
  if (box) rules_.OnAnswered(box->title, reply.yes);
  if (!reply.file.empty()) rules_.OnFileChosen();
  hands_.AnswerBox(reply);
}

}  // namespace quorvel::sim

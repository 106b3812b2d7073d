// The rules about sessions and windows: what the last session leaves behind, menus, ways out.
#include "app/sim/SessionRules.h"

#include "link/SessionState.h"
#include "menus/MenuTables.h"
#include "menus/frmHelpText.h"
#include "menus/frmSubMenu.h"
#include "menus/mdiMain.h"
#include "platform/PlainText.h"
#include "platform/controls/Desktop.h"

namespace quorvel::sim {
namespace {

constexpr std::string_view kExitTitle = "Confirm Exit";
constexpr std::string_view kHelpTitle = "Help Text Changed";

// The option texts of the page, as they show and as the menu has them.
std::vector<std::string> Shown(const ListView& list) {
  std::vector<std::string> texts;
  for (const ListView::Item& item : list.Items()) texts.emplace_back(Trimmed(item.text));
  return texts;
}

std::vector<std::string> Meant(const MenuTables& menu, const std::string& page) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < menu.OptionTexts.size(); ++i) {
    if (menu.OptionTabs[i] == page) texts.emplace_back(Trimmed(menu.OptionTexts[i]));
  }
  return texts;
}

}  // namespace

// --- the stream

void StreamRule::OnAccepted() {
  captures_ = false;
  prints_ = false;
}

void StreamRule::OnFrame(const std::string& token) {
  captures_ = captures_ || token == "~CAPTURE-ON~";
  prints_ = prints_ || token == "~STARTPRINT~";
}

void StreamRule::CheckQuiet(bool insideFrame) {
  const SessionState& s = Session();
  if (s.FrameStart != 0 && !insideFrame) verdict_.Fail("stream", "a frame that is over is open");
  if (s.PendingOp == "Capture" && !captures_) {
    verdict_.Fail("stream", "a capture goes on that this session has not begun");
  }
  if (s.PassThroughPrint != kFalse && !prints_) {
    verdict_.Fail("stream", "text is printed, and this session has not asked for it");
  }
}

// --- menus

void MenuRule::OnFrame(const std::vector<std::string>& fields) {
  if (fields.size() < 4 || fields[0] != "~STARTMENU~" || fields[2].empty()) return;
  text_ = fields[2];
  commands_ = fields[3];
}

void MenuRule::CheckQuiet() {
  auto* window = LoadedForm<frmSubMenu>();
  if (!window || !window->IsVisible() || text_.empty()) return;
  const MenuTables menu = ReadMenu(text_, commands_);
  for (std::size_t page = 0; page < menu.TabNames.size(); ++page) {
    const auto shown = Shown(window->lstOptions(static_cast<int>(page)));
    if (shown == Meant(menu, menu.TabNames[page])) continue;
    return verdict_.Fail("menu", "page " + std::to_string(page + 1) + " of " + menu.title +
                                     " begins with " + (shown.empty() ? "nothing" : shown[0]));
  }
}

// --- the way out

void ExitRule::OnBox(const MessageBoxRequest& box) {
  if (box.title != kExitTitle) return;
  asked_ = chosen_;
  refused_ = false;
}

void ExitRule::OnAnswered(const std::string& title, bool yes) {
  if (title != kExitTitle) return;
  refused_ = asked_ && !yes;
  asked_ = false;
  chosen_ = false;
}

void ExitRule::CheckEnd() {
  if (asked_) verdict_.Fail("exit", "the program has ended behind the question whether to");
  if (refused_) verdict_.Fail("exit", "the program has ended, and the answer was No");
}

// --- help texts

void HelpRule::OnAnswered(const std::string& title, bool yes) {
  if (title == kHelpTitle) due_ = yes && !up_;
}

void HelpRule::CheckQuiet() {
  if (!due_) return;
  due_ = false;
  if (LoadedForm<frmHelpText>()) return;
  verdict_.Fail("saved", "a help text was to be saved without a link, and it is gone");
}

// --- the link

void LinkRule::OnRefused() {
  gone_ = true;
  ++untold_;
}

void LinkRule::OnBox(const MessageBoxRequest& box) {
  if (!box.text.starts_with("Could not connect to ")) return;
  if (--untold_ < 0) verdict_.Fail("link", "a connection that failed is told twice");
}

void LinkRule::CheckQuiet() {
  if (untold_ > 0) verdict_.Fail("link", "a connection that failed is not told");
  const Window* main = LoadedForm<mdiMain>();
  if (!gone_ || !main || main->Caption().ends_with(" - Not Connected")) return;
  verdict_.Fail("link", "without a line the main window is called " + main->Caption());
}

}  // namespace quorvel::sim

#include <QFileDialog>
#include <filesystem>
#include <fstream>

#include "app/soak/Stories.h"
#include "app/tour/Hands.h"
#include "entry/frmEntry.h"
#include "entry/frmList.h"
#include "link/SessionState.h"
#include "link/frmConnect.h"
#include "link/frmPassword.h"
#include "menus/frmHelpText.h"
#include "menus/frmSubMenu.h"
#include "menus/mdiMain.h"
#include "output/frmReport.h"
#include "terminal/frmTelnet.h"

namespace quorvel {
namespace {

using Steps = std::vector<TourStep>;

bool NotConnected() {
  return SessionOver() && Form<mdiMain>()->Caption().ends_with("Not Connected");
}

// Some hundred lines of a long report have come.
bool CaptureUnderWay() {
  std::error_code failed;
  const auto size = std::filesystem::file_size(Session().CaptureFile, failed);
  return Session().PendingOp == "Capture" && !failed && size > 20'000;
}

class Reconnect {
 public:
  explicit Reconnect(const Workplace& place) : place_(place), user_(place.backend) {}

  // The link is lost where `before` leads to; `after` closes what the user must close himself.
  Story Lost(std::string where, Steps before, Steps after, bool orderly) const;
  Story LoggedOff() const;
  Story HostIsDown() const;

  std::function<void()> Open(const char* option) const {
    return [user = user_, option] { user.Open(option); };
  }
  std::function<void()> Type(const char* text) const {
    return [user = user_, text] { user.Type(text); };
  }
  std::function<void()> Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    return [user = user_, key, modifiers] { user.Key(key, modifiers); };
  }

 private:
  // From the main window without a session: chooses the configuration in the file dialog.
  Steps Start(const char* configuration) const;
  Steps StartAndLogIn(bool ask) const;

  const Workplace place_;
  const Hands user_;
};

Steps Reconnect::Start(const char* configuration) const {
  return {
      {"", NotConnected, [] { Form<mdiMain>()->cmdStartTelnet.UserClick(); }},
      {"", ToolkitDialogShows<QFileDialog>,
       [user = user_, configuration] {
         user.Type(configuration);
         user.Type("\r");
       }},
  };
}

Steps Reconnect::StartAndLogIn(bool ask) const {
  Steps steps = {{"", NotConnected, [&host = place_.host] { host.Restart(); }}};
  for (const TourStep& step : Start(ask ? kAskingConfiguration : kConfiguration))
    steps.push_back(step);
  if (ask) steps.push_back({"", DialogShows<frmConnect>, Type("demo\rdemo\r")});
  steps.push_back({"", MainMenuShows, nullptr});
  return steps;
}

Story Reconnect::Lost(std::string where, Steps before, Steps after, bool orderly) const {
  Steps steps = std::move(before);
  steps.back().act = [&host = place_.host, orderly] { orderly ? host.ShutDown() : host.Kill(); };
  steps.insert(steps.end(), after.begin(), after.end());
  for (const TourStep& step : StartAndLogIn(orderly)) steps.push_back(step);
  return {"link lost " + std::move(where), std::move(steps)};
}

Story Reconnect::LoggedOff() const {
  Steps steps = {
      {"", MainMenuShows, [user = user_] { user.Click(Form<frmSubMenu>()->cmdLogoff); }},
      {"", [] { return BoxShows(); }, [user = user_] { user.AnswerBox(); }},
  };
  for (const TourStep& step : Start(kConfiguration)) steps.push_back(step);
  steps.push_back({"", MainMenuShows, nullptr});
  return {"log-off", std::move(steps)};
}

// The first attempt fails; the second is made in the terminal's window, which has stayed.
Story Reconnect::HostIsDown() const {
  Steps steps = {{"", MainMenuShows, [&host = place_.host] { host.Kill(); }}};
  for (const TourStep& step : Start(kConfiguration)) steps.push_back(step);
  const Steps end = {
      {"", [] { return BoxShows("Could not connect"); }, [user = user_] { user.AnswerBox(); }},
      {"", [] { return !BoxShows() && LoadedForm<frmTelnet>(); },
       [&host = place_.host] {
         host.Restart();
         Form<frmTelnet>()->mnuCRemoteSystem.UserClick();
       }},
      {"", MainMenuShows, nullptr},
  };
  steps.insert(steps.end(), end.begin(), end.end());
  return {"host is down", std::move(steps)};
}

std::string ConfigurationText(const std::string& address, bool withUser) {
  return "[TELNET]\nHostName=" + address +
         "\nTermType=4\nRows=32\nQuickExit=0\nCutAtFrames=1\n"
         "[EXPORT]\nExpList0=\"* Nothing                        true @\"\n[LOGIN]\n" +
         (withUser ? "UserId=demo\nPwd=demo\n" : "");
}

bool WriteText(const std::filesystem::path& path, const std::string& text) {
  std::ofstream file(path);
  file << text;
  return static_cast<bool>(file.flush());
}

}  // namespace

bool WriteConfigurations(const Workplace& place) {
  const std::filesystem::path folder = place.folder;
  const std::string& address = place.host.Address();
  return WriteText(folder / kConfiguration, ConfigurationText(address, true)) &&
         WriteText(folder / kAskingConfiguration, ConfigurationText(address, false));
}

std::vector<Story> ReconnectStories(const Workplace& place) {
  const Reconnect r(place);
  const Hands user(place.backend);
  const auto reportMenu = [] { return MenuShows("Reports for the Workstation"); };
  const auto leaveScreen = [user] { user.Click(EntryScreen()->cmdExit); };
  const auto prompt = [user] { user.Click(Form<frmSubMenu>()->cmdTcl); };

  // clang-format off
  return {
      r.LoggedOff(),
      r.HostIsDown(),
      r.Lost("in the menu", {{"", MainMenuShows, nullptr}}, {}, false),
      r.Lost("in a sub-menu",
             {{"", MainMenuShows, r.Open("AR")},
              {"", [] { return MenuShows("Customers and Receivables"); }, nullptr}}, {}, true),
      r.Lost("in a listing",
             {{"", MainMenuShows, prompt},
              {"", [] { return TerminalShows("> "); }, r.Type("LIST CUSTOMERS\r")},
              {"", [] { return TerminalShows("C1005"); }, nullptr}}, {}, false),
      r.Lost("in a record",
             {{"", MainMenuShows, r.Open("AR.CUSTOMER")},
              {"", KeyEntryShows, r.Type("C1003\r")},
              {"", RecordShows, nullptr}}, {}, false),
      r.Lost("in a record that is cancelled then",
             {{"", MainMenuShows, r.Open("AR.CUSTOMER")},
              {"", KeyEntryShows, r.Type("C1004\r")},
              {"", RecordShows, nullptr}},
             {{"", [] { return RecordShows() && EntryScreen()->cmdExit.Enabled(); },
               [user] { user.Click(EntryScreen()->cmdCancel); }},
              {"", [] { return BoxShows("Not connected"); }, [user] { user.AnswerBox(); }},
              {"", RecordShows, leaveScreen}}, true),
      r.Lost("before a record",
             {{"", MainMenuShows, r.Open("IC.ITEM")},
              {"", KeyEntryShows, nullptr}},
             {{"", KeyEntryShows, leaveScreen}}, true),
      r.Lost("in a list",
             {{"", MainMenuShows, r.Open("AR.CITY")},
              {"", DialogShows<frmList>, nullptr}},
             {{"", DialogShows<frmList>, r.Key(Qt::Key_Escape)}}, false),
      r.Lost("behind a box",
             {{"", MainMenuShows, r.Open("UT.MSGBOX")},
              {"", [] { return BoxShows("host waits"); }, nullptr}},
             {{"", [] { return BoxShows("host waits"); }, r.Key(Qt::Key_Return)}}, true),
      r.Lost("in a password dialog",
             {{"", MainMenuShows, r.Open("UT.CLOSE")},
              {"", DialogShows<frmPassword>, nullptr}},
             {{"", DialogShows<frmPassword>, r.Key(Qt::Key_Escape)}}, false),
      r.Lost("in a help text",
             {{"", MainMenuShows, [user] { user.Click(Form<frmSubMenu>()->cmdHelp); }},
              {"", DialogShows<frmHelpText>, nullptr}},
             {{"", [] { return !DialogShows<frmHelpText>(); }, nullptr}}, true),
      r.Lost("in a report",
             {{"", MainMenuShows, r.Open("RP.WS.MENU")},
              {"", reportMenu, r.Open("RP*STOCKCOUNT")},
              {"", [] { return ReportShows(10'000); }, nullptr}},
             {{"", [] { return ReportShows(10'000); },
               [] { Form<frmReport>()->mnuFileExit.UserClick(); }}}, false),
      r.Lost("while a report comes",
             {{"", MainMenuShows, r.Open("RP.WS.MENU")},
              {"", reportMenu, r.Open("RP*LEDGER")},
              {"", CaptureUnderWay, nullptr}}, {}, true),
  };
  // clang-format on
}

}  // namespace quorvel

#include <iterator>

#include "app/tour/Hands.h"
#include "app/tour/Tour.h"
#include "link/SessionState.h"
#include "link/StartUp.h"
#include "link/frmConnect.h"
#include "link/frmPassword.h"
#include "menus/frmAbout.h"
#include "menus/frmSubMenu.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

std::vector<TourStep> TourSteps(QtBackend& backend) {
  const Hands user(backend);
  const auto open = [user](const char* option) { return [user, option] { user.Open(option); }; };
  const auto type = [user](const char* text) { return [user, text] { user.Type(text); }; };
  const auto key = [user](int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return [user, code, modifiers] { user.Key(code, modifiers); };
  };
  const auto answer = [user] { user.AnswerBox(); };
  const auto password = [] { return DialogShows<frmPassword>(); };

  // clang-format off
  std::vector<TourStep> steps = {
      {"main-menu", MainMenuShows, type("")},
      {"", MainMenuShows, [key] { key(Qt::Key_Down)(); key(Qt::Key_Down)(); }},
      {"option-selected", MainMenuShows, key(Qt::Key_Return)},
      {"inquiry-in-the-terminal", [] { return TerminalShows("ustomer"); }, type("C1001\r")},
      {"inquiry-record", [] { return TerminalShows("C1001"); }, type(".\r")},
      {"", MainMenuShows, open("AR")},
      {"sub-menu", [] { return MenuShows("Customers and Receivables"); }, open("AR.CREDIT.MENU")},
      {"second-sub-menu", [] { return MenuShows("Credit Control"); },
       [user] { user.Click(Form<frmSubMenu>()->cmdBack); }},
      {"", [] { return MenuShows("Customers and Receivables"); },
       key(Qt::Key_B, Qt::AltModifier)},
      {"", MainMenuShows, open("UT.MSGBOX")},
      {"message-box", [] { return BoxShows("host waits"); }, answer},
      {"", [] { return BoxShows("second"); }, answer},
      {"", MainMenuShows, open("UT.CLOSE")},
      {"password", password, type("demo")},
      {"password-typed", password, key(Qt::Key_Return)},
      {"password-accepted", [] { return BoxShows(); }, answer},
      {"", MainMenuShows, open("UT.CARD")},
      {"terminal-test-card", [] { return TerminalShows("Reverse"); }, key(Qt::Key_Return)},
      {"", MainMenuShows, [user] { user.Click(Form<frmSubMenu>()->cmdTcl); }},
      {"command-prompt", [] { return TerminalShows(">"); }, type("LIST CUSTOMERS\r")},
      {"listing", [] { return TerminalShows("C10"); }, type("Q\r")},
      {"", [] { return TerminalShows(">"); }, type("MENU\r")},
      {"", MainMenuShows, key(Qt::Key_S, Qt::AltModifier)},
      {"session-menu", PopupShows,
       [key] { key(Qt::Key_Escape)(); key(Qt::Key_Escape)(); }},
      {"", MainMenuShows, [] { Form<frmSubMenu>()->mnuHelpAbout.UserClick(); }},
      {"about", [] { return DialogShows<frmAbout>(); }, key(Qt::Key_Return)},
      {"", [] { return !DialogShows<frmAbout>(); }, open("AR.CUSTOMER")},
  };
  std::vector<TourStep> end = {
      {"", MainMenuShows, key(Qt::Key_L, Qt::AltModifier)},
      {"log-off-question", [] { return BoxShows(); }, answer},
      {"after-the-session",
       SessionOver,
       [] { Session().UserId.clear(); desktop().Post(EventKind::Program, [] { StartSession(); }); }},
      {"connect-dialog", [] { return DialogShows<frmConnect>(); }, key(Qt::Key_Escape)},
      {"", [] { return !DialogShows<frmConnect>(); }, nullptr},
  };
  // clang-format on
  for (std::vector<TourStep> part :
       {ScreenSteps(backend), OtherScreenSteps(backend), ImageSteps(backend), FaxSteps(backend),
        OutputSteps(backend), SettingsSteps(backend), end}) {
    std::move(part.begin(), part.end(), std::back_inserter(steps));
  }
  return steps;
}

}  // namespace quorvel

#include <QApplication>
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
#include "terminal/frmTelnet.h"

namespace quorvel {

std::vector<TourStep> TourSteps(QtBackend& backend) {
  const Hands user(backend);
  const auto mainMenu = [] { return MenuShows("Main Menu") && !BoxShows(); };
  const auto open = [user](const char* option) { return [user, option] { user.Open(option); }; };
  const auto type = [user](const char* text) { return [user, text] { user.Type(text); }; };
  const auto key = [user](int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return [user, code, modifiers] { user.Key(code, modifiers); };
  };
  const auto answer = [user] { user.AnswerBox(); };
  const auto password = [] { return DialogShows<frmPassword>(); };

  // clang-format off
  std::vector<TourStep> steps = {
      {"main-menu", mainMenu, type("")},
      {"", mainMenu, [key] { key(Qt::Key_Down)(); key(Qt::Key_Down)(); }},
      {"option-selected", mainMenu, key(Qt::Key_Return)},
      {"inquiry-in-the-terminal", [] { return TerminalShows("ustomer"); }, type("C1001\r")},
      {"inquiry-record", [] { return TerminalShows("C1001"); }, type(".\r")},
      {"", mainMenu, open("AR")},
      {"sub-menu", [] { return MenuShows("Customers and Receivables"); }, open("AR.CREDIT.MENU")},
      {"second-sub-menu", [] { return MenuShows("Credit Control"); },
       [user] { user.Click(Form<frmSubMenu>().cmdBack); }},
      {"", [] { return MenuShows("Customers and Receivables"); },
       key(Qt::Key_B, Qt::AltModifier)},
      {"", mainMenu, open("UT.MSGBOX")},
      {"message-box", [] { return BoxShows("host waits"); }, answer},
      {"", [] { return BoxShows("second"); }, answer},
      {"", mainMenu, open("UT.CLOSE")},
      {"password", password, type("demo")},
      {"password-typed", password, key(Qt::Key_Return)},
      {"password-accepted", [] { return BoxShows(); }, answer},
      {"", mainMenu, open("UT.CARD")},
      {"terminal-test-card", [] { return TerminalShows("Reverse"); }, key(Qt::Key_Return)},
      {"", mainMenu, [user] { user.Click(Form<frmSubMenu>().cmdTcl); }},
      {"command-prompt", [] { return TerminalShows(">"); }, type("LIST CUSTOMERS\r")},
      {"listing", [] { return TerminalShows("C10"); }, type("Q\r")},
      {"", [] { return TerminalShows(">"); }, type("MENU\r")},
      {"", mainMenu, key(Qt::Key_S, Qt::AltModifier)},
      {"session-menu", [] { return QApplication::activePopupWidget() != nullptr; },
       [key] { key(Qt::Key_Escape)(); key(Qt::Key_Escape)(); }},
      {"", mainMenu, [] { Form<frmSubMenu>().mnuHelpAbout.UserClick(); }},
      {"about", [] { return DialogShows<frmAbout>(); }, key(Qt::Key_Return)},
      {"", [] { return !DialogShows<frmAbout>(); }, open("AR.CUSTOMER")},
  };
  std::vector<TourStep> end = {
      {"", mainMenu, key(Qt::Key_L, Qt::AltModifier)},
      {"log-off-question", [] { return BoxShows(); }, answer},
      {"after-the-session",
       [] { return !LoadedForm<frmTelnet>() && !LoadedForm<frmSubMenu>() && !BoxShows(); },
       [] { Session().UserId.clear(); desktop().Post(EventKind::Program, [] { StartSession(); }); }},
      {"connect-dialog", [] { return DialogShows<frmConnect>(); }, key(Qt::Key_Escape)},
      {"", [] { return !DialogShows<frmConnect>(); }, nullptr},
  };
  // clang-format on
  for (std::vector<TourStep> part :
       {ScreenSteps(backend), OtherScreenSteps(backend), ImageAndFaxSteps(backend),
        OutputSteps(backend), SettingsSteps(backend), end}) {
    std::move(part.begin(), part.end(), std::back_inserter(steps));
  }
  return steps;
}

}  // namespace quorvel

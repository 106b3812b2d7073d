#include <QApplication>

#include "app/tour/Hands.h"
#include "app/tour/Tour.h"
#include "link/frmPassword.h"
#include "menus/frmAbout.h"
#include "menus/frmSubMenu.h"
#include "platform/controls/Desktop.h"
#include "terminal/frmTelnet.h"

namespace quorvel {

std::vector<TourStep> TourSteps(QtBackend& backend) {
  const Hands user(backend);
  frmSubMenu* (*menu)() = [] { return LoadedForm<frmSubMenu>(); };
  std::vector<TourStep> steps;
  const auto step = [&](std::string name, std::function<bool()> ready, std::function<void()> act) {
    steps.push_back({std::move(name), std::move(ready), std::move(act)});
  };

  step(
      "main-menu", [] { return MenuShows("Main Menu"); },
      [=] {
        user.Key(Qt::Key_Down);
        user.Key(Qt::Key_Down);
      });
  step(
      "option-selected", [=] { return menu()->lstOptions(0).SelectedIndex() == 2; },
      [=] { user.Key(Qt::Key_Return); });
  step(
      "inquiry-in-the-terminal", [] { return TerminalShows("ustomer"); },
      [=] { user.Type("C1001\r"); });
  step(
      "inquiry-record", [] { return TerminalShows("C1001"); }, [=] { user.Type(".\r"); });
  step(
      "", [] { return MenuShows("Main Menu"); }, [=] { user.Open("AR"); });
  step(
      "sub-menu", [] { return MenuShows("Customers and Receivables"); },
      [=] { user.Open("AR.CREDIT.MENU"); });
  step(
      "second-sub-menu", [] { return MenuShows("Credit Control"); },
      [=] { user.Click(menu()->cmdBack); });
  step(
      "", [] { return MenuShows("Customers and Receivables"); },
      [=] { user.Key(Qt::Key_B, Qt::AltModifier); });
  step(
      "", [] { return MenuShows("Main Menu"); }, [=] { user.Open("UT.MSGBOX"); });
  step(
      "message-box", [] { return BoxShows(); }, [=] { user.AnswerBox(); });
  step(
      "", [] { return MenuShows("Main Menu") && !BoxShows(); }, [=] { user.Open("UT.CLOSE"); });
  step(
      "password", [] { return DialogShows<frmPassword>(); }, [=] { user.Type("demo"); });
  step(
      "password-typed", [] { return DialogShows<frmPassword>(); },
      [=] { user.Key(Qt::Key_Return); });
  step(
      "", [] { return !DialogShows<frmPassword>(); }, [=] { user.Key(Qt::Key_Return); });
  step(
      "", [] { return MenuShows("Main Menu"); }, [=] { user.Open("UT.CARD"); });
  step(
      "terminal-test-card", [] { return desktop().focus().Front() == LoadedForm<frmTelnet>(); },
      [=] { user.Key(Qt::Key_Return); });
  step(
      "", [] { return MenuShows("Main Menu"); }, [=] { user.Click(menu()->cmdTcl); });
  step(
      "command-prompt", [] { return TerminalShows(">"); }, [=] { user.Type("LIST CUSTOMERS\r"); });
  step(
      "listing", [] { return TerminalShows("C10"); }, [=] { user.Type("Q\rMENU\r"); });
  step(
      "", [] { return MenuShows("Main Menu"); }, [=] { user.Key(Qt::Key_H, Qt::AltModifier); });
  step(
      "help-menu", [] { return QApplication::activePopupWidget() != nullptr; },
      [=] {
        user.Key(Qt::Key_Escape);
        menu()->mnuHelpAbout.UserClick();
      });
  step(
      "about", [] { return DialogShows<frmAbout>(); }, [=] { user.Key(Qt::Key_Return); });
  step(
      "", [] { return !DialogShows<frmAbout>(); }, [=] { user.Key(Qt::Key_L, Qt::AltModifier); });
  step(
      "log-off-question", [] { return BoxShows(); }, [=] { user.AnswerBox(); });
  step(
      "after-the-session",
      [] { return LoadedForm<frmTelnet>() == nullptr && LoadedForm<frmSubMenu>() == nullptr; },
      nullptr);
  return steps;
}

}  // namespace quorvel

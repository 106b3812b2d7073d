#include <QTest>

#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

#include "app/tour/Tour.h"
#include "link/SessionState.h"
#include "link/frmPassword.h"
#include "menus/frmAbout.h"
#include "menus/frmSubMenu.h"
#include "menus/mdiMain.h"
#include "platform/controls/Desktop.h"
#include "terminal/frmTelnet.h"

namespace quorvel {
namespace {

// --- what the user looks at

bool MenuShows(const std::string& title) {
  const frmSubMenu* menu = LoadedForm<frmSubMenu>();
  return menu && menu->IsVisible() && desktop().focus().Front() == menu &&
         Session().MenuText.rfind(title, 0) == 0 && Session().PendingOp.empty();
}

bool TerminalShows(const std::string& text) {
  const frmTelnet* window = LoadedForm<frmTelnet>();
  if (!window || desktop().focus().Front() != window) return false;
  for (const std::string& line : window->VT2201.ScreenLines()) {
    if (line.find(text) != std::string::npos) return true;
  }
  return false;
}

bool BoxShows() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr; }

template <class F>
bool DialogShows() {
  const F* form = LoadedForm<F>();
  return form && form->IsVisible();
}

// --- the user's hands

class Hands {
 public:
  explicit Hands(QtBackend& backend) : backend_(backend) {}

  void Click(Control& control) const {
    QTest::mouseClick(backend_.WidgetOf(control), Qt::LeftButton);
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    QTest::keyClick(Target(), static_cast<Qt::Key>(key), modifiers);
  }
  void Type(const char* text) const { QTest::keyClicks(Target(), QString::fromLatin1(text)); }
  // Types an option's id into the entry of the menu window and presses Enter.
  void Open(const char* option) const {
    Click(Form<frmSubMenu>().cboExecute);
    Type(option);
    Key(Qt::Key_Return);
  }
  void AnswerBox() const { Key(Qt::Key_Return); }

 private:
  static QWidget* Target() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* focus = QApplication::focusWidget()) return focus;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return QApplication::activeWindow();
  }

  QtBackend& backend_;
};

}  // namespace

std::vector<TourStep> TourSteps(QtBackend& backend) {
  const Hands user(backend);
  frmSubMenu* (*menu)() = [] { return LoadedForm<frmSubMenu>(); };
  std::vector<TourStep> steps;
  const auto step = [&](std::string name, std::function<bool()> ready, std::function<void()> act) {
    steps.push_back({std::move(name), std::move(ready), std::move(act)});
  };

  step("main-menu", [] { return MenuShows("Main Menu"); },
       [=] {
         user.Key(Qt::Key_Down);
         user.Key(Qt::Key_Down);
       });
  step("option-selected", [=] { return menu()->lstOptions(0).SelectedIndex() == 2; },
       [=] { user.Key(Qt::Key_Return); });
  step("inquiry-in-the-terminal", [] { return TerminalShows("ustomer"); },
       [=] { user.Type("C1001\r"); });
  step("inquiry-record", [] { return TerminalShows("C1001"); }, [=] { user.Type(".\r"); });
  step("", [] { return MenuShows("Main Menu"); }, [=] { user.Open("AR"); });
  step("sub-menu", [] { return MenuShows("Customers and Receivables"); },
       [=] { user.Open("AR.CREDIT.MENU"); });
  step("second-sub-menu", [] { return MenuShows("Credit Control"); },
       [=] { user.Click(menu()->cmdBack); });
  step("", [] { return MenuShows("Customers and Receivables"); },
       [=] { user.Key(Qt::Key_B, Qt::AltModifier); });
  step("", [] { return MenuShows("Main Menu"); }, [=] { user.Open("UT.MSGBOX"); });
  step("message-box", [] { return BoxShows(); }, [=] { user.AnswerBox(); });
  step("", [] { return MenuShows("Main Menu") && !BoxShows(); }, [=] { user.Open("UT.CLOSE"); });
  step("password", [] { return DialogShows<frmPassword>(); },
       [=] { user.Type("demo"); });
  step("password-typed", [] { return DialogShows<frmPassword>(); },
       [=] { user.Key(Qt::Key_Return); });
  step("", [] { return !DialogShows<frmPassword>(); }, [=] { user.Key(Qt::Key_Return); });
  step("", [] { return MenuShows("Main Menu"); }, [=] { user.Open("UT.CARD"); });
  step("terminal-test-card", [] { return desktop().focus().Front() == LoadedForm<frmTelnet>(); },
       [=] { user.Key(Qt::Key_Return); });
  step("", [] { return MenuShows("Main Menu"); }, [=] { user.Click(menu()->cmdTcl); });
  step("command-prompt", [] { return TerminalShows(">"); },
       [=] { user.Type("LIST CUSTOMERS\r"); });
  step("listing", [] { return TerminalShows("C10"); }, [=] { user.Type("Q\rMENU\r"); });
  step("", [] { return MenuShows("Main Menu"); },
       [=] { user.Key(Qt::Key_H, Qt::AltModifier); });
  step("help-menu", [] { return QApplication::activePopupWidget() != nullptr; },
       [=] {
         user.Key(Qt::Key_Escape);
         menu()->mnuHelpAbout.UserClick();
       });
  step("about", [] { return DialogShows<frmAbout>(); }, [=] { user.Key(Qt::Key_Return); });
  step("", [] { return !DialogShows<frmAbout>(); },
       [=] { user.Key(Qt::Key_L, Qt::AltModifier); });
  step("log-off-question", [] { return BoxShows(); }, [=] { user.AnswerBox(); });
  step("after-the-session",
       [] { return LoadedForm<frmTelnet>() == nullptr && LoadedForm<frmSubMenu>() == nullptr; },
       nullptr);
  return steps;
}

}  // namespace quorvel

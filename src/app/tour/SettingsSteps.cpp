// The windows in which the user fits the program to himself: terminal, keys, buttons, bookmarks.
#include <QEvent>

#include "app/tour/Hands.h"
#include "app/tour/Tour.h"
#include "menus/frmAddBook.h"
#include "menus/frmBookMark.h"
#include "menus/frmSubMenu.h"
#include "settings/frmAdvTerm.h"
#include "settings/frmTerm.h"
#include "terminal/frmButtons.h"
#include "terminal/frmFunk.h"

namespace quorvel {
std::vector<TourStep> SettingsSteps(QtBackend& backend) {
  const Hands user(backend);
  const auto key = [user](int code) { return [user, code] { user.Key(code); }; };
  const auto page = [](int number) {
    return [number] { Form<frmTerm>()->SSTab1.UserTab(number); };
  };
  const auto settings = [] {
    return DialogShows<frmTerm>() && !DialogShows<frmFunk>() && !DialogShows<frmAdvTerm>();
  };
  const auto bookmarks = [] { return DialogShows<frmBookMark>() && !DialogShows<frmAddBook>(); };
  const auto line = [] { return DialogShows<frmAddBook>(); };
  const auto add = [user] { user.Click(Form<frmBookMark>()->cmdAdd); };
  const auto type = [user](const char* text) { return [user, text] { user.Type(text); }; };
  const auto mouse = [user](QEvent::Type event, int row) {
    return [user, event, row] { user.MouseOnRow(Form<frmBookMark>()->lstCommands, event, row); };
  };

  // clang-format off
  return {
      {"", MainMenuShows, [] { Form<frmSubMenu>()->mnuOTerminal.UserClick(); }},
      {"terminal-settings", settings, page(1)},
      {"terminal-font", settings, page(2)},
      {"terminal-colors", settings, page(0)},
      {"", settings, [user] { user.Click(Form<frmTerm>()->cmdFunk); }},
      {"function-keys", [] { return DialogShows<frmFunk>(); }, key(Qt::Key_Escape)},
      {"", settings, [user] { user.Click(Form<frmTerm>()->cmdAdvanced); }},
      {"login-settings", [] { return DialogShows<frmAdvTerm>(); }, key(Qt::Key_Escape)},
      {"", settings, key(Qt::Key_Escape)},
      {"", [] { return !DialogShows<frmTerm>(); }, [] { Form<frmSubMenu>()->mnuOButtons.UserClick(); }},
      {"command-buttons", [] { return DialogShows<frmButtons>(); }, key(Qt::Key_Escape)},
      {"", [] { return !DialogShows<frmButtons>(); }, [] { Form<frmSubMenu>()->mnuBookMark.UserClick(); }},
      {"bookmarks-empty", bookmarks, add},
      {"", line, type("AR.CUSTOMER\r")},
      {"", bookmarks, add},
      {"", line, type("RP*STOCKCOUNT\r")},
      {"", bookmarks, add},
      {"", line, type("LIST CUSTOMERS\r")},
      {"", bookmarks, add},
      {"", line, type("Every morning")},
      {"", line, [user] { user.Key(Qt::Key_H, Qt::AltModifier); }},
      {"bookmark-header", line, [user] { user.Click(Form<frmAddBook>()->cmdOK); }},
      {"", bookmarks, mouse(QEvent::MouseButtonPress, 0)},
      {"", bookmarks, mouse(QEvent::MouseMove, 2)},
      {"bookmark-dragged", bookmarks, mouse(QEvent::MouseButtonRelease, 2)},
      {"bookmarks", bookmarks, key(Qt::Key_Escape)},
      {"", [] { return MainMenuShows() && !DialogShows<frmBookMark>(); }, type("")},
  };
  // clang-format on
}

}  // namespace quorvel

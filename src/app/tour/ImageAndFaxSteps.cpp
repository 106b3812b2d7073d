// A picture of the host, and a report that goes out by fax.
#include <QWidget>
#include <filesystem>

#include "app/tour/Hands.h"
#include "app/tour/Tour.h"
#include "link/SessionState.h"
#include "menus/frmSubMenu.h"
#include "output/frmFax.h"
#include "output/frmFaxSettings.h"
#include "output/frmImage.h"
#include "output/frmReport.h"

namespace quorvel {
namespace {

// Whoever comes back to the window has it read its file again.
void LeaveImageAndRemoveItsFile() {
  std::error_code ignored;
  std::filesystem::remove(Session().ImageArgs[0], ignored);
  Form<frmSubMenu>()->SetFocus();
}

// The whole letter has reached the viewer.
bool ReminderShows() {
  const frmReport* report = LoadedForm<frmReport>();
  if (!report || !report->IsVisible()) return false;
  const auto lines = report->txtReport.Lines().Count();
  return lines > 0 && report->txtReport.Lines().At(lines - 1) == "Accounts";
}

// It is the window that the user works with.
bool FaxShows() {
  return DialogShows<frmFax>() && !DialogShows<frmFaxSettings>() && !BoxShows();
}

}  // namespace

std::vector<TourStep> ImageSteps(QtBackend& backend) {
  const Hands user(backend);
  // clang-format off
  return {
      {"", MainMenuShows, [user] { user.Open("UT.PICTURE"); }},
      {"image", PictureShows, [] { LeaveImageAndRemoveItsFile(); }},
      {"", MainMenuShows, [&backend] { backend.WidgetOf(*Form<frmImage>())->activateWindow(); }},
      {"image-gone", [] { return BoxShows("Invalid Image path"); }, [user] { user.AnswerBox(); }},
      {"", PictureShows, [user] { user.Key(Qt::Key_E, Qt::AltModifier); }},
      // The terminal has the keyboard then; Enter asks the host for its menu.
      {"", [] { return !DialogShows<frmImage>() && TerminalShows(""); },
       [user] { user.Key(Qt::Key_Return); }},
  };
  // clang-format on
}

std::vector<TourStep> FaxSteps(QtBackend& backend) {
  const Hands user(backend);
  // clang-format off
  return {
      {"", MainMenuShows, [user] { user.Open("RP*REMINDER"); }},
      {"", ReminderShows,
       [user] { user.Key(Qt::Key_S, Qt::AltModifier); }},
      {"fax", FaxShows, [user] { user.Click(Form<frmFax>()->chkSendCover); }},
      {"fax-without-cover-page", [] { return FaxShows() && !Form<frmFax>()->txtToFax.Enabled(); },
       [user] { user.Key(Qt::Key_S, Qt::AltModifier); }},
      {"fax-without-server", [] { return BoxShows("server name"); }, [user] { user.AnswerBox(); }},
      {"", FaxShows, [user] { user.Key(Qt::Key_F, Qt::AltModifier); }},
      {"fax-settings", [] { return DialogShows<frmFaxSettings>(); },
       [user] { user.Key(Qt::Key_Escape); }},
      {"", FaxShows, [user] { user.Key(Qt::Key_Escape); }},
      {"", [] { return !DialogShows<frmFax>() && DialogShows<frmReport>(); },
       [] { Form<frmReport>()->mnuFileExit.UserClick(); }},
  };
  // clang-format on
}

}  // namespace quorvel

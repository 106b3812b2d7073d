// What becomes of a report on the workstation: viewer, search, export.
#include <QFileDialog>
#include <QPrintDialog>

#include "app/tour/Hands.h"
#include "app/tour/Tour.h"
#include "output/frmBrowseExp.h"
#include "output/frmExpParm.h"
#include "output/frmExpSel.h"
#include "output/frmReport.h"

namespace quorvel {
namespace {

constexpr std::size_t kStockCountLines = 10'000;

bool ReportMenu() {
  return MenuShows("Reports for the Workstation") && !BoxShows();
}

}  // namespace

std::vector<TourStep> OutputSteps(QtBackend& backend) {
  const Hands user(backend);
  const auto open = [user](const char* option) { return [user, option] { user.Open(option); }; };
  const auto type = [user](const char* text) { return [user, text] { user.Type(text); }; };
  const auto key = [user](int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return [user, code, modifiers] { user.Key(code, modifiers); };
  };
  const auto report = [] { return ReportShows(kStockCountLines); };
  const auto parameters = [] { return DialogShows<frmExpParm>(); };

  // clang-format off
  return {
      {"", [] { return MenuShows("Main Menu"); }, open("RP.WS.MENU")},
      {"", ReportMenu, open("RP*STOCKCOUNT")},
      {"report-viewer", report, key(Qt::Key_F, Qt::ControlModifier)},
      {"", report, type("drill")},
      {"", report, [user] { user.Click(Form<frmReport>()->chkHeading); }},
      {"report-search", report, [user] { user.Click(Form<frmReport>()->cmdNext); }},
      {"report-next-match", report, [] { Form<frmReport>()->mnuFilePrint.UserClick(); }},
      {"printer", [] { return ToolkitDialogShows<QPrintDialog>(); }, key(Qt::Key_Escape)},
      {"", [report] { return report() && !ToolkitDialogShows<QPrintDialog>(); }, [] { Form<frmReport>()->mnuOptExp.UserClick(); }},
      {"export-parameters", parameters, [user] { user.Click(Form<frmExpParm>()->txtDesc); }},
      {"", parameters, type("Count the lines")},
      {"", parameters, [user] { user.Click(Form<frmExpParm>()->txtCmd); }},
      {"", parameters, type("wc -l @\r")},
      {"export-command-added", parameters, [user] { user.Click(Form<frmExpParm>()->cmdBrowseExp); }},
      {"export-folder", [] { return DialogShows<frmBrowseExp>(); }, key(Qt::Key_Escape)},
      {"", [] { return !DialogShows<frmBrowseExp>(); }, [user] { user.Click(Form<frmExpParm>()->cmdOK); }},
      {"", [] { return !DialogShows<frmExpParm>(); }, [] { Form<frmReport>()->mnuFileExport.UserClick(); }},
      {"export-file", [] { return ToolkitDialogShows<QFileDialog>(); }, type("stockcount.txt\r")},
      {"export-choice", [] { return DialogShows<frmExpSel>(); }, key(Qt::Key_Return)},
      {"", [report] { return report() && !DialogShows<frmExpSel>(); },
       [] { Form<frmReport>()->mnuFileExit.UserClick(); }},
      {"", ReportMenu, key(Qt::Key_B, Qt::AltModifier)},
  };
  // clang-format on
}

}  // namespace quorvel

#include <QFileDialog>
#include <QPrintDialog>
#include <filesystem>

#include "app/soak/Stories.h"
#include "app/tour/Hands.h"
#include "app/tour/Tour.h"
#include "entry/frmList.h"
#include "link/SessionState.h"
#include "link/frmPassword.h"
#include "menus/frmAbout.h"
#include "menus/frmHelpText.h"
#include "menus/frmSubMenu.h"
#include "output/frmExpParm.h"
#include "output/frmExpSel.h"
#include "output/frmImage.h"
#include "output/frmReport.h"

namespace quorvel {
namespace {

using Steps = std::vector<TourStep>;

constexpr std::size_t kStockCountLines = 10'000;
constexpr char kExportFile[] = "stockcount.txt";

bool ReportMenu() {
  return MenuShows("Reports for the Workstation") && !BoxShows();
}

bool StockCountShows() {
  return ReportShows(kStockCountLines) && QApplication::activeModalWidget() == nullptr;
}

bool MatchesTold() {
  return StockCountShows() && !Form<frmReport>()->lblMatches.Caption().empty();
}

// The exported file is there in full.
bool Exported(const std::string& file) {
  std::error_code failed;
  const auto size = std::filesystem::file_size(file, failed);
  return !failed && size > 0 && size == std::filesystem::file_size(Session().CaptureFile, failed);
}

class Work {
 public:
  explicit Work(const Workplace& place) : user_(place.backend), folder_(place.folder) {}

  Steps Menus() const;
  Steps Inquiry() const;
  Steps City() const;
  Steps Prompt() const;
  Steps Boxes() const;
  Steps Password() const;
  Steps TestCard() const;
  Steps Help() const;
  Steps Picture() const;
  Steps StockCount() const;

 private:
  using Act = std::function<void()>;
  Act Open(const char* option) const {
    return [user = user_, option] { user.Open(option); };
  }
  Act Type(const char* text) const {
    return [user = user_, text] { user.Type(text); };
  }
  Act Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    return [user = user_, key, modifiers] { user.Key(key, modifiers); };
  }
  Act Answer() const {
    return [user = user_] { user.AnswerBox(); };
  }

  const Hands user_;
  const std::string folder_;
};

// clang-format off
Steps Work::Menus() const {
  return {
      {"", MainMenuShows, Open("AR")},
      {"", [] { return MenuShows("Customers and Receivables"); }, Open("AR.CREDIT.MENU")},
      {"", [] { return MenuShows("Credit Control"); }, [user = user_] { user.Click(Form<frmSubMenu>()->cmdBack); }},
      {"", [] { return MenuShows("Customers and Receivables"); }, Key(Qt::Key_B, Qt::AltModifier)},
      {"", MainMenuShows, Key(Qt::Key_S, Qt::AltModifier)},
      {"", PopupShows, [user = user_] { user.Key(Qt::Key_Escape); user.Key(Qt::Key_Escape); }},
      {"", MainMenuShows, [] { Form<frmSubMenu>()->mnuHelpAbout.UserClick(); }},
      {"", DialogShows<frmAbout>, Key(Qt::Key_Return)},
      {"", [] { return MainMenuShows() && !DialogShows<frmAbout>(); }, nullptr},
  };
}

Steps Work::Inquiry() const {
  return {
      {"", MainMenuShows, Open("AR.CUST.INQ")},
      {"", [] { return TerminalShows("ustomer"); }, Type("C1008\r")},
      {"", [] { return TerminalShows("Harbour Light Foods"); }, Type("C1011\r")},
      {"", [] { return TerminalShows("Kelham Council Works"); }, Type(".\r")},
      {"", MainMenuShows, nullptr},
  };
}

Steps Work::City() const {
  return {
      {"", MainMenuShows, Open("AR.CITY")},
      {"", DialogShows<frmList>, [user = user_] { user.Key(Qt::Key_Home); user.Key(Qt::Key_Return); }},
      {"", [] { return TerminalShows("Customers of Ashford") && TerminalShows("Rowan Electric"); }, Type("\r")},
      {"", MainMenuShows, nullptr},
  };
}

Steps Work::Prompt() const {
  return {
      {"", MainMenuShows, [user = user_] { user.Click(Form<frmSubMenu>()->cmdTcl); }},
      {"", [] { return TerminalShows("> "); }, Type("LIST CUSTOMERS\r")},
      {"", [] { return TerminalShows("C1005"); }, Type(".\r")},
      {"", [] { return TerminalShows("> ") && !TerminalShows("C1005"); }, Type("COUNT CUSTOMERS\r")},
      {"", [] { return TerminalShows("24 records."); }, Type("MENU\r")},
      {"", MainMenuShows, nullptr},
  };
}

Steps Work::Boxes() const {
  return {
      {"", MainMenuShows, Open("UT.MSGBOX")},
      {"", [] { return BoxShows("host waits"); }, Answer()},
      {"", [] { return BoxShows("second"); }, Answer()},
      {"", MainMenuShows, nullptr},
  };
}

Steps Work::Password() const {
  return {
      {"", MainMenuShows, Open("UT.CLOSE")},
      {"", DialogShows<frmPassword>, Type("wrong\r")},
      {"", [] { return BoxShows("not your password"); }, Answer()},
      {"", MainMenuShows, Open("UT.CLOSE")},
      {"", DialogShows<frmPassword>, Type("demo\r")},
      {"", [] { return BoxShows("has been closed"); }, Answer()},
      {"", MainMenuShows, nullptr},
  };
}

Steps Work::TestCard() const {
  return {
      {"", MainMenuShows, Open("UT.CARD")},
      {"", [] { return TerminalShows("Bold reverse") && TerminalShows("third"); }, Key(Qt::Key_Return)},
      {"", MainMenuShows, nullptr},
  };
}

Steps Work::Help() const {
  const auto help = [] { return DialogShows<frmHelpText>() && !Form<frmHelpText>()->txtHelp.Text().empty(); };
  return {
      {"", MainMenuShows, [user = user_] { user.Click(Form<frmSubMenu>()->cmdHelp); }},
      {"", help, [user = user_] { user.Click(Form<frmHelpText>()->cmdExit); }},
      {"", [] { return MainMenuShows() && !DialogShows<frmHelpText>(); }, nullptr},
  };
}

Steps Work::Picture() const {
  return {
      {"", MainMenuShows, Open("UT.PICTURE")},
      {"", PictureShows, Key(Qt::Key_E, Qt::AltModifier)},
      // The terminal has the keyboard then; Enter asks the host for its menu.
      {"", [] { return !DialogShows<frmImage>() && TerminalShows(""); }, Key(Qt::Key_Return)},
      {"", MainMenuShows, nullptr},
  };
}

Steps Work::StockCount() const {
  const std::string file = folder_ + "/" + kExportFile;
  return {
      {"", MainMenuShows, Open("RP.WS.MENU")},
      {"", ReportMenu, Open("RP*STOCKCOUNT")},
      {"", StockCountShows, Key(Qt::Key_F, Qt::ControlModifier)},
      {"", StockCountShows, Type("drill")},
      {"", StockCountShows, [user = user_] { user.Click(Form<frmReport>()->cmdNext); }},
      {"", MatchesTold, [] { Form<frmReport>()->mnuFilePrint.UserClick(); }},
      {"", ToolkitDialogShows<QPrintDialog>, Key(Qt::Key_Escape)},
      {"", StockCountShows, [] { Form<frmReport>()->mnuOptExp.UserClick(); }},
      {"", DialogShows<frmExpParm>, Key(Qt::Key_Escape)},
      {"", [] { return StockCountShows() && !DialogShows<frmExpParm>(); },
       [] { Form<frmReport>()->mnuFileExport.UserClick(); }},
      {"", ToolkitDialogShows<QFileDialog>, [user = user_] { user.Type(kExportFile); user.Type("\r"); }},
      {"", DialogShows<frmExpSel>, Key(Qt::Key_Return)},
      {"", [file] { return StockCountShows() && Exported(file); },
       [file] {
         std::error_code ignored;
         std::filesystem::remove(file, ignored);
         Form<frmReport>()->mnuFileExit.UserClick();
       }},
      {"", ReportMenu, Key(Qt::Key_B, Qt::AltModifier)},
      {"", MainMenuShows, nullptr},
  };
}
// clang-format on

Steps Joined(Steps first, const Steps& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace

std::vector<Story> WorkStories(const Workplace& place) {
  const Work work(place);
  const Hands user(place.backend);
  const Steps end = {{"", MainMenuShows, nullptr}};
  const Steps customer = {{"", MainMenuShows, [user] { user.Open("AR.CUSTOMER"); }}};
  return {
      {"menus", work.Menus()},
      {"inquiry in the terminal", work.Inquiry()},
      {"list for the terminal", work.City()},
      {"command prompt", work.Prompt()},
      {"message boxes", work.Boxes()},
      {"password", work.Password()},
      {"terminal test card", work.TestCard()},
      {"help", work.Help()},
      {"picture", work.Picture()},
      {"report, print dialog, export", work.StockCount()},
      {"report by fax", Joined(FaxSteps(place.backend), end)},
      {"customer screen", Joined(Joined(customer, ScreenSteps(place.backend)), end)},
      {"other screens", Joined(OtherScreenSteps(place.backend), end)},
      {"settings", Joined(SettingsSteps(place.backend), end)},
  };
}

}  // namespace quorvel

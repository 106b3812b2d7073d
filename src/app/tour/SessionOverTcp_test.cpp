// A session over TCP, the real windows offscreen: login, menus, an option, the terminal, back, a
// data-entry screen with its lists, lookups and help, a picture, the fax dialogs, log-off, a second
// session, and the loss of its link.

#include <QTemporaryDir>
#include <fstream>

#include <gtest/gtest.h>

#include "app/Wiring.h"
#include "app/tour/Hands.h"
#include "app/tour/SampleHost.h"
#include "app/tour/Tour.h"
#include "link/SessionState.h"
#include "link/StartUp.h"
#include "menus/frmSubMenu.h"
#include "menus/mdiMain.h"

namespace quorvel {
namespace {

TEST(SessionOverTcp, TwoSessionsScreensAndALostLink) {
  QTemporaryDir folder;
  ASSERT_TRUE(folder.isValid());
  qputenv("QUORVEL_HOME", folder.path().toLocal8Bit());
  qputenv("QT_QPA_PLATFORM", "offscreen");
  SampleHost host(QUORVEL_DEMOHOST, folder.path());
  ASSERT_FALSE(host.Address().empty());
  const std::string configuration = folder.filePath("test.inf").toStdString();
  std::ofstream(configuration) << "[TELNET]\nHostName=" << host.Address()
                               << "\nQuickExit=0\n[LOGIN]\nUserId=demo\nPwd=demo\n";

  std::string program = "quorvel";
  std::string argument = configuration;
  char* arguments[] = {program.data(), argument.data(), nullptr};
  QtBackend backend(2, arguments);
  Desktop desktop(backend);
  Session() = SessionState{};
  WireHandOvers();
  const Hands user(backend);

  std::vector<TourStep> steps = {
      {"", [] { return MenuShows("Main Menu"); }, [&] { user.Open("AR"); }},
      {"", [] { return MenuShows("Customers and Receivables"); },
       [&] { user.Click(Form<frmSubMenu>()->cmdBack); }},
      {"", [] { return MenuShows("Main Menu"); }, [&] { user.Open("UT.MSGBOX"); }},
      {"", [] { return BoxShows("host waits"); }, [&] { user.AnswerBox(); }},
      {"", [] { return BoxShows("second"); }, [&] { user.AnswerBox(); }},
      {"", [] { return MenuShows("Main Menu") && !BoxShows(); },
       [&] { user.Click(Form<frmSubMenu>()->cmdTcl); }},
      {"", [] { return TerminalShows(">"); }, [&] { user.Type("WHO\r"); }},
      {"", [] { return TerminalShows("demo"); }, [&] { user.Type("\rMENU\r"); }},
      {"", [] { return MenuShows("Main Menu"); }, [&] { user.Open("AR.CUSTOMER"); }},
  };
  const std::vector<TourStep> end = {
      {"", [] { return MenuShows("Main Menu"); },
       [&] { user.Click(Form<frmSubMenu>()->cmdLogoff); }},
      {"", [] { return BoxShows(); }, [&] { user.AnswerBox(); }},
      {"", [] { return SessionOver(); },
       [&] {
         EXPECT_EQ(Form<mdiMain>()->Caption(), "Quorvel GUI - Not Connected");
         desktop.Post(EventKind::Program, [] { StartSession(); });
       }},
      {"", [] { return MenuShows("Main Menu"); }, [&] { host.Kill(); }},
      {"", [] { return SessionOver(); }, nullptr},
  };
  for (const auto& part :
       {ScreenSteps(backend), ImageSteps(backend), FaxSteps(backend), OutputSteps(backend)}) {
    for (const TourStep& step : part) steps.push_back({"", step.ready, step.act});
  }
  steps.insert(steps.end(), end.begin(), end.end());
  Tour tour(backend, folder.path().toStdString(), steps);
  desktop.Post(EventKind::Program, [] { Main(); });
  tour.Start();
  EXPECT_EQ(backend.Run(), 0);
  EXPECT_EQ(tour.ExitStatus(), 0);
}

}  // namespace
}  // namespace quorvel

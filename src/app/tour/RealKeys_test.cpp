// Real keys and mouse events into the real windows, offscreen: the keys of the terminal that send
// command strings or what is printed on them, and the moving of bookmarks.

#include <QAccessible>
#include <QApplication>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QWidget>
#include <fstream>

#include <gtest/gtest.h>

#include "app/Wiring.h"
#include "app/tour/Hands.h"
#include "app/tour/Tour.h"
#include "link/SessionState.h"
#include "link/StartUp.h"
#include "menus/frmBookMark.h"
#include "terminal/frmTelnet.h"

namespace quorvel {
namespace {

struct RealKey {
  int key;
  Qt::KeyboardModifiers modifiers;
  std::string sent;
};
constexpr Qt::KeyboardModifiers kPad = Qt::KeypadModifier;

const RealKey kNumeric[] = {
    {Qt::Key_F1, Qt::NoModifier, "one\r"},
    {Qt::Key_F1, Qt::ShiftModifier, "shifted"},
    {Qt::Key_F1, Qt::ControlModifier, "shifted"},
    {Qt::Key_F2, Qt::NoModifier, "\x1BOQ"},  // not defined: PF2 of the terminal
    {Qt::Key_F12, Qt::NoModifier, "twelve"},
    {Qt::Key_NumLock, Qt::NoModifier, ""},
    {Qt::Key_Slash, kPad | Qt::ControlModifier, "/"},
    {Qt::Key_Asterisk, kPad, "*"},
    {Qt::Key_Minus, kPad, "-"},
    {Qt::Key_Plus, kPad, "+"},
    {Qt::Key_5, kPad, "5"},
    {Qt::Key_Clear, kPad, "5"},  // the same key without Num Lock
    {Qt::Key_Insert, kPad, "0"},
    {Qt::Key_Period, kPad, "."},
    {Qt::Key_Enter, kPad, "\r"},
    {Qt::Key_Return, Qt::NoModifier, "\r"},
};
const RealKey kApplication[] = {
    {Qt::Key_5, kPad, "\x1BOu"},     {Qt::Key_Period, kPad, "\x1BOn"},
    {Qt::Key_Enter, kPad, "\x1BOM"}, {Qt::Key_Minus, kPad, "-"},
    {Qt::Key_Asterisk, kPad, "*"},   {Qt::Key_Exclam, Qt::NoModifier, "!"},
};

TEST(RealKeys, TerminalAndBookmarks) {
  QTemporaryDir folder;
  ASSERT_TRUE(folder.isValid());
  qputenv("QUORVEL_HOME", folder.path().toLocal8Bit());
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const std::string configuration = folder.filePath("test.inf").toStdString();
  std::string program = "quorvel";
  std::string argument = configuration;
  char* arguments[] = {program.data(), argument.data(), nullptr};
  QtBackend backend(2, arguments);
  QTcpServer server;
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  std::ofstream(configuration) << "[TELNET]\nHostName=127.0.0.1:" << server.serverPort()
                               << "\nQuickExit=0\n[LOGIN]\nUserId=demo\n[FUNCTION KEYS]\n"
                               << "F1=one^[13]\nSF1=shifted\nF12=twelve\n";
  std::string received;
  QTcpSocket* client = nullptr;
  QObject::connect(&server, &QTcpServer::newConnection, [&] {
    client = server.nextPendingConnection();
    QObject::connect(client, &QTcpSocket::readyRead,
                     [&] { received += client->readAll().toStdString(); });
  });
  Desktop desktop(backend);
  Session() = SessionState{};
  WireHandOvers();
  const Hands user(backend);

  std::string expected;
  const auto press = [&](const auto& keys) {
    for (const RealKey& key : keys) {
      user.Key(key.key, key.modifiers);
      expected += key.sent;
    }
  };
  const auto bookmarks = [] { return DialogShows<frmBookMark>(); };
  const auto lines = [] {
    std::string all;
    for (const std::string& line : Form<frmBookMark>()->lstCommands.List.All()) all += line;
    return all;
  };
  const auto mouse = [&](QEvent::Type type, int row) {
    user.MouseOnRow(Form<frmBookMark>()->lstCommands, type, row);
  };
  std::ofstream(folder.filePath("BOOKMARK.TXT").toStdString()) << "a\nb\nc\nd\n";
  QAccessible::Id list = 0;
  const std::vector<TourStep> steps = {
      {"", [&] { return client != nullptr && TerminalShows(""); },
       [&] {
         received.clear();
         press(kNumeric);
         Session().KeyPad = 1;
         LoadedForm<frmTelnet>()->VT2201.KeyPad = 1;
         press(kApplication);
       }},
      {"", [&] { return received.ends_with("!"); },
       [] { Form<frmTelnet>()->mnuBookMarks.UserClick(); }},
      {"", bookmarks,
       [&] {
         EXPECT_EQ(lines(), "abcd");
         mouse(QEvent::MouseButtonPress, 0);
         mouse(QEvent::MouseMove, 1);
         mouse(QEvent::MouseMove, 2);
         mouse(QEvent::MouseButtonRelease, 2);
       }},
      {"", bookmarks,
       [&] {
         EXPECT_EQ(lines(), "bcad");
         EXPECT_EQ(Form<frmBookMark>()->lstCommands.ListIndex(), -1);  // moved, and not to be run
         user.Key(Qt::Key_Down, Qt::AltModifier);
         user.Key(Qt::Key_Up, Qt::AltModifier);
         user.Key(Qt::Key_Up, Qt::AltModifier);
       }},
      {"", bookmarks,
       [&] {
         EXPECT_EQ(lines(), "bacd");
         list = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(
             backend.WidgetOf(Form<frmBookMark>()->lstCommands)));
         EXPECT_NE(QAccessible::accessibleInterface(list), nullptr);
         user.Key(Qt::Key_Escape);
       }},
      {"", [&] { return !bookmarks(); },
       [&] {
         EXPECT_EQ(QAccessible::accessibleInterface(list), nullptr);  // gone with its window
         client->disconnectFromHost();
       }},
      {"", [] { return LoadedForm<frmTelnet>() == nullptr; }, nullptr},
  };
  Tour tour(backend, folder.path().toStdString(), steps);
  desktop.Post(EventKind::Program, [] { Main(); });
  tour.Start();
  EXPECT_EQ(backend.Run(), 0);
  EXPECT_EQ(tour.ExitStatus(), 0);
  EXPECT_EQ(received, expected);
}

}  // namespace
}  // namespace quorvel

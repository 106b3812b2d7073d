// What only the real desktop does: the code page, the keyboard, sockets, other running copies.

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>
#include <set>

#include <gtest/gtest.h>

#include "platform/qt/CopyRegistry.h"
#include "platform/qt/Keyboard.h"
#include "platform/qt/QtTransport.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

// The application object that all of it needs; gone before the toolkit's own statics are.
class App : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    app_ = std::make_unique<QGuiApplication>(argc_, argv_);
  }
  void TearDown() override { app_.reset(); }

 private:
  int argc_ = 1;
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QGuiApplication> app_;
};
const auto* const theApp = ::testing::AddGlobalTestEnvironment(new App);

// Serves events until `done` or the time is over.
bool Wait(const std::function<bool()>& done) {
  QElapsedTimer time;
  time.start();
  while (!done() && time.elapsed() < 10'000) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
  }
  return done();
}

TEST(Text, EveryByteComesBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const QString text = ToUnicode(bytes);
  EXPECT_EQ(ToBytes(text), bytes);
  std::set<char16_t> codes;
  for (const QChar c : text) codes.insert(c.unicode());
  EXPECT_EQ(codes.size(), 256u);
}

TEST(Text, FollowsWindows1252) {
  // The Unicode consortium's table of the code page.
  EXPECT_EQ(ToUnicode("\x80\x8A\x93\x9F\xA3\xFF"),
            QString::fromUtf16(u"\u20AC\u0160\u201C\u0178\u00A3\u00FF"));
  EXPECT_EQ(ToBytes(QString::fromUtf16(u"\u4E2D\U0001F600x")), "??x");
  EXPECT_EQ(ToCaption(std::string(kLongestCaption + 5, 'x')).size(), kLongestCaption + 3);
  EXPECT_EQ(ToCaption(std::string("a\0b", 3)), "a b");
}

TEST(Keyboard, TerminalKeysOfAPcKeyboard) {
  struct Case {
    int qt;
    Qt::KeyboardModifiers modifiers;
    vt::Key key;
  };
  const Case cases[] = {
      {Qt::Key_Up, Qt::NoModifier, vt::Key::Up},
      {Qt::Key_Home, Qt::NoModifier, vt::Key::Find},
      {Qt::Key_PageDown, Qt::NoModifier, vt::Key::Next},
      {Qt::Key_F1, Qt::NoModifier, vt::Key::PF1},
      {Qt::Key_F6, Qt::NoModifier, vt::Key::F6},
      {Qt::Key_F1, Qt::ShiftModifier, vt::Key::F11},
      {Qt::Key_7, Qt::KeypadModifier, vt::Key::Keypad7},
      {Qt::Key_Enter, Qt::KeypadModifier, vt::Key::KeypadEnter},
      {Qt::Key_Return, Qt::NoModifier, vt::Key::Enter},
  };
  for (const Case& c : cases) {
    const auto key = ToTerminalKey(QKeyEvent(QEvent::KeyPress, c.qt, c.modifiers));
    ASSERT_TRUE(key) << c.qt;
    EXPECT_EQ(key->key, c.key) << c.qt;
  }
  EXPECT_FALSE(ToTerminalKey(QKeyEvent(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier, "7")));
  EXPECT_FALSE(ToTerminalKey(QKeyEvent(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier)));
}

class Listener final : public TransportListener {
 public:
  void OnOpened() override { log += "[open]"; }
  void OnBytes(std::string_view bytes) override { log += bytes; }
  void OnClosed() override { log += "[closed]"; }
  void OnFailed(const std::string& reason) override { log += reason.empty() ? "" : "[failed]"; }
  std::string log;
};

TEST(Transport, BothWaysAndTheEnd) {
  for (const auto address : {QHostAddress::LocalHost, QHostAddress::LocalHostIPv6}) {
    QTcpServer server;
    if (!server.listen(QHostAddress(address))) continue;  // a machine without IPv6
    Listener listener;
    QtTransport transport;
    transport.Open(QHostAddress(address).toString().toStdString(), server.serverPort(), listener);
    EXPECT_EQ(listener.log, "");  // nothing from inside Open
    ASSERT_TRUE(Wait([&] { return server.hasPendingConnections() && listener.log == "[open]"; }));
    QTcpSocket* host = server.nextPendingConnection();
    transport.Write("to the host");
    ASSERT_TRUE(Wait([&] { return host->bytesAvailable() == 11; }));
    EXPECT_EQ(host->readAll(), "to the host");

    transport.SetReading(false);
    host->write("to the client");
    host->flush();
    EXPECT_FALSE(Wait([&, time = QElapsedTimer()]() mutable {
                   if (!time.isValid()) time.start();
                   return listener.log != "[open]" || time.elapsed() > 200;
                 }) &&
                 listener.log != "[open]");
    transport.SetReading(true);
    ASSERT_TRUE(Wait([&] { return listener.log == "[open]to the client"; }));
    host->disconnectFromHost();
    ASSERT_TRUE(Wait([&] { return listener.log == "[open]to the client[closed]"; }));
  }
}

TEST(Transport, ARefusedConnectionFailsOnce) {
  QTcpServer server;
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  const quint16 port = server.serverPort();
  server.close();
  Listener listener;
  QtTransport transport;
  transport.Open("127.0.0.1", port, listener);
  EXPECT_TRUE(Wait([&] { return listener.log == "[failed]"; }));
}

TEST(Transport, NothingIsHeardAfterClose) {
  QTcpServer server;
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  Listener listener;
  QtTransport transport;
  transport.Open("127.0.0.1", server.serverPort(), listener);
  ASSERT_TRUE(Wait([&] { return server.hasPendingConnections() && listener.log == "[open]"; }));
  QTcpSocket* host = server.nextPendingConnection();
  transport.Close();
  ASSERT_TRUE(Wait([&] { return host->state() == QAbstractSocket::UnconnectedState; }));
  EXPECT_EQ(listener.log, "[open]");
}

// Two processes of one user: this one, and one that waits to be called to the front.
TEST(CopyRegistry, FindsAndCallsAnotherProcess) {
  QTemporaryDir folder;
  ASSERT_TRUE(folder.isValid());
  qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit());
  const CopyRegistry here([] { return QString("Quorvel GUI - here.inf"); }, [] {});
  EXPECT_FALSE(here.OtherCopyRuns());

  QProcess other;
  other.start(QUORVEL_COPY_PROCESS, {"Quorvel GUI - other.inf"});
  ASSERT_TRUE(other.waitForReadyRead());
  EXPECT_EQ(other.readLine(), "ready\n");
  EXPECT_TRUE(here.OtherCopyRuns());
  EXPECT_FALSE(here.Activate("Quorvel GUI - nobody.inf"));
  EXPECT_TRUE(here.Activate("Quorvel GUI - other.inf"));
  ASSERT_TRUE(other.waitForReadyRead());
  EXPECT_EQ(other.readLine(), "raised\n");

  // A copy that is killed leaves nothing that counts.
  other.kill();
  ASSERT_TRUE(other.waitForFinished());
  EXPECT_FALSE(here.OtherCopyRuns());
}

}  // namespace
}  // namespace quorvel

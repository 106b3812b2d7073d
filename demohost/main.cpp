#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QSysInfo>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <iostream>

#include "demohost/Arguments.h"
#include "demohost/Picture.h"
#include "demohost/Record.h"
#include "demohost/SocketServer.h"

namespace {

using namespace quorvel::demohost;

volatile std::sig_atomic_t stopRequested = 0;

void RequestStop(int) {
  stopRequested = 1;
}

QString ApplicationFolder() {
  auto own = qEnvironmentVariable("QUORVEL_HOME");
  if (!own.isEmpty()) return own;
  if (QSysInfo::kernelType() == "winnt") return QCoreApplication::applicationDirPath();
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/quorvel";
}

// The name of the data file. Its folder is made if need be, and the file itself, empty, so that it
// belongs to its owner alone before the passwords are in it; SQLite's journal takes after it.
std::string DataFile(const Arguments& arguments) {
  if (arguments.dataFile == ":memory:") return arguments.dataFile;
  const auto name = arguments.dataFile.empty() ? ApplicationFolder() + "/demohost.sqlite"
                                               : QString::fromStdString(arguments.dataFile);
  QDir().mkpath(QFileInfo(name).absolutePath());
  QFile file(name);
  if (file.open(QFile::WriteOnly | QFile::NewOnly))
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  return name.toStdString();
}

DateTime Now() {
  const auto now = QDateTime::currentDateTime();
  return {now.date().year(), now.date().month(),  now.date().day(),
          now.time().hour(), now.time().minute(), now.time().second()};
}

// The sample's picture, beside the data file; where that can't be, there is none to show.
void ShipPicture(Application& application, const std::string& dataFile) {
  const auto folder = dataFile == ":memory:"
                          ? QDir::tempPath()
                          : QFileInfo(QString::fromStdString(dataFile)).absolutePath();
  QFile file(folder + "/quorvel-sales.bmp");
  const auto picture = SalesChart();
  if (!file.open(QFile::WriteOnly)) return;
  if (file.write(picture.data(), static_cast<qint64>(picture.size())) > 0)
    application.SetPictureFile(QDir::toNativeSeparators(file.fileName()).toStdString());
}

// The sample's desktop command starts a calculator. Which one there is depends on the desktop:
// where nobody has fitted the command by hand, it becomes the first that is installed.
void FitDesktopCommand(Application& application) {
  constexpr int kDesktopCommand = 2;
  auto record = application.Data().Read("PARM", "WORKSTATION").value_or("");
  if (Attribute(record, kDesktopCommand) != "calc.exe") return;
  for (const char* name : {"calc.exe", "gnome-calculator", "kcalc", "mate-calc", "galculator",
                           "qalculate-gtk", "qalculate-qt", "xcalc"}) {
    if (QStandardPaths::findExecutable(QString::fromLatin1(name)).isEmpty()) continue;
    SetAttribute(record, kDesktopCommand, name);
    application.Data().Write("PARM", "WORKSTATION", record);
    return;
  }
}

int Serve(QCoreApplication& program, const Arguments& arguments) {
  const auto dataFile = DataFile(arguments);
  Application application(dataFile, Now, arguments.reset);
  ShipPicture(application, dataFile);
  FitDesktopCommand(application);

  SocketServer server(application);
  if (!server.Listen(arguments.port)) {
    std::cerr << "quorvel-demohost: port " << arguments.port << ": " << server.Error() << '\n';
    return 1;
  }
  std::cout << "listening on 127.0.0.1:" << server.Port() << std::endl;

  // A signal handler can do no more than set a flag, so the flag is looked at now and then.
  std::signal(SIGTERM, RequestStop);
  std::signal(SIGINT, RequestStop);
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &program, [&program] {
    if (stopRequested != 0) program.quit();
  });
  watch.start(200);
  return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication program(argc, argv);
  std::vector<std::string> words;
  for (const auto& word : program.arguments().mid(1)) words.push_back(word.toStdString());
  const auto arguments = ParseArguments(words);
  if (!arguments.error.empty()) {
    std::cerr << "quorvel-demohost: " << arguments.error << " (see --help)\n";
    return 2;
  }
  if (arguments.help) {
    std::cout << HelpText();
    return 0;
  }
  try {
    return Serve(program, arguments);
  } catch (const StoreError& error) {
    std::cerr << "quorvel-demohost: " << error.what() << '\n';
    return 1;
  }
}

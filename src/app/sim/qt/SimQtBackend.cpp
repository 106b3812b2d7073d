#include "app/sim/qt/SimQtBackend.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtPrinter.h"
#include "platform/qt/Text.h"

namespace quorvel::sim {
namespace {

char** Arguments() {
  static char name[] = "quorvel-sim-qt";
  static char* arguments[] = {name, nullptr};
  return arguments;
}

// The offscreen platform says again and again what it does not do.
void TellButLimits(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (text.startsWith(QLatin1String("This plugin does not support"))) return;
  std::fprintf(stderr, "%s\n", qFormatLogMessage(type, context, text).toLocal8Bit().constData());
  if (type == QtFatalMsg) std::abort();
}

// The only copy of the program, at home in the story's folder.
class SimApplication : public Application {
 public:
  explicit SimApplication(const Workplace& place)
      : folder_(place.Folder()), commandLine_(place.Configuration()) {}
  std::string Folder() override { return folder_; }
  std::string OwnPathOf(const std::string& name) override { return PathOf(name); }
  char PathSeparator() const override { return QDir::separator().toLatin1(); }
  std::vector<std::string> Drives() override { return {folder_}; }
  std::string ShortDate() override { return "2026-11-23"; }
  std::string CommandLine() const override { return commandLine_; }
  std::string Title() const override { return title_; }
  void SetTitle(const std::string& title) override { title_ = title; }
  bool OtherCopyRuns() override { return false; }
  bool ActivateCopy(const std::string&) override { return false; }

 private:
  const std::string folder_;
  const std::string commandLine_;
  std::string title_ = "Quorvel GUI";
};

// No program is ever started.
class NoPrograms : public Programs {
 public:
  void Start(const std::string&, ProgramWindow) override {}
};

// Every fax is accepted, and goes nowhere.
class NoFax : public FaxService {
 public:
  void SendFax(const FaxJob&, std::int32_t& result, std::string&, std::int32_t&) override {
    result = 0;
  }
};

}  // namespace

struct SimQtBackend::Story {
  explicit Story(const DeskSetup& setup)
      : network(setup.network), rules(setup.rules), application(setup.place), dialogs(printer) {
    // As if the operator had set it up, so that nothing is printed anywhere else; a folder that is
    // not there makes it fail.
    const std::string name = setup.setting.printerFails ? "/none/printed.pdf" : "/printed.pdf";
    printer.Current().setOutputFormat(QPrinter::PdfFormat);
    printer.Current().setOutputFileName(PathToUnicode(setup.place.Folder() + name));
    printer.TakeChoice();
  }
  Network& network;
  Rules& rules;
  SimApplication application;
  QtPrinter printer;
  QtDialogs dialogs;
  NoPrograms programs;
  NoFax fax;
};

SimQtBackend::SimQtBackend() : QtBackend(1, Arguments()) {
  qInstallMessageHandler(TellButLimits);
  // Letters typed in a list are looked up one by one: how fast they come is a matter of real time.
  QApplication::setKeyboardInputInterval(-1);
}

SimQtBackend::~SimQtBackend() = default;

void SimQtBackend::BeginStory(const DeskSetup& setup) {
  story_ = std::make_unique<Story>(setup);
  quit_ = false;
  clipboard().Clear();
  SetMousePointer(MousePointer::Default);
}

void SimQtBackend::EndStory() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  story_.reset();
}

std::unique_ptr<WindowPeer> SimQtBackend::MakePeer(Window& window) {
  story_->rules.OnLoad(window);
  return QtBackend::MakePeer(window);
}

void SimQtBackend::ServeToolkit(Serve serve) {
  const Serve before = std::exchange(serving_, serve);
  QtBackend::ServeToolkit(serve);
  serving_ = before;
}

void SimQtBackend::Quit(int status) {
  quit_ = true;
  QtBackend::Quit(status);
}

MessageBoxAnswer SimQtBackend::ShowMessageBox(const MessageBoxRequest& request) {
  story_->rules.OnBox(request);
  return QtBackend::ShowMessageBox(request);
}

Application& SimQtBackend::application() {
  return story_->application;
}
CommonDialogs& SimQtBackend::dialogs() {
  return story_->dialogs;
}
Printer& SimQtBackend::printer() {
  return story_->printer;
}
Programs& SimQtBackend::programs() {
  return story_->programs;
}
FaxService& SimQtBackend::fax() {
  return story_->fax;
}
std::unique_ptr<Transport> SimQtBackend::MakeTransport() {
  return story_->network.MakeTransport();
}

}  // namespace quorvel::sim

#pragma once

#include <QPointer>
#include <memory>
#include <string>

#include "platform/controls/Backend.h"
#include "platform/qt/InputGate.h"

class QAction;
class QWidget;

namespace quorvel {

class MainShell;

// The real desktop: windows and controls become Qt widgets. It takes the place of QApplication; one
// at a time.
class QtBackend : public Backend {
 public:
  // The arguments are those of main().
  QtBackend(int argc, char** argv);
  ~QtBackend() override;
  QtBackend(const QtBackend&) = delete;
  QtBackend& operator=(const QtBackend&) = delete;

  // Serves events until the program ends; its exit status.
  int Run();

  // --- for tests and the tour
  // nullptr while the window is not loaded.
  QWidget* WidgetOf(const Control& control) const;
  QWidget* WidgetOf(const Window& window) const;
  QAction* ActionOf(const MenuItem& item) const;
  // A picture (PNG) of the main window with all that is open above it. False when it can't be
  // written.
  bool SaveScreenshot(const std::string& path);

  // --- Backend
  std::unique_ptr<WindowPeer> MakePeer(Window& window) override;
  void Wake() override;
  void ServeToolkit(Serve serve) override;
  void Quit(int status) override;
  MessageBoxAnswer ShowMessageBox(const MessageBoxRequest& request) override;
  void PopUp(MenuItem& menu) override;
  void Beep() override;
  void SetMousePointer(MousePointer pointer) override;
  ScreenMetrics Screen() override;
  Application& application() override;
  CommonDialogs& dialogs() override;
  Clipboard& clipboard() override;
  Printer& printer() override;
  Programs& programs() override;
  PictureReader& pictures() override;
  FaxService& fax() override;
  std::unique_ptr<Transport> MakeTransport() override;

 private:
  struct Services;
  class Waker;

  int argc_;
  InputGate app_;
  std::unique_ptr<Services> services_;
  std::unique_ptr<Waker> waker_;
  QPointer<MainShell> shell_;
  bool running_ = false;
  int status_ = 0;
  qint64 lastBeep_ = 0;
};

}  // namespace quorvel

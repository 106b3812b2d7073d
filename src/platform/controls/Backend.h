#pragma once

#include <memory>
#include <string>

#include "platform/Application.h"
#include "platform/CommonDialogs.h"
#include "platform/Fax.h"
#include "platform/MessageBox.h"
#include "platform/Pictures.h"
#include "platform/controls/Window.h"
#include "platform/telnet/Transport.h"

namespace quorvel {

// What the toolkit is to serve, and whether it sleeps until there is something.
enum class Serve {
  Waiting,      // everything; sleep until at least one thing happens
  All,          // everything that is there now
  WithoutInput  // painting and timers of the toolkit only: no user input, no network
};

// A desktop as the plain objects need it. platform/qt has the real one, platform/headless one for
// tests.
class Backend {
 public:
  virtual ~Backend() = default;

  virtual std::unique_ptr<WindowPeer> MakePeer(Window& window) = 0;

  // Something was posted to the desktop's queue: see that Desktop::ServeQueue runs soon.
  virtual void Wake() = 0;
  virtual void ServeToolkit(Serve serve) = 0;
  // The program is to end with this status: leave every loop of the toolkit and close its boxes.
  virtual void Quit(int status) = 0;

  // Blocks, serving events, until the user has answered or the program ends.
  virtual MessageBoxAnswer ShowMessageBox(const MessageBoxRequest& request) = 0;
  // Pops a menu up at the mouse (or the active control); returns when it is closed, the chosen
  // entry's click done.
  virtual void PopUp(MenuItem& menu) = 0;
  virtual void Beep() = 0;
  virtual void SetMousePointer(MousePointer pointer) = 0;

  virtual ScreenMetrics Screen() = 0;
  virtual Application& application() = 0;
  virtual CommonDialogs& dialogs() = 0;
  virtual Clipboard& clipboard() = 0;
  virtual Printer& printer() = 0;
  virtual Programs& programs() = 0;
  virtual PictureReader& pictures() = 0;
  virtual FaxService& fax() = 0;
  virtual std::unique_ptr<Transport> MakeTransport() = 0;
};

}  // namespace quorvel

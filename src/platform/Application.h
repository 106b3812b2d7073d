#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvel {

// The running program as the desktop knows it.
class Application {
 public:
  virtual ~Application() = default;
  // The application folder, where bookmarks, captures and configurations live; made when first
  // needed; without a separator at its end. RuntimeError 76 when it can't be made.
  virtual std::string Folder() = 0;
  // What separates the parts of a path here ("/" or "\").
  virtual char PathSeparator() const = 0;
  // The path of a file of this name in the application folder. RuntimeError 76 as above.
  std::string PathOf(const std::string& name) { return Folder() + PathSeparator() + name; }
  // The same, but of a file that no other running copy of the program uses: the first copy gets the
  // name itself ("REPORT.TXT"), a further one "REPORT-2.TXT" and so on.
  virtual std::string OwnPathOf(const std::string& name) = 0;
  // The drives and mounted volumes, each as the path of its topmost folder.
  virtual std::vector<std::string> Drives() = 0;
  // Today as the system writes a date in its short form.
  virtual std::string ShortDate() = 0;
  // Configuration that the command line named; empty for none.
  virtual std::string CommandLine() const = 0;
  // The title of message boxes, and the name under which other copies can find this one.
  virtual std::string Title() const = 0;
  virtual void SetTitle(const std::string& title) = 0;
  // Whether another copy of the program of the same user is running.
  virtual bool OtherCopyRuns() = 0;
  // Brings the main window of the copy with this title to the front; false if there is none.
  virtual bool ActivateCopy(const std::string& title) = 0;
};

// The text between the last separator ("/" and "\" both count) and the end of `path`.
std::string FileNameOf(const std::string& path);

// Whether `path` holds a separator, so that it is a path and not a bare name.
bool HoldsSeparator(const std::string& path);

// Size of the whole screen in twips, and the twips of one pixel.
struct ScreenMetrics {
  int width = 0;
  int height = 0;
  int twipsPerPixel = 15;
};

// The classic numbers of the mouse pointer of the whole screen.
enum class MousePointer : int { Default = 0, Hourglass = 11 };

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual std::string Text() = 0;
  virtual void SetText(const std::string& text) = 0;
  virtual void Clear() = 0;
};

// The current printer. Operations fail with RuntimeError 482 (printer error).
class Printer {
 public:
  virtual ~Printer() = default;
  virtual std::string DeviceName() = 0;
  // The font of the text that follows; size in points. A font that is not there becomes another.
  virtual void SetFont(const std::string& name, double size) = 0;
  // What the printer really took.
  virtual std::string FontName() = 0;
  virtual double FontSize() = 0;
  // Prints one text and ends the line; line ends inside the text, at its end too, count besides.
  // Opens a document if none is open. Without a printer it fails with a text that says so.
  virtual void PrintText(const std::string& text) = 0;
  // Ends the open document, so that its last page comes out; nothing if none is open.
  virtual void EndDocument() = 0;
  // Prints lines of a screen in a fixed-pitch font as a document of their own. The path of the file
  // that it has become, where there is no printer; else empty.
  virtual std::string PrintScreen(const std::vector<std::string>& lines) = 0;
};

// Window style of a started program, by its classic number.
enum class ProgramWindow : int {
  Hidden = 0,
  NormalFocus = 1,
  MinimizedFocus = 2,
  MaximizedFocus = 3,
  NormalNoFocus = 4,
  MinimizedNoFocus = 6,
};

class Programs {
 public:
  virtual ~Programs() = default;
  // Starts a local program without a shell and without waiting for it. The command line is split
  // by the platform's own rules, quotes honoured. RuntimeError 53 when there is no such program,
  // another RuntimeError when it can't be started.
  virtual void Start(const std::string& commandLine, ProgramWindow window) = 0;
};

}  // namespace quorvel

#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Backend.h"

namespace quorvel {

// The network end that a test holds of a connection the client has opened.
class HeadlessLine {
 public:
  std::string host;
  std::uint16_t port = 0;
  std::vector<std::string> sent;  // what the client wrote, one element a write
  bool open = false;              // from the answer to the opening until either side closes

  bool reading = true;  // false while the client asks the network to hold back

  // What the far side does. Nothing happens on a line that the client has closed.
  void Accept();
  void Refuse(const std::string& reason);
  void Deliver(std::string_view bytes);  // one read
  void HangUp();

  // All writes so far, joined; and forgotten.
  std::string TakeSent();

 private:
  friend class HeadlessTransport;
  TransportListener* listener_ = nullptr;  // nullptr once the client has closed
};

// A box, a common dialog or a pop-up menu that is open on a headless desktop, until somebody
// answers it.
struct HeadlessBox {
  enum class Kind { Message, File, Colour, Font, Printer, PopUp };
  // NOLINTNEXTLINE(google-explicit-constructor): reads as what opens
  HeadlessBox(Kind what, MessageBoxRequest request = {}, MenuItem* popUp = nullptr)
      : kind(what), message(std::move(request)), menu(popUp) {}

  Kind kind;
  MessageBoxRequest message;  // of Kind::Message
  MenuItem* menu;             // of Kind::PopUp
  bool answered = false;
  // The user has given the answer below.
  void Close();

  // --- the answer
  MessageBoxAnswer answer = MessageBoxAnswer::Ok;
  std::optional<std::string> file;  // none: cancelled
  std::optional<std::uint32_t> colour;
  std::optional<quorvel::Font> font;
  bool printer = false;
};

// A desktop without a screen, for tests, simulator and fuzzers. It records what happened. Boxes and
// dialogs stay open, as on a real desktop, until somebody answers them (openBoxes), unless the
// answers have been given beforehand (answersAtOnce, onMessageBox and its like) or nobody is left
// to give one.
class HeadlessBackend : public Backend,
                        private Application,
                        private CommonDialogs,
                        private Clipboard,
                        private Printer,
                        private Programs,
                        private PictureReader,
                        private FaxService {
 public:
  HeadlessBackend();
  ~HeadlessBackend() override;

  // --- what the test sets
  std::string folder;        // the application folder
  bool folderFails = false;  // it can't be made
  std::string commandLine;
  bool otherCopyRuns = false;
  std::vector<std::string> drives{std::filesystem::current_path().root_path().string()};
  ScreenMetrics screen{19200, 12000, 15};
  bool printerFails = false;
  std::string printFile;  // where a screen is printed to, for want of a printer
  std::string shortDate = "2026-11-23";
  // The picture files there are, by path: width and height in pixels.
  std::map<std::string, std::pair<int, int>> pictureFiles;
  // Answers a fax; by default it is accepted. It may throw.
  std::function<void(std::int32_t& result, std::string& message)> onFax;
  bool choosesPrinter = false;  // the answer in the printer dialog that nobody else gives
  std::string printerFont;      // the only one the printer has; empty: it has all
  // Answers given beforehand; each may serve events first. Without one, what opens stays open.
  std::function<MessageBoxAnswer(const MessageBoxRequest&)> onMessageBox;
  std::function<std::optional<std::string>(const FileDialog&)> onFileDialog;
  std::function<std::optional<std::uint32_t>(std::uint32_t)> onColourDialog;
  std::function<std::optional<quorvel::Font>(const quorvel::Font&)> onFontDialog;
  std::function<void(MenuItem&)> onPopUp;
  // What has no answer of its own is left at once: by its first button, or by a cancel.
  bool answersAtOnce = false;
  std::function<void(const std::string& commandLine, ProgramWindow)> onStart;
  std::function<void()> onPaint;  // the toolkit is told to paint
  // Called while a wait has nothing to serve: lets the far side act. True when something came of
  // it. When nothing does, nothing ever will: the process ends and `stalled` tells.
  std::function<bool()> onIdle;

  // --- what happened
  std::vector<MessageBoxRequest> messageBoxes;
  std::vector<FileDialog> fileDialogs;
  std::vector<std::string> printed;  // one element a text
  int documentsEnded = 0;
  int beeps = 0;
  std::vector<MousePointer> pointers;
  std::vector<std::string> activatedCopies;
  std::vector<std::pair<std::string, ProgramWindow>> started;
  std::vector<std::string> picturesRead;  // paths, also of files that are not there
  std::vector<FaxJob> faxes;
  std::string clipboardText;
  std::vector<std::shared_ptr<HeadlessLine>> lines;  // connections opened, oldest first
  bool ended = false;
  int exitStatus = 0;
  bool stalled = false;
  std::vector<HeadlessBox*> openBoxes;  // what opened last comes last
  // The one that takes the input of the user; nullptr while a window does.
  HeadlessBox* BoxInFront() const;

  // Serves events until there are none.
  void RunUntilIdle();

  // --- Backend
  std::unique_ptr<WindowPeer> MakePeer(Window& window) override;
  void Wake() override {}
  void ServeToolkit(Serve serve) override;
  void Quit(int status) override {
    ended = true;
    exitStatus = status;
  }
  MessageBoxAnswer ShowMessageBox(const MessageBoxRequest& request) override;
  void PopUp(MenuItem& menu) override;
  void Beep() override { ++beeps; }
  void SetMousePointer(MousePointer pointer) override { pointers.push_back(pointer); }
  ScreenMetrics Screen() override { return screen; }
  Application& application() override { return *this; }
  CommonDialogs& dialogs() override { return *this; }
  Clipboard& clipboard() override { return *this; }
  Printer& printer() override { return *this; }
  Programs& programs() override { return *this; }
  PictureReader& pictures() override { return *this; }
  FaxService& fax() override { return *this; }
  std::unique_ptr<Transport> MakeTransport() override;

 private:
  std::string Folder() override;
  std::string OwnPathOf(const std::string& name) override { return PathOf(name); }
  char PathSeparator() const override;
  std::vector<std::string> Drives() override { return drives; }
  std::string ShortDate() override { return shortDate; }
  std::string CommandLine() const override { return commandLine; }
  std::string Title() const override { return title_; }
  void SetTitle(const std::string& title) override { title_ = title; }
  bool OtherCopyRuns() override { return otherCopyRuns; }
  bool ActivateCopy(const std::string& title) override;
  std::optional<std::string> ChooseFile(const FileDialog& dialog) override;
  std::optional<std::uint32_t> ChooseColour(std::uint32_t present) override;
  std::optional<quorvel::Font> ChooseFont(const quorvel::Font& present) override;
  bool ChoosePrinter() override;
  std::string Text() override { return clipboardText; }
  void SetText(const std::string& text) override { clipboardText = text; }
  void Clear() override { clipboardText.clear(); }
  std::string DeviceName() override { return "Headless printer"; }
  void SetFont(const std::string& name, double size) override;
  std::string FontName() override { return fontName_; }
  double FontSize() override { return fontSize_; }
  void PrintText(const std::string& text) override;
  void EndDocument() override { ++documentsEnded; }
  std::string PrintScreen(const std::vector<std::string>& screenLines) override;
  void Start(const std::string& command, ProgramWindow window) override;
  std::shared_ptr<const Picture> ReadPicture(const std::string& path) override;
  void SendFax(const FaxJob& job, std::int32_t& result, std::string& message,
               std::int32_t& extra) override;

  HeadlessBox KeepOpen(HeadlessBox box);

  std::string title_ = "Quorvel GUI";
  std::string fontName_;
  double fontSize_ = 0;
};

}  // namespace quorvel

#include "platform/headless/HeadlessBackend.h"

#include <algorithm>
#include <filesystem>

#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// The frame of a window on a plain desktop, in twips: borders at the sides; title, menu bar and
// borders one above the other.
constexpr int kFrameWidth = 120;
constexpr int kFrameHeight = 690;

// A dialog laid out in rows, in twips.
constexpr int kRowHeight = 450;
constexpr int kDialogWidth = 5400;

// Nothing is drawn here; the state is in the objects.
class HeadlessControlPeer : public ControlPeer {
 public:
  void Update(Prop) override {}
  void ShowFocus() override {}
};

class HeadlessWindowPeer : public WindowPeer {
 public:
  explicit HeadlessWindowPeer(Window& window) {
    if (window.kind() != Window::Kind::Child) window.AdoptFrame(kFrameWidth, kFrameHeight);
    if (!window.layout().empty()) {
      window.Width.Adopt(kDialogWidth);
      window.Height.Adopt(kFrameHeight + kRowHeight * static_cast<int>(window.layout().size()));
    }
  }
  std::unique_ptr<ControlPeer> MakePeer(Control&) override {
    return std::make_unique<HeadlessControlPeer>();
  }
  void Update(Prop) override {}
  void UpdateMenu(MenuItem&) override {}
  void Show(bool) override {}
  void Hide() override {}
  void Raise() override {}
  void ShowNoFocus() override {}
};

}  // namespace

// --- the network

class HeadlessTransport : public Transport {
 public:
  explicit HeadlessTransport(HeadlessBackend& backend) : backend_(backend) {}
  ~HeadlessTransport() override { HeadlessTransport::Close(); }
  HeadlessTransport(const HeadlessTransport&) = delete;
  HeadlessTransport& operator=(const HeadlessTransport&) = delete;

  void Open(const std::string& host, std::uint16_t port, TransportListener& listener) override {
    Close();
    line_ = std::make_shared<HeadlessLine>();
    line_->host = host;
    line_->port = port;
    line_->listener_ = &listener;
    backend_.lines.push_back(line_);
  }
  void Write(std::string_view bytes) override {
    if (line_ && line_->open) line_->sent.emplace_back(bytes);
  }
  void SetReading(bool reading) override {
    if (line_) line_->reading = reading;
  }
  void Close() override {
    if (!line_) return;
    line_->open = false;
    line_->listener_ = nullptr;
    line_.reset();
  }

 private:
  HeadlessBackend& backend_;
  std::shared_ptr<HeadlessLine> line_;
};

void HeadlessLine::Accept() {
  if (!listener_ || open) return;
  open = true;
  listener_->OnOpened();
}

void HeadlessLine::Refuse(const std::string& reason) {
  if (listener_ && !open) listener_->OnFailed(reason);
}

void HeadlessLine::Deliver(std::string_view bytes) {
  if (listener_ && open) listener_->OnBytes(bytes);
}

void HeadlessLine::HangUp() {
  if (!listener_ || !open) return;
  open = false;
  listener_->OnClosed();
}

std::string HeadlessLine::TakeSent() {
  std::string all;
  for (const std::string& write : sent) all += write;
  sent.clear();
  return all;
}

// --- the desktop

HeadlessBackend::HeadlessBackend() = default;
HeadlessBackend::~HeadlessBackend() = default;

std::unique_ptr<WindowPeer> HeadlessBackend::MakePeer(Window& window) {
  return std::make_unique<HeadlessWindowPeer>(window);
}

void HeadlessBackend::ServeToolkit(Serve serve) {
  if (serve != Serve::Waiting && onPaint) onPaint();
  if (serve != Serve::Waiting || (onIdle && onIdle())) return;
  stalled = true;
  desktop().EndProcess();
}

void HeadlessBackend::RunUntilIdle() {
  while (!ended && (desktop().ServeOne() || (onIdle && onIdle()))) {
  }
}

// --- boxes and dialogs

void HeadlessBox::Close() {
  answered = true;
  if (kind != Kind::PopUp) desktop().BoxHasClosed();
}

// Serves events until it is answered, or the program ends. Where nothing will ever come any more,
// it is left as it stands: by its first button, or by a cancel.
HeadlessBox HeadlessBackend::KeepOpen(HeadlessBox box) {
  const bool ok = (box.message.style & MessageBoxStyle::kButtonMask) == MessageBoxStyle::kOkOnly;
  box.answer = ok ? MessageBoxAnswer::Ok : MessageBoxAnswer::Yes;
  box.printer = choosesPrinter;
  if (answersAtOnce) return box;
  openBoxes.push_back(&box);
  while (!box.answered && !ended) {
    if (onPaint) onPaint();
    if (!desktop().ServeOne() && !(onIdle && onIdle())) break;
  }
  openBoxes.pop_back();
  return box;
}

HeadlessBox* HeadlessBackend::BoxInFront() const {
  if (!openBoxes.empty() && openBoxes.back()->kind == HeadlessBox::Kind::PopUp) {
    return openBoxes.back()->answered ? nullptr : openBoxes.back();
  }
  const auto open = std::find_if(openBoxes.rbegin(), openBoxes.rend(),
                                 [](const HeadlessBox* box) { return !box->answered; });
  return open == openBoxes.rend() || !desktop().IsBoxInFront() ? nullptr : *open;
}

MessageBoxAnswer HeadlessBackend::ShowMessageBox(const MessageBoxRequest& request) {
  messageBoxes.push_back(request);
  if (onMessageBox) return onMessageBox(request);
  return KeepOpen({HeadlessBox::Kind::Message, request}).answer;
}

void HeadlessBackend::PopUp(MenuItem& menu) {
  if (onPopUp) return onPopUp(menu);
  KeepOpen({HeadlessBox::Kind::PopUp, {}, &menu});
}

bool HeadlessBackend::ChoosePrinter() {
  return KeepOpen({HeadlessBox::Kind::Printer}).printer;
}

std::unique_ptr<Transport> HeadlessBackend::MakeTransport() {
  return std::make_unique<HeadlessTransport>(*this);
}

std::string HeadlessBackend::Folder() {
  if (folderFails) throw RuntimeError(Failure::PathNotFound);
  return folder;
}

char HeadlessBackend::PathSeparator() const {
  return static_cast<char>(std::filesystem::path::preferred_separator);
}

bool HeadlessBackend::ActivateCopy(const std::string& title) {
  activatedCopies.push_back(title);
  return otherCopyRuns;
}

std::optional<std::uint32_t> HeadlessBackend::ChooseColour(std::uint32_t present) {
  if (onColourDialog) return onColourDialog(present);
  return KeepOpen({HeadlessBox::Kind::Colour}).colour;
}

std::optional<quorvel::Font> HeadlessBackend::ChooseFont(const quorvel::Font& present) {
  if (onFontDialog) return onFontDialog(present);
  return KeepOpen({HeadlessBox::Kind::Font}).font;
}

std::optional<std::string> HeadlessBackend::ChooseFile(const FileDialog& dialog) {
  fileDialogs.push_back(dialog);
  if (onFileDialog) return onFileDialog(dialog);
  return KeepOpen({HeadlessBox::Kind::File}).file;
}

void HeadlessBackend::SetFont(const std::string& name, double size) {
  if (printerFails) throw RuntimeError(Failure::PrinterError);
  fontName_ = printerFont.empty() ? name : printerFont;
  fontSize_ = size;
}

void HeadlessBackend::PrintText(const std::string& text) {
  if (printerFails) throw RuntimeError(Failure::PrinterError);
  printed.push_back(text);
}

std::string HeadlessBackend::PrintScreen(const std::vector<std::string>& screenLines) {
  for (const std::string& line : screenLines) PrintText(line);
  EndDocument();
  return printFile;
}

namespace {

// Nothing but a size.
class HeadlessPicture : public Picture {
 public:
  HeadlessPicture(int width, int height) : width_(width), height_(height) {}
  int Width() const override { return width_; }
  int Height() const override { return height_; }
  std::shared_ptr<const Picture> Scaled(int width, int height) const override {
    if (width < 1 || height < 1) throw RuntimeError(Failure::InvalidCall);
    return std::make_shared<HeadlessPicture>(width, height);
  }

 private:
  const int width_;
  const int height_;
};

}  // namespace

std::shared_ptr<const Picture> HeadlessBackend::ReadPicture(const std::string& path) {
  picturesRead.push_back(path);
  const auto found = pictureFiles.find(path);
  if (found == pictureFiles.end()) throw RuntimeError(Failure::FileNotFound);
  return std::make_shared<HeadlessPicture>(found->second.first, found->second.second);
}

void HeadlessBackend::SendFax(const FaxJob& job, std::int32_t& result, std::string& message,
                              std::int32_t&) {
  faxes.push_back(job);
  if (onFax) onFax(result, message);
}

void HeadlessBackend::Start(const std::string& command, ProgramWindow window) {
  if (onStart) onStart(command, window);
  started.emplace_back(command, window);
}

}  // namespace quorvel

// The whole client on a headless desktop under any bytes of the host: telnet layer, block queue,
// receiver, dispatcher, requests, menu window, terminal. The first byte chooses the state of the
// session that the bytes meet and how they are cut into reads. Nothing may crash, and when the link
// has ended the client must be able to begin another session.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "app/Wiring.h"
#include "link/HandOvers.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "link/StartUp.h"
#include "platform/controls/Desktop.h"
#include "platform/headless/HeadlessBackend.h"
#include "terminal/frmTelnet.h"

namespace quorvel {
namespace {

// Most of an input that is used: longer ones say nothing new and are slow.
constexpr std::size_t kLongestInput = 1 << 16;

// The states of a session that the host's bytes can meet.
enum class Meets { Login, Idle, ReadPending, Capture, PassThroughPrint, Count };

void Prepare(Meets state) {
  SessionState& s = Session();
  switch (state) {
    case Meets::Login:
      return;
    case Meets::ReadPending:
      desktop().Post(EventKind::User, [] { ReadRecord("FILE", "KEY"); });
      break;
    case Meets::PassThroughPrint:
      s.PassThroughPrint = kTrue;
      break;
    case Meets::Capture:
    case Meets::Idle:
    case Meets::Count:
      break;
  }
  s.PendingOp = state == Meets::Capture ? "Capture" : "";
}

void PlaySession(HeadlessBackend& backend, Meets state, std::size_t cut, std::string_view bytes) {
  Desktop desktop(backend);
  Session() = SessionState{};
  WireHandOvers();
  desktop.Handle(EventKind::Program, [] { Main(); });
  SessionState& s = Session();
  s.UserId = "demo";
  s.HostName = "host";
  s.LoginString = "ogin";
  s.PwdString = "word";
  s.SendKeys = "^[13]";
  s.CaptureFile = (std::filesystem::temp_directory_path() / "quorvel-fuzz-capture.txt").string();
  desktop.Handle(EventKind::Program, [] { StartSession(); });
  if (backend.lines.empty()) std::abort();
  const auto line = backend.lines.back();
  line->Accept();
  backend.RunUntilIdle();
  Prepare(state);
  // A wait with nothing more to come ends with the link, as a user would end it.
  backend.onIdle = [&] {
    if (!bytes.empty()) {
      const std::size_t size = cut == 0 ? bytes.size() : std::min(cut, bytes.size());
      line->Deliver(bytes.substr(0, size));
      bytes.remove_prefix(size);
      return true;
    }
    if (line->open) {
      line->HangUp();
      return true;
    }
    Window* front = desktop.focus().Front();
    if (!front || !front->IsModal()) return false;
    front->UserClose();
    return true;
  };
  backend.RunUntilIdle();
  if (backend.ended) return;
  if (line->open) std::abort();
  // The next session.
  desktop.Handle(EventKind::Program, [] { StartSession(); });
  if (backend.lines.back() == line) std::abort();
  backend.lines.back()->Accept();
  backend.RunUntilIdle();
  if (!LoadedForm<frmTelnet>()) std::abort();
}

}  // namespace
}  // namespace quorvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0 || size > quorvel::kLongestInput) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  const auto state = static_cast<quorvel::Meets>(data[0] % static_cast<int>(quorvel::Meets::Count));
  static constexpr std::size_t kCuts[] = {0, 1, 2, 7, 64};
  quorvel::HeadlessBackend backend;
  quorvel::PlaySession(backend, state, kCuts[data[0] / 16 % 5], bytes);
  return 0;
}

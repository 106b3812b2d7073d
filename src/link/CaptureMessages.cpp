#include "link/CaptureMessages.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "link/HandOvers.h"
#include "link/HostWait.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

constexpr std::int16_t kFaxFields = 11;  // the rest of FaxValues is the fax window's own

std::string EmptyIfBlank(const std::string& text) {
  return text.find_first_not_of(' ') == std::string::npos ? std::string() : text;
}

// The value of ExportType decides whether a report goes to a program at once.
bool ExportsAtOnce(std::int16_t type) {
  return type == 0 || type == 2;
}

// A report may be confidential.
void KeepPrivate(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write, ignored);
}

}  // namespace

void TakeCaptureOn() {
  SessionState& s = Session();
  Ask().EnableSessionWindows(false);
  s.PendingOp = "Capture";
  s.CaptureFailureTold = false;
  s.CaptureCommand = EmptyIfBlank(FieldOf(s.HostMessage, FS, 2));
  s.CaptureStrip = EmptyIfBlank(FieldOf(s.HostMessage, FS, 3));
  const std::string fax = FieldOf(s.HostMessage, FS, 4);
  for (std::int16_t i = 0; i < kFaxFields; ++i) {
    s.FaxValues[static_cast<std::size_t>(i)] = FieldOf(fax, AM, static_cast<std::int16_t>(i + 1));
  }
  std::error_code ignored;
  std::filesystem::remove(s.CaptureFile, ignored);
}

void AppendToCapture(std::string_view block) {
  SessionState& s = Session();
  errno = 0;
  std::ofstream file(s.CaptureFile, std::ios::binary | std::ios::app | std::ios::ate);
  if (file && file.tellp() == 0) KeepPrivate(s.CaptureFile);
  file.write(block.data(), static_cast<std::streamsize>(block.size()));
  file.close();
  if (file || s.CaptureFailureTold) return;
  s.CaptureFailureTold = true;
  const int reason = errno;
  desktop().MsgBox("The report can't be written to " + s.CaptureFile + "\n\n" +
                       (reason != 0 ? std::generic_category().message(reason)
                                    : std::string(FailureText(Failure::PathFileAccess))) +
                       "\n\nParts of it will be missing.",
                   MessageBoxStyle::kExclamation);
}

void EndCapture() {
  ResumeAwaiting();
}

void TakeCaptureOff() {
  SessionState& s = Session();
  EndCapture();
  if (!s.CaptureCommand.empty() || ExportsAtOnce(s.ExportType)) {
    Ask().RunExport(s.CaptureCommand);
    Ask().EnableSessionWindows(true);
    return;
  }
  Ask().ShowReport();
}

}  // namespace quorvel

#include "output/frmReport.h"

#include <chrono>
#include <filesystem>
#include <fstream>

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/SessionState.h"
#include "output/PrintReport.h"
#include "output/RunExport.h"
#include "output/frmFax.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/TerminalControl.h"
#include "settings/WindowPlacing.h"

namespace quorvel {
namespace {

// In twips: 100 characters and some 30 lines of a usual terminal font.
constexpr int kWidth = 13500;
constexpr int kHeight = 9000;

// Read at a time, in bytes: lines are found while the piece is still in the processor's cache.
constexpr std::size_t kPiece = std::size_t{256} << 10;

// A load that takes longer than this shows its first page meanwhile.
constexpr auto kMoment = std::chrono::milliseconds(150);

// The screen's mouse pointer is the hourglass while this lives.
class Hourglass {
 public:
  Hourglass() { desktop().SetMousePointer(MousePointer::Hourglass); }
  ~Hourglass() { desktop().SetMousePointer(MousePointer::Default); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

std::string WithThousands(std::size_t number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, ",");
  return text;
}

}  // namespace

frmReport::frmReport() : Window(Kind::Dialog, "frmReport") {
  Caption = "Report";
  Resizable = true;
  txtReport.AccessibleText = "Report";
  lblFind.Caption = "Fi&nd:";
  lblFind.StandsFor(txtFind);
  cmdPrevious.Caption = "Pre&vious";
  cmdNext.Caption = "Ne&xt";
  chkHeading.Caption = "First &line stays on top";
  txtReport.TabIndex = 0;
  SetLayout({Stretch(txtReport),
             Bar({&lblFind, &txtFind, &cmdPrevious, &cmdNext, &lblMatches, &chkHeading})});

  txtFind.Change = [this] {
    search_.Seek(txtFind.Text());
    ShowMatches();
  };
  cmdNext.Click = [this] {
    search_.Next();
    ShowMatches();
  };
  cmdPrevious.Click = [this] {
    search_.Previous();
    ShowMatches();
  };
  chkHeading.Click = [this] { txtReport.FirstLineStays = chkHeading.Value(); };
  mnuFilePrint.Click = [this] { PrintReport(txtReport.Lines()); };
  mnuFileExport.Click = [] {
    std::string settingsDecide;
    RunExport(settingsDecide);
  };
  mnuFileExit.Click = [this] { Unload(); };
  mnuSendFax.Click = [] { Form<frmFax>()->ShowModal(); };
  mnuOptExp.Click = [] { Ask().ShowExportParameters(); };
  mnuOptFax.Click = [] { Ask().ShowFaxSettings(); };
}

void frmReport::Form_Load() {
  const SessionState& s = Session();
  if (const Terminal* terminal = Ask().TerminalControl()) txtReport.Font = terminal->Font();
  Width = kWidth;
  Height = kHeight;
  CenterOnScreen(*this);
  Caption = "Report - " + s.CaptureFile;
  const bool mayPrint = s.AllowPrint == 1;
  mnuFilePrint.Visible = mayPrint;
  mnuFilePrint.Enabled = mayPrint;
}

void frmReport::Form_Activate() {
  if (!ActiveControl()) txtReport.SetFocus();
}

void frmReport::Form_Unload(bool&) {
  {
    const Hourglass waiting;
    Caption = "Clearing report screen...";
    txtReport.Clear();
  }
  Ask().EnableSessionWindows(true);
}

void frmReport::Fill(std::istream& file, std::size_t expectedBytes) {
  using Clock = std::chrono::steady_clock;
  txtReport.Clear();
  search_.Reset();
  ReportLines& lines = txtReport.Fill();
  const auto started = Clock::now();
  bool painted = false;
  try {
    // One byte more than is expected, so that reading meets the end without another piece.
    lines.Reserve(std::min(expectedBytes + 1, ReportLines::kMostBytes));
    while (file) {
      const std::span<char> room = lines.Room(1);
      file.read(room.data(), static_cast<std::streamsize>(std::min(room.size(), kPiece)));
      lines.Took(static_cast<std::size_t>(file.gcount()));
      if (painted || Clock::now() - started < kMoment) continue;
      painted = true;
      txtReport.PaintNow();
    }
    lines.Finish();
  } catch (const RuntimeError&) {
    desktop().SetMousePointer(MousePointer::Default);
    txtReport.Changed();
    desktop().MsgBox("Memory exceeded! Choose Export to view entire report");
  }
  txtReport.Changed();
  search_.Seek(txtFind.Text());
  ShowMatches();
}

// --- search and copy

void frmReport::Form_KeyDown(KeyEvent& key) {
  if (FindKey(key)) key.code = 0;
}

bool frmReport::FindKey(const KeyEvent& key) {
  const bool inFind = txtFind.HasFocus();
  const auto is = [&key](KeyCode code, int shift) {
    return key.code == static_cast<int>(code) && key.shift == shift;
  };
  if (key.shift == kControl && key.code == 'F') {
    txtFind.SetFocus();
    txtFind.SelStart = 0;
    txtFind.SelLength = static_cast<int>(txtFind.Text().size());
  } else if (key.shift == kControl && key.code == 'C' && txtReport.HasFocus()) {
    CopySelected();
  } else if (is(KeyCode::F3, kNoShift) || (inFind && is(KeyCode::Return, kNoShift))) {
    cmdNext.Click();
  } else if (is(KeyCode::F3, kShift) || (inFind && is(KeyCode::Return, kShift))) {
    cmdPrevious.Click();
  } else if (inFind && is(KeyCode::Escape, kNoShift)) {
    txtReport.SetFocus();
  } else {
    return false;
  }
  return true;
}

void frmReport::CopySelected() {
  try {
    const std::string text = txtReport.SelectedText(CRLF);
    if (!text.empty()) desktop().backend().clipboard().SetText(text);
  } catch (const RuntimeError&) {
    desktop().MsgBox("There is too much selected to be copied. Choose Export to take the report.");
  }
}

void frmReport::ShowMatches() {
  if (txtFind.Text().empty()) {
    lblMatches.Caption = std::string();
  } else if (search_.Count() == 0) {
    lblMatches.Caption = "No match";
  } else {
    lblMatches.Caption = WithThousands(search_.Number()) + " of " + WithThousands(search_.Count());
  }
}

// --- from the capture file

void ShowReport() {
  Form<frmReport>()->Show();
  const Hourglass waiting;
  const std::filesystem::path path = Session().CaptureFile;
  std::error_code failed;
  if (!std::filesystem::exists(path, failed)) return;
  std::ifstream file(path, std::ios::binary);
  if (!file) throw RuntimeError(Failure::PathFileAccess);
  desktop().Yield();
  frmReport* const report = LoadedForm<frmReport>();
  if (!report) return;
  const auto size = std::filesystem::file_size(path, failed);
  report->Fill(file, failed ? 0 : static_cast<std::size_t>(size));
}

}  // namespace quorvel

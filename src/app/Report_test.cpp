// A captured report from the host's bytes to the viewer, its search and its printer.
#include "app/FarEndTest.h"
#include "output/frmPrintStatus.h"
#include "output/frmReport.h"

namespace quorvel {
namespace {

using namespace std::string_literals;

class ReportTest : public FarEndTest {
 protected:
  // The host captures these blocks; the settings lead to the viewer.
  frmReport& Capture(const Texts& blocks) {
    if (backend.lines.empty()) LogIn();
    Deliver(FrameOf({"~CAPTURE-ON~", "", "", ""}));
    for (const std::string& block : blocks) Deliver(block);
    Deliver(FrameOf({"~CAPTURE-OFF~"}));
    frmReport* report = LoadedForm<frmReport>();
    if (!report) throw std::runtime_error("the viewer did not open");
    return *report;
  }
  static Texts LinesOf(const frmReport& report) {
    Texts lines;
    for (std::size_t i = 0; i < report.txtReport.Lines().Count(); ++i) {
      lines.emplace_back(report.txtReport.Lines().At(i));
    }
    return lines;
  }
  static bool TerminalEnabled() {
    return LoadedForm<frmTelnet>()->Enabled() && LoadedForm<frmTelnet>()->mnuBookMarks.Enabled() &&
           LoadedForm<mdiMain>()->pnlButtons.Enabled();
  }
};

TEST_F(ReportTest, ShowsEveryLineAndKeepsTheTerminalFromTheUser) {
  LogIn();
  LoadedForm<frmTelnet>()->VT2201.Font = {"Some Mono", 11, true};
  backend.pointers.clear();
  frmReport& report = Capture({"Customer List\r", "\nC1001  Ajax\r\n", "\xE9t\xE9\n same item\r"});
  EXPECT_EQ(LinesOf(report), (Texts{"Customer List", "C1001  Ajax", "\xE9t\xE9\n same item"}));
  EXPECT_EQ(report.Caption(), "Report - " + Session().CaptureFile);
  EXPECT_EQ(report.txtReport.Font(), (Font{"Some Mono", 11, true}));
  EXPECT_TRUE(report.mnuFilePrint.Visible());
  EXPECT_FALSE(report.IsModal());
  EXPECT_FALSE(TerminalEnabled());
  EXPECT_EQ(backend.pointers, (std::vector{MousePointer::Hourglass, MousePointer::Default}));
  backend.pointers.clear();
  Do([&] { report.mnuFileExit.UserClick(); });
  EXPECT_EQ(backend.pointers, (std::vector{MousePointer::Hourglass, MousePointer::Default}));
  EXPECT_EQ(LoadedForm<frmReport>(), nullptr);
  EXPECT_TRUE(TerminalEnabled());
  EXPECT_TRUE(std::filesystem::exists(Session().CaptureFile));
  EXPECT_EQ(BoxTexts(), Texts{});
}

// Line ends, by blocks that cut them anywhere: CR and CR LF end a line, a lone LF does not.
TEST_F(ReportTest, LineEnds) {
  const struct {
    Texts blocks;
    Texts lines;
  } cases[] = {
      {{}, {}},
      {{"\r"}, {""}},
      {{"a"}, {"a"}},
      {{"a\r"}, {"a"}},
      {{"a\r\n\r\nb"}, {"a", "", "b"}},
      {{"a\r\rb\n\r"}, {"a", "", "b\n"}},
      {{"\n\r\n"}, {"\n"}},
      {{"one\nlong\nitem\n"}, {"one\nlong\nitem\n"}},
      {{"a\0b\r\n\0"s}, {"a\0b"s, "\0"s}},
  };
  for (const auto& [blocks, lines] : cases) {
    EXPECT_EQ(LinesOf(Capture(blocks)), lines);
    Do([] { Form<frmReport>()->Unload(); });
  }
}

TEST_F(ReportTest, WithoutAFileItOpensEmptyAndSilent) {
  frmReport& report = Capture({});
  EXPECT_FALSE(std::filesystem::exists(Session().CaptureFile));
  EXPECT_TRUE(report.IsVisible());
  EXPECT_EQ(LinesOf(report), Texts{});
  EXPECT_EQ(BoxTexts(), Texts{});
}

TEST_F(ReportTest, OffersPrintingByTheSetting) {
  for (const auto allow : std::initializer_list<std::int16_t>{0, 1, 2}) {
    if (backend.lines.empty()) LogIn();
    Session().AllowPrint = allow;
    frmReport& report = Capture({"x\r"});
    EXPECT_EQ(report.mnuFilePrint.Visible(), allow == 1);
    EXPECT_EQ(report.mnuFilePrint.Enabled(), allow == 1);
    Do([&] { report.Unload(); });
  }
}

// The entries beside printing and fax; an export leaves the viewer open.
TEST_F(ReportTest, EntriesOfTheMenu) {
  frmReport& report = Capture({"line\r\n"});
  Texts calls;
  Ask().ShowExportParameters = [&] { calls.emplace_back("export"); };
  Ask().ShowFaxSettings = [&] { calls.emplace_back("fax"); };
  Do([&] { report.mnuOptExp.UserClick(), report.mnuOptFax.UserClick(); });
  EXPECT_EQ(calls, (Texts{"export", "fax"}));

  std::string path = folder.Path() + "/out.txt";
  backend.onFileDialog = [&](const FileDialog&) { return path; };
  Session().ExportType = 1;
  Session().ExportCommands[0] = "* " + std::string(31, ' ') + "edit @";
  Do([&] { report.mnuFileExport.UserClick(); });
  ASSERT_EQ(backend.started.size(), 1u);
  EXPECT_EQ(backend.started[0].first, "edit " + path);
  EXPECT_EQ(std::filesystem::file_size(path), 6u);
  EXPECT_EQ(LoadedForm<frmReport>(), &report);
  EXPECT_FALSE(TerminalEnabled());
}

// --- faults of the capture

TEST_F(ReportTest, AFileLostHalfWayAndAFolderThatIsGone) {
  LogIn();
  Deliver(FrameOf({"~CAPTURE-ON~", "", "", ""}));
  Deliver("first\r\n");
  std::filesystem::remove(Session().CaptureFile);
  Deliver("second\r\n");
  Deliver(FrameOf({"~CAPTURE-OFF~"}));
  EXPECT_EQ(LinesOf(*LoadedForm<frmReport>()), Texts{"second"});
  Do([] { Form<frmReport>()->Unload(); });

  Session().CaptureFile = folder.Path() + "/none/TEMPRPT.TXT";
  Capture({"a\r\n", "b\r\n", "c\r\n"});
  ASSERT_EQ(backend.messageBoxes.size(), 1u);  // one for the whole capture
  EXPECT_NE(BoxTexts()[0].find(Session().CaptureFile), std::string::npos);
  EXPECT_EQ(Session().PendingOp, "");
  Do([] { Form<frmReport>()->Unload(); });
  EXPECT_TRUE(TerminalEnabled());
}

// A device that is always full stands for the disk.
TEST_F(ReportTest, AFullDisk) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "there is no such device here";
  LogIn();
  Deliver(FrameOf({"~CAPTURE-ON~", "", "", ""}));
  const std::string usual = std::exchange(Session().CaptureFile, "/dev/full");
  Deliver("one\r\n");
  Deliver("two\r\n");
  Session().CaptureFile = usual;
  Deliver("three\r\n");
  Deliver(FrameOf({"~CAPTURE-OFF~"}));
  EXPECT_EQ(BoxTexts(), Texts{"The report can't be written to /dev/full\n\nNo space left on device"
                              "\n\nParts of it will be missing."});
  EXPECT_EQ(LinesOf(*LoadedForm<frmReport>()), Texts{"three"});
}

// The setting keeps the last lines of a report that the network joins with what ends it.
TEST_F(ReportTest, LastLinesInTheBlockOfTheClosingFrame) {
  LogIn();
  const auto capture = [this] {
    Deliver(FrameOf({"~CAPTURE-ON~", "", "", ""}));
    Deliver("first\r\n");
    Deliver("last\r\n" + FrameOf({"~CAPTURE-OFF~"}));
    Texts lines = LinesOf(*LoadedForm<frmReport>());
    Do([] { Form<frmReport>()->Unload(); });
    return lines;
  };
  EXPECT_EQ(capture(), Texts{"first"});
  EXPECT_TRUE(ScreenShows("last"));
  Session().CutAtFrames = 1;
  EXPECT_EQ(capture(), (Texts{"first", "last"}));
}

TEST_F(ReportTest, ALinkLostInACaptureLeavesForceOffAsTheWayOut) {
  LogIn();
  Deliver(FrameOf({"~CAPTURE-ON~", "", "", ""}));
  Deliver("half\r\n");
  EXPECT_EQ(Session().PendingOp, "Capture");
  Line().HangUp();
  backend.RunUntilIdle();
  EXPECT_FALSE(backend.ended);
  EXPECT_EQ(LoadedForm<frmReport>(), nullptr);
  EXPECT_TRUE(std::filesystem::exists(Session().CaptureFile));
  EXPECT_EQ(Session().PendingOp, "Capture");
}

TEST_F(ReportTest, AllBytesAndVeryLongLines) {
  LogIn();
  std::string all;  // but the frame mark
  for (int byte = 0; byte < 256; ++byte) {
    if (byte != Session().Magic) all += static_cast<char>(byte);
  }
  frmReport& report = Capture({all + "\xFF"});  // RFC 854: IAC is sent twice
  EXPECT_EQ(report.txtReport.Lines().Text(), all);
  EXPECT_EQ(report.txtReport.Lines().Count(), 2u);
  Do([&] { report.Unload(); });

  const std::string wide(1'000'000, 'w');
  Texts blocks;
  for (std::size_t at = 0; at < wide.size(); at += 16'000)
    blocks.push_back(wide.substr(at, 16'000));
  blocks.push_back("\r\n");
  frmReport& long_lines = Capture(blocks);
  EXPECT_EQ(long_lines.txtReport.Lines().Longest(), wide.size());
  EXPECT_EQ(long_lines.txtReport.Lines().At(0), wide);
}

// --- finding and copying

TEST_F(ReportTest, SearchGoesRoundAndCounts) {
  frmReport& report = Capture({"Total 1\r\nsubtotal, TOTAL\r\nnone\r\ntotal\r\n"});
  using Mark = ReportView::Mark;
  const auto marked = [&] { return report.txtReport.Marked(); };
  user.Press(static_cast<KeyCode>('F'), kControl);
  EXPECT_TRUE(report.txtFind.HasFocus());
  user.Type("toTal");
  EXPECT_EQ(marked(), (Mark{0, 0, 5}));
  EXPECT_EQ(report.lblMatches.Caption(), "1 of 4");
  const struct {
    KeyCode key;
    int shift;
    Mark mark;
    const char* matches;
  } presses[] = {
      {KeyCode::F3, kNoShift, {1, 3, 5}, "2 of 4"},
      {KeyCode::Return, kNoShift, {1, 10, 5}, "3 of 4"},
      {KeyCode::F3, kNoShift, {3, 0, 5}, "4 of 4"},
      {KeyCode::F3, kNoShift, {0, 0, 5}, "1 of 4"},
      {KeyCode::F3, kShift, {3, 0, 5}, "4 of 4"},
      {KeyCode::Return, kShift, {1, 10, 5}, "3 of 4"},
      {KeyCode::F3, kShift, {1, 3, 5}, "2 of 4"},
  };
  for (const auto& press : presses) {
    user.Press(press.key, press.shift);
    EXPECT_EQ(marked(), press.mark);
    EXPECT_EQ(report.lblMatches.Caption(), press.matches);
  }
  user.Type("x");
  EXPECT_EQ(report.lblMatches.Caption(), "No match");
  EXPECT_EQ(marked().length, 0u);
  user.Press(KeyCode::F3);
  EXPECT_EQ(marked().length, 0u);
  user.Press(KeyCode::Escape);
  EXPECT_TRUE(report.txtReport.HasFocus());
  EXPECT_TRUE(report.IsVisible());
}

// The host captures again while the viewer shows what the user has searched.
TEST_F(ReportTest, AnotherReportInTheOpenViewer) {
  frmReport& report = Capture({std::string(500, '.') + "needle\r\nneedle\r\n"});
  report.txtFind.SetFocus();
  user.Type("needle");
  user.Press(KeyCode::F3);
  EXPECT_EQ(report.lblMatches.Caption(), "2 of 2");
  EXPECT_EQ(LinesOf(Capture({"a needle\r\n"})), Texts{"a needle"});
  EXPECT_EQ(report.lblMatches.Caption(), "1 of 1");
  for (const int shift : {kNoShift, kShift}) {
    user.Press(KeyCode::F3, shift);
    EXPECT_EQ(report.txtReport.Marked(), (ReportView::Mark{0, 2, 6}));
  }
  EXPECT_EQ(LinesOf(Capture({"\r\n"})), Texts{""});
  user.Press(KeyCode::F3);
  EXPECT_EQ(report.txtReport.Marked().length, 0u);
  EXPECT_EQ(report.lblMatches.Caption(), "No match");
}

TEST_F(ReportTest, CopiesTheSelectedLines) {
  frmReport& report = Capture({"one\r\ntwo\rthree\r\nfour"});
  const auto copy = [&] {
    backend.clipboardText = "old";
    user.Press(static_cast<KeyCode>('C'), kControl);
    return backend.clipboardText;
  };
  EXPECT_EQ(copy(), "one\r\n");
  report.txtReport.UserMoveTo(1, false);
  report.txtReport.UserMoveTo(99, true);
  EXPECT_EQ(copy(), "two\r\nthree\r\nfour\r\n");
  report.txtReport.UserMoveTo(0, true);
  EXPECT_EQ(copy(), "one\r\ntwo\r\n");
  report.txtReport.UserSelectAll();
  EXPECT_EQ(copy(), "one\r\ntwo\r\nthree\r\nfour\r\n");
}

// --- printing

TEST_F(ReportTest, PrintsWhatItShows) {
  frmReport& report = Capture({"one\r\n\r\nthree"});
  Session().DefaultPrintFont = "Courier New";
  Session().DefaultPrintFontSize = 8.25;
  Do([&] { report.mnuFilePrint.UserClick(); });  // cancelled
  EXPECT_TRUE(backend.printed.empty());
  EXPECT_EQ(backend.documentsEnded, 0);

  backend.choosesPrinter = true;
  backend.printerFont = "Printer Roman";
  std::string told;
  backend.onPaint = [&] {
    if (frmPrintStatus* status = LoadedForm<frmPrintStatus>()) told = status->lblPrinter.Caption();
  };
  Do([&] { report.mnuFilePrint.UserClick(); });
  EXPECT_EQ(backend.printed, (Texts{"one", "", "three"}));
  EXPECT_EQ(backend.documentsEnded, 1);
  EXPECT_EQ(told, "Headless printer\nFont Name: Printer Roman\nFont Size: 8.25");
  EXPECT_EQ(LoadedForm<frmPrintStatus>(), nullptr);

  backend.printerFails = true;
  Do([&] { report.mnuFilePrint.UserClick(); });
  EXPECT_EQ(BoxTexts(), Texts{});  // passes in silence
  EXPECT_EQ(LoadedForm<frmPrintStatus>(), nullptr);
}

TEST_F(ReportTest, AnEmptyReportPrintsAsAnEmptyDocument) {
  frmReport& report = Capture({});
  ASSERT_TRUE(LinesOf(report).empty());
  backend.choosesPrinter = true;
  Do([&] { report.mnuFilePrint.UserClick(); });
  EXPECT_EQ(backend.printed, Texts{""});
  EXPECT_EQ(backend.documentsEnded, 1);
}

}  // namespace
}  // namespace quorvel

#include "entry/frmList.h"

#include <algorithm>
#include <cmath>

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/SessionState.h"
#include "platform/NumberText.h"
#include "platform/PlainText.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/TerminalControl.h"
#include "settings/WindowPlacing.h"

namespace quorvel {
namespace {

// Size of a list that the host gives no place for, in twips.
constexpr int kWidth = 8400;
constexpr int kHeight = 5400;

// Where the first row of the main window's inside begins below its top: title and menu bar.
constexpr int kBelowTitle = 610;

// Places and sizes beyond this are cut; no screen is that large, and sums stay in range.
constexpr double kFarthest = 1'000'000;

int Twips(double number) {
  return static_cast<int>(std::nearbyint(std::clamp(number, -kFarthest, kFarthest)));
}

bool IsZeros(const std::string& part) {
  return !part.empty() && part.find_first_not_of('0') == std::string::npos;
}

}  // namespace

frmList::frmList() : Window(Kind::Dialog, "frmList") {
  Caption = "File Listing";
  Resizable = true;
  lstItems.Font = {"Fixedsys", 9};
  lstItems.AccessibleText = "Lines";
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;  // Enter in the list
  cmdExit.Caption = "&Cancel";
  cmdExit.Cancel = true;
  SetLayout({Stretch(lstItems), Buttons({&cmdOK, &cmdExit})});

  lstItems.DblClick = [this] { cmdOK_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdExit.Click = [this] { Unload(); };
}

void frmList::Form_Load() {
  const std::string message = Session().HostMessage;
  desktop().Yield();
  answered_ = false;
  question_.Ask();
  Width = kWidth;
  Height = kHeight;
  Caption = FieldOf(message, FS, 2);
  TakeLines(message);
  Place(std::string(Trimmed(FieldOf(message, FS, 3))));
  desktop().SetMousePointer(MousePointer::Default);
}

void frmList::TakeLines(const std::string& message) {
  if (const Terminal* terminal = Ask().TerminalControl()) {
    const quorvel::Font& font = terminal->Font();
    // One that nobody has chosen yet: the columns of the lines need a fixed pitch all the same.
    if (!font.name.empty()) lstItems.Font = {font.name, font.size, font.bold};
  }
  lstItems.List.Clear();
  int number = 0;
  for (const std::string_view field : Fields(message, FS)) {
    if (++number >= 4) lstItems.List.Add(std::string(field.substr(0, field.find(CR))));
  }
}

// Four parts: top and left from the main window's, width, height; a width or height of zeros goes
// to the main window's edge, and a part that is no number changes nothing.
void frmList::Place(const std::string& geometry) {
  Window* main = Ask().MainWindow();
  if (!main) return;
  if (geometry == "0,0,0,0" || geometry == "0000,0000,0000,0000") {
    return CenterOnParent(*main, *this);
  }
  const auto part = [&](std::int16_t n) { return FieldOf(geometry, ",", n); };
  const std::string width = part(3);
  const std::string height = part(4);
  if (const auto top = ParseNumber(part(1))) Top = Twips(*top + main->Top() + kBelowTitle);
  const auto left = ParseNumber(part(2));
  if (left) Left = Twips(*left + main->Left());
  if (IsZeros(width)) {
    Width = Twips(main->Width() - left.value_or(0));
  } else if (const auto number = ParseNumber(width)) {
    Width = Twips(*number);
  }
  if (IsZeros(height)) {
    Height = main->Top() + main->Height() - Top();
  } else if (const auto number = ParseNumber(height)) {
    Height = Twips(*number);
  }
}

void frmList::cmdOK_Click() {
  if (lstItems.ListIndex() < 0) {
    Unload();
    return;
  }
  SessionState& s = Session();
  std::string answer = lstItems.Text();
  if (s.ListFirstWord != kFalse) answer = FieldOf(Trimmed(answer), " ", 1);
  question_.Answer(answer);
  if (s.ScreenLoaded != kFalse) s.ListAnswer = answer;
  answered_ = true;
  Unload();
}

void frmList::Form_Unload(bool&) {
  if (answered_) return;
  question_.Answer("");  // the host waits for an answer, if only an empty one
  Session().ListAnswer.clear();
}

}  // namespace quorvel

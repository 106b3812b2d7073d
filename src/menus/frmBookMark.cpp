#include "menus/frmBookMark.h"

#include "link/Marks.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "menus/BookmarkFile.h"
#include "menus/frmAddBook.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "settings/WindowPlacing.h"

namespace quorvel {
namespace {

// The list, in twips: some 15 lines of usual length.
constexpr int kListWidth = 6300;
constexpr int kListHeight = 4500;

// A menu is known by two letters; its option id has this behind them.
constexpr std::size_t kMenuCodeLength = 2;
constexpr char kMenuSuffix[] = ".MENU";

void TellFailure(const RuntimeError& failure) {
  desktop().MsgBox("Error: " + std::to_string(failure.number()) + " " + failure.what());
}

bool IsHeader(const std::string& line) {
  return line.starts_with(BookmarkMark);
}

}  // namespace

Font BookmarkFont() {
  return {"MS Sans Serif", 0, false, false};
}

frmBookMark::frmBookMark() : Window(Kind::Dialog, "frmBookMark") {
  Caption = "BookMarks";
  Resizable = true;
  lstCommands.AccessibleText = "Bookmarks";
  lstCommands.ToolTipText = "Drag a line, or press Alt+Up or Alt+Down, to move it";
  lstCommands.Font = BookmarkFont();
  lstCommands.Width = kListWidth;
  lstCommands.Height = kListHeight;
  lstCommands.RowsMove = true;
  cmdAdd.Caption = "&Add";
  cmdChange.Caption = "&Change";
  cmdDelete.Caption = "&Delete";
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdExit.Caption = "&Cancel";
  cmdExit.Cancel = true;
  SetLayout(
      {Stretch(lstCommands), Bar({&cmdAdd, &cmdChange, &cmdDelete}), Buttons({&cmdOK, &cmdExit})});

  lstCommands.MouseDown = [this](MouseButton button) { lstCommands_MouseDown(button); };
  lstCommands.MouseUp = [this](MouseButton button) { lstCommands_MouseUp(button); };
  lstCommands.KeyDown = [this](KeyEvent& key) { lstCommands_KeyDown(key); };
  lstCommands.DblClick = [this] { lstCommands_DblClick(); };
  cmdAdd.Click = [this] { cmdAdd_Click(); };
  cmdChange.Click = [this] { cmdChange_Click(); };
  cmdDelete.Click = [this] { cmdDelete_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdExit.Click = [this] { cmdExit_Click(); };
}

void frmBookMark::Form_Load() {
  CenterOverMain(*this);
  try {
    for (std::string& line : ReadBookmarks()) lstCommands.List.Add(std::move(line));
  } catch (const RuntimeError& failure) {
    unread_ = true;
    TellFailure(failure);
  }
}

// --- lines

void frmBookMark::AddBookMark() {
  SessionState& s = Session();
  Form<frmAddBook>()->ShowModal();
  if (s.BookmarkText.empty() || !IsLoaded()) return;
  ListRows& list = lstCommands.List;
  if (s.BookmarkIndex >= 0 && s.BookmarkIndex < list.Count()) list.Remove(s.BookmarkIndex);
  if (s.BookmarkText.size() == kMenuCodeLength) s.BookmarkText += kMenuSuffix;
  int same = 0;
  while (same < list.Count() && !list.At(same).empty() && list.At(same) != s.BookmarkText) ++same;
  const bool found = same < list.Count() && list.At(same) == s.BookmarkText;
  if (found && !IsHeader(s.BookmarkText)) list.Remove(same);
  if (list.Count() == static_cast<int>(kMostBookmarks)) throw RuntimeError(Failure::Overflow);
  list.Insert(0, s.BookmarkText);
  // OK runs the selected line: what has only been edited is not to be run by it.
  lstCommands.ListIndex = -1;
  movedIndex_ = -1;
}

void frmBookMark::MoveLine(int from, int to, std::string text) {
  lstCommands.List.Remove(from);
  lstCommands.List.Insert(to, std::move(text));
  lstCommands.ListIndex = -1;  // moving is editing, too
  movedIndex_ = to;
}

void frmBookMark::lstCommands_MouseDown(MouseButton button) {
  if (button != MouseButton::Left) return;
  movedIndex_ = -1;
  pressedIndex_ = lstCommands.ListIndex();
  pressedText_ = lstCommands.Text();
}

void frmBookMark::lstCommands_MouseUp(MouseButton button) {
  const int from = std::exchange(pressedIndex_, -1);
  const int to = lstCommands.ListIndex();
  if (button != MouseButton::Left || from < 0 || to < 0 || from == to) return;
  MoveLine(from, to, pressedText_);
}

void frmBookMark::lstCommands_KeyDown(KeyEvent& key) {
  const bool up = key.code == static_cast<int>(KeyCode::Up);
  const bool down = key.code == static_cast<int>(KeyCode::Down);
  if (key.shift != kAlt || (!up && !down)) return;
  key.code = 0;
  // Pressed once more, it moves the same line on.
  const int from = lstCommands.ListIndex() < 0 ? movedIndex_ : lstCommands.ListIndex();
  const int to = from + (up ? -1 : 1);
  if (from < 0 || to < 0 || to >= lstCommands.List.Count()) return;
  MoveLine(from, to, lstCommands.List.At(from));
}

bool frmBookMark::HeaderIsSelected() const {
  return IsHeader(lstCommands.Text());
}

void frmBookMark::lstCommands_DblClick() {
  if (!HeaderIsSelected()) cmdOK_Click();
}

// --- buttons

void frmBookMark::cmdAdd_Click() {
  Session().BookmarkIndex = -1;
  Session().BookmarkText.clear();
  AddBookMark();
}

void frmBookMark::cmdChange_Click() {
  if (lstCommands.ListIndex() < 0) return;
  Session().BookmarkText = lstCommands.Text();
  Session().BookmarkIndex = static_cast<std::int16_t>(lstCommands.ListIndex());
  AddBookMark();
}

void frmBookMark::cmdDelete_Click() {
  if (lstCommands.ListIndex() < 0) return;
  lstCommands.List.Remove(lstCommands.ListIndex());
  lstCommands.ListIndex = -1;
  movedIndex_ = -1;
}

void frmBookMark::cmdOK_Click() {
  Session().BookmarkText = lstCommands.Text();
  if (HeaderIsSelected()) return;
  try {
    if (unread_) throw RuntimeError(Failure::PathFileAccess);
    WriteBookmarks(lstCommands.List.All());
  } catch (const RuntimeError& failure) {
    return TellFailure(failure);
  }
  Unload();
}

void frmBookMark::cmdExit_Click() {
  Session().BookmarkText.clear();
  Unload();
}

void ShowBookmarks() {
  SessionState& s = Session();
  s.BookmarkText.clear();
  Form<frmBookMark>()->ShowModal();
  if (s.BookmarkText.empty() || s.Run.DropsAnother()) return;
  s.PendingOp = "RunOption";
  s.OptionId = AsField(s.BookmarkText);
  if (s.BookmarkContext == "TELNET") {
    SendToHost(s.OptionId + CR);
    return;
  }
  RunOption();
}

}  // namespace quorvel

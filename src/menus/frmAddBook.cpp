#include "menus/frmAddBook.h"

#include "link/Marks.h"
#include "link/SessionState.h"
#include "menus/frmBookMark.h"
#include "platform/controls/Desktop.h"
#include "settings/WindowPlacing.h"

namespace quorvel {

frmAddBook::frmAddBook() : Window(Kind::Dialog, "frmAddBook") {
  Label1.Caption = "Command";
  txtCommand.Font = BookmarkFont();
  chkHeader.Caption = "&Header Only";
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdExit.Caption = "&Cancel";
  cmdExit.Cancel = true;
  SetLayout({Field(Label1, txtCommand), Wide(chkHeader), Buttons({&cmdOK, &cmdExit})});

  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdExit.Click = [this] { cmdExit_Click(); };
}

void frmAddBook::Form_Load() {
  CenterOverMain(*this);
  std::string text = Session().BookmarkText;
  Caption = text.empty() ? "Add Bookmark" : "Change Bookmark";
  if (text.starts_with(BookmarkMark)) {
    text.erase(0, BookmarkMark.size());
    chkHeader.Value = true;
  }
  txtCommand.Text = text;
}

void frmAddBook::cmdOK_Click() {
  const std::string& text = txtCommand.Text();
  if (text.find_first_of("\r\n") != std::string::npos) {
    desktop().MsgBox("Command holds a line break; a bookmark is one line.",
                     MessageBoxStyle::kExclamation);
    txtCommand.SetFocus();
    return;
  }
  Session().BookmarkText = (chkHeader.Value() ? std::string(BookmarkMark) : std::string()) + text;
  Unload();
}

void frmAddBook::cmdExit_Click() {
  Session().BookmarkText.clear();
  Unload();
}

}  // namespace quorvel

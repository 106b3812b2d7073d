#pragma once

#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The font of the bookmarks' lines.
Font BookmarkFont();

// The bookmarks: the user's own list of options and commands under headers. Lines are moved by the
// mouse, or with Alt and the arrow keys. Edits reach the file by cmdOK only, which leaves the line
// to run in BookmarkText.
class frmBookMark : public Window {
 public:
  frmBookMark();

  ListBox lstCommands{*this, "lstCommands"};
  Button cmdAdd{*this, "cmdAdd"};
  Button cmdChange{*this, "cmdChange"};
  Button cmdDelete{*this, "cmdDelete"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdExit{*this, "cmdExit"};

  // Asks for a line (BookmarkText, BookmarkIndex) and puts it on top of the list.
  void AddBookMark();

 protected:
  void Form_Load() override;

 private:
  void MoveLine(int from, int to, std::string text);
  bool HeaderIsSelected() const;

  void lstCommands_MouseDown(MouseButton button);
  void lstCommands_MouseUp(MouseButton button);
  void lstCommands_KeyDown(KeyEvent& key);
  void lstCommands_DblClick();
  void cmdAdd_Click();
  void cmdChange_Click();
  void cmdDelete_Click();
  void cmdOK_Click();
  void cmdExit_Click();

  int pressedIndex_ = -1;  // the line under the mouse button that went down
  std::string pressedText_;
  int movedIndex_ = -1;  // the line that was moved last; -1 once something else has been done
  bool unread_ = false;  // the file is there and could not be read: it is not written over
};

// Shows the list and runs the line that is picked, as the window does that opened it: in the menu
// as an option, in the terminal as typed text.
void ShowBookmarks();

}  // namespace quorvel

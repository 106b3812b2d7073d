#pragma once

#include "platform/controls/ControlArray.h"
#include "platform/controls/Elastic.h"
#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The controls of the entry screen: what is there on every screen, and the arrays that a screen's
// definition fills.
struct EntryControls {
  explicit EntryControls(Window& screen);

  Elastic VideoSoftElastic1;
  ControlArray<Label> lblDisp;             // by attribute number of the display line
  ControlArray<TextBox> txtEntry;          // by field number
  ControlArray<DropDownListBox> cboEntry;  // by field number
  Button cmdOK;
  Button cmdSave;
  Button cmdCancel;
  Button cmdDelete;
  Button cmdHelp;
  Button cmdExit;

  MenuItem mnuFile;
  MenuItem mnuFileSave;
  MenuItem mnuFileCancel;
  MenuItem mnuFileDelete;
  MenuItem mnuFileSep2;
  MenuItem mnuFileExit;
  MenuItem mnuOptions;  // pops up over a field
  MenuItem mnuOptHelp;
  MenuItem mnuOptLocate;
  MenuItem mnuOptList;
};

// The font of lines and boxes; its size in points.
inline const Font kEntryFont{"Terminal", 9};

}  // namespace quorvel

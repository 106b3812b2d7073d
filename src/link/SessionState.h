#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "link/HostWait.h"
#include "link/OptionRun.h"
#include "link/Questions.h"

namespace quorvel {

// A flag of the session: -1 for true, 0 for false, 16 bits, as records and tests see it.
using Flag = std::int16_t;
inline constexpr Flag kTrue = -1;
inline constexpr Flag kFalse = 0;

// All state that the windows and procedures of the program share. There is one in a process, with
// no owner but the process, read and written directly: everything runs on one thread. Any field
// may change during a wait; that is how replies arrive.
struct SessionState {
  // --- the stream
  std::int16_t Magic = 127;     // code of the frame mark (setting)
  std::string MagicChar;        // the mark itself; opens and closes every frame
  std::string FrameBuffer;      // text of the frame being assembled
  std::int16_t FrameStart = 0;  // one-based place of the opening mark; 0: no frame is open
  std::int16_t FrameEnd = 0;    // one-based place of the closing mark in the block
  bool HasSentFrames = false;   // the host, on this link: its login is over
  std::string HostMessage;      // the last complete frame, marks removed
  std::string PendingOp;        // what the link is waiting for; empty when idle
  std::string LoginUser;        // what the login scanner sends
  std::string LoginPassword;
  Flag PassThroughPrint = kFalse;   // on while the host prints through the terminal
  bool PrintFailureTold = false;    // of this printing: one box is enough
  std::string CaptureFile;          // path of the file that reports are captured in
  bool CaptureFailureTold = false;  // of this capture: one box is enough
  std::string CaptureCommand;       // export command of the capture
  std::string CaptureStrip;         // text removed from every captured block

  // --- requests and replies
  std::string OptionId;     // the option being run
  std::string ScreenId;     // the open entry screen
  std::string DataFile;     // the file that the screen maintains
  std::string CaseProgram;  // the host program behind its hooks; empty for none
  std::string CaseHook;
  std::string CaseData;
  std::string EntryRecord;  // the record on screen in field order
  std::string OriginalRecord;
  std::string FileRecord;  // the same in file order
  std::string RecordKey;
  std::string ScreenPrompts;  // the two records that define a screen
  std::string ScreenParms;
  std::string ReplyRecord;  // the record of the last read
  Flag ReadFailed = kFalse;
  std::string ReadMessage;
  Flag OpenFailed = kFalse;
  std::string OpenMessage;
  std::string HelpKey;
  std::string LocatorFile;
  std::string LocatorWord;
  std::string LocatorLimiter;
  Flag ScreenLoaded = kFalse;  // from the end of the entry screen's building until it unloads
  std::string FieldList;       // the screen's fields in placing order, separated by VM: numbers,
  std::string FieldKinds;      // "T" or "C" (text box, combo box),
  std::string FieldFlags;      // "K", "D" or empty (key, display only, any other)
  std::int16_t FieldCount = 0;
  std::int16_t FirstField = 0;     // number of the first key field; 0: none
  std::int16_t InstanceCount = 0;  // entry screens opened beside the one
  std::int16_t CurrentField = 0;   // the field last entered; 0: leaving it is not to be validated
  std::string FieldOldValue;       // its stored value when it was entered
  std::string FieldEvent;          // "KeyDown", "NoCase" or empty: see entry/Validation.h
  Flag FieldRejected = kFalse;     // what the last validation said
  std::string NewRecord;           // "Y" while a record is being added

  OptionRun Run;    // of a menu option
  HostWaits Waits;  // for replies
  std::vector<std::string>
      GivenUp;  // names of waits that a log-off has ended ahead of their replies

  // --- host messages
  Questions Lists;
  Questions Passwords;
  Questions HelpTexts;
  std::string MenuId;
  std::string MenuText;
  std::string MenuCommands;
  std::string ShownMenuText;  // what the menu window was last rebuilt from
  std::string ShownMenuCommands;
  std::array<std::string, 5> ImageArgs;
  Flag ListFirstWord = kFalse;
  std::string ListAnswer;
  std::array<std::string, 21> FaxValues;

  // --- session and windows
  std::string ConfigArgument;  // command line; emptied after its first use
  std::string ConfigPath;      // the configuration file; empty when none
  std::string AppTitleBase;    // the program's own title
  Flag ConnectRequested = kFalse;
  std::int16_t Connected = 0;  // 1 from the load of the terminal window to its unload
  Flag ExitRequested = kFalse;
  Flag ConfirmExit = kFalse;
  std::int16_t MenuLoaded = 0;  // 1 while the menu window is loaded
  std::int16_t HelpOpen = 0;
  std::string SelectedExport;        // the entry that frmExpSel was left with; empty on cancel
  std::string BrowseDirectory;       // folder handed to frmBrowseExp and back; empty on cancel
  std::string ActiveContext;         // "TELNET", "MENU", ...: the window in front
  std::string BookmarkContext;       // "MENU" or "TELNET": the window that opened the list
  std::string BookmarkText;          // the line handed between the bookmark windows
  std::int16_t BookmarkIndex = -1;   // of the line being changed; -1: a new one
  std::int32_t SelectionStart = 0;   // one-based, in SelectionScreen
  std::int32_t SelectionLength = 0;  // 0: nothing is selected
  std::string SelectionScreen;

  // --- settings, under the names of their keys in the configuration file
  std::string HostName;
  std::string Port;
  std::string TermType;
  std::int16_t Columns = 0;
  std::int16_t Rows = 24;
  std::int16_t LocalEcho = 0;
  std::int16_t PassThrough = 1;
  std::int16_t BufferRows = 500;
  std::int16_t KeyPad = 0;
  std::int16_t CursorKeys = 0;
  std::int16_t AutoSize = 1;
  std::int16_t ForceOff = 0;
  std::int16_t QuickExit = 0;
  std::int16_t CutAtFrames = 0;  // 1: text ahead of a frame is a block of its own
  std::int16_t AllowPrint = 0;
  std::string DefaultPrintFont;
  double DefaultPrintFontSize = 0;
  std::int16_t Top = -1;
  std::int16_t Left = -1;
  std::int16_t Width = -1;
  std::int16_t Height = -1;
  std::string Caption;
  std::string FontName;
  std::string FontSize;
  std::string FontBold;
  std::string FontItalic;
  std::string BackColor;
  std::string ForeColor;
  std::string BoldColor;
  std::array<std::string, 16> ButtonCommands;
  std::array<std::string, 16> ButtonLabels;
  std::string LoginString;
  std::string PwdString;
  std::string UserId;
  std::string Pwd;
  std::string ConvUser;
  std::string ConvPwd;
  std::string SingleSession;
  std::string SendKeys;
  std::int16_t ExportType = 0;                 // key Type
  std::array<std::string, 10> ExportCommands;  // keys ExpList0 to ExpList9
  std::string ExportPath;
  std::string AutoHostAddress;                    // key orlan
  std::array<std::string, 17> FunctionKeys;       // 1 to 16
  std::array<std::string, 17> ShiftFunctionKeys;  // 1 to 16
  std::string FaxServer;
  std::string FaxPrefix;
  std::int16_t SendCover = 0;
};

// The one record of the process.
SessionState& Session();

}  // namespace quorvel

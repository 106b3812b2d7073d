#include "entry/EntryControls.h"

namespace quorvel {

EntryControls::EntryControls(Window& screen)
    : VideoSoftElastic1(screen, "VideoSoftElastic1"),
      lblDisp(VideoSoftElastic1, "lblDisp"),
      txtEntry(VideoSoftElastic1, "txtEntry"),
      cboEntry(VideoSoftElastic1, "cboEntry"),
      cmdOK(VideoSoftElastic1, "cmdOK"),
      cmdSave(VideoSoftElastic1, "cmdSave"),
      cmdCancel(VideoSoftElastic1, "cmdCancel"),
      cmdDelete(VideoSoftElastic1, "cmdDelete"),
      cmdHelp(VideoSoftElastic1, "cmdHelp"),
      cmdExit(VideoSoftElastic1, "cmdExit"),
      mnuFile(screen, "mnuFile", "&File"),
      mnuFileSave(mnuFile, "mnuFileSave", "&Save"),
      mnuFileCancel(mnuFile, "mnuFileCancel", "&Cancel"),
      mnuFileDelete(mnuFile, "mnuFileDelete", "&Delete"),
      mnuFileSep2(mnuFile, "mnuFileSep2", "-"),
      mnuFileExit(mnuFile, "mnuFileExit", "&Exit"),
      mnuOptions(screen, "mnuOptions", "&Options"),
      mnuOptHelp(mnuOptions, "mnuOptHelp", "&Help"),
      mnuOptLocate(mnuOptions, "mnuOptLocate", "&Locate"),
      mnuOptList(mnuOptions, "mnuOptList", "L&ist") {
  const struct {
    Button& button;
    const char* caption;
    int left, top, width, height;  // twips; cmdOK is moved beside the last key field
  } buttons[] = {
      {cmdOK, "&OK", 2400, 120, 615, 300},          {cmdSave, "&Save", 3120, 120, 1095, 315},
      {cmdCancel, "&Cancel", 4320, 120, 1095, 315}, {cmdDelete, "&Delete", 5520, 120, 1095, 315},
      {cmdHelp, "&Help", 6840, 120, 1095, 315},     {cmdExit, "&Exit", 8040, 120, 1095, 315},
  };
  for (const auto& row : buttons) {
    row.button.Caption = row.caption;
    row.button.Font = Font{"MS Sans Serif", 8};
    row.button.Move(row.left, row.top, row.width, row.height);
  }
  mnuOptions.PopUpOnly = true;
  mnuOptions.Enabled = false;
  mnuOptions.Visible = false;
}

}  // namespace quorvel

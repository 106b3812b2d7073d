#pragma once

#include <functional>
#include <string>

#include "entry/CaseHooks.h"
#include "entry/EntryControls.h"
#include "entry/FieldDisplay.h"
#include "entry/FieldKeys.h"
#include "entry/OpenScreen.h"
#include "entry/RecordCycle.h"
#include "entry/ScreenDefinition.h"
#include "entry/ScreenFields.h"
#include "entry/Validation.h"
#include "platform/controls/Window.h"

namespace quorvel {

// A data-entry screen, built at its load from the host's two records in ScreenPrompts and
// ScreenParms. The window only binds events to the units that handle them.
class frmEntry : public Window, public EntryControls {
 public:
  frmEntry();

  void ResetToKeyEntry() { cycle_.ResetToKeyEntry(); }
  void SaveRecord();
  void ApplyScreenMode(const std::string& mode);
  // Asks the host for the list of the current field; asks the user for a locator word.
  void SYList();
  void SYLocatr();
  // Opens a further screen of the same definition beside this one, and waits for it.
  void CreateNewObject();

  // What the host shows on a field, in display form; and the answer of a pick list.
  void ShowText(int number, const std::string& text);
  void SelectItem(int number, const std::string& text);
  void TakeListAnswer(int number);
  // Whether closing it would lose a record.
  bool HasOpenRecord() const;
  // Whether one is locked and on its way to the screen.
  bool IsOpeningRecord() const;
  // Lets the user leave, whatever record is open.
  void Free();
  // The screen that was to replace this one has not come.
  void Resume() { screen_.Resume(); }

 protected:
  void Form_Load() override;
  void Form_Resize() override;
  void Form_Activate() override;
  void Form_QueryUnload(bool& cancel) override;
  void Form_Unload(bool& cancel) override;

 private:
  void BindButtons();
  void BindFields();
  void TakePlaceOfMenu();
  void FitToWindow();
  void ForgetLastScreen();
  void cmdHelp_Click();

  OpenScreen screen_{*this};
  ScreenDefinition definition_;
  ScreenFields fields_{*this};
  CaseHooks hooks_{screen_};
  FieldDisplay display_{screen_, definition_, fields_, hooks_};
  Validation validation_{screen_, definition_, fields_, hooks_, display_};
  RecordCycle cycle_;
  FieldKeys keys_;
};

}  // namespace quorvel

#pragma once

#include <string>

#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// Asks for the word to search for with the locator LocatorFile, and for a second one where the
// first finds many. Leaves LocatorWord and LocatorLimiter; an empty word means no search.
class frmLocate : public Window {
 public:
  frmLocate();

  Label Label1{*this, "Label1"};
  TextBox txtLocWord{*this, "txtLocWord"};
  Label lblLimiter{*this, "lblLimiter"};
  TextBox txtLimiter{*this, "txtLimiter"};
  Label lblFound{*this, "lblFound"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdContinue{*this, "cmdContinue"};
  Button cmdExit{*this, "cmdExit"};

 protected:
  void Form_Load() override;
  void Form_Unload(bool& cancel) override;

 private:
  void cmdOK_Click();
  void cmdContinue_Click();
  void cmdExit_Click();
  void Search(const std::string& word);
  bool Read(const std::string& file, const std::string& key, const std::string& failure);
  void AskForLimiter(const std::string& word, int found);
  void Tell(const std::string& text);
  void Accept();

  bool accepted_ = false;
  bool searching_ = false;  // the host has been asked and has not answered yet
};

}  // namespace quorvel

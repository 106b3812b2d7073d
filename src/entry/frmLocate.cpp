#include "entry/frmLocate.h"

#include "link/Marks.h"
#include "link/Records.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "platform/PlainText.h"
#include "platform/Scoped.h"
#include "platform/controls/Desktop.h"
#include "settings/WindowPlacing.h"
#include "terminal/frmTelnet.h"

namespace quorvel {
namespace {

// More matches than these are asked to be narrowed.
constexpr int kMostMatches = 8;

// What the box holds, as it is searched for; the box shows it so.
std::string TakeWord(TextBox& box) {
  box.Text = UpperCase(AsField(box.Text()));
  return std::string(Trimmed(box.Text()));
}

}  // namespace

frmLocate::frmLocate() : Window(Kind::Dialog, "frmLocate") {
  Caption = "Locator";
  Label1.Caption = "Locator Key";
  lblLimiter.Caption = "Search Limiter";
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdContinue.Caption = "&Continue";
  cmdExit.Caption = "&Exit";
  cmdExit.Cancel = true;
  SetLayout({Field(Label1, txtLocWord), Field(lblLimiter, txtLimiter), Wide(lblFound),
             Buttons({&cmdOK, &cmdContinue, &cmdExit})});

  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdContinue.Click = [this] { cmdContinue_Click(); };
  cmdExit.Click = [this] { cmdExit_Click(); };
}

void frmLocate::Form_Load() {
  if (frmTelnet* parent = LoadedForm<frmTelnet>()) CenterOnParent(*parent, *this);
  for (Control* control :
       {static_cast<Control*>(&cmdContinue), static_cast<Control*>(&lblFound),
        static_cast<Control*>(&lblLimiter), static_cast<Control*>(&txtLimiter)}) {
    control->Visible = false;
  }
  Session().LocatorWord.clear();
  Session().LocatorLimiter.clear();
  accepted_ = false;
}

void frmLocate::Form_Unload(bool&) {
  if (accepted_) return;
  Session().LocatorWord.clear();
  Session().LocatorLimiter.clear();
}

void frmLocate::cmdOK_Click() {
  if (searching_) return;
  const std::string word = TakeWord(txtLocWord);
  if (word.empty()) {
    Session().LocatorWord.clear();
    Unload();
    return;
  }
  const ScopedFlag searching(searching_);
  Search(word);
}

// The record LocatorFile of LOCATOR names the index file; the record of the word there holds the
// matches.
void frmLocate::Search(const std::string& word) {
  SessionState& s = Session();
  const std::string locator = s.LocatorFile;
  if (!Read("LOCATOR", locator, "Locator file " + locator + " is invalid!")) return;
  const std::string indexFile = ExtractOf(s.ReplyRecord, 2, 0, 0);
  if (!Read(indexFile, word, "No records found")) return;
  const int found = DCountOf(ExtractOf(s.ReplyRecord, 1, 0, 0), VM);
  if (found > kMostMatches) return AskForLimiter(word, found);
  s.LocatorWord = word;
  s.LocatorLimiter.clear();
  Accept();
}

// False when there is no such record, which is told, and when the user has left meanwhile.
bool frmLocate::Read(const std::string& file, const std::string& key, const std::string& failure) {
  ReadRecord(file, key);
  if (!IsLoaded()) return false;
  if (Session().ReadFailed == kFalse) return true;
  Tell(failure);
  return false;
}

void frmLocate::AskForLimiter(const std::string& word, int found) {
  Tell(std::to_string(found) + " records found");
  txtLimiter.Visible = true;
  lblLimiter.Visible = true;
  cmdContinue.Visible = true;
  cmdOK.Default = false;
  cmdContinue.Default = true;
  txtLocWord.Enabled = false;
  cmdOK.Visible = false;
  Session().LocatorWord = word;
  txtLimiter.SetFocus();
}

void frmLocate::Tell(const std::string& text) {
  lblFound.Caption = text;
  lblFound.Visible = true;
}

void frmLocate::Accept() {
  accepted_ = true;
  Unload();
}

void frmLocate::cmdContinue_Click() {
  Session().LocatorLimiter = TakeWord(txtLimiter);
  Accept();
}

void frmLocate::cmdExit_Click() {
  accepted_ = false;
  Unload();
}

}  // namespace quorvel

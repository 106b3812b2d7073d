#pragma once

#include <map>

#include "app/FarEndTest.h"
#include "entry/EntryTestText.h"
#include "entry/frmEntry.h"
#include "link/Requests.h"

namespace quorvel {

// A client on a data-entry screen. The far end keeps files and answers all requests from them.
class EntryTest : public FarEndTest {
 protected:
  EntryTest() {
    LogIn();
    backend.onIdle = [this] { return Serve(); };
    Session().AutoSize = 0;  // places stay what the definition makes them
  }

  // Opens the option AR.X with these prompts and parameters (attribute 1: the field order).
  void Open(const ByPosition& parms, const std::string& program = {},
            const std::string& prompts = {}) {
    Put("DICTIONARY", "AR.X", RecordOf({{22, "DATA"}, {23, program}}));
    Put("SCREEN", "AR.X", prompts);
    Put("DICT BPAR", "AR!X", "DATA");
    Put("DICT BPAR", "AR*X", "RAW");
    parms_ = RecordOf(parms);
    Session().OptionId = "AR.X";
    Run([] { RunOption(); });
    opening = TakeRequests();
  }

  void Put(const std::string& file, const std::string& key, const std::string& record) {
    files[file][key] = record;
  }
  // The requests since the last time, their fields separated by blanks.
  Texts TakeRequests() { return std::exchange(requests_, {}); }

  frmEntry& Screen() { return *LoadedForm<frmEntry>(); }
  bool IsOpen() { return LoadedForm<frmEntry>() != nullptr; }
  TextBox& Text(int number) { return Screen().txtEntry(number); }
  ComboBox& Combo(int number) { return Screen().cboEntry(number); }
  // Types over what stands in a field, which gets the keyboard.
  void Enter(int number, const std::string& text) {
    Do([&] { Text(number).UserFocus(); });
    Replace(text);
  }
  // Types over what stands in the field with the keyboard.
  void Replace(const std::string& text) {
    Do([&] {
      if (auto* box = dynamic_cast<TextBox*>(desktop().focus().KeyTarget())) {
        box->UserSelect(0, static_cast<int>(box->Text().size()));
        if (text.empty()) user.Press(KeyCode::Backspace);
      }
      user.Type(text);
    });
  }
  void Press(KeyCode key, int shift = kNoShift) {
    Do([&] { user.Press(key, shift); });
  }
  void Click(Control& control) {
    Do([&] { user.Click(control); });
  }
  bool HasKeyboard(const Control& control) { return desktop().focus().KeyTarget() == &control; }
  // Enters the key of one text field and accepts it.
  void EnterKey(const std::string& key) {
    Enter(2, key);
    Press(KeyCode::Return);
  }

  std::map<std::string, std::map<std::string, std::string>> files;
  std::string plain;  // what was sent outside any request
  Texts opening;      // the requests that opened the screen
  // The reply frames to a hook; by default it comes back as it went out.
  std::function<std::string(const Texts& fields)> onHook;
  // Looks at every request first; an answer of its own, or nothing.
  std::function<std::optional<std::string>(const Texts& fields)> onRequest;

  // A reply to a hook: the record as sent, with these words.
  static std::string HookReply(const Texts& request, const std::string& word,
                               const std::string& data) {
    return FrameOf({"~CASELOGIC~", word, request[5], request[6], data});
  }

 private:
  bool Serve() {
    if (backend.lines.empty()) return false;
    const std::string sent = Line().TakeSent();
    bool served = false;
    std::string text;
    for (const std::string_view line : Fields(sent, CR)) {
      if (line.size() < 2 || line.front() != '\x7F') {
        text += std::string(line) + CR;
        continue;
      }
      Texts fields;
      for (const std::string_view field : Fields(line.substr(1, line.size() - 2), FS)) {
        fields.emplace_back(field);
      }
      std::string seen;
      for (const std::string& field : fields) seen += (seen.empty() ? "" : " ") + field;
      requests_.push_back(fields[0] == "CASELOGIC" ? "HOOK " + fields[4] + " " + fields[2] : seen);
      const std::string answer = AnswerTo(fields);
      if (!answer.empty()) Line().Deliver(answer);
      served = true;
    }
    if (!text.empty()) plain += text.substr(0, text.size() - 1);  // the last CR ends the last line
    return served;
  }

  std::string AnswerTo(const Texts& f) {
    if (onRequest) {
      if (const auto own = onRequest(f)) return *own;
    }
    return UsualAnswer(f);
  }

 protected:
  // What the host says to a request that nobody else has an answer to.
  std::string UsualAnswer(const Texts& f) {
    if (f[0] == "READ") {
      const auto file = files.find(f[1]);
      if (file == files.end() || file->second.count(f[2]) == 0) {
        return FrameOf({"~ERRORMSG~", "Record " + f[2] + " not found"});
      }
      return FrameOf({file->second[f[2]]});
    }
    if (f[0] == "SYBPARM") return FrameOf({parms_});
    if (f[0] == "WRITE") files[f[1]][f[2]] = f[3];
    if (f[0] == "DELETE") files[f[1]].erase(f[2]);
    if (f[0] == "CASELOGIC") return onHook ? onHook(f) : HookReply(f, f[4], f[7]);
    return FrameOf({"OK"});
  }

 private:
  std::string parms_;
  Texts requests_;
};

}  // namespace quorvel

// The rules about what goes to the host: at the login, and into its records.
#include <algorithm>
#include <utility>

#include "app/sim/Rules.h"
#include "demohost/Marks.h"
#include "demohost/Record.h"
#include "demohost/Screens.h"
#include "entry/frmEntry.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"

namespace quorvel::sim {
namespace {

using demohost::kCr;

// A field whose entry is stored as it stands: free text that neither conversion nor rule changes.
bool IsFreeText(const demohost::ScreenField& field) {
  if (field.attribute == 0 || *field.value || *field.start || field.type != '1') return false;
  if (field.kind != '1' || *field.hooks || *field.preset || field.display != 0) return false;
  const auto& entries = demohost::FieldEntries();
  const auto entry = std::find_if(entries.begin(), entries.end(), [&field](const auto& one) {
    return std::string_view(one.name) == field.name;
  });
  return entry != entries.end() && !*entry->conversion && !*entry->justify && !*entry->file &&
         !*entry->items;
}

const demohost::Screen* ScreenOf(const std::string& file) {
  for (const demohost::Screen& screen : demohost::Screens()) {
    if (screen.file == file) return &screen;
  }
  return nullptr;
}

// What the operator sees in the free text fields, by their attributes in the file.
std::map<int, std::string> BoxesOf(frmEntry& window, const demohost::Screen& screen) {
  std::map<int, std::string> boxes;
  for (const demohost::ScreenField& field : screen.fields) {
    if (IsFreeText(field) && window.txtEntry.Has(field.number)) {
      boxes[field.attribute] = window.txtEntry(field.number).Text();
    }
  }
  return boxes;
}

// The first attribute in which the record is not what stands in the boxes. Nothing but blanks is
// stored as nothing.
std::optional<int> Difference(const std::map<int, std::string>& boxes, const std::string& record) {
  for (const auto& [attribute, text] : boxes) {
    const bool blank = text.find_first_not_of(' ') == std::string::npos;
    if (demohost::Attribute(record, attribute) != (blank ? "" : text)) return attribute;
  }
  return std::nullopt;
}

}  // namespace

// --- login

void LoginRule::OnAccepted(const std::string& host) {
  host_ = host;
  data_ = {};
  done_ = false;
  line_.clear();
  typed_.clear();
}

void LoginRule::OnTyped(const std::string& text) {
  if (!done_) typed_ += text;
}

bool LoginRule::IsLoginLine(const std::string& line) const {
  const SessionState& s = Session();
  // The setting asks for it, wherever the user logs off.
  if (s.ForceOff == 1 && line == "OFF") return true;
  // A user goes to the host of his own configuration.
  if ((host_ == kOtherHost) != (line == kOtherUser)) return false;
  return !s.LoginUser.empty() && (line == s.LoginUser || line == s.LoginPassword);
}

void LoginRule::OnSent(std::string_view bytes) {
  if (done_) return;
  std::string data;
  for (const char byte : bytes) {
    if (const auto one = data_.Feed(byte)) data += *one;
  }
  // A key of the operator goes out in a write of its own, and so does what he pastes.
  const auto key = data.empty() ? std::string::npos : typed_.find(data);
  if (key != std::string::npos) {
    typed_.erase(0, key + data.size());
    return;
  }
  const bool answersQuery = data.starts_with('\x1B');
  if (data.empty() || answersQuery) return;
  if (data.back() == kCr && IsLoginLine(data.substr(0, data.size() - 1))) return;
  verdict_.Fail("login", "sent ahead of the login: " + Readable(data));
}

// --- records

void SavedRule::OnAccepted() {
  data_ = {};
  requests_ = {};
  promise_.reset();
  loggedOff_ = false;
}

void SavedRule::OnSent(std::string_view bytes, bool hostIsSample) {
  loggedOff_ = loggedOff_ || bytes == "OFF\r";
  for (const char byte : bytes) {
    const auto data = data_.Feed(byte);
    if (!data) continue;
    const auto request = requests_.Feed(*data);
    if (!request) continue;
    const auto fields = FieldsOf(*request);
    const bool writes = fields.size() > 3 && fields[0] == "WRITE";
    wrote_ = wrote_ || writes;
    if (writes && hostIsSample) CompareWithScreen(fields);
    if (fields.size() > 4 && fields[0] == "LOCK" && hostIsSample && fields[3].empty()) {
      verdict_.Fail("saved", "a record without a key is opened or left: " + Readable(*request));
    }
  }
}

void SavedRule::CompareWithScreen(const std::vector<std::string>& write) {
  auto* window = LoadedForm<frmEntry>();
  const demohost::Screen* screen = ScreenOf(write[1]);
  if (!window || !screen) {
    return verdict_.Fail("saved", "a record of " + write[1] + " is written without a screen");
  }
  if (const auto attribute = Difference(BoxesOf(*window, *screen), write[3])) {
    verdict_.Fail("saved", write[1] + " " + write[2] + ": attribute " + std::to_string(*attribute) +
                               " is not what stands on the screen: " + Readable(write[3]));
  }
}

// Ahead of the host: its locks and its record are as the client found them.
void SavedRule::OnRequest(const std::string& text, int port) {
  const auto fields = FieldsOf(text);
  const bool writes = fields[0] == "WRITE" && fields.size() > 3;
  if (!writes && fields[0] != "DELETE") return;
  if (fields.size() < 3 || fields[2].empty()) {
    return verdict_.Fail("saved", fields[0] + " without a key");
  }
  const std::string what = fields[0] + " of " + fields[1] + " " + fields[2];
  if (place_.Host().RecordLocks().Holder(fields[1], fields[2]) != port) {
    verdict_.Fail("saved", what + " without its lock");
  }
  if (!writes || !ScreenOf(fields[1])) return;
  const std::string before = place_.Host().Data().Read(fields[1], fields[2]).value_or("");
  const std::string owner = demohost::Attribute(fields[3], kIdentity);
  if (owner != demohost::Attribute(before, kIdentity)) {
    verdict_.Fail("saved", what + " with the fields of \"" + owner + "\"");
  }
}

// What is asked behind a record that has been written is asked about fields that are cleared.
void SavedRule::OnBox(const MessageBoxRequest& box) {
  promise_.reset();
  if (wrote_ && box.title == "Required Field") {
    verdict_.Fail("saved", "a record has been written, and an entry of it is missed");
  }
}

// A program of the host may take the log-off for its input. What it has broken off in the client
// stays locked until the link ends.
void SavedRule::CheckLocks(int port) {
  if (loggedOff_) return;
  const auto* window = LoadedForm<frmEntry>();
  const bool open = window && !window->cmdExit.Enabled();
  const SessionState& s = Session();
  for (const auto& lock : place_.Host().RecordLocks().List()) {
    if (lock.session != port || (open && lock.file == s.DataFile && lock.key == s.RecordKey))
      continue;
    verdict_.Fail("saved", lock.file + " " + lock.key + " stays locked and is not on the screen");
  }
}

void SavedRule::OnSaveClicked() {
  promise_.reset();
  // The click may be dropped, or change places with what was typed ahead of it.
  if (desktop().IsHandling() || desktop().HasKeptInput()) return;
  auto* window = LoadedForm<frmEntry>();
  const demohost::Screen* screen = window ? ScreenOf(Session().DataFile) : nullptr;
  if (!screen || !window->cmdSave.Reachable() || !window->TakesInput()) return;
  promise_ = Promise{Session().DataFile, Session().RecordKey, BoxesOf(*window, *screen)};
}

// All is quiet, and no box has opened since the click: at key entry the record has been saved.
void SavedRule::CheckPromise() {
  if (!promise_) return;
  const Promise promise = *std::exchange(promise_, std::nullopt);
  auto* window = LoadedForm<frmEntry>();
  if (!window || !window->IsVisible() || !window->cmdExit.Enabled()) return;
  const auto record = place_.Host().Data().Read(promise.file, promise.key);
  if (!record) {
    return verdict_.Fail("saved", promise.file + " " + promise.key + " was saved and is not there");
  }
  if (const auto attribute = Difference(promise.boxes, *record)) {
    verdict_.Fail("saved", promise.file + " " + promise.key +
                               " was saved, and the host's attribute " +
                               std::to_string(*attribute) + " is another: " + Readable(*record));
  }
}

}  // namespace quorvel::sim

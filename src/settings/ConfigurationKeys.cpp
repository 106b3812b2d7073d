#include "settings/ConfigurationKeys.h"

#include "link/Records.h"
#include "platform/Numbers.h"
#include "platform/PlainText.h"
#include "platform/RuntimeError.h"
#include "settings/SettingFaults.h"

namespace quorvel {
namespace {

using Text = std::string SessionState::*;
using Number = std::int16_t SessionState::*;

enum class Saved { No, Yes };

class KeyTable {
 public:
  std::vector<ConfigurationKey> keys;

  void Section(const std::string& name) { section_ = name; }

  void Add(const std::string& key, const std::string& byDefault, Text field, Saved saved) {
    Add(
        key, byDefault, [field](SessionState& s, const std::string& t) { s.*field = t; },
        [field](const SessionState& s) { return s.*field; }, saved);
  }

  void Add(const std::string& key, const std::string& byDefault, Number field, Saved saved) {
    Add(
        key, byDefault, [field](SessionState& s, const std::string& t) { s.*field = ToInt16(t); },
        [field](const SessionState& s) { return std::to_string(s.*field); }, saved);
  }

  void Add(const std::string& key, const std::string& byDefault,
           std::function<void(SessionState&, const std::string&)> read,
           std::function<std::string(const SessionState&)> write, Saved saved) {
    keys.push_back({section_, key, byDefault, std::move(read),
                    saved == Saved::Yes ? std::move(write) : nullptr});
  }

  // `count` keys with a number behind their name, in an array field.
  template <std::size_t N>
  void AddArray(const std::string& key, std::array<std::string, N> SessionState::*field,
                std::size_t first, std::size_t last, Saved saved) {
    for (std::size_t i = first; i <= last; ++i) AddElement(key, field, i, saved);
  }

  template <std::size_t N>
  void AddElement(const std::string& key, std::array<std::string, N> SessionState::*field,
                  std::size_t i, Saved saved) {
    Add(
        key + std::to_string(i), "",
        [field, i](SessionState& s, const std::string& t) { (s.*field)[i] = t; },
        [field, i](const SessionState& s) { return (s.*field)[i]; }, saved);
  }

 private:
  std::string section_;
};

void ReadExportCommand(SessionState& s, std::size_t i, std::string text) {
  if (text.substr(0, 1) != "*") {
    // Two characters of margin: the default entry has its star there.
    text = "  " + std::string(WithoutLeadingBlanks(text));
  }
  if (text.find_first_not_of(' ') != std::string::npos) s.ExportCommands[i] = text;
}

// Refused here: it would fail for every block of the session.
void ReadSendKeys(SessionState& s, const std::string& text) {
  if (!Try([&text] { ExpandCommandString(text); })) {
    throw RuntimeError(Failure::Overflow, "It " + std::string(kCodeTooHigh));
  }
  s.SendKeys = text;
}

void AddTelnet(KeyTable& t) {
  using S = SessionState;
  t.Section("TELNET");
  t.Add("HostName", "HostName", &S::HostName, Saved::Yes);
  t.Add("Port", "Port", &S::Port, Saved::No);
  t.Add(
      "TermType", "4",
      [](S& s, const std::string& text) { s.TermType = std::to_string(ToInt16(text)); },
      [](const S& s) { return s.TermType; }, Saved::Yes);
  t.Add("Columns", "0", &S::Columns, Saved::Yes);
  t.Add("Rows", "24", &S::Rows, Saved::Yes);
  t.Add("LocalEcho", "0", &S::LocalEcho, Saved::Yes);
  t.Add("PassThrough", "1", &S::PassThrough, Saved::Yes);
  t.Add("BufferRows", "500", &S::BufferRows, Saved::Yes);
  t.Add("KeyPad", "0", &S::KeyPad, Saved::Yes);
  t.Add("CursorKeys", "0", &S::CursorKeys, Saved::Yes);
  t.Add("AutoSize", "1", &S::AutoSize, Saved::Yes);
  t.Add("ForceOff", "0", &S::ForceOff, Saved::No);
  t.Add("QuickExit", "1", &S::QuickExit, Saved::No);
  t.Add("CutAtFrames", "0", &S::CutAtFrames, Saved::No);
  t.Add("AllowPrint", "1", &S::AllowPrint, Saved::No);
  t.Add("DefaultPrintFont", "Courier New", &S::DefaultPrintFont, Saved::No);
  t.Add(
      "DefaultPrintFontSize", "10",
      [](S& s, const std::string& text) { s.DefaultPrintFontSize = ToNumber(text); }, nullptr,
      Saved::No);
  t.Add(
      "Magic", "127",
      [](S& s, const std::string& text) { s.Magic = RoundToInt16(LeadingNumber(text)); }, nullptr,
      Saved::No);
}

void AddWindowAndColours(KeyTable& t) {
  using S = SessionState;
  t.Section("MAINFORM");
  t.Add("Top", "-1", &S::Top, Saved::Yes);
  t.Add("Left", "-1", &S::Left, Saved::Yes);
  t.Add("Width", "-1", &S::Width, Saved::Yes);
  t.Add("Height", "-1", &S::Height, Saved::Yes);
  t.Add("Caption", "Quorvel by Orlan Industries, Inc", &S::Caption, Saved::Yes);
  t.Section("FONTS");
  t.Add("FontName", "VT220_ascii", &S::FontName, Saved::Yes);
  t.Add("FontSize", "12", &S::FontSize, Saved::Yes);
  t.Add("FontBold", "True", &S::FontBold, Saved::Yes);
  t.Add("FontItalic", "False", &S::FontItalic, Saved::Yes);
  t.Section("COLORS");
  t.Add("BackColor", "8388672", &S::BackColor, Saved::Yes);
  t.Add("ForeColor", "16777215", &S::ForeColor, Saved::Yes);
  t.Add("BoldColor", "16776960", &S::BoldColor, Saved::Yes);
}

void AddButtons(KeyTable& t) {
  t.Section("BUTTONS");
  for (std::size_t i = 0; i < 16; ++i) {
    t.AddElement("Command", &SessionState::ButtonCommands, i, Saved::Yes);
    t.AddElement("Label", &SessionState::ButtonLabels, i, Saved::Yes);
  }
}

void AddLogin(KeyTable& t) {
  using S = SessionState;
  t.Section("LOGIN");
  t.Add("LoginString", "ogin", &S::LoginString, Saved::Yes);
  t.Add("PwdString", "word", &S::PwdString, Saved::Yes);
  t.Add("UserId", "", &S::UserId, Saved::No);
  t.Add("Pwd", "", &S::Pwd, Saved::No);
  t.Add("ConvUser", "", &S::ConvUser, Saved::Yes);
  t.Add("ConvPwd", "", &S::ConvPwd, Saved::Yes);
  t.Add("SingleSession", "", &S::SingleSession, Saved::No);
  t.Add("SendKeys", "", ReadSendKeys, nullptr, Saved::No);
}

void AddExportAndKeys(KeyTable& t) {
  using S = SessionState;
  t.Section("EXPORT");
  t.Add("Type", "3", &S::ExportType, Saved::No);
  for (std::size_t i = 0; i < 10; ++i) {
    t.Add(
        "ExpList" + std::to_string(i), "",
        [i](S& s, const std::string& text) { ReadExportCommand(s, i, text); }, nullptr, Saved::No);
  }
  t.Add("ExportPath", "", &S::ExportPath, Saved::No);
  t.Section("AUTOIP");
  t.Add("orlan", "", &S::AutoHostAddress, Saved::No);
  t.Section("FUNCTION KEYS");
  t.AddArray("F", &S::FunctionKeys, 1, 16, Saved::Yes);
  t.AddArray("SF", &S::ShiftFunctionKeys, 1, 16, Saved::Yes);
  t.Section("FAX");
  t.Add("FaxServer", "", &S::FaxServer, Saved::No);
  t.Add("FaxPrefix", "", &S::FaxPrefix, Saved::No);
  t.Add("SendCover", "1", &S::SendCover, Saved::No);
}

}  // namespace

const std::vector<ConfigurationKey>& ConfigurationKeys() {
  static const std::vector<ConfigurationKey> keys = [] {
    KeyTable table;
    AddTelnet(table);
    AddWindowAndColours(table);
    AddButtons(table);
    AddLogin(table);
    AddExportAndKeys(table);
    return std::move(table.keys);
  }();
  return keys;
}

}  // namespace quorvel

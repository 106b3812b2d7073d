#include "settings/Configuration.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "link/HandOvers.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"
#include "platform/headless/HeadlessBackend.h"

namespace quorvel {
namespace {

using S = SessionState;
using Value = std::function<std::string(const S&)>;

Value Text(std::string S::*field) {
  return [field](const S& s) { return s.*field; };
}
Value Number(std::int16_t S::*field) {
  return [field](const S& s) { return std::to_string(s.*field); };
}
template <std::size_t N>
Value Element(std::array<std::string, N> S::*field, std::size_t i) {
  return [field, i](const S& s) { return (s.*field)[i]; };
}

// A key as the administrator's manual lists it.
struct Key {
  std::string section, key, byDefault;
  Value value;
  std::string sample;
  bool saved;
};

std::vector<Key> Keys() {
  constexpr bool kSaved = true, kByHand = false;
  std::vector<Key> keys = {
      {"TELNET", "HostName", "HostName", Text(&S::HostName), "a host", kSaved},
      {"TELNET", "Port", "Port", Text(&S::Port), "992", kByHand},
      {"TELNET", "TermType", "4", Text(&S::TermType), "5", kSaved},
      {"TELNET", "Columns", "0", Number(&S::Columns), "1", kSaved},
      {"TELNET", "Rows", "24", Number(&S::Rows), "32", kSaved},
      {"TELNET", "LocalEcho", "0", Number(&S::LocalEcho), "1", kSaved},
      {"TELNET", "PassThrough", "1", Number(&S::PassThrough), "0", kSaved},
      {"TELNET", "BufferRows", "500", Number(&S::BufferRows), "50", kSaved},
      {"TELNET", "KeyPad", "0", Number(&S::KeyPad), "1", kSaved},
      {"TELNET", "CursorKeys", "0", Number(&S::CursorKeys), "1", kSaved},
      {"TELNET", "AutoSize", "1", Number(&S::AutoSize), "0", kSaved},
      {"TELNET", "ForceOff", "0", Number(&S::ForceOff), "1", kByHand},
      {"TELNET", "QuickExit", "1", Number(&S::QuickExit), "0", kByHand},
      {"TELNET", "CutAtFrames", "0", Number(&S::CutAtFrames), "1", kByHand},
      {"TELNET", "AllowPrint", "1", Number(&S::AllowPrint), "0", kByHand},
      {"TELNET", "DefaultPrintFont", "Courier New", Text(&S::DefaultPrintFont), "Mono", kByHand},
      {"TELNET", "DefaultPrintFontSize", "10",
       [](const S& s) {
         return s.DefaultPrintFontSize == 10 ? "10" : s.DefaultPrintFontSize == 8.25 ? "8.25" : "?";
       },
       "8.25", kByHand},
      {"TELNET", "Magic", "127", Number(&S::Magic), "126", kByHand},
      {"MAINFORM", "Top", "-1", Number(&S::Top), "150", kSaved},
      {"MAINFORM", "Left", "-1", Number(&S::Left), "165", kSaved},
      {"MAINFORM", "Width", "-1", Number(&S::Width), "9000", kSaved},
      {"MAINFORM", "Height", "-1", Number(&S::Height), "6000", kSaved},
      {"MAINFORM", "Caption", "Quorvel by Orlan Industries, Inc", Text(&S::Caption), "Shop",
       kSaved},
      {"FONTS", "FontName", "VT220_ascii", Text(&S::FontName), "Fixed", kSaved},
      {"FONTS", "FontSize", "12", Text(&S::FontSize), "9", kSaved},
      {"FONTS", "FontBold", "True", Text(&S::FontBold), "False", kSaved},
      {"FONTS", "FontItalic", "False", Text(&S::FontItalic), "True", kSaved},
      {"COLORS", "BackColor", "8388672", Text(&S::BackColor), "255", kSaved},
      {"COLORS", "ForeColor", "16777215", Text(&S::ForeColor), "65280", kSaved},
      {"COLORS", "BoldColor", "16776960", Text(&S::BoldColor), "1", kSaved},
      {"LOGIN", "LoginString", "ogin", Text(&S::LoginString), "User:", kSaved},
      {"LOGIN", "PwdString", "word", Text(&S::PwdString), "NONE", kSaved},
      {"LOGIN", "UserId", "", Text(&S::UserId), "demo", kByHand},
      {"LOGIN", "Pwd", "", Text(&S::Pwd), "secret", kByHand},
      {"LOGIN", "ConvUser", "", Text(&S::ConvUser), "U", kSaved},
      {"LOGIN", "ConvPwd", "", Text(&S::ConvPwd), "L", kSaved},
      {"LOGIN", "SingleSession", "", Text(&S::SingleSession), "N", kByHand},
      {"LOGIN", "SendKeys", "", Text(&S::SendKeys), "^[13]", kByHand},
      {"EXPORT", "Type", "3", Number(&S::ExportType), "2", kByHand},
      {"EXPORT", "ExportPath", "", Text(&S::ExportPath), "out", kByHand},
      {"AUTOIP", "orlan", "", Text(&S::AutoHostAddress), "10.0.0.1", kByHand},
      {"FAX", "FaxServer", "", Text(&S::FaxServer), "fax", kByHand},
      {"FAX", "FaxPrefix", "", Text(&S::FaxPrefix), "9", kByHand},
      {"FAX", "SendCover", "1", Number(&S::SendCover), "0", kByHand},
  };
  const auto add = [&](const std::string& section, const std::string& name, std::size_t i,
                       const Value& value, bool saved) {
    const std::string key = name + std::to_string(i);
    keys.push_back({section, key, "", value, "*" + key, saved});
  };
  for (std::size_t i = 0; i < 16; ++i) {
    add("BUTTONS", "Command", i, Element(&S::ButtonCommands, i), kSaved);
    add("BUTTONS", "Label", i, Element(&S::ButtonLabels, i), kSaved);
    add("FUNCTION KEYS", "F", i + 1, Element(&S::FunctionKeys, i + 1), kSaved);
    add("FUNCTION KEYS", "SF", i + 1, Element(&S::ShiftFunctionKeys, i + 1), kSaved);
    if (i < 10) add("EXPORT", "ExpList", i, Element(&S::ExportCommands, i), kByHand);
  }
  return keys;
}

struct MainWindow : Window {
  MainWindow() : Window(Kind::Main, "mdiMain") {}
};

class ConfigurationTest : public ::testing::Test {
 protected:
  ConfigurationTest()
      : folder_(std::filesystem::temp_directory_path() /
                ("configuration-test-" + std::to_string(std::random_device{}()))),
        desktop_(backend) {
    std::filesystem::create_directory(folder_);
    backend.folder = folder_.string();
    Session() = SessionState{};
    Session().AppTitleBase = "Quorvel GUI";
    Ask() = HandOvers{};
    Ask().MainWindow = [this] { return &main(); };
    Ask().SetButtonCaption = [this](int i, const std::string& caption) {
      captions.at(static_cast<std::size_t>(i)) = caption;
    };
    Ask().ButtonCaption = [this](int i) { return captions.at(static_cast<std::size_t>(i)); };
  }
  ~ConfigurationTest() override {
    Ask() = HandOvers{};
    std::filesystem::remove_all(folder_);
  }

  MainWindow& main() { return *desktop_.FormObject<MainWindow>(); }
  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  void Put(const std::string& name, const std::string& content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
  }
  std::string Content(const std::string& name) const {
    std::ostringstream content;
    content << std::ifstream(Path(name), std::ios::binary).rdbuf();
    return content.str();
  }
  // As one event, the way the program runs it.
  void Run(void (*operation)()) { desktop_.Handle(EventKind::Program, operation); }
  void Load(const std::string& argument) {
    Session().ConfigArgument = argument;
    Run(LoadConfiguration);
  }
  void LoadText(const std::string& content) {
    Put("one.inf", content);
    Load("one.inf");
  }
  std::string Title() { return backend.application().Title(); }

  HeadlessBackend backend;
  std::array<std::string, 16> captions;

 private:
  std::filesystem::path folder_;
  Desktop desktop_;
};

// A file with one value for each key, `value` giving it.
std::string FileOf(const std::vector<Key>& keys, std::string Key::*value) {
  std::string content, section;
  for (const Key& key : keys) {
    if (key.section != section) content += "[" + (section = key.section) + "]\r\n";
    content += key.key + "=" + key.*value + "\r\n";
  }
  return content;
}

TEST_F(ConfigurationTest, EveryKeyHasItsDefaultAndIsRead) {
  const std::vector<Key> keys = Keys();
  ASSERT_EQ(keys.size(), 44u + 4 * 16 + 10);
  Load("missing.inf");
  for (const Key& key : keys) EXPECT_EQ(key.value(Session()), key.byDefault) << key.key;
  EXPECT_EQ(Session().MagicChar, "\x7F");
  std::vector<Key> grouped = keys;
  std::stable_sort(grouped.begin(), grouped.end(),
                   [](const Key& a, const Key& b) { return a.section < b.section; });
  LoadText(FileOf(grouped, &Key::sample));
  for (const Key& key : keys) EXPECT_EQ(key.value(Session()), key.sample) << key.key;
  EXPECT_EQ(Session().MagicChar, "~");
  EXPECT_TRUE(backend.messageBoxes.empty());

  // The main window and its buttons follow.
  EXPECT_EQ(main().Caption(), "Shop");
  EXPECT_EQ(main().Top(), 150);
  EXPECT_EQ(main().Height(), 6000);
  EXPECT_EQ(captions[15], "*Label15");
  // -1 leaves a place alone.
  LoadText("[MAINFORM]\nLeft=30\n");
  EXPECT_EQ(main().Top(), 150);
  EXPECT_EQ(main().Left(), 30);
}

TEST_F(ConfigurationTest, SavingWritesItsKeysAndKeepsEveryOtherLine) {
  std::vector<Key> keys = Keys();
  std::stable_sort(keys.begin(), keys.end(),
                   [](const Key& a, const Key& b) { return a.section < b.section; });
  LoadText(FileOf(keys, &Key::sample));
  captions[3] = "as shown";
  main().Width = 100'000;  // a large screen: as much as 16 bits hold
  Put("two.inf", "; by hand\r\n" + FileOf(keys, &Key::byDefault) + "[OWN]\r\nUnknown = kept \r\n");
  Session().ConfigPath = Path("two.inf");
  Run(SaveSettings);
  const std::string content = Content("two.inf");
  for (const Key& key : keys) {
    std::string expected = key.saved ? key.sample : key.byDefault;
    if (key.key == "Label3") expected = "as shown";
    if (key.key == "Width") expected = "32767";
    EXPECT_NE(content.find("\r\n" + key.key + "=" + expected + "\r\n"), std::string::npos)
        << key.key;
  }
  EXPECT_EQ(content.find("; by hand\r\n"), 0u);
  EXPECT_NE(content.find("[OWN]\r\nUnknown = kept \r\n"), std::string::npos);
  EXPECT_TRUE(backend.fileDialogs.empty());
  // A path that can't be written loses the values silently.
  Session().ConfigPath = Path("nowhere/three.inf");
  Run(SaveSettings);
  EXPECT_TRUE(backend.messageBoxes.empty());
}

TEST_F(ConfigurationTest, HowTextsBecomeValues) {
  const struct {
    std::string line;
    std::int16_t magic;
  } magics[] = {{"127.4", 127}, {"126.5", 126}, {"127.5", 128},
                {"none", 0},    {"", 0},        {" 12 8x", 128}};
  for (const auto& c : magics) {
    LoadText("[TELNET]\nMagic=" + c.line + "\n");
    EXPECT_EQ(Session().Magic, c.magic) << c.line;
    EXPECT_EQ(Session().MagicChar, std::string(1, static_cast<char>(c.magic)));
  }
  Session().ExportCommands = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
  LoadText(
      "[EXPORT]\nExpList0=cmd\nExpList1=\"    cmd \"\nExpList2=* cmd\nExpList3=\"    \"\n"
      "ExpList4=\n[TELNET]\nHostName=" +
      std::string(300, 'h') + "\n");
  EXPECT_EQ(Session().ExportCommands, (std::array<std::string, 10>{"  cmd", "  cmd ", "* cmd", "3",
                                                                   "4", "5", "6", "7", "8", "9"}));
  EXPECT_EQ(Session().HostName, std::string(254, 'h'));
  EXPECT_TRUE(backend.messageBoxes.empty());
}

TEST_F(ConfigurationTest, AFileThatDoesNotConvertChangesNothing) {
  LoadText("[TELNET]\nHostName=old\nRows=32\n");
  const std::string path = Session().ConfigPath;
  const struct {
    std::string content, named;
    int failure;
  } cases[] = {
      {"[TELNET]\nHostName=new\nRows=\n", "[TELNET] Rows", 13},
      {"[TELNET]\nHostName=new\nRows=many\n", "[TELNET] Rows", 13},
      {"[TELNET]\nHostName=new\nColumns=32768\n", "[TELNET] Columns", 6},
      {"[TELNET]\nHostName=new\nTermType=x\n", "[TELNET] TermType", 13},
      {"[TELNET]\nHostName=new\nDefaultPrintFontSize=x\n", "[TELNET] DefaultPrintFontSize", 13},
      {"[TELNET]\nHostName=new\nMagic=99999\n", "[TELNET] Magic", 6},
      {"[TELNET]\nHostName=new\nMagic=256\n", "[TELNET] Magic", 5},
      {"[TELNET]\nHostName=new\n[FAX]\nSendCover=\n", "[FAX] SendCover", 13},
  };
  for (const auto& c : cases) {
    Put("bad.inf", c.content);
    backend.messageBoxes.clear();
    Load("bad.inf");
    ASSERT_EQ(backend.messageBoxes.size(), 1u) << c.named;
    const std::string& text = backend.messageBoxes[0].text;
    EXPECT_EQ(text.find("Run-time error '" + std::to_string(c.failure) + "':\n\n"), 0u) << text;
    EXPECT_NE(text.find(c.named), std::string::npos) << text;
    EXPECT_EQ(Session().HostName, "old");
    EXPECT_EQ(Session().Rows, 32);
    EXPECT_EQ(Session().ConfigPath, path);
    EXPECT_EQ(Title(), "Quorvel GUI - one.inf");
  }
}

TEST_F(ConfigurationTest, WhereTheFileIs) {
  Load("bare.inf");
  EXPECT_EQ(Session().ConfigPath, Path("bare.inf"));
  EXPECT_EQ(Title(), "Quorvel GUI - bare.inf");
  Load(Path("full.inf"));
  EXPECT_EQ(Session().ConfigPath, Path("full.inf"));
  EXPECT_EQ(Title(), "Quorvel GUI - full.inf");
  Load("X:\\shop\\front desk.inf");
  EXPECT_EQ(Session().ConfigPath, "X:\\shop\\front desk.inf");
  EXPECT_EQ(Title(), "Quorvel GUI - front desk.inf");
  EXPECT_TRUE(backend.fileDialogs.empty());

  // Without a name the user is asked; cancelling leaves an empty path and the settings.
  const std::string host = Session().HostName = "present";
  Load("");
  EXPECT_EQ(Session().ConfigPath, "");
  EXPECT_EQ(Session().HostName, host);
  ASSERT_EQ(backend.fileDialogs.size(), 1u);
  const FileDialog& dialog = backend.fileDialogs[0];
  EXPECT_EQ(dialog.purpose, FileDialog::Purpose::Open);
  EXPECT_EQ(dialog.flags, 4100);
  EXPECT_EQ(dialog.defaultExtension, "inf");
  EXPECT_EQ(dialog.filter, "Configurations (*.inf) | *.inf");
  EXPECT_EQ(dialog.initialFolder, backend.folder);
  backend.onFileDialog = [this](const FileDialog&) { return Path("picked.inf"); };
  Load("");
  EXPECT_EQ(Session().ConfigPath, Path("picked.inf"));
  EXPECT_EQ(Session().HostName, "HostName");
}

TEST_F(ConfigurationTest, SavingUnderAnotherName) {
  Load("first.inf");
  Run(SaveSettingsAs);  // cancelled
  EXPECT_EQ(Session().ConfigPath, Path("first.inf"));
  const FileDialog dialog = backend.fileDialogs.at(0);
  EXPECT_EQ(dialog.purpose, FileDialog::Purpose::Save);
  EXPECT_EQ(dialog.flags, 2054);
  EXPECT_EQ(dialog.fileName, Path("first.inf"));
  EXPECT_EQ(dialog.filter, "Configurations (*.inf) | *.inf");
  EXPECT_EQ(dialog.defaultExtension, "inf");

  backend.onFileDialog = [](const FileDialog&) { return ""; };
  Run(SaveSettingsAs);
  EXPECT_EQ(Session().ConfigPath, "");
  EXPECT_EQ(backend.messageBoxes.at(0).text, "No valid session name to save!");

  backend.onFileDialog = [this](const FileDialog&) { return Path("second.inf"); };
  Run(SaveSettings);  // asks, having no path
  EXPECT_NE(Content("second.inf").find("[TELNET]"), std::string::npos);

  // The question after a change: Yes asks for a name even though one is known.
  backend.messageBoxes.clear();
  const auto dialogs = backend.fileDialogs.size();
  backend.onMessageBox = [](const MessageBoxRequest&) { return MessageBoxAnswer::No; };
  Run(AskToSaveSettings);
  EXPECT_EQ(backend.messageBoxes.at(0),
            (MessageBoxRequest{"Save current settings?", "Settings Changed", 36}));
  EXPECT_EQ(backend.fileDialogs.size(), dialogs);
  backend.onMessageBox = [](const MessageBoxRequest&) { return MessageBoxAnswer::Yes; };
  backend.onFileDialog = [this](const FileDialog&) { return Path("third.inf"); };
  Run(AskToSaveSettings);
  EXPECT_EQ(backend.fileDialogs.size(), dialogs + 1);
  EXPECT_EQ(Session().ConfigPath, Path("third.inf"));
  EXPECT_NE(Content("third.inf").find("[TELNET]"), std::string::npos);
}

TEST_F(ConfigurationTest, ASecondCopyGivesWay) {
  backend.otherCopyRuns = true;
  LoadText("[LOGIN]\nSingleSession=N\n");
  EXPECT_FALSE(backend.ended);
  LoadText("[LOGIN]\nSingleSession=Y\n[MAINFORM]\nCaption=never shown\n");
  ASSERT_EQ(backend.messageBoxes.size(), 1u);
  EXPECT_EQ(backend.messageBoxes[0].text, "Quorvel GUI - one.inf is already running!");
  EXPECT_EQ(backend.activatedCopies, std::vector<std::string>{"Quorvel GUI - one.inf"});
  EXPECT_TRUE(backend.ended);
  EXPECT_NE(main().Caption(), "never shown");
}

}  // namespace
}  // namespace quorvel

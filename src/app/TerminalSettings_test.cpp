// The windows of the terminal's settings: what they show, refuse and store, and what of it reaches
// the configuration file and comes back.

#include <map>

#include "app/ModalTest.h"
#include "platform/ProfileFile.h"
#include "settings/ConfigurationKeys.h"
#include "settings/frmAdvTerm.h"
#include "settings/frmTerm.h"
#include "terminal/frmButtons.h"
#include "terminal/frmFunk.h"

namespace quorvel {
namespace {

constexpr std::uint32_t kRed = 255;

class TerminalSettingsTest : public ModalTest {
 protected:
  Terminal& Screen() { return LoadedForm<frmTelnet>()->VT2201; }
  void InSettings(const std::function<void(frmTerm&)>& act) {
    In<frmTerm>([] { LoadedForm<frmTelnet>()->mnuOTerminal.UserClick(); }, act);
  }
  // Every key of the file, written or not, with its default where it is missing.
  std::map<std::string, std::string> FileValues(const std::string& path) {
    std::map<std::string, std::string> values;
    const ProfileFile file(path);
    for (const ConfigurationKey& key : ConfigurationKeys()) {
      values[key.section + "/" + key.key] = file.Get(key.section, key.key, key.byDefault);
    }
    return values;
  }
};

// The host may have changed what the user is shown, and the user changes it back.
TEST_F(TerminalSettingsTest, ShowsWhatTheHostHasSet) {
  LogIn("UserId=demo\n", "");
  Deliver("\x1B[?1h\x1B=\x1B[?3h");  // DECCKM, DECKPAM, DECCOLM
  InSettings([this](frmTerm& window) {
    EXPECT_EQ(window.cboCols.Text(), "132");
    EXPECT_TRUE(window.optKPApp.Value() && window.optCKApp.Value());
    window.cboCols.UserPick(0);
    user.Click(window.optKPNum);
    user.Click(window.optCKNorm);
    window.txtRows.UserEdit("0.5");
    user.Click(window.cmdOK);
  });
  const vt::Emulator& emulation = Screen().emulation();
  EXPECT_EQ(emulation.screen().Columns(), 80);
  EXPECT_EQ(emulation.screen().Rows(), 1);
  EXPECT_FALSE(emulation.ApplicationKeypad() || emulation.ApplicationCursorKeys());
  EXPECT_EQ(Session().Rows, 0);
  InSettings([](frmTerm& window) { EXPECT_EQ(window.txtRows.Text(), "1"); });
}

TEST_F(TerminalSettingsTest, ShowsWhatTheTerminalHolds) {
  LogIn("UserId=demo\n",
        "TermType=2\nColumns=1\nRows=30\nBufferRows=70\nKeyPad=1\nLocalEcho=1\nPassThrough=0\n"
        "[FONTS]\nFontName=Mono\nFontSize=9.5\nFontBold=True\nFontItalic=False\n"
        "[COLORS]\nBackColor=1\nForeColor=2\nBoldColor=3\n");
  Screen().Rows = 40;  // the terminal counts, not the setting
  InSettings([this](frmTerm& window) {
    EXPECT_EQ(Session().Rows, 40);
    EXPECT_EQ(window.txtRows.Text(), "40");
    EXPECT_EQ(window.lstTermTypes.Text(), "VT52");
    EXPECT_EQ(window.cboCols.Text(), "132");
    EXPECT_EQ(window.txtBufferRows.Text(), "70");
    EXPECT_TRUE(window.optKPApp.Value() && window.optCKNorm.Value());
    EXPECT_FALSE(window.optKPNum.Value() || window.optCKApp.Value());
    EXPECT_TRUE(window.chkEcho.Value() && window.chkAutoSize.Value());
    EXPECT_FALSE(window.chkPrintPass.Value());
    const Texts font{"Mono", "9.5", "True", "False"};
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(window.lblFonts(i).Caption(), font[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(window.pnlSample.BackColor(), 1);
    EXPECT_EQ(window.lblNormal.ForeColor(), 2);
    EXPECT_EQ(window.lblBold.ForeColor(), 3);
    EXPECT_EQ(window.lblBold.Font(), Screen().Font());
    EXPECT_TRUE(window.optBack.Value());
    // The sample follows; the terminal does not, and cancelling leaves it all.
    backend.onColourDialog = [](std::uint32_t present) { return present + kRed; };
    for (OptionButton* option : {&window.optBack, &window.optNormal, &window.optBold}) {
      window.SSTab1.UserTab(2);
      user.Click(*option);
      user.Click(window.cmdSetColor);
    }
    EXPECT_EQ(window.pnlSample.BackColor(), 256);
    EXPECT_EQ(window.lblNormal.ForeColor(), 257);
    EXPECT_EQ(window.lblBold.ForeColor(), 258);
    backend.onColourDialog = nullptr;  // cancelled
    user.Click(window.cmdSetColor);
    EXPECT_EQ(window.lblBold.ForeColor(), 258);
    backend.onFontDialog = [](const Font& present) {
      return Font{"Other", present.size + 1, false, true};
    };
    window.SSTab1.UserTab(1);
    user.Click(window.cmdSetFont);
    EXPECT_EQ(window.lblNormal.Font(), (Font{"Other", 10.5, false, true}));
    EXPECT_EQ(window.lblFonts(1).Caption(), "10.5");
    user.Press(KeyCode::Escape);
  });
  EXPECT_EQ(Screen().Font(), (Font{"Mono", 9.5, true, false}));
  EXPECT_EQ(Screen().BackColor(), 1);
  EXPECT_EQ(Session().ForeColor, "2");
  EXPECT_EQ(BoxTexts(), Texts{});
}

TEST_F(TerminalSettingsTest, RefusesBeforeAnythingIsStored) {
  LogIn();
  const struct {
    std::string buffer, rows, title, box, rowsAfter;
  } cases[] = {
      {"many", "x", "t", "Buffer Rows must be numeric!", "x"},
      {"", "x", "t", "Screen Rows must be numeric!", "x"},
      {"5", "", "t", "Screen Rows must be between 1 and 100!", "0"},
      {"5", "-3", "t", "Screen Rows must be between 1 and 100!", "-3"},
      {"5", "101", "t", "Screen Rows must be between 1 and 100!", "101"},
      {"32768", "20", "t", "Buffer Rows must be at most 32767!", "20"},
      {"5", "20", std::string(255, 't'), "Title has 255 characters; a setting has at most 254.",
       "20"},
  };
  for (const auto& c : cases) {
    backend.messageBoxes.clear();
    InSettings([&](frmTerm& window) {
      window.txtBufferRows.UserEdit(c.buffer);
      window.txtRows.UserEdit(c.rows);
      window.txtMdiCaption.UserEdit(c.title);
      window.chkEcho.UserToggle(true);
      user.Click(window.cmdOK);
      ASSERT_TRUE(window.IsVisible()) << c.box;
      EXPECT_EQ(window.txtRows.Text(), c.rowsAfter);
    });
    EXPECT_EQ(BoxTexts(), Texts{c.box});
    EXPECT_EQ(Session().Rows, 24);
    EXPECT_EQ(Session().BufferRows, 500);
    EXPECT_EQ(Session().LocalEcho, 0);
  }
  backend.onMessageBox = [](const MessageBoxRequest&) { return MessageBoxAnswer::No; };
  for (const auto& [rows, stored] : {std::pair{"100", 100}, {"1", 1}, {"0.5", 0}, {"$4,4", 44}}) {
    InSettings([&, text = rows](frmTerm& window) {
      window.txtBufferRows.UserEdit("");
      window.txtRows.UserEdit(text);
      user.Click(window.cmdOK);
    });
    EXPECT_EQ(Session().Rows, stored);
    EXPECT_EQ(Session().BufferRows, 0);
  }
}

TEST_F(TerminalSettingsTest, ChangedSavedAndLoadedAgain) {
  LogIn("UserId=demo\nSendKeys=x^[13]\n", "QuickExit=0\nForceOff=1\nPort=99\n");
  mdiMain& main = *LoadedForm<mdiMain>();
  main.Caption = Session().Caption + " - host";
  std::string saved = folder.Path() + "/saved.inf";
  backend.onFileDialog = [&](const FileDialog&) { return saved; };
  backend.onFontDialog = [](const Font&) { return Font{"Other", 11, false, true}; };
  backend.onColourDialog = [](std::uint32_t) { return kRed; };

  InSettings([this](frmTerm& window) {
    window.lstTermTypes.UserPick(1);
    window.cboCols.UserPick(1);
    window.txtRows.UserEdit("30");
    window.txtBufferRows.UserEdit("70");
    window.txtMdiCaption.UserEdit(" \"Title\" ");
    for (CheckBox* box : {&window.chkEcho, &window.chkPrintPass, &window.chkAutoSize}) {
      user.Click(*box);
    }
    user.Click(window.optKPApp);
    user.Click(window.optCKApp);
    In<frmFunk>([&] { user.Click(window.cmdFunk); },
                [this](frmFunk& keys) {
                  for (int i = 0; i < 32; ++i)
                    keys.txtFunk(i).UserEdit("key " + std::to_string(i) + ", ;=");
                  user.Click(keys.cmdOK);
                });
    In<frmAdvTerm>([&] { user.Click(window.cmdAdvanced); },
                   [this](frmAdvTerm& login) {
                     EXPECT_EQ(login.txtLoginString.Text(), "ogin");
                     EXPECT_EQ(login.cboCVLogin.Text(), "NONE");
                     login.txtLoginString.UserEdit(std::string(300, 'x'));
                     user.Click(login.cmdOK);
                     EXPECT_EQ(Session().LoginString, "ogin");
                     login.txtLoginString.UserEdit("user: ");
                     login.txtPwdString.UserEdit("pass");
                     login.cboCVLogin.UserPick(0);
                     login.cboCVPwd.UserPick(1);
                     user.Click(login.cmdOK);
                   });
    window.SSTab1.UserTab(1);
    user.Click(window.cmdSetFont);
    window.SSTab1.UserTab(2);
    user.Click(window.cmdSetColor);
    user.Click(window.cmdOK);
  });
  EXPECT_EQ(main.Caption(), " \"Title\"  - host");
  EXPECT_EQ(Screen().TermType(), 2);
  EXPECT_EQ(Screen().emulation().screen().Rows(), 30);
  EXPECT_EQ(Screen().Columns(), 1);
  EXPECT_EQ(Screen().KeyPad(), 1);
  EXPECT_FALSE(Screen().PassThrough());
  EXPECT_EQ(Screen().Font(), (Font{"Other", 11, false, true}));
  EXPECT_EQ(Screen().BackColor(), static_cast<int>(kRed));
  In<frmButtons>([] { Ask().ShowCommandButtons(); },
                 [this](frmButtons& window) {
                   for (int i = 0; i < 16; ++i) {
                     window.txtButton(i).UserEdit("command^[13]" + std::to_string(i));
                     window.txtBtnLabel(i).UserEdit("\"label\" " + std::to_string(i));
                   }
                   user.Click(window.cmdOK);
                 });
  EXPECT_EQ(BoxTexts(), (Texts{"Login String has 300 characters; a setting has at most 254.",
                               "Save current settings?", "Save current settings?"}));

  const std::map<std::string, std::string> file = FileValues(saved);
  std::map<std::string, std::string> expected = FileValues(folder.Path() + "/none.inf");
  for (const auto& [key, value] :
       std::map<std::string, std::string>{{"TELNET/HostName", "host"},
                                          {"TELNET/TermType", "2"},
                                          {"TELNET/Columns", "1"},
                                          {"TELNET/Rows", "30"},
                                          {"TELNET/LocalEcho", "1"},
                                          {"TELNET/PassThrough", "0"},
                                          {"TELNET/BufferRows", "70"},
                                          {"TELNET/KeyPad", "1"},
                                          {"TELNET/CursorKeys", "1"},
                                          {"TELNET/AutoSize", "0"},
                                          {"MAINFORM/Top", "600"},
                                          {"MAINFORM/Left", "600"},
                                          {"MAINFORM/Width", "13200"},
                                          {"MAINFORM/Height", "9600"},
                                          {"MAINFORM/Caption", " \"Title\" "},
                                          {"FONTS/FontName", "Other"},
                                          {"FONTS/FontSize", "11"},
                                          {"FONTS/FontBold", "False"},
                                          {"FONTS/FontItalic", "True"},
                                          {"COLORS/BackColor", "255"},
                                          {"LOGIN/LoginString", "user: "},
                                          {"LOGIN/PwdString", "pass"},
                                          {"LOGIN/ConvUser", "L"},
                                          {"LOGIN/ConvPwd", "U"}}) {
    expected[key] = value;
  }
  for (int i = 0; i < 16; ++i) {
    const std::string n = std::to_string(i);
    const std::string key = std::to_string(i + 1);
    expected["BUTTONS/Command" + n] = "command^[13]" + n;
    expected["BUTTONS/Label" + n] = "\"label\" " + n;
    expected["FUNCTION KEYS/F" + key] = "key " + n + ", ;=";
    expected["FUNCTION KEYS/SF" + key] = "key " + std::to_string(i + 16) + ", ;=";
  }
  EXPECT_EQ(file, expected);

  // Loaded again it is what it was, save for the keys that are not written.
  const SessionState before = Session();
  Session() = SessionState{};
  Session().ConfigArgument = saved;
  Run([] { Ask().LoadConfiguration(); });
  for (const ConfigurationKey& key : ConfigurationKeys()) {
    const bool label = key.section == "BUTTONS" && key.key.starts_with("Label");
    if (!key.write || label) continue;
    EXPECT_EQ(key.write(Session()), key.write(before)) << key.key;
  }
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(main.cmdButton(i).Caption(), "\"label\" " + std::to_string(i));
  }
}

}  // namespace
}  // namespace quorvel

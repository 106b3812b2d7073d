// Export of a captured report, and the dialogs behind it.
#include "app/FarEndTest.h"
#include "output/ExportCommands.h"
#include "output/frmBrowseExp.h"
#include "output/frmExpParm.h"
#include "output/frmExpSel.h"
#include "platform/ProfileFile.h"

namespace quorvel {
namespace {

// Entries in their columns.
std::string Entry(char mark, std::string description, const std::string& command) {
  description.resize(30, ' ');
  return std::string(1, mark) + " " + description + " " + command;
}

class ExportTest : public FarEndTest {
 protected:
  ExportTest() {
    LogIn();
    saved = folder.Path() + "/out.txt";
    backend.onFileDialog = [this](const FileDialog&) { return saved; };
    std::ofstream(Session().CaptureFile) << "report\r\n";
  }
  void Export(const std::string& command = "") {
    Run([&] { Ask().RunExport(command); });
  }
  Texts Started() {
    Texts lines;
    for (const auto& [line, window] : std::exchange(backend.started, {})) {
      EXPECT_EQ(window, ProgramWindow::NormalFocus);
      lines.push_back(line);
    }
    return lines;
  }
  bool Saved() const { return std::filesystem::exists(saved); }
  // Runs `open`, which shows a modal window of class F, and `act` while that waits for its user.
  template <class F>
  void While(const std::function<void()>& open, const std::function<void(F&)>& act) {
    bool acted = false;
    waiting_.push_back([&] {
      F* form = LoadedForm<F>();
      if (acted || !form || !form->IsModal()) return false;
      acted = true;
      act(*form);
      return true;
    });
    backend.onIdle = [this] { return !waiting_.empty() && std::function(waiting_.back())(); };
    open();
    waiting_.pop_back();
    EXPECT_TRUE(acted);
  }
  template <class F>
  void While(const std::function<void(F&)>& act) {
    While<F>([this] { Run([] { Ask().ShowExportParameters(); }); }, act);
  }

  std::string saved;

 private:
  std::vector<std::function<bool()>> waiting_;
};

constexpr char kNoCommands[] =
    "No export commands have been defined!\nUse Options - Export Parameters to define.";

TEST_F(ExportTest, WhatTheHostOrTheSettingsSay) {
  SessionState& s = Session();
  const std::string first = Entry(' ', "Editor", "edit @");
  const std::string marked = Entry('*', "Sheet", "calc");
  const struct {
    const char* what;
    std::int16_t type;
    ExportCommandList commands;
    const char* command;
    Texts started;
    Texts boxes;
  } cases[] = {
      {"the host's, with none defined", 0, {}, "host @", {"host " + saved}, {}},
      {"the host's goes before the settings", 0, {first}, "host", {"host " + saved}, {}},
      {"the default", 0, {first, marked}, "", {"calc " + saved}, {}},
      {"the viewer's default", 1, {first, marked}, "", {"calc " + saved}, {}},
      {"none marked", 0, {first, Entry(' ', "x", "y")}, "", {"edit " + saved}, {}},
      {"none", 0, {}, "", {}, {kNoCommands}},
      {"none in the first place", 0, {"", marked}, "", {}, {kNoCommands}},
  };
  for (const auto& c : cases) {
    std::filesystem::remove(saved);
    backend.messageBoxes.clear();
    s.ExportType = c.type;
    s.ExportCommands = c.commands;
    s.ActiveContext = "MENU";
    Export(c.command);
    EXPECT_EQ(Started(), c.started) << c.what;
    EXPECT_EQ(BoxTexts(), c.boxes) << c.what;
    EXPECT_EQ(Saved(), !c.started.empty()) << c.what;
    EXPECT_EQ(s.ActiveContext, c.started.empty() ? "MENU" : "") << c.what;
  }
}

TEST_F(ExportTest, TheSaveDialog) {
  Session().ExportPath = "/reports";
  Texts answers = {"/x/temprpt2.txt", "/my BookMarks/r.txt"};
  backend.onFileDialog = [&](const FileDialog&) -> std::optional<std::string> {
    if (answers.empty()) return std::nullopt;
    const std::string answer = answers.front();
    answers.erase(answers.begin());
    return answer;
  };
  Export("edit");
  EXPECT_EQ(BoxTexts(), (Texts{"Illegal file name: /x/temprpt2.txt",
                               "Illegal file name: /my BookMarks/r.txt"}));
  EXPECT_EQ(Started(), Texts{});
  ASSERT_EQ(backend.fileDialogs.size(), 3u);
  const FileDialog& dialog = backend.fileDialogs.back();
  EXPECT_EQ(dialog.purpose, FileDialog::Purpose::Save);
  EXPECT_EQ(dialog.title, "Save Report As...");
  EXPECT_EQ(dialog.flags, 2054);
  EXPECT_EQ(dialog.defaultExtension, "txt");
  EXPECT_EQ(dialog.filter, "Text File (*.txt) | *.txt");
  EXPECT_EQ(dialog.initialFolder, "/reports");
  EXPECT_EQ(dialog.fileName, "");
}

TEST_F(ExportTest, FailuresOfTheCopyAndOfTheStart) {
  std::filesystem::remove(Session().CaptureFile);
  Export("edit");
  EXPECT_EQ(Started(), Texts{"edit " + saved});  // all the same
  backend.onStart = [](const std::string&, ProgramWindow) {
    throw RuntimeError(Failure::FileNotFound);
  };
  Export("  none @");
  EXPECT_EQ(BoxTexts(),
            Texts{"Error 53 File not found\nError running export command: \nnone " + saved});
}

TEST_F(ExportTest, TheUserChooses) {
  SessionState& s = Session();
  s.ExportType = 2;
  s.ExportCommands = {Entry('*', "Editor", "edit @"), Entry(' ', "Sheet", "calc @")};
  const auto open = [this] { Export(); };
  const struct {
    std::function<void(frmExpSel&)> act;
    Texts started;
  } cases[] = {
      {[this](frmExpSel&) { user.Press(KeyCode::Return); }, {"edit " + saved}},
      {[](frmExpSel& form) {
         form.lstOptions.UserPick(1);
         form.lstOptions.UserDblClick();
       },
       {"calc " + saved}},
      {[](frmExpSel& form) {
         form.lstOptions.UserPick(5);
         form.cmdOK.UserClick();
       },
       {}},
      {[this](frmExpSel&) { user.Press(KeyCode::Escape); }, {}},
  };
  for (const auto& c : cases) {
    std::filesystem::remove(saved);
    While<frmExpSel>(open, [&](frmExpSel& form) {
      EXPECT_EQ(form.lstOptions.List.Count(), 10);
      EXPECT_EQ(form.lstOptions.ListIndex(), 0);
      c.act(form);
    });
    EXPECT_EQ(Started(), c.started);
    EXPECT_TRUE(Saved());  // ahead of the choice
    EXPECT_EQ(BoxTexts(), Texts{});
  }
}

// --- the parameters

TEST_F(ExportTest, ParametersAreLoadedChangedAndSaved) {
  SessionState& s = Session();
  const std::string edit = Entry('*', "Editor", "edit @");
  s.ExportCommands = {edit, "", Entry(' ', "Sheet", "calc @")};
  s.ExportType = 2;
  While<frmExpParm>([&](frmExpParm& form) {
    EXPECT_TRUE(form.optAutoExport.Value() && form.optExportSelection.Value());
    EXPECT_EQ(form.lstCommands.List.All(), (Texts{edit, Entry(' ', "Sheet", "calc @")}));
    EXPECT_EQ(form.lblExportDir.Caption(), folder.Path());
    form.cmdAdd.UserClick();
    EXPECT_EQ(BoxTexts(), Texts{"A description and command line must be entered"});
    backend.onFileDialog = [](const FileDialog&) { return "/usr/bin/sheet"; };
    form.cmdBrowse.UserClick();
    EXPECT_EQ(form.txtCmd.Text(), "/usr/bin/sheet");
    backend.onFileDialog = nullptr;
    form.cmdBrowse.UserClick();  // cancelled
    EXPECT_EQ(form.txtCmd.Text(), "/usr/bin/sheet");
    const FileDialog& dialog = backend.fileDialogs.back();
    EXPECT_EQ(dialog.purpose, FileDialog::Purpose::Open);
    EXPECT_EQ(dialog.title, "Export Command");
    EXPECT_EQ(dialog.filter, "Applications (*.exe)|*.exe|All Files (*.*)|*.*");
    EXPECT_EQ(dialog.flags, 4100);
    form.lstCommands.UserPick(1);
    form.cmdChange.UserClick();
    EXPECT_EQ(form.txtDesc.Text(), "Sheet");
    EXPECT_EQ(form.txtCmd.Text(), "calc @");
    EXPECT_FALSE(form.chkDefault.Value());
    form.chkDefault.UserToggle(true);
    form.cmdAdd.UserClick();
    EXPECT_EQ(form.lstCommands.List.All(),
              (Texts{Entry('*', "Sheet", "calc @"), Entry(' ', "Editor", "edit @")}));
    EXPECT_EQ(form.txtDesc.Text() + form.txtCmd.Text(), "");
    // A command that is changed is added, and the old one stays selected, to be deleted.
    form.lstCommands.UserPick(1);
    form.cmdChange.UserClick();
    form.txtDesc.UserEdit("Writer");
    form.cmdAdd.UserClick();
    EXPECT_EQ(form.lstCommands.List.Count(), 3);
    form.cmdDelete.UserClick();
    EXPECT_EQ(form.lstCommands.List.All(),
              (Texts{Entry('*', "Sheet", "calc @"), Entry(' ', "Writer", "edit @")}));
    form.optAutoViewer.UserClick();
    form.optExportDefault.UserClick();
    form.cmdOK.UserClick();
  });
  EXPECT_EQ(LoadedForm<frmExpParm>(), nullptr);
  EXPECT_EQ(s.ExportType, 1);
  EXPECT_EQ(s.ExportCommands[0], Entry('*', "Sheet", "calc @"));
  EXPECT_EQ(s.ExportPath, "");
  const ProfileFile file(s.ConfigPath);
  EXPECT_EQ(file.Get("EXPORT", "Type", ""), "1");
  EXPECT_EQ(file.Get("EXPORT", "ExpList0", ""), s.ExportCommands[0]);
  EXPECT_EQ(file.Get("EXPORT", "ExpList1", ""), s.ExportCommands[1]);
  EXPECT_EQ(file.Get("EXPORT", "ExpList9", "none"), "");
  EXPECT_EQ(file.Get("EXPORT", "ExportPath", "none"), "");
}

// The tenth command disables adding; ten that were loaded don't, and an eleventh is lost.
TEST_F(ExportTest, TenCommands) {
  SessionState& s = Session();
  for (std::size_t i = 0; i < 9; ++i) {
    s.ExportCommands[i] = Entry(' ', std::to_string(i), "c");
  }
  const auto add = [](frmExpParm& form, const char* description) {
    form.txtDesc.UserEdit(description);
    form.txtCmd.UserEdit("c");
    form.cmdAdd.UserClick();
  };
  While<frmExpParm>([&](frmExpParm& form) {
    add(form, "9");
    EXPECT_FALSE(form.cmdAdd.Enabled());
    EXPECT_EQ(BoxTexts(), Texts{"Maximum export commands (10) has been reached!\n"
                                "A command must be deleted in order to add another"});
    form.cmdDelete.UserClick();  // nothing is selected
    EXPECT_FALSE(form.cmdAdd.Enabled());
    form.lstCommands.UserPick(0);
    form.cmdDelete.UserClick();
    EXPECT_TRUE(form.cmdAdd.Enabled());
    add(form, "again");
    form.mnuFileSave.UserClick();
  });
  EXPECT_EQ(s.ExportCommands[9], Entry(' ', "again", "c"));
  backend.messageBoxes.clear();
  While<frmExpParm>([&](frmExpParm& form) {
    EXPECT_TRUE(form.cmdAdd.Enabled());
    add(form, "eleven");
    EXPECT_EQ(form.lstCommands.List.Count(), 11);
    form.cmdOK.UserClick();
  });
  EXPECT_EQ(BoxTexts(), Texts{});
  EXPECT_EQ(s.ExportCommands[9], Entry(' ', "again", "c"));
}

TEST_F(ExportTest, WhatCanNotBeKeptIsToldAtOnce) {
  While<frmExpParm>([&](frmExpParm& form) {
    form.txtDesc.UserEdit("Long");
    form.txtCmd.UserEdit(std::string(222, 'c'));
    form.cmdAdd.UserClick();
    EXPECT_EQ(BoxTexts(), Texts{"The command line is too long to be kept: it has 222 characters, "
                                "and there is room for 221."});
    EXPECT_EQ(form.lstCommands.List.Count(), 0);
    form.txtCmd.UserEdit(std::string(221, 'c'));
    form.cmdAdd.UserClick();
    form.cmdOK.UserClick();
  });
  Run([] { Ask().LoadConfiguration(); });
  EXPECT_EQ(Session().ExportCommands[0], Entry('*', "Long", std::string(221, 'c')));
}

TEST_F(ExportTest, ClosingAsksOnlyAfterAChange) {
  const Texts question = {"Changes have been made!\nSave Changes?"};
  const struct {
    std::function<void(frmExpParm&)> change;
    MessageBoxAnswer answer;
    Texts boxes;
    bool stays;
    std::int16_t type;
  } cases[] = {
      {[](frmExpParm&) {}, MessageBoxAnswer::Cancel, {}, false, 3},
      {[](frmExpParm& f) {
         f.optAutoExport.UserClick();
         f.optAutoViewer.UserClick();
       },
       MessageBoxAnswer::Cancel,
       {},
       false,
       3},
      {[](frmExpParm& f) { f.optAutoExport.UserClick(); }, MessageBoxAnswer::No, question, false,
       3},
      {[](frmExpParm& f) { f.optAutoExport.UserClick(); }, MessageBoxAnswer::Cancel, question, true,
       3},
      {[](frmExpParm& f) { f.optAutoExport.UserClick(); }, MessageBoxAnswer::Yes, question, false,
       2},
  };
  for (const auto& c : cases) {
    Session().ExportType = 3;
    backend.messageBoxes.clear();
    backend.onMessageBox = [&c](const MessageBoxRequest& box) {
      EXPECT_EQ(box.title, "Save Changes");
      return c.answer;
    };
    While<frmExpParm>([&](frmExpParm& form) {
      c.change(form);
      user.Press(KeyCode::Escape);
      EXPECT_EQ(LoadedForm<frmExpParm>() != nullptr, c.stays);
      if (!c.stays) return;
      backend.onMessageBox = [](const MessageBoxRequest&) { return MessageBoxAnswer::No; };
      form.UserClose();
      backend.messageBoxes.pop_back();
    });
    EXPECT_EQ(BoxTexts(), c.boxes);
    EXPECT_EQ(Session().ExportType, c.type);
  }
}

// --- the folder

TEST_F(ExportTest, TheFolderIsChosenAndKept) {
  namespace fs = std::filesystem;
  const fs::path inner = fs::path(folder.Path()) / "outer" / "inner";
  fs::create_directories(inner);
  const auto browse = [this](frmExpParm& form, const std::function<void(frmBrowseExp&)>& act) {
    While<frmBrowseExp>([&] { form.cmdBrowseExp.UserClick(); }, act);
  };
  const auto go = [](frmBrowseExp& dialog, const std::string& row) {
    for (int i = 0; i < dialog.Dir1.List.Count(); ++i) {
      const std::string& text = dialog.Dir1.List.At(i);
      if (text.substr(text.find_first_not_of(' ')) != row) continue;
      dialog.Dir1.UserPick(i);
      dialog.Dir1.UserDblClick();
      return;
    }
    ADD_FAILURE() << row;
  };
  While<frmExpParm>([&](frmExpParm& form) {
    browse(form, [&](frmBrowseExp& dialog) {
      EXPECT_EQ(dialog.Caption(), "Select \"Export To\" Directory");
      EXPECT_EQ(dialog.Dir1.Path(), folder.Path());
      go(dialog, "outer");
      go(dialog, "inner");
      EXPECT_EQ(dialog.lblExportDir.Caption(), inner.string());
      go(dialog, "outer");  // up again
      dialog.cmdOK.UserClick();
    });
    EXPECT_EQ(form.lblExportDir.Caption(), inner.parent_path().string());
    fs::remove_all(inner.parent_path());
    browse(form, [&](frmBrowseExp& dialog) {
      EXPECT_EQ(BoxTexts(), Texts{"Directory " + inner.parent_path().string() + " is invalid!"});
      EXPECT_EQ(dialog.Dir1.Path(), folder.Path());
      user.Press(KeyCode::Escape);
    });
    EXPECT_EQ(form.lblExportDir.Caption(), inner.parent_path().string());  // cancelled
    form.cmdOK.UserClick();
  });
  EXPECT_EQ(Session().ExportPath, inner.parent_path().string());
}

TEST_F(ExportTest, AFolderWhosePathCannotBeKeptIsNotTaken) {
  namespace fs = std::filesystem;
  const std::string deep =
      folder.Path() + "/" + std::string(130, 'd') + "/" + std::string(130, 'e');
  fs::create_directories(deep);
  Session().BrowseDirectory = deep;
  const auto open = [this] { Run([] { Form<frmBrowseExp>()->ShowModal(); }); };
  While<frmBrowseExp>(open, [&](frmBrowseExp& dialog) {
    dialog.cmdOK.UserClick();
    EXPECT_EQ(BoxTexts(), Texts{"The path of this folder has " + std::to_string(deep.size()) +
                                " characters; a setting has at most 254."});
    EXPECT_TRUE(dialog.IsVisible());
    dialog.cmdCancel.UserClick();
  });
  EXPECT_EQ(Session().BrowseDirectory, "");
}

// A drive is a whole folder's name, not the beginning of one.
TEST_F(ExportTest, TheDriveOfAFolder) {
  namespace fs = std::filesystem;
  const std::string root = backend.drives[0];
  const std::string drive = folder.Path() + "/home";
  for (const char* name : {"/home", "/home2", "/home/kit"})
    fs::create_directory(folder.Path() + name);
  backend.drives.push_back(drive);
  const auto open = [this] { Run([] { Form<frmBrowseExp>()->ShowModal(); }); };
  While<frmBrowseExp>(open, [&](frmBrowseExp& dialog) {
    for (const auto& [path, expected] : std::vector<std::pair<std::string, std::string>>{
             {drive + "2", root}, {drive + "/kit", drive}, {drive, drive}}) {
      dialog.Dir1.SetPath(path);
      dialog.Drive1.SelectDriveOf(path);
      EXPECT_EQ(dialog.Drive1.Text(), expected) << path;
    }
    dialog.cmdCancel.UserClick();
  });
}

TEST_F(ExportTest, ADriveThatIsNotReady) {
  const std::string root = backend.drives[0];
  backend.drives.push_back(folder.Path() + "/no-such-drive");
  const auto open = [this] { Run([] { Form<frmBrowseExp>()->ShowModal(); }); };
  While<frmBrowseExp>(open, [&](frmBrowseExp& dialog) {
    EXPECT_EQ(dialog.Drive1.Text(), root);
    dialog.Drive1.UserPick(1);
    EXPECT_EQ(BoxTexts(), Texts{"Drive " + backend.drives[1] + " is not accessible"});
    EXPECT_EQ(dialog.Drive1.Text(), root);
    EXPECT_EQ(dialog.Dir1.Path(), folder.Path());
    dialog.cmdCancel.UserClick();
  });
  EXPECT_EQ(Session().BrowseDirectory, "");
}

}  // namespace
}  // namespace quorvel

#include "output/ExportCommands.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Entries = std::vector<std::string>;

// Columns 1 to 33 of an entry: the mark, a blank, the description in 30 characters, a blank.
std::string Head(char mark, std::string description) {
  description.resize(30, ' ');
  return std::string(1, mark) + " " + description + " ";
}

TEST(ExportCommands, EntriesHaveFixedColumns) {
  const ExportCommand command{true, "Spreadsheet", "calc @"};
  EXPECT_EQ(command.Entry(), Head('*', "Spreadsheet") + "calc @");
  const std::string full(30, 'd');
  EXPECT_EQ((ExportCommand{false, full, "x"}.Entry()), "  " + full + " x");
  const ExportCommand read = ExportCommand::Parse(Head('*', "Spreadsheet") + " calc @ ");
  EXPECT_TRUE(read.isDefault);
  EXPECT_EQ(read.description, "Spreadsheet");
  EXPECT_EQ(read.commandLine, "calc @");
  EXPECT_EQ(ExportCommand::Parse("  short").commandLine, "");
  EXPECT_FALSE(ExportCommand::Parse("").isDefault);
}

TEST(ExportCommands, TheMarkedOneElseTheFirstIsTheDefault) {
  EXPECT_EQ(DefaultExport({"  a", "  b"}), "  a");
  EXPECT_EQ(DefaultExport({"  a", "* b", "* c"}), "* b");
  EXPECT_EQ(DefaultExport({"", "* b"}), "* b");
  EXPECT_EQ(DefaultExport({}), "");
}

TEST(ExportCommands, AddingReplacesMovesAndTakesTheMark) {
  const struct {
    const char* what;
    Entries list;
    std::string entry;
    Entries result;
  } cases[] = {
      {"the first", {}, "* a", {"* a"}},
      {"one more", {"* a"}, "  b", {"* a", "  b"}},
      {"a new default", {"* a", "  b"}, "* c", {"* c", "  a", "  b"}},
      {"the same, unmarked now", {"* a", "  b"}, "  a", {"  a", "  b"}},
      {"the same, marked now", {"* a", "  b", "  c"}, "* c", {"* c", "  a", "  b"}},
      {"the same twice over", {"  a", "  a"}, "  a", {"  a", "  a"}},
      {"another description is another command", {"* a"}, "  A", {"* a", "  A"}},
      {"a second unmarked one leaves the mark", {"* a", "  b"}, "  b", {"* a", "  b"}},
  };
  for (const auto& c : cases) {
    Entries list = c.list;
    AddExportEntry(list, c.entry);
    EXPECT_EQ(list, c.result) << c.what;
  }
  // The eleventh line: nothing here keeps it out.
  Entries ten(10, "");
  for (std::size_t i = 0; i < ten.size(); ++i) ten[i] = "  " + std::to_string(i);
  AddExportEntry(ten, "  ten");
  ASSERT_EQ(ten.size(), 11u);
  EXPECT_EQ(ten[10], "  ten");
}

TEST(ExportCommands, CommandLines) {
  const std::string head = Head(' ', "Editor");
  const struct {
    std::string entry;
    const char* line;
  } cases[] = {
      {head + "edit @", "edit /r.txt"},
      {head + "edit", "edit /r.txt"},
      {head + "  edit @ -b @", "edit /r.txt -b @"},
      {std::string(32, ' ') + "edit @", "edit /r.txt"},
      {"* short", "/r.txt"},
      {head + "@", "/r.txt"},
  };
  for (const auto& c : cases) EXPECT_EQ(CommandLineFor(c.entry, "/r.txt"), c.line) << c.entry;
}

TEST(ExportCommands, FileNames) {
  EXPECT_EQ(WithShortFolder("C:\\Program Files\\r.txt"), "C:\\progra~1\\r.txt");
  EXPECT_EQ(WithShortFolder("c:\\pROGRAM fILES\\Program Files\\r"),
            "c:\\progra~1\\Program Files\\r");
  EXPECT_EQ(WithShortFolder("/home/my files/r"), "/home/my files/r");
  for (const char* name : {"/x/TempRpt.txt", "my bookmarks", "/BOOKMARK/r.txt", "aTEMPRPTb"}) {
    EXPECT_TRUE(IsReservedName(name)) << name;
  }
  EXPECT_FALSE(IsReservedName("/x/report.txt"));
}

}  // namespace
}  // namespace quorvel

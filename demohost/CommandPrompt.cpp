// The command prompt: a line at a time, with listings a page at a time.
#include <algorithm>
#include <string>

#include "demohost/Application.h"
#include "demohost/Pager.h"
#include "demohost/Program.h"
#include "demohost/Record.h"
#include "demohost/Reports.h"
#include "demohost/Utilities.h"
#include "demohost/Vt.h"

namespace quorvel::demohost {
namespace {

class CommandPrompt final : public Program {
 public:
  void OnStart(Console& console) override {
    console.Print(vt::kClear);
    console.PrintLine(vt::In(vt::kBold, "Command prompt") +
                      "   HELP lists the commands, MENU goes back to the menus.");
    Ask(console);
  }

  void OnLine(Console& console, const std::string& line) override;

 private:
  struct Command {
    std::string_view word;
    const char* form;
    const char* effect;
    void (CommandPrompt::*run)(Console&, const std::string& rest);
  };
  static const Command kCommands[];

  void Ask(Console& console) { console.Print("> "); }
  void Page(Console& console, Listing listing) {
    pager_.Start(console, std::move(listing.title), std::move(listing.headings),
                 std::move(listing.body));
  }

  void List(Console& console, const std::string& file) {
    Page(console, file.empty() ? ListFiles(console) : ListFile(Upper(file), console));
  }
  void Count(Console& console, const std::string& file) {
    const auto count = console.Host().Data().Count(Upper(file));
    console.PrintLine(std::to_string(count) + " records.");
  }
  void Who(Console& console, const std::string&) { Page(console, ListUsers(console)); }
  void Locked(Console& console, const std::string&) { Page(console, ListLocks(console)); }
  void Time(Console& console, const std::string&) {
    const auto now = console.Host().Now();
    console.PrintLine(ShowTime(now) + "  " + ShowDate(now));
  }
  void Send(Console& console, const std::string& text) {
    if (text.empty()) return console.PrintLine("BROADCAST needs a text.");
    console.PrintLine("Sent to " + std::to_string(console.Broadcast(text)) + " users.");
  }
  void Clear(Console& console, const std::string&) { console.Print(vt::kClear); }
  void Help(Console& console, const std::string&);
  void Menu(Console& console, const std::string&) {
    console.Finish();
    leaving_ = true;
  }
  void Off(Console& console, const std::string&) {
    console.LogOff();
    leaving_ = true;
  }

  void RunCommand(Console& console, const std::string& line);

  Pager pager_;
  bool leaving_ = false;
};

const CommandPrompt::Command CommandPrompt::kCommands[] = {
    {"LIST", "LIST [file]", "lists a file, or the files", &CommandPrompt::List},
    {"COUNT", "COUNT file", "counts its records", &CommandPrompt::Count},
    {"WHO", "WHO", "lists the users", &CommandPrompt::Who},
    {"LOCKS", "LOCKS", "lists the record locks", &CommandPrompt::Locked},
    {"TIME", "TIME", "shows time and date", &CommandPrompt::Time},
    {"BROADCAST", "BROADCAST text", "shows a text to all other users", &CommandPrompt::Send},
    {"CLEAR", "CLEAR", "clears the screen", &CommandPrompt::Clear},
    {"HELP", "HELP", "lists the commands", &CommandPrompt::Help},
    {"MENU", "MENU", "goes back to the menus", &CommandPrompt::Menu},
    {"OFF", "OFF", "logs off", &CommandPrompt::Off},
};

void CommandPrompt::OnLine(Console& console, const std::string& line) {
  if (!pager_.Done()) {
    pager_.OnLine(console, line);
    if (pager_.Done()) Ask(console);
    return;
  }
  try {
    RunCommand(console, Trim(line));
  } catch (const StoreError& error) {  // a mistyped file name is no reason to leave the prompt
    console.PrintLine(error.what());
  }
  if (!leaving_ && pager_.Done()) Ask(console);
}

void CommandPrompt::RunCommand(Console& console, const std::string& line) {
  if (line.empty()) return;
  const auto blank = std::min(line.find(' '), line.size());
  const auto word = Upper(line.substr(0, blank));
  const auto* command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                     [&](const Command& c) { return c.word == word; });
  if (command != std::end(kCommands))
    return (this->*command->run)(console, Trim(line.substr(blank)));
  leaving_ = console.RunOption(line);
  if (!leaving_) console.PrintLine(word + " is no command and no option.");
}

void CommandPrompt::Help(Console& console, const std::string&) {
  for (const auto& command : kCommands) {
    // Padded with a fill character behind each CR, as older hosts print.
    console.Print(vt::In(vt::kBold, Left(command.form, 18)) + command.effect);
    console.Print(std::string_view("\r\0\n", 3));
  }
  console.PrintLine("Any option of a menu runs by its id.");
}

}  // namespace

std::unique_ptr<Program> MakeCommandPrompt() {
  return std::make_unique<CommandPrompt>();
}

}  // namespace quorvel::demohost

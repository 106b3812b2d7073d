// Terminal programs: state machines that get the user's lines and print.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel::demohost {

class Application;
struct PickList;
struct Printout;

/// What a program can do with its session.
class Console {
 public:
  virtual ~Console() = default;

  virtual void Print(std::string_view text) = 0;  // as it stands
  void PrintLine(std::string_view text = {});     // and CR LF

  /// A message box; the program's next line is empty and tells that it has been closed.
  virtual void ShowBox(std::string_view title, std::string_view text) = 0;
  /// The password window; the program's next line is the answer, empty if there was none.
  virtual void AskPassword(std::string_view program) = 0;
  /// A list to pick from; the program's next line is the choice, empty if there was none.
  virtual void ShowList(const PickList& list) = 0;

  /// Output for the workstation. It goes out when the program has ended and the menu has been sent,
  /// since nothing may come between its lines.
  virtual void Deliver(Printout printout) = 0;

  /// Ends the program; the menu follows.
  virtual void Finish() = 0;
  /// Ends the program and starts another option, a menu or a program. False if there is none.
  virtual bool RunOption(std::string_view id) = 0;
  virtual void LogOff() = 0;

  virtual Application& Host() = 0;
  /// Number of the session, from 1; the owner of its locks.
  virtual int Port() const = 0;
  virtual const std::string& User() const = 0;
  /// Rows of the user's terminal.
  virtual int Rows() const = 0;
  /// Shows a text to all other users; gives how many got it.
  virtual int Broadcast(std::string_view text) = 0;
};

class Program {
 public:
  Program() = default;
  virtual ~Program() = default;
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  virtual void OnStart(Console& console) = 0;
  /// A line of the user, without its end.
  virtual void OnLine(Console& console, const std::string& line) = 0;
};

/// A program of the option table.
struct Option {
  std::string id;
  /// True if it talks in the terminal; false if message boxes are all it shows.
  bool terminal;
  std::function<std::unique_ptr<Program>()> make;
};

/// The option of this id (upper case). Menus are no programs.
std::optional<Option> FindOption(std::string_view id);

std::unique_ptr<Program> MakeCommandPrompt();
/// Lists the customers of a city that the user picks.
std::unique_ptr<Program> MakeCityListing();

/// An empty screen for questions and answers, with a title and how to leave.
void StartQuestions(Console& console, std::string_view title);

/// True for what ends a question: an empty line or ".".
bool Leaves(std::string_view line);

}  // namespace quorvel::demohost

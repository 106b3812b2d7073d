#include "demohost/Program.h"

#include "demohost/Format.h"
#include "demohost/Record.h"
#include "demohost/Vt.h"

namespace quorvel::demohost {

void Console::PrintLine(std::string_view text) {
  Print(text);
  Print("\r\n");
}

void StartQuestions(Console& console, std::string_view title) {
  console.Print(vt::kClear);
  console.PrintLine(vt::In(vt::kReverse, Left(title, 79)));
  console.PrintLine("An empty line or a point goes back.");
}

bool Leaves(std::string_view line) {
  const auto entry = Trim(line);
  return entry.empty() || entry == ".";
}

}  // namespace quorvel::demohost

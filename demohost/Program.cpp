#include "demohost/Program.h"

#include "demohost/Record.h"

namespace quorvel::demohost {

void Console::PrintLine(std::string_view text) {
  Print(text);
  Print("\r\n");
}

bool Leaves(std::string_view line) {
  const auto entry = Trim(line);
  return entry.empty() || entry == ".";
}

}  // namespace quorvel::demohost

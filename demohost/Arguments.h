// The command line of the host.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorvel::demohost {

struct Arguments {
  std::string dataFile;  // empty: the default one
  std::uint16_t port = 2323;
  bool reset = false;
  bool help = false;
  std::string error;  // not empty: the command line can't be followed
};

/// `words` without the program's name.
Arguments ParseArguments(const std::vector<std::string>& words);

std::string HelpText();

}  // namespace quorvel::demohost
